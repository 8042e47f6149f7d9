#include "astro/rise_set.hpp"

#include <array>
#include <charconv>
#include <cmath>

#include "astro/low_precision_positions.hpp"
#include "astro/toolkit.hpp"

namespace sk::astro {

namespace {

struct KindRow {
    RiseSetKind kind;
    double threshold_degrees;
    const char* label;
};

constexpr KindRow kKinds[] = {
    {RiseSetKind::Moon, 0.13333333333333333, "Mond"},
    {RiseSetKind::Sun, -0.8333333333333334, "Sonne"},
    {RiseSetKind::CivilTwilight, -6.0, "Dämmerung"},
    {RiseSetKind::NauticalTwilight, -12.0, "Dämmerung"},
    {RiseSetKind::AstronomicalTwilight, -18.0, "Dämmerung"},
};

const KindRow& row_of(RiseSetKind kind) {
    return kKinds[static_cast<int>(kind) - 1];
}

bool is_twilight(RiseSetKind kind) {
    return kind >= RiseSetKind::CivilTwilight;
}

// Sine of the body's altitude above the threshold at the whole local hours
// 0..24 of one day. Each hour is computed once; a two-hour step reads three.
class AltitudeCurve {
  public:
    AltitudeCurve(RiseSetKind kind, const calendar::Day& day, const Place& place)
        : m_moon(kind == RiseSetKind::Moon),
          m_sin_latitude(sin_deg(place.latitude)),  // degrees.minutes used as degrees
          m_cos_latitude(cos_deg(place.latitude)),
          m_west_longitude(place.longitude),
          m_sin_threshold(sin_deg(row_of(kind).threshold_degrees)) {
        const int mjd0 = mjd_of_day(day.number);
        double zone = -place.time_zone;
        if (place.auto_summer_time && summer_time_on_day(mjd0, day.year)) zone -= 1.0;
        m_local_midnight = mjd0 + zone / 24.0;  // MJD (UT) of 0:00 local time
    }

    double operator()(int hour) {
        auto& cached = m_values[static_cast<std::size_t>(hour)];
        if (!cached.known) cached = {sin_altitude(hour) - m_sin_threshold, true};
        return cached.value;
    }

  private:
    double sin_altitude(int hour) const {
        const double t = m_local_midnight + hour / 24.0;
        const double T = (t - kMjdJ2000) / kDaysPerJulianCentury;
        const Equatorial place = m_moon ? moon_position(T) : sun_position(T);
        const double hour_angle =
            15.0 * (local_mean_sidereal_time(t, m_west_longitude) - place.right_ascension);
        return m_sin_latitude * sin_deg(place.declination) +
               m_cos_latitude * cos_deg(place.declination) * cos_deg(hour_angle);
    }

    struct Value {
        double value = 0.0;
        bool known = false;
    };
    bool m_moon;
    double m_sin_latitude, m_cos_latitude, m_west_longitude, m_sin_threshold;
    double m_local_midnight = 0.0;
    std::array<Value, 26> m_values{};
};

constexpr int kLastStepEnd = 25;

}  // namespace

double threshold_altitude(RiseSetKind kind) {
    return row_of(kind).threshold_degrees;
}

RiseSetKind rise_set_kind(Twilight twilight) {
    switch (twilight) {
        case Twilight::Nautical:
            return RiseSetKind::NauticalTwilight;
        case Twilight::Astronomical:
            return RiseSetKind::AstronomicalTwilight;
        case Twilight::Civil:
            break;
    }
    return RiseSetKind::CivilTwilight;
}

ParabolaFit fit_parabola(double y_minus, double y0, double y_plus) {
    const double a = 0.5 * (y_minus + y_plus) - y0;
    const double b = 0.5 * (y_plus - y_minus);
    const double c = y0;
    ParabolaFit fit;
    fit.xe = -b / (2.0 * a);
    fit.ye = (a * fit.xe + b) * fit.xe + c;
    const double dis = b * b - 4.0 * a * c;
    if (dis >= 0.0) {
        const double dx = 0.5 * std::sqrt(dis) / std::fabs(a);
        fit.root1 = fit.xe - dx;
        fit.root2 = fit.xe + dx;
        if (std::fabs(fit.root1) <= 1.0) ++fit.roots_in_step;
        if (std::fabs(fit.root2) <= 1.0) ++fit.roots_in_step;
        if (fit.root1 < -1.0) fit.root1 = fit.root2;
    }
    return fit;
}

Crossings find_crossings(RiseSetKind kind, const calendar::Day& day, const Place& place) {
    AltitudeCurve y(kind, day, place);
    Crossings found;
    int hour = 1;
    do {
        const double y_minus = y(hour - 1);
        // Set afresh in every step: the flag that survives is the last step's.
        found.above = y_minus > 0.0;
        const ParabolaFit fit = fit_parabola(y_minus, y(hour), y(hour + 1));
        if (fit.roots_in_step == 1) {
            if (y_minus < 0.0) {
                found.rise = hour + fit.root1;
            } else {
                found.set = hour + fit.root1;
            }
        } else if (fit.roots_in_step == 2) {
            if (fit.ye < 0.0) {
                found.rise = hour + fit.root2;
                found.set = hour + fit.root1;
            } else {
                found.rise = hour + fit.root1;
                found.set = hour + fit.root2;
            }
        }
        hour += 2;
    } while (hour != kLastStepEnd && (found.rise == 0.0 || found.set == 0.0));
    return found;
}

std::string clock_time_text(double hours) {
    // The minutes are written as hundredths of the hour figure; from 59.5
    // minutes on they round into the next hour.
    double minutes_as_hundredths = (hours - std::trunc(hours)) * 60.0 / 100.0;
    if (minutes_as_hundredths >= 0.595) {
        minutes_as_hundredths = 0.0;
        hours += 1.0;
    }
    const double value = std::trunc(hours) + minutes_as_hundredths;
    if (value == 0.0) return "--:--";
    char buffer[32];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 2);
    std::string text(buffer, result.ptr);
    text[text.size() - 3] = ':';
    return text;
}

std::string rise_set_line(RiseSetKind kind, const calendar::Day& day, const Place& place) {
    const Crossings found = find_crossings(kind, day, place);
    std::string line = row_of(kind).label;
    if (found.rise == 0.0 && found.set == 0.0) {
        if (is_twilight(kind)) {
            line += found.above ? ": immer hell" : ": immer dunkel";
        } else {
            line += found.above ? ": immer sichtbar" : ": nicht sichtbar";
        }
        return line;
    }
    line += ": ";
    line += clock_time_text(found.rise);
    line += " - ";
    line += clock_time_text(found.set);
    return line;
}

std::string summer_time_change_line(const calendar::Day& day) {
    constexpr int kMarch = 2;
    constexpr int kOctober = 9;
    if (day.month_index != kMarch && day.month_index != kOctober) return {};
    // Here a Sunday the 31st is itself the last Sunday.
    const calendar::DayNumber the_31st = calendar::day_number(day.year, day.month_index, 31);
    const calendar::DayNumber last_sunday = the_31st - calendar::weekday_sunday0(the_31st);
    if (day.number != last_sunday) return {};
    // The "b" after 2:00 belongs to the text: the second 2:00 of that night.
    return day.month_index == kMarch ? "Sommerzeit von 2:00 Uhr auf 3:00 Uhr"
                                     : "Winterzeit von 3:00 Uhr auf 2:00b Uhr";
}

}  // namespace sk::astro

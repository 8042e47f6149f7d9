#include "astro/toolkit.hpp"

#include <cmath>

namespace sk::astro {

namespace {

constexpr int kMarch = 2;
constexpr int kOctober = 9;

// The whole-day rule names weekdays Sunday 1, Monday 2 ... Saturday 7, so
// that MJD(31st) - w is the Saturday before the month's last Sunday (the 30th
// when the 31st is a Sunday). The sum is positive for every day after 1858.
int mjd_of_saturday_before_last_sunday(int year, int month_index) {
    const calendar::DayNumber the_31st = calendar::day_number(year, month_index, 31);
    int w = calendar::rem(the_31st + kMjdOfDayZero + 4, 7);
    if (w == 0) w = 7;
    return mjd_of_day(the_31st) - w;
}

// The event rule names weekdays Monday 1 ... Sunday 7, so a Sunday the 31st
// gives the Sunday a week earlier. That lands a week early on purpose: it is
// how the calendar has always started and ended summer time for events.
calendar::DayNumber event_rule_last_sunday(int year, int month_index) {
    const calendar::DayNumber the_31st = calendar::day_number(year, month_index, 31);
    int w = calendar::rem(the_31st + 4, 7);
    if (w == 0) w = 7;
    return the_31st - w;
}

// 2:00 UT of day 0 (1 January 1970) as a Julian Date. The switch instants
// built from it are compared with event_time_text's x = JD + zone + 0.5,
// which runs half a day ahead, so for events summer time begins and ends at
// 14:00 local standard time on the Saturday before the Sunday that
// event_rule_last_sunday names. The event texts have always switched then
// and keep doing so.
constexpr double kEventSwitchOffset = 2440587.5833333335;
constexpr double kOneHourInDays = 0.041666666666667;

}  // namespace

double sin_deg(double degrees) {
    return std::sin(degrees * kRadiansPerDegree);
}
double cos_deg(double degrees) {
    return std::cos(degrees * kRadiansPerDegree);
}

double frac(double x) {
    const double f = x - std::trunc(x);
    return f < 0.0 ? f + 1.0 : f;
}

bool summer_time_on_day(int mjd, int year) {
    const int start = mjd_of_saturday_before_last_sunday(year, kMarch);
    const int end = mjd_of_saturday_before_last_sunday(year, kOctober);
    return start < mjd && mjd <= end;
}

double event_summer_time_shift(double shifted_jd, int year, const Place& place) {
    if (!place.auto_summer_time) return 0.0;
    const double start = event_rule_last_sunday(year, kMarch) + kEventSwitchOffset;
    const double end = event_rule_last_sunday(year, kOctober) + kEventSwitchOffset;
    return start < shifted_jd && shifted_jd < end ? kOneHourInDays : 0.0;
}

std::string event_time_text(double jd, std::string_view label, const calendar::Day& day,
                            const Place& place) {
    // JD + zone + 0.5, written in these steps and evaluated left to right, so
    // that trunc(x) is the Julian day number of the local date.
    double x = jd + place.time_zone / 24.0 - 1.0 / 24.0 + 13.0 / 24.0;
    x += event_summer_time_shift(x, day.year, place);
    if (std::trunc(x) != day.number + kJulianDayNumberOfDayZero) return {};

    int seconds = static_cast<int>((x - std::trunc(x)) * 86400.0);
    const int hours = seconds / 3600;
    seconds -= hours * 3600;
    const int minutes = seconds / 60;
    std::string text(label);
    text += std::to_string(hours);
    text += minutes < 10 ? ":0" : ":";
    text += std::to_string(minutes);
    return text;
}

}  // namespace sk::astro

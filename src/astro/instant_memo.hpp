// A memo of event instants for the days of one computation. An instant
// depends only on its series and its lunation (or orbit) number k, and the
// day searches ask for the same k again and again: every day of a page near
// the same full moon, every offset of a search that has not yet crossed into
// the next lunation. The memo is a plain local value owned by the caller.
#pragma once

#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace sk::astro {

enum class EventSeries : std::int64_t {
    NewMoon,
    FirstQuarter,
    FullMoon,
    LastQuarter,
    SolarEclipseTotal,
    SolarEclipseAnnular,
    SolarEclipsePartial,
    LunarEclipseTotal,
    LunarEclipsePartial,
    Perigee,
    Apogee,
    PerihelionStepped,
    AphelionStepped,
};

class InstantMemo {
  public:
    // The instant of `series` for k (a multiple of 0.25), computed by
    // `compute()` the first time it is asked for.
    template <class Compute>
    double get(EventSeries series, double k, Compute&& compute) {
        const std::int64_t key =
            static_cast<std::int64_t>(series) * (std::int64_t{1} << 40) + std::llround(k * 4.0);
        const auto found = m_instants.find(key);
        if (found != m_instants.end()) return found->second;
        const double instant = compute();
        m_instants.emplace(key, instant);
        return instant;
    }

  private:
    std::unordered_map<std::int64_t, double> m_instants;
};

}  // namespace sk::astro

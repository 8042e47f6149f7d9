#include "astro/eclipses.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "astro/day_information.hpp"
#include "astro/toolkit.hpp"
#include "astro_test_helpers.hpp"
#include "test_support.hpp"

namespace sk::astro {
namespace {

using test::date;

// The calendar's own limits: central |γ| <= 0.9972; non-central total or
// annular eclipses reported as nothing; annular when u > 0.0047 or u >=
// 0.00464·sqrt(1 - γ²); lunar eclipses from (1.0248 - u - |γ|) > 0 on.
TEST(AstroEclipses, KindFromGammaAndU) {
    using T = EclipseType;
    struct Case {
        double gamma, u;
        bool partial, total, annular;
    };
    const Case solar[] = {
        {0.0, 0.003, false, true, false},  // 0.003 < 0.00464: total
        {0.0, 0.006, false, false, true},
        {0.5, 0.0045, false, false, true},  // 0.0045 >= 0.00464·sqrt(0.75)
        {0.5, 0.0040, false, true, false},
        {-0.3, -0.005, false, true, false},   // negative u: total
        {0.999, 0.005, false, false, false},  // non-central, within |u| of central
        {1.2, 0.005, true, false, false},
        {-1.2, 0.005, true, false, false},
        {1.55, 0.005, false, false, false},
    };
    for (const auto& c : solar) {
        EXPECT_EQ(is_solar_eclipse_of_type(T::Partial, c.gamma, c.u), c.partial)
            << c.gamma << ' ' << c.u;
        EXPECT_EQ(is_solar_eclipse_of_type(T::Total, c.gamma, c.u), c.total)
            << c.gamma << ' ' << c.u;
        EXPECT_EQ(is_solar_eclipse_of_type(T::Annular, c.gamma, c.u), c.annular)
            << c.gamma << ' ' << c.u;
    }
    const Case lunar[] = {
        {0.2, 0.01, false, true, false},
        {0.9, 0.01, true, false, false},
        {1.01, 0.01, true, false, false},  // umbral only by the calendar's 1.0248
        {1.2, 0.01, false, false, false},  // penumbral only
    };
    for (const auto& c : lunar) {
        EXPECT_EQ(is_lunar_eclipse_of_type(T::Partial, c.gamma, c.u), c.partial) << c.gamma;
        EXPECT_EQ(is_lunar_eclipse_of_type(T::Total, c.gamma, c.u), c.total) << c.gamma;
    }
}

// Far from a node (|sin F| > 0.36) a lunation has no eclipse, whatever γ.
TEST(AstroEclipses, NoEclipseFarFromTheNode) {
    for (double k : {301.0, 301.5, -100.0, -100.5}) {
        const MeanLunation l = mean_lunation(k);
        ASSERT_GT(std::fabs(sin_deg(l.F)), 0.36) << k;
        EXPECT_FALSE(eclipse_geometry(k).possible);
        for (auto type : {EclipseType::Partial, EclipseType::Total, EclipseType::Annular}) {
            EXPECT_EQ(eclipse_instant(k, type), 0.0);
        }
    }
}

// Real eclipses, with the local time of greatest eclipse (NASA's catalogue,
// UT + 2 h for summer time) where it is given: 8 April 2024 at 18:17 UT,
// the total lunar eclipse of 27 July 2018 at 20:22 UT, the annular one of 2
// October 2024 at 18:45 UT. The non-central annular eclipse of 29 April 2014
// and the penumbral one of 25 March 2024 give no line.
TEST(AstroEclipses, RealSky) {
    struct Case {
        calendar::Day day;
        const char* label;
        int minutes;  // local time of greatest eclipse, -1: none given
    };
    const Case cases[] = {
        {date(2024, 4, 8), "Sonnenfinsternis total: ", 20 * 60 + 17},
        {date(2018, 7, 27), "Mondfinsternis total: ", 22 * 60 + 22},
        {date(2024, 10, 2), "Sonnenfinsternis ringförmig: ", 20 * 60 + 45},
        {date(2022, 10, 25), "Sonnenfinsternis partiell: ", -1},
        {date(2024, 9, 18), "Mondfinsternis partiell: ", -1},
        {date(2025, 3, 14), "Mondfinsternis total: ", -1},
    };
    const settings::Settings rodenwald;
    for (const auto& c : cases) {
        const DayEvents e = day_events(c.day, rodenwald);
        EXPECT_EQ(e.eclipse.rfind(c.label, 0), 0u)
            << ::testing::PrintToString(c.day) << ": " << e.eclipse;
        if (c.minutes >= 0) {
            const auto reported = test::minutes_after(e.eclipse, c.label);
            ASSERT_TRUE(reported);
            EXPECT_LE(std::abs(*reported - c.minutes), 3) << e.eclipse;
        }
    }
    for (const auto day : {date(2014, 4, 29), date(2024, 3, 25)}) {
        const DayEvents e = day_events(day, rodenwald);
        EXPECT_NE(e.marker, 0) << ::testing::PrintToString(day);
        EXPECT_EQ(e.eclipse, "") << ::testing::PrintToString(day);
    }
}

}  // namespace
}  // namespace sk::astro

// The ranges of the values the user can set, in one place: the settings
// repair on reading, the page, the commands and the dialogs all ask these.
// Every range includes both ends.
#pragma once

#include <algorithm>

#include "calendar/dates.hpp"

namespace sk::calendar {

template <class T>
struct Range {
    T min;
    T max;
    constexpr bool contains(T value) const { return value >= min && value <= max; }
    constexpr T clamp(T value) const { return std::clamp(value, min, max); }
};

// The days the calendar shows: 1 January 1970 to 31 July 2037.
inline constexpr Range<DayNumber> kCalendarDays{kFirstDay, kLastDay};
// Shift models ("Schichtart").
inline constexpr Range<int> kModels{0, 7};
// Month columns of the window's page ("Schichtspalten"); a step beyond
// either end sets 6.
inline constexpr Range<int> kColumns{6, 23};
// Month columns of a page drawn by the render command, which may be narrower.
inline constexpr Range<int> kRenderColumns{1, kColumns.max};
// Page font sizes in points ("Fontgröße").
inline constexpr Range<int> kFontSizes{6, 72};
// Twilight kinds ("Dämmerung"): 0 civil, 1 nautical, 2 astronomical.
inline constexpr Range<int> kTwilightKinds{0, 2};
// Time zones in hours east of Greenwich ("Zeitzone").
inline constexpr Range<double> kTimeZones{-12.0, 14.0};
// Latitude and longitude in the degrees.minutes notation ("Breite", "Länge").
inline constexpr Range<double> kLatitudes{-90.0, 90.0};
inline constexpr Range<double> kLongitudes{-180.0, 180.0};
// Month (1..12) and day (1..31) of the earliest vacation-block start
// ("UrlaubStartMonat", "UrlaubStartTag").
inline constexpr Range<int> kVacationStartMonths{1, 12};
inline constexpr Range<int> kVacationStartDays{1, 31};
// Places the vacation order is shifted ("UrlaubZyklus"); five shifts are
// the order itself again, so the settings dialog offers 0..4.
inline constexpr Range<int> kVacationCycles{0, 4};
// Yearly target hours ("Sollstunden_38", "Sollstunden_40"): more than none,
// at most the hours of a leap year.
inline constexpr Range<double> kTargetHours{1.0, 8784.0};
// Years a yearly note may count from ("Beginn der Zählung mit dem Jahr").
inline constexpr Range<int> kCountingYears{1900, 2100};
// Repeat of a periodic note in days, as its editor offers it.
inline constexpr Range<int> kRepeatIntervals{1, 365};

}  // namespace sk::calendar

// Helpers of the astronomy tests: dates written as on a calendar, and
// reading a clock time back out of an information line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "calendar/dates.hpp"

namespace sk::astro::test {

// 2024-04-08 as date(2024, 4, 8): month 1..12 as people write it.
inline calendar::Day date(int year, int month, int mday) {
    return calendar::Day::from_date(year, month - 1, mday);
}

// Minutes after midnight of the time that follows `label` ("Vollmond: " ->
// "13:54" -> 834), nullopt when the label is not in the line.
inline std::optional<int> minutes_after(std::string_view line, std::string_view label) {
    const auto at = line.find(label);
    if (at == std::string_view::npos) return std::nullopt;
    std::string_view rest = line.substr(at + label.size());
    const auto colon = rest.find(':');
    if (colon == std::string_view::npos || colon == 0 || colon > 2) return std::nullopt;
    const int hours = std::stoi(std::string(rest.substr(0, colon)));
    const int minutes = std::stoi(std::string(rest.substr(colon + 1, 2)));
    return hours * 60 + minutes;
}

}  // namespace sk::astro::test

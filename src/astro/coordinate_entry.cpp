#include "astro/coordinate_entry.hpp"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string>

#include "calendar/ranges.hpp"

namespace sk::astro {

namespace {

// A typed number taken apart into its decimal digits, so that the entry
// rules work on the value the user typed and not on its nearest binary
// neighbour (-95.3 must end as -5.3, not -5.29).
struct DecimalEntry {
    bool negative = false;
    std::int64_t whole = 0;     // degrees or hours, at most 15 digits
    std::int64_t fraction = 0;  // the part after the point in units of 10^-12
    std::string canonical;      // "-12.7", for reading as a binary number
};

constexpr int kFractionDigits = 12;
constexpr std::int64_t kFractionUnit = 1'000'000'000'000;  // 10^12

std::optional<DecimalEntry> read_entry(std::string_view text) {
    // The blanks around an entry are not part of it; blanks inside it separate
    // degrees from minutes.
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(" \t") - first + 1);

    DecimalEntry entry;
    std::size_t i = 0;
    if (text[0] == '+' || text[0] == '-') {
        entry.negative = text[0] == '-';
        i = 1;
    }
    std::string whole_digits, fraction_digits;
    bool point_seen = false;
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (c == ',' || c == ' ' || c == '\'' || c == '.') {
            if (point_seen) return std::nullopt;
            point_seen = true;
        } else if (c >= '0' && c <= '9') {
            (point_seen ? fraction_digits : whole_digits) += c;
        } else {
            return std::nullopt;
        }
    }
    if (whole_digits.empty() && fraction_digits.empty()) return std::nullopt;
    if (whole_digits.size() > 15) return std::nullopt;

    for (char c : whole_digits)
        entry.whole = entry.whole * 10 + (c - '0');
    fraction_digits.resize(kFractionDigits, '0');  // digits beyond 10^-12 are dropped
    for (char c : fraction_digits)
        entry.fraction = entry.fraction * 10 + (c - '0');
    entry.canonical = (entry.negative ? "-" : "") + (whole_digits.empty() ? "0" : whole_digits) +
                      "." + fraction_digits;
    return entry;
}

std::optional<double> parse_coordinate(std::string_view text, std::int64_t limit) {
    const auto entry = read_entry(text);
    if (!entry) return std::nullopt;
    std::int64_t whole = entry->whole;
    std::int64_t fraction = entry->fraction;
    // Minutes of 60 or more: the digits were a decimal fraction of a degree.
    if (fraction >= 599'000'000'000) fraction = fraction * 6 / 10;
    // Beyond the limit: fold back by the truncating remainder, which keeps the sign.
    if (whole > limit || (whole == limit && fraction > 0)) whole %= limit;
    const std::int64_t hundredths = whole * 100 + fraction / (kFractionUnit / 100);
    const double value = static_cast<double>(hundredths) / 100.0;
    return entry->negative ? -value : value;
}

}  // namespace

std::optional<double> parse_latitude(std::string_view text) {
    return parse_coordinate(text, static_cast<std::int64_t>(calendar::kLatitudes.max));
}

std::optional<double> parse_longitude(std::string_view text) {
    return parse_coordinate(text, static_cast<std::int64_t>(calendar::kLongitudes.max));
}

std::optional<double> parse_time_zone(std::string_view text) {
    const auto entry = read_entry(text);
    if (!entry) return std::nullopt;
    double hours = 0.0;
    const char* begin = entry->canonical.data();
    const char* end = begin + entry->canonical.size();
    if (std::from_chars(begin, end, hours).ptr != end) return std::nullopt;
    return calendar::kTimeZones.clamp(hours);
}

}  // namespace sk::astro

// Reading the observer's place and time zone as the user types them into the
// settings dialog. Latitude and longitude are kept in the degrees.minutes
// notation (12.42 means 12°42'); the rules below turn what was typed into
// that notation. The dialog asks these functions and refuses a text for
// which they give nothing.
#pragma once

#include <optional>
#include <string_view>

namespace sk::astro {

// "," , " " and "'" all separate degrees from minutes; minutes of 60 or more
// (a fractional part of .599 or more) are taken as a decimal fraction of a
// degree and turned into minutes (12.7 -> 12.42); a value beyond ±90 is
// folded back by a truncating remainder (120 -> 30, -95.3 -> -5.3); the
// result keeps two decimals. nullopt when the text is not a number.
std::optional<double> parse_latitude(std::string_view text);
// The same with ±180 (210 -> 30).
std::optional<double> parse_longitude(std::string_view text);
// Hours east of Greenwich as a decimal number (1.5 is 1 h 30 min), with the
// same separators, clamped to -12..14. nullopt when the text is not a number.
std::optional<double> parse_time_zone(std::string_view text);

}  // namespace sk::astro

// Any bytes as "Einstellungen.dat": the reader must not crash, and what it
// reads must be in range and survive a write and a second read unchanged.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "settings/settings_file.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace sk::settings;
    const Settings defaults = default_settings("/tmp/SKDaten");
    const Settings s = parse_settings(
        std::string_view(reinterpret_cast<const char*>(data), size), defaults);
    if (s.model < 0 || s.model > 7 || s.columns < 6 || s.columns > 23 || s.twilight < 0 ||
        s.twilight > 2 || s.time_zone < -12 || s.time_zone > 14 || s.font_size < 6 ||
        s.font_size > 72)
        std::abort();
    if (const auto bytes = serialize_settings(s)) {
        if (!(parse_settings(*bytes, defaults) == s)) std::abort();
    }
    return 0;
}

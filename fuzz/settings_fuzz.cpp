// Any bytes as "Einstellungen.dat": the reader must not crash, what it reads
// must be in range and already repaired, the writer must be able to store it
// (every text read is ISO-8859-15), and a second read of the written file
// must give it back unchanged.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "calendar/ranges.hpp"
#include "settings/settings_file.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace sk::settings;
    const Settings defaults = default_settings("/tmp/SKDaten");
    const Settings s = parse_settings(
        std::string_view(reinterpret_cast<const char*>(data), size), defaults);
    using namespace sk::calendar;
    if (!kModels.contains(s.model) || !kColumns.contains(s.columns) ||
        !kTwilightKinds.contains(s.twilight) || !kTimeZones.contains(s.time_zone) ||
        !kFontSizes.contains(s.font_size) || !kLatitudes.contains(s.latitude) ||
        !kLongitudes.contains(s.longitude))
        std::abort();
    Settings again = s;
    normalize_settings(again, defaults);
    if (!(again == s)) std::abort();
    const auto bytes = serialize_settings(s);
    if (!bytes || !(parse_settings(*bytes, defaults) == s)) std::abort();
    return 0;
}

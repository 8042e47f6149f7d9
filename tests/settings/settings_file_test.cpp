#include "settings/settings_file.hpp"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <ostream>

#include "files/text_encoding.hpp"
#include "settings/astro_place.hpp"
#include "test_support.hpp"

namespace sk::settings {

// Failing expectations print the file a value would be written as.
void PrintTo(const Settings& s, std::ostream* os) {
    *os << serialize_settings(s).value_or("(nicht speicherbar)");
}

namespace {

const Settings kDefaults = default_settings("/home/anna/SKDaten");

// The file a first start writes, byte for byte (ISO-8859-15: ö = F6, ß = DF,
// ä = E4).
const std::string kDefaultFile =
    "[Programmeinstellungen]\n"
    "Fontname = \n"
    "Fontgr\xF6\xDF" "e = 10\n"
    "Fontstil = 0\n"
    "Schichtspalten = 6\n"
    "Schulferien anzeigen = 1\n"
    "Wochennummer anzeigen = 1\n"
    "Anwenderverzeichnis = /home/anna/SKDaten\n"
    "Anwendername = Programm\n"
    "Schichtart = 0\n"
    "UrlaubBlockAnzeige = 1\n"
    "Sollstunden_38 = 1982.760009765625\n"
    "Sollstunden_40 = 2088\n"
    "UrlaubStartMonat = 4\n"
    "UrlaubStartTag = 25\n"
    "UrlaubZyklus = 0\n"
    "; \n"
    "[Astronomie]\n"
    "Breite = 49.00999999999999801048033987171947956085205078125\n"
    "L\xE4nge = -12.0600000000000004973799150320701301097869873046875\n"
    "Zeitzone = 1\n"
    "Sommerzeit automatisch = 1\n"
    "Ortsname = Rodenwald\n"
    "D\xE4mmerung = 0\n"
    "Mondphasen anzeigen = 0\n"
    "Perihel und Aphel anzeigen = 0\n";

TEST(SettingsFile, DefaultsAreWrittenByteExactly) {
    EXPECT_EQ(serialize_settings(kDefaults).value(), kDefaultFile);
}

TEST(SettingsFile, RoundTripKeepsEveryValueAndByte) {
    Settings s = kDefaults;
    s.font_name = "DejaVu Sans";
    s.font_size = 12;
    s.columns = 23;
    s.model = 7;
    s.target_hours_38 = 0.1f;
    s.latitude = 48.3;
    s.longitude = 1.5;
    s.time_zone = -3.5;
    s.place_name = "Nürnberg Süd €";
    test::TempDir dir;
    const auto file = dir / "Einstellungen.dat";
    ASSERT_TRUE(write_settings_file(file, s));
    const std::string bytes = test::read_bytes(file);
    EXPECT_NE(bytes.find("Ortsname = N\xFCrnberg S\xFC" "d \xA4\n"), std::string::npos);
    const Settings back = read_settings_file(file, kDefaults);
    EXPECT_EQ(back, s);
    EXPECT_EQ(serialize_settings(back), bytes);
    // A character ISO-8859-15 lacks is refused by name; the file stays.
    s.place_name = "Nürnberg – Süd";
    std::string error;
    EXPECT_FALSE(write_settings_file(file, s, &error));
    EXPECT_NE(error.find("U+2013"), std::string::npos) << error;
    EXPECT_EQ(test::read_bytes(file), bytes);
}

// A missing file or key takes the default. Groups and keys match without
// regard to case, also for the letters of ISO-8859-15; each line is read as
// UTF-8 when it is valid UTF-8, else as ISO-8859-15.
TEST(SettingsFile, MissingKeysAndLinesInEitherEncodingAndAnyCase) {
    test::TempDir dir;
    EXPECT_EQ(read_settings_file(dir / "none.dat", kDefaults), kDefaults);
    Settings expected = kDefaults;
    expected.model = 4;
    expected.font_size = 14;
    expected.twilight = 2;
    expected.place_name = "Fürth";
    EXPECT_EQ(parse_settings("[Programmeinstellungen]\r\nSCHICHTART = 4\r\n"
                             "fontgr\xD6\xDF" "e = 14\n[ASTRONOMIE]\nDÄMMERUNG = 2\n"
                             "ortsname=Fürth\n",
                             kDefaults),
              expected);
}

// Values that would break the program are brought into range; text that is
// no number counts as missing. Byte keys keep the low 8 bits first. Each
// line read, and the line the file is then written with.
TEST(SettingsFile, OutOfRangeValuesAreRepaired) {
    const std::string latitude = "Breite = 49.00999999999999801048033987171947956085205078125";
    const std::pair<std::string, std::string> cases[] = {
        {"Schichtart = 8", "Schichtart = 0"},         {"Schichtart = -1", "Schichtart = 0"},
        {"Schichtart = 261", "Schichtart = 5"},       {"Schichtart = drei", "Schichtart = 0"},
        {"Schichtspalten = 5", "Schichtspalten = 6"}, {"Schichtspalten = 24", "Schichtspalten = 6"},
        {"Fontgröße = 5", "Fontgröße = 10"},          {"Fontgröße = 73", "Fontgröße = 10"},
        {"Fontgröße = 72", "Fontgröße = 72"},         {"Fontgröße = 12.5", "Fontgröße = 10"},
        {"Fontgröße = 4294967308", "Fontgröße = 10"},  // 2^32 + 12: beyond 32 bits
        {"UrlaubStartMonat = 13", "UrlaubStartMonat = 4"},
        {"UrlaubStartTag = 0", "UrlaubStartTag = 25"}, {"UrlaubZyklus = -7", "UrlaubZyklus = -7"},
        {"[Astronomie]\nDämmerung = 3", "Dämmerung = 0"},
        {"[Astronomie]\nDämmerung = -1", "Dämmerung = 0"},
        {"[Astronomie]\nMondphasen anzeigen = 7", "Mondphasen anzeigen = 1"},
        {"[Astronomie]\nSchichtart = 3", "Schichtart = 0"},  // wrong group
        {"[Astronomie]\nZeitzone = 15", "Zeitzone = 14"},
        {"[Astronomie]\nZeitzone = -13.5", "Zeitzone = -12"},
        {"[Astronomie]\nZeitzone = 5.75", "Zeitzone = 5.75"},
        {"[Astronomie]\nZeitzone = inf", "Zeitzone = 1"},
        {"[Astronomie]\nZeitzone = 1,5", "Zeitzone = 1"},
        {"[Astronomie]\nBreite = -90", "Breite = -90"},
        {"[Astronomie]\nBreite = 91", latitude}, {"[Astronomie]\nBreite = nan", latitude},
        {"[Astronomie]\nBreite = 1e400", latitude}, {"[Astronomie]\nBreite = 48,3", latitude},
    };
    for (const auto& [line, written] : cases) {
        const std::string text = line[0] == '[' ? line : "[Programmeinstellungen]\n" + line;
        const std::string file = serialize_settings(parse_settings(text, kDefaults)).value();
        EXPECT_NE(file.find("\n" + *files::utf8_to_latin9(written) + "\n"), std::string::npos)
            << line;
    }
    // Cut to 50 characters, not bytes.
    std::string fifty;
    for (int i = 0; i < 50; ++i) fifty += "ü";
    const std::string sixty(60, '\xFC');
    EXPECT_EQ(parse_settings("[Astronomie]\nOrtsname = " + sixty, kDefaults).place_name, fifty);
}

// Whatever the reader takes, the writer writes and the reader reads back
// equal: texts are taken as a second reading would give them.
TEST(SettingsFile, TextsReadAsTheWrittenFileReadsBack) {
    const std::string x49(49, 'x');
    const std::string fuzzed = "Reg" + std::string(35, '\x87') + "enn\xAA\x39\xF1\xFC\x7F";
    const std::pair<std::string, std::string> cases[] = {
        // "Ortsname = " + bytes, read as
        {std::string("Ab\0cd", 5), "Ab"},                        // NUL ends the text
        {std::string("Ab \0cd", 6), "Ab"},                       // ... and the blank before it goes
        {x49 + " yz", x49},                                      // cut to 50, then trimmed
        {x49.substr(1) + "\t\xFC", x49.substr(1) + "\t\u00FC"},  // a tab inside stays
        {"\xC3\x83\xC5\x92", "\u00FC"},  // UTF-8 "ÃŒ", stored C3 BC = UTF-8 "ü"
        {"\xC3\x83\xC2\xA9", "\u00E9"},  // "Ã©" becomes "é"
        {"\xC3\x83\xC2\xA9 Caf\xC3\xA9",
         "\u00C3\u00A9 Caf\u00E9"},              // stored "...Caf\xE9": no UTF-8
        {"Reg\xE4ns\xE9", "Reg\u00E4ns\u00E9"},  // plain ISO-8859-15 stays
        // Found by the fuzzer: the cut leaves a blank, with NUL and C1 bytes inside.
        {fuzzed + std::string(2, '\0') + "ng = 2", files::latin9_to_utf8(fuzzed)},
    };
    for (const auto& [bytes, name] : cases) {
        const Settings s = parse_settings("[Astronomie]\nOrtsname = " + bytes + "\n", kDefaults);
        EXPECT_EQ(s.place_name, name) << bytes;
        EXPECT_EQ(parse_settings(serialize_settings(s).value(), kDefaults), s) << bytes;
    }
    // Any of them set by the program (a dialog) is stored as it reads back.
    for (const auto& [bytes, name] : cases) {
        Settings s = kDefaults;
        s.font_name = files::latin9_to_utf8(bytes);
        normalize_settings(s, kDefaults);
        EXPECT_EQ(parse_settings(serialize_settings(s).value(), kDefaults), s) << bytes;
    }
}

// Every seed of the fuzz target reads, writes and reads back equal.
TEST(SettingsFile, FuzzSeedsRoundTrip) {
    const auto corpus = test::source_path("../fuzz/corpus/settings_fuzz");
    int seeds = 0;
    for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
        const Settings s = parse_settings(test::read_bytes(entry.path()), kDefaults);
        EXPECT_EQ(parse_settings(serialize_settings(s).value(), kDefaults), s) << entry.path();
        ++seeds;
    }
    EXPECT_GE(seeds, 3);
}

// The astronomy's place comes from the five keys of "[Astronomie]" as read.
TEST(SettingsFile, AstroPlaceOfTheSettings) {
    const Settings s = parse_settings(
        "[Astronomie]\nBreite = 53.33\nLänge = -10.0\nZeitzone = 2.5\n"
        "Sommerzeit automatisch = 0\nDämmerung = 2\n",
        kDefaults);
    EXPECT_EQ(astro_place(s),
              (astro::Place{53.33, -10.0, 2.5, false, astro::Twilight::Astronomical}));
    EXPECT_EQ(astro_place(kDefaults), (astro::Place{kDefaultLatitude, kDefaultLongitude, 1.0, true,
                                                    astro::Twilight::Civil}));
    Settings unrepaired = kDefaults;
    for (const int kind : {-1, 3, 255}) {
        unrepaired.twilight = kind;
        EXPECT_EQ(astro_place(unrepaired).twilight, astro::Twilight::Civil) << kind;
    }
}

// The file uses a point whatever the user's locale says: under de_DE.UTF-8
// (made by tools/ensure-packages.sh) printf writes "1,5", the settings file
// must still hold "1.5" and read it back.
TEST(SettingsFile, FullPrecisionIgnoresLocale) {
    ASSERT_NE(std::setlocale(LC_NUMERIC, "de_DE.UTF-8"), nullptr)
        << "the locale de_DE.UTF-8 is missing; tools/ensure-packages.sh generates it";
    char comma[8];
    std::snprintf(comma, sizeof comma, "%.1f", 1.5);
    const std::string german = comma;
    const std::string written = format_full_precision(1.5);
    const std::string file = serialize_settings(kDefaults).value();
    const double zone = parse_settings("[Astronomie]\nZeitzone = 5.75\n", kDefaults).time_zone;
    std::setlocale(LC_NUMERIC, "C");
    EXPECT_EQ(german, "1,5");  // the locale does what it must to make the test count
    EXPECT_EQ(written, "1.5");
    EXPECT_EQ(file, kDefaultFile);
    EXPECT_EQ(zone, 5.75);
}

}  // namespace
}  // namespace sk::settings

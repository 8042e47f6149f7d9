#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>

#include "settings/atomic_file.hpp"
#include "settings/settings_file.hpp"
#include "settings/text_encoding.hpp"
#include "test_support.hpp"

namespace sk::settings {
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
// no number counts as missing. Byte keys keep the low 8 bits first.
TEST(SettingsFile, OutOfRangeValuesAreRepaired) {
    using S = Settings;
    struct Case { std::string line; int Settings::*field; int expected; };
    const Case cases[] = {
        {"Schichtart = 8", &S::model, 0},          {"Schichtart = -1", &S::model, 0},
        {"Schichtart = 261", &S::model, 5},        {"Schichtart = drei", &S::model, 0},
        {"Schichtspalten = 5", &S::columns, 6},    {"Schichtspalten = 24", &S::columns, 6},
        {"Fontgröße = 5", &S::font_size, 10},      {"Fontgröße = 73", &S::font_size, 10},
        {"Fontgröße = 72", &S::font_size, 72},     {"Fontgröße = 12.5", &S::font_size, 10},
        {"Fontgröße = 4294967308", &S::font_size, 10},  // 2^32 + 12: beyond 32 bits
        {"UrlaubStartMonat = 13", &S::vacation_start_month, 4},
        {"UrlaubStartTag = 0", &S::vacation_start_day, 25},
        {"UrlaubZyklus = -7", &S::vacation_cycle, -7},
        {"[Astronomie]\nDämmerung = 3", &S::twilight, 0},
        {"[Astronomie]\nDämmerung = -1", &S::twilight, 0},
        {"[Astronomie]\nMondphasen anzeigen = 7", &S::moon_phases_shown, 1},
        {"[Astronomie]\nSchichtart = 3", &S::model, 0},  // wrong group
    };
    for (const Case& c : cases) {
        const std::string text = c.line[0] == '[' ? c.line : "[Programmeinstellungen]\n" + c.line;
        EXPECT_EQ(parse_settings(text, kDefaults).*c.field, c.expected) << c.line;
    }
    // Cut to 50 characters, not bytes.
    std::string fifty;
    for (int i = 0; i < 50; ++i) fifty += "ü";
    const std::string sixty(60, '\xFC');
    EXPECT_EQ(parse_settings("[Astronomie]\nOrtsname = " + sixty, kDefaults).place_name, fifty);
}

TEST(SettingsFile, TimeZoneAndCoordinatesAreClamped) {
    struct Case { const char* text; double time_zone, latitude; };
    const Case cases[] = {
        {"[Astronomie]\nZeitzone = 15\nBreite = 91", 14.0, kDefaultLatitude},
        {"[Astronomie]\nZeitzone = -13.5\nBreite = -90", -12.0, -90.0},
        {"[Astronomie]\nZeitzone = 5.75\nBreite = nan", 5.75, kDefaultLatitude},
        {"[Astronomie]\nZeitzone = inf\nBreite = 1e400", 1.0, kDefaultLatitude},
        {"[Astronomie]\nZeitzone = 1,5\nBreite = 48,3", 1.0, kDefaultLatitude},
    };
    for (const Case& c : cases) {
        const Settings s = parse_settings(c.text, kDefaults);
        EXPECT_EQ(s.time_zone, c.time_zone) << c.text;
        EXPECT_EQ(s.latitude, c.latitude) << c.text;
    }
}

// The file uses a point whatever the user's locale says: under de_DE.UTF-8
// (made by tools/ensure-packages.sh) printf writes "1,5", the settings file
// must still hold "1.5" and read it back.
TEST(SettingsFile, FullPrecisionIgnoresLocale) {
    for (const double v : {1.5, 0.1, -12.06, 1e-300, 2088.0, 123456789.125}) {
        char expected[128];
        std::snprintf(expected, sizeof expected, "%.64g", v);
        EXPECT_EQ(format_full_precision(v), expected);
    }
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

// A full disk, simulated by a file size limit in a child process: the write
// fails and the previous file is untouched, with no temporary file left.
TEST(AtomicFile, FullDiskKeepsTheOldFile) {
    test::TempDir dir;
    const auto file = dir / "Kalendermarkierung.dat";
    ASSERT_TRUE(write_file_atomic(file, "old content"));
    std::string error;
    EXPECT_TRUE(test::fails_on_full_disk(
        [&] { return write_file_atomic(file, std::string(4096, 'x'), &error); }));
    EXPECT_EQ(test::read_bytes(file), "old content");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()),
                            std::filesystem::directory_iterator()),
              1);
}

TEST(AtomicFile, ReadStopsAtTheCap) {
    test::TempDir dir;
    test::write_bytes(dir / "big", std::string(100000, 'a'));
    EXPECT_EQ(read_file(dir / "big", 8192)->size(), 8192u);
    EXPECT_FALSE(read_file(dir / "missing").has_value());
}

TEST(TextEncoding, EveryByteRoundTrips) {
    std::string all;
    for (int b = 0; b < 256; ++b) all += static_cast<char>(b);
    const std::string utf8 = latin9_to_utf8(all);
    EXPECT_EQ(utf8_to_latin9(utf8).value(), all);
}

TEST(TextEncoding, TheEightDifferencesFromLatin1) {
    struct Case { const char* utf8; unsigned char code; };
    for (const Case c : {Case{"€", 0xA4}, Case{"Š", 0xA6}, Case{"š", 0xA8}, Case{"Ž", 0xB4},
                         Case{"ž", 0xB8}, Case{"Œ", 0xBC}, Case{"œ", 0xBD}, Case{"Ÿ", 0xBE}}) {
        EXPECT_EQ(utf8_to_latin9(c.utf8).value(), std::string(1, static_cast<char>(c.code)))
            << c.utf8;
    }
}

// The refusal names the character; the Latin-1 characters that ISO-8859-15
// replaced cannot be stored either.
TEST(TextEncoding, RefusesWhatCannotBeStored) {
    const struct { const char* text; const char* named; } cases[] = {
        {"Grüße ☃ und ♥", "\"☃\" (U+2603)"}, {"a\xF0\x9F\x98\x80", "U+1F600"},
        {"„Zitat“", "U+201E"},
        {"¤", "\"¤\" (U+00A4)"}, {"¦", "U+00A6"}, {"¨", "U+00A8"}, {"´", "U+00B4"},
        {"¸", "U+00B8"}, {"¼", "U+00BC"}, {"½", "U+00BD"}, {"¾", "U+00BE"},
    };
    for (const auto& c : cases) {
        EncodeError error;
        EXPECT_FALSE(utf8_to_latin9(c.text, &error).has_value()) << c.text;
        EXPECT_NE(error.message.find(c.named), std::string::npos) << error.message;
    }
    for (const char* malformed : {"\xC3", "\xC3\x28", "\xE2\x82", "\xC0\xAF", "\xED\xA0\x80",
                                  "\xF8\x88\x80\x80\x80", "\x80"}) {
        EncodeError error;
        EXPECT_FALSE(utf8_to_latin9(malformed, &error).has_value());
        EXPECT_FALSE(error.message.empty());
    }
}

}  // namespace
}  // namespace sk::settings

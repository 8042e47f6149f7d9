#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>

#include "settings/atomic_file.hpp"
#include "settings/settings_file.hpp"
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
    s.place_name = "Nürnberg – Süd €";  // the en dash is not in ISO-8859-15
    EncodeError error;
    EXPECT_FALSE(serialize_settings(s, &error).has_value());
    EXPECT_NE(error.message.find("U+2013"), std::string::npos) << error.message;

    s.place_name = "Nürnberg Süd €";
    test::TempDir dir;
    ASSERT_TRUE(write_settings_file(dir / "Einstellungen.dat", s));
    const std::string bytes = test::read_bytes(dir / "Einstellungen.dat");
    EXPECT_NE(bytes.find("Ortsname = N\xFCrnberg S\xFC" "d \xA4\n"), std::string::npos);
    const Settings back = read_settings_file(dir / "Einstellungen.dat", kDefaults);
    EXPECT_EQ(back, s);
    ASSERT_TRUE(write_settings_file(dir / "again.dat", back));
    EXPECT_EQ(test::read_bytes(dir / "again.dat"), bytes);
}

TEST(SettingsFile, MissingFileAndMissingKeysGiveDefaults) {
    test::TempDir dir;
    EXPECT_EQ(read_settings_file(dir / "none.dat", kDefaults), kDefaults);
    const Settings s = parse_settings("[Programmeinstellungen]\nSchichtart = 3\n", kDefaults);
    Settings expected = kDefaults;
    expected.model = 3;
    EXPECT_EQ(s, expected);
}

TEST(SettingsFile, KeysMatchWithoutRegardToCase) {
    const Settings s = parse_settings(
        "[Programmeinstellungen]\nSCHICHTART = 4\nfontgr\xD6\xDF" "e = 14\n"
        "[Astronomie]\nd\xC4MMERUNG = 2\nortsname=Regen\n",
        kDefaults);
    EXPECT_EQ(s.model, 4);
    EXPECT_EQ(s.font_size, 14);
    EXPECT_EQ(s.twilight, 2);
    EXPECT_EQ(s.place_name, "Regen");
}

TEST(SettingsFile, LineSavedAsUtf8IsUnderstood) {
    const Settings s = parse_settings(
        "[Programmeinstellungen]\r\nFontgröße = 16\r\n[Astronomie]\nOrtsname = Fürth\n", kDefaults);
    EXPECT_EQ(s.font_size, 16);
    EXPECT_EQ(s.place_name, "Fürth");
}

// Values that would break the program are brought into range; text that is
// no number counts as missing.
TEST(SettingsFile, OutOfRangeValuesAreRepaired) {
    struct Case {
        const char* line;
        int Settings::*field;
        int expected;
    };
    const Case cases[] = {
        {"[Programmeinstellungen]\nSchichtart = 8", &Settings::model, 0},
        {"[Programmeinstellungen]\nSchichtart = -1", &Settings::model, 0},
        {"[Programmeinstellungen]\nSchichtart = 261", &Settings::model, 5},  // one byte: 261 & 255
        {"[Programmeinstellungen]\nSchichtart = drei", &Settings::model, 0},
        {"[Programmeinstellungen]\nSchichtspalten = 5", &Settings::columns, 6},
        {"[Programmeinstellungen]\nSchichtspalten = 24", &Settings::columns, 6},
        {"[Programmeinstellungen]\nSchichtspalten = 23", &Settings::columns, 23},
        {"[Programmeinstellungen]\nFontgröße = 5", &Settings::font_size, 10},
        {"[Programmeinstellungen]\nFontgröße = 73", &Settings::font_size, 10},
        {"[Programmeinstellungen]\nFontgröße = 72", &Settings::font_size, 72},
        {"[Programmeinstellungen]\nFontgröße = 12.5", &Settings::font_size, 10},
        {"[Programmeinstellungen]\nFontgröße = 99999999999", &Settings::font_size, 10},
        {"[Astronomie]\nDämmerung = 3", &Settings::twilight, 0},
        {"[Astronomie]\nDämmerung = -1", &Settings::twilight, 0},
        {"[Astronomie]\nDämmerung = 1", &Settings::twilight, 1},
        {"[Astronomie]\nMondphasen anzeigen = 7", &Settings::moon_phases_shown, 1},
        {"[Programmeinstellungen]\nUrlaubStartMonat = 13", &Settings::vacation_start_month, 4},
        {"[Programmeinstellungen]\nUrlaubStartTag = 0", &Settings::vacation_start_day, 25},
        {"[Programmeinstellungen]\nUrlaubZyklus = -7", &Settings::vacation_cycle, -7},
        {"[Astronomie]\nSchichtart = 3", &Settings::model, 0},  // wrong group
    };
    for (const Case& c : cases) {
        const Settings s = parse_settings(c.line, kDefaults);
        EXPECT_EQ(s.*c.field, c.expected) << c.line;
    }
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

TEST(SettingsFile, PlaceNameIsCutToFiftyCharacters) {
    const std::string name(60, 'x');
    const Settings s = parse_settings("[Astronomie]\nOrtsname = " + name, kDefaults);
    EXPECT_EQ(s.place_name, std::string(50, 'x'));
}

// The file uses a point whatever the user's locale says.
TEST(SettingsFile, FullPrecisionIgnoresLocale) {
    for (const double v : {1.5, 0.1, -12.06, 1e-300, 2088.0, 123456789.125}) {
        char expected[128];
        std::snprintf(expected, sizeof expected, "%.64g", v);
        EXPECT_EQ(format_full_precision(v), expected);
    }
    if (std::setlocale(LC_NUMERIC, "de_DE.UTF-8")) {
        EXPECT_EQ(format_full_precision(1.5), "1.5");
        std::setlocale(LC_NUMERIC, "C");
    }
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

}  // namespace
}  // namespace sk::settings

// The settings dialog's rules: what a field accepts, how a coordinate is
// read with its direction box, and that saving the form stores exactly what
// the settings writer writes for the same values.
#include "settings/settings_form.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <tuple>

#include "files/text_encoding.hpp"
#include "settings/settings_file.hpp"
#include "settings/users.hpp"

namespace sk::settings {
namespace {

TEST(UserNames, RefusedAndAccepted) {
    const std::string fifty(50, '1');
    const std::pair<std::string, bool> cases[] = {
        {"Programm", true}, {"Anna Maier", true}, {"Sœur €uro", true},  // ISO-8859-15 has œ and €
        {".hidden", true},  {"a..b", true},       {fifty, true},
        {fifty + "1", false}, {"", false}, {".", false}, {"..", false}, {"a/b", false},
        {"/", false}, {"Tab\there", false}, {"Zeile\n", false}, {"Snow☃", false},
        {"Ĳssel", false}, {"\xC3", false},  // not UTF-8
    };
    for (const auto& [name, ok] : cases) {
        const auto error = user_name_error(name);
        EXPECT_EQ(!error, ok) << '"' << name << "\" " << error.value_or("");
        EXPECT_GT(error.value_or(std::string(21, ' ')).size(), 20u) << name;  // a sentence
    }
}

// Opening and saving the dialog unchanged changes nothing, also the extra
// digits of a hand-edited file.
TEST(SettingsForm, ShowsTheSettingsAsTyped) {
    Settings s = default_settings("/daten");
    SettingsForm f = settings_form(s);
    EXPECT_EQ(std::tie(f.latitude, f.longitude, f.time_zone, f.place_name),
              std::tie("49.01", "12.06", "1", "Rodenwald"));
    EXPECT_EQ(std::tie(f.target_hours_38, f.target_hours_40), std::tie("1982,76", "2088"));
    EXPECT_TRUE(f.north && !f.west);  // Rodenwald lies east
    EXPECT_EQ(apply_settings_form(s, f), s);
    s.latitude = -33.8765;
    s.longitude = 151.12345;
    s.time_zone = 10.25;
    s.target_hours_38 = 2000.125f;
    s.vacation_cycle = 7;
    f = settings_form(s);
    EXPECT_EQ(std::tie(f.latitude, f.target_hours_38), std::tie("33.88", "2000,13"));
    EXPECT_TRUE(!f.north && f.west);
    EXPECT_EQ(f.vacation_cycle, 2);
    EXPECT_EQ(apply_settings_form(s, f), s);
}

// The direction box gives the sign; the numbers are read as in the astronomy
// (tests/astro), so only what the form adds is here.
TEST(SettingsForm, CoordinateFields) {
    const std::optional<std::string> invalid;
    // text, box ticked, reading as latitude ("Nord"), reading as longitude ("West")
    const std::tuple<const char*, bool, std::optional<std::string>, std::optional<std::string>>
        cases[] = {
            {"49.01", true, "49°01' Nord", "49°01' West"},
            {"49.01", false, "49°01' Süd", "49°01' Ost"},
            {"120", true, "30°00' Nord", "120°00' West"},
            {"48'5", true, "48°50' Nord", "48°50' West"},
            {"0", false, "0°00' Nord", "0°00' West"},  // no negative zero
            {" 7.59 ", true, "7°59' Nord", "7°59' West"},
            {"", true, invalid, invalid},
            {"-49.01", true, invalid, invalid},
            {"+49.01", true, invalid, invalid},
            {"49.0.1", true, invalid, invalid},
        };
    for (const auto& [text, box, latitude, longitude] : cases) {
        EXPECT_EQ(latitude_reading(text, box), latitude) << text;
        EXPECT_EQ(longitude_reading(text, box), longitude) << text;
        SettingsForm f = settings_form(Settings{});
        f.latitude = f.longitude = text;
        const auto lat_error = field_error(FormField::Latitude, f);
        EXPECT_EQ(!lat_error, latitude.has_value()) << text;
        EXPECT_EQ(!field_error(FormField::Longitude, f), longitude.has_value()) << text;
        EXPECT_NE(lat_error.value_or("Breite").find("Breite"), std::string::npos) << text;
    }
    SettingsForm f = settings_form(Settings{});
    f.latitude = "-5";
    EXPECT_NE(field_error(FormField::Latitude, f)->find("\u201ENord\u201C"), std::string::npos);
    f.latitude = "12.7x";
    EXPECT_NE(field_error(FormField::Latitude, f)->find("Minute"), std::string::npos);
}

TEST(SettingsForm, OtherFields) {
    struct Case {
        FormField field;
        void (*set)(SettingsForm&);
        bool ok;
    };
    const Case cases[] = {
        {FormField::PlaceName, [](SettingsForm& f) { f.place_name = "Weißenstadt €"; }, true},
        {FormField::PlaceName, [](SettingsForm& f) { f.place_name = std::string(50, 'x'); }, true},
        {FormField::PlaceName, [](SettingsForm& f) { f.place_name = std::string(51, 'x'); }, false},
        {FormField::PlaceName, [](SettingsForm& f) { f.place_name = "Łódź"; }, false},
        {FormField::PlaceName, [](SettingsForm& f) { f.place_name = "a\nb"; }, false},
        {FormField::TimeZone, [](SettingsForm& f) { f.time_zone = "-3,5"; }, true},
        {FormField::TimeZone, [](SettingsForm& f) { f.time_zone = "15"; }, true},  // clamped
        {FormField::TimeZone, [](SettingsForm& f) { f.time_zone = "MEZ"; }, false},
        {FormField::TimeZone, [](SettingsForm& f) { f.time_zone = ""; }, false},
        {FormField::TargetHours38, [](SettingsForm& f) { f.target_hours_38 = "1982,76"; }, true},
        {FormField::TargetHours38, [](SettingsForm& f) { f.target_hours_38 = "8784"; }, true},
        {FormField::TargetHours38, [](SettingsForm& f) { f.target_hours_38 = "8784,5"; }, false},
        {FormField::TargetHours38, [](SettingsForm& f) { f.target_hours_38 = "0"; }, false},
        {FormField::TargetHours40, [](SettingsForm& f) { f.target_hours_40 = "-2088"; }, false},
        {FormField::TargetHours40, [](SettingsForm& f) { f.target_hours_40 = "2.088,5"; }, false},
        {FormField::TargetHours40, [](SettingsForm& f) { f.target_hours_40 = "1e3"; }, false},
        {FormField::VacationStart,
         [](SettingsForm& f) { f.vacation_start_day = 29, f.vacation_start_month = 2; }, true},
        {FormField::VacationStart,
         [](SettingsForm& f) { f.vacation_start_day = 31, f.vacation_start_month = 4; }, false},
        {FormField::VacationStart, [](SettingsForm& f) { f.vacation_start_month = 13; }, false},
        {FormField::VacationStart, [](SettingsForm& f) { f.vacation_start_day = 0; }, false},
        {FormField::VacationCycle, [](SettingsForm& f) { f.vacation_cycle = 4; }, true},
        {FormField::VacationCycle, [](SettingsForm& f) { f.vacation_cycle = 5; }, false},
    };
    for (const Case& c : cases) {
        SettingsForm f = settings_form(Settings{});
        ASSERT_FALSE(first_invalid_field(f));
        c.set(f);
        EXPECT_EQ(!field_error(c.field, f), c.ok) << static_cast<int>(c.field);
        EXPECT_EQ(first_invalid_field(f).has_value(), !c.ok);
        EXPECT_EQ(apply_settings_form(Settings{}, f).has_value(), c.ok);
    }
}

// The dialog's result is what the writer makes of the same values: every
// field reaches its line of the file, and the file reads back as saved.
TEST(SettingsForm, SavedFormIsTheWritersFile) {
    const Settings current = default_settings("/home/anna/SKDaten");
    SettingsForm f = settings_form(current);
    f.school_holidays_shown = false;
    f.moon_phases_shown = f.perihelion_shown = true;
    f.place_name = "  Weißenstadt ";
    f.latitude = "50,2";
    f.north = true;
    f.longitude = "11 53";
    f.west = f.auto_summer_time = false;
    f.time_zone = "1,5";
    f.twilight = 2;
    f.target_hours_38 = "1990,5";
    f.target_hours_40 = "2100";
    f.vacation_start_day = 2;
    f.vacation_start_month = 5;
    f.vacation_cycle = 3;
    const auto saved = apply_settings_form(current, f);
    ASSERT_TRUE(saved);
    const std::string file = *serialize_settings(*saved);
    for (const char* line :
         {"Schulferien anzeigen = 0\n", "Mondphasen anzeigen = 1\n",
          "Perihel und Aphel anzeigen = 1\n",
          "Breite = 50.2000000000000028421709430404007434844970703125\n",
          "Länge = -11.5299999999999993605115378159098327159881591796875\n", "Zeitzone = 1.5\n",
          "Sommerzeit automatisch = 0\n", "Dämmerung = 2\n", "Sollstunden_38 = 1990.5\n",
          "Sollstunden_40 = 2100\n", "UrlaubStartMonat = 5\n", "UrlaubStartTag = 2\n",
          "UrlaubZyklus = 3\n", "Ortsname = Weißenstadt\n"})
        EXPECT_NE(file.find(*files::utf8_to_latin9(line)), std::string::npos) << line;
    EXPECT_EQ(parse_settings(file, current), *saved);
}

// Trailing zeros go (the form above shows "1982,76", "2088" and "2000,13").
TEST(SettingsForm, HoursAsShown) {
    EXPECT_EQ(format_hours(1990.5f), "1990,5");
    EXPECT_EQ(format_hours(1.004f), "1");
}

}  // namespace
}  // namespace sk::settings

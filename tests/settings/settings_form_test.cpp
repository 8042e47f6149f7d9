// The settings dialog's rules: what a field accepts, how a coordinate is
// read with its direction box, and that saving the form stores exactly what
// the settings writer writes for the same values.
#include "settings/settings_form.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <tuple>

#include "settings/settings_file.hpp"
#include "settings/users.hpp"

namespace sk::settings {
namespace {

TEST(UserNames, RefusedAndAccepted) {
    const std::pair<const char*, bool> cases[] = {
        {"Programm", true},
        {"Anna Maier", true},
        {"Jürgen", true},
        {"Sœur €uro", true},  // ISO-8859-15 has œ and €
        {".hidden", true},
        {"a..b", true},
        {"", false},
        {".", false},
        {"..", false},
        {"a/b", false},
        {"/", false},
        {"Tab\there", false},
        {"Zeile\n", false},
        {"Snow☃", false},  // not in ISO-8859-15
        {"Ĳssel", false},
        {"\xC3", false},  // not UTF-8
        {"12345678901234567890123456789012345678901234567890", true},
        {"123456789012345678901234567890123456789012345678901", false},
    };
    for (const auto& [name, ok] : cases) {
        const auto error = user_name_error(name);
        EXPECT_EQ(!error, ok) << '"' << name << "\" " << error.value_or("");
        if (error) {
            EXPECT_GT(error->size(), 20u) << name;  // a sentence, not a code
        }
    }
}

TEST(SettingsForm, ShowsTheSettingsAsTyped) {
    Settings s = default_settings("/daten");
    SettingsForm f = settings_form(s);
    EXPECT_EQ(f.latitude, "49.01");
    EXPECT_TRUE(f.north);
    EXPECT_EQ(f.longitude, "12.06");
    EXPECT_FALSE(f.west);  // Rodenwald lies east
    EXPECT_EQ(f.time_zone, "1");
    EXPECT_EQ(f.target_hours_38, "1982,76");
    EXPECT_EQ(f.target_hours_40, "2088");
    EXPECT_EQ(f.place_name, "Rodenwald");
    EXPECT_EQ(apply_settings_form(s, f), s);  // saving unchanged changes nothing

    // A hand-edited file's extra digits survive opening and saving the dialog.
    s.latitude = -33.8765;
    s.longitude = 151.12345;
    s.time_zone = 10.25;
    s.target_hours_38 = 2000.125f;
    s.vacation_cycle = 7;
    f = settings_form(s);
    EXPECT_EQ(f.latitude, "33.88");
    EXPECT_FALSE(f.north);
    EXPECT_TRUE(f.west);
    EXPECT_EQ(f.target_hours_38, "2000,13");
    EXPECT_EQ(f.vacation_cycle, 2);
    EXPECT_EQ(apply_settings_form(s, f), s);
}

TEST(SettingsForm, CoordinateFields) {
    const std::optional<std::string> invalid;
    // text, box ticked, reading as latitude ("Nord"), reading as longitude ("West")
    const std::tuple<const char*, bool, std::optional<std::string>, std::optional<std::string>>
        cases[] = {
            {"49.01", true, "49°01' Nord", "49°01' West"},
            {"49.01", false, "49°01' Süd", "49°01' Ost"},
            {"12,7", true, "12°42' Nord", "12°42' West"},  // 70 minutes: decimal degrees
            {"48 30", true, "48°30' Nord", "48°30' West"},
            {"48'5", true, "48°50' Nord", "48°50' West"},
            {"120", true, "30°00' Nord", "120°00' West"},
            {"0", false, "0°00' Nord", "0°00' West"},  // no negative zero
            {" 7.59 ", true, "7°59' Nord", "7°59' West"},
            {"", true, invalid, invalid},
            {"-49.01", true, invalid, invalid},
            {"+49.01", true, invalid, invalid},
            {"49.0.1", true, invalid, invalid},
            {"49°01", true, invalid, invalid},
            {"Nord", true, invalid, invalid},
        };
    for (const auto& [text, box, latitude, longitude] : cases) {
        EXPECT_EQ(latitude_reading(text, box), latitude) << text;
        EXPECT_EQ(longitude_reading(text, box), longitude) << text;
        SettingsForm f = settings_form(Settings{});
        f.latitude = text;
        f.longitude = text;
        const auto lat_error = field_error(FormField::Latitude, f);
        EXPECT_EQ(!lat_error, latitude.has_value()) << text;
        EXPECT_EQ(!field_error(FormField::Longitude, f), longitude.has_value()) << text;
        if (lat_error) {
            EXPECT_NE(lat_error->find("Breite"), std::string::npos) << *lat_error;
        }
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

// The dialog's result is what the writer makes of the same values set by hand.
TEST(SettingsForm, SavedFormIsTheWritersFile) {
    const Settings current = default_settings("/home/anna/SKDaten");
    SettingsForm f = settings_form(current);
    f.school_holidays_shown = false;
    f.moon_phases_shown = true;
    f.perihelion_shown = true;
    f.place_name = "  Weißenstadt ";
    f.latitude = "50,2";
    f.north = true;
    f.longitude = "11 53";
    f.west = false;
    f.time_zone = "1,5";
    f.auto_summer_time = false;
    f.twilight = 2;
    f.target_hours_38 = "1990,5";
    f.target_hours_40 = "2100";
    f.vacation_start_day = 2;
    f.vacation_start_month = 5;
    f.vacation_cycle = 3;
    const auto saved = apply_settings_form(current, f);
    ASSERT_TRUE(saved);

    Settings expected = current;
    expected.school_holidays_shown = 0;
    expected.moon_phases_shown = 1;
    expected.perihelion_shown = 1;
    expected.place_name = "Weißenstadt";
    expected.latitude = 50.2;
    expected.longitude = -11.53;
    expected.time_zone = 1.5;
    expected.auto_summer_time = 0;
    expected.twilight = 2;
    expected.target_hours_38 = 1990.5f;
    expected.target_hours_40 = 2100.0f;
    expected.vacation_start_day = 2;
    expected.vacation_start_month = 5;
    expected.vacation_cycle = 3;
    EXPECT_EQ(serialize_settings(*saved), serialize_settings(expected));
    const std::string file = *serialize_settings(*saved);
    for (const char* line :
         {"Schulferien anzeigen = 0\n",
          "Breite = 50.2000000000000028421709430404007434844970703125\n",
          "Länge = -11.5299999999999993605115378159098327159881591796875\n", "Zeitzone = 1.5\n",
          "Dämmerung = 2\n", "Sollstunden_38 = 1990.5\n", "UrlaubStartMonat = 5\n",
          "UrlaubZyklus = 3\n", "Ortsname = Weißenstadt\n"})
        EXPECT_NE(file.find(*files::utf8_to_latin9(line)), std::string::npos) << line;
    // And it reads back as it was saved.
    EXPECT_EQ(parse_settings(file, current), *saved);
}

TEST(SettingsForm, HoursAsShown) {
    const std::pair<float, const char*> cases[] = {
        {1982.76f, "1982,76"}, {2088.0f, "2088"}, {1990.5f, "1990,5"}, {1.004f, "1"}};
    for (const auto& [hours, text] : cases)
        EXPECT_EQ(format_hours(hours), text);
}

}  // namespace
}  // namespace sk::settings

#include "marks/account_entry.hpp"

#include <gtest/gtest.h>

#include <tuple>

namespace sk::marks {
namespace {

using hours_mode::kDecimal;
using hours_mode::kHoursMinutes;

TEST(AccountEntry, HoursField) {
    const std::optional<float> none;
    const std::tuple<const char*, int, std::optional<float>, bool> cases[] = {
        // text, mode, stored value, with a hint
        {"7,5", kDecimal, 7.5f, false},       {" -12.25 ", kDecimal, -12.25f, false},
        {"+3", kDecimal, 3.0f, false},        {"600", kDecimal, 600.0f, false},
        {"700", kDecimal, 600.0f, true},      {"-600,01", kDecimal, -600.0f, true},
        {"7:30", kDecimal, none, true},       {"nan", kDecimal, none, true},
        {"inf", kDecimal, none, true},        {"1e3", kDecimal, none, true},
        {"", kDecimal, none, true},           {"7,5h", kDecimal, none, true},
        {"1,2,3", kDecimal, none, true},      {"7:30", kHoursMinutes, 7.30f, false},
        {"7,30", kHoursMinutes, 7.30f, false}, {"-0:05", kHoursMinutes, -0.05f, false},
        {"+8", kHoursMinutes, 8.0f, false},   {"700:00", kHoursMinutes, 600.0f, true},
        {"7:60", kHoursMinutes, none, true},  {"7:5", kHoursMinutes, none, true},
        {"7:300", kHoursMinutes, none, true}, {":30", kHoursMinutes, none, true},
        {"7:3a", kHoursMinutes, none, true},
    };
    for (const auto& [text, mode, value, hint] : cases) {
        const HoursEntry entry = check_hours_entry(text, mode);
        EXPECT_EQ(entry.value, value) << '"' << text << "\" mode " << mode;
        EXPECT_EQ(!entry.hint.empty(), hint) << '"' << text << "\" " << entry.hint;
    }
    EXPECT_EQ(check_hours_entry("700", kDecimal).hint,
              "Höchstens 600 Stunden: gespeichert wird 600.");
    EXPECT_EQ(check_hours_entry("7:75", kHoursMinutes).hint,
              "Die Minuten liegen zwischen 00 und 59.");
}

// What the field shows for a stored value reads back as that value, in every
// minute and every hundredth of the range.
TEST(AccountEntry, ShownValuesReadBack) {
    for (int minutes = -600 * 60; minutes <= 600 * 60; ++minutes) {
        const int whole = minutes / 60, rest = minutes % 60;  // truncating: both carry the sign
        const HoursAccount stored{0, static_cast<float>(whole + rest / 100.0), kHoursMinutes, 0,
                                  false};
        const HoursEntry entry = check_hours_entry(hours_entry_text(stored), kHoursMinutes);
        ASSERT_TRUE(entry.value) << hours_entry_text(stored);
        ASSERT_FLOAT_EQ(*entry.value, stored.start_value) << hours_entry_text(stored);
    }
    for (int cents = -60000; cents <= 60000; cents += 7) {
        const HoursAccount stored{0, static_cast<float>(cents / 100.0), kDecimal, 0, false};
        const HoursEntry entry = check_hours_entry(hours_entry_text(stored), kDecimal);
        ASSERT_TRUE(entry.value) << hours_entry_text(stored);
        ASSERT_FLOAT_EQ(*entry.value, stored.start_value) << hours_entry_text(stored);
    }
    EXPECT_EQ(hours_entry_text({0, -7.30f, kHoursMinutes, 0, false}), "-7:30");
    EXPECT_EQ(hours_entry_text({0, 7.5f, kDecimal, 0, false}), "7,50");
}

TEST(AccountEntry, VacationDaysField) {
    const std::tuple<const char*, std::optional<int>, bool> cases[] = {
        {"30", 30, false},           {" -5 ", -5, false},
        {"+12", 12, false},          {"61", 60, true},
        {"-61", -60, true},          {"99999999999999999999999", 60, true},
        {"3,5", std::nullopt, true}, {"", std::nullopt, true},
        {"- 3", std::nullopt, true},
    };
    for (const auto& [text, days, hint] : cases) {
        const VacationDaysEntry entry = check_vacation_days_entry(text);
        EXPECT_EQ(entry.days, days) << '"' << text << '"';
        EXPECT_EQ(!entry.hint.empty(), hint) << '"' << text << "\" " << entry.hint;
    }
    EXPECT_EQ(check_vacation_days_entry("61").hint, "Höchstens 60 Tage: gespeichert wird 60.");
}

}  // namespace
}  // namespace sk::marks

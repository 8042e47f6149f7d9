#include "notes/notes_of_day.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "test_support.hpp"

namespace sk::notes {
namespace {

using calendar::Day;

Day date(int year, int month, int mday) {
    return Day::from_date(year, month - 1, mday);
}

const std::string kBar = "\u00A0|\u00A0";

class NotesOfDayTest : public ::testing::Test {
protected:
    test::TempDir dir;
    NoteStore store{dir.path(), "geheim"};

    void weekday_note(int month_code, int weekday, int ordinal, std::string_view text) {
        ASSERT_EQ(store.write_weekday(weekday_key(month_code, weekday, ordinal), text),
                  std::nullopt);
    }
    std::string one_line(const Day& day) const {
        return notes_of_day(store, day, Separator::OneLine);
    }
};

TEST_F(NotesOfDayTest, PeriodicNoteAlsoBeforeItsStart) {
    ASSERT_EQ(store.write_periodic({100, 7}, "Wochenputz"), std::nullopt);
    const std::pair<int, int> cases[] = {{2, 1},   {86, 1},  {93, 1}, {94, 0},
                                         {100, 1}, {107, 1}, {0, 0}};
    for (const auto& [day, count] : cases) {
        EXPECT_EQ(periodic_note_count(store, day), count) << day;
        EXPECT_EQ(one_line(Day::from_number(day)), count ? "Wochenputz" : "") << day;
    }
    ASSERT_EQ(store.write_periodic({97, 3}, "Gießen"), std::nullopt);
    EXPECT_EQ(periodic_note_count(store, 100), 2);
    EXPECT_EQ(periodic_notes_of_day(store, 100).size(), 2u);
}

TEST_F(NotesOfDayTest, FourthAndLastWeekday) {
    constexpr std::string_view kShort[7] = {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"};
    for (int w = 0; w < 7; ++w) {
        weekday_note(kEveryMonth, w, 3, "4. " + std::string(kShort[w]));
        weekday_note(kEveryMonth, w, kLastOrdinal, "letzter " + std::string(kShort[w]));
    }
    struct Case {
        Day day;
        std::string notes;
        int flags;
    };
    // March 2024 has 31 days and begins on a Friday.
    const Case cases[] = {
        {date(2024, 3, 21), "", 0},
        {date(2024, 3, 22), "4. Fr", 1},
        {date(2024, 3, 24), "4. So", 1},
        {date(2024, 3, 25), "4. Mo" + kBar + "letzter Mo", 3},  // no fifth Monday follows
        {date(2024, 3, 28), "4. Do" + kBar + "letzter Do", 3},
        {date(2024, 3, 29), "letzter Fr", 1},  // days 29-31 have ordinal 4 themselves
        {date(2024, 3, 31), "letzter So", 1},
        {date(2023, 2, 28), "4. Di" + kBar + "letzter Di", 3},  // 28-day February
        {date(2024, 2, 22), "4. Do", 1},                        // the 29th is the last Thursday
    };
    for (const Case& c : cases) {
        EXPECT_EQ(one_line(c.day), c.notes) << calendar::format_iso_date(c.day);
        EXPECT_EQ(weekday_note_flags(store, c.day), c.flags) << calendar::format_iso_date(c.day);
    }
}

TEST_F(NotesOfDayTest, MonthNoteWinsAndEveryMonthNoteStandsIn) {
    struct Case {
        std::string march, every_month, april, notes;
    };
    const Case cases[] = {
        {"", "Chor", "", "Chor"},  // stands in for March, and is not shown twice
        {"Chor", "", "", "Chor"},
        {"Probe", "Chor", "", "Probe" + kBar + "Chor"},
        {"Chor", "Chor", "", "Chor"},
        {"", "", "Chor", ""},
    };
    for (const Case& c : cases) {
        weekday_note(2, 2, 2, c.march);  // third Tuesday
        weekday_note(kEveryMonth, 2, 2, c.every_month);
        weekday_note(3, 2, 2, c.april);
        EXPECT_EQ(one_line(date(2024, 3, 19)), c.notes);
    }
}

TEST_F(NotesOfDayTest, JoinsInFixedOrderWithEitherSeparator) {
    const Day day = date(2024, 3, 19);
    weekday_note(2, 2, 2, "Chor");
    ASSERT_EQ(store.write_yearly(day_key(day), "<2000>. Jahrestag"), std::nullopt);
    ASSERT_EQ(store.write_periodic({day.number - 700, 14}, "Müll"), std::nullopt);
    ASSERT_EQ(store.write_daily(date_key(day), "Arzt\r\num 10"), std::nullopt);
    EXPECT_EQ(notes_of_day(store, day, Separator::MultiLine),
              "Arzt\r\num 10\r\n\r\nMüll\r\n\r\n24. Jahrestag\r\n\r\nChor");
    EXPECT_EQ(one_line(day),
              "Arzt\r\num 10" + kBar + "Müll" + kBar + "24. Jahrestag" + kBar + "Chor");

    // Indexed notes whose files are gone still add their empty entries.
    std::filesystem::remove(dir / "20240219.txt");
    std::filesystem::remove(dir / "219.jnt");
    EXPECT_EQ(one_line(day), kBar + "Müll" + kBar + kBar + "Chor");
    weekday_note(2, 2, 2, "");
    EXPECT_EQ(one_line(day), kBar + "Müll" + kBar);  // one trailing separator removed
}

TEST_F(NotesOfDayTest, HighlightAgreesWithTheJoinedNotes) {
    ASSERT_EQ(store.write_daily(20240015, "Tag"), std::nullopt);
    ASSERT_EQ(store.write_periodic({19797, 45}, "Filter"), std::nullopt);
    ASSERT_EQ(store.write_yearly(129, "29. Februar"), std::nullopt);
    weekday_note(2, 5, kLastOrdinal, "letzter Freitag im März");
    weekday_note(kEveryMonth, 1, 0, "erster Montag");
    weekday_note(kEveryMonth, 6, kLastOrdinal, "letzter Samstag");
    int days_with_notes = 0;
    for (auto d = calendar::day_number(2023, 0, 1); d <= calendar::day_number(2024, 11, 31); ++d) {
        const Day day = Day::from_number(d);
        ASSERT_EQ(day_has_notes(store, day), !one_line(day).empty())
            << calendar::format_iso_date(day);
        days_with_notes += day_has_notes(store, day) ? 1 : 0;
    }
    EXPECT_GT(days_with_notes, 60);                        // not a vacuous comparison
    EXPECT_FALSE(day_has_notes(store, date(2023, 3, 1)));  // 29 February only in leap years
}

TEST(YearPlaceholder, Cases) {
    const std::pair<std::string, std::string> cases[] = {
        // shown in 2024
        {"<1980>. Geburtstag", "44. Geburtstag"},
        {"<1980> und <1980>, <2000>", "44 und 44, 24"},
        {"<2030>", "-6"},
        {"x > <1990>", "x > 34"},
        {"<19800> Jahre", "<19800> Jahre"},  // five digits
        {"<0> <1980>", "<0> <1980>"},        // 0 stops everything after it
        {"<0198>", "<0198>"},                // names 198, and "<198>" is not there
        {"<0198> <198>", "<0198> 1826"},
        {"<>", "<>"},
        {"<a1> <1>", "<a1> <1>"},
        {"<1äöü> <1>", "<1äöü> 2023"},  // four characters in seven bytes
        {"<1äöüß> <1>", "<1äöüß> <1>"},
    };
    for (const auto& [text, shown] : cases)
        EXPECT_EQ(apply_year_placeholder(text, 2024), shown) << text;
}

TEST_F(NotesOfDayTest, OverviewOfTheShownMonths) {
    const auto overview = [&](const Day& today) {
        // Any day of the first and the last shown month stands for the whole month.
        return notes_overview(store, date(2024, 3, 20).number, date(2024, 4, 10).number, today);
    };
    EXPECT_EQ(overview(date(2024, 3, 15)), "");
    ASSERT_EQ(store.write_daily(20240204, "A\r\n\r\nA2"), std::nullopt);
    ASSERT_EQ(store.write_yearly(204, "B"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240219, "C"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240302, "D"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240128, "Februar"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240401, "Mai"), std::nullopt);

    const std::string march = "04.03.2024\r\nA\r\nA2\r\nB\r\n";
    const std::string later = " \r\n19.03.2024\r\nC\r\n \r\n02.04.2024\r\nD";
    const std::string line = std::string(56, '_') + "\r\n";
    EXPECT_EQ(overview(date(2024, 3, 15)), march + line + later);
    EXPECT_EQ(overview(date(2024, 3, 19)), march + line + later);
    EXPECT_EQ(overview(date(2024, 3, 1)), march + later);
    EXPECT_EQ(overview(date(2024, 4, 30)), march + later + "\r\n" + line);
}

}  // namespace
}  // namespace sk::notes

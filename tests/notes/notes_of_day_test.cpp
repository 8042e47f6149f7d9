#include "notes/notes_of_day.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "test_support.hpp"

namespace sk::notes {
namespace {

using calendar::Day;

Day date(int year, int month, int mday) { return Day::from_date(year, month - 1, mday); }

const std::string kBar = "\u00A0|\u00A0";
constexpr std::string_view kWeekdayShort[7] = {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"};

class NotesOfDayTest : public ::testing::Test {
protected:
    test::TempDir dir;
    NoteStore store{dir.path(), "geheim"};

    void write_weekday(int month_code, int weekday, int ordinal, std::string_view text) {
        ASSERT_EQ(store.write_weekday(weekday_key(month_code, weekday, ordinal), text), std::nullopt);
    }
    std::string one_line(const Day& day) const { return notes_of_day(store, day, Separator::OneLine); }
};

TEST_F(NotesOfDayTest, PeriodicNoteAlsoBeforeItsStart) {
    ASSERT_EQ(store.write_periodic({100, 7}, "Wochenputz"), std::nullopt);
    struct Case {
        calendar::DayNumber day;
        int count;
    };
    for (const Case c : {Case{2, 1}, Case{86, 1}, Case{93, 1}, Case{94, 0}, Case{99, 0}, Case{100, 1},
                         Case{107, 1}, Case{0, 0}, Case{24683, (24683 - 100) % 7 == 0 ? 1 : 0}}) {
        SCOPED_TRACE(c.day);
        const Day day = Day::from_number(c.day);
        EXPECT_EQ(periodic_note_count(store, c.day), c.count);
        EXPECT_EQ(day_has_notes(store, day), c.count > 0);
        EXPECT_EQ(one_line(day), c.count > 0 ? "Wochenputz" : "");
    }

    ASSERT_EQ(store.write_periodic({97, 3}, "Gießen"), std::nullopt);
    EXPECT_EQ(periodic_note_count(store, 100), 2);
    const auto keys = periodic_notes_of_day(store, 100);
    EXPECT_EQ(std::set<std::int32_t>({keys.at(0).interval, keys.at(1).interval}), (std::set<std::int32_t>{3, 7}));
    const std::string joined = one_line(Day::from_number(100));
    EXPECT_TRUE(joined == "Wochenputz" + kBar + "Gießen" || joined == "Gießen" + kBar + "Wochenputz") << joined;
}

TEST_F(NotesOfDayTest, FourthAndLastWeekday) {
    // Every-month notes for the fourth and the last of each weekday.
    for (int w = 0; w < 7; ++w) {
        write_weekday(kEveryMonth, w, 3, "vierter " + std::string(kWeekdayShort[w]));
        write_weekday(kEveryMonth, w, kLastOrdinal, "letzter " + std::string(kWeekdayShort[w]));
    }
    struct Case {
        Day day;
        std::string notes;
        int flags;
    };
    // March 2024 has 31 days; the 22nd is a Friday.
    const Case cases[] = {
        {date(2024, 3, 21), "", 0},
        {date(2024, 3, 22), "vierter Fr", 1},
        {date(2024, 3, 24), "vierter So", 1},
        {date(2024, 3, 25), "vierter Mo" + kBar + "letzter Mo", 3},  // no fifth Monday follows
        {date(2024, 3, 28), "vierter Do" + kBar + "letzter Do", 3},
        {date(2024, 3, 29), "letzter Fr", 1},                          // ordinal 4 itself
        {date(2024, 3, 31), "letzter So", 1},
        {date(2023, 2, 28), "vierter Di" + kBar + "letzter Di", 3},  // 28-day February
        {date(2023, 2, 22), "vierter Mi" + kBar + "letzter Mi", 3},
        {date(2024, 2, 22), "vierter Do", 1},                          // leap year: the 29th is the last
        {date(2024, 2, 29), "letzter Do", 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(calendar::format_iso_date(c.day));
        EXPECT_EQ(one_line(c.day), c.notes);
        EXPECT_EQ(weekday_note_flags(store, c.day), c.flags);
    }
}

TEST_F(NotesOfDayTest, MonthNoteWinsAndEveryMonthNoteStandsIn) {
    const Day day = date(2024, 3, 19);  // third Tuesday of March
    struct Case {
        std::string march;
        std::string every_month;
        std::string april;
        std::string notes;
    };
    const Case cases[] = {
        {"", "Chor", "", "Chor"},  // stands in for March and is not shown a second time
        {"Chor", "", "", "Chor"},
        {"Chorprobe", "Chor", "", "Chorprobe" + kBar + "Chor"},
        {"Chor", "Chor", "", "Chor"},
        {"", "", "Chor", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.notes);
        write_weekday(2, 2, 2, c.march);
        write_weekday(kEveryMonth, 2, 2, c.every_month);
        write_weekday(3, 2, 2, c.april);
        EXPECT_EQ(one_line(day), c.notes);
        EXPECT_EQ(weekday_note_flags(store, day), c.march.empty() && c.every_month.empty() ? 0 : 1);
    }
}

TEST_F(NotesOfDayTest, JoinsInFixedOrderWithEitherSeparator) {
    const Day day = date(2024, 3, 19);
    ASSERT_EQ(store.write_weekday(weekday_key(2, 2, 2), "Chor"), std::nullopt);
    ASSERT_EQ(store.write_yearly(day_key(day), "<2000>. Jahrestag"), std::nullopt);
    ASSERT_EQ(store.write_periodic({day.number - 700, 14}, "Müll"), std::nullopt);
    ASSERT_EQ(store.write_daily(date_key(day), "Arzt\r\num 10"), std::nullopt);
    EXPECT_EQ(notes_of_day(store, day, Separator::MultiLine),
              "Arzt\r\num 10\r\n\r\nMüll\r\n\r\n24. Jahrestag\r\n\r\nChor");
    EXPECT_EQ(one_line(day), "Arzt\r\num 10" + kBar + "Müll" + kBar + "24. Jahrestag" + kBar + "Chor");
    EXPECT_EQ(notes_window_title(day), "Notizen für den 19.03.2024");

    // An indexed note whose file is gone still adds its empty entry.
    std::filesystem::remove(dir / "20240219.txt");
    EXPECT_EQ(one_line(day), kBar + "Müll" + kBar + "24. Jahrestag" + kBar + "Chor");
    ASSERT_EQ(store.write_weekday(weekday_key(2, 2, 2), ""), std::nullopt);
    std::filesystem::remove(dir / "219.jnt");
    EXPECT_EQ(one_line(day), kBar + "Müll" + kBar);  // one trailing separator removed
}

TEST_F(NotesOfDayTest, HighlightAgreesWithTheJoinedNotes) {
    for (const auto& [key, text] : {std::pair{20240015, "Tag"}, std::pair{20240128, "Februar"}})
        ASSERT_EQ(store.write_daily(key, text), std::nullopt);
    ASSERT_EQ(store.write_periodic({19797, 45}, "Filter"), std::nullopt);
    ASSERT_EQ(store.write_yearly(129, "29. Februar"), std::nullopt);
    ASSERT_EQ(store.write_yearly(1124, "Heiligabend"), std::nullopt);
    write_weekday(2, 5, kLastOrdinal, "letzter Freitag im März");
    write_weekday(kEveryMonth, 1, 0, "erster Montag");
    write_weekday(kEveryMonth, 0, 3, "vierter Sonntag");
    write_weekday(kEveryMonth, 6, kLastOrdinal, "letzter Samstag");
    int days_with_notes = 0;
    for (int year : {2023, 2024}) {
        for (auto d = calendar::day_number(year, 0, 1); d <= calendar::day_number(year, 11, 31); ++d) {
            const Day day = Day::from_number(d);
            SCOPED_TRACE(calendar::format_iso_date(day));
            const bool has = day_has_notes(store, day);
            ASSERT_EQ(has, !one_line(day).empty());
            days_with_notes += has ? 1 : 0;
        }
    }
    EXPECT_GT(days_with_notes, 80);  // not a vacuous comparison
    EXPECT_TRUE(day_has_notes(store, date(2024, 2, 29)));
    EXPECT_FALSE(day_has_notes(store, date(2023, 3, 1)));  // the yearly 29 February only in leap years
}

TEST(YearPlaceholder, Cases) {
    struct Case {
        std::string text;
        int year;
        std::string shown;
    };
    const Case cases[] = {
        {"<1980>. Geburtstag", 2024, "44. Geburtstag"},
        {"<1980> und <1980>", 2024, "44 und 44"},
        {"<1980>, <2000>", 2024, "44, 24"},
        {"<7><7><8>", 10, "332"},
        {"<2030>", 2024, "-6"},
        {"x > <1990>", 2024, "x > 34"},
        {"<19800> Jahre", 2024, "<19800> Jahre"},        // five digits
        {"<0> <1980>", 2024, "<0> <1980>"},               // 0 stops everything after it
        {"<0198>", 2024, "<0198>"},                       // names 198, which is not there
        {"<0198> <198>", 2024, "<0198> 1826"},
        {"<>", 2024, "<>"},
        {"a < b", 2024, "a < b"},
        {"<a1> <1>", 2024, "<a1> <1>"},
        {"<1980<1990>", 2024, "<1980<1990>"},             // nine characters between
        {"<1äöü> <1>", 2024, "<1äöü> 2023"},              // four characters, seven bytes
        {"<1äöüß> <1>", 2024, "<1äöüß> <1>"},
        {"", 2024, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(apply_year_placeholder(c.text, c.year), c.shown);
    }
}

TEST_F(NotesOfDayTest, OverviewOfTheShownMonths) {
    EXPECT_EQ(notes_overview(store, date(2024, 3, 1).number, date(2024, 4, 1).number, date(2024, 3, 15)), "");

    ASSERT_EQ(store.write_daily(20240204, "A\r\n\r\nA2"), std::nullopt);
    ASSERT_EQ(store.write_yearly(204, "B"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240219, "C"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240302, "D"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240128, "nicht im Zeitraum"), std::nullopt);
    ASSERT_EQ(store.write_daily(20240401, "nicht im Zeitraum"), std::nullopt);

    const std::string line(56, '_');
    struct Case {
        Day today;
        std::string overview;
    };
    const Case cases[] = {
        {date(2024, 3, 15),
         "04.03.2024\r\nA\r\nA2\r\nB\r\n" + line + "\r\n \r\n19.03.2024\r\nC\r\n \r\n02.04.2024\r\nD"},
        {date(2024, 3, 19),
         "04.03.2024\r\nA\r\nA2\r\nB\r\n" + line + "\r\n \r\n19.03.2024\r\nC\r\n \r\n02.04.2024\r\nD"},
        {date(2024, 3, 1), "04.03.2024\r\nA\r\nA2\r\nB\r\n \r\n19.03.2024\r\nC\r\n \r\n02.04.2024\r\nD"},
        {date(2024, 4, 30), "04.03.2024\r\nA\r\nA2\r\nB\r\n \r\n19.03.2024\r\nC\r\n \r\n02.04.2024\r\nD\r\n" + line + "\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(calendar::format_iso_date(c.today));
        // Any day of the first and the last shown month stands for the whole month.
        EXPECT_EQ(notes_overview(store, date(2024, 3, 20).number, date(2024, 4, 10).number, c.today), c.overview);
    }
}

}  // namespace
}  // namespace sk::notes

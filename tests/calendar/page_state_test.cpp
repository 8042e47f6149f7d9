#include "calendar/page_state.hpp"

#include <gtest/gtest.h>

#include <ctime>
#include <random>
#include <sstream>
#include <string>

#include "test_support.hpp"

namespace sk::calendar {
namespace {

Day iso(const std::string& text) {
    return *parse_iso_date(text);
}

PageState state(int year, int month, const std::string& cursor, int columns = 6, int model = 0) {
    return {year, month - 1, iso(cursor), columns, model};
}

// Month (year * 12 + index) of day 1 of a month plus `days`, by the C library.
int month_after(int year, int month_index, int days) {
    std::tm tm{};
    tm.tm_year = year - 1900;
    tm.tm_mon = month_index;
    tm.tm_mday = 1 + days;
    timegm(&tm);
    return (tm.tm_year + 1900) * 12 + tm.tm_mon;
}

// Every first month of the calendar, each page move, against the C library's
// month of the target day; the cursor keeps its column and loses days past 28.
TEST(PageState, PageMovesAgreeWithTheCLibrary) {
    const PageCommand moves[] = {PageCommand::YearBack,     PageCommand::MonthBack,
                                 PageCommand::MonthForward, PageCommand::YearForward,
                                 PageCommand::PageBack,     PageCommand::PageForward};
    for (const auto& [columns, model] : {std::pair{6, 0}, {7, 6}, {23, 2}, {9, 5}}) {
        const bool plan = model == 5;
        const int distance[] = {
            -365, -1, 31, 366, plan ? -155 : -31 * columns, plan ? 186 : 31 * (columns + 1)};
        for (int first = 1970 * 12; first <= 2037 * 12 + 6; ++first) {
            // The cursor on the last day of column first % columns, or of July
            // 2037 when that column lies past it.
            const int month = std::min(first + first % columns, 2037 * 12 + 6);
            const Day cursor =
                Day::from_date(month / 12, month % 12, month_length(month / 12, month % 12));
            const PageState s{first / 12, first % 12, cursor, columns, model};
            for (int i = 0; i < 6; ++i) {
                const PageState after = apply(s, moves[i]);
                if (plan && (i == 1 || i == 2)) {
                    ASSERT_EQ(after, s);
                    continue;
                }
                const int expected = std::clamp(month_after(s.year, s.month_index, distance[i]),
                                                1970 * 12, 2037 * 12 + 6);
                ASSERT_EQ(after.year * 12 + after.month_index, expected) << i << " from " << first;
                const int cursor_month = std::min(expected + cursor_column(s), 2037 * 12 + 6);
                ASSERT_EQ(after.cursor, Day::from_date(cursor_month / 12, cursor_month % 12,
                                                       std::min(s.cursor.mday, 28)));
                ASSERT_EQ(after.columns, columns);
                ASSERT_EQ(after.model, model);
            }
        }
    }
}

// Commands a test sequence may hold: F1..F7 (F6 with today 2025-05-17),
// + and -, the arrows L R U D, the model keys, and @date for the date entry.
PageState run(PageState s, const std::string& keys) {
    std::istringstream in(keys);
    for (std::string k; in >> k;) {
        static const std::pair<const char*, PageCommand> table[] = {
            {"F1", PageCommand::YearBack},     {"F2", PageCommand::MonthBack},
            {"F3", PageCommand::MonthForward}, {"F4", PageCommand::YearForward},
            {"F5", PageCommand::PageBack},     {"F7", PageCommand::PageForward},
            {"L", PageCommand::CursorLeft},    {"R", PageCommand::CursorRight},
            {"U", PageCommand::CursorUp},      {"D", PageCommand::CursorDown}};
        bool done = false;
        for (const auto& [name, command] : table)
            if (k == name) s = apply(s, command), done = true;
        if (done) continue;
        if (k == "F6")
            s = go_to_today(s, iso("2025-05-17"));
        else if (k == "+" || k == "-")
            s = change_columns(s, k == "+" ? 1 : -1).state;
        else if (k[0] == '@')
            s = apply_entered_date(s, iso(k.substr(1)));
        else
            s = switch_model(s, model_for_key(s.model, static_cast<char32_t>(k[0])).value_or(-1));
    }
    return s;
}

TEST(PageState, KeySequences) {
    struct Case {
        PageState start;
        const char* keys;
        int year, month;
        const char* cursor;
        int columns, model;
    };
    const Case cases[] = {
        {state(2024, 1, "2024-01-31"), "F3", 2024, 2, "2024-02-28", 6, 0},
        {state(2024, 3, "2024-03-01"), "F2", 2024, 2, "2024-02-01", 6,
         0},  // one day back from the 1st
        {state(2024, 1, "2024-03-31"), "F4", 2025, 1, "2025-03-28", 6, 0},  // column kept
        {state(2024, 1, "2024-01-10"), "F5", 2023, 6, "2023-06-10", 6, 0},  // -186 days: 7 months
        {state(2024, 1, "2024-01-10"), "F7", 2024, 8, "2024-08-10", 6, 0},  // +217 days
        {state(2024, 1, "2024-01-10", 6, 5), "F5 F2 F3", 2023, 7, "2023-07-10", 6, 5},
        {state(2024, 1, "2024-01-10", 6, 5), "F7 + L", 2024, 7, "2024-07-10", 6, 5},
        {state(2037, 7, "2037-07-31"), "F4", 2037, 7, "2037-07-28", 6, 0},
        {state(2037, 5, "2037-07-15"), "F7", 2037, 7, "2037-07-15", 6, 0},  // column past July 2037
        {state(1970, 1, "1970-01-31"), "F1 F5 F2", 1970, 1, "1970-01-28", 6, 0},
        {state(2024, 1, "2024-11-30", 23), "+", 2024, 1, "2024-06-30", 6,
         0},  // 24 columns: back to 6
        {state(2024, 1, "2024-06-30", 6), "-", 2024, 1, "2024-06-30", 6, 0},
        {state(2024, 1, "2024-07-31", 7), "- +", 2024, 1, "2024-06-30", 7, 0},
        {state(2024, 1, "2024-01-31"), "D R R", 2024, 1, "2024-04-01", 6, 0},
        {state(2024, 1, "2024-01-31"), "R R U", 2024, 1, "2024-03-28", 6, 0},
        {state(2024, 1, "2024-06-30"), "D", 2024, 2, "2024-07-01", 6, 0},  // scrolls one month
        {state(2024, 1, "2024-01-15"), "L L", 2023, 11, "2023-11-15", 6, 0},
        {state(1970, 1, "1970-01-01"), "U L", 1970, 1, "1970-01-01", 6, 0},
        {state(2037, 7, "2037-07-31"), "D R", 2037, 7, "2037-07-31", 6, 0},
        {state(2037, 5, "2037-06-10"), "R R", 2037, 5, "2037-07-10", 6, 0},
        {state(2024, 1, "2024-03-03", 6, 2), "N N M M M", 2024, 1, "2024-03-03", 6, 1},
        {state(2024, 1, "2024-03-03", 6, 4), "m x B v c Q", 2024, 1, "2024-03-03", 6, 7},
        {state(2024, 1, "2024-03-03"), "F6 F3", 2025, 6, "2025-06-17", 6, 0},
        {state(2024, 1, "2024-03-03"), "@2024-01-31 F3", 2024, 2, "2024-02-28", 6, 0},
        {state(2024, 1, "2024-03-03"), "@1969-12-31", 1970, 1, "1970-01-01", 6, 0},
        {state(2024, 1, "2024-03-03"), "@2040-02-29 L", 2037, 6, "2037-06-30", 6, 0},
    };
    for (const Case& c : cases) {
        const PageState s = run(c.start, c.keys);
        EXPECT_EQ(s, (PageState{c.year, c.month - 1, iso(c.cursor), c.columns, c.model}))
            << c.keys << ": " << s.year << "-" << s.month_index + 1 << ", cursor "
            << ::testing::PrintToString(s.cursor) << ", " << s.columns << " columns, model "
            << s.model;
    }
}

TEST(PageState, ColumnChangesAndTheScreenCheck) {
    struct Case {
        int columns, delta, model, result;
        bool check;
    };
    for (const Case c :
         {Case{6, 1, 0, 7, true}, Case{7, -1, 6, 6, true}, Case{22, 1, 2, 23, true},
          Case{23, 1, 0, 6, false}, Case{6, -1, 0, 6, false}, Case{10, 1, 5, 10, false}}) {
        const ColumnChange change =
            change_columns(state(2024, 1, "2024-01-01", c.columns, c.model), c.delta);
        EXPECT_EQ(change.state.columns, c.result) << c.columns << " + " << c.delta;
        EXPECT_EQ(change.check_screen, c.check) << c.columns << " + " << c.delta;
    }
}

TEST(PageState, ModelKeysAndTheBlockButton) {
    for (int m = 0; m < kModelCount; ++m) {
        EXPECT_EQ(model_for_key(m, U'N'), m == 0 ? 3 : 0);
        EXPECT_EQ(model_for_key(m, U'm'), m == 1 ? 4 : 1);
        EXPECT_EQ(offers_block_toggle(m), m == 0 || m == 1 || m == 3 || m == 4) << m;
    }
    EXPECT_FALSE(model_for_key(0, U'Ü').has_value());
    EXPECT_EQ(switch_model(state(2024, 1, "2024-01-05"), 8).model, 0);
}

TEST(PageState, DateEntriesAndToday) {
    EXPECT_EQ(date_entry_start(state(2024, 1, "2024-03-17")), iso("2024-03-17"));
    EXPECT_EQ(date_entry_start(state(2037, 7, "2037-09-20")),
              iso("2037-07-31"));  // no cursor past the ceiling
    EXPECT_EQ(go_to_today(state(2024, 1, "2024-01-05"), iso("2041-03-01")).cursor,
              iso("2037-07-31"));
    EXPECT_EQ(page_at_today(30, 9, iso("2024-05-17")), state(2024, 5, "2024-05-17", 23, 0));
    struct Case {
        VacationStart start;
        int year;
        const char* shown;
    };
    for (const Case c : {Case{{4, 25}, 2024, "2024-04-25"}, Case{{2, 29}, 2023, "2023-02-28"},
                         Case{{4, 31}, 2024, "2024-04-30"}, Case{{9, 1}, 2037, "2036-09-01"},
                         Case{{7, 31}, 2037, "2037-07-31"}, Case{{13, 0}, 1960, "1970-12-01"}}) {
        EXPECT_EQ(vacation_start_entry(c.start, c.year), iso(c.shown)) << c.shown;
    }
    const VacationStart entered = entered_vacation_start(iso("2024-02-29"));
    EXPECT_EQ(entered.month * 100 + entered.day, 229);
}

// Random keys from odd start states: the page and the cursor never leave
// the calendar, the cursor never leaves the page, up undoes down.
TEST(PageState, RandomKeysKeepTheInvariants) {
    std::mt19937 random(20240317);
    const PageState odd[] = {{1960, 14, Day::from_number(-50), 0, 9},
                             {2050, -3, Day::from_number(30000), 40, 5},
                             state(2024, 1, "2030-01-01", 8, 3)};
    for (PageState s : odd) {
        s = normalized(s);
        for (int step = 0; step < 20000; ++step) {
            const PageState before = s;
            const int key = static_cast<int>(random() % 14);
            if (key < 10)
                s = apply(s, static_cast<PageCommand>(key));
            else if (key < 12)
                s = change_columns(s, key == 10 ? 1 : -1).state;
            else if (key == 12)
                s = switch_model(s, static_cast<int>(random() % 8));
            else
                s = select_day(s, Day::from_number(first_shown_day(s).number +
                                                   static_cast<int>(random() % 400) - 30));
            ASSERT_EQ(normalized(s), s) << step;
            ASSERT_TRUE(on_page(s, s.cursor)) << step;
            ASSERT_GE(s.cursor.number, kFirstDay);
            ASSERT_LE(s.cursor.number, kLastDay);
            if (key == 9 && s.cursor != before.cursor) {
                ASSERT_EQ(apply(s, PageCommand::CursorUp).cursor, before.cursor) << step;
            }
        }
    }
}

}  // namespace
}  // namespace sk::calendar

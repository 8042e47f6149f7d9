#include "calendar/page_state.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdio>
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

// "YYYY-MM YYYY-MM-DD columns model": first month, cursor, columns, model.
PageState state(const char* text) {
    int year = 0, month = 0, columns = 0, model = 0;
    char cursor[11] = {};
    std::sscanf(text, "%d-%d %10s %d %d", &year, &month, cursor, &columns, &model);
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

// Every first month of the calendar and every page move against the month
// the C library finds; the cursor keeps its column and loses days past 28.
TEST(PageState, PageMovesAgreeWithTheCLibrary) {
    constexpr int kJuly2037 = 2037 * 12 + 6;
    for (const auto& [columns, model] : {std::pair{6, 0}, {7, 6}, {23, 2}, {9, 5}}) {
        const bool plan = model == 5;
        const int distance[] = {
            -365, -1, 31, 366, plan ? -155 : -31 * columns, plan ? 186 : 31 * (columns + 1)};
        for (int first = 1970 * 12; first <= kJuly2037; ++first) {
            // The cursor on the last day of column first % columns (at most July 2037).
            const int month = std::min(first + first % columns, kJuly2037);
            const Day cursor =
                Day::from_date(month / 12, month % 12, month_length(month / 12, month % 12));
            const PageState s{first / 12, first % 12, cursor, columns, model};
            for (int i = 0; i < 6; ++i) {
                const PageState after = apply(s, static_cast<PageCommand>(i));
                if (plan && (i == 1 || i == 2)) {
                    ASSERT_EQ(after, s);
                    continue;
                }
                const int expected = std::clamp(month_after(s.year, s.month_index, distance[i]),
                                                1970 * 12, kJuly2037);
                const int cursor_month = std::min(expected + cursor_column(s), kJuly2037);
                ASSERT_EQ(after, (PageState{expected / 12, expected % 12,
                                            Day::from_date(cursor_month / 12, cursor_month % 12,
                                                           std::min(cursor.mday, 28)),
                                            columns, model}))
                    << "move " << i << " from " << first / 12 << "-" << first % 12 + 1;
            }
        }
    }
}

// Keys: F1..F7 (F6 with today 2025-05-17), + and -, the arrows L R U D, the
// model keys, and @date for the date entry.
PageState run(PageState s, const std::string& keys) {
    const std::string moves[] = {"F1", "F2", "F3", "F4", "F5", "F7", "L", "R", "U", "D"};
    std::istringstream in(keys);
    for (std::string k; in >> k;) {
        const auto move = std::find(std::begin(moves), std::end(moves), k) - std::begin(moves);
        if (move < 10)
            s = apply(s, static_cast<PageCommand>(move));
        else if (k == "F6")
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
        const char *start, *keys, *end;
    };
    for (const Case c :
         {Case{"2024-01 2024-01-31 6 5", "F7 + L D", "2024-07 2024-07-28 6 5"},
          Case{"2037-07 2037-07-31 6 0", "F4", "2037-07 2037-07-28 6 0"},
          Case{"2037-05 2037-07-15 6 0", "F7", "2037-07 2037-07-15 6 0"},  // column past July 2037
          Case{"2024-01 2024-11-30 23 0", "+", "2024-01 2024-06-30 6 0"},  // 24 columns: six
          Case{"2024-01 2024-06-30 6 0", "-", "2024-01 2024-06-30 6 0"},
          Case{"2024-01 2024-07-31 7 0", "- +", "2024-01 2024-06-30 7 0"},
          Case{"2024-01 2024-01-31 6 0", "D R R", "2024-01 2024-04-01 6 0"},
          Case{"2024-01 2024-01-31 6 0", "R R U", "2024-01 2024-03-28 6 0"},
          Case{"2024-01 2024-06-30 6 0", "D", "2024-02 2024-07-01 6 0"},  // scrolls one month
          Case{"2024-01 2024-01-15 6 0", "L L", "2023-11 2023-11-15 6 0"},
          Case{"1970-01 1970-01-01 6 0", "U L", "1970-01 1970-01-01 6 0"},
          Case{"2037-05 2037-06-10 6 0", "R R D", "2037-05 2037-07-11 6 0"},
          Case{"2037-07 2037-07-31 6 0", "D R", "2037-07 2037-07-31 6 0"},
          Case{"2024-01 2024-03-03 6 2", "N N M M M", "2024-01 2024-03-03 6 1"},
          Case{"2024-01 2024-03-03 6 4", "m x B v c Q", "2024-01 2024-03-03 6 7"},
          Case{"2024-01 2024-03-03 6 0", "F6 F3", "2025-06 2025-06-17 6 0"},
          Case{"2024-01 2024-03-03 6 0", "@2024-01-31 F3", "2024-02 2024-02-28 6 0"},
          Case{"2024-01 2024-03-03 6 0", "@1969-12-31", "1970-01 1970-01-01 6 0"},
          Case{"2024-01 2024-03-03 6 0", "@2040-02-29 L", "2037-06 2037-06-30 6 0"}}) {
        const PageState s = run(state(c.start), c.keys);
        char got[40];
        std::snprintf(got, sizeof got, "%04d-%02d %s %d %d", s.year, s.month_index + 1,
                      format_iso_date(s.cursor).c_str(), s.columns, s.model);
        EXPECT_EQ(std::string(got), c.end) << c.start << ": " << c.keys;
    }
}

TEST(PageState, ScreenCheckModelKeysAndEntries) {
    struct Columns {
        const char* start;
        int delta;
        bool check;
    };
    for (const Columns c : {Columns{"2024-01 2024-01-01 6 0", 1, true},
                            {"2024-01 2024-01-01 7 6", -1, true},
                            {"2024-01 2024-01-01 23 0", 1, false},
                            {"2024-01 2024-01-01 6 0", -1, false},
                            {"2024-01 2024-01-01 9 5", 1, false},
                            {"2024-01 2024-01-01 9 0", INT_MIN, false}})
        EXPECT_EQ(change_columns(state(c.start), c.delta).check_screen, c.check) << c.start;
    for (int m = 0; m < kModelCount; ++m) {
        EXPECT_EQ(model_for_key(m, U'N'), m == 0 ? 3 : 0);
        EXPECT_EQ(model_for_key(m, U'm'), m == 1 ? 4 : 1);
        EXPECT_EQ(offers_block_toggle(m), m == 0 || m == 1 || m == 3 || m == 4) << m;
    }
    EXPECT_FALSE(model_for_key(0, U'Ü').has_value());
    EXPECT_EQ(date_entry_start(state("2024-01 2024-03-17 6 0")), iso("2024-03-17"));
    EXPECT_EQ(date_entry_start(state("2037-07 2037-09-20 6 0")), iso("2037-07-31"));
    EXPECT_EQ(go_to_today(state("2024-01 2024-01-05 6 0"), iso("2041-03-01")).cursor,
              iso("2037-07-31"));
    EXPECT_EQ(page_at_today(30, 9, iso("2024-05-17")), state("2024-05 2024-05-17 23 0"));
    struct Start {
        VacationStart start;
        int year;
        const char* shown;
    };
    for (const Start c : {Start{{4, 25}, 2024, "2024-04-25"},
                          {{2, 29}, 2023, "2023-02-28"},
                          {{4, 31}, 2024, "2024-04-30"},
                          {{9, 1}, 2037, "2036-09-01"},
                          {{7, 31}, 2037, "2037-07-31"},
                          {{13, 0}, 1960, "1970-12-01"}})
        EXPECT_EQ(vacation_start_entry(c.start, c.year), iso(c.shown)) << c.shown;
    const VacationStart entered = entered_vacation_start(iso("2024-02-29"));
    EXPECT_EQ(entered.month * 100 + entered.day, 229);
}

// Random keys and clicks from odd states: page and cursor stay in the
// calendar, the cursor on the page, and Up undoes Down.
TEST(PageState, RandomKeysKeepTheInvariants) {
    std::mt19937 random(20240317);
    for (PageState s : {PageState{1960, 14, Day::from_number(-50), 0, 9},
                        PageState{2050, -3, Day::from_number(30000), 40, 5},
                        PageState{INT_MAX, INT_MIN, Day{INT_MIN}, INT_MAX, INT_MIN}}) {
        s = normalized(s);
        for (int step = 0; step < 30000; ++step) {
            const PageState before = s;
            const int key = static_cast<int>(random() % 14);
            if (key < 10)
                s = apply(s, static_cast<PageCommand>(key));
            else if (key < 12)
                s = change_columns(s, key == 10 ? 1 : -1).state;
            else if (key == 12)
                s = switch_model(s, static_cast<int>(random() % 8));
            else
                s = select_day(
                    s, Day::from_number(first_shown_day(s).number + int(random() % 400) - 30));
            ASSERT_EQ(normalized(s), s) << step;
            ASSERT_TRUE(on_page(s, s.cursor) && s.cursor.number >= kFirstDay &&
                        s.cursor.number <= kLastDay);
            if (key == 9 && s.cursor != before.cursor) {
                ASSERT_EQ(apply(s, PageCommand::CursorUp).cursor, before.cursor) << step;
            }
        }
    }
}

}  // namespace
}  // namespace sk::calendar

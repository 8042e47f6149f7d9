// What the main window shows: the first month of the page, the number of
// month columns, the shift model and the cursor, and every command that
// moves or reshapes the page as a pure function of that state. The window
// only maps keys, buttons and clicks to these functions and redraws; "today"
// is always an argument, never read from a clock here.
//
// The page moves run on day numbers on purpose: day 1 of the first month
// plus a distance, of which only month and year are kept. The distances are
// therefore not month lengths (one month back is one day back from the 1st,
// a year back is 365 days, a year forward 366).
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "calendar/dates.hpp"
#include "calendar/vacation.hpp"

namespace sk::calendar {

inline constexpr int kMinColumns = 6;  // the window's page: 6..23 month columns
inline constexpr int kMaxColumns = 23;
inline constexpr int kPlanModel = 5;  // the "Schichtplan": no cursor keys, fixed page moves
inline constexpr int kCursorMdayAfterMove = 28;  // every month has a 28th

// First and last month a page can start with: January 1970 (the calendar
// starts there) and July 2037 (the month of the calendar's last day).
inline constexpr int kFirstPageYear = 1970, kFirstPageMonth = 0;
inline constexpr int kLastPageYear = 2037, kLastPageMonth = 6;

inline constexpr std::string_view kColumnsTooWide =
    "Der gewählte Anzahl der Kolumnen war für den Bildschirm zu groß!";

struct PageState {
    int year = kFirstPageYear;          // year of the first month column
    int month_index = kFirstPageMonth;  // first month column, 0 = January
    Day cursor;                         // on the page, 1970-01-01..2037-07-31
    int columns = kMinColumns;          // month columns, kMinColumns..kMaxColumns
    int model = 0;                      // shift model 0..7
    friend constexpr bool operator==(const PageState&, const PageState&) = default;
};

// Day 1 of the first and the last day of the last month column. The last
// column may lie past July 2037: the page still shows those days, but the
// cursor never goes there.
Day first_shown_day(const PageState& s);
Day last_shown_day(const PageState& s);
// Month column of the cursor, 0 = first.
int cursor_column(const PageState& s);
bool on_page(const PageState& s, const Day& day);

// A consistent state from any values (for example from a hand-edited
// settings file): model 0 for an unknown one, columns brought into 6..23,
// the first month into January 1970..July 2037, the cursor into the
// calendar and onto the page (same day of month in its nearest column,
// shortened to that month's length).
PageState normalized(PageState s);

// The page at start-up and after F6 / Home: it starts with today's month and
// the cursor is on today. A today outside the calendar counts as its first
// or last day.
PageState page_at_today(int columns, int model, const Day& today);
PageState go_to_today(const PageState& s, const Day& today);

enum class PageCommand : std::uint8_t {
    YearBack,      // F1: -365 days
    MonthBack,     // F2: -1 day; ignored in the plan
    MonthForward,  // F3: +31 days; ignored in the plan
    YearForward,   // F4: +366 days
    PageBack,      // F5, Page Up: -31 * columns; -155 in the plan
    PageForward,   // F7, Page Down: +31 * (columns + 1); +186 in the plan
    CursorLeft,    // same day of month one column left; ignored in the plan
    CursorRight,   // same day of month one column right; ignored in the plan
    CursorUp,      // the day before; ignored in the plan
    CursorDown,    // the day after; ignored in the plan
};

// The state after a command; the state itself when the model ignores it.
//
// Page moves: the first month becomes the month of day 1 of the first month
// plus the distance, kept within January 1970..July 2037. The cursor keeps
// its column and its day of month, except that a day above the 28th becomes
// the 28th, and that a column past July 2037 is brought back to July 2037.
//
// Cursor moves: up and down go to the neighbouring day, across the end of a
// month into the next or previous column; left and right go to the same day
// of month in the neighbouring column, shortened to that month's length.
// When the new day lies off the page, the page scrolls by one month. A move
// that would leave 1970-01-01..2037-07-31 does nothing.
PageState apply(const PageState& s, PageCommand command);

// Moving the page by a signed number of days (the primitive of the page moves).
PageState move_page_by(const PageState& s, int days);

// A click on a day of the page puts the cursor there (in every model); a
// day off the page or outside the calendar changes nothing.
PageState select_day(const PageState& s, const Day& day);

// Keypad + (delta +1) and - (delta -1). Outside 6..23 the page goes back to
// six columns on purpose, without a check (six columns are the smallest
// page). Any other new number must pass the window's screen check
// (view::geometry::page_fits_screen) before it is shown: with
// `check_screen` the window keeps the old state and shows kColumnsTooWide
// when `state.columns` does not fit. When the page narrows, a cursor in a
// column that goes away moves to the same day of the last column. The plan
// ignores both keys.
struct ColumnChange {
    PageState state;
    bool check_screen = false;
};
ColumnChange change_columns(const PageState& s, int delta);

// The model a key selects from the current one: N toggles 0 and 3 (0 from any
// other model), M toggles 1 and 4 (1 from any other), B 2, V 6, C 7, X 5.
// Letters in either case; nullopt for any other key.
std::optional<int> model_for_key(int current, char32_t key);
// Switching the model keeps the page and the cursor; an unknown model
// changes nothing. The vacation-block button is shown for the models of
// `offers_block_toggle` (shift_model.hpp): 0, 1, 3 and 4.
PageState switch_model(const PageState& s, int model);

// The date entry of F8 / D. Its field starts on the cursor day (its month
// no later than July 2037) and accepts 1970-01-01..2037-07-31.
inline constexpr DayNumber kDateEntryFirst = kFirstDay;
inline constexpr DayNumber kDateEntryLast = kLastDay;
Day date_entry_start(const PageState& s);
// The entered date (brought into the accepted range) becomes the first month
// of the page and the cursor day.
PageState apply_entered_date(const PageState& s, const Day& chosen);

// The date entry of key F for the earliest start of the vacation block. Its
// field shows the day and month of `start` in `year` (the page's year; a
// year earlier when that would lie past 31 July 2037), a day past the end
// of the month shortened to the month's last day; only day and month of the
// entered date are kept.
Day vacation_start_entry(const VacationStart& start, int year);
VacationStart entered_vacation_start(const Day& chosen);

}  // namespace sk::calendar

#include "calendar/page_state.hpp"

#include <algorithm>
#include <cstdint>

#include "calendar/shift_model.hpp"

namespace sk::calendar {

namespace {

// Months are counted as year * 12 + month index, so that a month column is
// one step and the page's bounds are plain numbers.
constexpr int month_ordinal(int year, int month_index) {
    return year * 12 + month_index;
}
constexpr int month_ordinal(const Day& d) {
    return month_ordinal(d.year, d.month_index);
}
constexpr int first_ordinal(const PageState& s) {
    return month_ordinal(s.year, s.month_index);
}

constexpr int kFirstPageOrdinal = month_ordinal(kFirstPageYear, kFirstPageMonth);
constexpr int kLastPageOrdinal = month_ordinal(kLastPageYear, kLastPageMonth);

// Day `mday` of the month `ordinal`, shortened to the month's length.
Day day_in_month(int ordinal, int mday) {
    const int year = floor_div(ordinal, 12);
    const int month = floor_mod(ordinal, 12);
    return Day::from_date(year, month, std::clamp(mday, 1, month_length(year, month)));
}

Day within_calendar(DayNumber d) {
    return Day::from_number(std::clamp(d, kFirstDay, kLastDay));
}

PageState with_first(PageState s, int ordinal) {
    ordinal = std::clamp(ordinal, kFirstPageOrdinal, kLastPageOrdinal);
    s.year = floor_div(ordinal, 12);
    s.month_index = floor_mod(ordinal, 12);
    return s;
}

// Puts the cursor on day `mday` of a month column, the column brought onto
// the page and to no month after July 2037.
PageState with_cursor(PageState s, int column, int mday) {
    const int first = first_ordinal(s);
    column = std::clamp(column, 0, std::min(s.columns - 1, kLastPageOrdinal - first));
    s.cursor = day_in_month(first + column, mday);
    return s;
}

// The page starting with the month of a day, the cursor on that day.
PageState show_day(PageState s, DayNumber d) {
    const Day day = within_calendar(d);
    s = with_first(s, month_ordinal(day));
    s.cursor = day;
    return s;
}

std::optional<int> page_distance(PageCommand command, const PageState& s) {
    const bool plan = s.model == kPlanModel;
    switch (command) {
        case PageCommand::YearBack:
            return -365;
        case PageCommand::MonthBack:
            return plan ? std::nullopt : std::optional(-1);
        case PageCommand::MonthForward:
            return plan ? std::nullopt : std::optional(31);
        case PageCommand::YearForward:
            return 366;
        case PageCommand::PageBack:
            return plan ? -155 : -31 * s.columns;
        case PageCommand::PageForward:
            return plan ? 186 : 31 * (s.columns + 1);
        default:
            return std::nullopt;
    }
}

// Moves the cursor to `target` when it lies within the calendar, scrolling
// the page by the months needed to keep it in view.
PageState cursor_to(PageState s, const Day& target) {
    if (target.number < kFirstDay || target.number > kLastDay) return s;
    const int month = month_ordinal(target);
    const int first = first_ordinal(s);
    if (month < first) s = with_first(s, month);
    if (month > first + s.columns - 1) s = with_first(s, month - s.columns + 1);
    s.cursor = target;
    return s;
}

PageState move_cursor(const PageState& s, PageCommand command) {
    const Day& c = s.cursor;
    switch (command) {
        case PageCommand::CursorUp:
            return cursor_to(s, Day::from_number(c.number - 1));
        case PageCommand::CursorDown:
            return cursor_to(s, Day::from_number(c.number + 1));
        case PageCommand::CursorLeft:
            return cursor_to(s, day_in_month(month_ordinal(c) - 1, c.mday));
        case PageCommand::CursorRight:
            return cursor_to(s, day_in_month(month_ordinal(c) + 1, c.mday));
        default:
            return s;
    }
}

}  // namespace

Day first_shown_day(const PageState& s) {
    return Day::from_date(s.year, s.month_index, 1);
}

Day last_shown_day(const PageState& s) {
    return day_in_month(first_ordinal(s) + s.columns - 1, 31);
}

int cursor_column(const PageState& s) {
    return month_ordinal(s.cursor) - first_ordinal(s);
}

bool on_page(const PageState& s, const Day& day) {
    const int column = month_ordinal(day) - first_ordinal(s);
    return column >= 0 && column < s.columns;
}

PageState normalized(PageState s) {
    if (!is_valid_model(s.model)) s.model = 0;
    s.columns = std::clamp(s.columns, kMinColumns, kMaxColumns);
    // Year and month may come from anywhere; the ordinal keeps a month index
    // outside 0..11 meaningful and the clamp keeps the product small.
    s = with_first(
        s, month_ordinal(std::clamp(s.year, 0, 9999), std::clamp(s.month_index, -120000, 120000)));
    const Day cursor = within_calendar(s.cursor.number);
    return with_cursor(s, month_ordinal(cursor) - first_ordinal(s), cursor.mday);
}

PageState page_at_today(int columns, int model, const Day& today) {
    PageState s;
    s.columns = columns;
    s.model = model;
    return go_to_today(s, today);
}

PageState go_to_today(const PageState& s, const Day& today) {
    return show_day(normalized(s), today.number);
}

PageState move_page_by(const PageState& s_in, int days) {
    const PageState s = normalized(s_in);
    const std::int64_t target = std::int64_t{first_shown_day(s).number} + days;
    const Day day = within_calendar(
        static_cast<DayNumber>(std::clamp<std::int64_t>(target, kFirstDay, kLastDay)));
    return with_cursor(with_first(s, month_ordinal(day)), cursor_column(s),
                       std::min(s.cursor.mday, kCursorMdayAfterMove));
}

PageState apply(const PageState& s_in, PageCommand command) {
    const PageState s = normalized(s_in);
    switch (command) {
        case PageCommand::CursorLeft:
        case PageCommand::CursorRight:
        case PageCommand::CursorUp:
        case PageCommand::CursorDown:
            return s.model == kPlanModel ? s : move_cursor(s, command);
        default:
            break;
    }
    const std::optional<int> distance = page_distance(command, s);
    return distance ? move_page_by(s, *distance) : s;
}

PageState select_day(const PageState& s_in, const Day& day) {
    PageState s = normalized(s_in);
    if (day.number < kFirstDay || day.number > kLastDay || !on_page(s, day)) return s;
    s.cursor = Day::from_number(day.number);
    return s;
}

ColumnChange change_columns(const PageState& s_in, int delta) {
    const PageState s = normalized(s_in);
    if (s.model == kPlanModel) return {s, false};
    PageState changed = s;
    changed.columns = s.columns + std::clamp(delta, -kMaxColumns, kMaxColumns);
    // An out-of-range step resets the page to six columns, on purpose; the
    // smallest page needs no check.
    const bool in_range = changed.columns >= kMinColumns && changed.columns <= kMaxColumns;
    if (!in_range) changed.columns = kMinColumns;
    changed = with_cursor(changed, cursor_column(s), s.cursor.mday);
    return {changed, in_range && changed.columns != s.columns};
}

std::optional<int> model_for_key(int current, char32_t key) {
    if (key >= U'a' && key <= U'z') key -= U'a' - U'A';
    switch (key) {
        case U'N':
            return current == 0 ? 3 : 0;
        case U'M':
            return current == 1 ? 4 : 1;
        case U'B':
            return 2;
        case U'V':
            return 6;
        case U'C':
            return 7;
        case U'X':
            return 5;
        default:
            return std::nullopt;
    }
}

PageState switch_model(const PageState& s_in, int model) {
    PageState s = normalized(s_in);
    if (is_valid_model(model)) s.model = model;
    return s;
}

Day date_entry_start(const PageState& s_in) {
    const PageState s = normalized(s_in);
    return day_in_month(std::min(month_ordinal(s.cursor), kLastPageOrdinal), s.cursor.mday);
}

PageState apply_entered_date(const PageState& s, const Day& chosen) {
    return show_day(normalized(s), chosen.number);
}

Day vacation_start_entry(const VacationStart& start, int year) {
    const int month = std::clamp(start.month, 1, 12) - 1;
    year = std::clamp(year, kFirstPageYear, kLastPageYear);
    const Day day = day_in_month(month_ordinal(year, month), start.day);
    return day.number <= kDateEntryLast ? day
                                        : day_in_month(month_ordinal(year - 1, month), start.day);
}

VacationStart entered_vacation_start(const Day& chosen) {
    return {chosen.month_index + 1, chosen.mday};
}

}  // namespace sk::calendar

#include "marks/accounts.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "calendar/holidays.hpp"
#include "calendar/shift_model.hpp"

namespace sk::marks {

namespace {

using calendar::DayNumber;
using calendar::rem;

constexpr double kShiftHours = 8.0;
constexpr double kSundayExtra = 4.0;
constexpr double kTwoShiftHours = 8.5;

bool is_sunday(DayNumber d) { return rem(d + 4, 7) == 0; }

double day_hours(DayNumber d) { return kShiftHours + (is_sunday(d) ? kSundayExtra : 0.0); }

// Markings outside the calendar's days are left out of every account; the
// dialog never makes them.
bool counts(const ShiftMarking& m) {
    return calendar::kCalendarDays.contains(m.day);
}

// The home crew's shift code on a day of the current year's plan, with the
// exchange of that year's block. A crew the model does not have is not
// working.
class HomeCrew {
public:
    HomeCrew(const PlanContext& plan, const AccountState& state, int year)
        : m_model(plan.model),
          m_crew(static_cast<std::size_t>(state.hours.home_crew)),
          m_block(calendar::vacation_block(year, plan.order, plan.earliest)) {}

    calendar::ShiftCode code(DayNumber d) const {
        if (m_crew >= 5) return calendar::shift::kNone;
        return calendar::crew_shifts(m_model, d, &m_block).code[m_crew];
    }
    bool works(DayNumber d) const { return calendar::is_working(code(d)); }
    const calendar::VacationBlock& block() const { return m_block; }

private:
    int m_model;
    std::size_t m_crew;
    calendar::VacationBlock m_block;
};

}  // namespace

bool is_paid_holiday(const Day& day, int shift) {
    switch ((day.month_index + 1) * 100 + day.mday) {
        case 101: case 106: case 501: case 815: case 1003: case 1225: case 1226:
            return shift > 0;
        case 1224: case 1231:
            return shift > 2;
        case 430:
            return shift > 3;
        default:
            break;
    }
    switch (day.day_of_year() - calendar::easter_day_of_year(day.year)) {
        case -2: case 0: case 1: case 39: case 49: case 50: case 60:
            return shift > 0;
        case -1:
            return shift > 2;
        case 48:
            return shift > 3;
        default:
            return false;
    }
}

HoursChange hours_change(const ShiftMarkings& markings, const AccountState& state,
                         const PlanContext& plan, const Day& today) {
    HoursChange change;
    if (!keeps_accounts(plan.model)) return change;
    const HomeCrew home(plan, state, today.year);
    const HoursAccount& hours = state.hours;

    for (const ShiftMarking& m : markings.items) {
        if (!counts(m) || m.day < hours.start_date) continue;
        if ((m.code == kind_a::kWorked || m.code == kind_a::kCourse) && !home.works(m.day))
            change.plus += day_hours(m.day);
        // F is also held against the vacation reference date, as the plant's
        // accounts always did.
        if (m.code == kind_a::kFree && m.day > state.vacation.reference_date &&
            home.works(m.day) && !is_paid_holiday(Day::from_number(m.day), m.column))
            change.free_minus += day_hours(m.day);
    }

    if (hours.block_as_minus && calendar::has_vacation_block(plan.model)) {
        const calendar::VacationBlock& block = home.block();
        for (DayNumber d = block.start; d < block.start + calendar::kBlockDays; ++d) {
            if (home.code(d) == calendar::shift::kStandby &&
                !is_paid_holiday(Day::from_number(d), calendar::shift::kEarly))
                change.block_minus += day_hours(d);
        }
    }
    return change;
}

double start_value_in_hours(const HoursAccount& hours) {
    const double value = hours.start_value;
    if (hours.mode != hours_mode::kHoursMinutes) return value;
    const double whole = std::trunc(value);
    return whole + (value - whole) * 100.0 / 60.0;
}

std::string hours_text(double hours, int mode) {
    char buffer[48];
    if (mode == hours_mode::kHoursMinutes) {
        const long long minutes = std::llround(hours * 60.0);
        std::snprintf(buffer, sizeof buffer, "%s%lld:%02lld", minutes < 0 ? "-" : "",
                      std::llabs(minutes) / 60, std::llabs(minutes) % 60);
    } else {
        const long long cents = std::llround(hours * 100.0);
        std::snprintf(buffer, sizeof buffer, "%s%lld,%02lld", cents < 0 ? "-" : "",
                      std::llabs(cents) / 100, std::llabs(cents) % 100);
    }
    return buffer;
}

std::string format_balance(double hours, int mode) {
    std::string text = hours_text(hours, mode);
    if (text.size() < 7) text.insert(0, 7 - text.size(), ' ');
    return text;
}

HoursBalance hours_balance(const ShiftMarkings& markings, const AccountState& state,
                           const PlanContext& plan, const Day& today) {
    HoursBalance balance;
    balance.hours = start_value_in_hours(state.hours) +
                    hours_change(markings, state, plan, today).total();
    balance.text = format_balance(balance.hours, state.hours.mode);
    if (balance.hours < -40.0) balance.colour = kBalanceLowColour;
    if (balance.hours > 40.0) balance.colour = kBalanceHighColour;
    return balance;
}

bool roll_into_year(VacationAccount& vacation, const Day& today) {
    const DayNumber new_year = calendar::day_number(today.year, 0, 1);
    if (vacation.reference_date >= new_year) return false;
    vacation = {new_year, 0};
    return true;
}

int vacation_days_taken(const ShiftMarkings& markings, const AccountState& state,
                        const PlanContext& plan, const Day& today) {
    if (!keeps_accounts(plan.model)) return 0;
    const HomeCrew home(plan, state, today.year);
    const DayNumber first = calendar::day_number(today.year, 0, 1);
    const DayNumber next_year = calendar::day_number(today.year + 1, 0, 1);
    int taken = 0;
    for (const ShiftMarking& m : markings.items) {
        if (!counts(m) || m.code != kind_a::kVacation) continue;
        if (m.day < first || m.day >= next_year || m.day < state.vacation.reference_date) continue;
        if (home.works(m.day) && !is_paid_holiday(Day::from_number(m.day), m.column)) ++taken;
    }
    return taken;
}

std::string remaining_vacation_text(const ShiftMarkings& markings, const AccountState& state,
                                    const PlanContext& plan, const Day& today) {
    const int remaining = state.vacation.days - vacation_days_taken(markings, state, plan, today);
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%3d", remaining);
    return buffer;
}

AccountTexts account_texts(const ShiftMarkings& markings, const AccountState& state,
                           const PlanContext& plan, const Day& today) {
    AccountTexts texts;
    if (!keeps_accounts(plan.model)) return texts;
    const HoursBalance balance = hours_balance(markings, state, plan, today);
    texts.hours = balance.text;
    texts.hours_colour = balance.colour;
    texts.vacation = remaining_vacation_text(markings, state, plan, today);
    return texts;
}

bool start_vacation_year(const std::filesystem::path& user_dir, AccountState& state,
                         const Day& today) {
    if (!roll_into_year(state.vacation, today)) return false;
    save_vacation_file(user_dir, state.vacation);  // a file that cannot be written is not reported
    return true;
}

AccountTexts refresh_accounts(const std::filesystem::path& user_dir, const ShiftMarkings& markings,
                              AccountState& state, const PlanContext& plan, const Day& today) {
    if (!keeps_accounts(plan.model)) return {};
    start_vacation_year(user_dir, state, today);
    return account_texts(markings, state, plan, today);
}

YearlyHours yearly_hours(const PlanContext& plan, int year) {
    YearlyHours table;
    table.year = year;
    if (!keeps_accounts(plan.model)) return table;
    const bool five_crews = plan.model != 2;
    table.crews = five_crews ? 5 : 3;
    table.target = five_crews ? plan.target_hours_38 : plan.target_hours_40;
    const calendar::VacationBlock block = calendar::vacation_block(year, plan.order, plan.earliest);

    const DayNumber first = calendar::day_number(year, 0, 1);
    const DayNumber next_year = calendar::day_number(year + 1, 0, 1);
    for (DayNumber d = first; d < next_year; ++d) {
        const auto month = static_cast<std::size_t>(Day::from_number(d).month_index);
        const calendar::CrewShifts shifts = calendar::crew_shifts(plan.model, d);
        for (int c = 0; c < table.crews; ++c) {
            const calendar::ShiftCode code = shifts.code[static_cast<std::size_t>(c)];
            double hours = 0;
            if (!five_crews) {
                if (calendar::is_working(code)) hours = kTwoShiftHours;
            } else if (calendar::is_working(code) ||
                       (code == calendar::shift::kStandby && block.contains(d))) {
                hours = day_hours(d);
            }
            table.months[month][static_cast<std::size_t>(c)] += hours;
            table.sums[static_cast<std::size_t>(c)] += hours;
        }
    }
    return table;
}

YearlyHoursText yearly_hours_text(const YearlyHours& table) {
    YearlyHoursText text;
    if (table.crews <= 0) return text;
    const auto crews = static_cast<std::size_t>(std::min(table.crews, 5));
    text.headings.emplace_back("Monat");
    for (std::size_t c = 0; c < crews; ++c)
        text.headings.emplace_back(kCrewHeadings[c]);
    auto add_row = [&](std::string_view label, auto&& hours_of_crew) {
        std::vector<std::string> row{std::string(label)};
        for (std::size_t c = 0; c < crews; ++c)
            row.push_back(hours_text(hours_of_crew(c)));
        text.rows.push_back(std::move(row));
    };
    for (std::size_t m = 0; m < 12; ++m)
        add_row(calendar::kMonthNames[m], [&](std::size_t c) { return table.months[m][c]; });
    add_row("Summe", [&](std::size_t c) { return table.sums[c]; });
    add_row("Soll", [&](std::size_t) { return table.target; });
    return text;
}

}  // namespace sk::marks

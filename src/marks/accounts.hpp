// The hours and vacation accounts of the home crew, and the yearly hours of
// every crew ("Jahresstunden"). From the starting values of account_files
// on, the shift markings say what happened on each later day: work on a day
// off adds hours, a day off on a working day takes hours, vacation on a
// working day takes a vacation day. The figures are computed against the
// shift plan of the current year including its vacation block; only the
// models 0 to 5 keep accounts.
//
// Everything here is a pure function of its arguments except
// start_vacation_year and refresh_accounts, which write "Urlaubstage.dat".
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "calendar/colour.hpp"
#include "calendar/dates.hpp"
#include "calendar/vacation.hpp"
#include "marks/account_files.hpp"
#include "marks/shift_markings.hpp"

namespace sk::marks {

using calendar::Day;

// The shift plan the accounts are computed against. The vacation order and
// earliest start come from the settings but the main window can change both
// for the run (keys Y and F), so they are passed in rather than read; the
// session builds this from its own (session::plan_context). The defaults are
// those of the default settings.
struct PlanContext {
    int model = 0;
    calendar::VacationOrder order = calendar::kVacationOrder;
    calendar::VacationStart earliest{};
    float target_hours_38 = 1982.76f;  // "Sollstunden_38", five-crew models
    float target_hours_40 = 2088.0f;   // "Sollstunden_40", the other models
};

// Models 0 to 5; the other models show empty account fields.
constexpr bool keeps_accounts(int model) { return model >= 0 && model < 6; }

// Whether the day is a holiday on which the given shift (0..3, the column of
// the marking) is paid as off. By date: 1 and 6 January, 1 May, 15 August,
// 3 October, 25 and 26 December for any shift above 0; 24 and 31 December
// for the night shift; 30 April for a shift above 3. By distance from
// Easter Sunday: Good Friday, Easter Sunday and Monday, Ascension, Whit
// Sunday and Monday, Corpus Christi for any shift above 0; Holy Saturday for
// the night shift; Whit Saturday for a shift above 3. The list is the
// plant's own: 1 November, for one, is not on it.
bool is_paid_holiday(const Day& day, int shift);

// The parts of the hours balance since the start date, in decimal hours.
// Every counted day is 8 hours, 12 on a Sunday.
struct HoursChange {
    double plus = 0;         // X or L while the home crew is not working
    double free_minus = 0;   // F while it is working, no paid holiday
    double block_minus = 0;  // its vacation days in the block, when so chosen
    double total() const { return plus - free_minus - block_minus; }
};
HoursChange hours_change(const ShiftMarkings& markings, const AccountState& state,
                         const PlanContext& plan, const Day& today);

// The start value in decimal hours: 7.30 in the hours-and-minutes mode is 7.5.
double start_value_in_hours(const HoursAccount& hours);

struct HoursBalance {
    double hours = 0;         // decimal hours
    std::string text;         // 7 characters, right-aligned
    calendar::Rgb colour = calendar::kBlack;
};
inline constexpr calendar::Rgb kBalanceLowColour{160, 0, 0};   // dark red, below -40 hours
inline constexpr calendar::Rgb kBalanceHighColour{0, 160, 0};  // dark green, above 40 hours
HoursBalance hours_balance(const ShiftMarkings& markings, const AccountState& state,
                           const PlanContext& plan, const Day& today);

// Hours as every text of the program writes them, whatever the locale: two
// decimals with a decimal comma ("1982,76", "-0,50"), or in the
// hours-and-minutes mode hours and minutes ("7:30"). The value is first
// rounded, half away from zero, to hundredths or to whole minutes, so no
// text reads "-0,00" or "7:60".
std::string hours_text(double hours, int mode = hours_mode::kDecimal);

// The balance as shown: hours_text padded with leading blanks to 7
// characters ("  12,50", "  12:30").
std::string format_balance(double hours, int mode);

// On the first computation in a new year the reference date moves to
// 1 January with 0 days. True when it did; the caller writes the file.
bool roll_into_year(VacationAccount& vacation, const Day& today);

// Vacation markings (U) of this year, from the reference date on, on days
// the home crew works and that are no paid holiday for the marking.
int vacation_days_taken(const ShiftMarkings& markings, const AccountState& state,
                        const PlanContext& plan, const Day& today);
// Remaining days at the reference date less the days taken, as a whole
// number padded to 3 characters.
std::string remaining_vacation_text(const ShiftMarkings& markings, const AccountState& state,
                                    const PlanContext& plan, const Day& today);

// The two fields of the status lines; empty texts in models 6 and 7.
struct AccountTexts {
    std::string hours;
    calendar::Rgb hours_colour = calendar::kBlack;
    std::string vacation;
};
AccountTexts account_texts(const ShiftMarkings& markings, const AccountState& state,
                           const PlanContext& plan, const Day& today);

// The vacation account's reset to 1 January, written to the user's
// "Urlaubstage.dat" at once. True when the reset happened.
bool start_vacation_year(const std::filesystem::path& user_dir, AccountState& state,
                         const Day& today);
// What the page does on every redraw: the reset (models 0 to 5 only), then
// the two texts.
AccountTexts refresh_accounts(const std::filesystem::path& user_dir, const ShiftMarkings& markings,
                              AccountState& state, const PlanContext& plan, const Day& today);

// The "Jahresstunden" window: hours per month and crew for one year. The
// five-crew models count 8 hours for a working day and for a day of code 0
// inside the block span, 4 more on a Sunday; model 2 counts 8.5 hours for a
// working day of its three crews. The codes are those of the plain plan,
// without the vacation exchange (see the decisions). Models 6 and 7 have no
// table (crews == 0).
struct YearlyHours {
    int year = 0;
    int crews = 0;  // 5, 3 or 0
    std::array<std::array<double, 5>, 12> months{};  // [month index][crew]
    std::array<double, 5> sums{};                    // "Summe"
    double target = 0;                               // "Soll"
};
inline constexpr std::array<std::string_view, 5> kCrewHeadings = {"Rot", "Blau", "Gelb", "Grün",
                                                                  "Braun"};
YearlyHours yearly_hours(const PlanContext& plan, int year);

// The table as text, the same for the window and the command line: the
// heading row ("Monat" and the crews), then one row per month (its name),
// "Summe" and "Soll" (the target in every crew column). No rows when the
// model has no table.
struct YearlyHoursText {
    std::vector<std::string> headings;
    std::vector<std::vector<std::string>> rows;
};
YearlyHoursText yearly_hours_text(const YearlyHours& table);

}  // namespace sk::marks

// The two starting values of the user's accounts and their files: the hours
// account ("Minusstunden.dat") runs from a start date and value, the
// vacation account ("Urlaubstage.dat") from a reference date and a number of
// remaining days. Both files hold one little-endian record; a reader takes
// the last complete record, so a file with several records still reads, and
// a missing file leaves the values in memory as they were.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "calendar/dates.hpp"

namespace sk::marks {

using calendar::DayNumber;

// How the hours value is entered and shown.
namespace hours_mode {
inline constexpr int kDecimal = 0;       // "Std,dez": 7.5 is seven and a half hours
inline constexpr int kHoursMinutes = 1;  // "Std:Min": 7.30 is seven hours thirty minutes
}  // namespace hours_mode

inline constexpr std::array<std::string_view, 2> kHoursModeNames = {"Std,dez", "Std:Min"};
// The home crew ("Stammschicht") as the dialogs offer it, crews 0..4.
inline constexpr std::array<std::string_view, 5> kHomeCrewNames = {"rot", "blau", "gelb", "grün",
                                                                   "braun"};

inline constexpr float kMaxHours = 600.0f;  // the hours value lies in -600..600
inline constexpr int kMaxVacationDays = 60;  // the vacation days lie in -60..60

struct HoursAccount {
    DayNumber start_date = 0;
    float start_value = 0.0f;  // at the start date, in the unit of `mode`
    int mode = hours_mode::kDecimal;
    int home_crew = 0;            // 0..4, shared by both accounts
    bool block_as_minus = false;  // "Den Urlaubsblock als Minusstunden berechnen"
    friend bool operator==(const HoursAccount&, const HoursAccount&) = default;
};

struct VacationAccount {
    DayNumber reference_date = 0;  // "Resturlaub am:"
    int days = 0;                  // remaining at the reference date, -60..60
    friend bool operator==(const VacationAccount&, const VacationAccount&) = default;
};

struct AccountState {
    HoursAccount hours;
    VacationAccount vacation;
    friend bool operator==(const AccountState&, const AccountState&) = default;
};

// The dialogs' value rules: 700 hours are stored as 600, 61 days as 60. A
// value that is not a number counts as 0.
float clamp_hours_value(double value);
int clamp_vacation_days(long long days);
// The hours field's text as a number; "," is taken as the decimal point.
// nullopt unless the whole text (blanks aside) is one number.
std::optional<double> parse_hours_input(std::string_view text);

// "Minusstunden.dat", 11 bytes: start date (int32), start value (float32),
// mode, home crew, block as minus hours (one byte each).
inline constexpr std::string_view kHoursFile = "Minusstunden.dat";
inline constexpr std::size_t kHoursRecord = 11;
// "Urlaubstage.dat", 8 bytes: reference date (int32), days (int32).
inline constexpr std::string_view kVacationFile = "Urlaubstage.dat";
inline constexpr std::size_t kVacationRecord = 8;

// The last complete record of the bytes, with every value brought into the
// range the accounts work with: the value to -600..600 (not a number: 0),
// a mode other than 1 is decimal, a home crew beyond 4 is crew 0, the block
// flag is set only by 1, the days go to -60..60. nullopt without a record.
std::optional<HoursAccount> parse_hours_record(std::string_view bytes);
std::optional<VacationAccount> parse_vacation_record(std::string_view bytes);
std::string serialize_hours_record(const HoursAccount& hours);
std::string serialize_vacation_record(const VacationAccount& vacation);

// Read the user's file into `hours` / `vacation`; false, and nothing
// changed, when the file is missing or holds no complete record. Only the
// last record is read, however large the file.
bool load_hours_file(const std::filesystem::path& user_dir, HoursAccount& hours);
bool load_vacation_file(const std::filesystem::path& user_dir, VacationAccount& vacation);
// Both files into a state that starts from `start`.
AccountState load_accounts(const std::filesystem::path& user_dir, AccountState start = {});

// Write the file anew with one record, atomically.
bool save_hours_file(const std::filesystem::path& user_dir, const HoursAccount& hours);
bool save_vacation_file(const std::filesystem::path& user_dir, const VacationAccount& vacation);

}  // namespace sk::marks

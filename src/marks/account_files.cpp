#include "marks/account_files.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "marks/records.hpp"
#include "files/atomic_file.hpp"

namespace sk::marks {

float clamp_hours_value(double value) {
    if (std::isnan(value)) return 0.0f;
    return static_cast<float>(std::clamp(value, -static_cast<double>(kMaxHours),
                                         static_cast<double>(kMaxHours)));
}

int clamp_vacation_days(long long days) {
    return static_cast<int>(std::clamp<long long>(days, -kMaxVacationDays, kMaxVacationDays));
}

std::optional<double> parse_hours_input(std::string_view text) {
    while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    if (text.empty() || text.size() > 64) return std::nullopt;
    std::string number(text);
    std::replace(number.begin(), number.end(), ',', '.');
    const char* first = number.data();
    if (*first == '+') ++first;
    double value = 0;
    const auto [end, ec] =
        std::from_chars(first, number.data() + number.size(), value, std::chars_format::fixed);
    if (ec != std::errc() || end != number.data() + number.size()) return std::nullopt;
    return value;
}

std::optional<HoursAccount> parse_hours_record(std::string_view bytes) {
    const auto record = last_record(bytes, kHoursRecord);
    if (!record) return std::nullopt;
    HoursAccount hours;
    hours.start_date = get_i32(*record, 0);
    hours.start_value = clamp_hours_value(get_f32(*record, 4));
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>((*record)[at]); };
    hours.mode = byte(8) == hours_mode::kHoursMinutes ? hours_mode::kHoursMinutes : hours_mode::kDecimal;
    hours.home_crew = byte(9) < kHomeCrewNames.size() ? byte(9) : 0;
    hours.block_as_minus = byte(10) == 1;
    return hours;
}

std::optional<VacationAccount> parse_vacation_record(std::string_view bytes) {
    const auto record = last_record(bytes, kVacationRecord);
    if (!record) return std::nullopt;
    return VacationAccount{get_i32(*record, 0), clamp_vacation_days(get_i32(*record, 4))};
}

std::string serialize_hours_record(const HoursAccount& hours) {
    std::string bytes;
    put_i32(bytes, hours.start_date);
    put_f32(bytes, hours.start_value);
    put_i8(bytes, static_cast<std::int8_t>(hours.mode));
    put_i8(bytes, static_cast<std::int8_t>(hours.home_crew));
    put_i8(bytes, hours.block_as_minus ? 1 : 0);
    return bytes;
}

std::string serialize_vacation_record(const VacationAccount& vacation) {
    std::string bytes;
    put_i32(bytes, vacation.reference_date);
    put_i32(bytes, vacation.days);
    return bytes;
}

bool load_hours_file(const std::filesystem::path& user_dir, HoursAccount& hours) {
    const auto record = read_last_record(user_dir / kHoursFile, kHoursRecord);
    if (!record) return false;
    hours = *parse_hours_record(*record);
    return true;
}

bool load_vacation_file(const std::filesystem::path& user_dir, VacationAccount& vacation) {
    const auto record = read_last_record(user_dir / kVacationFile, kVacationRecord);
    if (!record) return false;
    vacation = *parse_vacation_record(*record);
    return true;
}

AccountState load_accounts(const std::filesystem::path& user_dir, AccountState start) {
    load_hours_file(user_dir, start.hours);
    load_vacation_file(user_dir, start.vacation);
    return start;
}

bool save_hours_file(const std::filesystem::path& user_dir, const HoursAccount& hours) {
    return files::write_file_atomic(user_dir / kHoursFile, serialize_hours_record(hours));
}

bool save_vacation_file(const std::filesystem::path& user_dir, const VacationAccount& vacation) {
    return files::write_file_atomic(user_dir / kVacationFile, serialize_vacation_record(vacation));
}

}  // namespace sk::marks

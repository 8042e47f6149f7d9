// Any bytes as "Minusstunden.dat" and "Urlaubstage.dat", with the rest as
// shift markings: the readers must give values in range that survive a
// write and a second read unchanged, and the accounts computed from them
// must not crash.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "marks/accounts.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace sk::marks;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t split = std::min<std::size_t>(size, 2 * kHoursRecord);
    const auto hours = parse_hours_record(bytes.substr(0, split));
    const auto vacation = parse_vacation_record(bytes);

    AccountState state;
    if (hours) {
        if (!std::isfinite(hours->start_value) || std::fabs(hours->start_value) > kMaxHours ||
            hours->mode < 0 || hours->mode > 1 || hours->home_crew < 0 || hours->home_crew > 4)
            std::abort();
        if (parse_hours_record(serialize_hours_record(*hours)) != hours) std::abort();
        state.hours = *hours;
    }
    if (vacation) {
        if (std::abs(vacation->days) > kMaxVacationDays) std::abort();
        if (parse_vacation_record(serialize_vacation_record(*vacation)) != vacation) std::abort();
        state.vacation = *vacation;
    }

    const ShiftMarkings markings = parse_shift_markings(bytes.substr(split));
    const int model = size > 0 ? data[0] % 8 : 0;
    const int day = size > 1 ? (data[1] * 97) % (sk::calendar::kLastDay + 1) : 0;
    const Day today = Day::from_number(day);
    PlanContext plan{.model = model};
    plan.order = sk::calendar::rotate_order(plan.order, size > 2 ? data[2] : 0);
    const AccountTexts texts = account_texts(markings, state, plan, today);
    if (keeps_accounts(model) && (texts.hours.size() < 7 || texts.vacation.size() < 3)) std::abort();
    (void)parse_hours_input(bytes.substr(0, std::min<std::size_t>(size, 16)));
    return 0;
}

#include "view/status_texts.hpp"

#include "astro/day_information.hpp"
#include "calendar/holidays.hpp"
#include "calendar/school_holidays.hpp"
#include "calendar/shift_model.hpp"
#include "marks/accounts.hpp"
#include "notes/notes_of_day.hpp"
#include "settings/astro_place.hpp"

namespace sk::view {

namespace {

void append_part(std::string& line, std::string_view part) {
    if (part.empty()) return;
    if (!line.empty()) line += kStatusPartSeparator;
    line += part;
}

}  // namespace

std::string day_status(const calendar::Day& day, const ProgramState& state) {
    std::string line =
        std::string(calendar::weekday_name(day.number)) + ", " + calendar::format_german_date(day);
    append_part(line, "KW " + std::to_string(calendar::week_number(day)));
    // Holidays first, then the named days of the year.
    append_part(line, calendar::statutory_fixed_holiday(day));
    append_part(line, calendar::statutory_easter_holiday(day));
    append_part(line, calendar::named_fixed_day(day));
    append_part(line, calendar::named_easter_day(day));
    append_part(line, calendar::advent_day(day));
    if (const std::string_view names = calendar::name_days(day); !names.empty())
        append_part(line, "Namenstag: " + std::string(names));
    if (calendar::is_school_holiday(day)) append_part(line, "Schulferien");
    if (state.model >= 0 && state.model < calendar::kModelCount)
        append_part(line,
                    calendar::kShiftModels[static_cast<std::size_t>(state.model)].chooser_entry);
    if (!state.block_shown && calendar::offers_block_toggle(state.model))
        append_part(line, "Urlaubsblock ausgeblendet");
    append_part(line, "Benutzer: " + std::string(state.user));
    return line;
}

std::string notes_status(const notes::NoteStore& store, const calendar::Day& day) {
    const std::string joined = notes::notes_of_day(store, day, notes::Separator::OneLine);
    std::string line;
    line.reserve(joined.size());
    for (std::size_t i = 0; i < joined.size(); ++i) {
        const char c = joined[i];
        if (c == '\r' && i + 1 < joined.size() && joined[i + 1] == '\n')
            continue;  // "\r\n" is one end
        line += (c == '\r' || c == '\n' || c == '\t') ? ' ' : c;
    }
    return line;
}

StatusTexts status_texts(session::Session& session, const calendar::Day& cursor,
                         const calendar::Day& today) {
    StatusTexts texts;
    const settings::Settings& s = session.settings;
    texts.day = day_status(cursor, {s.model, s.vacation_block_shown != 0, session.user});
    texts.notes = notes_status(session.notes, cursor);
    texts.astronomy = astro::day_information(cursor, settings::astro_place(s));
    const marks::PlanContext plan = session::plan_context(session);
    const marks::AccountTexts accounts =
        session.read_only
            ? marks::account_texts(session.shift_markings, session.accounts, plan, today)
            : marks::refresh_accounts(session.user_dir, session.shift_markings, session.accounts,
                                      plan, today);
    texts.hours = accounts.hours;
    texts.hours_colour = accounts.hours_colour;
    texts.vacation = accounts.vacation;
    return texts;
}

}  // namespace sk::view

#include "notes/notes_of_day.hpp"

#include "files/text_encoding.hpp"

namespace sk::notes {

namespace {

using calendar::Day;
using calendar::DayNumber;

std::string replace_all(std::string_view text, std::string_view from, std::string_view to,
                        bool& changed) {
    std::string out;
    out.reserve(text.size());
    std::size_t pos = 0;
    for (std::size_t hit = text.find(from); hit != std::string_view::npos;
         hit = text.find(from, pos)) {
        out.append(text, pos, hit - pos);
        out += to;
        pos = hit + from.size();
        changed = true;
    }
    out.append(text, pos);
    return out;
}

}  // namespace

bool periodic_note_applies(PeriodicKey key, DayNumber day) {
    // Truncating remainders on both sides; equal places in the repeat.
    return key.interval != 0 &&
           calendar::rem(day, key.interval) == calendar::rem(key.start, key.interval);
}

bool last_weekday_before_29th(const Day& day) {
    return day.mday < 29 && day.mday > day.month_length() - 7;
}

std::string notes_window_title(const Day& day) {
    return "Notizen für den " + calendar::format_german_date(day);
}

std::vector<PeriodicKey> periodic_notes_of_day(const NoteStore& store, DayNumber day) {
    std::vector<PeriodicKey> keys;
    for (const PeriodicKey key : store.index().periodic)
        if (periodic_note_applies(key, day)) keys.push_back(key);
    return keys;
}

int periodic_note_count(const NoteStore& store, DayNumber day) {
    int count = 0;
    for (const PeriodicKey key : store.index().periodic)
        count += periodic_note_applies(key, day) ? 1 : 0;
    return count;
}

int weekday_note_flags(const NoteStore& store, const Day& day) {
    const NoteIndex& index = store.index();
    const int weekday = day.weekday();
    const int ordinal = ordinal_in_month(day.mday);
    int flags = 0;
    if (index.has_weekday(weekday_key(day.month_index, weekday, ordinal)) ||
        index.has_weekday(weekday_key(kEveryMonth, weekday, ordinal)))
        flags |= kOwnOrdinalNote;
    if (last_weekday_before_29th(day) &&
        (index.has_weekday(weekday_key(day.month_index, weekday, kLastOrdinal)) ||
         index.has_weekday(weekday_key(kEveryMonth, weekday, kLastOrdinal))))
        flags |= kLastWeekNote;
    return flags;
}

bool day_has_notes(const NoteStore& store, const Day& day) {
    const NoteIndex& index = store.index();
    if (index.has_daily(date_key(day)) || index.has_yearly(day_key(day))) return true;
    for (const PeriodicKey key : index.periodic)
        if (periodic_note_applies(key, day.number)) return true;
    return weekday_note_flags(store, day) != 0;
}

std::string notes_of_day(const NoteStore& store, const Day& day, Separator separator) {
    return NotesPass(store).notes_of_day(day, separator);
}

const std::optional<std::string>& NotesPass::file_text(const std::string& file_name) {
    auto it = m_texts.find(file_name);
    if (it == m_texts.end()) it = m_texts.emplace(file_name, m_store.read_note(file_name)).first;
    return it->second;
}

std::string NotesPass::note(const std::string& file_name) {
    return file_text(file_name).value_or(std::string());
}

std::optional<std::string> NotesPass::weekday_note(std::int32_t key) {
    if (!m_store.index().has_weekday(key)) return std::nullopt;
    return file_text(weekday_file_name(key));
}

// The month's note for the weekday and ordinal; the every-month note stands
// in for it when there is none.
std::string NotesPass::weekday_note_or_every_month(int month_code, int weekday, int ordinal) {
    if (auto text = weekday_note(weekday_key(month_code, weekday, ordinal)))
        return std::move(*text);
    return weekday_note(weekday_key(kEveryMonth, weekday, ordinal)).value_or(std::string());
}

void NotesPass::append_weekday_notes(const Day& day, int ordinal, std::string_view separator,
                                     std::string& text) {
    const std::string month_note =
        weekday_note_or_every_month(day.month_index, day.weekday(), ordinal);
    const std::string every_month =
        weekday_note_or_every_month(kEveryMonth, day.weekday(), ordinal);
    if (!month_note.empty()) {
        text += month_note;
        text += separator;
    }
    // The every-month note may already have stood in for the month's.
    if (!every_month.empty() && every_month != month_note) {
        text += every_month;
        text += separator;
    }
}

std::string NotesPass::notes_of_day(const Day& day, Separator separator) {
    const std::string_view sep = separator_text(separator);
    const NoteIndex& index = m_store.index();
    std::string text;
    if (index.has_daily(date_key(day))) {
        text += note(daily_file_name(date_key(day)));
        text += sep;
    }
    for (const PeriodicKey key : index.periodic) {
        if (!periodic_note_applies(key, day.number)) continue;
        text += note(periodic_file_name(key));
        text += sep;
    }
    if (index.has_yearly(day_key(day))) {
        text += apply_year_placeholder(note(yearly_file_name(day_key(day))), day.year);
        text += sep;
    }
    append_weekday_notes(day, ordinal_in_month(day.mday), sep, text);
    if (weekday_note_flags(m_store, day) & kLastWeekNote)
        append_weekday_notes(day, kLastOrdinal, sep, text);
    if (text.ends_with(sep)) text.resize(text.size() - sep.size());
    return text;
}

std::string apply_year_placeholder(std::string text, int year) {
    for (;;) {
        const std::size_t open = text.find('<');
        if (open == std::string::npos) return text;
        const std::size_t close = text.find('>', open + 1);
        if (close == std::string::npos) return text;
        const std::string_view inside = std::string_view(text).substr(open + 1, close - open - 1);
        // Characters, not bytes: the text is UTF-8 and the rule counts characters.
        const std::size_t length = files::utf8_length(inside);
        if (length == 0 || length >= 5) return text;
        const std::int32_t number = numeric_value(inside).value_or(0);  // at most 4 digits
        if (number == 0) return text;
        bool changed = false;
        text = replace_all(text, "<" + std::to_string(number) + ">", std::to_string(year - number),
                           changed);
        if (!changed) return text;
    }
}

std::string notes_overview(const NoteStore& store, DayNumber first_shown, DayNumber last_shown,
                           const Day& today) {
    const Day first_month = Day::from_number(first_shown);
    const Day last_month = Day::from_number(last_shown);
    const DayNumber from = calendar::day_number(first_month.year, first_month.month_index, 1);
    const DayNumber to =
        calendar::day_number(last_month.year, last_month.month_index, last_month.month_length());

    NotesPass pass(store);
    std::string text;
    for (DayNumber d = from; d <= to; ++d) {
        const Day day = Day::from_number(d);
        if (d == today.number && !text.empty()) text += kOverviewDivider;
        const std::string notes = pass.notes_of_day(day, Separator::MultiLine);
        if (notes.empty()) continue;
        if (!text.empty()) text += "\r\n \r\n";
        text += calendar::format_german_date(day);
        text += "\r\n";
        text += notes;
    }
    // Within a day's block the notes follow each other line by line; the
    // blocks stay apart because their separating line holds a space.
    for (bool changed = true; changed;) {
        changed = false;
        text = replace_all(text, "\r\n\r\n", "\r\n", changed);
    }
    return text;
}

}  // namespace sk::notes

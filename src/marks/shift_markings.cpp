#include "marks/shift_markings.hpp"

#include <algorithm>
#include <array>

#include "calendar/shift_model.hpp"
#include "files/atomic_file.hpp"
#include "marks/records.hpp"

namespace sk::marks {

namespace {

constexpr std::array<std::string_view, 7> kKindALabels = {
    "Arbeitseinsatz (X)", "Freizeit", "Urlaub", "Lehrgang", "Krank",
    "Ausfallbezahlung, kurzer Wechsel", "Schichtmarkierung löschen (Entf)"};
constexpr std::array<std::string_view, 9> kKindBLabels = {
    "Früh", "Spät", "Nacht", "Freizeit", "Urlaub", "Lehrgang", "Krank",
    "Ausfallbezahlung, kurzer Wechsel", "Schichtmarkierung löschen (Entf)"};

constexpr std::array<std::string_view, 6> kKindALetters = {"X", "F", "U", "L", "K", "A"};
constexpr std::array<std::string_view, 8> kKindBLetters = {"Fr", "Sp", "Na", "F",
                                                           "U",  "L",  "K",  "A"};

constexpr std::array<std::string_view, 4> kKindAHeadings = {" Verfügung", " Frühschicht",
                                                            " Spätschicht", " Nachtschicht"};
constexpr std::array<std::string_view, 4> kKindBHeadings = {" Schicht A", " Schicht B",
                                                            " Schicht C", " Schicht D"};

// The chooser's labels of the columns 1..4.
constexpr std::array<std::string_view, 4> kKindAColumns = {"Frühschicht", "Spätschicht",
                                                           "Nachtschicht", "Verfügung"};
constexpr std::array<std::string_view, 4> kKindBColumns = {"Schicht A", "Schicht B", "Schicht C",
                                                           "Schicht D"};

bool by_day(const ShiftMarking& a, const ShiftMarking& b) { return a.day < b.day; }

std::vector<ShiftMarking>::iterator first_of_day(std::vector<ShiftMarking>& items, DayNumber day) {
    return std::lower_bound(items.begin(), items.end(), ShiftMarking{day, 0, 0}, by_day);
}

}  // namespace

std::span<const std::string_view> code_labels(MarkingKind kind) {
    if (kind == MarkingKind::A) return kKindALabels;
    return kKindBLabels;
}

std::string_view code_letter(MarkingKind kind, int code) {
    const std::span<const std::string_view> letters =
        kind == MarkingKind::A ? std::span<const std::string_view>(kKindALetters)
                               : std::span<const std::string_view>(kKindBLetters);
    if (code < 0 || static_cast<std::size_t>(code) >= letters.size()) return "?";
    return letters[static_cast<std::size_t>(code)];
}

std::string_view heading_label(int model, int column) {
    if (marking_kind(model) == MarkingKind::A) {
        if (column < 1 || column > 4) return {};
        return kKindAHeadings[static_cast<std::size_t>(column % 4)];
    }
    if (column < 1 || column > 4) return {};
    return kKindBHeadings[static_cast<std::size_t>(column - 1)];
}

std::string dialog_heading(int model, int column, const Day& day) {
    std::string text(heading_label(model, column));
    text += " am ";
    text += calendar::format_german_date(day);
    return text;
}

std::optional<int> dialog_key_code(char32_t key) {
    if (key == kDeleteKey) return kind_a::kRemove;
    constexpr std::u32string_view kKeys = U"XFULKA";
    if (key >= U'a' && key <= U'z') key = key - U'a' + U'A';
    const auto at = kKeys.find(key);
    if (at == std::u32string_view::npos) return std::nullopt;
    return static_cast<int>(at);
}

int column_shift(int model, DayNumber d, int column) {
    if (!calendar::is_valid_model(model) || column < 1 || column > 4) return -1;
    if (marking_kind(model) == MarkingKind::A) return column == 4 ? 0 : column;
    return calendar::crew_shifts(model, d).code[static_cast<std::size_t>(column - 1)];
}

MarkRefusal mark_refusal(int model, const Day& day, int column) {
    if (!calendar::kCalendarDays.contains(day.number)) return MarkRefusal::OutsideCalendar;
    const int s = column_shift(model, day.number, column);
    if (s < 0) return MarkRefusal::NoSuchColumn;
    if (model == 2) return s >= 1 && s <= 3 ? MarkRefusal::None : MarkRefusal::Standby;
    if (s == 0) return MarkRefusal::Standby;
    if (marking_kind(model) == MarkingKind::A && day.is_sunday() && s == calendar::shift::kNight)
        return MarkRefusal::SundayNight;
    return MarkRefusal::None;
}

bool may_mark_day(int model, const Day& day, int column) {
    return mark_refusal(model, day, column) == MarkRefusal::None;
}

std::string refusal_message(MarkRefusal refusal, int model, const Day& day, int column) {
    const std::string date = calendar::format_german_date(day);
    switch (refusal) {
        case MarkRefusal::None:
            return {};
        case MarkRefusal::OutsideCalendar:
            return "Der " + date + " liegt außerhalb des Kalenders (" +
                   calendar::format_german_date(Day::from_number(calendar::kFirstDay)) + " bis " +
                   calendar::format_german_date(Day::from_number(calendar::kLastDay)) +
                   ") und kann nicht markiert werden.";
        case MarkRefusal::NoSuchColumn:
            return "Die Schichtspalte " + std::to_string(column) +
                   " gibt es nicht; markiert werden die Spalten 1 bis 4.";
        case MarkRefusal::Standby:
            if (marking_kind(model) == MarkingKind::A)
                return "Die Verfügung kann nicht markiert werden, nur die Früh-, "
                       "Spät- und Nachtschicht (Tasten 1, 2 und 3).";
            return std::string(heading_label(model, column).substr(1)) + " hat am " + date +
                   " Verfügungswoche und kann an diesem Tag nicht markiert werden.";
        case MarkRefusal::SundayNight:
            return "Der " + date +
                   " ist ein Sonntag: an einem Sonntag kann die Nachtschicht nicht markiert "
                   "werden.";
    }
    return {};
}

std::span<const std::string_view> column_labels(MarkingKind kind) {
    if (kind == MarkingKind::A) return kKindAColumns;
    return kKindBColumns;
}

std::optional<int> preselected_code(MarkingKind kind, const ShiftMarking* marking) {
    if (!marking || marking->code < 0 || marking->code >= remove_code(kind)) return std::nullopt;
    return marking->code;
}

const ShiftMarking* shift_marking_of_day(const ShiftMarkings& markings, DayNumber day) {
    const auto it = std::lower_bound(markings.items.begin(), markings.items.end(),
                                     ShiftMarking{day, 0, 0}, by_day);
    if (it == markings.items.end() || it->day != day) return nullptr;
    return &*it;
}

bool apply_marking(ShiftMarkings& markings, DayNumber day, int column, int code, int model) {
    auto& items = markings.items;
    const auto it = first_of_day(items, day);
    const bool found = it != items.end() && it->day == day;
    if (code == remove_code(marking_kind(model))) {
        if (!found) return false;
        items.erase(it);
    } else {
        const ShiftMarking marking{day, static_cast<std::int8_t>(column),
                                   static_cast<std::int8_t>(code)};
        if (found) {
            if (*it == marking) return false;
            *it = marking;
        } else {
            items.insert(it, marking);
        }
    }
    markings.changed = true;
    return true;
}

std::size_t erase_shift_markings_up_to(ShiftMarkings& markings, DayNumber day) {
    auto& items = markings.items;
    const auto end = std::upper_bound(items.begin(), items.end(), ShiftMarking{day, 0, 0}, by_day);
    const auto count = static_cast<std::size_t>(end - items.begin());
    items.erase(items.begin(), end);
    if (count > 0) markings.changed = true;
    return count;
}

ShiftMarkings parse_shift_markings(std::string_view bytes) {
    ShiftMarkings markings;
    const std::size_t count = std::min(bytes.size() / kShiftMarkingRecord, kMaxShiftMarkings);
    markings.items.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = i * kShiftMarkingRecord;
        markings.items.push_back(
            {get_i32(bytes, at), get_i8(bytes, at + 4), get_i8(bytes, at + 5)});
    }
    // Files of this program are sorted already; a foreign one is brought into
    // order so that lookups can search, keeping equal days in file order.
    std::stable_sort(markings.items.begin(), markings.items.end(), by_day);
    return markings;
}

std::string serialize_shift_markings(const ShiftMarkings& markings) {
    std::string bytes;
    bytes.reserve(markings.items.size() * kShiftMarkingRecord);
    DayNumber last_written = 0;  // day 0 is never written, so it doubles as "none yet"
    for (const ShiftMarking& m : markings.items) {
        if (m.day == 0 || m.day == last_written) continue;
        put_i32(bytes, m.day);
        put_i8(bytes, m.column);
        put_i8(bytes, m.code);
        last_written = m.day;
    }
    return bytes;
}

ShiftMarkings load_shift_markings(const std::filesystem::path& user_dir) {
    const auto bytes =
        files::read_file(user_dir / kShiftMarkingsFile, kMaxShiftMarkings * kShiftMarkingRecord);
    if (!bytes) return {};
    return parse_shift_markings(*bytes);
}

bool save_shift_markings(const std::filesystem::path& user_dir, ShiftMarkings& markings) {
    if (!write_or_remove(user_dir / kShiftMarkingsFile, serialize_shift_markings(markings)))
        return false;
    markings.changed = false;
    return true;
}

bool delete_shift_markings_up_to(const std::filesystem::path& user_dir, ShiftMarkings& markings,
                                 DayNumber day) {
    erase_shift_markings_up_to(markings, day);
    return save_shift_markings(user_dir, markings);
}

}  // namespace sk::marks

#include "notes/note_keys.hpp"

#include <algorithm>
#include <limits>

namespace sk::notes {

namespace {

constexpr std::size_t kExtensionLength = 4;  // ".txt", ".tnt", ".jnt", ".wmt"
// Daily and yearly keys come from this much of the name.
constexpr std::size_t kKeyPrefixLength = 8;

bool has_extension(std::string_view name, NoteKind kind) {
    return name.size() >= kExtensionLength &&
           name.substr(name.size() - kExtensionLength) == extension(kind);
}

std::string_view without_extension(std::string_view name) {
    return name.substr(0, name.size() - kExtensionLength);
}

std::optional<std::int32_t> key_in_range(std::string_view name, NoteKind kind, std::int32_t first,
                                         std::int32_t last) {
    if (!has_extension(name, kind)) return std::nullopt;
    const auto key = numeric_value(name.substr(0, kKeyPrefixLength));
    if (!key || *key < first || *key > last) return std::nullopt;
    return key;
}

bool contains(const std::vector<std::int32_t>& sorted, std::int32_t key) {
    return std::binary_search(sorted.begin(), sorted.end(), key);
}

}  // namespace

std::string daily_file_name(std::int32_t date_key) {
    return std::to_string(date_key) + ".txt";
}

std::string periodic_file_name(PeriodicKey key) {
    return std::to_string(key.start) + '.' + std::to_string(key.interval) + ".tnt";
}

std::string yearly_file_name(std::int32_t day_key) {
    return std::to_string(day_key) + ".jnt";
}

std::string weekday_file_name(std::int32_t key) {
    return std::to_string(key) + ".wmt";
}

std::optional<std::int32_t> numeric_value(std::string_view text) {
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        value = value * 10 + (c - '0');
        if (value > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    }
    return static_cast<std::int32_t>(value);
}

std::optional<NoteKind> kind_of_name(std::string_view name) {
    if (name.empty() || name.front() == '.') return std::nullopt;
    for (const NoteKind kind : kNoteKinds)
        if (has_extension(name, kind)) return kind;
    return std::nullopt;
}

std::optional<std::int32_t> daily_key_of_name(std::string_view name) {
    return key_in_range(name, NoteKind::Daily, kFirstDailyKey, kLastDailyKey);
}

std::optional<std::int32_t> yearly_key_of_name(std::string_view name) {
    return key_in_range(name, NoteKind::Yearly, kFirstYearlyKey, kLastYearlyKey);
}

std::optional<PeriodicKey> periodic_key_of_name(std::string_view name) {
    if (!has_extension(name, NoteKind::Periodic)) return std::nullopt;
    // The first point splits start and interval; for "19797.tnt" it is the
    // extension's own point and the interval part is empty, so 0.
    const std::size_t point = name.find('.');
    const std::string_view base = without_extension(name);
    const auto start = numeric_value(name.substr(0, point));
    const auto interval =
        numeric_value(point < base.size() ? base.substr(point + 1) : std::string_view());
    if (!start || !interval || *interval <= 0) return std::nullopt;
    return PeriodicKey{*start, *interval};
}

std::optional<std::int32_t> weekday_key_of_name(std::string_view name) {
    if (!has_extension(name, NoteKind::Weekday)) return std::nullopt;
    return numeric_value(without_extension(name));
}

bool NoteIndex::has_daily(std::int32_t date_key) const {
    return contains(daily, date_key);
}
bool NoteIndex::has_yearly(std::int32_t day_key) const {
    return contains(yearly, day_key);
}
bool NoteIndex::has_weekday(std::int32_t key) const {
    return contains(weekday, key);
}

void NoteIndex::clear(NoteKind kind) {
    switch (kind) {
        case NoteKind::Daily:
            daily.clear();
            break;
        case NoteKind::Periodic:
            periodic.clear();
            break;
        case NoteKind::Yearly:
            yearly.clear();
            break;
        case NoteKind::Weekday:
            weekday.clear();
            break;
    }
}

bool NoteIndex::admit(std::string_view name, std::optional<NoteKind> only) {
    const auto kind = kind_of_name(name);
    if (!kind || (only && *only != *kind)) return false;
    switch (*kind) {
        case NoteKind::Daily:
            if (const auto key = daily_key_of_name(name)) return daily.push_back(*key), true;
            break;
        case NoteKind::Periodic:
            if (const auto key = periodic_key_of_name(name)) return periodic.push_back(*key), true;
            break;
        case NoteKind::Yearly:
            if (const auto key = yearly_key_of_name(name)) return yearly.push_back(*key), true;
            break;
        case NoteKind::Weekday:
            if (const auto key = weekday_key_of_name(name)) return weekday.push_back(*key), true;
            break;
    }
    return false;
}

void NoteIndex::finish(NoteKind kind) {
    switch (kind) {
        case NoteKind::Daily:
            std::sort(daily.begin(), daily.end());
            break;
        case NoteKind::Periodic:
            break;  // listing order is the joining order
        case NoteKind::Yearly:
            std::sort(yearly.begin(), yearly.end());
            break;
        case NoteKind::Weekday:
            std::sort(weekday.begin(), weekday.end());
            break;
    }
}

}  // namespace sk::notes

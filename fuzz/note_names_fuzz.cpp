// Any bytes as the names of a directory listing ("/" and NUL end a name, as
// no file name can hold them): the scan must take only names that fit their
// kind, with keys in range, and the file name written for a taken key must
// be read back as the same key.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "notes/note_keys.hpp"

namespace {

void check(bool condition) {
    if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace sk::notes;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    NoteIndex index;
    std::size_t begin = 0;
    while (begin <= bytes.size()) {
        std::size_t end = bytes.find_first_of(std::string_view("/\0", 2), begin);
        if (end == std::string_view::npos) end = bytes.size();
        const std::string_view name = bytes.substr(begin, end - begin);
        const bool taken = index.admit(name);
        check(!taken || kind_of_name(name).has_value());
        begin = end + 1;
    }
    for (const NoteKind kind : kNoteKinds)
        index.finish(kind);

    check(std::is_sorted(index.daily.begin(), index.daily.end()));
    check(std::is_sorted(index.yearly.begin(), index.yearly.end()));
    check(std::is_sorted(index.weekday.begin(), index.weekday.end()));
    for (const auto key : index.daily) {
        check(key >= kFirstDailyKey && key <= kLastDailyKey);
        check(daily_key_of_name(daily_file_name(key)) == key);
    }
    for (const auto key : index.yearly) {
        check(key >= kFirstYearlyKey && key <= kLastYearlyKey);
        check(yearly_key_of_name(yearly_file_name(key)) == key);
    }
    for (const auto key : index.periodic) {
        check(key.start >= 0 && key.interval > 0);
        check(periodic_key_of_name(periodic_file_name(key)) == key);
    }
    for (const auto key : index.weekday) {
        check(key >= 0);
        check(weekday_key_of_name(weekday_file_name(key)) == key);
    }
    return 0;
}

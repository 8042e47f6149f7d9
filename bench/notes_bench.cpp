// Speed of the notes: the directory scan at start-up and after every write,
// and the joined notes of every day of the widest page.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "calendar/dates.hpp"
#include "notes/note_cipher.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"
#include "notes/notes_of_day.hpp"

namespace {

using namespace sk;
using calendar::Day;
using calendar::DayNumber;

const std::string kPassword = "Schl\xFCssel";

// A directory under /tmp, filled once per run and removed at exit.
class BenchDir {
public:
    explicit BenchDir(void (*fill)(const BenchDir&)) {
        char name[] = "/tmp/sk-notes-bench-XXXXXX";
        m_path = ::mkdtemp(name);
        fill(*this);
    }
    ~BenchDir() {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    BenchDir(const BenchDir&) = delete;
    BenchDir& operator=(const BenchDir&) = delete;
    const std::filesystem::path& path() const { return m_path; }
    void put(const std::string& file, std::string_view bytes) const {
        std::ofstream(m_path / file, std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }

private:
    std::filesystem::path m_path;
};

// 10,000 files of each kind. Daily and periodic names are all distinct
// notes; yearly and weekday keys allow only 366 and 455 distinct notes, so
// the rest carry a suffix that the scan reads past ("215_1234.jnt" is 215).
const BenchDir& crowded_directory() {
    static const BenchDir dir([](const BenchDir& d) {
        const DayNumber first = calendar::day_number(1990, 0, 1);
        for (int i = 0; i < 10000; ++i) {
            const Day day = Day::from_number(first + i);
            d.put(notes::daily_file_name(notes::date_key(day)), "x");
            d.put(notes::periodic_file_name({first + i, 1 + i % 365}), "x");
            d.put(std::to_string(notes::day_key(day)) + "_" + std::to_string(i) + ".jnt", "x");
            d.put(std::to_string(notes::weekday_key(i % 13, i / 13 % 7, i / 91 % 5)) + "_" +
                      std::to_string(i) + ".wmt",
                  "x");
        }
    });
    return dir;
}

void BM_ScanAllKinds(benchmark::State& state) {
    notes::NoteStore store(crowded_directory().path(), "");
    for (auto _ : state) {
        store.scan_all();
        benchmark::DoNotOptimize(store.index().daily.data());
    }
    state.counters["files"] =
        static_cast<double>(store.index().daily.size() + store.index().periodic.size() +
                            store.index().yearly.size() + store.index().weekday.size());
}
BENCHMARK(BM_ScanAllKinds)->Unit(benchmark::kMillisecond);

// The four scans one after the other, one listing each, as a change of user does.
void BM_ScanEachKind(benchmark::State& state) {
    notes::NoteStore store(crowded_directory().path(), "");
    for (auto _ : state) {
        for (const notes::NoteKind kind : notes::kNoteKinds)
            store.scan(kind);
        benchmark::DoNotOptimize(store.index().daily.data());
    }
}
BENCHMARK(BM_ScanEachKind)->Unit(benchmark::kMillisecond);

// The widest page: 23 months from January 2024 (700 days).
constexpr int kPageMonths = 23;
const DayNumber kPageFirst = calendar::day_number(2024, 0, 1);
const DayNumber kPageLast = calendar::day_number(2025, 10, 30);

std::string note_text(int i) {
    return "Notiz " + std::to_string(i) + ": Termin beim Arzt, danach Einkauf für das Wochenende.";
}

void put_note(const BenchDir& d, const std::string& file, int& n) {
    d.put(file, notes::encipher_note(note_text(n++), kPassword));
}

// 1,000 enciphered notes of a user who has kept them for twenty years: 880
// daily notes one every 8 days from 2016 to 2035 (88 on the page), 40
// periodic notes repeating every 7 to 365 days, 40 yearly and 40
// weekday-in-month notes.
void fill_spread(const BenchDir& d) {
    int n = 0;
    const DayNumber from = calendar::day_number(2016, 0, 1);
    for (int i = 0; i < 880; ++i)
        put_note(d, notes::daily_file_name(notes::date_key(Day::from_number(from + i * 8))), n);
    for (int i = 0; i < 40; ++i)
        put_note(d, notes::periodic_file_name({from + i * 37, 7 + i * 358 / 39}), n);
    for (int i = 0; i < 40; ++i)
        put_note(d, notes::yearly_file_name(notes::day_key(Day::from_number(from + i * 9))), n);
    for (int i = 0; i < 40; ++i)
        put_note(d, notes::weekday_file_name(notes::weekday_key(i % 13, i % 7, i / 7 % 5)), n);
}

// The worst case: all 1,000 notes on the page. 600 daily notes on 600 of its
// 700 days, 200 periodic notes repeating every 7 to 365 days, 100 yearly and
// 100 weekday-in-month notes.
void fill_on_page(const BenchDir& d) {
    int n = 0;
    for (int i = 0; i < 600; ++i)
        put_note(d,
                 notes::daily_file_name(notes::date_key(Day::from_number(kPageFirst + i * 7 / 6))),
                 n);
    for (int i = 0; i < 200; ++i)
        put_note(d, notes::periodic_file_name({kPageFirst + i * 3, 7 + i * 358 / 199}), n);
    for (int i = 0; i < 100; ++i)
        put_note(d,
                 notes::yearly_file_name(notes::day_key(Day::from_number(kPageFirst + i * 11 / 3))),
                 n);
    for (int i = 0; i < 100; ++i)
        put_note(d, notes::weekday_file_name(notes::weekday_key(i % 13, i % 7, i / 7 % 5)), n);
}

// Argument 0: the spread notes, 1: the worst case.
const BenchDir& page_directory(std::int64_t which) {
    static_assert(kPageMonths == 23);
    static const BenchDir spread(fill_spread);
    static const BenchDir on_page(fill_on_page);
    return which == 0 ? spread : on_page;
}

// One pass over the page, as the overview makes it: every note file read once.
void BM_NotesOfEveryDayOfThePage(benchmark::State& state) {
    notes::NoteStore store(page_directory(state.range(0)).path(), kPassword);
    store.scan_all();
    std::size_t bytes = 0;
    int days_with_notes = 0;
    for (auto _ : state) {
        bytes = 0;
        days_with_notes = 0;
        notes::NotesPass pass(store);
        for (DayNumber d = kPageFirst; d <= kPageLast; ++d) {
            const Day day = Day::from_number(d);
            days_with_notes += notes::day_has_notes(store, day) ? 1 : 0;
            bytes += pass.notes_of_day(day, notes::Separator::OneLine).size();
        }
        benchmark::DoNotOptimize(bytes);
    }
    state.counters["days"] = kPageLast - kPageFirst + 1;
    state.counters["days_with_notes"] = days_with_notes;
    state.counters["text_bytes"] = static_cast<double>(bytes);
}
BENCHMARK(BM_NotesOfEveryDayOfThePage)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The same days one call each, as the status line asks for one day: every
// call reads its files afresh.
void BM_NotesOfEachDayAfresh(benchmark::State& state) {
    notes::NoteStore store(page_directory(state.range(0)).path(), kPassword);
    store.scan_all();
    for (auto _ : state) {
        std::size_t bytes = 0;
        for (DayNumber d = kPageFirst; d <= kPageLast; ++d)
            bytes +=
                notes::notes_of_day(store, Day::from_number(d), notes::Separator::OneLine).size();
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(BM_NotesOfEachDayAfresh)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The page's highlight alone, from the indexes.
void BM_HighlightOfThePage(benchmark::State& state) {
    notes::NoteStore store(page_directory(state.range(0)).path(), kPassword);
    store.scan_all();
    for (auto _ : state) {
        int count = 0;
        for (DayNumber d = kPageFirst; d <= kPageLast; ++d)
            count += notes::day_has_notes(store, Day::from_number(d)) ? 1 : 0;
        benchmark::DoNotOptimize(count);
    }
}
BENCHMARK(BM_HighlightOfThePage)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

}  // namespace

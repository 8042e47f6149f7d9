// Speed of the exports: a whole year of one crew as an iCalendar file with
// shift times and notes, read from a directory of 1,000 enciphered notes
// (target: under 100 ms, the directory scan included), and the same year
// without notes, as CSV and as the next shifts.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "export/csv_export.hpp"
#include "export/ical_export.hpp"
#include "export/next_shifts.hpp"
#include "notes/note_cipher.hpp"
#include "notes/note_keys.hpp"
#include "notes/note_store.hpp"

namespace {

using namespace sk;
using calendar::Day;
using calendar::DayNumber;

const std::string kPassword = "Schl\xFCssel";
const DayNumber kYearFirst = calendar::day_number(2024, 0, 1);
const DayNumber kYearLast = calendar::day_number(2024, 11, 31);

// 1,000 enciphered notes, most of them in the exported year: 300 daily notes
// in 2024 and 400 in the years around it, 200 periodic notes repeating every
// 7 to 365 days, 50 yearly and 50 weekday-in-month notes. Removed at exit.
class NoteDirectory {
  public:
    NoteDirectory() {
        char name[] = "/tmp/sk-export-bench-XXXXXX";
        m_path = ::mkdtemp(name);
        int n = 0;
        for (int i = 0; i < 300; ++i)
            put(notes::daily_file_name(
                    notes::date_key(Day::from_number(kYearFirst + i * 366 / 300))),
                n);
        for (int i = 0; i < 400; ++i)
            put(notes::daily_file_name(notes::date_key(Day::from_number(kYearLast + 1 + i * 3))),
                n);
        for (int i = 0; i < 200; ++i)
            put(notes::periodic_file_name({kYearFirst + i * 5, 7 + i * 358 / 199}), n);
        for (int i = 0; i < 50; ++i)
            put(notes::yearly_file_name(notes::day_key(Day::from_number(kYearFirst + i * 7))), n);
        for (int i = 0; i < 50; ++i)
            put(notes::weekday_file_name(notes::weekday_key(i % 13, i % 7, i / 7 % 5)), n);
    }
    ~NoteDirectory() {
        std::error_code ec;
        std::filesystem::remove_all(m_path, ec);
    }
    const std::filesystem::path& path() const { return m_path; }

  private:
    // ISO-8859-15 text with umlauts and two lines, about 120 characters.
    void put(const std::string& file, int& n) {
        const std::string text = "Notiz " + std::to_string(n++) +
                                 ": \xDC"
                                 "bergabe an die Fr\xFChschicht, \xD6l pr\xFC"
                                 "fen;\r\n"
                                 "danach Einkauf f\xFCr das Wochenende und Gr\xFC\xDF"
                                 "e an alle.";
        std::ofstream(m_path / file, std::ios::binary) << notes::encipher_note(text, kPassword);
    }
    std::filesystem::path m_path;
};

const NoteDirectory& note_directory() {
    static const NoteDirectory dir;
    return dir;
}

exporting::IcsOptions year_of_crew(bool notes) {
    return {0, Day::from_number(kYearFirst), Day::from_number(kYearLast), true, notes, 0};
}

// What "ics --times --with-notes" does after the arguments: scan the notes,
// then build and serialise the calendar.
void BM_IcsYearWithTimesAndNotes(benchmark::State& state) {
    const marks::ShiftMarkings markings;
    const std::filesystem::path& directory = note_directory().path();  // made before timing
    std::size_t bytes = 0;
    for (auto _ : state) {
        notes::NoteStore store(directory, kPassword);
        store.scan_all();
        const exporting::ExportSource source{
            {1, true, calendar::kVacationOrder, {}}, &markings, &store};
        bytes = exporting::ics_text(source, year_of_crew(true)).text.size();
        benchmark::DoNotOptimize(bytes);
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(BM_IcsYearWithTimesAndNotes)->Unit(benchmark::kMillisecond);

void BM_IcsYearWithTimes(benchmark::State& state) {
    const exporting::ExportSource source{{1, true, calendar::kVacationOrder, {}}, nullptr, nullptr};
    for (auto _ : state)
        benchmark::DoNotOptimize(exporting::ics_text(source, year_of_crew(false)).text.size());
}
BENCHMARK(BM_IcsYearWithTimes)->Unit(benchmark::kMillisecond);

void BM_CsvYear(benchmark::State& state) {
    const exporting::ExportSource source{{1, true, calendar::kVacationOrder, {}}, nullptr, nullptr};
    for (auto _ : state)
        benchmark::DoNotOptimize(
            exporting::csv_text(source, {Day::from_number(kYearFirst), Day::from_number(kYearLast)})
                .text.size());
}
BENCHMARK(BM_CsvYear)->Unit(benchmark::kMillisecond);

void BM_NextSevenAsJson(benchmark::State& state) {
    const exporting::ExportSource source{{1, true, calendar::kVacationOrder, {}}, nullptr, nullptr};
    for (auto _ : state)
        benchmark::DoNotOptimize(
            exporting::next_json(exporting::next_duties(source, 0, kYearFirst + 140, 7))
                .text.size());
}
BENCHMARK(BM_NextSevenAsJson)->Unit(benchmark::kMicrosecond);

}  // namespace

// Speed of the note editors: from the key until the editor is on the screen
// with the day's note in its text field, for a user with 10,000 enciphered
// notes (9,000 daily notes over thirty years, a yearly note on every day of
// the year, 500 periodic and 134 weekday-in-month notes). The editors open on
// a day that has notes of every kind, several periodic and weekday notes
// among them. Needs a display:
//   tools/with-xvfb.sh build/test/bench/note_editor_bench
#include <benchmark/benchmark.h>
#include <gtkmm.h>
#include <stdlib.h>

#include <filesystem>
#include <memory>
#include <random>
#include <string>

#include "app/daily_note_dialog.hpp"
#include "app/periodic_note_dialog.hpp"
#include "app/weekday_note_dialog.hpp"
#include "app/yearly_note_dialog.hpp"
#include "files/atomic_file.hpp"
#include "files/text_encoding.hpp"
#include "notes/note_cipher.hpp"
#include "notes/note_keys.hpp"
#include "notes/notes_of_day.hpp"

namespace {

using namespace sk;
using calendar::Day;
using calendar::DayNumber;

const std::string kPassword = "Schl\xFCssel";
// Friday 29 March 2024, the last Friday of its month.
const Day kDay = Day::from_date(2024, 2, 29);

struct Fixture {
    std::filesystem::path dir;
    notes::NoteStore store;
    Gtk::Window parent;
    view::CellSize cell{8, 16};

    Fixture() {
        char name[] = "/tmp/sk-editor-bench-XXXXXX";
        dir = ::mkdtemp(name);
        fill();
        store = notes::NoteStore(dir, kPassword);
        store.scan_all();
        parent.set_default_size(800, 600);
        parent.show();
        while (!parent.get_mapped())
            Glib::MainContext::get_default()->iteration(true);
    }
    ~Fixture() {
        std::error_code ec;
        std::filesystem::remove_all(dir, ec);
    }

    void put(const std::string& file, const std::string& text) const {
        files::write_file_atomic(dir / file,
                                 notes::encipher_note(*files::utf8_to_latin9(text), kPassword));
    }

    void fill() const {
        std::mt19937 random(11);
        const std::string text =
            "Termin beim Zahnarzt um 10 Uhr, danach Einkauf: Brot, Käse, Äpfel.\r\n"
            "Nicht vergessen: 25 € für die Klassenkasse mitgeben.";
        std::uniform_int_distribution<DayNumber> day(Day::from_date(2000, 0, 1).number,
                                                     Day::from_date(2030, 0, 1).number);
        int daily = 0;
        put(notes::daily_file_name(notes::date_key(kDay)), text);
        while (daily < 8999)
            if (const DayNumber d = day(random); d != kDay.number) {
                const std::string name =
                    notes::daily_file_name(notes::date_key(Day::from_number(d)));
                if (std::filesystem::exists(dir / name)) continue;
                put(name, text);
                ++daily;
            }
        for (int m = 0; m < 12; ++m)
            for (int d = 1; d <= calendar::month_length(2024, m); ++d)
                put(notes::yearly_file_name(m * 100 + d), "<1980>. Geburtstag von Jörg");
        // Three periodic notes meet the day; the other 497 mostly do not.
        for (int i = 0; i < 500; ++i) {
            const std::int32_t interval =
                i < 3 ? 7 * (i + 1) : 2 + static_cast<int>(random() % 360);
            const DayNumber start = i < 3 ? kDay.number - 7 * (i + 1) * 3 : day(random);
            put(notes::periodic_file_name({start, interval}), "Papiertonne " + std::to_string(i));
        }
        int weekday = 0;
        for (int m = 0; m <= notes::kEveryMonth && weekday < 134; ++m)
            for (int w = 0; w < 7 && weekday < 134; ++w)
                for (int o = 0; o <= notes::kLastOrdinal && weekday < 134; o += 2, ++weekday)
                    put(notes::weekday_file_name(notes::weekday_key(m, w, o)), "Stammtisch");
        put(notes::weekday_file_name(11254), "Monatsabschluss");
        put(notes::weekday_file_name(10254), "Inventur");
    }
};

Fixture& fixture() {
    static bool ready = [] {
        if (!gtk_init_check(nullptr, nullptr)) return false;
        Gtk::Main::init_gtkmm_internals();
        return true;
    }();
    if (!ready) std::abort();
    static Fixture f;
    return f;
}

// Builds the editor, shows it and runs the main loop until its text field
// has been drawn; closing it is not timed.
template <class Editor>
void BM_OpenEditor(benchmark::State& state) {
    Fixture& f = fixture();
    auto context = Glib::MainContext::get_default();
    std::size_t characters = 0;
    for (auto _ : state) {
        bool drawn = false;
        auto editor = std::make_unique<Editor>(f.parent, f.cell, f.store, kDay);
        editor->get_text_view().signal_draw().connect(
            [&drawn](const Cairo::RefPtr<Cairo::Context>&) {
                drawn = true;
                return false;
            },
            true);
        editor->show();
        while (!drawn)
            context->iteration(true);
        state.PauseTiming();
        characters = editor->get_text().size();
        editor->hide();
        editor.reset();
        while (context->pending())
            context->iteration(false);
        state.ResumeTiming();
    }
    state.counters["notes"] =
        static_cast<double>(f.store.index().daily.size() + f.store.index().yearly.size() +
                            f.store.index().periodic.size() + f.store.index().weekday.size());
    state.counters["text_bytes"] = static_cast<double>(characters);
}
BENCHMARK(BM_OpenEditor<app::DailyNoteDialog>)->Unit(benchmark::kMillisecond)->Iterations(40);
BENCHMARK(BM_OpenEditor<app::PeriodicNoteDialog>)->Unit(benchmark::kMillisecond)->Iterations(40);
BENCHMARK(BM_OpenEditor<app::YearlyNoteDialog>)->Unit(benchmark::kMillisecond)->Iterations(40);
BENCHMARK(BM_OpenEditor<app::WeekdayNoteDialog>)->Unit(benchmark::kMillisecond)->Iterations(40);

// The part of opening that depends on the number of notes: finding the
// notes of the day and reading the first one.
void BM_NotesForPeriodicEditor(benchmark::State& state) {
    Fixture& f = fixture();
    for (auto _ : state) {
        const auto notes = notes::notes_for_editor(f.store, notes::NoteKind::Periodic, kDay);
        benchmark::DoNotOptimize(notes::read_for_editor(f.store, notes.front()));
    }
}
BENCHMARK(BM_NotesForPeriodicEditor)->Unit(benchmark::kMicrosecond);

}  // namespace

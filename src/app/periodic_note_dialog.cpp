#include "app/periodic_note_dialog.hpp"

#include <algorithm>

#include "app/ui_support.hpp"
#include "calendar/ranges.hpp"

namespace sk::app {

PeriodicNoteDialog::PeriodicNoteDialog(Gtk::Window& parent, view::CellSize cell,
                                       const notes::NoteStore& store, const calendar::Day& day)
    : NoteEditorDialog(parent, cell, store, notes::NoteKind::Periodic, day),
      m_before("_Die Ausgabe dieser Notiz alle", true),
      m_after("Tage wiederholen") {
    const calendar::Range<int> days = calendar::kRepeatIntervals;
    m_interval.set_adjustment(Gtk::Adjustment::create(days.min, days.min, days.max, 1, 7, 0));
    m_interval.set_numeric(true);
    m_interval.set_width_chars(4);
    m_before.set_mnemonic_widget(m_interval);
    set_accessible_name(m_interval, "Wiederholung in Tagen");
    set_tooltip_and_description(m_interval, "Eingabe der periodischen Wiederholung in Tagen");

    m_row.set_spacing(cells_wide(cell, 1));
    m_row.pack_start(m_before, Gtk::PACK_SHRINK);
    m_row.pack_start(m_interval, Gtk::PACK_SHRINK);
    m_row.pack_start(m_after, Gtk::PACK_SHRINK);
    get_extras().pack_start(m_row, Gtk::PACK_SHRINK);
    start();
}

notes::EditorKey PeriodicNoteDialog::current_key() const {
    m_interval.update();
    notes::EditorKey key = m_shown_key;
    key.interval = m_interval.get_value_as_int();
    return key;
}

void PeriodicNoteDialog::show_key(const notes::EditorKey& key) {
    m_shown_key = key;
    // A note written elsewhere may repeat less often than the field offers;
    // the field then reaches its interval, so that it is not changed unasked.
    const calendar::Range<int> days = calendar::kRepeatIntervals;
    m_interval.set_range(days.min, std::max(days.max, key.interval));
    m_interval.set_value(key.interval);
}

}  // namespace sk::app

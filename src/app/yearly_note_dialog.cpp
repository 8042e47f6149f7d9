#include "app/yearly_note_dialog.hpp"

#include "app/ui_support.hpp"
#include "calendar/ranges.hpp"

namespace sk::app {

YearlyNoteDialog::YearlyNoteDialog(Gtk::Window& parent, view::CellSize cell,
                                   const notes::NoteStore& store, const calendar::Day& day)
    : NoteEditorDialog(parent, cell, store, notes::NoteKind::Yearly, day),
      m_label("Beginn der Zählung mit dem _Jahr", true),
      m_insert("_Einsetzen", true) {
    const calendar::Range<int> years = calendar::kCountingYears;
    m_year.set_adjustment(
        Gtk::Adjustment::create(years.clamp(day.year), years.min, years.max, 1, 10, 0));
    m_year.set_numeric(true);
    m_year.set_width_chars(5);
    m_label.set_mnemonic_widget(m_year);
    set_accessible_name(m_year, plain_label(m_label.get_label()));
    set_tooltip_and_description(m_year, "Eingabe des Jahres mit dem die Zählung beginnt");
    set_tooltip_and_description(m_insert, "Jahr in den Text einfügen");

    m_row.set_spacing(cells_wide(cell, 1));
    m_row.pack_start(m_label, Gtk::PACK_SHRINK);
    m_row.pack_start(m_year, Gtk::PACK_SHRINK);
    m_row.pack_start(m_insert, Gtk::PACK_SHRINK);
    get_extras().pack_start(m_row, Gtk::PACK_SHRINK);

    m_insert.signal_clicked().connect(sigc::mem_fun(*this, &YearlyNoteDialog::on_insert_clicked));
    // Return in the year field inserts as the button does.
    m_year.signal_activate().connect(sigc::mem_fun(*this, &YearlyNoteDialog::on_insert_clicked));
    start();
}

void YearlyNoteDialog::on_insert_clicked() {
    m_year.update();
    get_text_view().get_buffer()->insert_at_cursor(
        notes::year_placeholder(m_year.get_value_as_int()));
    focus_text();
}

}  // namespace sk::app

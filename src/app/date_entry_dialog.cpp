#include "app/date_entry_dialog.hpp"

#include "app/ui_support.hpp"

namespace sk::app {

namespace {

struct PurposeTexts {
    const char* title;
    const char* prompt;
    const char* note;  // shown under the field, may be empty
};

PurposeTexts texts(DateEntryDialog::Purpose purpose) {
    if (purpose == DateEntryDialog::Purpose::VacationStart)
        return {"Blockurlaub", "Frühest möglicher _Beginn des Blockurlaubes:",
                "Es zählen nur Tag und Monat. Die Änderung wird nicht gespeichert."};
    return {"Datum", "_Datum:", ""};
}

}  // namespace

DateEntryDialog::DateEntryDialog(Gtk::Window& parent, view::CellSize cell, Purpose purpose,
                                 const calendar::Day& start, calendar::DayNumber min,
                                 calendar::DayNumber max)
    : m_prompt(texts(purpose).prompt, true),
      m_field(start, min, max, plain_label(texts(purpose).prompt)),
      m_note(texts(purpose).note),
      m_start(m_field.get_date().value_or(start)) {
    const PurposeTexts t = texts(purpose);
    set_title(t.title);
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);

    m_prompt.set_mnemonic_widget(m_field);
    m_prompt.set_xalign(0);
    m_hint.set_xalign(0);
    m_hint.get_style_context()->add_class(GTK_STYLE_CLASS_ERROR);
    m_hint.set_no_show_all(true);
    set_wrapped(m_note, 40);

    Gtk::Box* box = get_content_area();
    box->set_spacing(cells_high(cell, 0.3));
    set_margins_in_cells(*box, cell, 1);
    box->pack_start(m_prompt, Gtk::PACK_SHRINK);
    box->pack_start(m_field, Gtk::PACK_SHRINK);
    box->pack_start(m_hint, Gtk::PACK_SHRINK);
    if (*t.note) box->pack_start(m_note, Gtk::PACK_SHRINK);

    Gtk::Button* cancel = add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    Gtk::Button* ok = add_button("_OK", Gtk::RESPONSE_OK);
    set_tooltip_and_description(*cancel, "Verlässt das Eingabefenster ohne Änderungen");
    set_tooltip_and_description(*ok, purpose == Purpose::GoTo
                                         ? "Zeigt den Kalender ab dem eingegebenen Datum"
                                         : "Übernimmt Tag und Monat als frühesten Beginn");
    set_default_response(Gtk::RESPONSE_OK);
    m_field.signal_validity_changed().connect(
        sigc::mem_fun(*this, &DateEntryDialog::on_validity_changed));
    on_validity_changed(m_field.is_valid());

    show_all_children();
    m_field.grab_focus();
}

calendar::Day DateEntryDialog::get_date() const {
    return m_field.get_date().value_or(m_start);
}

void DateEntryDialog::on_validity_changed(bool valid) {
    set_response_sensitive(Gtk::RESPONSE_OK, valid);
    m_hint.set_text(m_field.get_hint());
    m_hint.set_visible(!valid);
}

}  // namespace sk::app

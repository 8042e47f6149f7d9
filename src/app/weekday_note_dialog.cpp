#include "app/weekday_note_dialog.hpp"

#include "app/ui_support.hpp"

namespace sk::app {

namespace {

constexpr const char* kOrdinals[] = {"ersten", "zweiten", "dritten", "vierten", "letzten"};
constexpr const char* kEveryMonthEntry = "jeden";

}  // namespace

WeekdayNoteDialog::WeekdayNoteDialog(Gtk::Window& parent, view::CellSize cell,
                                     const notes::NoteStore& store, const calendar::Day& day)
    : NoteEditorDialog(parent, cell, store, notes::NoteKind::Weekday, day),
      m_each("Notiz j_eden", true),
      m_weekday(to_ustring(calendar::weekday_name(day.number))),
      m_in(" i_m", true),
      m_month_word("Monat"),
      m_show("anzeigen") {
    for (const char* ordinal : kOrdinals)
        m_ordinal.append(ordinal);
    for (const std::string_view month : calendar::kMonthNames)
        m_month.append(to_ustring(month));
    m_month.append(kEveryMonthEntry);
    m_each.set_mnemonic_widget(m_ordinal);
    m_in.set_mnemonic_widget(m_month);
    set_accessible_name(m_ordinal, "Der wievielte " + m_weekday.get_text() + " im Monat");
    set_accessible_name(m_month, "Monat");

    m_line.set_spacing(cells_wide(cell, 0.5));
    for (Gtk::Widget* part : std::initializer_list<Gtk::Widget*>{
             &m_each, &m_ordinal, &m_weekday, &m_in, &m_month, &m_month_word, &m_show})
        m_line.pack_start(*part, Gtk::PACK_SHRINK);
    get_extras().pack_start(m_line, Gtk::PACK_SHRINK);
    start();
}

notes::EditorKey WeekdayNoteDialog::current_key() const {
    notes::EditorKey key = m_shown_key;
    if (m_ordinal.get_active_row_number() >= 0) key.ordinal = m_ordinal.get_active_row_number();
    if (m_month.get_active_row_number() >= 0) key.month_code = m_month.get_active_row_number();
    return key;
}

void WeekdayNoteDialog::show_key(const notes::EditorKey& key) {
    m_shown_key = key;
    m_ordinal.set_active(key.ordinal);
    m_month.set_active(key.month_code);
}

}  // namespace sk::app

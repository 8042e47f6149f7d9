#include "app/delete_notes_dialog.hpp"

#include "app/message_box.hpp"
#include "app/ui_support.hpp"
#include "calendar/ranges.hpp"

namespace sk::app {

namespace {

constexpr const char* kQuestion = "Sollen die Notizen wirklich alle gelöscht werden?";

}  // namespace

DeleteNotesDialog::DeleteNotesDialog(Gtk::Window& parent, view::CellSize cell,
                                     const calendar::Day& cursor)
    : m_date_label("Notizen löschen _bis zum", true),
      m_date(cursor, calendar::kCalendarDays.min, calendar::kCalendarDays.max,
             "Notizen löschen bis zum"),
      m_daily("_Tagesnotizen", true),
      m_shift("_Schichtmarkierungen", true),
      m_calendar("_Kalendermarkierungen", true),
      m_all_heading("Alle Notizen löschen"),
      m_periodic("_Periodische Notizen", true),
      m_yearly("_Jährliche Notizen", true),
      m_weekday("_Wochentag im Monat", true),
      m_delete_button("_Löschen", true),
      m_cancel_button("_Abbruch", true),
      m_cursor(cursor) {
    set_title("Lösche Notizen und Markierungen");
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);
    set_accessible_name(*this, get_title());

    m_date_label.set_mnemonic_widget(m_date);
    m_date.set_width_chars(11);
    m_date_row.set_spacing(cells_wide(cell, 1));
    m_date_row.pack_start(m_date_label, Gtk::PACK_SHRINK);
    m_date_row.pack_start(m_date, Gtk::PACK_SHRINK);
    m_hint.set_xalign(0);
    m_hint.get_style_context()->add_class(GTK_STYLE_CLASS_ERROR);
    m_hint.set_no_show_all(true);

    Pango::AttrList bold;
    Pango::Attribute weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
    bold.insert(weight);
    m_all_heading.set_attributes(bold);
    m_all_heading.set_xalign(0);
    m_all_heading.set_margin_top(cells_high(cell, 0.5));

    set_tooltip_and_description(m_delete_button, "Löscht die Notizen");
    set_tooltip_and_description(m_cancel_button, "Verlässt das Eingabefenster ohne Löschen");
    m_buttons.set_layout(Gtk::BUTTONBOX_END);
    m_buttons.set_spacing(cells_wide(cell, 1));
    m_buttons.set_margin_top(cells_high(cell, 0.5));
    m_buttons.pack_start(m_delete_button);
    m_buttons.pack_start(m_cancel_button);

    m_layout.set_spacing(cells_high(cell, 0.25));
    set_margins_in_cells(m_layout, cell, 1);
    m_layout.set_size_request(cells_wide(cell, 34), -1);
    for (Gtk::Widget* row : std::initializer_list<Gtk::Widget*>{
             &m_date_row, &m_hint, &m_daily, &m_shift, &m_calendar, &m_all_heading, &m_periodic,
             &m_yearly, &m_weekday, &m_buttons})
        m_layout.pack_start(*row, Gtk::PACK_SHRINK);
    get_content_area()->pack_start(m_layout, Gtk::PACK_EXPAND_WIDGET);

    m_delete_button.signal_clicked().connect(
        sigc::mem_fun(*this, &DeleteNotesDialog::on_delete_clicked));
    m_cancel_button.signal_clicked().connect([this] { response(Gtk::RESPONSE_CANCEL); });
    m_date.signal_validity_changed().connect(
        sigc::mem_fun(*this, &DeleteNotesDialog::on_validity_changed));
    on_validity_changed(m_date.is_valid());

    show_all_children();
    m_date.grab_focus();
}

session::DeletionChoice DeleteNotesDialog::get_choice() const {
    session::DeletionChoice choice;
    choice.up_to = m_date.get_date().value_or(m_cursor).number;
    choice.daily_notes = m_daily.get_active();
    choice.shift_markings = m_shift.get_active();
    choice.calendar_markings = m_calendar.get_active();
    choice.periodic_notes = m_periodic.get_active();
    choice.yearly_notes = m_yearly.get_active();
    choice.weekday_notes = m_weekday.get_active();
    return choice;
}

void DeleteNotesDialog::on_delete_clicked() {
    if (!m_date.is_valid()) return;
    // "Nein" answers Return: deleting takes a deliberate "Ja".
    if (ask_yes_no(this, kQuestion, QuestionBox::Default::No))
        response(Gtk::RESPONSE_OK);
    else
        m_date.grab_focus();
}

void DeleteNotesDialog::on_validity_changed(bool valid) {
    m_delete_button.set_sensitive(valid);
    m_hint.set_text(m_date.get_hint());
    m_hint.set_visible(!valid);
}

}  // namespace sk::app

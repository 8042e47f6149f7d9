#include "app/export_dialog.hpp"

#include <algorithm>

#include "app/ui_support.hpp"
#include "calendar/page_shifts.hpp"
#include "calendar/ranges.hpp"
#include "calendar/shift_model.hpp"

namespace sk::app {

using exporting::ExportFormat;

ExportDialog::ExportDialog(Gtk::Window& parent, view::CellSize cell, int model,
                           const exporting::ExportRequest& initial)
    : m_initial(initial),
      m_format_label("Format:"),
      m_ics("_iCalendar (.ics) für Kalender und Telefon", true),
      m_csv("_CSV-Tabelle (.csv) für Tabellenprogramme", true),
      m_crew_label("_Schicht:", true),
      m_first_label("_Zeitraum:", true),
      m_first(initial.first, calendar::kCalendarDays.min, calendar::kCalendarDays.max,
              "Zeitraum von"),
      m_last_label("_bis", true),
      m_last(initial.last, initial.first.number, calendar::kCalendarDays.max, "Zeitraum bis"),
      m_times("Termine mit _Uhrzeit statt ganztägig", true),
      m_notes("_Notizen als ganztägige Termine dazu", true) {
    set_title("Export");
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);
    set_accessible_name(*this, get_title());

    m_csv.join_group(m_ics);
    (initial.format == ExportFormat::Csv ? m_csv : m_ics).set_active(true);
    set_tooltip_and_description(m_ics,
                                "Die Schichten einer Schicht als Termine, für Kalenderprogramme "
                                "und Mobiltelefone");
    set_tooltip_and_description(m_csv,
                                "Der Schichtplan aller Schichten, ein Tag je Zeile, für "
                                "Tabellenprogramme");

    const int crews = calendar::kShiftModels[static_cast<std::size_t>(model)].crews;
    for (int crew = 0; crew < crews; ++crew)
        m_crew.append(calendar::crew_label(model, crew));
    m_crew.set_active(std::clamp(initial.crew, 0, crews - 1));
    m_crew_label.set_mnemonic_widget(m_crew);
    set_accessible_name(m_crew, "Schicht");
    set_tooltip_and_description(m_crew, "Die Schicht, wie sie über ihrer Spalte steht");

    m_first_label.set_mnemonic_widget(m_first);
    m_last_label.set_mnemonic_widget(m_last);

    m_times.set_active(initial.times);
    m_notes.set_active(initial.notes);
    set_tooltip_and_description(m_times,
                                "Frühschicht 6:00–14:00, Spätschicht 14:00–22:00, Nachtschicht "
                                "22:00–6:00 Uhr am nächsten Morgen; sonst ganztägige Termine");
    set_tooltip_and_description(m_notes, "Die Notizen jedes Tages als eigener ganztägiger Termin");

    set_wrapped(m_hint, 44);
    m_hint.get_style_context()->add_class(GTK_STYLE_CLASS_ERROR);
    m_hint.set_no_show_all(true);

    for (Gtk::Label* label : {&m_format_label, &m_crew_label, &m_first_label})
        label->set_xalign(0);
    Gtk::Box* dates = Gtk::manage(new Gtk::Box(Gtk::ORIENTATION_HORIZONTAL));
    dates->set_spacing(cells_wide(cell, 0.7));
    dates->pack_start(m_first, Gtk::PACK_SHRINK);
    dates->pack_start(m_last_label, Gtk::PACK_SHRINK);
    dates->pack_start(m_last, Gtk::PACK_SHRINK);
    m_crew.set_halign(Gtk::ALIGN_START);

    m_grid.set_row_spacing(cells_high(cell, 0.3));
    m_grid.set_column_spacing(cells_wide(cell, 1));
    m_grid.attach(m_format_label, 0, 0);
    m_grid.attach(m_ics, 1, 0);
    m_grid.attach(m_csv, 1, 1);
    m_grid.attach(m_crew_label, 0, 2);
    m_grid.attach(m_crew, 1, 2);
    m_grid.attach(m_first_label, 0, 3);
    m_grid.attach(*dates, 1, 3);
    m_grid.attach(m_times, 1, 4);
    m_grid.attach(m_notes, 1, 5);
    m_grid.attach(m_hint, 0, 6, 2, 1);
    m_grid.set_size_request(cells_wide(cell, 44), -1);

    Gtk::Box* box = get_content_area();
    set_margins_in_cells(*box, cell, 1);
    box->pack_start(m_grid, Gtk::PACK_SHRINK);

    Gtk::Button* cancel = add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    m_save = add_button("Sp_eichern unter …", Gtk::RESPONSE_OK);
    set_tooltip_and_description(*cancel, "Verlässt das Fenster, ohne etwas zu speichern");
    set_tooltip_and_description(*m_save, "Wählt die Datei, in die gespeichert wird");
    set_default_response(Gtk::RESPONSE_OK);

    m_ics.signal_toggled().connect(sigc::mem_fun(*this, &ExportDialog::on_format_toggled));
    m_first.signal_date_changed().connect(
        sigc::mem_fun(*this, &ExportDialog::on_first_date_changed));
    for (DateField* field : {&m_first, &m_last})
        field->signal_validity_changed().connect([this](bool) { on_validity_changed(); });
    on_format_toggled();
    on_validity_changed();

    show_all_children();
    (initial.format == ExportFormat::Csv ? m_csv : m_ics).grab_focus();
}

exporting::ExportRequest ExportDialog::get_request() const {
    exporting::ExportRequest request;
    request.format = m_csv.get_active() ? ExportFormat::Csv : ExportFormat::ICalendar;
    request.crew = std::max(0, m_crew.get_active_row_number());
    request.first = m_first.get_date().value_or(m_initial.first);
    request.last = m_last.get_date().value_or(m_initial.last);
    request.times = m_times.get_active();
    request.notes = m_notes.get_active();
    return request;
}

void ExportDialog::on_format_toggled() {
    const bool ics = m_ics.get_active();
    for (Gtk::Widget* w :
         std::initializer_list<Gtk::Widget*>{&m_crew_label, &m_crew, &m_times, &m_notes})
        w->set_sensitive(ics);
}

void ExportDialog::on_first_date_changed(const calendar::Day& first) {
    m_last.set_range(first.number, calendar::kCalendarDays.max);
    on_validity_changed();
}

void ExportDialog::on_validity_changed() {
    const bool valid = m_first.is_valid() && m_last.is_valid();
    set_response_sensitive(Gtk::RESPONSE_OK, valid);
    m_hint.set_text(!m_first.is_valid() ? m_first.get_hint() : m_last.get_hint());
    m_hint.set_visible(!valid);
}

}  // namespace sk::app

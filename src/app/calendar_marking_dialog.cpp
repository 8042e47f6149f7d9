#include "app/calendar_marking_dialog.hpp"

#include <cmath>
#include <string>

#include "app/ui_support.hpp"

namespace sk::app {

namespace {

Gdk::RGBA to_rgba(calendar::Rgb colour) {
    Gdk::RGBA rgba;
    rgba.set_rgba(colour.r / 255.0, colour.g / 255.0, colour.b / 255.0, 1.0);
    return rgba;
}

std::uint8_t channel(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
}

Glib::ustring colour_description(calendar::Rgb colour) {
    return "Rot " + std::to_string(colour.r) + ", Grün " + std::to_string(colour.g) + ", Blau " +
           std::to_string(colour.b);
}

}  // namespace

CalendarMarkingDialog::CalendarMarkingDialog(Gtk::Window& parent, view::CellSize cell,
                                             const marks::CalendarMarking& proposal)
    : m_proposal(proposal),
      m_colour(proposal.colour),
      m_start_label("Eingabe des S_tartdatums:", true),
      m_start(calendar::Day::from_number(proposal.start), calendar::kFirstDay, calendar::kLastDay,
              "Eingabe des Startdatums"),
      m_end_label("Eingabe des _Enddatums:", true),
      m_end(calendar::Day::from_number(proposal.end), calendar::kFirstDay, calendar::kLastDay,
            "Eingabe des Enddatums"),
      m_colour_label("Wahl einer _neuen\nMarkierungsfarbe", true) {
    set_title("Eingabe einer Kalendermarkierung");
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);
    set_accessible_name(*this, get_title());

    m_start_label.set_xalign(0);
    m_start_label.set_mnemonic_widget(m_start);
    m_end_label.set_xalign(0);
    m_end_label.set_mnemonic_widget(m_end);
    m_hint.set_xalign(0);
    m_hint.get_style_context()->add_class(GTK_STYLE_CLASS_ERROR);
    m_hint.set_no_show_all(true);

    m_colour_label.set_justify(Gtk::JUSTIFY_CENTER);
    m_colour_label.set_mnemonic_widget(m_colour_button);
    m_colour_button.add(m_colour_label);
    set_accessible_name(m_colour_button, "Wahl einer neuen Markierungsfarbe");
    set_tooltip_and_description(m_colour_button,
                                "Eine neue Farbe für die Kalendermarkierung wählen");
    m_colour_button.signal_clicked().connect(
        sigc::mem_fun(*this, &CalendarMarkingDialog::choose_colour));
    set_size_in_cells(m_swatch, cell, 3, 2);
    m_swatch.signal_draw().connect(sigc::mem_fun(*this, &CalendarMarkingDialog::on_swatch_draw));
    set_accessible_name(m_swatch, "Markierungsfarbe");
    set_colour(m_colour);

    m_grid.set_row_spacing(cells_high(cell, 0.3));
    m_grid.set_column_spacing(cells_wide(cell, 1));
    set_margins_in_cells(m_grid, cell, 1);
    m_grid.attach(m_start_label, 0, 0);
    m_grid.attach(m_start, 1, 0);
    m_grid.attach(m_end_label, 0, 1);
    m_grid.attach(m_end, 1, 1);
    m_grid.attach(m_hint, 0, 2, 2, 1);
    m_grid.attach(m_colour_button, 0, 3);
    m_grid.attach(m_swatch, 1, 3);
    m_swatch.set_halign(Gtk::ALIGN_START);
    get_content_area()->pack_start(m_grid, Gtk::PACK_EXPAND_WIDGET);

    Gtk::Button* cancel = add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    Gtk::Button* remove = add_button("_Löschen", kDelete);
    Gtk::Button* save = add_button("_Speichern", kSave);
    set_tooltip_and_description(*cancel, "Verlässt das Eingabefenster ohne Änderungen");
    set_tooltip_and_description(
        *remove, "Löscht die Markierung in dessen Bereich sich das Startdatum befindet");
    set_tooltip_and_description(*save, "Speichert die Kalendermarkierung");
    set_default_response(kSave);
    m_start.signal_validity_changed().connect(
        sigc::mem_fun(*this, &CalendarMarkingDialog::on_validity_changed));
    m_end.signal_validity_changed().connect(
        sigc::mem_fun(*this, &CalendarMarkingDialog::on_validity_changed));
    on_validity_changed(true);

    show_all_children();
    m_start.grab_focus();
}

calendar::Day CalendarMarkingDialog::get_start() const {
    return m_start.get_date().value_or(calendar::Day::from_number(m_proposal.start));
}

calendar::Day CalendarMarkingDialog::get_end() const {
    return m_end.get_date().value_or(calendar::Day::from_number(m_proposal.end));
}

void CalendarMarkingDialog::set_colour(calendar::Rgb colour) {
    m_colour = colour;
    set_accessible_description(m_swatch, colour_description(colour));
    m_swatch.set_tooltip_text(colour_description(colour));
    m_swatch.queue_draw();
}

void CalendarMarkingDialog::choose_colour() {
    // Not the constructor that takes the parent: it adds the chooser to the
    // parent as a child, which a dialog cannot hold.
    Gtk::ColorChooserDialog chooser("Markierungsfarbe");
    make_modal(chooser, this);
    chooser.set_use_alpha(false);
    chooser.set_rgba(to_rgba(m_colour));
    if (chooser.run() != Gtk::RESPONSE_OK) return;
    const Gdk::RGBA chosen = chooser.get_rgba();
    set_colour(
        {channel(chosen.get_red()), channel(chosen.get_green()), channel(chosen.get_blue())});
}

void CalendarMarkingDialog::on_validity_changed(bool) {
    const bool valid = m_start.is_valid() && m_end.is_valid();
    set_response_sensitive(kSave, valid);
    set_response_sensitive(kDelete, valid);
    m_hint.set_text(!m_start.is_valid() ? m_start.get_hint() : m_end.get_hint());
    m_hint.set_visible(!valid);
}

void CalendarMarkingDialog::on_response(int response_id) {
    const bool valid = m_start.is_valid() && m_end.is_valid();
    if (response_id == kSave && valid)
        m_action = Action::Save;
    else if (response_id == kDelete && valid)
        m_action = Action::Delete;
    else
        m_action = Action::None;
    Gtk::Dialog::on_response(response_id);
}

bool CalendarMarkingDialog::on_swatch_draw(const Cairo::RefPtr<Cairo::Context>& cr) {
    const double width = m_swatch.get_allocated_width();
    const double height = m_swatch.get_allocated_height();
    cr->set_source_rgb(m_colour.r / 255.0, m_colour.g / 255.0, m_colour.b / 255.0);
    cr->rectangle(0, 0, width, height);
    cr->fill();
    cr->set_source_rgb(0, 0, 0);
    cr->set_line_width(1);
    cr->rectangle(0.5, 0.5, width - 1, height - 1);
    cr->stroke();
    return true;
}

}  // namespace sk::app

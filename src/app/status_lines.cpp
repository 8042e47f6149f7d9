#include "app/status_lines.hpp"

#include <cmath>
#include <cstdio>

namespace sk::app {

namespace {

constexpr std::array<const char*, kStatusFieldCount> kTooltips = {
    "Infos zum Tag und Programmstatus",
    "Notizen zum gewählten Tag",
    "Astronomische Anzeigen",
    "Minus- und Plusstunden anhand der Schichtmarkierungen",
    "Resturlaub anhand der Schichtmarkierungen",
};

// One text line with no padding, so that a field is as high as a cell.
constexpr const char* kFieldCss =
    "entry { min-height: 0; padding-top: 0; padding-bottom: 0; margin: 0;"
    " border-top-width: 0; border-bottom-width: 0; border-radius: 0; }";

Glib::RefPtr<Gtk::CssProvider> css(const std::string& text) {
    auto provider = Gtk::CssProvider::create();
    provider->load_from_data(text);
    return provider;
}

}  // namespace

StatusLines::StatusLines() : m_hours_colour(Gtk::CssProvider::create()) {
    set_row_spacing(0);
    set_column_spacing(0);
    rebuild({8, 16});
}

const char* StatusLines::tooltip(StatusField which) {
    return kTooltips[static_cast<std::size_t>(which)];
}

void StatusLines::rebuild(view::CellSize cell) {
    for (auto& field : m_fields)
        if (field) remove(*field);
    static const Glib::RefPtr<Gtk::CssProvider> field_css = css(kFieldCss);
    const int height = static_cast<int>(std::ceil(cell.height));
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        auto field = std::make_unique<Gtk::Entry>();
        field->set_editable(false);
        field->set_has_frame(false);
        field->set_tooltip_text(kTooltips[i]);
        field->get_accessible()->set_name(kTooltips[i]);
        field->get_style_context()->add_provider(field_css,
                                                 GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
        field->set_size_request(-1, height);
        m_fields[i] = std::move(field);
    }
    field(StatusField::Day).set_hexpand(true);
    field(StatusField::Notes).set_hexpand(true);
    field(StatusField::Astronomy).set_hexpand(true);
    auto& hours = field(StatusField::Hours);
    auto& vacation = field(StatusField::Vacation);
    hours.set_width_chars(7);
    hours.set_max_width_chars(7);
    hours.set_size_request(static_cast<int>(std::ceil(7 * cell.width)), height);
    hours.set_alignment(Gtk::ALIGN_END);
    hours.get_style_context()->add_provider(m_hours_colour,
                                            GTK_STYLE_PROVIDER_PRIORITY_APPLICATION + 1);
    hours.add_events(Gdk::BUTTON_PRESS_MASK);
    hours.signal_button_press_event().connect(
        [this](GdkEventButton* event) {
            if (event->type == GDK_BUTTON_PRESS && event->button == GDK_BUTTON_PRIMARY)
                m_hours_clicked.emit();
            return false;
        },
        false);
    vacation.set_width_chars(4);
    vacation.set_max_width_chars(4);
    vacation.set_size_request(static_cast<int>(std::ceil(4 * cell.width)), height);
    vacation.set_alignment(Gtk::ALIGN_END);

    attach(field(StatusField::Day), 0, 0);
    attach(hours, 1, 0);
    attach(field(StatusField::Notes), 0, 1);
    attach(vacation, 1, 1);
    attach(field(StatusField::Astronomy), 0, 2, 2, 1);
    show_all_children();
    put_texts(true);
}

void StatusLines::show_texts(const view::StatusTexts& texts) {
    const bool colour_changed = texts.hours_colour != m_texts.hours_colour;
    m_texts = texts;
    put_texts(colour_changed);
}

void StatusLines::put_texts(bool colour_changed) {
    const auto put = [this](StatusField which, const std::string& text) {
        Gtk::Entry& f = field(which);
        if (f.get_text() == text) return;
        f.set_text(text);
        f.set_position(0);  // the start of a long line is what matters
    };
    put(StatusField::Day, m_texts.day);
    put(StatusField::Notes, m_texts.notes);
    put(StatusField::Astronomy, m_texts.astronomy);
    put(StatusField::Hours, m_texts.hours);
    put(StatusField::Vacation, m_texts.vacation);
    if (!colour_changed) return;
    const calendar::Rgb c = m_texts.hours_colour;
    char rule[96];
    std::snprintf(rule, sizeof rule, "entry { color: rgb(%u, %u, %u); }", unsigned{c.r},
                  unsigned{c.g}, unsigned{c.b});
    m_hours_colour->load_from_data(rule);
}

}  // namespace sk::app

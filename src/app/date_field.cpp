#include "app/date_field.hpp"

#include <algorithm>

#include "app/ui_support.hpp"

namespace sk::app {

using calendar::Day;
using calendar::DayNumber;

namespace {

constexpr int kTextLength = 10;  // "dd.mm.yyyy"
constexpr char kDefaultTooltip[] =
    "Datum als TT.MM.JJJJ; Pfeil auf/ab: ein Tag, Bild auf/ab: ein Monat";

}  // namespace

DateField::DateField(const Day& value, DayNumber min, DayNumber max, const Glib::ustring& name)
    : m_min(std::min(min, max)),
      m_max(std::max(min, max)),
      m_last_valid(Day::from_number(clamp(value.number))),
      m_wanted_mday(m_last_valid.mday),
      m_tooltip(kDefaultTooltip) {
    set_max_length(kTextLength + 2);
    set_width_chars(kTextLength + 1);
    set_activates_default(true);
    set_input_purpose(Gtk::INPUT_PURPOSE_FREE_FORM);
    set_accessible_name(*this, name);
    signal_changed().connect(sigc::mem_fun(*this, &DateField::on_text_changed));
    set_text(calendar::format_german_date(m_last_valid));
    show_state();
}

DayNumber DateField::clamp(DayNumber d) const {
    return std::clamp(d, m_min, m_max);
}

std::optional<Day> DateField::get_date() const {
    if (!is_valid()) return std::nullopt;
    return calendar::parse_german_date(get_text().raw());
}

Glib::ustring DateField::get_hint() const {
    return calendar::date_entry_hint(m_state, m_min, m_max);
}

void DateField::set_date(const Day& day) {
    m_last_valid = Day::from_number(clamp(day.number));
    set_text(calendar::format_german_date(m_last_valid));
    set_position(-1);
}

void DateField::set_range(DayNumber min, DayNumber max) {
    m_min = std::min(min, max);
    m_max = std::max(min, max);
    m_last_valid = Day::from_number(clamp(m_last_valid.number));
    on_text_changed();
}

void DateField::set_field_tooltip(const Glib::ustring& tooltip) {
    m_tooltip = tooltip;
    show_state();
}

void DateField::on_text_changed() {
    const bool was_valid = is_valid();
    m_state = calendar::check_date_entry(get_text().raw(), m_min, m_max);
    if (is_valid()) {
        m_last_valid = *calendar::parse_german_date(get_text().raw());
        if (!m_stepping_months) m_wanted_mday = m_last_valid.mday;
    }
    show_state();
    if (was_valid != is_valid()) m_validity_changed.emit(is_valid());
    if (is_valid()) m_date_changed.emit(m_last_valid);
}

void DateField::show_state() {
    const Glib::RefPtr<Gtk::StyleContext> style = get_style_context();
    if (is_valid()) {
        style->remove_class(GTK_STYLE_CLASS_ERROR);
        set_tooltip_text(m_tooltip);
        set_accessible_description(*this, m_tooltip);
    } else {
        style->add_class(GTK_STYLE_CLASS_ERROR);
        set_tooltip_text(get_hint());
        set_accessible_description(*this, get_hint());
    }
}

void DateField::step(int days, int months) {
    if (months == 0) {
        set_date(Day::from_number(clamp(m_last_valid.number + days)));
        return;
    }
    const Day month = calendar::add_months(m_last_valid, months);
    const int mday = std::min(m_wanted_mday, month.month_length());
    m_stepping_months = true;
    set_date(Day::from_date(month.year, month.month_index, mday));
    m_stepping_months = false;
}

bool DateField::on_key_press_event(GdkEventKey* event) {
    if (!has_command_modifier(event)) {
        switch (event->keyval) {
            case GDK_KEY_Up:
            case GDK_KEY_KP_Up:
                step(1, 0);
                return true;
            case GDK_KEY_Down:
            case GDK_KEY_KP_Down:
                step(-1, 0);
                return true;
            case GDK_KEY_Page_Up:
            case GDK_KEY_KP_Page_Up:
                step(0, 1);
                return true;
            case GDK_KEY_Page_Down:
            case GDK_KEY_KP_Page_Down:
                step(0, -1);
                return true;
            default:
                break;
        }
    }
    return Gtk::Entry::on_key_press_event(event);
}

}  // namespace sk::app

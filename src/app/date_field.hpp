// A date field as the dialogs use it: shows "dd.mm.yyyy", accepts typing
// (one-digit day and month too), and keeps to a range of days. Up and Down
// step a day, Page Up and Page Down a month, staying within the range. The
// rules of what counts as a date live in the core (calendar::check_date_entry);
// the field shows their hint as its tooltip while the text is no date, and
// tells its dialog through signal_validity_changed so that the dialog can
// make its OK button insensitive.
#pragma once

#include <gtkmm.h>

#include <optional>

#include "calendar/dates.hpp"

namespace sk::app {

class DateField : public Gtk::Entry {
  public:
    // `value` is clamped into [min, max]; `name` is the accessible name (the
    // label of the field in its dialog).
    DateField(const calendar::Day& value, calendar::DayNumber min, calendar::DayNumber max,
              const Glib::ustring& name);

    // The date typed, or nullopt while the text is no date of the range.
    std::optional<calendar::Day> get_date() const;
    bool is_valid() const { return m_state == calendar::DateEntry::Valid; }
    calendar::DateEntry get_state() const { return m_state; }
    // The core's German hint for the current text; empty when valid.
    Glib::ustring get_hint() const;

    void set_date(const calendar::Day& day);  // clamped into the range
    void set_range(calendar::DayNumber min, calendar::DayNumber max);
    calendar::DayNumber get_min() const { return m_min; }
    calendar::DayNumber get_max() const { return m_max; }
    // Tooltip shown while the text is a valid date.
    void set_field_tooltip(const Glib::ustring& tooltip);

    // Emitted with the new validity whenever it changes.
    sigc::signal<void(bool)>& signal_validity_changed() { return m_validity_changed; }
    // Emitted whenever the text changes to another valid date.
    sigc::signal<void(calendar::Day)>& signal_date_changed() { return m_date_changed; }

  protected:
    bool on_key_press_event(GdkEventKey* event) override;

  private:
    void on_text_changed();
    void step(int days, int months);
    void show_state();
    calendar::DayNumber clamp(calendar::DayNumber d) const;

    calendar::DayNumber m_min;
    calendar::DayNumber m_max;
    calendar::DateEntry m_state = calendar::DateEntry::Valid;
    calendar::Day m_last_valid;  // where Up and Down step from while the text is no date
    int m_wanted_mday;           // kept over month steps: 31.01. -> 28.02. -> 31.03.
    bool m_stepping_months = false;
    Glib::ustring m_tooltip;
    sigc::signal<void(bool)> m_validity_changed;
    sigc::signal<void(calendar::Day)> m_date_changed;
};

}  // namespace sk::app

// The window "Eingabe einer Kalendermarkierung": the start and end date of a
// coloured bar and its colour, for the bar under the cursor day or the
// proposal for an unmarked day (marks::propose_marking). "Speichern" (also
// Return) and "Löschen" end the dialog with their action; the caller applies
// it through the core (marks::save_marking, marks::delete_marking_at), which
// also swaps reversed dates. The colour button opens the colour chooser;
// cancelling the chooser keeps the colour.
#pragma once

#include <gtkmm.h>

#include "app/date_field.hpp"
#include "calendar/colour.hpp"
#include "calendar/dates.hpp"
#include "marks/calendar_markings.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class CalendarMarkingDialog : public Gtk::Dialog {
  public:
    enum class Action { None, Save, Delete };
    // The responses of "Speichern" and "Löschen".
    static constexpr int kSave = 1;
    static constexpr int kDelete = 2;

    CalendarMarkingDialog(Gtk::Window& parent, view::CellSize cell,
                          const marks::CalendarMarking& proposal);

    // What ended the dialog: Save or Delete after their buttons, else None.
    Action get_action() const { return m_action; }
    // The dates as entered, the end possibly before the start. Meaningful
    // with Save and Delete (both buttons wait for two valid dates).
    calendar::Day get_start() const;
    calendar::Day get_end() const;
    calendar::Rgb get_colour() const { return m_colour; }

    void set_colour(calendar::Rgb colour);
    // The colour button's action: the GTK colour chooser over this window,
    // preset with the colour; its choice becomes the colour.
    void choose_colour();

    DateField& get_start_field() { return m_start; }
    DateField& get_end_field() { return m_end; }
    Gtk::Button& get_colour_button() { return m_colour_button; }

  protected:
    void on_response(int response_id) override;

  private:
    void on_validity_changed(bool);
    bool on_swatch_draw(const Cairo::RefPtr<Cairo::Context>& cr);

    marks::CalendarMarking m_proposal;
    calendar::Rgb m_colour;
    Action m_action = Action::None;
    Gtk::Grid m_grid;
    Gtk::Label m_start_label;
    DateField m_start;
    Gtk::Label m_end_label;
    DateField m_end;
    Gtk::Label m_hint;
    Gtk::Button m_colour_button;
    Gtk::Label m_colour_label;
    Gtk::DrawingArea m_swatch;
};

}  // namespace sk::app

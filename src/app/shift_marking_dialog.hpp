// The window "Schichtmarkierung eingeben": how the user's own duty went on
// one day, in one column (the key 1..4 that opened it). A heading names the
// shift and the date, a column of radio buttons offers the codes of the
// model's kind, the last removing the marking. The letters X F U L K A and
// Delete choose the first to seventh button and accept at once; Return
// accepts the selected button, Escape or "Abbruch" leave without a code.
//
//     ShiftMarkingDialog dialog(window, cell, model, column, day, current);
//     if (dialog.run() == Gtk::RESPONSE_OK) marks::apply_marking(..., *dialog.get_code(), model);
#pragma once

#include <gtkmm.h>

#include <memory>
#include <optional>
#include <vector>

#include "calendar/dates.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class ShiftMarkingDialog : public Gtk::Dialog {
  public:
    // `preselected`: the code of the day's marking (marks::preselected_code);
    // nullopt selects nothing, and "Übernehmen" waits for a choice.
    ShiftMarkingDialog(Gtk::Window& parent, view::CellSize cell, int model, int column,
                       const calendar::Day& day, std::optional<int> preselected);

    // The chosen code once run() returned; nullopt when the dialog was left
    // without one.
    std::optional<int> get_code() const { return m_code; }

    Glib::ustring get_heading() const { return m_heading.get_text(); }
    int get_code_count() const { return static_cast<int>(m_codes.size()); }
    Gtk::RadioButton& get_code_button(int code) {
        return *m_codes.at(static_cast<std::size_t>(code));
    }
    Gtk::Button& get_accept_button() { return *m_accept; }
    // The code of the selected button; nullopt while none is.
    std::optional<int> get_selected_code() const;

  protected:
    bool on_key_press_event(GdkEventKey* event) override;
    void on_response(int response_id) override;

  private:
    void accept(int code);
    void on_code_toggled();

    Gtk::Label m_heading;
    Gtk::Box m_column{Gtk::ORIENTATION_VERTICAL};
    Gtk::RadioButton::Group m_group;
    Gtk::RadioButton m_nothing;  // active while no code is selected; never shown
    std::vector<std::unique_ptr<Gtk::RadioButton>> m_codes;
    Gtk::Button* m_accept = nullptr;  // owned by the dialog's button row
    Gtk::Button* m_cancel = nullptr;
    std::optional<int> m_code;
    bool m_answered = false;
};

}  // namespace sk::app

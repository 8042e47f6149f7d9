// "Stammschicht:": the five option buttons "rot", "blau", "gelb", "grün",
// "braun" for the home crew, in one row. The hours and the vacation dialog
// both show it, as both accounts share the one home crew.
#pragma once

#include <gtkmm.h>

#include <array>

#include "view/page_text.hpp"

namespace sk::app {

class HomeCrewChooser : public Gtk::Box {
  public:
    HomeCrewChooser(view::CellSize cell, int crew);

    int get_crew() const;  // 0..4
    Gtk::RadioButton& get_button(int crew) { return m_buttons.at(static_cast<std::size_t>(crew)); }

  private:
    Gtk::RadioButton::Group m_group;
    std::array<Gtk::RadioButton, 5> m_buttons;
};

}  // namespace sk::app

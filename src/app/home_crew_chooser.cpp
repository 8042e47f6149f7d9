#include "app/home_crew_chooser.hpp"

#include "app/ui_support.hpp"
#include "marks/account_files.hpp"

namespace sk::app {

namespace {

// The labels with their mnemonics; "braun" takes its "u", as "b" and "r"
// belong to "blau" and "rot".
constexpr const char* kLabels[] = {"_rot", "_blau", "_gelb", "gr_ün", "bra_un"};

}  // namespace

HomeCrewChooser::HomeCrewChooser(view::CellSize cell, int crew)
    : Gtk::Box(Gtk::ORIENTATION_HORIZONTAL) {
    set_spacing(cells_wide(cell, 0.5));
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        Gtk::RadioButton& button = m_buttons[i];
        button.set_group(m_group);
        button.set_label(kLabels[i]);
        button.set_use_underline(true);
        set_accessible_description(button, "Stammschicht");
        pack_start(button, Gtk::PACK_SHRINK);
    }
    if (crew >= 0 && crew < static_cast<int>(m_buttons.size())) get_button(crew).set_active(true);
    set_accessible_name(*this, "Stammschicht");
    static_assert(std::size(kLabels) == marks::kHomeCrewNames.size());
}

int HomeCrewChooser::get_crew() const {
    for (std::size_t i = 0; i < m_buttons.size(); ++i)
        if (m_buttons[i].get_active()) return static_cast<int>(i);
    return 0;
}

}  // namespace sk::app

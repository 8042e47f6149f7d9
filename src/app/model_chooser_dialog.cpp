#include "app/model_chooser_dialog.hpp"

#include "app/ui_support.hpp"
#include "calendar/shift_model.hpp"

namespace sk::app {

namespace {

std::vector<ChoiceEntry> model_entries() {
    std::vector<ChoiceEntry> entries;
    for (const int model : calendar::kChooserOrder) {
        const calendar::ShiftModel& m = calendar::kShiftModels[static_cast<std::size_t>(model)];
        // A "_" in an entry would be read as a mnemonic; none of them has one.
        entries.push_back({to_ustring(m.chooser_entry), "", to_ustring(m.description), 0});
    }
    return entries;
}

}  // namespace

int ModelChooserDialog::position_of(int model) {
    for (std::size_t i = 0; i < calendar::kChooserOrder.size(); ++i)
        if (calendar::kChooserOrder[i] == model) return static_cast<int>(i);
    return 0;
}

ModelChooserDialog::ModelChooserDialog(Gtk::Window& parent, view::CellSize cell, int current_model)
    : ChoiceDialog(parent, cell, "Kalender", model_entries(), 44, position_of(current_model)) {}

std::optional<int> ModelChooserDialog::get_model() const {
    const std::optional<int> index = get_choice_index();
    if (!index) return std::nullopt;
    return calendar::kChooserOrder.at(static_cast<std::size_t>(*index));
}

}  // namespace sk::app

#include "app/shift_column_dialog.hpp"

#include <array>
#include <string>

#include "app/ui_support.hpp"
#include "marks/shift_markings.hpp"

namespace sk::app {

namespace {

// The labels of marks::column_labels with a mnemonic each.
constexpr std::array<const char*, 4> kKindA = {"_Frühschicht", "_Spätschicht", "_Nachtschicht",
                                               "_Verfügung"};
constexpr std::array<const char*, 4> kKindB = {"Schicht _A", "Schicht _B", "Schicht _C",
                                               "Schicht _D"};

std::vector<ChoiceEntry> column_entries(int model) {
    const marks::MarkingKind kind = marks::marking_kind(model);
    const auto& labels = kind == marks::MarkingKind::A ? kKindA : kKindB;
    std::vector<ChoiceEntry> entries;
    for (std::size_t i = 0; i < labels.size(); ++i) {
        const std::string digit = std::to_string(i + 1);
        const Glib::ustring label = labels[i];
        entries.push_back({label, "[" + digit + "] Schichtmarkierung: " + plain_label(label), "",
                           static_cast<guint>(GDK_KEY_1 + i)});
    }
    return entries;
}

}  // namespace

ShiftColumnDialog::ShiftColumnDialog(Gtk::Window& parent, view::CellSize cell, int model)
    : ChoiceDialog(parent, cell, std::string(marks::kColumnChooserTitle), column_entries(model),
                   24) {}

int ShiftColumnDialog::get_column() const {
    const std::optional<int> index = get_choice_index();
    return index ? *index + 1 : 0;
}

bool ShiftColumnDialog::on_key_press_event(GdkEventKey* event) {
    if (!has_command_modifier(event) && event->keyval >= GDK_KEY_KP_1 &&
        event->keyval <= GDK_KEY_KP_4) {
        choose(static_cast<int>(event->keyval - GDK_KEY_KP_1));
        return true;
    }
    return ChoiceDialog::on_key_press_event(event);
}

}  // namespace sk::app

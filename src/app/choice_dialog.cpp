#include "app/choice_dialog.hpp"

#include "app/ui_support.hpp"

namespace sk::app {

ChoiceDialog::ChoiceDialog(Gtk::Window& parent, view::CellSize cell, const Glib::ustring& title,
                           const std::vector<ChoiceEntry>& entries, double width, int focused)
    : m_entries(entries) {
    set_title(title);
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);
    set_accessible_name(*this, title);

    m_column.set_spacing(cells_high(cell, 0.25));
    set_margins_in_cells(m_column, cell, 1);
    m_column.set_size_request(cells_wide(cell, width - 2), -1);
    get_content_area()->pack_start(m_column, Gtk::PACK_EXPAND_WIDGET);

    for (std::size_t i = 0; i < m_entries.size(); ++i) {
        const ChoiceEntry& entry = m_entries[i];
        auto button = std::make_unique<Gtk::Button>();
        if (entry.description.empty()) {
            button->set_label(entry.label);
            button->set_use_underline(true);
            if (auto* label = dynamic_cast<Gtk::Label*>(button->get_child())) label->set_xalign(0);
        } else {
            auto lines = std::make_unique<Gtk::Box>(Gtk::ORIENTATION_VERTICAL);
            auto name = std::make_unique<Gtk::Label>(entry.label, true);
            auto description = std::make_unique<Gtk::Label>(entry.description);
            name->set_xalign(0);
            name->set_mnemonic_widget(*button);
            Pango::AttrList bold;
            Pango::Attribute weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
            bold.insert(weight);
            name->set_attributes(bold);
            set_wrapped(*description, static_cast<int>(width));
            lines->pack_start(*name, Gtk::PACK_SHRINK);
            lines->pack_start(*description, Gtk::PACK_SHRINK);
            button->add(*lines);
            set_accessible_name(*button, plain_label(entry.label));
            set_accessible_description(*button, entry.description);
            m_parts.push_back(std::move(name));
            m_parts.push_back(std::move(description));
            m_parts.push_back(std::move(lines));
        }
        if (!entry.tooltip.empty()) set_tooltip_and_description(*button, entry.tooltip);
        const int index = static_cast<int>(i);
        button->signal_clicked().connect([this, index] { choose(index); });
        m_column.pack_start(*button, Gtk::PACK_SHRINK);
        m_buttons.push_back(std::move(button));
    }
    show_all_children();
    if (focused >= 0 && focused < get_entry_count()) get_button(focused).grab_focus();
}

void ChoiceDialog::choose(int index) {
    if (index < 0 || index >= get_entry_count()) return;
    m_choice = index;
    response(Gtk::RESPONSE_OK);
}

bool ChoiceDialog::on_key_press_event(GdkEventKey* event) {
    if (!has_command_modifier(event)) {
        const guint key = gdk_keyval_to_lower(event->keyval);
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (m_entries[i].key != 0 && m_entries[i].key == key) {
                choose(static_cast<int>(i));
                return true;
            }
        }
    }
    return Gtk::Dialog::on_key_press_event(event);
}

}  // namespace sk::app

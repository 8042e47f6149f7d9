#include "app/shift_marking_dialog.hpp"

#include <span>
#include <string_view>

#include "app/ui_support.hpp"
#include "marks/shift_markings.hpp"

namespace sk::app {

namespace {

// The key that chooses each of the first seven buttons, as its tooltip says.
constexpr std::string_view kKeyNames[] = {"X", "F", "U", "L", "K", "A", "Entf"};

}  // namespace

ShiftMarkingDialog::ShiftMarkingDialog(Gtk::Window& parent, view::CellSize cell, int model,
                                       int column, const calendar::Day& day,
                                       std::optional<int> preselected)
    : m_heading(marks::dialog_heading(model, column, day)), m_nothing(m_group) {
    set_title(std::string(marks::kDialogTitle));
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_resizable(false);
    set_accessible_name(*this, get_title());

    m_heading.set_xalign(0);
    Pango::AttrList bold;
    Pango::Attribute weight = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
    bold.insert(weight);
    m_heading.set_attributes(bold);

    m_column.set_spacing(cells_high(cell, 0.1));
    m_column.pack_start(m_heading, Gtk::PACK_SHRINK, cells_high(cell, 0.3));
    const std::span<const std::string_view> labels = marks::code_labels(marks::marking_kind(model));
    for (std::size_t code = 0; code < labels.size(); ++code) {
        auto button = std::make_unique<Gtk::RadioButton>(m_group, to_ustring(labels[code]));
        if (code < std::size(kKeyNames))
            set_tooltip_and_description(*button, "Taste " + to_ustring(kKeyNames[code]));
        m_column.pack_start(*button, Gtk::PACK_SHRINK);
        m_codes.push_back(std::move(button));
    }
    set_accessible_description(m_column, m_heading.get_text());

    Gtk::Box* box = get_content_area();
    set_margins_in_cells(m_column, cell, 1);
    m_column.set_size_request(cells_wide(cell, 34), -1);
    box->pack_start(m_column, Gtk::PACK_EXPAND_WIDGET);

    m_cancel = add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    m_accept = add_button("_Übernehmen", Gtk::RESPONSE_OK);
    set_tooltip_and_description(*m_cancel, "Verlässt das Eingabefenster ohne Änderungen");
    // The tooltip speaks of hours, as it always has.
    set_tooltip_and_description(*m_accept, "Speichert die Stunden");
    set_default_response(Gtk::RESPONSE_OK);
    if (preselected && *preselected >= 0 && *preselected < get_code_count())
        get_code_button(*preselected).set_active(true);
    for (const auto& button : m_codes)
        button->signal_toggled().connect(
            sigc::mem_fun(*this, &ShiftMarkingDialog::on_code_toggled));
    on_code_toggled();

    show_all_children();
    const std::optional<int> selected = get_selected_code();
    get_code_button(selected.value_or(0)).grab_focus();
}

std::optional<int> ShiftMarkingDialog::get_selected_code() const {
    for (std::size_t code = 0; code < m_codes.size(); ++code)
        if (m_codes[code]->get_active()) return static_cast<int>(code);
    return std::nullopt;
}

void ShiftMarkingDialog::on_code_toggled() {
    m_accept->set_sensitive(get_selected_code().has_value());
}

void ShiftMarkingDialog::accept(int code) {
    if (code < 0 || code >= get_code_count()) return;
    get_code_button(code).set_active(true);
    m_code = code;
    response(Gtk::RESPONSE_OK);
}

void ShiftMarkingDialog::on_response(int response_id) {
    // The first answer counts: a key typed ahead after a letter has chosen
    // (Escape right after "L") does not take the choice back.
    if (!m_answered) {
        m_answered = true;
        if (response_id == Gtk::RESPONSE_OK && !m_code) m_code = get_selected_code();
        if (response_id != Gtk::RESPONSE_OK) m_code.reset();
    }
    Gtk::Dialog::on_response(response_id);
}

bool ShiftMarkingDialog::on_key_press_event(GdkEventKey* event) {
    if (!has_command_modifier(event)) {
        switch (event->keyval) {
            case GDK_KEY_Delete:
            case GDK_KEY_KP_Delete:
                accept(*marks::dialog_key_code(marks::kDeleteKey));
                return true;
            case GDK_KEY_Return:
            case GDK_KEY_KP_Enter:
            case GDK_KEY_ISO_Enter:
                // "Abbruch" with the focus stays "Abbruch"; otherwise Return
                // takes the selection, and waits while there is none.
                if (get_focus() == m_cancel) break;
                if (const std::optional<int> code = get_selected_code()) accept(*code);
                return true;
            default:
                if (const std::optional<int> code =
                        marks::dialog_key_code(gdk_keyval_to_unicode(event->keyval))) {
                    accept(*code);
                    return true;
                }
        }
    }
    return Gtk::Dialog::on_key_press_event(event);
}

}  // namespace sk::app

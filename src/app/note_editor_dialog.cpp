#include "app/note_editor_dialog.hpp"

#include <algorithm>

#include "app/message_box.hpp"
#include "app/ui_support.hpp"

namespace sk::app {

namespace {

bool is_paging(notes::NoteKind kind) {
    return kind == notes::NoteKind::Periodic || kind == notes::NoteKind::Weekday;
}

}  // namespace

NoteEditorDialog::NoteEditorDialog(Gtk::Window& parent, view::CellSize cell,
                                   const notes::NoteStore& store, notes::NoteKind kind,
                                   const calendar::Day& day)
    : m_store(store),
      m_kind(kind),
      m_day(day),
      m_cell(cell),
      m_previous_button(" < "),
      m_next_button(" > "),
      m_save_button("_Speichern", true),
      m_revert_button("_Alles zurück", true),
      m_clear_button("Lösche _Text", true),
      m_delete_button("Lösche _Notiz", true) {
    set_title(notes::editor_title(kind, day));
    make_modal(*this, &parent);
    set_accessible_name(*this, get_title());
    set_default_size_in_cells(*this, cell, 64, 22);

    set_tooltip_and_description(m_previous_button, "Vorherige Notiz für diesen Tag");
    set_tooltip_and_description(m_next_button, "Nächste Notiz für diesen Tag");
    set_accessible_name(m_previous_button, "Vorherige Notiz");
    set_accessible_name(m_next_button, "Nächste Notiz");
    m_pager.set_spacing(cells_wide(cell, 1));
    m_pager.pack_start(m_previous_button, Gtk::PACK_SHRINK);
    m_pager.pack_start(m_entry_label, Gtk::PACK_EXPAND_WIDGET);
    m_pager.pack_start(m_next_button, Gtk::PACK_SHRINK);
    if (!is_paging(kind)) m_pager.set_no_show_all(true);

    m_text_view.set_wrap_mode(Gtk::WRAP_WORD_CHAR);
    set_accessible_name(m_text_view, "Notiztext");
    m_scroller.set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
    m_scroller.set_shadow_type(Gtk::SHADOW_IN);
    set_size_in_cells(m_scroller, cell, 40, 8);
    m_scroller.add(m_text_view);

    set_tooltip_and_description(m_save_button,
                                "Speichert die Notiz und verlässt das Eingabefenster");
    set_tooltip_and_description(
        m_revert_button,
        "Nimmt alle Änderungen zurück, sofern beim Aufruf bereits ein Text vorhanden war");
    set_tooltip_and_description(m_clear_button, "Löscht den gesamten Text");
    set_tooltip_and_description(m_delete_button,
                                "Löscht die gesamte Notiz und verlässt das Eingabefenster");
    m_buttons.set_layout(Gtk::BUTTONBOX_EXPAND);
    for (Gtk::Button* button :
         {&m_save_button, &m_revert_button, &m_clear_button, &m_delete_button})
        m_buttons.pack_start(*button);

    m_extras.set_spacing(cells_high(cell, 0.3));
    m_layout.set_spacing(cells_high(cell, 0.5));
    set_margins_in_cells(m_layout, cell, 1);
    m_layout.pack_start(m_pager, Gtk::PACK_SHRINK);
    m_layout.pack_start(m_scroller, Gtk::PACK_EXPAND_WIDGET);
    m_layout.pack_start(m_extras, Gtk::PACK_SHRINK);
    m_layout.pack_start(m_buttons, Gtk::PACK_SHRINK);
    get_content_area()->pack_start(m_layout, Gtk::PACK_EXPAND_WIDGET);

    m_previous_button.signal_clicked().connect([this] { page(-1); });
    m_next_button.signal_clicked().connect([this] { page(+1); });
    m_save_button.signal_clicked().connect(
        sigc::mem_fun(*this, &NoteEditorDialog::on_save_clicked));
    m_revert_button.signal_clicked().connect(
        sigc::mem_fun(*this, &NoteEditorDialog::on_revert_clicked));
    m_clear_button.signal_clicked().connect(
        sigc::mem_fun(*this, &NoteEditorDialog::on_clear_clicked));
    m_delete_button.signal_clicked().connect(
        sigc::mem_fun(*this, &NoteEditorDialog::on_delete_clicked));
    m_text_view.get_buffer()->signal_changed().connect(
        sigc::mem_fun(*this, &NoteEditorDialog::on_buffer_changed));
    // Before the text field sees the keys: Escape and Ctrl+S belong to the window.
    signal_key_press_event().connect(sigc::mem_fun(*this, &NoteEditorDialog::on_key), false);
    signal_delete_event().connect([this](GdkEventAny*) {
        leave();
        return true;
    });
}

NoteEditorDialog::~NoteEditorDialog() {
    m_pending_cut.disconnect();
}

void NoteEditorDialog::start() {
    m_entries = notes::notes_for_editor(m_store, m_kind, m_day);
    show_entry(0);
    show_all_children();
    focus_text();
}

std::string NoteEditorDialog::get_text() const {
    return m_text_view.get_buffer()->get_text(true).raw();
}

std::optional<notes::NoteRef> NoteEditorDialog::get_shown_note() const {
    if (m_index < m_entries.size()) return m_entries[m_index];
    return std::nullopt;
}

bool NoteEditorDialog::has_changes() const {
    if (get_text() != m_opening_text) return true;
    return get_shown_note() && current_key() != m_opening_key;
}

void NoteEditorDialog::focus_text() {
    m_text_view.grab_focus();
}

void NoteEditorDialog::show_entry(std::size_t index) {
    m_index = std::min(index, m_entries.size());
    const std::optional<notes::NoteRef> shown = get_shown_note();
    m_opening_key = notes::editor_key(shown, m_day);
    show_key(m_opening_key);
    m_opening_text = shown ? notes::read_for_editor(m_store, *shown) : std::string();
    const Glib::RefPtr<Gtk::TextBuffer> buffer = m_text_view.get_buffer();
    buffer->set_text(m_opening_text);
    buffer->place_cursor(buffer->end());
    m_entry_label.set_text(notes::entry_label(m_index, m_entries.size()));
    m_previous_button.set_sensitive(m_index > 0);
    m_next_button.set_sensitive(m_index < m_entries.size());
    // A button that cannot be pressed any more gives the focus back to the text.
    if ((m_previous_button.has_focus() && m_index == 0) ||
        (m_next_button.has_focus() && m_index == m_entries.size()))
        focus_text();
}

void NoteEditorDialog::page(int step) {
    if (!is_paging(m_kind)) return;
    if ((step < 0 && m_index == 0) || (step > 0 && m_index >= m_entries.size())) return;
    if (has_changes() && ask_yes_no(this, to_ustring(notes::kSaveChangesQuestion))) {
        const Outcome outcome = save_shown();
        if (outcome == Outcome::Refused) return;
        if (outcome == Outcome::Saved) {
            const notes::NoteEdit& edit = m_saved.back();
            std::optional<notes::NoteRef> saved;
            if (!edit.text.empty()) saved = edit.target;
            m_entries = notes::notes_for_editor(m_store, m_kind, m_day);
            show_entry(notes::entry_after_save(m_entries, saved, m_index, step));
            return;
        }
    }
    show_entry(step < 0 ? m_index - 1 : m_index + 1);
}

NoteEditorDialog::Outcome NoteEditorDialog::save_shown() {
    enforce_length();
    const std::string text = get_text();
    const std::optional<notes::NoteRef> shown = get_shown_note();
    if (text.empty()) {
        // An empty text deletes the shown note; a new note has nothing to delete.
        const std::optional<notes::NoteEdit> deletion = notes::deletion_of(shown);
        if (!deletion) return Outcome::NothingToSave;
        return request_save(*deletion) ? Outcome::Saved : Outcome::Refused;
    }
    if (const std::optional<std::string> refused = notes::refused_note_text(text)) {
        show_error(this, *refused);
        focus_text();
        return Outcome::Refused;
    }
    const notes::NoteEdit edit{shown, notes::save_target(m_kind, m_day, shown, current_key()),
                               text};
    if (notes::overwrites_other_note(m_store, edit) &&
        !ask_yes_no(this, to_ustring(notes::overwrite_question(m_kind)),
                    QuestionBox::Default::No)) {
        focus_text();
        return Outcome::Refused;
    }
    return request_save(edit) ? Outcome::Saved : Outcome::Refused;
}

bool NoteEditorDialog::request_save(const notes::NoteEdit& edit) {
    if (const std::optional<std::string> error = m_save.emit(edit)) {
        show_error(this, *error);
        focus_text();
        return false;
    }
    m_saved.push_back(edit);
    return true;
}

void NoteEditorDialog::leave() {
    if (!has_changes()) {
        response(Gtk::RESPONSE_CANCEL);
        return;
    }
    if (!ask_yes_no(this, to_ustring(notes::kSaveChangesQuestion))) {
        response(Gtk::RESPONSE_CANCEL);
        return;
    }
    if (save_shown() != Outcome::Refused) response(Gtk::RESPONSE_OK);
}

void NoteEditorDialog::enforce_length() {
    m_pending_cut.disconnect();
    const std::optional<std::string> cut = notes::cut_to_note_length(get_text());
    if (!cut) return;
    const Glib::RefPtr<Gtk::TextBuffer> buffer = m_text_view.get_buffer();
    const auto kept = static_cast<int>(Glib::ustring(*cut).size());
    buffer->erase(buffer->get_iter_at_offset(kept), buffer->end());
    show_message(this, MessageKind::Info, notes::note_cut_message());
    focus_text();
}

void NoteEditorDialog::on_buffer_changed() {
    if (m_pending_cut.connected()) return;
    // A line end is stored as two characters, so half the limit always fits.
    const int characters = m_text_view.get_buffer()->get_char_count();
    if (characters <= static_cast<int>(notes::kMaxNoteLength / 2)) return;
    if (notes::stored_length(get_text()) <= notes::kMaxNoteLength) return;
    // Cut once the insertion (a paste, a key) is complete, before the next
    // event is handled; a save in between cuts first.
    m_pending_cut = Glib::signal_timeout().connect(
        [this] {
            enforce_length();
            return false;
        },
        0, Glib::PRIORITY_HIGH);
}

bool NoteEditorDialog::on_key(GdkEventKey* event) {
    if (event->keyval == GDK_KEY_Escape && !has_command_modifier(event)) {
        leave();
        return true;
    }
    const bool control = (event->state & GDK_CONTROL_MASK) != 0;
    const bool alt = (event->state & GDK_MOD1_MASK) != 0;
    if (control && !alt && gdk_keyval_to_lower(event->keyval) == GDK_KEY_s) {
        on_save_clicked();
        return true;
    }
    if (alt && !control && is_paging(m_kind) &&
        (event->keyval == GDK_KEY_Left || event->keyval == GDK_KEY_Right)) {
        page(event->keyval == GDK_KEY_Left ? -1 : +1);
        return true;
    }
    return false;
}

void NoteEditorDialog::on_save_clicked() {
    if (!has_changes()) {
        response(Gtk::RESPONSE_OK);
        return;
    }
    if (save_shown() != Outcome::Refused) response(Gtk::RESPONSE_OK);
}

void NoteEditorDialog::on_revert_clicked() {
    m_text_view.get_buffer()->set_text(m_opening_text);
    show_key(m_opening_key);
    focus_text();
}

void NoteEditorDialog::on_clear_clicked() {
    m_text_view.get_buffer()->set_text("");
    focus_text();
}

void NoteEditorDialog::on_delete_clicked() {
    const std::optional<notes::NoteEdit> deletion = notes::deletion_of(get_shown_note());
    if (deletion && !request_save(*deletion)) return;
    response(Gtk::RESPONSE_OK);
}

}  // namespace sk::app

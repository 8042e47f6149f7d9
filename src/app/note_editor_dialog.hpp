// The frame the four note editors share: the multi-line text field (which
// has the focus when the window opens), the buttons "Speichern", "Alles
// zurück", "Lösche Text" and "Lösche Notiz", the length limit, Ctrl+S, the
// question on Escape, and for the periodic and weekday-in-month editors the
// paging between the notes of the day (" < ", " > ", "Eintrag k von
// insgesamt n", also Alt+Left and Alt+Right), after which comes room for a
// new note.
//
// The editor writes nothing itself. Every save (on "Speichern", "Lösche
// Notiz", a "Ja" on leaving or paging) is asked of the caller through
// signal_save(), which applies it through the core and answers with an error
// message or nullopt; the editor stays open with its text when a save
// failed. Connect it before run():
//
//     DailyNoteDialog editor(window, cell, session.notes, day);
//     editor.signal_save().connect(
//         [&](const notes::NoteEdit& e) { return notes::apply_note_edit(session.notes, e); });
//     editor.run();
//     if (!editor.get_saved().empty()) redraw();
#pragma once

#include <gtkmm.h>

#include <optional>
#include <string>
#include <vector>

#include "calendar/dates.hpp"
#include "notes/note_editing.hpp"
#include "notes/note_store.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class NoteEditorDialog : public Gtk::Dialog {
  public:
    using SaveSignal = sigc::signal<std::optional<std::string>(const notes::NoteEdit&)>;
    SaveSignal& signal_save() { return m_save; }

    // The saves the caller carried out while the window was open, in order.
    const std::vector<notes::NoteEdit>& get_saved() const { return m_saved; }

    // The text as the field holds it ("\n" line ends).
    std::string get_text() const;
    Gtk::TextView& get_text_view() { return m_text_view; }
    Gtk::Button& get_save_button() { return m_save_button; }
    Gtk::Button& get_revert_button() { return m_revert_button; }
    Gtk::Button& get_clear_button() { return m_clear_button; }
    Gtk::Button& get_delete_button() { return m_delete_button; }
    // Paging editors only (hidden otherwise).
    Gtk::Button& get_previous_button() { return m_previous_button; }
    Gtk::Button& get_next_button() { return m_next_button; }
    Glib::ustring get_entry_text() const { return m_entry_label.get_text(); }

    // The note shown; nullopt for the room for a new note.
    std::optional<notes::NoteRef> get_shown_note() const;
    // True when the text (or, for a stored note, its repeat) differs from
    // what the editor showed when the note was opened.
    bool has_changes() const;

    ~NoteEditorDialog() override;

  protected:
    NoteEditorDialog(Gtk::Window& parent, view::CellSize cell, const notes::NoteStore& store,
                     notes::NoteKind kind, const calendar::Day& day);

    // Rows of the editor's own fields, between the text and the buttons.
    Gtk::Box& get_extras() { return m_extras; }
    view::CellSize get_cell() const { return m_cell; }
    const calendar::Day& get_day() const { return m_day; }
    // Called by the editor at the end of its constructor: shows the first
    // note of the day (or the room for a new one) and focuses the text.
    void start();

    // The repeat the editor's fields show, and setting them for a note.
    virtual notes::EditorKey current_key() const { return m_opening_key; }
    virtual void show_key(const notes::EditorKey&) {}

    // Returns the keyboard focus to the text field.
    void focus_text();

  private:
    enum class Outcome { Refused, NothingToSave, Saved };

    void show_entry(std::size_t index);
    void page(int step);
    Outcome save_shown();
    bool request_save(const notes::NoteEdit& edit);
    void leave();
    void enforce_length();

    void on_buffer_changed();
    bool on_key(GdkEventKey* event);
    void on_save_clicked();
    void on_revert_clicked();
    void on_clear_clicked();
    void on_delete_clicked();

    const notes::NoteStore& m_store;
    notes::NoteKind m_kind;
    calendar::Day m_day;
    view::CellSize m_cell;

    std::vector<notes::NoteRef> m_entries;  // the notes of the day; then the room for a new one
    std::size_t m_index = 0;
    std::string m_opening_text;
    notes::EditorKey m_opening_key;

    Gtk::Box m_layout{Gtk::ORIENTATION_VERTICAL};
    Gtk::Box m_pager{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Button m_previous_button;
    Gtk::Label m_entry_label;
    Gtk::Button m_next_button;
    Gtk::ScrolledWindow m_scroller;
    Gtk::TextView m_text_view;
    Gtk::Box m_extras{Gtk::ORIENTATION_VERTICAL};
    Gtk::ButtonBox m_buttons{Gtk::ORIENTATION_HORIZONTAL};
    Gtk::Button m_save_button;
    Gtk::Button m_revert_button;
    Gtk::Button m_clear_button;
    Gtk::Button m_delete_button;

    SaveSignal m_save;
    std::vector<notes::NoteEdit> m_saved;
    sigc::connection m_pending_cut;
};

}  // namespace sk::app

#include "app/note_actions.hpp"

#include <memory>

#include "app/daily_note_dialog.hpp"
#include "app/delete_notes_dialog.hpp"
#include "app/message_box.hpp"
#include "app/periodic_note_dialog.hpp"
#include "app/weekday_note_dialog.hpp"
#include "app/yearly_note_dialog.hpp"
#include "notes/note_editing.hpp"
#include "session/deletion.hpp"

namespace sk::app {

namespace {

std::unique_ptr<NoteEditorDialog> make_editor(Gtk::Window& parent, view::CellSize cell,
                                              const notes::NoteStore& store, notes::NoteKind kind,
                                              const calendar::Day& day) {
    switch (kind) {
        case notes::NoteKind::Daily:
            return std::make_unique<DailyNoteDialog>(parent, cell, store, day);
        case notes::NoteKind::Periodic:
            return std::make_unique<PeriodicNoteDialog>(parent, cell, store, day);
        case notes::NoteKind::Yearly:
            return std::make_unique<YearlyNoteDialog>(parent, cell, store, day);
        case notes::NoteKind::Weekday:
            return std::make_unique<WeekdayNoteDialog>(parent, cell, store, day);
    }
    return nullptr;
}

}  // namespace

bool edit_note(Gtk::Window& parent, view::CellSize cell, session::Session& session,
               notes::NoteKind kind, const calendar::Day& day) {
    const std::unique_ptr<NoteEditorDialog> editor =
        make_editor(parent, cell, session.notes, kind, day);
    if (!editor) return false;
    editor->signal_save().connect([&session](const notes::NoteEdit& edit) {
        return notes::apply_note_edit(session.notes, edit);
    });
    editor->run();
    editor->hide();
    return !editor->get_saved().empty();
}

bool delete_notes_up_to(Gtk::Window& parent, view::CellSize cell, session::Session& session,
                        const calendar::Day& cursor) {
    DeleteNotesDialog dialog(parent, cell, cursor);
    if (dialog.run() != Gtk::RESPONSE_OK) return false;
    dialog.hide();
    const session::DeletionChoice choice = dialog.get_choice();
    const std::vector<std::string> errors = session::delete_up_to(session, choice);
    std::string text;
    for (const std::string& error : errors)
        text += (text.empty() ? "" : "\r\n") + error;
    if (!text.empty()) show_error(&parent, text);
    return choice.any();
}

std::optional<NoteMenuChoice> choose_from_note_menu(Gtk::Window& parent, view::CellSize cell) {
    NoteMenuDialog menu(parent, cell);
    menu.run();
    menu.hide();
    return menu.get_choice();
}

std::optional<notes::NoteKind> note_kind_of(NoteMenuChoice choice) {
    switch (choice) {
        case NoteMenuChoice::DailyNote:
            return notes::NoteKind::Daily;
        case NoteMenuChoice::PeriodicNote:
            return notes::NoteKind::Periodic;
        case NoteMenuChoice::YearlyNote:
            return notes::NoteKind::Yearly;
        case NoteMenuChoice::WeekdayNote:
            return notes::NoteKind::Weekday;
        default:
            return std::nullopt;
    }
}

}  // namespace sk::app

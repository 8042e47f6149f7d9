// The login and the change of the data root as the window runs them: the
// dialogs ask, the session does the work (session/user_switch.hpp), and
// errors and notes of the core are shown in message boxes. Both return true
// when the session was replaced; the caller then redraws everything (page
// sources, page, status lines, window size, controls and title).
#pragma once

#include <gtkmm.h>

#include <filesystem>
#include <optional>

#include "session/session.hpp"
#include "view/page_text.hpp"

namespace sk::app {

// Keys F11 and A, button "Name".
bool run_login(Gtk::Window& parent, view::CellSize cell, session::Session& session);

// "Prog." - "Programmverzeichnis": a folder chooser, then the question
// "Das Verzeichnis existiert bereits! ..." when the chosen directory already
// holds a directory of the user ("Ja" replaces its files by the current
// user's, "Nein" and Escape take them over as they are).
class DataRootChange {
  public:
    // `start_user_dir`: the user directory the program opened at its start,
    // whose settings the next start reads.
    DataRootChange(Gtk::Window& parent, session::Session& session,
                   std::filesystem::path start_user_dir);

    // The folder chooser "Ein neues Programmverzeichnis wählen"; nullopt
    // when it was cancelled.
    std::optional<std::filesystem::path> choose();
    // Asks about an existing user directory and moves there; true when the
    // session moved.
    bool move_to(const std::filesystem::path& root);

    bool run() {
        const auto root = choose();
        return root && move_to(*root);
    }

  private:
    Gtk::Window& m_parent;
    session::Session& m_session;
    std::filesystem::path m_start_user_dir;
};

}  // namespace sk::app

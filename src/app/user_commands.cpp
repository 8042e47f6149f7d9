#include "app/user_commands.hpp"

#include <algorithm>

#include "app/login_dialog.hpp"
#include "app/message_box.hpp"
#include "app/ui_support.hpp"
#include "session/user_switch.hpp"

namespace sk::app {

namespace {

bool show_result(Gtk::Window& parent, const session::SwitchResult& result) {
    if (!result.ok()) {
        show_error(&parent, to_ustring(result.error));
        return false;
    }
    for (const std::string& message : result.messages)
        show_error(&parent, to_ustring(message));
    return true;
}

}  // namespace

bool run_login(Gtk::Window& parent, view::CellSize cell, session::Session& session) {
    std::string user, password;
    {
        LoginDialog dialog(parent, cell, session.user);
        if (dialog.run() != Gtk::RESPONSE_OK) return false;
        user = dialog.get_user();
        password = dialog.get_password();
    }
    const bool ok = show_result(parent, session::log_in(session, user, password));
    // The typed password is not kept anywhere but in the session.
    std::fill(password.begin(), password.end(), '\0');
    return ok;
}

DataRootChange::DataRootChange(Gtk::Window& parent, session::Session& session,
                               std::filesystem::path start_user_dir)
    : m_parent(parent), m_session(session), m_start_user_dir(std::move(start_user_dir)) {}

std::optional<std::filesystem::path> DataRootChange::choose() {
    Gtk::FileChooserDialog chooser(m_parent, "Ein neues Programmverzeichnis wählen",
                                   Gtk::FILE_CHOOSER_ACTION_SELECT_FOLDER);
    make_modal(chooser, &m_parent);
    chooser.add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    chooser.add_button("_Wählen", Gtk::RESPONSE_OK);
    chooser.set_default_response(Gtk::RESPONSE_OK);
    chooser.set_create_folders(true);
    chooser.set_current_folder(m_session.data_root.string());
    if (chooser.run() != Gtk::RESPONSE_OK) return std::nullopt;
    const std::string folder = chooser.get_filename();
    if (folder.empty()) return std::nullopt;
    return std::filesystem::path(folder);
}

bool DataRootChange::move_to(const std::filesystem::path& root) {
    const session::DataRootTarget target = session::data_root_target(m_session, root);
    if (!target.error.empty()) {
        show_error(&m_parent, to_ustring(target.error));
        return false;
    }
    session::ExistingUserDir existing = session::ExistingUserDir::Replace;
    if (target.user_dir_exists &&
        !ask_yes_no(&m_parent, to_ustring(session::kExistingDirectoryQuestion),
                    QuestionBox::Default::No))
        existing = session::ExistingUserDir::TakeOver;
    return show_result(m_parent,
                       session::change_data_root(m_session, root, existing, m_start_user_dir));
}

}  // namespace sk::app

#include "app/export_actions.hpp"

#include <ctime>

#include "app/export_dialog.hpp"
#include "app/message_box.hpp"
#include "app/ui_support.hpp"

namespace sk::app {

namespace {

using exporting::ExportFormat;

// The documents folder of the desktop (XDG "DOCUMENTS") when it exists,
// else the home folder.
std::string default_folder() {
    const std::string documents = Glib::get_user_special_dir(G_USER_DIRECTORY_DOCUMENTS);
    std::error_code error;
    if (!documents.empty() && std::filesystem::is_directory(documents, error)) return documents;
    return Glib::get_home_dir();
}

Glib::ustring done_message(int model, const exporting::ExportRequest& r,
                           const Glib::ustring& file) {
    const std::string range = "vom " + calendar::format_german_date(r.first) + " bis zum " +
                              calendar::format_german_date(r.last);
    if (r.format == ExportFormat::Csv)
        return "Der Schichtplan " + range + " wurde in die Datei \"" + file + "\" gespeichert.";
    return "Die Schichten der " + exporting::crew_title(model, r.crew) + " " + range +
           " wurden in die Datei \"" + file + "\" gespeichert.";
}

}  // namespace

PlanExport::PlanExport(Gtk::Window& parent, view::CellSize cell, const session::Session& session,
                       const calendar::PageState& page)
    : m_parent(parent), m_cell(cell), m_session(session), m_page(page) {}

std::optional<exporting::ExportRequest> PlanExport::choose_request() {
    ExportDialog dialog(
        m_parent, m_cell, m_page.model,
        exporting::default_export_request(m_page, m_session.accounts.hours.home_crew));
    if (dialog.run() != Gtk::RESPONSE_OK) return std::nullopt;
    return dialog.get_request();
}

std::optional<std::filesystem::path> PlanExport::choose_file(
    const exporting::ExportRequest& request) {
    Gtk::FileChooserDialog chooser(m_parent, "Export speichern unter",
                                   Gtk::FILE_CHOOSER_ACTION_SAVE);
    make_modal(chooser, &m_parent);
    set_default_size_in_cells(chooser, m_cell, 80, 30);
    chooser.add_button("_Abbruch", Gtk::RESPONSE_CANCEL);
    chooser.add_button("_Speichern", Gtk::RESPONSE_OK);
    chooser.set_default_response(Gtk::RESPONSE_OK);
    chooser.set_do_overwrite_confirmation(true);
    chooser.set_create_folders(true);

    const bool csv = request.format == ExportFormat::Csv;
    const Glib::RefPtr<Gtk::FileFilter> own = Gtk::FileFilter::create();
    own->set_name(csv ? "CSV-Tabellen (*.csv)" : "iCalendar-Dateien (*.ics)");
    own->add_pattern(csv ? "*.[cC][sS][vV]" : "*.[iI][cC][sS]");
    const Glib::RefPtr<Gtk::FileFilter> all = Gtk::FileFilter::create();
    all->set_name("Alle Dateien");
    all->add_pattern("*");
    chooser.add_filter(own);
    chooser.add_filter(all);

    chooser.set_current_folder(default_folder());
    chooser.set_current_name(exporting::export_file_name(m_page.model, request));
    if (chooser.run() != Gtk::RESPONSE_OK) return std::nullopt;
    const std::string file = chooser.get_filename();
    if (file.empty()) return std::nullopt;
    return std::filesystem::path(file);
}

bool PlanExport::write(const exporting::ExportRequest& request, const std::filesystem::path& file,
                       std::int64_t stamp) {
    const bool notes = request.format == ExportFormat::ICalendar && request.notes;
    const exporting::ExportText text = exporting::export_text(
        exporting::export_source(m_session, m_page.model, notes), request, stamp);
    if (text.error) {
        show_error(&m_parent, "Der Export ist nicht möglich: " + to_ustring(*text.error));
        return false;
    }
    if (const auto error = exporting::write_export(file, text)) {
        show_error(&m_parent, to_ustring(*error));
        return false;
    }
    show_information(
        &m_parent, done_message(m_page.model, request, Glib::filename_display_name(file.string())));
    return true;
}

bool PlanExport::run() {
    const auto request = choose_request();
    if (!request) return false;
    const auto file = choose_file(*request);
    return file && write(*request, *file, std::time(nullptr));
}

bool export_plan(Gtk::Window& parent, view::CellSize cell, const session::Session& session,
                 const calendar::PageState& page) {
    return PlanExport(parent, cell, session, page).run();
}

}  // namespace sk::app

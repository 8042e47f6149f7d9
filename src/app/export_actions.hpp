// "Prog." - "Export" as the window runs it: the window "Export" for the
// page, the file chooser, then the file is written through the export core
// (the same text as the commands "ics" and "csv", written atomically) and
// the user is told in an "Information" box naming the file, or in a
// "Fehler" box with the reason. Nothing else on disk changes.
#pragma once

#include <gtkmm.h>

#include <cstdint>
#include <filesystem>
#include <optional>

#include "calendar/page_state.hpp"
#include "export/export_request.hpp"
#include "session/session.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class PlanExport {
  public:
    // The page gives the model and the first choices; the session the plan
    // and the user's markings and notes. Both must outlive this value.
    PlanExport(Gtk::Window& parent, view::CellSize cell, const session::Session& session,
               const calendar::PageState& page);

    // The window "Export"; nullopt when it was closed without a choice.
    std::optional<exporting::ExportRequest> choose_request();
    // The file chooser "Export speichern unter" with the suggested name in
    // the user's documents folder (or home); nullopt when it was cancelled.
    // GTK asks before an existing file is replaced.
    std::optional<std::filesystem::path> choose_file(const exporting::ExportRequest& request);
    // Writes the file and shows the box; true when it was written. `stamp`:
    // the DTSTAMP of an iCalendar file, seconds since 1970-01-01 00:00 UTC.
    bool write(const exporting::ExportRequest& request, const std::filesystem::path& file,
               std::int64_t stamp);

    // All three, stamped with the time of the export.
    bool run();

  private:
    Gtk::Window& m_parent;
    view::CellSize m_cell;
    const session::Session& m_session;
    calendar::PageState m_page;
};

// The dispatcher's entry.
bool export_plan(Gtk::Window& parent, view::CellSize cell, const session::Session& session,
                 const calendar::PageState& page);

}  // namespace sk::app

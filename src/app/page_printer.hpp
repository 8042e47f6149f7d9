// Printing the shown page (Ctrl+P): GTK's print dialog, and the page drawn
// by the same vector painter as the PDF of the render command, scaled to fit
// the printable area of the paper and centred, landscape unless the user
// chooses otherwise. The printer, its settings and the page setup chosen are
// kept for the next print of the run (not saved).
#pragma once

#include <gtkmm.h>

#include <string>

#include "view/page_layout.hpp"

namespace sk::app {

class PagePrinter {
  public:
    PagePrinter();

    // Prints one page; returns once the job was handed to the printer (or
    // cancelled). With Gtk::PRINT_OPERATION_ACTION_PRINT no dialog is shown
    // and the kept settings say where the page goes.
    Gtk::PrintOperationResult print(
        Gtk::Window& parent, const view::PageLayout& layout,
        Gtk::PrintOperationAction action = Gtk::PRINT_OPERATION_ACTION_PRINT_DIALOG);

    // Why the last print failed (German); empty when it did not.
    const std::string& error() const { return m_error; }

    // The settings the next print starts from (printer, copies, file name).
    const Glib::RefPtr<Gtk::PrintSettings>& print_settings() const { return m_settings; }
    const Glib::RefPtr<Gtk::PageSetup>& page_setup() const { return m_page_setup; }

  private:
    Glib::RefPtr<Gtk::PrintSettings> m_settings;
    Glib::RefPtr<Gtk::PageSetup> m_page_setup;
    std::string m_error;
};

}  // namespace sk::app

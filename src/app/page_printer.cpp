#include "app/page_printer.hpp"

#include "view/page_output.hpp"

namespace sk::app {

PagePrinter::PagePrinter()
    : m_settings(Gtk::PrintSettings::create()), m_page_setup(Gtk::PageSetup::create()) {
    m_page_setup->set_orientation(Gtk::PAGE_ORIENTATION_LANDSCAPE);
    m_settings->set_orientation(Gtk::PAGE_ORIENTATION_LANDSCAPE);
}

Gtk::PrintOperationResult PagePrinter::print(Gtk::Window& parent, const view::PageLayout& layout,
                                             Gtk::PrintOperationAction action) {
    m_error.clear();
    const Glib::RefPtr<Gtk::PrintOperation> operation = Gtk::PrintOperation::create();
    operation->set_job_name("Schichtkalender");
    operation->set_n_pages(1);
    operation->set_print_settings(m_settings);
    operation->set_default_page_setup(m_page_setup);
    operation->set_embed_page_setup(true);
    operation->signal_draw_page().connect(
        [&layout](const Glib::RefPtr<Gtk::PrintContext>& context, int) {
            // The printable area, in points; the printer's margins are already outside.
            view::paint_page_fitted(context->get_cairo_context()->cobj(), layout,
                                    context->get_width(), context->get_height(), 0.0);
        });
    Gtk::PrintOperationResult result = Gtk::PRINT_OPERATION_RESULT_ERROR;
    try {
        result = operation->run(action, parent);
    } catch (const Glib::Error& e) {
        m_error = "Der Kalender konnte nicht gedruckt werden: " + std::string(e.what());
        return Gtk::PRINT_OPERATION_RESULT_ERROR;
    }
    if (result == Gtk::PRINT_OPERATION_RESULT_APPLY) {
        m_settings = operation->get_print_settings();
        if (const auto setup = operation->get_default_page_setup()) m_page_setup = setup;
    }
    return result;
}

}  // namespace sk::app

// A read-only window of text: today's notes, the notes overview and the help
// texts. Modal over its parent; Escape closes it. The text may use "\r\n"
// line ends as the core gives them; it can be selected and copied but not
// changed. Consecutive lines with tabs form a table whose columns are
// aligned. Sizes are in character cells of the page font.
//
//     TextWindow window(main_window, cell, notes_title(today), text, TextWindow::kNotesSize);
//     window.run();
#pragma once

#include <gtkmm.h>

#include <string>
#include <string_view>

#include "app/help_texts.hpp"
#include "calendar/dates.hpp"
#include "view/page_text.hpp"

namespace sk::app {

class TextWindow : public Gtk::Dialog {
  public:
    struct Size {
        double width;   // cells
        double height;  // cells
    };
    static constexpr Size kNotesSize{64, 24};
    static constexpr Size kHelpSize{112, 36};

    TextWindow(Gtk::Window& parent, view::CellSize cell, const Glib::ustring& title,
               std::string_view text, Size size);

    // The text as shown ("\n" line ends).
    Glib::ustring get_text() const;
    Gtk::TextView& get_view() { return m_view; }

  private:
    void align_tables(view::CellSize cell);

    Gtk::ScrolledWindow m_scroller;
    Gtk::TextView m_view;
};

// The text of one line of a buffer, without its line end.
Glib::ustring line_text(const Glib::RefPtr<Gtk::TextBuffer>& buffer, int line);

// Title of the window of a day's notes: "Notizen für den " and the date.
Glib::ustring notes_title(const calendar::Day& day);
// Title of the overview of the notes of the shown months.
inline constexpr char kOverviewTitle[] = "Übersicht der Notizen";

// A help text in its window.
class HelpWindow : public TextWindow {
  public:
    HelpWindow(Gtk::Window& parent, view::CellSize cell, HelpTopic topic);
};

}  // namespace sk::app

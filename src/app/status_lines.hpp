// The five read-only fields under the page: day information and program
// state, the notes of the cursor day, the astronomy line, the hours balance
// (7 cells, right end of the first line, in its colour) and the remaining
// vacation (4 cells, right end of the second line). Each field is one
// character cell high; after a font change the fields are made anew for the
// new cell. A click on the hours field is reported upward.
#pragma once

#include <gtkmm.h>

#include <array>
#include <memory>

#include "view/page_text.hpp"
#include "view/status_texts.hpp"

namespace sk::app {

enum class StatusField { Day, Notes, Astronomy, Hours, Vacation };
inline constexpr int kStatusFieldCount = 5;

class StatusLines : public Gtk::Grid {
  public:
    StatusLines();

    // Makes the five fields anew for a character cell (and keeps the texts).
    void rebuild(view::CellSize cell);
    void show_texts(const view::StatusTexts& texts);

    Gtk::Entry& field(StatusField which) { return *m_fields[static_cast<std::size_t>(which)]; }
    static const char* tooltip(StatusField which);

    sigc::signal<void()>& signal_hours_clicked() { return m_hours_clicked; }

  private:
    void put_texts(bool colour_changed);

    std::array<std::unique_ptr<Gtk::Entry>, kStatusFieldCount> m_fields;
    Glib::RefPtr<Gtk::CssProvider> m_hours_colour;
    view::StatusTexts m_texts;
    sigc::signal<void()> m_hours_clicked;
};

}  // namespace sk::app

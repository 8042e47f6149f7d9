// Small helpers every window of the program uses: sizes in character cells
// of the page font, closing on Escape, modality over the main window,
// accessible names, the page font on all controls, and text from the core
// made fit for a text view.
#pragma once

#include <gtkmm.h>

#include <string>
#include <string_view>

#include "view/page_text.hpp"

namespace sk::app {

// Pixels of n character cells, rounded up so that n cells of text always fit.
int cells_wide(view::CellSize cell, double n);
int cells_high(view::CellSize cell, double n);

// Size request of a widget, and margins on all four sides, in cells.
void set_size_in_cells(Gtk::Widget& widget, view::CellSize cell, double width, double height);
void set_margins_in_cells(Gtk::Widget& widget, view::CellSize cell, double margin);
// Default size of a window in cells, kept within the work area of the
// monitor that shows `window`'s parent (or the primary one).
void set_default_size_in_cells(Gtk::Window& window, view::CellSize cell, double width,
                               double height);

// Modal over `parent` (kept above it, centred on it, closed with it).
void make_modal(Gtk::Window& window, Gtk::Window* parent);

// Escape (without Ctrl or Alt) closes the window: a dialog answers
// Gtk::RESPONSE_CANCEL, any other window hides. The key is taken before the
// focused child sees it, so no text field or list keeps it.
void close_on_escape(Gtk::Window& window);

// The name a screen reader announces for the widget, and its description.
void set_accessible_name(Gtk::Widget& widget, const Glib::ustring& name);
void set_accessible_description(Gtk::Widget& widget, const Glib::ustring& description);
// A tooltip that is also the widget's accessible description; the name
// comes from the widget's label.
void set_tooltip_and_description(Gtk::Widget& widget, const Glib::ustring& tooltip);

// The theme's error colour on a field or hint while its text is refused.
void show_as_error(Gtk::Widget& widget, bool error);
// A left-aligned label of running text, wrapped at `max_chars` characters.
void set_wrapped(Gtk::Label& label, int max_chars);

// UTF-8 bytes as a ustring (Glib::ustring's (pointer, length) constructor
// counts characters, not bytes).
inline Glib::ustring to_ustring(std::string_view text) {
    return Glib::ustring(std::string(text));
}

// A label as a screen reader should say it: without the mnemonic
// underscore and without a trailing colon ("_Datum:" -> "Datum").
Glib::ustring plain_label(const Glib::ustring& label);

// Text of the core (notes, help texts, messages use "\r\n" line ends) as a
// text view shows it: "\n" line ends, a lone "\r" as a line end too, and
// bytes that are not UTF-8 replaced by U+FFFD, so that no text is refused.
std::string display_text(std::string_view text);

// True when the key event carries Ctrl, Alt or the Super key, that is when
// it is a shortcut rather than a plain key (Shift and the locks do not count).
bool has_command_modifier(const GdkEventKey* event);

// The page font on every control of the program: one style provider on the
// default screen, replaced when the font changes. The program holds one.
class ControlFont {
  public:
    ControlFont();
    ~ControlFont();
    ControlFont(const ControlFont&) = delete;
    ControlFont& operator=(const ControlFont&) = delete;

    void apply(const view::FontSpec& font);
    // The style sheet for a font (exposed for the tests).
    static std::string css(const view::FontSpec& font);

  private:
    Glib::RefPtr<Gtk::CssProvider> m_provider;
};

}  // namespace sk::app

#include "app/text_window.hpp"

#include <algorithm>
#include <vector>

#include "app/ui_support.hpp"

namespace sk::app {

TextWindow::TextWindow(Gtk::Window& parent, view::CellSize cell, const Glib::ustring& title,
                       std::string_view text, Size size) {
    set_title(title);
    make_modal(*this, &parent);
    close_on_escape(*this);
    set_default_size_in_cells(*this, cell, size.width, size.height);
    set_accessible_name(*this, title);

    m_view.get_buffer()->set_text(display_text(text));
    m_view.set_editable(false);
    m_view.set_cursor_visible(true);
    m_view.set_wrap_mode(Gtk::WRAP_WORD_CHAR);
    m_view.set_left_margin(cells_wide(cell, 0.5));
    m_view.set_right_margin(cells_wide(cell, 0.5));
    m_view.set_top_margin(cells_high(cell, 0.25));
    m_view.set_bottom_margin(cells_high(cell, 0.25));
    m_view.get_buffer()->place_cursor(m_view.get_buffer()->begin());
    align_tables(cell);
    set_accessible_name(m_view, title);

    m_scroller.set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
    m_scroller.set_shadow_type(Gtk::SHADOW_IN);
    m_scroller.add(m_view);
    Gtk::Box* box = get_content_area();
    box->set_border_width(0);
    set_margins_in_cells(m_scroller, cell, 0.5);
    box->pack_start(m_scroller, Gtk::PACK_EXPAND_WIDGET);
    show_all_children();
    m_view.grab_focus();
}

Glib::ustring line_text(const Glib::RefPtr<Gtk::TextBuffer>& buffer, int line) {
    const Gtk::TextIter start = buffer->get_iter_at_line(line);
    Gtk::TextIter end = start;
    // On an empty line forward_to_line_end() would go on to the next line's end.
    if (!end.ends_line()) end.forward_to_line_end();
    return buffer->get_text(start, end);
}

// Each run of lines holding a tab gets tab stops of its own: every column
// starts two cells after the widest text of the column before it.
void TextWindow::align_tables(view::CellSize cell) {
    const Glib::RefPtr<Gtk::TextBuffer> buffer = m_view.get_buffer();
    const int gap = cells_wide(cell, 2);
    int line = 0;
    const int lines = buffer->get_line_count();
    while (line < lines) {
        auto has_tab = [&](int l) {
            return line_text(buffer, l).find('\t') != Glib::ustring::npos;
        };
        if (!has_tab(line)) {
            ++line;
            continue;
        }
        const int first = line;
        std::vector<int> widths;  // widest text per column, pixels
        for (; line < lines && has_tab(line); ++line) {
            const Glib::ustring text = line_text(buffer, line);
            std::size_t from = 0;
            for (std::size_t column = 0;; ++column) {
                const std::size_t tab = text.find('\t', from);
                if (tab == Glib::ustring::npos) break;
                int width = 0, height = 0;
                m_view.create_pango_layout(text.substr(from, tab - from))
                    ->get_pixel_size(width, height);
                if (widths.size() <= column) widths.push_back(0);
                widths[column] = std::max(widths[column], width);
                from = tab + 1;
            }
        }
        Pango::TabArray stops(static_cast<int>(widths.size()), true);
        int position = 0;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            position += widths[column] + gap;
            stops.set_tab(static_cast<int>(column), Pango::TAB_LEFT, position);
        }
        const Glib::RefPtr<Gtk::TextTag> tag = buffer->create_tag();
        tag->property_tabs() = stops;
        buffer->apply_tag(tag, buffer->get_iter_at_line(first), buffer->get_iter_at_line(line));
    }
}

Glib::ustring TextWindow::get_text() const {
    return m_view.get_buffer()->get_text();
}

Glib::ustring notes_title(const calendar::Day& day) {
    return "Notizen für den " + calendar::format_german_date(day);
}

HelpWindow::HelpWindow(Gtk::Window& parent, view::CellSize cell, HelpTopic topic)
    : TextWindow(parent, cell, to_ustring(help_text(topic).title), help_text(topic).text,
                 kHelpSize) {}

}  // namespace sk::app

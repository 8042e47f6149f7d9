// The helpers under the windows: text from the core made fit for a text
// view, labels as read out, the page font on the controls, text windows.
#include "app/ui_support.hpp"

#include <gtest/gtest.h>

#include <set>

#include "app/help_texts.hpp"
#include "app/text_window.hpp"
#include "gui_support.hpp"

namespace sk::app {
namespace {

TEST(UiSupport, DisplayText) {
    struct Case {
        std::string in;
        std::string out;
    };
    for (const auto& c : {Case{"a\r\nb", "a\nb"}, Case{"a\r\n\r\nb\r\n", "a\n\nb\n"},
                          Case{"a\rb\nc", "a\nb\nc"}, Case{"\r", "\n"}, Case{"", ""},
                          Case{"Grün", "Grün"}, Case{"Gr\xfcn", "Gr\xef\xbf\xbdn"}}) {
        EXPECT_EQ(display_text(c.in), c.out);
    }
}

TEST(UiSupport, PlainLabel) {
    EXPECT_EQ(plain_label("_Datum:"), "Datum");
    EXPECT_EQ(plain_label("Prog. _Menü"), "Prog. Menü");
    EXPECT_EQ(plain_label("a__b"), "a_b");
}

TEST(UiSupport, ControlFontStyleSheet) {
    EXPECT_EQ(ControlFont::css({"DejaVu Sans", 10, 0}),
              "* { font-family: \"DejaVu Sans\"; font-size: 10pt; font-weight: normal; "
              "font-style: normal; }\n");
    EXPECT_EQ(ControlFont::css({"A \"B\"", 12, 3}),
              "* { font-family: \"A \\\"B\\\"\"; font-size: 12pt; font-weight: bold; "
              "font-style: italic; }\n");
}

// The font reaches a control: a label is measured wider with a larger font
// once GTK has taken the new style.
TEST(UiSupport, ControlFontReachesTheControls) {
    ControlFont font;
    Gtk::Window window;
    Gtk::Label label("Jahresstunden");
    window.add(label);
    font.apply({"DejaVu Sans", 10, 0});
    window.show_all();
    auto width = [&] {
        int minimum = 0, natural = 0;
        label.get_preferred_width(minimum, natural);
        return natural;
    };
    ASSERT_TRUE(test::wait_until([&] { return label.get_mapped() && width() > 0; }));
    const int small = width();
    font.apply({"DejaVu Sans", 20, 0});
    EXPECT_TRUE(test::wait_until([&] { return width() > small * 1.8; })) << small << " " << width();
}

// Core texts with "\r\n" show as lines; the view is read-only.
TEST(TextWindow, ShowsLinesReadOnly) {
    TextWindow window(test::parent_window(), test::cell(),
                      notes_title(calendar::Day::from_date(2024, 2, 31)),
                      "Zahnarzt 8:00\r\n\r\nGeburtstag Anna", TextWindow::kNotesSize);
    EXPECT_EQ(window.get_title(), "Notizen für den 31.03.2024");
    EXPECT_EQ(window.get_text(), "Zahnarzt 8:00\n\nGeburtstag Anna");
    EXPECT_FALSE(window.get_view().get_editable());
    test::run_dialog(window, [&] {
        test::type_text(window.get_view(), "x");
        test::send_key(window, GDK_KEY_Escape);
    });
    EXPECT_EQ(window.get_text(), "Zahnarzt 8:00\n\nGeburtstag Anna");
}

// Every help text fits its window: no line wraps at the test font, and the
// columns of the tables start at one place.
TEST(TextWindow, HelpTextsShowWithoutWrapping) {
    for (const HelpTopic topic : kHelpTopics) {
        HelpWindow window(test::parent_window(), test::cell(), topic);
        window.show();
        ASSERT_TRUE(test::wait_until([&] { return window.get_mapped(); }));
        Gtk::TextView& view = window.get_view();
        const Glib::RefPtr<Gtk::TextBuffer> buffer = view.get_buffer();
        ASSERT_TRUE(test::wait_until([&] { return view.get_allocated_width() > 1; }));
        for (int line = 0; line < buffer->get_line_count(); ++line) {
            Gtk::TextIter iter = buffer->get_iter_at_line(line);
            if (iter.ends_line()) continue;
            const bool wraps = view.forward_display_line(iter) && iter.get_line() == line;
            EXPECT_FALSE(wraps) << help_text(topic).title << ": " << line_text(buffer, line);
        }

        // The x of the text after the first tab, line by line within a table.
        std::set<int> columns;
        for (int line = 0; line < buffer->get_line_count(); ++line) {
            const Glib::ustring text = line_text(buffer, line);
            const auto tab = text.find('\t');
            if (tab == Glib::ustring::npos || tab == 0) continue;
            Gdk::Rectangle place;
            view.get_iter_location(buffer->get_iter_at_line_offset(line, static_cast<int>(tab) + 1),
                                   place);
            columns.insert(place.get_x());
        }
        if (topic == HelpTopic::Keys) {
            EXPECT_EQ(columns.size(), 2u);  // the keys and the mouse
        }
    }
}

}  // namespace
}  // namespace sk::app

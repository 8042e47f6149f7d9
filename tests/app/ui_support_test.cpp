// The helpers under the windows: text from the core made fit for a text
// view, labels as read out, the page font on the controls, text windows.
#include "app/ui_support.hpp"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace sk::app

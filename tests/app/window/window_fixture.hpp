// The main window under test: a Program on a data directory of its own,
// real key presses and clicks synthesised as GDK events, message boxes
// answered (and recorded) as they come, and waiting for conditions.
#pragma once

#include <gtest/gtest.h>
#include <gtkmm.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/application.hpp"
#include "app/commands.hpp"
#include "app/main_window.hpp"
#include "test_support.hpp"

namespace sk::app::test {

bool wait_until(const std::function<bool()>& condition, double seconds = 10);
void send_key(Gtk::Window& window, guint keyval, GdkModifierType state = GdkModifierType(0));
// A primary-button press at (x, y) of the widget; two for a double click.
void click(Gtk::Widget& widget, double x, double y, bool twice = false);

// A message box or window seen by the catcher: its title and (message boxes) text.
struct Message {
    std::string title;
    std::string text;
};

class WindowTest : public ::testing::Test {
  protected:
    WindowTest();
    ~WindowTest() override;

    // Starts the program with `today` on the screen given (large by default).
    void start(const calendar::Day& today,
               std::optional<ScreenSize> screen = ScreenSize{8000, 3000});
    void key(guint keyval, GdkModifierType state = GdkModifierType(0));

    MainWindow& window() { return m_program->window(); }
    AppState& state() { return m_program->state(); }
    CommandDispatcher& commands() { return m_program->commands(); }
    const std::filesystem::path user_dir() const { return m_dir.path() / "Programm"; }
    std::string field_text(StatusField field);
    std::string first_month() const;  // "2026-11"

    sk::test::TempDir m_dir;
    std::unique_ptr<Program> m_program;
    std::vector<Message> m_messages;  // every box and window closed so far
    // Asked first for every window that opens; true when it answered the
    // window itself. Otherwise message boxes get "OK" and other windows
    // are cancelled.
    std::function<bool(Gtk::Dialog&)> m_answer;

  private:
    sigc::connection m_catcher;
};

}  // namespace sk::app::test

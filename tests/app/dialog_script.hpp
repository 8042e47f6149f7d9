// Playing the user for dialogs that the code under test opens and runs by
// itself (the marking actions, later the main window's commands): each step
// waits until a window of its title is shown, gives it the focus and runs
// its action on it. Every window shown is noted, so a test can tell that a
// dialog did not open. Should a step wait 10 seconds without any window to
// act on, every open dialog is answered with Gtk::RESPONSE_CANCEL, so the
// test fails instead of hanging.
//
// An action runs inside a main-loop callback that does not run again until
// it returns: an action that opens a further modal window (a click on the
// colour button) must do so from an idle callback (`later`).
#pragma once

#include <gtkmm.h>

#include <chrono>
#include <functional>
#include <set>
#include <string>
#include <vector>

namespace sk::app::test {

struct ScriptStep {
    Glib::ustring title;
    std::function<void(Gtk::Window&)> action;
};

class DialogScript {
  public:
    explicit DialogScript(std::vector<ScriptStep> steps);
    ~DialogScript();
    DialogScript(const DialogScript&) = delete;
    DialogScript& operator=(const DialogScript&) = delete;

    bool done() const { return m_next == m_steps.size(); }
    bool timed_out() const { return m_timed_out; }
    // The titles of the windows shown, in order, once for each time shown.
    const std::vector<std::string>& shown() const { return m_shown; }
    bool was_shown(const std::string& title) const;

  private:
    bool poll();

    std::vector<ScriptStep> m_steps;
    std::size_t m_next = 0;
    std::set<GtkWindow*> m_mapped;
    GtkWindow* m_handled = nullptr;  // acted on and not yet unmapped
    sigc::connection m_unmapped;
    std::vector<std::string> m_shown;
    std::chrono::steady_clock::time_point m_progress;
    bool m_timed_out = false;
    sigc::connection m_poll;
};

// Runs `action` from an idle callback of the main loop.
void later(std::function<void()> action);

// The text of a message box.
std::string message_text(Gtk::Window& window);

}  // namespace sk::app::test

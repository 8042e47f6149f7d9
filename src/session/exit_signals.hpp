// SIGTERM and SIGINT as events instead of interruptions: while an
// ExitSignalWatch lives, the two signals are blocked and arrive on a file
// descriptor that the main loop watches, so that the program can save the
// user's data in peace and then end (a desktop session logging out sends
// SIGTERM).
#pragma once

#include <csignal>

namespace sk::session {

class ExitSignalWatch {
public:
    ExitSignalWatch();
    ~ExitSignalWatch();
    ExitSignalWatch(const ExitSignalWatch&) = delete;
    ExitSignalWatch& operator=(const ExitSignalWatch&) = delete;

    // Readable when a signal arrived; -1 when the watch could not be set up.
    int fd() const { return m_fd; }
    // Takes one pending signal off the descriptor without waiting: its number,
    // or 0 when none is pending.
    int take_signal();

private:
    int m_fd = -1;
    sigset_t m_previous_mask{};
};

}  // namespace sk::session

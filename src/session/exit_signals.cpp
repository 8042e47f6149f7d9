#include "session/exit_signals.hpp"

#include <pthread.h>
#include <sys/signalfd.h>
#include <unistd.h>

namespace sk::session {

ExitSignalWatch::ExitSignalWatch() {
    sigset_t mask;
    sigemptyset(&mask);
    sigaddset(&mask, SIGTERM);
    sigaddset(&mask, SIGINT);
    if (pthread_sigmask(SIG_BLOCK, &mask, &m_previous_mask) != 0) return;
    m_fd = signalfd(-1, &mask, SFD_NONBLOCK | SFD_CLOEXEC);
}

ExitSignalWatch::~ExitSignalWatch() {
    if (m_fd >= 0) ::close(m_fd);
    pthread_sigmask(SIG_SETMASK, &m_previous_mask, nullptr);
}

int ExitSignalWatch::take_signal() {
    if (m_fd < 0) return 0;
    signalfd_siginfo info{};
    const ssize_t n = ::read(m_fd, &info, sizeof info);
    if (n != static_cast<ssize_t>(sizeof info)) return 0;
    return static_cast<int>(info.ssi_signo);
}

}  // namespace sk::session

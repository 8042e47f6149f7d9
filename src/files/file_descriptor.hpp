// A POSIX file descriptor that closes itself when it goes out of scope.
#pragma once

#include <unistd.h>

#include <utility>

namespace sk::files {

class FileDescriptor {
public:
    explicit FileDescriptor(int fd) : m_fd(fd) {}
    ~FileDescriptor() {
        if (m_fd >= 0) ::close(m_fd);
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    int get() const { return m_fd; }
    // Gives up ownership, e.g. to close it explicitly and see the result.
    int release() { return std::exchange(m_fd, -1); }

private:
    int m_fd;
};

}  // namespace sk::files

// A file descriptor closed when its owner goes out of scope.
#pragma once

#include <unistd.h>

#include <cerrno>

namespace tabulon {

class Descriptor {
public:
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    int get() const { return fd_; }  // negative when none (or a failed open)
    // Closes it now; 0 or the errno of the failure.
    int close() {
        const int result = ::close(fd_);
        fd_ = -1;
        return result == 0 ? 0 : errno;
    }

    // Gives the descriptor up without closing it.
    int release() {
        const int fd = fd_;
        fd_ = -1;
        return fd;
    }

private:
    int fd_;
};

}  // namespace tabulon

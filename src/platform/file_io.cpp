#include "platform/file_io.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>

#include "support/failure.h"

namespace tabulon {

namespace {

[[noreturn]] void FailWith(int error) {
    throw RuntimeFailure(std::strerror(error));
}

// Closes the descriptor on every way out.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd) : fd_(fd) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }
    int get() const { return fd_; }
    // Closes now, reporting the error a late write-back may bring; 0 when fine.
    int close() {
        if (fd_ < 0) return 0;
        const int result = ::close(fd_);
        fd_ = -1;
        return result == 0 ? 0 : errno;
    }

private:
    int fd_;
};

std::string TooLarge(std::size_t maxBytes) {
    return "larger than " + std::to_string(maxBytes) + " bytes";
}

}  // namespace

std::string ReadRegularFile(const std::string& path, std::size_t maxBytes) {
    if (path.empty()) throw RuntimeFailure("no file name");
    // Non-blocking, so that opening a FIFO without a writer or a device returns at
    // once; the type check below then refuses it before any read.
    FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
    if (file.get() < 0) FailWith(errno);
    struct stat info {};
    if (::fstat(file.get(), &info) != 0) FailWith(errno);
    if (S_ISDIR(info.st_mode)) throw RuntimeFailure("is a directory");
    if (!S_ISREG(info.st_mode)) throw RuntimeFailure("not a regular file");
    if (static_cast<std::uintmax_t>(info.st_size) > maxBytes) {
        throw RuntimeFailure(TooLarge(maxBytes));
    }

    std::string data(static_cast<std::size_t>(info.st_size), '\0');
    std::size_t filled = 0;
    for (;;) {
        // The file may have grown since fstat (or report no size at all): keep
        // reading, one block past the cap at most.
        if (filled == data.size()) {
            if (filled > maxBytes) throw RuntimeFailure(TooLarge(maxBytes));
            data.resize(filled + 4096);
        }
        const ssize_t got = ::read(file.get(), data.data() + filled, data.size() - filled);
        if (got < 0) {
            if (errno == EINTR) continue;
            FailWith(errno);
        }
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    if (filled > maxBytes) throw RuntimeFailure(TooLarge(maxBytes));
    data.resize(filled);
    return data;
}

}  // namespace tabulon

#include "support/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <mutex>
#include <string_view>
#include <utility>

namespace tabulon {

namespace {

constexpr mode_t kPermissionBits = 07777;

std::string ErrnoText(int error) {
    return std::strerror(error);
}

bool Fail(std::string* reason, std::string text) {
    if (reason != nullptr) *reason = std::move(text);
    return false;
}

// The process umask without changing it where /proc tells it; otherwise by the
// set-and-restore call, serialised so that two saves never see each other's 0.
mode_t CurrentUmask() {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.starts_with("Umask:")) {
            return static_cast<mode_t>(std::strtoul(line.c_str() + 6, nullptr, 8));
        }
    }
    static std::mutex mutex;
    const std::lock_guard<std::mutex> lock(mutex);
    const mode_t mask = umask(0);
    umask(mask);
    return mask;
}

// The file actually replaced: the target of a symbolic link, else path itself (a
// dangling link is replaced by the file).
std::string ResolveTarget(const std::string& path) {
    struct stat info {};
    if (lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return path;
    char* resolved = realpath(path.c_str(), nullptr);
    if (resolved == nullptr) return path;
    std::string target(resolved);
    std::free(resolved);
    return target;
}

bool WriteAll(int fd, std::string_view data) {
    while (!data.empty()) {
        const ssize_t written = write(fd, data.data(), data.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        data.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool FaultAfterWriteRequested() {
    const char* fault = std::getenv("TABULON_SAVE_FAULT");
    return fault != nullptr && std::string_view(fault) == "after-write";
}

void SyncFolder(const std::string& folder) {
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    fsync(fd);
    close(fd);
}

// Writes, flushes and closes the new file; on failure closes it and returns errno.
int FillTemporary(int fd, std::string_view data, mode_t mode) {
    int error = 0;
    const bool modeSet = fchmod(fd, mode) == 0;
    if (modeSet && FaultAfterWriteRequested()) {
        WriteAll(fd, data.substr(0, data.size() / 2));
        std::abort();
    }
    if (!modeSet || !WriteAll(fd, data) || fsync(fd) != 0) error = errno;
    if (close(fd) != 0 && error == 0) error = errno;
    return error;
}

}  // namespace

bool WriteFileAtomically(const std::string& path, std::string_view data, std::string* reason) {
    if (path.empty()) return Fail(reason, "No file name to save to");
    const std::string target = ResolveTarget(path);
    const std::size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "" : target.substr(0, slash + 1);
    const std::string name = target.substr(folder.size());
    if (name.empty()) return Fail(reason, "Cannot save " + path + ": no file name");

    mode_t mode = 0;
    struct stat info {};
    if (stat(target.c_str(), &info) == 0) {
        if (S_ISDIR(info.st_mode)) return Fail(reason, "Cannot save " + path + ": it is a folder");
        mode = info.st_mode & kPermissionBits;
    } else if (errno == ENOENT) {
        mode = 0666 & ~CurrentUmask();
    } else {
        return Fail(reason, "Cannot save " + path + ": " + ErrnoText(errno));
    }

    std::string temporaryName = folder + "." + name + ".XXXXXX";
    const int fd = mkostemp(temporaryName.data(), O_CLOEXEC);
    if (fd < 0) {
        return Fail(reason,
                    "Cannot create a temporary file beside " + path + ": " + ErrnoText(errno));
    }

    if (const int error = FillTemporary(fd, data, mode); error != 0) {
        unlink(temporaryName.c_str());
        return Fail(reason, "Cannot write " + path + ": " + ErrnoText(error));
    }
    if (rename(temporaryName.c_str(), target.c_str()) != 0) {
        const int error = errno;
        unlink(temporaryName.c_str());
        return Fail(reason, "Cannot replace " + path + ": " + ErrnoText(error));
    }
    SyncFolder(folder.empty() ? "." : folder);
    return true;
}

}  // namespace tabulon

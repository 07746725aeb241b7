#include "support/atomic_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <mutex>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

#include "support/descriptor.h"
#include "support/file_attributes.h"

namespace tabulon {

namespace {

constexpr std::string_view kTemporaryMark = ".tabulon-";
constexpr std::size_t kTemporarySuffix = 6;  // the XXXXXX of mkostemp

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

// Writes all of data at offset, in pieces of at most 1 MiB; returns 0 or an errno.
int WriteAll(int fd, std::string_view data, off_t offset) {
    constexpr std::size_t kPiece = std::size_t{1} << 20;
    while (!data.empty()) {
        const ssize_t written = pwrite(fd, data.data(), std::min(data.size(), kPiece), offset);
        if (written < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        data.remove_prefix(static_cast<std::size_t>(written));
        offset += written;
    }
    return 0;
}

// What WriteContent wrote: its size and hash, or the errno that stopped it.
struct Written {
    int error = 0;
    off_t size = 0;
    std::uint64_t hash = 0;
};

// Written content is sent on to the disk every this many bytes, while the rest is still
// being made: the flush that ends the save then waits for the last stretch only (on a
// 50 MB document, 2 ms instead of 25).
constexpr off_t kWriteBackBytes = off_t{4} << 20;

// The content from the start of fd, hashed as it goes (for the stamp of the saved file).
Written WriteContent(int fd, const ContentSource& content) {
    Written result;
    ContentHasher hasher;
    off_t sent = 0;  // bytes whose write-back has been started
    const bool complete = content([&](std::string_view piece) {
        result.error = WriteAll(fd, piece, result.size);
        if (result.error != 0) return false;
        hasher.add(piece);
        result.size += static_cast<off_t>(piece.size());
        if (result.size - sent >= kWriteBackBytes) {
            // Only a hint: where it is not supported the flush does it all.
            sync_file_range(fd, sent, result.size - sent, SYNC_FILE_RANGE_WRITE);
            sent = result.size;
        }
        return true;
    });
    if (!complete && result.error == 0) result.error = EIO;
    result.hash = hasher.finish();
    return result;
}

// Reads the file at path piece by piece into each(piece); returns 0 or an errno.
template <class Each>
int ReadPieces(const std::string& path, const Each& each) {
    const Descriptor fd(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (fd.get() < 0) return errno;
    char buffer[1 << 16];
    for (;;) {
        const ssize_t count = read(fd.get(), buffer, sizeof buffer);
        if (count == 0) return 0;
        if (count < 0) {
            if (errno == EINTR) continue;
            return errno;
        }
        each(std::string_view(buffer, static_cast<std::size_t>(count)));
    }
}

int ReadAll(const std::string& path, std::string& content) {
    return ReadPieces(path, [&](std::string_view piece) { content.append(piece); });
}

void SyncFolder(const std::string& folder) {
    const Descriptor fd(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (fd.get() >= 0) fsync(fd.get());
}

// The file the save is about.
struct Target {
    std::string path;    // the file itself (a link at the given path resolved)
    std::string folder;  // "" or ending in "/"
    std::string name;
    bool exists = false;
    bool throughLink = false;
    struct stat info {};
};

bool Resolve(const std::string& path, const FileStamp* expected, Target& target,
             std::string* reason) {
    target.path = path;
    struct stat link {};
    if (lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode)) {
        if (expected != nullptr && expected->known && !expected->throughLink) {
            return Fail(reason, "Cannot save " + path +
                                    ": a symbolic link was put in place of the file since it "
                                    "was loaded");
        }
        char* resolved = realpath(path.c_str(), nullptr);
        if (resolved != nullptr) {
            target.path = resolved;
            std::free(resolved);
        }
        target.throughLink = true;
    }
    const std::size_t slash = target.path.rfind('/');
    target.folder = slash == std::string::npos ? "" : target.path.substr(0, slash + 1);
    target.name = target.path.substr(target.folder.size());
    if (target.name.empty()) return Fail(reason, "Cannot save " + path + ": no file name");

    if (stat(target.path.c_str(), &target.info) == 0) {
        target.exists = true;
        if (S_ISDIR(target.info.st_mode)) {
            return Fail(reason, "Cannot save " + path + ": it is a folder");
        }
        if (!S_ISREG(target.info.st_mode)) {
            return Fail(reason, "Cannot save " + path + ": it is not a regular file");
        }
    } else if (errno != ENOENT) {
        return Fail(reason, "Cannot save " + path + ": " + ErrnoText(errno));
    }
    return true;
}

// The target is still the file that was read, unchanged (a removed one may be
// written anew).
bool Unchanged(const std::string& path, const Target& target, const FileStamp& expected,
               std::string* reason) {
    if (!expected.known || !target.exists) return true;
    const std::string changed =
        "Cannot save " + path + ": the file was changed by another program since it was loaded";
    if (!expected.SameFileAs(target.info)) return Fail(reason, changed);
    // Hashed as it is read: a large document is not held a second time to be compared.
    ContentHasher hasher;
    if (const int error =
            ReadPieces(target.path, [&](std::string_view piece) { hasher.add(piece); });
        error != 0) {
        return Fail(reason, "Cannot save " + path + ": " + ErrnoText(error));
    }
    if (hasher.finish() != expected.contentHash) return Fail(reason, changed);
    return true;
}

bool Writable(const std::string& path, const Target& target, std::string* reason) {
    if (!target.exists) return true;
    if ((target.info.st_mode & 0222) == 0) {
        return Fail(reason, "Cannot save " + path + ": the file is read-only");
    }
    if (faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0) {
        return Fail(reason, "Cannot save " + path + ": " + ErrnoText(errno));
    }
    return true;
}

bool IsTemporaryOf(std::string_view entry, std::string_view prefix) {
    return entry.size() == prefix.size() + kTemporarySuffix && entry.starts_with(prefix);
}

// Removes what killed saves of this target left: its temporary files (owned by this
// process's user or, given away to it, by the target's owner) that no process holds (a
// save holds a lock on its temporary file while it writes).
void RemoveStaleTemporaries(const Target& target) {
    const std::string folder = target.folder.empty() ? "." : target.folder;
    DIR* dir = opendir(folder.c_str());
    if (dir == nullptr) return;
    const std::string prefix = "." + target.name + std::string(kTemporaryMark);
    while (const dirent* entry = readdir(dir)) {
        if (!IsTemporaryOf(entry->d_name, prefix)) continue;
        const std::string stale = target.folder + entry->d_name;
        const Descriptor fd(open(stale.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
        struct stat info {};
        if (fd.get() < 0 || fstat(fd.get(), &info) != 0 || !S_ISREG(info.st_mode) ||
            (info.st_uid != geteuid() && !(target.exists && info.st_uid == target.info.st_uid)) ||
            flock(fd.get(), LOCK_EX | LOCK_NB) != 0) {
            continue;
        }
        unlink(stale.c_str());
    }
    closedir(dir);
}

FileStamp WrittenStamp(int fd, std::uint64_t contentHash, bool throughLink) {
    struct stat info {};
    if (fstat(fd, &info) != 0) return FileStamp{};
    return StampOf(info, contentHash, throughLink);
}

// A file's blocks are freed when the last descriptor of the file closes: when nothing
// else holds the replaced file, in the rename itself (13 ms for 50 MB on ext4, with
// the person waiting). A large one is held open over the rename and closed on a
// thread of its own.
constexpr off_t kCloseApartBytes = off_t{4} << 20;

Descriptor HoldIfLarge(const Target& target) {
    if (!target.exists || target.info.st_size < kCloseApartBytes) return Descriptor(-1);
    return Descriptor(open(target.path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
}

void CloseApart(Descriptor& held) {
    if (held.get() < 0) return;
    const int fd = held.release();
    try {
        std::thread([fd] { ::close(fd); }).detach();
    } catch (const std::system_error&) {
        ::close(fd);  // no thread to be had: here, as without it
    }
}

enum class Outcome { Done, Failed, InPlace };

// A new file beside the target, renamed over it. InPlace when that cannot keep the
// target what it was or cannot be done; the new file is then gone.
Outcome ReplaceByRename(const std::string& path, const Target& target, const ContentSource& content,
                        std::string* reason, FileStamp* written) {
    if (target.exists && target.info.st_nlink > 1) return Outcome::InPlace;
    std::string temporary = target.folder + "." + target.name + std::string(kTemporaryMark) +
                            std::string(kTemporarySuffix, 'X');
    Descriptor fd(mkostemp(temporary.data(), O_CLOEXEC));
    if (fd.get() < 0) {
        const int error = errno;
        if (target.exists && (error == EACCES || error == EPERM || error == EROFS)) {
            return Outcome::InPlace;
        }
        Fail(reason, "Cannot create a temporary file beside " + path + ": " + ErrnoText(error));
        return Outcome::Failed;
    }
    flock(fd.get(), LOCK_EX | LOCK_NB);
    const auto discard = [&](Outcome outcome, const std::string& text) {
        unlink(temporary.c_str());
        if (outcome == Outcome::Failed) Fail(reason, text);
        return outcome;
    };
    if (target.exists) {
        if (CopyFileAttributes(target.path, target.info, fd.get()) != 0) {
            return discard(Outcome::InPlace, "");
        }
    } else if (fchmod(fd.get(), 0666 & ~CurrentUmask()) != 0) {
        return discard(Outcome::Failed, "Cannot write " + path + ": " + ErrnoText(errno));
    }
    const Written wrote = WriteContent(fd.get(), content);
    int error = wrote.error;
    if (error == 0 && fsync(fd.get()) != 0) error = errno;
    if (error != 0)
        return discard(Outcome::Failed, "Cannot write " + path + ": " + ErrnoText(error));
    const FileStamp stamp = WrittenStamp(fd.get(), wrote.hash, target.throughLink);
    Descriptor replaced = HoldIfLarge(target);
    // Renamed while still open and locked, so that no other save takes it for stale.
    if (rename(temporary.c_str(), target.path.c_str()) != 0) {
        error = errno;
        if (target.exists && (error == EACCES || error == EPERM || error == EBUSY)) {
            return discard(Outcome::InPlace, "");
        }
        return discard(Outcome::Failed, "Cannot replace " + path + ": " + ErrnoText(error));
    }
    fd.close();
    CloseApart(replaced);
    SyncFolder(target.folder.empty() ? "." : target.folder);
    if (written != nullptr) *written = stamp;
    return Outcome::Done;
}

// A copy of content in the temporary folder; its path, or "" with errno set.
std::string WriteBackup(const Target& target, std::string_view content) {
    const char* folder = std::getenv("TMPDIR");
    std::string path = std::string(folder != nullptr && *folder != '\0' ? folder : "/tmp") +
                       "/tabulon-backup-" + target.name + "-XXXXXX";
    Descriptor fd(mkostemp(path.data(), O_CLOEXEC));
    if (fd.get() < 0) return {};
    int error = fchmod(fd.get(), 0600) == 0 ? WriteAll(fd.get(), content, 0) : errno;
    if (error == 0 && fsync(fd.get()) != 0) error = errno;
    if (error == 0) error = fd.close();
    if (error != 0) {
        unlink(path.c_str());
        errno = error;
        return {};
    }
    return path;
}

// Rewrites the target itself, its old content kept in a backup file meanwhile.
bool RewriteInPlace(const std::string& path, const Target& target, const ContentSource& content,
                    std::string* reason, FileStamp* written) {
    std::string old;
    if (const int error = ReadAll(target.path, old); error != 0) {
        return Fail(reason, "Cannot save " + path + ": " + ErrnoText(error));
    }
    const std::string backup = WriteBackup(target, old);
    if (backup.empty()) {
        return Fail(reason, "Cannot save " + path + " in place: no backup copy could be written (" +
                                ErrnoText(errno) + ")");
    }
    Descriptor fd(open(target.path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    int error = fd.get() < 0 ? errno : 0;
    Written wrote;
    if (error == 0) error = (wrote = WriteContent(fd.get(), content)).error;
    if (error == 0 && ftruncate(fd.get(), wrote.size) != 0) error = errno;
    if (error == 0 && fsync(fd.get()) != 0) error = errno;
    if (error == 0) {
        const FileStamp stamp = WrittenStamp(fd.get(), wrote.hash, target.throughLink);
        if (const int closing = fd.close(); closing == 0) {
            unlink(backup.c_str());
            if (written != nullptr) *written = stamp;
            return true;
        } else {
            error = closing;
        }
    }
    // Put the old content back; keep the backup when that fails too.
    bool restored = false;
    if (fd.get() >= 0) {
        restored = WriteAll(fd.get(), old, 0) == 0 &&
                   ftruncate(fd.get(), static_cast<off_t>(old.size())) == 0 && fsync(fd.get()) == 0;
        // Its time too, so that the next save does not take it for another program's
        // change (only the owner may set it; the content is back either way).
        const timespec times[2] = {target.info.st_atim, target.info.st_mtim};
        if (restored) futimens(fd.get(), times);
    }
    if (restored || fd.get() < 0) unlink(backup.c_str());
    std::string text = "Cannot write " + path + ": " + ErrnoText(error);
    if (!restored && fd.get() >= 0) text += "; its old content is in " + backup;
    return Fail(reason, text);
}

}  // namespace

bool WriteFileAtomically(const std::string& path, std::string_view data, std::string* reason,
                         const FileStamp* expected, FileStamp* written) {
    return WriteFileAtomically(
        path, [data](const PieceSink& sink) { return sink(data); }, reason, expected, written);
}

bool WriteFileAtomically(const std::string& path, const ContentSource& content, std::string* reason,
                         const FileStamp* expected, FileStamp* written) {
    if (path.empty()) return Fail(reason, "No file name to save to");
    Target target;
    if (!Resolve(path, expected, target, reason)) return false;
    if (expected != nullptr && !Unchanged(path, target, *expected, reason)) return false;
    if (!Writable(path, target, reason)) return false;
    RemoveStaleTemporaries(target);
    switch (ReplaceByRename(path, target, content, reason, written)) {
        case Outcome::Done:
            return true;
        case Outcome::Failed:
            return false;
        case Outcome::InPlace:
            break;
    }
    return RewriteInPlace(path, target, content, reason, written);
}

}  // namespace tabulon

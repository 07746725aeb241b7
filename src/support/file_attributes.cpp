#include "support/file_attributes.h"

#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <vector>

namespace tabulon {

namespace {

constexpr mode_t kPermissionBits = 07777;

// The names of the extended attributes of path, or the errno of the failure.
int AttributeNames(const std::string& path, std::vector<char>& names) {
    for (;;) {
        const ssize_t size = listxattr(path.c_str(), nullptr, 0);
        if (size < 0) return errno == ENOTSUP ? 0 : errno;
        names.resize(static_cast<std::size_t>(size));
        if (size == 0) return 0;
        const ssize_t got = listxattr(path.c_str(), names.data(), names.size());
        if (got >= 0) {
            names.resize(static_cast<std::size_t>(got));
            return 0;
        }
        if (errno != ERANGE) return errno;  // ERANGE: it grew meanwhile, ask again
    }
}

int CopyExtendedAttributes(const std::string& path, int fd) {
    std::vector<char> names;
    if (const int error = AttributeNames(path, names); error != 0) return error;
    std::vector<char> value;
    for (std::size_t at = 0; at < names.size();) {
        const std::string_view name(names.data() + at);
        at += name.size() + 1;
        const ssize_t size = getxattr(path.c_str(), name.data(), nullptr, 0);
        if (size < 0) {
            if (errno == ENODATA) continue;  // removed meanwhile
            return errno;
        }
        value.resize(static_cast<std::size_t>(size));
        const ssize_t got = getxattr(path.c_str(), name.data(), value.data(), value.size());
        if (got < 0) return errno;
        if (fsetxattr(fd, name.data(), value.data(), static_cast<std::size_t>(got), 0) != 0) {
            return errno;
        }
    }
    return 0;
}

}  // namespace

int CopyFileAttributes(const std::string& path, const struct stat& info, int fd) {
    struct stat now {};
    if (fstat(fd, &now) != 0) return errno;
    if ((now.st_uid != info.st_uid || now.st_gid != info.st_gid) &&
        fchown(fd, info.st_uid, info.st_gid) != 0) {
        return errno;
    }
    if (fchmod(fd, info.st_mode & kPermissionBits) != 0) return errno;
    return CopyExtendedAttributes(path, fd);
}

}  // namespace tabulon

// Giving a new file the attributes of the file it replaces: owner and group, then the
// permission bits (so that setuid and setgid survive the change of owner), then every
// extended attribute (POSIX ACLs are among them).
#pragma once

#include <sys/stat.h>

#include <string>

namespace tabulon {

// Copies onto the open file fd the attributes of the file at path, described by info.
// Returns 0 or the errno of the first step that failed (the file may then carry
// some of them: callers discard it).
int CopyFileAttributes(const std::string& path, const struct stat& info, int fd);

}  // namespace tabulon

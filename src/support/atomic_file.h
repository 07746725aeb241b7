// Replacing a file so that it holds either its old or its new content, never a
// mixture, whatever happens during the write.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

// Writes data to a temporary file beside path (".<name>.XXXXXX", created with
// mkstemp), flushes it to disk, gives it the permissions of the existing target (or
// 0666 less the process umask when there is none), renames it over the target and
// then flushes the folder on a best-effort basis. When path is a symbolic link, the
// file the link resolves to is replaced and the link stays.
//
// Returns false and a reason naming the path on any failure (empty path, missing or
// unwritable folder, target is a folder, write or flush error); the temporary file
// is then removed and the target is untouched.
//
// When the environment variable TABULON_SAVE_FAULT is "after-write", the process
// calls abort() once the first half of data is written to the temporary file: the
// fault-injection point for crash-safety tests.
[[nodiscard]] bool WriteFileAtomically(const std::string& path, std::string_view data,
                                       std::string* reason);

}  // namespace tabulon

// Reading and replacing the small files the platform models keep (pictures,
// property-bag files) without ever blocking on something that is not a file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tabulon {

// Reads the whole regular file at path, at most maxBytes of it. The file is opened
// non-blocking and its type checked before anything is read, so a FIFO or device
// is refused at once. Throws RuntimeFailure whose text is the bare reason ("No such
// file or directory", "is a directory", "not a regular file", "larger than N bytes",
// ...); callers add the path and what the file was for.
std::string ReadRegularFile(const std::string& path, std::size_t maxBytes);

// Replaces the file at path with data so that it holds either its old or its new
// content: writes a temporary file beside it, flushes it, and renames it over the
// target (keeping the target's permissions, 0644 for a new file). Throws
// RuntimeFailure with the bare reason; the temporary file is removed and the target
// left untouched on failure.
void ReplaceFile(const std::string& path, std::string_view data);

}  // namespace tabulon

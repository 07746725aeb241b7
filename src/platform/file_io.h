// Reading the small files the platform models keep (pictures, property-bag files)
// without ever blocking on something that is not a file.
#pragma once

#include <cstddef>
#include <string>

namespace tabulon {

// Reads the whole regular file at path, at most maxBytes of it. The file is opened
// non-blocking and its type checked before anything is read, so a FIFO or device
// is refused at once. Throws RuntimeFailure whose text is the bare reason ("No such
// file or directory", "is a directory", "not a regular file", "larger than N bytes",
// ...); callers add the path and what the file was for.
std::string ReadRegularFile(const std::string& path, std::size_t maxBytes);

}  // namespace tabulon

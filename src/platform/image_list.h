// ImageList: pictures loaded from files, addressed by 1-based position. Entries are
// only ever added or replaced; the list is never cleared.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/observable.h"

namespace tabulon {

struct Picture {
    std::string path;                 // where it was loaded from
    std::vector<std::uint8_t> bytes;  // the file's content, for a view to decode
};

// Loads a picture from a file. The default loader reads regular files only (a
// directory, FIFO or device is refused without blocking) and throws
// RuntimeFailure when the file cannot be read. A front end may install one that
// also decodes the image.
using PictureLoader = std::function<Picture(const std::string& path)>;
Picture LoadPictureFile(const std::string& path);

// True when a regular file exists at path (the directory look-up of the loader).
bool FileExists(const std::string& path);

class ImageList : public Observable {
public:
    int count() const { return static_cast<int>(pictures_.size()); }
    const Picture& picture(int index) const;  // 1-based; InvalidArgumentFailure when out of range
    // Puts picture at position index (1-based): replaces an existing entry, or
    // appends when index is count() + 1. Anything else throws.
    void set(int index, Picture picture);

private:
    std::vector<Picture> pictures_;
};

}  // namespace tabulon

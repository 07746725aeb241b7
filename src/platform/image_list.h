// ImageList: pictures loaded from files, addressed by 1-based position. Entries are
// only ever added or replaced; the list is never cleared.
#pragma once

#include <cstddef>
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
// directory, FIFO or device is refused without blocking: the file is opened
// non-blocking and checked before anything is read), at most kMaxPictureBytes of
// them, and throws RuntimeFailure with the path and the reason when the file cannot
// be read. It does not decode: an empty file loads as an empty picture. A front end
// may install a loader that also decodes the image.
using PictureLoader = std::function<Picture(const std::string& path)>;
inline constexpr std::size_t kMaxPictureBytes = std::size_t{16} * 1024 * 1024;
Picture LoadPictureFile(const std::string& path);

// True when a regular file exists at path (the directory look-up of the loader);
// false for an empty path, a directory, a FIFO or a device.
bool FileExists(const std::string& path);

class ImageList : public Observable {
public:
    int count() const { return static_cast<int>(pictures_.size()); }
    const Picture& picture(int index) const;  // 1-based; InvalidArgumentFailure when out of range
    // Puts picture at position index (1-based): replaces an existing entry, or
    // appends when index is count() + 1. Anything else throws.
    void set(int index, Picture picture);

    // How pictures for this list are read from files: LoadPictureFile until a front
    // end installs a decoding loader; installing an empty one restores the default.
    const PictureLoader& loader() const { return loader_; }
    void setLoader(PictureLoader loader) {
        loader_ = loader ? std::move(loader) : PictureLoader(LoadPictureFile);
    }

private:
    std::vector<Picture> pictures_;
    PictureLoader loader_ = LoadPictureFile;
};

}  // namespace tabulon

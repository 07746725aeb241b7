// ImageList: pictures loaded from files, addressed by 1-based position. Entries are
// only ever added or replaced; the list is never cleared. Entries may share one
// picture's bytes (several spellings of one file's path); the bytes the list holds,
// each shared buffer counted once, never exceed kMaxImageListBytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/observable.h"

namespace tabulon {

struct Picture {
    std::string path;  // where it was loaded from
    // The file's content, for a view to decode; shared by every entry made from the
    // same file (null reads as empty).
    std::shared_ptr<const std::vector<std::uint8_t>> bytes;

    std::span<const std::uint8_t> data() const {
        return bytes ? std::span<const std::uint8_t>(*bytes) : std::span<const std::uint8_t>();
    }
};

// Loads a picture from a file. The default loader reads regular files only (a
// directory, FIFO or device is refused without blocking: the file is opened
// non-blocking and checked before anything is read), at most kMaxPictureBytes of
// them, and throws RuntimeFailure with the path and the reason when the file cannot
// be read. It does not decode: an empty file loads as an empty picture. A front end
// may install a loader that also decodes the image.
using PictureLoader = std::function<Picture(const std::string& path)>;
inline constexpr std::size_t kMaxPictureBytes = std::size_t{16} * 1024 * 1024;
inline constexpr std::size_t kMaxImageListBytes = std::size_t{64} * 1024 * 1024;
Picture LoadPictureFile(const std::string& path);

// Which file a path names, whatever its spelling ("a.png", "./a.png", "x/../a.png").
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    bool operator==(const FileIdentity&) const = default;
};
struct FileIdentityHash {
    std::size_t operator()(const FileIdentity& id) const {
        return std::hash<std::uint64_t>()(id.inode * 0x9E3779B97F4A7C15ULL ^ id.device);
    }
};

// The identity of the regular file at path; nothing for an empty path, a missing
// file, a directory, a FIFO or a device.
std::optional<FileIdentity> RegularFileIdentity(const std::string& path);
// True when a regular file exists at path (the directory look-up of the loader).
bool FileExists(const std::string& path);

class ImageList : public Observable {
public:
    int count() const { return static_cast<int>(pictures_.size()); }
    const Picture& picture(int index) const;  // 1-based; InvalidArgumentFailure when out of range
    // Puts picture at position index (1-based): replaces an existing entry, or
    // appends when index is count() + 1. Anything else throws InvalidArgumentFailure;
    // bytes beyond kMaxImageListBytes in all throw RuntimeFailure ("Out of memory").
    // Either way the list stays as it was.
    void set(int index, Picture picture);
    // The bytes the list holds, each shared buffer counted once.
    std::size_t bytesHeld() const { return bytesHeld_; }

    // How pictures for this list are read from files: LoadPictureFile until a front
    // end installs a decoding loader; installing an empty one restores the default.
    const PictureLoader& loader() const { return loader_; }
    void setLoader(PictureLoader loader) {
        loader_ = loader ? std::move(loader) : PictureLoader(LoadPictureFile);
    }

private:
    void hold(const Picture& picture, int delta);

    std::vector<Picture> pictures_;
    std::unordered_map<const void*, std::size_t> holders_;  // entries per shared buffer
    std::size_t bytesHeld_ = 0;
    PictureLoader loader_ = LoadPictureFile;
};

}  // namespace tabulon

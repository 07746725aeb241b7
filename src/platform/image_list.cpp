#include "platform/image_list.h"

#include <sys/stat.h>

#include "platform/file_io.h"
#include "support/failure.h"

namespace tabulon {

Picture LoadPictureFile(const std::string& path) {
    std::string data;
    try {
        data = ReadRegularFile(path, kMaxPictureBytes);
    } catch (const RuntimeFailure& failure) {
        throw RuntimeFailure("Cannot load picture '" + path + "': " + failure.what());
    }
    return Picture{path,
                   std::make_shared<const std::vector<std::uint8_t>>(data.begin(), data.end())};
}

std::optional<FileIdentity> RegularFileIdentity(const std::string& path) {
    if (path.empty()) return std::nullopt;
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    return FileIdentity{static_cast<std::uint64_t>(info.st_dev),
                        static_cast<std::uint64_t>(info.st_ino)};
}

bool FileExists(const std::string& path) {
    return RegularFileIdentity(path).has_value();
}

const Picture& ImageList::picture(int index) const {
    if (index < 1 || index > count()) throw InvalidArgumentFailure("Index out of bounds");
    return pictures_[static_cast<std::size_t>(index - 1)];
}

void ImageList::hold(const Picture& picture, int delta) {
    if (!picture.bytes) return;
    const void* buffer = picture.bytes.get();
    std::size_t& holders = holders_[buffer];
    if (delta > 0 && holders++ == 0) bytesHeld_ += picture.bytes->size();
    if (delta < 0 && --holders == 0) {
        bytesHeld_ -= picture.bytes->size();
        holders_.erase(buffer);
    }
}

void ImageList::set(int index, Picture picture) {
    if (index < 1 || index > count() + 1) throw InvalidArgumentFailure("Index out of bounds");
    const bool replacing = index <= count();
    const std::size_t before = bytesHeld_;
    hold(picture, +1);
    if (replacing) hold(pictures_[static_cast<std::size_t>(index - 1)], -1);
    if (bytesHeld_ > kMaxImageListBytes && bytesHeld_ > before) {
        if (replacing) hold(pictures_[static_cast<std::size_t>(index - 1)], +1);
        hold(picture, -1);
        throw RuntimeFailure("Out of memory");
    }
    if (replacing) {
        pictures_[static_cast<std::size_t>(index - 1)] = std::move(picture);
    } else {
        pictures_.push_back(std::move(picture));
    }
    Notify(Change::Content, index);
}

}  // namespace tabulon

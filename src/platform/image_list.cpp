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
    return Picture{path, std::vector<std::uint8_t>(data.begin(), data.end())};
}

bool FileExists(const std::string& path) {
    if (path.empty()) return false;
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

const Picture& ImageList::picture(int index) const {
    if (index < 1 || index > count()) throw InvalidArgumentFailure("Index out of bounds");
    return pictures_[static_cast<std::size_t>(index - 1)];
}

void ImageList::set(int index, Picture picture) {
    if (index < 1 || index > count() + 1) throw InvalidArgumentFailure("Index out of bounds");
    if (index == count() + 1) {
        pictures_.push_back(std::move(picture));
    } else {
        pictures_[static_cast<std::size_t>(index - 1)] = std::move(picture);
    }
    Notify(Change::Content, index);
}

}  // namespace tabulon

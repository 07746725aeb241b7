#include "qt/bindings/picture_decoding.h"

#include <QImage>
#include <QPixmap>

#include "support/failure.h"

namespace tabulon {

namespace {

QImage Decode(const Picture& picture) {
    QImage image;
    const std::span<const std::uint8_t> data = picture.data();
    image.loadFromData(data.data(), static_cast<int>(data.size()));
    return image;
}

}  // namespace

Picture LoadDecodedPicture(const std::string& path) {
    Picture picture = LoadPictureFile(path);
    if (Decode(picture).isNull()) throw RuntimeFailure("Invalid picture: " + path);
    return picture;
}

QIcon IconFromPicture(const Picture& picture) {
    const QImage image = Decode(picture);
    if (image.isNull()) return {};
    return QIcon(QPixmap::fromImage(image));
}

}  // namespace tabulon

// Pictures of the tree's image list, decoded with Qt.
//
// The control reads picture files through its image list's loader. The front end
// installs LoadDecodedPicture there, so that a file Qt cannot read as an image fails
// when the document is loaded (like an unreadable picture on the platform), not
// later when the tree is painted.
#pragma once

#include <QIcon>
#include <string>

#include "platform/image_list.h"

namespace tabulon {

// Reads the file with the core's loader (LoadPictureFile) and checks that its bytes
// decode as an image; throws RuntimeFailure "Invalid picture" (with the path) when
// they do not, and whatever LoadPictureFile throws for an unreadable file.
Picture LoadDecodedPicture(const std::string& path);

// The picture as an icon; a null icon when its bytes do not decode.
QIcon IconFromPicture(const Picture& picture);

}  // namespace tabulon

#include "platform/image_list.h"

#include <unistd.h>

#include <gtest/gtest.h>

#include "common/files.h"
#include "support/failure.h"

namespace tabulon {
namespace {

using testing::TempDir;

// The loader's failure text, or "" when it loaded.
std::string LoadFailure(const std::string& path) {
    try {
        LoadPictureFile(path);
        return "";
    } catch (const RuntimeFailure& e) {
        return e.what();
    }
}

TEST(LoadPictureFile, ReadsTheBytesOfARegularFile) {
    TempDir dir;
    const std::string path = dir.write("a.bmp", std::string("BM\0\x01", 4));
    const Picture picture = LoadPictureFile(path);
    EXPECT_EQ(picture.path, path);
    EXPECT_EQ(*picture.bytes, (std::vector<std::uint8_t>{'B', 'M', 0, 1}));
    EXPECT_TRUE(FileExists(path));
}

// Pipes and folders named as pictures count as missing before any read is tried
// (tests/reliability/hostile_documents_test.cpp).
TEST(LoadPictureFile, RefusesWhatIsNotARegularFileWithTheReason) {
    TempDir dir;
    const std::string missing = dir.file("missing.bmp");
    EXPECT_EQ(LoadFailure(missing),
              "Cannot load picture '" + missing + "': No such file or directory");
    EXPECT_EQ(LoadFailure(dir.path().string()),
              "Cannot load picture '" + dir.path().string() + "': is a directory");
    EXPECT_EQ(LoadFailure("/dev/null"), "Cannot load picture '/dev/null': not a regular file");
    for (const std::string& path : {missing, dir.path().string(), std::string("/dev/null")}) {
        EXPECT_FALSE(FileExists(path)) << path;
    }
    EXPECT_FALSE(FileExists(""));
}

TEST(LoadPictureFile, RefusesFilesPastTheSizeCap) {
    TempDir dir;
    const std::string big = dir.write("big.bmp", "");
    ASSERT_EQ(::truncate(big.c_str(), static_cast<off_t>(kMaxPictureBytes) + 1), 0);  // sparse
    EXPECT_NE(LoadFailure(big).find("larger than"), std::string::npos);
}

TEST(ImageList, SetsByOneBasedPositionReplacingOrAppending) {
    ImageList list;
    list.set(1, Picture{"a", {}});
    list.set(2, Picture{"b", {}});
    list.set(1, Picture{"c", {}});
    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.picture(1).path, "c");
    EXPECT_THROW(list.set(4, Picture{}), InvalidArgumentFailure);
    EXPECT_THROW(list.picture(0), InvalidArgumentFailure);
}

}  // namespace
}  // namespace tabulon

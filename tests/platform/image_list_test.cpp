#include "platform/image_list.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <future>

#include "platform/temp_dir.h"
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
    EXPECT_EQ(picture.bytes, (std::vector<std::uint8_t>{'B', 'M', 0, 1}));
    EXPECT_TRUE(FileExists(path));
}

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

TEST(LoadPictureFile, ReturnsAtOnceForAFifoWithoutWriter) {
    TempDir dir;
    const std::string fifo = dir.file("pipe");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    auto result = std::async(std::launch::async, [&] { return LoadFailure(fifo); });
    // A guard against a hang, not a timing: if the loader blocked, release it by
    // connecting a writer so that the test fails instead of hanging.
    if (result.wait_for(std::chrono::seconds(30)) != std::future_status::ready) {
        const int writer = ::open(fifo.c_str(), O_WRONLY);
        if (writer >= 0) ::close(writer);
        ADD_FAILURE() << "LoadPictureFile blocked on a FIFO";
    }
    EXPECT_EQ(result.get(), "Cannot load picture '" + fifo + "': not a regular file");
    EXPECT_FALSE(FileExists(fifo));
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

// What OK's save does to the file system around the document it was loaded from: it
// writes only to that file (or a new file in its place), never through a link put
// there since, never over another program's change, never over a read-only file, a
// FIFO or a device; it keeps hard links (owner, group and mode: crash_safe_save_test).
// Every refusal shows the user's message and leaves the reason for the host. The device
// case runs as root (as CI does) only.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <tuple>

#include "reliability/hostile_harness.h"

namespace tabulon::testing {
namespace {

struct stat StatOf(const std::filesystem::path& path) {
    struct stat info {};
    EXPECT_EQ(lstat(path.c_str(), &info), 0) << path;
    return info;
}

class SaveSafety : public ControlHarness {
protected:
    // Loads a copy of the plain document and records what OK will write.
    void LoadDocument(const std::string& name = "doc.xml") {
        path_ = TempFile(name, Hostile("plain.xml"));
        LoadAndRecord(path_);
    }
    void LoadAndRecord(const std::filesystem::path& path) {
        ASSERT_TRUE(LoadPath(path));
        saved_ = control().XML();
        ClearRecords();
    }

    void ExpectRefused(const std::string& reasonPart) {
        ExpectMessages({Critical("Unable the save the XML file.")});
        EXPECT_NE(control().LastSaveError().find(reasonPart), std::string::npos)
            << control().LastSaveError();
        EXPECT_NE(control().LastSaveError().find(path_.string()), std::string::npos);
        ClearRecords();
    }
    void ExpectSaved(const std::filesystem::path& path) {
        ExpectMessages({});
        EXPECT_EQ(control().LastSaveError(), "");
        EXPECT_EQ(ReadFileBytes(path), saved_);
    }
    void PressOK() { form().cmdOK.userClick(); }

    std::filesystem::path path_;
    std::string saved_;
};

// What took the file's place since load is refused with its reason and left, with
// the folder, as it was.
TEST_F(SaveSafety, ChangedFileLinkReadOnlyFileFifoOrDeviceIsRefusedAndLeftAlone) {
    namespace fs = std::filesystem;
    const auto special = [](mode_t type) {
        return [type](const fs::path& p) {
            fs::remove(p);
            ASSERT_EQ(mknod(p.c_str(), type | 0600, makedev(1, 3)), 0);  // like /dev/null
        };
    };
    std::vector<std::tuple<const char*, std::function<void(const fs::path&)>, const char*>> cases{
        {"same size and time, other bytes",
         [](const fs::path& p) {
             const struct stat before = StatOf(p);
             std::string text = ReadFileBytes(p);
             text[text.find("North")] = 'n';
             std::ofstream(p, std::ios::binary | std::ios::trunc) << text;
             const timespec times[2] = {before.st_atim, before.st_mtim};
             ASSERT_EQ(utimensat(AT_FDCWD, p.c_str(), times, 0), 0);
         },
         "changed by another program"},
        {"a link put in its place",
         [this](const fs::path& p) {
             fs::remove(p);
             fs::create_symlink(TempFile(p.filename().string() + ".victim", "precious"), p);
         },
         "symbolic link"},
        {"read-only",
         [](const fs::path& p) {
             fs::permissions(p, fs::perms::owner_read | fs::perms::group_read);
         },
         "read-only"},
        {"a FIFO", special(S_IFIFO), "not a regular file"},
    };
    if (geteuid() == 0) cases.emplace_back("a device", special(S_IFCHR), "not a regular file");
    for (const auto& [what, change, reason] : cases) {
        SCOPED_TRACE(what);
        LoadDocument(std::string(what) + ".xml");
        change(path_);
        const struct stat before = StatOf(path_);
        const bool readable = !S_ISFIFO(before.st_mode) && !S_ISCHR(before.st_mode);
        const std::string bytes = readable ? ReadFileBytes(path_) : "";
        const auto entries = std::distance(fs::directory_iterator(TempDir()), {});
        PressOK();
        ExpectRefused(reason);
        EXPECT_EQ(StatOf(path_).st_ino, before.st_ino);
        EXPECT_EQ(StatOf(path_).st_mode, before.st_mode);
        EXPECT_EQ(readable ? ReadFileBytes(path_) : "", bytes);
        EXPECT_EQ(std::distance(fs::directory_iterator(TempDir()), {}), entries);
    }
}

TEST_F(SaveSafety, FileRemovedSinceLoadIsWrittenAnewAndSavesFollowOneAnother) {
    LoadDocument();
    std::filesystem::remove(path_);
    PressOK();
    ExpectSaved(path_);
    // The file written is now the document's own: the next OK saves over it.
    PressOK();
    ExpectSaved(path_);
}

TEST_F(SaveSafety, HardLinksStayLinked) {
    LoadDocument();
    const std::filesystem::path other = TempDir() / "other-name.xml";
    std::filesystem::create_hard_link(path_, other);
    PressOK();
    ExpectSaved(path_);
    EXPECT_EQ(ReadFileBytes(other), saved_);
    EXPECT_EQ(StatOf(path_).st_nlink, 2u);
    EXPECT_EQ(StatOf(path_).st_ino, StatOf(other).st_ino);
}

}  // namespace
}  // namespace tabulon::testing

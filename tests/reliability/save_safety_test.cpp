// What OK's save does to the file system around the document it was loaded from: it
// writes only to that file (or a new file in its place), never through a link put
// there since, never over another program's change, never over a read-only file, a
// FIFO or a device; it keeps owner, group, mode, extended attributes and hard links,
// and saves in place where a folder allows no new file. Every refusal shows the
// user's message and leaves the reason for the host. Cases that need another user or
// device nodes run as root (as CI does) and are skipped otherwise.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/xattr.h>

#include <cstdlib>
#include <tuple>

#include "platform/property_bag.h"
#include "reliability/hostile_harness.h"
#include "session/json_file_property_bag.h"
#include "support/failure.h"

namespace tabulon::testing {
namespace {

constexpr uid_t kNobody = 65534;

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

    // Runs body in a child process as user nobody; it passes when body returns true.
    void AsNobody(const std::function<bool()>& body) {
        ExpectChildPasses([&] {
            return setresgid(kNobody, kNobody, kNobody) == 0 &&
                   setresuid(kNobody, kNobody, kNobody) == 0 && body();
        });
    }

    std::filesystem::path path_;
    std::string saved_;
};

#define REQUIRE_ROOT() \
    if (geteuid() != 0) GTEST_SKIP() << "needs root: files of another user, device nodes"

TEST_F(SaveSafety, LinkThatWasThereAtLoadIsFollowedAndKept) {
    const std::filesystem::path file = TempFile("real.xml", Hostile("plain.xml"));
    path_ = TempDir() / "link.xml";
    std::filesystem::create_symlink(file, path_);
    LoadAndRecord(path_);
    PressOK();
    ExpectSaved(file);
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
}

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
        {"replaced by another file",
         [](const fs::path& p) {
             const std::string text = ReadFileBytes(p);
             fs::remove(p);
             std::ofstream(p, std::ios::binary) << text;
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

TEST_F(SaveSafety, OwnerGroupModeAndExtendedAttributesAreKept) {
    REQUIRE_ROOT();
    LoadDocument();
    ASSERT_EQ(chown(path_.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(chmod(path_.c_str(), 02640), 0);
    ASSERT_EQ(setxattr(path_.c_str(), "user.origin", "plant", 5, 0), 0)
        << "the temporary folder's file system takes no user attributes";
    const struct stat before = StatOf(path_);
    LoadAndRecord(path_);
    PressOK();
    ExpectSaved(path_);
    const struct stat after = StatOf(path_);
    EXPECT_EQ(after.st_uid, kNobody);
    EXPECT_EQ(after.st_gid, kNobody);
    EXPECT_EQ(after.st_mode, before.st_mode);
    char value[16] = {};
    EXPECT_EQ(getxattr(path_.c_str(), "user.origin", value, sizeof value), 5);
    EXPECT_STREQ(value, "plant");
}

TEST_F(SaveSafety, FolderThatTakesNoNewFileIsSavedInPlaceBehindABackup) {
    REQUIRE_ROOT();
    const std::filesystem::path backups = TempDir() / "backups";
    const std::filesystem::path locked = TempDir() / "locked";
    std::filesystem::create_directory(backups);
    std::filesystem::create_directory(locked);
    path_ = locked / "doc.xml";
    std::ofstream(path_, std::ios::binary) << Hostile("plain.xml");
    for (const auto& p : {backups, locked, path_})
        ASSERT_EQ(chown(p.c_str(), kNobody, kNobody), 0);
    ASSERT_EQ(chmod(locked.c_str(), 0555), 0);
    ASSERT_EQ(chmod(TempDir().c_str(), 0755), 0);
    setenv("TMPDIR", backups.c_str(), 1);
    AsNobody([&] {
        if (!LoadPath(path_)) return false;
        const std::string expected = control().XML();
        form().cmdOK.userClick();
        return sink.messages().empty() && ReadFileBytes(path_) == expected;
    });
    unsetenv("TMPDIR");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(locked), {}), 1)
        << "a file was left";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(backups), {}), 0)
        << "a backup was left";
}

TEST_F(SaveSafety, AnotherUsersFileIsSavedOnlyWhereTheyAllowIt) {
    REQUIRE_ROOT();
    const std::filesystem::path shared = TempDir() / "shared";
    std::filesystem::create_directory(shared);
    ASSERT_EQ(chmod(shared.c_str(), 01777), 0);  // sticky: nobody may not rename root's files
    ASSERT_EQ(chmod(TempDir().c_str(), 0755), 0);
    const std::filesystem::path theirs = shared / "theirs.xml";
    const std::filesystem::path open = shared / "open.xml";
    for (const auto& p : {theirs, open})
        std::ofstream(p, std::ios::binary) << Hostile("plain.xml");
    ASSERT_EQ(chmod(theirs.c_str(), 0644), 0);
    ASSERT_EQ(chmod(open.c_str(), 0666), 0);
    AsNobody([&] {
        // Root's 0644 file: refused. Root's 0666 file in the sticky folder: in place.
        if (!LoadPath(theirs)) return false;
        form().cmdOK.userClick();
        const bool refused =
            control().LastSaveError().find("Permission denied") != std::string::npos;
        sink.clear();
        if (!LoadPath(open)) return false;
        const std::string expected = control().XML();
        form().cmdOK.userClick();
        return refused && sink.messages().empty() && ReadFileBytes(open) == expected;
    });
    EXPECT_EQ(ReadFileBytes(theirs), Hostile("plain.xml"));
    EXPECT_EQ(StatOf(open).st_uid, 0u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(shared), {}), 2);
}

TEST_F(SaveSafety, SettingsFileFollowsTheSameRules) {
    JsonFilePropertyBag bag;
    control().WriteProperties(bag);
    const std::filesystem::path file = TempFile("settings.json", "{}\n");
    ASSERT_EQ(chmod(file.c_str(), 0444), 0);
    EXPECT_THROW(bag.Save(file.string()), RuntimeFailure);
    EXPECT_EQ(ReadFileBytes(file), "{}\n");
    ASSERT_EQ(chmod(file.c_str(), 0640), 0);
    bag.Save(file.string());
    EXPECT_EQ(StatOf(file).st_mode & 07777, 0640u);
}

}  // namespace
}  // namespace tabulon::testing

// OK saves the document back over the file it was loaded from. Whatever happens to the
// process during that write (SIGKILL can come at any moment), the file holds either the old
// document or the new one, byte for byte, never a mixture, with the owner, group and mode it had.
//
// The kills: TABULON_KILL_SAVES of them (default 10; bench/kill_saves.sh runs 100), at
// random moments of the save of a TABULON_KILL_SAVE_MB document (default 50; 5 kills of
// 10 MB under the sanitizers, which slow every save several times).
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

#include "common/control_harness.h"
#include "common/documents.h"

namespace tabulon::testing {
namespace {

constexpr mode_t kPermissions = 0640;
constexpr uid_t kOtherOwner = 65534;  // nobody, when the test may give files away
#if defined(__SANITIZE_ADDRESS__)
constexpr int kDefaultKills = 5, kDefaultMegabytes = 10;
#else
constexpr int kDefaultKills = 10, kDefaultMegabytes = 50;
#endif

int EnvironmentNumber(const char* name, int fallback) {
    const char* text = std::getenv(name);
    return text != nullptr && std::atoi(text) > 0 ? std::atoi(text) : fallback;
}

// A valid document of about megabytes MB on one line, so that the saved form
// (indented, one element per line) differs from it throughout.
std::string LargeDocument(int megabytes) {
    const int keys = megabytes * 4000;
    std::string values;
    values.reserve(static_cast<std::size_t>(megabytes) << 20);
    for (int key = 0; key < keys; ++key) {
        std::vector<CellData> cells;
        for (int row = 0; row < 2; ++row) {
            cells.emplace_back("value " + std::to_string(key) + "." + std::to_string(row) +
                               " of a document that is large enough to take a while to write");
        }
        values += CellValues("K" + std::to_string(key), cells);
    }
    return Doc(
        R"(<Pnode Name="Big" KeyValue="BIG" GridHeaderKey="H" GridValueKey="K0" Filter="0"/>)",
        Header("H", R"(<ColumnHeader HName="Item"/><ColumnHeader HName="Value"/>)",
               Row("TextBox") + Row("TextBox")),
        "<GridValue>" + values + "</GridValue>");
}

class CrashSafeSave : public ControlHarness {
protected:
    void SetUpDocument(int megabytes) {
        oldText_ = LargeDocument(megabytes);
        path_ = TempFile("large.xml", oldText_);
        Restamp();
        ASSERT_TRUE(LoadPath(path_));
        // What OK writes: the document as the control serialises it.
        newText_ = control().XML();
        ASSERT_NE(newText_, oldText_);
    }

    // The original's owner (another user when the test runs as root) and mode.
    void Restamp() {
        ASSERT_EQ(chmod(path_.c_str(), kPermissions), 0);
        if (geteuid() == 0) {
            ASSERT_EQ(chown(path_.c_str(), kOtherOwner, kOtherOwner), 0);
        }
        ASSERT_EQ(stat(path_.c_str(), &original_), 0);
    }

    // In a child process, presses OK on the loaded document and exits with 0 once
    // saved without a message.
    pid_t SaveInChild() {
        const pid_t pid = fork();
        if (pid != 0) return pid;
        sink.clear();
        form().cmdOK.userClick();
        _exit(sink.messages().empty() ? 0 : 5);
    }

    // The file is the old or the new document, whole, with its owner, group and mode.
    void ExpectOldOrNew(const std::string& when) {
        SCOPED_TRACE(when);
        const std::string now = ReadFileBytes(path_);
        EXPECT_TRUE(now == oldText_ || now == newText_)
            << "the file holds " << now.size() << " bytes, neither document";
        struct stat info {};
        ASSERT_EQ(stat(path_.c_str(), &info), 0);
        EXPECT_EQ(info.st_mode & 07777, kPermissions);
        EXPECT_EQ(info.st_uid, original_.st_uid);
        EXPECT_EQ(info.st_gid, original_.st_gid);
    }

    // After a save that went through: the old document again, and the loaded
    // document's record of its file brought up to date, as a reload would.
    void RestoreOld() {
        if (ReadFileBytes(path_) == oldText_) return;
        std::filesystem::remove(path_);
        TempFile("large.xml", oldText_);
        Restamp();
        core().doc.xmlFileStamp = StampOf(original_, oldText_, false);
    }

    // In a child process whose files may not grow beyond limit bytes, presses OK;
    // exits with 0 when the user was told the save failed, for that reason.
    pid_t SaveInChildWithFileLimit(rlim_t limit) {
        const pid_t pid = fork();
        if (pid != 0) return pid;
        signal(SIGXFSZ, SIG_IGN);
        const rlimit bound{limit, limit};
        if (setrlimit(RLIMIT_FSIZE, &bound) != 0) _exit(6);
        sink.clear();
        form().cmdOK.userClick();
        const bool told =
            sink.messages() == std::vector{Critical("Unable the save the XML file.")} &&
            control().LastSaveError().find("File too large") != std::string::npos;
        _exit(told ? 0 : 5);
    }

    // The entries of the document's folder.
    std::vector<std::string> FolderEntries() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_.parent_path()))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    std::filesystem::path path_;
    std::string oldText_;
    std::string newText_;
    struct stat original_ {};
};

// The document is written as it is serialised: a save that runs out of room part way
// fails whole, whether the file is replaced by a new one or, with a second link,
// rewritten in place, and a save that went through can be followed by another.
TEST_F(CrashSafeSave, ASaveCutShortByTheFileSystemLeavesTheOldFileAndTheNextSaveGoesThrough) {
    SetUpDocument(3);
    ASSERT_GT(newText_.size(), oldText_.size());
    const std::vector<std::string> entries = FolderEntries();
    const rlim_t limit = (oldText_.size() + newText_.size()) / 2;
    for (const bool linked : {false, true}) {
        SCOPED_TRACE(linked ? "rewritten in place" : "replaced");
        const std::filesystem::path other = path_.parent_path() / "second-link.xml";
        if (linked) std::filesystem::create_hard_link(path_, other);
        int status = 0;
        const pid_t pid = SaveInChildWithFileLimit(limit);
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
        ExpectOldOrNew("cut short");
        EXPECT_TRUE(ReadFileBytes(path_) == oldText_);
        if (linked) std::filesystem::remove(other);
        EXPECT_EQ(FolderEntries(), entries);
    }

    for (int save = 1; save <= 2; ++save) {
        sink.clear();
        form().cmdOK.userClick();
        EXPECT_EQ(sink.messages(), std::vector<RecordedMessage>{}) << "save " << save;
        EXPECT_EQ(control().LastSaveError(), "");
        EXPECT_TRUE(ReadFileBytes(path_) == newText_);
    }
}

TEST_F(CrashSafeSave, KilledAtRandomMomentsOfTheSaveTheFileIsOldOrNew) {
    SetUpDocument(EnvironmentNumber("TABULON_KILL_SAVE_MB", kDefaultMegabytes));
    const int kills = EnvironmentNumber("TABULON_KILL_SAVES", kDefaultKills);
    // How long a whole save takes here: the kills are spread over it and a bit beyond.
    const auto started = std::chrono::steady_clock::now();
    int status = 0;
    const pid_t whole = SaveInChild();
    ASSERT_EQ(waitpid(whole, &status, 0), whole);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
    const auto saveMicroseconds = std::chrono::duration_cast<std::chrono::microseconds>(
                                      std::chrono::steady_clock::now() - started)
                                      .count();
    ExpectOldOrNew("saved whole");
    RestoreOld();

    std::mt19937 random(20261125);
    std::uniform_int_distribution<long> moment(0, saveMicroseconds + saveMicroseconds / 5);
    int killedOld = 0, killedNew = 0;
    for (int kill = 0; kill < kills; ++kill) {
        const long delay = moment(random);
        const pid_t pid = SaveInChild();
        usleep(static_cast<useconds_t>(delay));
        ::kill(pid, SIGKILL);
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        ExpectOldOrNew("kill " + std::to_string(kill) + " after " + std::to_string(delay) + " us");
        (ReadFileBytes(path_) == oldText_ ? killedOld : killedNew) += 1;
        RestoreOld();
    }
    std::cout << "[ kills    ] " << kills << " kills over a save of " << saveMicroseconds
              << " us: old document " << killedOld << ", new " << killedNew << "\n";
}

}  // namespace
}  // namespace tabulon::testing

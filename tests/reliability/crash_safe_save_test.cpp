// OK saves the document back over the file it was loaded from. Whatever happens to the
// process during that write (the fault-injection point aborts it halfway; SIGKILL can
// come at any moment), the file holds either the old document or the new one, byte
// for byte, never a mixture, and keeps its permissions.
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "common/control_harness.h"
#include "common/documents.h"
#include "control/control_access.h"

namespace tabulon::testing {
namespace {

constexpr mode_t kPermissions = 0640;

// A valid document of about 3 MB on one line, so that the saved form (indented, one
// element per line) differs from it throughout. Only the first CellValues is shown.
std::string LargeDocument() {
    std::string values;
    for (int key = 0; key < 12000; ++key) {
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

mode_t PermissionsOf(const std::filesystem::path& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.c_str(), &info), 0);
    return info.st_mode & 07777;
}

class CrashSafeSave : public ControlHarness {
protected:
    void SetUp() override {
        oldText_ = LargeDocument();
        path_ = TempFile("large.xml", oldText_);
        ASSERT_EQ(chmod(path_.c_str(), kPermissions), 0);
        // What OK writes: the document as the control serialises it.
        ASSERT_TRUE(LoadPath(path_));
        newText_ = control().XML();
        ASSERT_NE(newText_, oldText_);
        NewControl();
    }

    // In a child process: loads the file, tells the parent through notify (when not
    // -1) that the save is about to start, presses OK and exits with 0 once saved.
    pid_t SaveInChild(bool injectFault, int notify = -1) {
        const pid_t pid = fork();
        if (pid != 0) return pid;
        if (injectFault) setenv("TABULON_SAVE_FAULT", "after-write", 1);
        RecordingSink childSink;
        RecordingHost childHost;
        Generic_SP_Control child(childSink, childHost);
        child.InitProperties();
        child.Show();
        if (!child.Load(path_.string())) _exit(3);
        if (notify != -1 && write(notify, "s", 1) != 1) _exit(4);
        FormOf(child).cmdOK.userClick();
        _exit(childSink.messages().empty() && childHost.events().size() == 1 ? 0 : 5);
    }

    // The file is the old or the new document, whole, with its permissions.
    void ExpectOldOrNew(const char* when) {
        SCOPED_TRACE(when);
        const std::string now = ReadFileBytes(path_);
        EXPECT_TRUE(now == oldText_ || now == newText_)
            << "the file holds " << now.size() << " bytes, neither document";
        EXPECT_EQ(PermissionsOf(path_), kPermissions);
    }

    void RestoreOld() {
        std::filesystem::remove(path_);
        TempFile("large.xml", oldText_);
        ASSERT_EQ(chmod(path_.c_str(), kPermissions), 0);
    }

    std::filesystem::path path_;
    std::string oldText_;
    std::string newText_;
};

TEST_F(CrashSafeSave, CompletedSaveWritesTheNewDocumentAndKeepsPermissions) {
    ASSERT_TRUE(LoadPath(path_));
    form().cmdOK.userClick();
    ExpectMessages({});
    EXPECT_EQ(ReadFileBytes(path_), newText_);
    EXPECT_EQ(PermissionsOf(path_), kPermissions);
    // Nothing is left beside it.
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(TempDir()),
                            std::filesystem::directory_iterator()),
              1);
}

TEST_F(CrashSafeSave, AbortHalfwayThroughTheWriteLeavesTheOldFile) {
    const pid_t pid = SaveInChild(true);
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the save ran to its end, status " << status;
    EXPECT_EQ(WTERMSIG(status), SIGABRT);
    EXPECT_EQ(ReadFileBytes(path_), oldText_);
    EXPECT_EQ(PermissionsOf(path_), kPermissions);
}

TEST_F(CrashSafeSave, KilledAtAnyMomentOfTheSaveTheFileIsOldOrNew) {
    // Kills spread over the save, from before its first byte to after its rename.
    for (const int delayMicroseconds : {0, 200, 1000, 3000, 10000, 30000, 100000}) {
        std::array<int, 2> ready{};
        ASSERT_EQ(pipe(ready.data()), 0);
        const pid_t pid = SaveInChild(false, ready[1]);
        close(ready[1]);
        char signal = 0;
        ASSERT_EQ(read(ready[0], &signal, 1), 1) << "the child could not load the file";
        close(ready[0]);
        usleep(static_cast<useconds_t>(delayMicroseconds));
        kill(pid, SIGKILL);
        int status = 0;
        ASSERT_EQ(waitpid(pid, &status, 0), pid);
        ExpectOldOrNew(("killed " + std::to_string(delayMicroseconds) + " us in").c_str());
        RestoreOld();
    }
}

}  // namespace
}  // namespace tabulon::testing

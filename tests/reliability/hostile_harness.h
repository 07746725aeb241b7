// What the hostile-document, bounded-document and save-safety tests share: the plain
// document they vary, loading a text both ways a host can, the one message a refusal
// shows, and checks run in a child process (another user, a lowered memory limit).
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>
#include <string>

#include "common/control_harness.h"

namespace tabulon::testing {

// tests/data/hostile/NAME: plain.xml and its hostile variations.
inline std::string Hostile(const std::string& name) {
    return ReadFileBytes(DataFile("hostile/" + name));
}

// Runs body in a child process: it passes when body returns true there.
inline void ExpectChildPasses(const std::function<bool()>& body) {
    const pid_t pid = fork();
    if (pid == 0) _exit(body() ? 0 : 1);
    int status = 0;
    ASSERT_EQ(waitpid(pid, &status, 0), pid);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "status " << status;
}

class HostileHarness : public ControlHarness {
protected:
    // LoadXML of text, or Load of a file holding it.
    bool LoadEither(const std::string& text, bool fromFile) {
        return fromFile ? LoadPath(TempFile("doc.xml", text)) : LoadText(text);
    }
    // The text of the one message shown, which must be critical; the records are
    // cleared.
    std::string OnlyCriticalMessage() {
        EXPECT_EQ(sink.messages().size(), 1u);
        if (sink.messages().empty()) return {};
        EXPECT_EQ(sink.messages().front().icon, MessageIcon::Critical);
        const std::string text = sink.messages().front().text;
        ClearRecords();
        return text;
    }
};

}  // namespace tabulon::testing

#include <gtest/gtest.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <vector>

#include "common/files.h"
#include "platform/xml/xml_validator.h"

namespace tabulon::xml {
namespace {

const std::string kDtd =
    "<!DOCTYPE r [\n"
    "<!ELEMENT r (i*)>\n"
    "<!ELEMENT i EMPTY>\n"
    "<!ATTLIST i  k ID #REQUIRED>\n"
    "]>\n";

// A valid document has no reason; otherwise the first error comes with its line and
// source text.
TEST(ValidateWithDtd, ReportsTheFirstErrorWithItsLineAndSourceText) {
    struct Case {
        std::string text;
        std::string reason;
        int line;
        std::string sourceText;
    };
    const std::vector<Case> cases = {
        {kDtd + "<r>\n  <i k=\"a\"/>\n  <i k=\"b\"/>\n</r>", "", 0, ""},
        {"", "Document is empty", 0, ""},
        {kDtd + "<r>\r\n  <i k=\"a\"/>\r\n  <i k=\"a\"/>\r\n  <x/>\r\n</r>", "ID a already defined",
         8, "  <i k=\"a\"/>"},
        {kDtd + "<r>\n  <i/>\n</r>", "Element i does not carry attribute k", 7, "  <i/>"}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const ValidationResult result = ValidateWithDtd(c.text);
        EXPECT_EQ(result.ok, c.reason.empty());
        EXPECT_EQ(result.reason, c.reason);
        if (c.line != 0 || c.reason.empty()) {
            EXPECT_EQ(result.line, c.line);
            EXPECT_EQ(result.sourceText, c.sourceText);
        }
    }
}

std::string BillionLaughs() {
    std::string text = "<!DOCTYPE lolz [\n<!ELEMENT lolz (#PCDATA)>\n<!ENTITY lol0 \"lol\">\n";
    for (int level = 1; level <= 9; ++level) {
        text += "<!ENTITY lol" + std::to_string(level) + " \"";
        for (int copy = 0; copy < 10; ++copy)
            text += "&lol" + std::to_string(level - 1) + ";";
        text += "\">\n";
    }
    return text + "]>\n<lolz>&lol9;</lolz>";
}

// Caps this process's address space, except under the address sanitizer, which
// reserves far more than it uses.
void CapAddressSpace(rlim_t bytes) {
#if !defined(__SANITIZE_ADDRESS__)
    const rlimit cap{bytes, bytes};
    setrlimit(RLIMIT_AS, &cap);
#else
    static_cast<void>(bytes);
#endif
}

// Expanding the entities would take 3 GB; the child process may use far less.
TEST(ValidateWithDtdDeathTest, BillionLaughsFailsWithinAMemoryCap) {
    const std::string text = BillionLaughs();
    EXPECT_EXIT(
        {
            CapAddressSpace(rlim_t{512} << 20);
            const ValidationResult result = ValidateWithDtd(text);
            std::_Exit(!result.ok && result.reason.find("entity") != std::string::npos ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST(ValidateWithDtd, ExternalEntitiesAreNeverRead) {
    testing::TempDir folder;
    const std::string marker = "MARKER-" + std::to_string(getpid()) + "-" + std::to_string(rand());
    const std::string secret = folder.write("secret.txt", "<i k=\"" + marker + "\"/>");
    const int watch = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    ASSERT_GE(watch, 0);
    ASSERT_GE(inotify_add_watch(watch, secret.c_str(), IN_OPEN | IN_ACCESS), 0);

    const std::vector<std::string> texts = {
        "<!DOCTYPE r [<!ELEMENT r ANY><!ENTITY s SYSTEM \"file://" + secret + "\">]><r>&s;</r>",
        "<!DOCTYPE r [<!ELEMENT r ANY><!ENTITY s SYSTEM \"" + secret + "\">]><r>&s;</r>",
        "<!DOCTYPE r SYSTEM \"" + secret + "\"><r/>",
        "<!DOCTYPE r [<!ENTITY % s SYSTEM \"" + secret + "\"> %s; ]><r/>"};
    for (const std::string& text : texts) {
        const ValidationResult result = ValidateWithDtd(text);
        EXPECT_FALSE(result.ok) << text;
        EXPECT_NE(result.reason.find("is not loaded"), std::string::npos) << result.reason;
        EXPECT_EQ(result.reason.find(marker), std::string::npos) << result.reason;
        EXPECT_EQ(result.sourceText.find(marker), std::string::npos);
    }
    char events[4096];
    EXPECT_EQ(read(watch, events, sizeof events), -1) << "the file was opened";
    EXPECT_EQ(errno, EAGAIN);
    // The watch itself works: reading the file here is seen.
    EXPECT_EQ(testing::ReadFileBytes(secret).find(marker), 6U);
    EXPECT_GT(read(watch, events, sizeof events), 0);
    close(watch);
}

}  // namespace
}  // namespace tabulon::xml

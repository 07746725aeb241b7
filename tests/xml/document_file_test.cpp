#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/xml/xml_document.h"
#include "xml/test_files.h"

namespace tabulon::xml {
namespace {

using test_support::ReadBytes;
using test_support::TempFolder;
using test_support::WriteBytes;

std::string Utf16(const std::u16string& text, bool bigEndian) {
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? high : low;
        bytes += bigEndian ? low : high;
    }
    return bytes;
}

mode_t ModeOf(const std::string& path) {
    struct stat info {};
    EXPECT_EQ(stat(path.c_str(), &info), 0) << path;
    return info.st_mode & 07777;
}

Document ParsedDocument(std::string_view text) {
    Document document;
    EXPECT_TRUE(document.Parse(text));
    return document;
}

TEST(LoadFile, ReadsUtf8AndUtf16WithByteOrderMarks) {
    // "é", "ü" and U+1D11E (a surrogate pair in UTF-16).
    const std::string expectedText = "\xC3\xBC\xF0\x9D\x84\x9E";
    const std::u16string text16 = u"<a v=\"\u00e9\">\u00fc\U0001D11E</a>";
    const std::string text8 = "<a v=\"\xC3\xA9\">" + expectedText + "</a>";
    const std::vector<std::pair<std::string, std::string>> files = {
        {"utf8.xml", text8},
        {"utf8-bom.xml", "\xEF\xBB\xBF" + text8},
        {"utf16le.xml", Utf16(text16, false)},
        {"utf16be.xml", Utf16(text16, true)},
    };
    TempFolder folder;
    for (const auto& [name, bytes] : files) {
        WriteBytes(folder.File(name), bytes);
        Document document;
        ParseError error;
        ASSERT_TRUE(document.LoadFile(folder.File(name), &error)) << name << ": " << error.reason;
        EXPECT_EQ(document.documentElement().attribute("v").value(), "\xC3\xA9") << name;
        EXPECT_EQ(document.documentElement().text(), expectedText) << name;
    }
    // Lines and columns of a parse error count in the decoded text.
    WriteBytes(folder.File("bad.xml"), Utf16(u"<a>\r\n  <b></a>", false));
    Document document;
    ParseError error;
    EXPECT_FALSE(document.LoadFile(folder.File("bad.xml"), &error));
    EXPECT_EQ(error.reason, "Start-end tags mismatch at line 2, column 8");
}

TEST(LoadFile, UnreadableOrMalformedFilesFailNamingThePath) {
    TempFolder folder;
    WriteBytes(folder.File("odd.xml"), std::string("\xFF\xFE<\0a", 5));
    WriteBytes(folder.File("surrogate.xml"), std::string("\xFF\xFE\x00\xD8<\0", 6));
    const std::vector<std::pair<std::string, std::string>> cases = {
        {folder.File("missing.xml"), "No such file or directory"},
        {folder.path(), "Is a directory"},
        {folder.File("odd.xml"), "not valid UTF-16"},
        {folder.File("surrogate.xml"), "not valid UTF-16"},
    };
    for (const auto& [path, cause] : cases) {
        Document document = ParsedDocument("<old/>");
        ParseError error;
        EXPECT_FALSE(document.LoadFile(path, &error)) << path;
        EXPECT_NE(error.reason.find(path), std::string::npos) << error.reason;
        EXPECT_NE(error.reason.find(cause), std::string::npos) << error.reason;
        EXPECT_TRUE(document.documentElement().empty()) << "the old content is gone";
    }
}

TEST(SaveAtomic, WritesTheSerialisedDocumentWithDefaultPermissions) {
    TempFolder folder;
    const Document document = ParsedDocument("<a><b>1</b></a>");
    std::string reason;
    ASSERT_TRUE(document.SaveAtomic(folder.File("new.xml"), &reason)) << reason;
    EXPECT_EQ(ReadBytes(folder.File("new.xml")), document.Serialize());
    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(ModeOf(folder.File("new.xml")), 0666 & ~mask);
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"new.xml"}) << "no temporary file is left";
}

TEST(SaveAtomic, KeepsThePermissionsOfTheReplacedFile) {
    TempFolder folder;
    const std::string path = folder.File("doc.xml");
    WriteBytes(path, "old content");
    ASSERT_EQ(chmod(path.c_str(), 0604), 0);
    ASSERT_TRUE(ParsedDocument("<new/>").SaveAtomic(path));
    EXPECT_EQ(ReadBytes(path), "<new/>\n");
    EXPECT_EQ(ModeOf(path), 0604U);
}

TEST(SaveAtomic, ReplacesTheFileBehindASymbolicLink) {
    TempFolder folder;
    WriteBytes(folder.File("real.xml"), "old");
    ASSERT_EQ(symlink("real.xml", folder.File("link.xml").c_str()), 0);
    ASSERT_TRUE(ParsedDocument("<new/>").SaveAtomic(folder.File("link.xml")));
    EXPECT_EQ(ReadBytes(folder.File("real.xml")), "<new/>\n");
    struct stat info {};
    ASSERT_EQ(lstat(folder.File("link.xml").c_str(), &info), 0);
    EXPECT_TRUE(S_ISLNK(info.st_mode));
}

TEST(SaveAtomic, FailsWithoutTouchingAnythingWhenTheFolderIsGoneOrTheTargetIsAFolder) {
    TempFolder folder;
    ASSERT_EQ(mkdir(folder.File("sub").c_str(), 0755), 0);
    const Document document = ParsedDocument("<new/>");
    for (const std::string& path :
         {folder.File("vanished/doc.xml"), folder.File("sub"), std::string()}) {
        std::string reason;
        EXPECT_FALSE(document.SaveAtomic(path, &reason)) << path;
        EXPECT_NE(reason.find(path), std::string::npos) << reason;
    }
    EXPECT_EQ(folder.Names(), std::vector<std::string>{"sub"});
    EXPECT_TRUE(std::filesystem::is_empty(folder.File("sub")));
}

// Permission checks do not apply to root, so the save runs in a child process that
// first gives up root rights when it has them.
TEST(SaveAtomic, ReadOnlyFolderFailsAndLeavesTheOriginalByteIdentical) {
    TempFolder folder;
    const std::string sub = folder.File("ro");
    const std::string path = sub + "/doc.xml";
    ASSERT_EQ(mkdir(sub.c_str(), 0755), 0);
    const std::string original = "<original attr=\"1\"/>\r\n";
    WriteBytes(path, original);
    ASSERT_EQ(chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(chmod(sub.c_str(), 0555), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);

    const Document document = ParsedDocument("<replacement/>");
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) _exit(2);
        std::string reason;
        const bool saved = document.SaveAtomic(path, &reason);
        _exit(!saved && reason.find("Permission denied") != std::string::npos ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(ReadBytes(path), original);
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(sub)) {
        names.push_back(entry.path().filename().string());
    }
    EXPECT_EQ(names, std::vector<std::string>{"doc.xml"});
    chmod(sub.c_str(), 0755);
}

TEST(SaveAtomicDeathTest, CrashAfterHalfTheDataLeavesTheTargetIntact) {
    TempFolder folder;
    const std::string path = folder.File("doc.xml");
    WriteBytes(path, "original");
    const Document document = ParsedDocument("<a><b>first half</b><c>second half</c></a>");
    EXPECT_DEATH(
        {
            setenv("TABULON_SAVE_FAULT", "after-write", 1);
            document.SaveAtomic(path);
        },
        "");
    EXPECT_EQ(ReadBytes(path), "original");
    std::vector<std::string> names = folder.Names();
    ASSERT_EQ(names.size(), 2U);
    const std::string temporary = names[0] == "doc.xml" ? names[1] : names[0];
    EXPECT_EQ(temporary.rfind(".doc.xml.", 0), 0U) << temporary;
    const std::string serialized = document.Serialize();
    EXPECT_EQ(ReadBytes(folder.File(temporary)), serialized.substr(0, serialized.size() / 2));
}

}  // namespace
}  // namespace tabulon::xml

// Reading documents from files in any encoding and replacing files atomically. What a
// crash or a refused write during OK leaves behind is checked where OK is pressed
// (tests/reliability/crash_safe_save_test.cpp, tests/control/save_gate_test.cpp).
#include <sys/stat.h>

#include <string>
#include <vector>

#include "common/files.h"
#include "platform/xml/xml_document.h"
#include "xml/parsed.h"

namespace tabulon::xml {
namespace {

using testing::ReadFileBytes;
using testing::TempDir;

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
    TempDir folder;
    for (const auto& [name, bytes] : files) {
        folder.write(name, bytes);
        Document document;
        ParseError error;
        ASSERT_TRUE(document.LoadFile(folder.file(name), &error)) << name << ": " << error.reason;
        EXPECT_EQ(document.documentElement().attribute("v").value(), "\xC3\xA9") << name;
        EXPECT_EQ(document.documentElement().text(), expectedText) << name;
    }
    // Lines and columns of a parse error count in the decoded text.
    folder.write("bad.xml", Utf16(u"<a>\r\n  <b></a>", false));
    Document document;
    ParseError error;
    EXPECT_FALSE(document.LoadFile(folder.file("bad.xml"), &error));
    EXPECT_EQ(error.reason, "Start-end tags mismatch at line 2, column 8");
}

// A UTF-8 file is parsed in place: the outcome, a failure's reason and position
// included, must be what parsing the same bytes as text gives.
TEST(LoadFile, AUtf8FileLoadsAsItsTextParses) {
    const std::vector<std::string> texts = {
        "<a x=\"1\"><b>t &amp; u</b><!--c--></a>\n",
        "\xEF\xBB\xBF<a/>",
        "<a>\n  <b></a>",
        "only text",
        "",
        "<a/>trailing",
        "<a>x",
    };
    TempDir folder;
    for (const std::string& text : texts) {
        folder.write("f.xml", text);
        Document fromFile;
        Document fromText;
        ParseError fileError;
        ParseError textError;
        const bool loaded = fromFile.LoadFile(folder.file("f.xml"), &fileError);
        ASSERT_EQ(loaded, fromText.Parse(text, &textError)) << text;
        EXPECT_EQ(fromFile.Serialize(), fromText.Serialize()) << text;
        EXPECT_EQ(fileError.reason, textError.reason) << text;
        EXPECT_EQ(fileError.offset, textError.offset) << text;
    }
}

TEST(LoadFile, UnreadableOrMalformedFilesFailNamingThePath) {
    TempDir folder;
    folder.write("odd.xml", std::string("\xFF\xFE<\0a", 5));
    folder.write("surrogate.xml", std::string("\xFF\xFE\x00\xD8<\0", 6));
    const std::vector<std::pair<std::string, std::string>> cases = {
        {folder.file("missing.xml"), "No such file or directory"},
        {folder.path().string(), "Is a directory"},
        {folder.file("odd.xml"), "not valid UTF-16"},
        {folder.file("surrogate.xml"), "not valid UTF-16"},
    };
    for (const auto& [path, cause] : cases) {
        Document document = Parsed("<old/>");
        ParseError error;
        EXPECT_FALSE(document.LoadFile(path, &error)) << path;
        EXPECT_NE(error.reason.find(path), std::string::npos) << error.reason;
        EXPECT_NE(error.reason.find(cause), std::string::npos) << error.reason;
        EXPECT_TRUE(document.documentElement().empty()) << "the old content is gone";
    }
}

TEST(SaveAtomic, WritesTheSerialisedDocumentWithDefaultPermissions) {
    TempDir folder;
    const Document document = Parsed("<a><b>1</b></a>");
    std::string reason;
    ASSERT_TRUE(document.SaveAtomic(folder.file("new.xml"), &reason)) << reason;
    EXPECT_EQ(ReadFileBytes(folder.file("new.xml")), document.Serialize());
    const mode_t mask = umask(0);
    umask(mask);
    EXPECT_EQ(ModeOf(folder.file("new.xml")), 0666 & ~mask);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"new.xml"}) << "no temporary file is left";
}

TEST(SaveAtomic, ReplacesTheFileBehindASymbolicLink) {
    TempDir folder;
    folder.write("real.xml", "old");
    ASSERT_EQ(symlink("real.xml", folder.file("link.xml").c_str()), 0);
    ASSERT_TRUE(Parsed("<new/>").SaveAtomic(folder.file("link.xml")));
    EXPECT_EQ(ReadFileBytes(folder.file("real.xml")), "<new/>\n");
    struct stat info {};
    ASSERT_EQ(lstat(folder.file("link.xml").c_str(), &info), 0);
    EXPECT_TRUE(S_ISLNK(info.st_mode));
}

TEST(SaveAtomic, FailsWithoutTouchingAnythingWhenTheFolderIsGoneOrTheTargetIsAFolder) {
    TempDir folder;
    ASSERT_EQ(mkdir(folder.file("sub").c_str(), 0755), 0);
    const Document document = Parsed("<new/>");
    for (const std::string& path :
         {folder.file("vanished/doc.xml"), folder.file("sub"), std::string()}) {
        std::string reason;
        EXPECT_FALSE(document.SaveAtomic(path, &reason)) << path;
        EXPECT_NE(reason.find(path), std::string::npos) << reason;
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{"sub"});
    EXPECT_TRUE(std::filesystem::is_empty(folder.file("sub")));
}

}  // namespace
}  // namespace tabulon::xml

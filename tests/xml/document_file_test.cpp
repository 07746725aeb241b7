// Reading documents from files in any encoding, the mode of a new file, and that a save
// lets go of the file it replaced. Replacing files is checked where OK is pressed
// (tests/reliability/save_safety_test.cpp, crash_safe_save_test.cpp).
#include <sys/stat.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
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

// Characters beyond the basic plane are surrogate pairs in UTF-16; lines and columns
// of a parse error count in the decoded text.
TEST(LoadFile, ReadsUtf16AndPlacesErrorsInTheDecodedText) {
    TempDir folder;
    folder.write("utf16be.xml", Utf16(u"<a v=\"\u00e9\">\U0001D11E</a>", true));
    Document document;
    ParseError error;
    ASSERT_TRUE(document.LoadFile(folder.file("utf16be.xml"), &error)) << error.reason;
    EXPECT_EQ(document.documentElement().attribute("v").value(), "\xC3\xA9");
    EXPECT_EQ(document.documentElement().text(), "\xF0\x9D\x84\x9E");
    folder.write("bad.xml", Utf16(u"<a>\r\n  <b></a>", false));
    EXPECT_FALSE(document.LoadFile(folder.file("bad.xml"), &error));
    EXPECT_EQ(error.reason, "Start-end tags mismatch at line 2, column 8");
}

// A UTF-8 file is parsed in place: the outcome, a failure's reason and position
// included, must be what parsing the same bytes as text gives.
TEST(LoadFile, AUtf8FileLoadsAsItsTextParses) {
    const std::vector<std::string> texts = {"", "<a>x", "\xEF\xBB\xBF<a/>",
                                            "<a x=\"1\"><b>t &amp; u</b><!--c--></a>\n"};
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
    const std::vector<std::pair<std::string, std::string>> cases = {
        {folder.file("missing.xml"), "No such file or directory"},
        {folder.path().string(), "Is a directory"},
        {folder.file("odd.xml"), "not valid UTF-16"}};
    for (const auto& [path, cause] : cases) {
        Document document = Parsed("<old/>");
        ParseError error;
        EXPECT_FALSE(document.LoadFile(path, &error)) << path;
        EXPECT_NE(error.reason.find(path), std::string::npos) << error.reason;
        EXPECT_NE(error.reason.find(cause), std::string::npos) << error.reason;
        EXPECT_TRUE(document.documentElement().empty()) << "the old content is gone";
    }
}

TEST(SaveAtomic, ANewFileHasTheDefaultPermissionsAndNoTemporaryFileIsLeft) {
    TempDir folder;
    const Document document = Parsed("<a><b>1</b></a>");
    std::string reason;
    ASSERT_TRUE(document.SaveAtomic(folder.file("new.xml"), &reason)) << reason;
    EXPECT_EQ(ReadFileBytes(folder.file("new.xml")), document.Serialize());
    const mode_t mask = umask(0);
    umask(mask);
    struct stat info {};
    ASSERT_EQ(stat(folder.file("new.xml").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 07777, 0666 & ~mask);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"new.xml"});
}

std::size_t OpenDescriptors() {
    const std::filesystem::directory_iterator fds("/proc/self/fd");
    return static_cast<std::size_t>(std::distance(fds, std::filesystem::directory_iterator()));
}

// The file a save replaces is let go of apart from the save when it is large: every
// one of them is closed, whatever number of saves follow one another.
TEST(SaveAtomic, SavesOverALargeFileLetGoOfEveryFileTheyReplace) {
    TempDir folder;
    std::string text = "<a>";
    for (int i = 0; i < 120000; ++i)
        text += "<b v=\"" + std::to_string(i) + "\">a value of some length</b>";
    text += "</a>";
    Document document = Parsed(text);
    const std::string path = folder.file("large.xml");
    std::string reason;
    ASSERT_TRUE(document.SaveAtomic(path, &reason)) << reason;
    ASSERT_GT(std::filesystem::file_size(path), std::uintmax_t{4} << 20);
    const std::size_t before = OpenDescriptors();
    for (int save = 0; save < 5; ++save) {
        document.documentElement().setAttribute("save", std::to_string(save));
        ASSERT_TRUE(document.SaveAtomic(path, &reason)) << reason;
        EXPECT_EQ(ReadFileBytes(path), document.Serialize());
    }
    for (int wait = 0; wait < 500 && OpenDescriptors() > before; ++wait)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(OpenDescriptors(), before) << "a replaced file is still held";
    EXPECT_EQ(folder.names(), std::vector<std::string>{"large.xml"});
}

}  // namespace
}  // namespace tabulon::xml

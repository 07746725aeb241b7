#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/xml/xml_document.h"
#include "xml/parsed.h"

namespace tabulon::xml {
namespace {

// A host's handler may remove what the control looks for: look-ups through missing
// nodes stay empty and writes to them do nothing.
TEST(DocumentModel, EveryMemberIsSafeOnAnEmptyHandle) {
    const Document document = Parsed("<a/>");
    Node missing = document.documentElement().firstChildElement("x").child(3).parent();
    EXPECT_TRUE(missing.empty());
    missing.setAttribute("a", "1");
    missing.setText("x");
    EXPECT_EQ(missing.attribute("a").value(), "");
    EXPECT_EQ(missing.text(), "");
    EXPECT_EQ(missing.serialize(), "");
    EXPECT_TRUE(missing.select("a").empty());
}

TEST(DocumentModel, ParseErrorsGiveReasonLineAndColumn) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"<a>\n  <b>\n</a>", "Start-end tags mismatch at line 3, column 3"},
        // Columns count characters, not bytes; the byte order mark takes no column.
        {"<a>\r\n\xC3\xA9<b></c></a>", "Start-end tags mismatch at line 2, column 7"},
        {"\xEF\xBB\xBF<a></b>", "Start-end tags mismatch at line 1, column 6"},
        {"<!-- only a comment -->", "No document element found at line 1, column 24"}};
    for (const auto& [text, reason] : cases) {
        Document document = Parsed("<old/>");
        ParseError error;
        EXPECT_FALSE(document.Parse(text, &error)) << text;
        EXPECT_EQ(error.reason, reason);
        EXPECT_EQ(document.root().childCount(), 0U) << "a failed parse leaves the document empty";
    }
}

}  // namespace
}  // namespace tabulon::xml

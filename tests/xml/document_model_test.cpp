#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/xml/xml_document.h"
#include "xml/parsed.h"

namespace tabulon::xml {
namespace {

TEST(DocumentModel, ParseErrorsGiveReasonLineAndColumn) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"<a>\n  <b>\n</a>", "Start-end tags mismatch at line 3, column 3"},
        // Columns count characters, not bytes.
        {"<a>\r\n\xC3\xA9<b></c></a>", "Start-end tags mismatch at line 2, column 7"}};
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

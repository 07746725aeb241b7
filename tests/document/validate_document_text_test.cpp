#include "document/validate_document_text.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/files.h"
#include "document/dtd_fast_check.h"
#include "platform/xml/xml_document.h"
#include "testing/recording_sink.h"

namespace tabulon {
namespace {

using testing::DataFile;
using testing::ReadFileBytes;
using testing::Replaced;

std::string ReadData(const std::string& name) {
    return ReadFileBytes(DataFile("xml/" + name));
}

// Validates text and returns the one message shown, or "" when it was accepted.
std::string Rejection(std::string_view text) {
    RecordingSink sink;
    const bool valid = ValidateDocumentText(text, sink);
    if (valid) {
        EXPECT_TRUE(sink.messages().empty());
        return "";
    }
    EXPECT_EQ(sink.messages().size(), 1U);
    if (sink.messages().empty()) return "(no message)";
    EXPECT_EQ(sink.messages()[0].icon, MessageIcon::Critical);
    return sink.messages()[0].text;
}

std::vector<std::string> ValidDocuments() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(DataFile("xml/valid"))) {
        names.push_back("valid/" + entry.path().filename().string());
    }
    return names;
}

class ValidDocument : public ::testing::TestWithParam<std::string> {};

TEST_P(ValidDocument, IsAcceptedAsWrittenAndAsTheModelSerialisesIt) {
    const std::string text = ReadData(GetParam());
    EXPECT_EQ(Rejection(text), "");
    xml::Document document;
    ASSERT_TRUE(document.Parse(text));
    EXPECT_EQ(Rejection(document.Serialize()), "");
}

INSTANTIATE_TEST_SUITE_P(DataFiles, ValidDocument, ::testing::ValuesIn(ValidDocuments()));

// The message is the reason, CR LF, and the error's line from its first "<"; a line
// without a tag is shown whole. Empty text is no document at all. A parsed document the
// fast check refuses gives the parser's message, a declaration the model kept included.
TEST(ValidateDocumentText, RejectedDocumentsShowReasonAndSourceLine) {
    const std::vector<std::pair<std::string, std::string>> files = {
        {"invalid/xml_declaration.xml",
         "XML declaration allowed only at the start of the document\r\n"
         "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"},
        {"invalid/second_doctype.xml",
         "StartTag: invalid element name\r\n<!DOCTYPE xml [ <!ELEMENT xml ANY> ]>"},
        {"invalid/duplicate_key_value.xml",
         "ID P1 already defined\r\n"
         "<Cnode Name=\"Impeller\" KeyValue=\"P1\" GridHeaderKey=\"H1\" Filter=\"0\"/>"},
        {"invalid/pnode_without_grid_value_key.xml",
         "Element Pnode does not carry attribute GridValueKey\r\n"
         "<Pnode Name=\"Pump\" KeyValue=\"P1\" GridHeaderKey=\"H1\" Filter=\"0\"/>"}};
    for (const auto& [name, message] : files) {
        SCOPED_TRACE(name);
        const std::string text = ReadData(name);
        EXPECT_EQ(Rejection(text), message);
        xml::Document document;
        ASSERT_TRUE(document.Parse(text));
        EXPECT_FALSE(CertainlyValid(document));
        RecordingSink sink;
        EXPECT_FALSE(ValidateParsedDocument(document, sink));
        EXPECT_EQ(sink.messages(), (std::vector<RecordedMessage>{
                                       {MessageIcon::Critical, Rejection(document.Serialize())}}));
    }
    EXPECT_EQ(Rejection(""), "Invalid XML");
    EXPECT_EQ(
        Rejection(Replaced(ReadData("valid/minimal.xml"), "GridValueKey=\"V1\" Filter=\"0\"/>",
                           "GridValueKey=\"V1\"\n        Filter=\"2\"/>")),
        "Value \"2\" for attribute Filter of Pnode is not among the enumerated set\r\n"
        "        Filter=\"2\"/>");
}

// Blanks around an enumerated value are normalised away by the validating parse, so
// such a document loads; the model keeps the blanks, which the save gate then sees.
TEST(ValidateDocumentText, BlanksAroundAnEnumeratedValueAreAccepted) {
    EXPECT_EQ(Rejection(Replaced(ReadData("valid/minimal.xml"), "Valid=\"1\"", "Valid=\" 1 \"")),
              "");
}

}  // namespace
}  // namespace tabulon

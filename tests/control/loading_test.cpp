// Loading a document: results, messages and the state of the view for Load and
// LoadXML, including the deliberate asymmetry between them.
#include <gtest/gtest.h>

#include "common/control_harness.h"

namespace tabulon {
namespace {

using testing::ControlHarness;
using testing::Critical;
using testing::DataFile;
using testing::ReadFileBytes;
using testing::Replaced;

// A comment among the tree's nodes: allowed by the DTD, but it has no attributes to read.
std::string TreeWithComment() {
    return Replaced(ReadFileBytes(DataFile("shell_two_by_two.xml")), "<TreeStructure>",
                    "<TreeStructure><!-- checked by hand -->");
}

std::string CustomUnitsWith(std::string_view from, std::string_view to) {
    return Replaced(ReadFileBytes(DataFile("shell_custom_units.xml")), from, to);
}

class DocumentLoading : public ControlHarness {
protected:
    // Loads text both ways into fresh controls; returns {Load, LoadXML} results and
    // checks that both showed the same messages.
    std::pair<bool, bool> LoadBothWays(const std::string& text) {
        const bool byFile = LoadPath(TempFile("doc.xml", text));
        const std::vector<RecordedMessage> fileMessages = sink.messages();
        NewControl();
        sink.clear();
        const bool byText = LoadText(text);
        EXPECT_EQ(sink.messages(), fileMessages);
        return {byFile, byText};
    }
};

TEST_F(DocumentLoading, ModelFailuresFailLoadXmlButNotLoad) {
    const struct {
        const char* what;
        std::string text;
        std::vector<RecordedMessage> messages;
    } cases[] = {
        {"unnamed custom unit",
         CustomUnitsWith("EUnit=\"TONDAY_TO_KGS\"", "EUnit=\"\""),
         {Critical("English and Metric custom unit name can not blank."),
          Critical("Error in reading custom units.")}},
        {"custom unit named like a built-in one",
         CustomUnitsWith("EUnit=\"BAG_TO_SACK\"", "EUnit=\"f_to_c\""),
         {Critical("Unexpected Error - 1032")}},
        {"tree that cannot be built", TreeWithComment(), {Critical("Unexpected Error - 1024")}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        NewControl();
        sink.clear();
        EXPECT_EQ(LoadBothWays(c.text), std::make_pair(true, false));
        ExpectMessages(c.messages);
    }
}

TEST_F(DocumentLoading, AFailedModelKeepsThePreviousPathAndLeavesTheGridDisabled) {
    const std::filesystem::path good = TempCopy("shell_two_by_two.xml");
    ASSERT_TRUE(LoadPath(good));
    EXPECT_TRUE(LoadPath(TempFile("comment.xml", TreeWithComment())));
    EXPECT_EQ(form().treTreeView.count(), 0);
    EXPECT_FALSE(form().msgGridView.enabled());
    EXPECT_FALSE(form().cboFilter.enabled());
}

TEST_F(DocumentLoading, CustomUnitsAreReadAndStayRegisteredAcrossLoads) {
    ASSERT_TRUE(LoadDataText("shell_custom_units.xml"));
    ExpectMessages({});

    EXPECT_FALSE(LoadDataText("shell_custom_units.xml"));
    ExpectMessages({Critical("Unexpected Error - 1032")});
}

}  // namespace
}  // namespace tabulon

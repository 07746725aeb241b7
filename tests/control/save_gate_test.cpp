// OK and the validation gate: only a document whose every Valid is exactly "1" is
// handed to the host and written back to its file.
#include <gtest/gtest.h>

#include "common/control_harness.h"
#include "common/documents.h"

namespace tabulon {
namespace {

using testing::ControlHarness;
using testing::Critical;
using testing::ReadFileBytes;

constexpr const char* kValidationMessage =
    "Validation Error(s). You must correct all data highlighted in red before saving.";

// The CellValue whose text is marker (shell_gate.xml names every cell "vC-KEY-rR").
xml::Node CellNamed(ControlCore& core, std::string_view marker) {
    for (const xml::Node& node : core.doc.objXMLDoc->root().select("//CellValue")) {
        if (node.text() == marker) return node;
    }
    ADD_FAILURE() << "no cell " << marker;
    return {};
}

class SaveGate : public ControlHarness {
protected:
    void SetUp() override {
        path_ = TempCopy("shell_gate.xml");
        ASSERT_TRUE(LoadPath(path_));
        original_ = ReadFileBytes(path_);
        ClearRecords();
    }
    void SetValid(std::string_view marker, std::string_view valid) {
        CellNamed(core(), marker).setAttribute("Valid", valid);
    }
    std::filesystem::path path_;
    std::string original_;
};

TEST_F(SaveGate, AValidDocumentRaisesOKClickBeforeTheFileIsRewritten) {
    std::string seenDuringOKClick;
    host.onOKClick = [&] { seenDuringOKClick = ReadFileBytes(path_); };
    CellNamed(core(), "v2-KB-r1").setText("edited");
    form().cmdOK.userClick();
    ExpectMessages({});
    EXPECT_EQ(host.events(), (std::vector<RecordedEvent>{{HostEventKind::OKClick, ""}}));
    EXPECT_EQ(seenDuringOKClick, original_);
    EXPECT_EQ(ReadFileBytes(path_), control().XML());
}

TEST_F(SaveGate, ADocumentGivenAsTextIsNeverWritten) {
    ASSERT_TRUE(LoadText(original_));
    CellNamed(core(), "v1-KA-r1").setText("edited");
    form().cmdOK.userClick();
    EXPECT_EQ(host.events(), (std::vector<RecordedEvent>{{HostEventKind::OKClick, ""}}));
    EXPECT_EQ(ReadFileBytes(path_), original_);
}

TEST_F(SaveGate, TheFirstInvalidCellIsShownWhicheverGridIsOnScreen) {
    // Column 3 of grid A comes before column 1 of grid B in the tree, but the scan goes
    // GridValue by GridValue: column 1 wins.
    SetValid("v3-KA-r2", "0");
    SetValid("v1-KB-r2", "0");
    for (const int shown : {1, 2}) {
        form().treTreeView.userClickNode(shown);
        sink.clear();
        form().cmdOK.userClick();
        ExpectMessages({Critical(kValidationMessage)});
        EXPECT_EQ(form().treTreeView.selectedIndex(), 2);
        EXPECT_EQ(form().msgGridView.col(), 1);
        EXPECT_EQ(form().msgGridView.row(), 2);
        EXPECT_TRUE(form().msgGridView.hasFocus());
    }
}

TEST_F(SaveGate, AnOpenEditorIsCommittedBeforeTheGateLooks) {
    const std::filesystem::path path = TempFile(
        "unitnum.xml",
        testing::Document(
            {testing::Row("UnitNum", R"(Unit="FT_TO_M" Format="0.00" MinVal="0" MaxVal="100")")},
            {testing::Column({{"12"}})}));
    ASSERT_TRUE(LoadPath(path));
    form().msgGridView.userClick(1, 1);
    ASSERT_TRUE(form().unitNumControl.visible());
    form().unitNumControl.UserSetText("500");  // above MaxVal 100
    ClearRecords();
    form().cmdOK.userClick();
    ExpectMessages({Critical(kValidationMessage)});
    EXPECT_FALSE(form().unitNumControl.visible());
    EXPECT_TRUE(host.events().empty());
    EXPECT_NE(control().XML().find("Valid=\"0\" ApplicationValidation=\"0\">500.00<"),
              std::string::npos);
}

}  // namespace
}  // namespace tabulon

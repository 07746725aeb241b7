#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/button.h"
#include "platform/caption_component.h"
#include "platform/check_box.h"
#include "platform/combo_box.h"
#include "platform/scroll_bar.h"
#include "support/failure.h"
#include "testing/recording_sink.h"

namespace tabulon {
namespace {

TEST(Component, NegativeSizesFailAndMoveNotifiesOnce) {
    Label label("lblFilter", "Filter Label");
    std::vector<Change> kinds;
    label.Subscribe([&](const ChangeInfo& info) { kinds.push_back(info.kind); });
    EXPECT_THROW(label.setWidth(-1), InvalidArgumentFailure);
    EXPECT_THROW(label.move(1, 2, 3, -4), InvalidArgumentFailure);
    EXPECT_EQ(label.left(), 0);  // nothing changed by the failed move
    label.move(10, 20, 30, 40);
    label.move(10, 20, 30, 40);
    label.setCaption("Filter Label");
    EXPECT_EQ(kinds, (std::vector<Change>{Change::Geometry}));
}

TEST(ComboBox, HeightIsFixedByThePlatform) {
    ComboBox combo("cboComboBoxControl");
    EXPECT_EQ(combo.height(), ComboBox::kHeight);
    combo.setHeight(1000);
    combo.move(1, 2, 3, 4);
    EXPECT_EQ(combo.height(), 315);
    EXPECT_EQ(combo.width(), 3);
}

TEST(ComboBox, TextSelectsTheFirstEqualItemAndCodeRaisesNothing) {
    ComboBox combo("cboFilter");
    int clicks = 0;
    combo.onClick = [&] { ++clicks; };
    for (const char* item : {"All", "b", "", "b"})
        combo.addItem(item);
    combo.setText("b");
    EXPECT_EQ(combo.listIndex(), 1);
    combo.setText("B");  // exact comparison
    EXPECT_EQ(combo.listIndex(), -1);
    EXPECT_EQ(combo.text(), "B");
    combo.setListIndex(2);
    EXPECT_EQ(combo.text(), "");
    combo.setListIndex(-1);
    EXPECT_EQ(combo.listIndex(), -1);
    EXPECT_THROW(combo.setListIndex(4), InvalidArgumentFailure);
    combo.clear();
    EXPECT_TRUE(combo.items().empty());
    EXPECT_EQ(clicks, 0);
}

TEST(ComboBox, UserPickRaisesClickEachTime) {
    ComboBox combo("cboVisible");
    combo.addItem("True");
    combo.addItem("False");
    std::vector<std::string> clicks;
    combo.onClick = [&] { clicks.push_back(combo.text()); };
    EXPECT_TRUE(combo.userPick("False"));
    EXPECT_TRUE(combo.userPick("False"));
    EXPECT_FALSE(combo.userPick("Maybe"));
    EXPECT_FALSE(combo.userPickIndex(2));
    combo.setEnabled(false);
    EXPECT_FALSE(combo.userPick("True"));
    EXPECT_EQ(clicks, (std::vector<std::string>{"False", "False"}));
    EXPECT_EQ(combo.listIndex(), 1);
}

class ScrollBarTest : public ::testing::Test {
protected:
    void SetUp() override {
        bar.setMax(4);
        bar.onChange = [this] { log.push_back("Change " + std::to_string(bar.value())); };
        bar.onScroll = [this] { log.push_back("Scroll " + std::to_string(bar.value())); };
    }
    ScrollBar bar{"hsbGridHScrollBar"};
    std::vector<std::string> log;
};

TEST_F(ScrollBarTest, EveryValueChangeRaisesChangeAndNoChangeRaisesNothing) {
    bar.setValue(3);
    bar.setValue(3);
    bar.setMax(1);  // below the value: the value follows, raising Change
    bar.setMax(6);
    bar.setMin(2);  // above the value: likewise
    EXPECT_THROW(bar.setValue(7), InvalidArgumentFailure);
    EXPECT_EQ(log, (std::vector<std::string>{"Change 3", "Change 1", "Change 2"}));
}

TEST_F(ScrollBarTest, UserStepsAndTrackClicksClampAndDragsRaiseScroll) {
    bar.userStep(1);
    bar.userStep(-1);
    bar.userStep(-1);  // at the minimum: nothing
    bar.userSetValue(99);
    bar.userDrag(2);
    bar.userDrag(2);
    bar.setVisible(false);
    bar.userStep(1);
    EXPECT_EQ(log, (std::vector<std::string>{"Change 1", "Change 0", "Change 4", "Scroll 2"}));
}

TEST(CheckBox, ClickRaisedOncePerChangeByCodeOrUser) {
    CheckBox check("chkDefault", "Set Default Position");
    int clicks = 0;
    check.onClick = [&] { ++clicks; };
    check.setChecked(true);
    check.setChecked(true);
    check.userClick();
    EXPECT_FALSE(check.checked());
    check.setEnabled(false);
    check.userClick();
    EXPECT_EQ(clicks, 2);
}

TEST(Button, KeyPressIsNotAClick) {
    Button button("cmdOK", "OK");
    std::vector<std::string> log;
    button.onClick = [&] { log.push_back("Click"); };
    button.onKeyPress = [&](int& key) { log.push_back("KeyPress " + std::to_string(key)); };
    button.userKeyPress(32);
    button.userClick();
    button.setVisible(false);
    button.userClick();
    EXPECT_EQ(log, (std::vector<std::string>{"KeyPress 32", "Click"}));
}

TEST(RecordingSink, RecordsInOrderAndIgnoresEmptyTexts) {
    RecordingSink sink;
    std::vector<std::string> shown;
    sink.onShow = [&](const RecordedMessage& m) { shown.push_back(m.text); };
    sink.Information("a");
    sink.Show(MessageIcon::Critical, "");
    sink.Show(MessageIcon::Plain, "b");
    EXPECT_EQ(sink.messages(), (std::vector<RecordedMessage>{{MessageIcon::Information, "a"},
                                                             {MessageIcon::Plain, "b"}}));
    EXPECT_EQ(shown, (std::vector<std::string>{"a", "b"}));
}

}  // namespace
}  // namespace tabulon

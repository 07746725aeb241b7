#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/button.h"
#include "platform/text_box.h"

namespace tabulon {
namespace {

class FocusOrder : public ::testing::Test {
protected:
    void SetUp() override {
        for (Component* each : {static_cast<Component*>(&a), static_cast<Component*>(&b),
                                static_cast<Component*>(&c)}) {
            each->attachFocus(&focus);
            each->onGotFocus = [this, each] { log.push_back("Got " + each->name()); };
            each->onLostFocus = [this, each] { log.push_back("Lost " + each->name()); };
        }
    }
    FocusManager focus;
    TextBox a{"a"};
    Button b{"b", "B"};
    TextBox c{"c"};
    std::vector<std::string> log;
};

// A LostFocus handler that moves the focus itself (a validation keeping the user in
// another field) takes over.
TEST_F(FocusOrder, LostFocusRunsFirstAndAHandlerThatMovesTheFocusTakesOver) {
    a.setFocus();
    b.setFocus();
    b.setFocus();  // already there: nothing
    b.onLostFocus = [&] {
        log.push_back("Lost b");
        c.setFocus();
    };
    a.setFocus();
    EXPECT_EQ(log, (std::vector<std::string>{"Got a", "Lost a", "Got b", "Lost b", "Got c"}));
    EXPECT_EQ(focus.focused(), &c);
}

TEST_F(FocusOrder, AHiddenOrDisabledFocusedComponentHandsTheFocusOnInTabOrder) {
    Button outside("outside", "O");
    outside.attachFocus(&focus);
    focus.setTabOrder({&a, &b, &c});
    a.setFocus();
    b.setVisible(false);
    a.setVisible(false);  // b cannot take it: on to c
    EXPECT_EQ(focus.focused(), &c);
    a.setVisible(true);
    c.setEnabled(false);  // round to the start
    EXPECT_EQ(focus.focused(), &a);
    outside.setFocus();
    outside.setVisible(false);  // not in the order: no component has it
    EXPECT_EQ(focus.focused(), nullptr);
}

}  // namespace
}  // namespace tabulon

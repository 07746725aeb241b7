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
        for (Component* c : {static_cast<Component*>(&a), static_cast<Component*>(&b)}) {
            c->attachFocus(&focus);
            c->onGotFocus = [this, c] { log.push_back("Got " + c->name()); };
            c->onLostFocus = [this, c] { log.push_back("Lost " + c->name()); };
        }
    }
    FocusManager focus;
    TextBox a{"a"};
    Button b{"b", "B"};
    std::vector<std::string> log;
};

TEST_F(FocusOrder, LostFocusOfTheOldRunsBeforeGotFocusOfTheNew) {
    a.setFocus();
    b.setFocus();
    b.setFocus();  // already there: nothing
    EXPECT_EQ(log, (std::vector<std::string>{"Got a", "Lost a", "Got b"}));
    EXPECT_TRUE(b.hasFocus());
    EXPECT_FALSE(a.hasFocus());
}

TEST_F(FocusOrder, HiddenDisabledOrUnattachedComponentsNeitherTakeNorKeepTheFocus) {
    a.setFocus();
    b.setVisible(false);
    b.setFocus();
    b.setVisible(true);
    b.setEnabled(false);
    b.setFocus();
    TextBox loose("loose");
    loose.setFocus();
    EXPECT_EQ(focus.focused(), &a);
    EXPECT_FALSE(loose.hasFocus());
    a.setVisible(false);  // hiding the focused component takes its focus away
    EXPECT_EQ(focus.focused(), nullptr);
    EXPECT_EQ(log, (std::vector<std::string>{"Got a", "Lost a"}));
}

TEST_F(FocusOrder, ALostFocusHandlerThatMovesTheFocusTakesOver) {
    TextBox c("c");
    c.attachFocus(&focus);
    c.onGotFocus = [this] { log.push_back("Got c"); };
    a.setFocus();
    a.onLostFocus = [&] {
        log.push_back("Lost a");
        c.setFocus();  // e.g. a validation that keeps the user in another field
    };
    b.setFocus();
    EXPECT_EQ(log, (std::vector<std::string>{"Got a", "Lost a", "Got c"}));
    EXPECT_EQ(focus.focused(), &c);
}

TEST_F(FocusOrder, AHiddenOrDisabledFocusedComponentHandsTheFocusOnInTabOrder) {
    TextBox c("c");
    Button outside("outside", "O");
    for (Component* extra : {static_cast<Component*>(&c), static_cast<Component*>(&outside)})
        extra->attachFocus(&focus);
    c.onGotFocus = [this] { log.push_back("Got c"); };
    focus.setTabOrder({&a, &b, &c});
    a.setFocus();
    b.setVisible(false);
    a.setVisible(false);  // b cannot take it: on to c
    EXPECT_EQ(log, (std::vector<std::string>{"Got a", "Lost a", "Got c"}));
    a.setVisible(true);
    c.setEnabled(false);  // round to the start
    EXPECT_EQ(focus.focused(), &a);
    outside.setFocus();
    outside.setVisible(false);  // not in the order: no component has it
    EXPECT_EQ(focus.focused(), nullptr);
}

}  // namespace
}  // namespace tabulon

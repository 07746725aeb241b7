#include "platform/observable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tabulon {
namespace {

class Model : public Observable {
public:
    void Touch() { Notify(Change::Content); }
};

// Views come and go while a change is told: one removed before its turn hears
// nothing, one added hears the next change only, and a copy starts without observers.
TEST(Observable, ObserversMayUnsubscribeAndSubscribeDuringANotification) {
    Model model;
    std::vector<std::string> calls;
    int self = 0;
    int later = 0;
    self = model.Subscribe([&](const ChangeInfo&) {
        calls.push_back("self");
        model.Unsubscribe(self);
        model.Unsubscribe(later);
        model.Subscribe([&](const ChangeInfo&) { calls.push_back("new"); });
    });
    later = model.Subscribe([&](const ChangeInfo&) { calls.push_back("later"); });
    model.Touch();
    EXPECT_EQ(calls, (std::vector<std::string>{"self"}));
    model.Touch();
    EXPECT_EQ(calls, (std::vector<std::string>{"self", "new"}));
    Model copy = model;
    copy.Touch();
    EXPECT_EQ(calls.size(), 2u);
}

}  // namespace
}  // namespace tabulon

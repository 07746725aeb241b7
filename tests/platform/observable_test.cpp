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

TEST(Observable, ObserversRunInSubscriptionOrderAndAreNotCopied) {
    Model model;
    std::vector<int> calls;
    model.Subscribe([&](const ChangeInfo&) { calls.push_back(1); });
    const int second = model.Subscribe([&](const ChangeInfo&) { calls.push_back(2); });
    model.Subscribe([&](const ChangeInfo&) { calls.push_back(3); });
    model.Touch();
    model.Unsubscribe(second);
    model.Unsubscribe(999);  // unknown: nothing
    model.Touch();
    EXPECT_EQ(calls, (std::vector<int>{1, 2, 3, 1, 3}));
    Model copy = model;  // a copy starts without observers
    copy.Touch();
    EXPECT_EQ(calls.size(), 5u);
}

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
    model.Touch();  // "later" was removed before its turn; "new" waits for the next one
    EXPECT_EQ(calls, (std::vector<std::string>{"self"}));
    model.Touch();
    EXPECT_EQ(calls, (std::vector<std::string>{"self", "new"}));
}

}  // namespace
}  // namespace tabulon

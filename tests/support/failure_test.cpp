#include "support/failure.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "support/message_sink.h"

namespace tabulon {
namespace {

class RecordingSink : public MessageSink {
public:
    void Show(MessageIcon icon, std::string_view text) override {
        shown.emplace_back(icon, std::string(text));
    }
    std::vector<std::pair<MessageIcon, std::string>> shown;
};

using Shown = std::vector<std::pair<MessageIcon, std::string>>;

// Anything thrown is caught and reported once, as critical, with the code.
TEST(Guarded, FailureIsReportedOnceAsCriticalAndReturnsFalse) {
    RecordingSink sink;
    bool after = false;
    EXPECT_FALSE(Guarded(sink, "1010", [&] {
        throw OverflowFailure();
        after = true;
    }));
    EXPECT_FALSE(after);
    EXPECT_FALSE(Guarded(sink, "1037", [] { throw 42; }));
    EXPECT_EQ(sink.shown, (Shown{{MessageIcon::Critical, "Unexpected Error - 1010"},
                                 {MessageIcon::Critical, "Unexpected Error - 1037"}}));
}

}  // namespace
}  // namespace tabulon

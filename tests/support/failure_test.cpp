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

TEST(Guarded, CompletedBodyShowsNothingAndDecidesTheResult) {
    RecordingSink sink;
    EXPECT_TRUE(Guarded(sink, "1012", [] {}));
    EXPECT_FALSE(Guarded(sink, "1012", [] { return false; }));
    EXPECT_TRUE(sink.shown.empty());
}

TEST(ReportUnexpectedError, ShowsTheCodeAfterTheFixedText) {
    RecordingSink sink;
    ReportUnexpectedError(sink, "1023");
    EXPECT_EQ(sink.shown, (Shown{{MessageIcon::Critical, "Unexpected Error - 1023"}}));
}

TEST(MessageSink, EmptyTextShowsNothing) {
    RecordingSink sink;
    sink.Information("");
    sink.Critical("");
    sink.Plain("");
    EXPECT_TRUE(sink.shown.empty());
    sink.Information("a");
    sink.Plain("b");
    EXPECT_EQ(sink.shown, (Shown{{MessageIcon::Information, "a"}, {MessageIcon::Plain, "b"}}));
}

TEST(DescribeCurrentException, UsesTheFailuresOwnText) {
    const auto describe = [](auto thrown) {
        try {
            throw thrown;
        } catch (...) {
            return DescribeCurrentException();
        }
    };
    EXPECT_EQ(describe(OverflowFailure()), "Overflow");
    EXPECT_EQ(describe(InvalidArgumentFailure("Invalid row")), "Invalid row");
    EXPECT_EQ(describe(7), "Unknown error");
}

}  // namespace
}  // namespace tabulon

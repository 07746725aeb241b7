#include "document/dtd.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace tabulon {
namespace {

std::string ReferenceDtd() {
    std::ifstream in(TABULON_SOURCE_DIR "/tests/data/dtd/builtin.dtd", std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

TEST(BuiltInDtd, IsTheFiftySevenReferenceLinesEachEndingInCrLf) {
    const std::string reference = ReferenceDtd();
    ASSERT_FALSE(reference.empty());
    EXPECT_EQ(BuiltInDtd(), reference);
    EXPECT_EQ(kDtdLines.size(), 57U);
    std::string joined;
    for (std::string_view line : kDtdLines) {
        joined.append(line).append("\r\n");
    }
    EXPECT_EQ(joined, reference);
}

TEST(JoinWithDtd, PutsTheHostTextUnchangedAfterTheDtd) {
    const std::string host = "<?xml version=\"1.0\"?>\n<xml/>\r\n";
    EXPECT_EQ(JoinWithDtd(host), BuiltInDtd() + host);
    EXPECT_EQ(JoinWithDtd(""), BuiltInDtd());
}

}  // namespace
}  // namespace tabulon

// The demo's command line: steps keep their order, and every malformed line is a
// usage error naming what is wrong.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "demo_options.h"

namespace tabulon::demo {
namespace {

using Kind = DemoStep::Kind;

QStringList Args(std::initializer_list<const char*> words) {
    QStringList list;
    for (const char* word : words)
        list.append(QString::fromUtf8(word));
    return list;
}

TEST(DemoOptions, StepsRunInTheOrderGivenAroundTheOtherOptions) {
    QString error;
    const auto options = ParseDemoOptions(
        Args({"--node",       "PUMPS",       "doc.xml", "--click", "1",       "2",
              "--screenshot", "out.png",     "--type",  "12",      "--print", "--page",
              "buttons",      "--pdf",       "r.pdf",   "--save",  "s.xml",   "--node",
              "AHU",          "--print-log", "--size",  "800x600"}),
        error);
    ASSERT_TRUE(options) << error.toStdString();

    const std::vector<DemoStep> expected = {
        {Kind::Node, Args({"PUMPS"})},   {Kind::Click, Args({"1", "2"})},
        {Kind::Type, Args({"12"})},      {Kind::Print, {}},
        {Kind::Page, Args({"buttons"})}, {Kind::Pdf, Args({"r.pdf"})},
        {Kind::Save, Args({"s.xml"})},   {Kind::Node, Args({"AHU"})},
    };
    EXPECT_EQ(options->steps, expected);
    EXPECT_EQ(options->document, QStringLiteral("doc.xml"));
    EXPECT_EQ(options->screenshot, QStringLiteral("out.png"));
    EXPECT_EQ(options->size, QSize(800, 600));
    EXPECT_TRUE(options->printLog);
}

TEST(DemoOptions, AMalformedLineIsRefusedWithItsReason) {
    const std::pair<QStringList, const char*> cases[] = {
        {Args({"--click", "a", "2"}), "--click takes a row and a column number"},
        {Args({"--page", "colours"}), "--page takes general or buttons"},
        {Args({"--size", "800"}), "--size takes WIDTHxHEIGHT in pixels"},
        {Args({"a.xml", "b.xml"}), "only one document can be loaded: b.xml"}};
    for (const auto& [args, reason] : cases) {
        QString error;
        EXPECT_FALSE(ParseDemoOptions(args, error)) << reason;
        EXPECT_EQ(error.toStdString(), reason);
    }
}

}  // namespace
}  // namespace tabulon::demo

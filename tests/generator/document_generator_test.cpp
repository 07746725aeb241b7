// Generated documents load without a message and show a grid on every tree node.
#include "generator/document_generator.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "testing/recording_sink.h"

namespace tabulon {
namespace {

// keys, value columns, rows, layouts, metric, custom units, depth, seed.
using Shape = GeneratedDocumentShape;

class GeneratedDocumentLoads : public ::testing::TestWithParam<GeneratedDocumentShape> {};

TEST_P(GeneratedDocumentLoads, WithoutAnyMessageAndShowsEveryNode) {
    const GeneratedDocumentShape shape = GetParam();
    RecordingSink sink;
    HostEvents host;
    Generic_SP_Control control(sink, host);
    control.InitProperties();
    control.Show();
    ASSERT_TRUE(control.LoadXML(GenerateDocument(shape)));
    EXPECT_TRUE(sink.messages().empty());

    const int nodes = FormOf(control).treTreeView.count();
    EXPECT_EQ(nodes, GeneratedTreeNodeCount(shape));
    // Every node shows a full grid in the document's units, also after the filter.
    for (int node = 1; node <= nodes; ++node) {
        FormOf(control).treTreeView.userClickNode(node);
        ASSERT_TRUE(sink.messages().empty()) << "node " << node << ": " << sink.messages()[0].text;
        ASSERT_TRUE(CoreOf(control).doc.blnGridLoaded) << "node " << node;
        EXPECT_EQ(FormOf(control).msgGridView.rows(), NormalisedShape(shape).rows + 1);
        EXPECT_EQ(FormOf(control).msgGridView.cols(), NormalisedShape(shape).valueColumns + 1);
    }
    const std::vector<int> keyNodes = GeneratedKeyNodeIndices(shape);
    ASSERT_EQ(static_cast<int>(keyNodes.size()), NormalisedShape(shape).keys);
    for (std::size_t key = 0; key < keyNodes.size(); ++key) {
        const TreeNodeInfo& record =
            CoreOf(control).doc.udtTreeNodes[static_cast<std::size_t>(keyNodes[key] - 1)];
        EXPECT_EQ(record.GridValueKey, record.KeyValue);
    }
}

INSTANTIATE_TEST_SUITE_P(Shapes, GeneratedDocumentLoads,
                         ::testing::Values(Shape{1, 1, 1, 1, false, 0, 1, 1},
                                           Shape{40, 4, 9, 3, true, 3, 5, 7},
                                           Shape{25, 5, 6, 1, true, 1, 30, 12345}));

TEST(GenerateDocument, FollowsTheSeedAndRaisesCountsToTheirMinimum) {
    const Shape shape{20, 4, 8, 2, true, 3, 4, 5};
    EXPECT_NE(GenerateDocument(shape), GenerateDocument(Shape{20, 4, 8, 2, true, 3, 4, 6}));

    const Shape low{0, -1, 0, 0, false, -3, 999, 1};
    const Shape raised = NormalisedShape(low);
    EXPECT_EQ(std::vector({raised.keys, raised.valueColumns, raised.rows, raised.gridHeaders,
                           raised.customUnits, raised.depth}),
              std::vector({1, 1, 1, 1, 0, kMaxGeneratedDepth}));
    EXPECT_EQ(GenerateDocument(low), GenerateDocument(raised));
}

// The benchmarks' figures compare across versions only while a shape keeps giving the
// same text: a change of the generator's output shows here first.
TEST(GenerateDocument, KeepsItsTextFromVersionToVersion) {
    const auto fingerprint = [](const std::string& text) {
        std::uint64_t hash = 14695981039346656037u;  // FNV-1a
        for (const unsigned char c : text)
            hash = (hash ^ c) * 1099511628211u;
        return hash;
    };
    EXPECT_EQ(fingerprint(GenerateDocument(Shape{})), 6924739966398612651u);
    EXPECT_EQ(fingerprint(GenerateDocument(Shape{50, 3, 12, 3, false, 5, 4, 9, 7})),
              17197279994413836880u);
}

TEST(GenerateDocument, WrapsLongStartTagsAtColumnOneHundred) {
    const std::string text = GenerateDocument(Shape{30, 3, 12, 3, true, 4, 5, 1});
    std::size_t wrapped = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        const std::string_view line(text.data() + at, end - at);
        if (!line.starts_with("          <CellValue ")) {
            EXPECT_LE(line.size(), 100U) << line;
        }
        // A continuation line holds attributes only.
        if (line.find('<') == std::string_view::npos &&
            line.find("=\"") != std::string_view::npos) {
            ++wrapped;
        }
        at = end + 1;
    }
    EXPECT_GT(wrapped, 0U);
}

}  // namespace
}  // namespace tabulon

// The category tree's view reads the tree's nodes as a Qt item model: what it shows,
// row by row, must be the tree through loads (nodes added one by one), reloads (all
// replaced) and a person's gestures, and the model must keep Qt's rules while it changes.
#include <QAbstractItemModelTester>
#include <QTest>
#include <QTreeView>
#include <string>
#include <vector>

#include "qt/bindings/tree_binding.h"
#include "qt/bindings/tree_problem_badge.h"
#include "qt/qt_text.h"
#include "widget_fixture.h"

namespace tabulon::testing {
namespace {

std::vector<QString> g_modelFailures;

void RecordModelFailures(QtMsgType, const QMessageLogContext& context, const QString& message) {
    if (QByteArray(context.category) == "qt.modeltest") g_modelFailures.push_back(message);
}

class TreeViewRows : public WidgetFixture {
protected:
    // Each shown row as "depth text [expanded] (problems)", in the view's order.
    std::vector<std::string> ViewRows(const QModelIndex& parent = {}, int depth = 0) {
        std::vector<std::string> rows;
        const QAbstractItemModel& model = *treeView().model();
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            const bool branch = model.hasChildren(index);
            rows.push_back(Row(depth, ToStdString(index.data().toString()),
                               branch && treeView().isExpanded(index),
                               index.data(kProblemCountRole).toInt()));
            for (const std::string& child : ViewRows(index, depth + 1))
                rows.push_back(child);
        }
        return rows;
    }

    // The same read from the tree model itself.
    std::vector<std::string> TreeRows(int node = 0, int depth = 0) {
        std::vector<std::string> rows;
        const TreeView& tree = form().treTreeView;
        for (const int child : tree.children(node)) {
            const bool branch = !tree.children(child).empty();
            rows.push_back(Row(depth, tree.node(child).text, branch && tree.node(child).expanded,
                               tree.problemCount(child)));
            for (const std::string& below : TreeRows(child, depth + 1))
                rows.push_back(below);
        }
        return rows;
    }

    static std::string Row(int depth, const std::string& text, bool expanded, int problems) {
        return std::to_string(depth) + " " + text + (expanded ? " [expanded]" : "") + " (" +
               std::to_string(problems) + ")";
    }

    void ExpectTheViewShowsTheTree() {
        EXPECT_EQ(ViewRows(), TreeRows());
        EXPECT_EQ(TreeBinding::IndexOf(treeView().currentIndex()),
                  form().treTreeView.selectedIndex());
    }
};

TEST_F(TreeViewRows, TheViewShowsTheTreeThroughLoadsAndGestures) {
    const QtMessageHandler previous = qInstallMessageHandler(RecordModelFailures);
    {
        const QAbstractItemModelTester tester(
            treeView().model(), QAbstractItemModelTester::FailureReportingMode::Warning);
        for (const char* sample : {"english.xml", "metric.xml", "english.xml"}) {
            SCOPED_TRACE(sample);
            ASSERT_TRUE(Load(SampleCopy(sample)));
            ProcessEvents();
            ExpectTheViewShowsTheTree();
        }
        ClickNode("CHILLERS");
        ExpectTheViewShowsTheTree();
        // A double click on the root collapses it; the arrow keys then move in the view.
        const QModelIndex root = treeView().model()->index(0, 0);
        QTest::mouseDClick(treeView().viewport(), Qt::LeftButton, Qt::NoModifier,
                           treeView().visualRect(root).center());
        ProcessEvents();
        ExpectTheViewShowsTheTree();
        KeyClick(Qt::Key_Down);
        ExpectTheViewShowsTheTree();
        EXPECT_FALSE(ViewRows().empty());
    }
    qInstallMessageHandler(previous);
    EXPECT_TRUE(g_modelFailures.empty()) << ToStdString(g_modelFailures.front());
}

}  // namespace
}  // namespace tabulon::testing

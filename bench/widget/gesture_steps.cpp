#include "gesture_steps.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

#include "gesture_clock.h"

namespace tabulon::bench {

std::string Where(const Cell& cell) {
    return std::to_string(cell.first) + ", " + std::to_string(cell.second);
}

bool Enabled(const GridContents& grid, int row, int col) {
    return row > 0 && col > 0 && row < grid.rows && col < grid.cols &&
           grid.cell(row, col).fore == QColor(Qt::black) &&
           grid.colWidths[static_cast<std::size_t>(col)] > 0;
}

std::optional<Cell> EnabledIn(const GridContents& grid, int row, int from) {
    for (int col = from; col < grid.cols; ++col) {
        if (Enabled(grid, row, col)) return Cell{row, col};
    }
    return std::nullopt;
}

void ClickAt(QWidget& widget, const QPoint& point) {
    QTest::mouseClick(&widget, Qt::LeftButton, Qt::NoModifier, point);
}

void KeyToFocus(Qt::Key key, char text, Qt::KeyboardModifiers modifiers) {
    QWidget* target = QApplication::focusWidget();
    if (target == nullptr) return;
    if (text != 0) {
        QTest::keyClick(target, text, modifiers);
    } else {
        QTest::keyClick(target, key, modifiers);
    }
}

void Retype() {
    QWidget* focus = QApplication::focusWidget();
    if (focus == nullptr) return;
    QTest::keyClick(focus, Qt::Key_End);
    if (auto* line = qobject_cast<QLineEdit*>(focus); line != nullptr && !line->text().isEmpty()) {
        const QString last = line->text().right(1);
        QTest::keyClick(focus, Qt::Key_Backspace);
        QTest::keyClicks(focus, last);
    }
}

std::string Open(Subject& s, const Cell& cell) {
    if (s.editing() && s.currentRow() == cell.first && s.currentCol() == cell.second) return {};
    if (s.cellRect(cell.first, cell.second).isEmpty()) s.scrollHome();
    const QRect rect = s.cellRect(cell.first, cell.second);
    if (rect.isEmpty()) return "cell " + Where(cell) + " is not in view";
    ClickAt(s.cellArea(), rect.center());
    Settle();
    if (!s.editing()) return "no editor opened on cell " + Where(cell);
    return {};
}

std::string ShowNode(Subject& s, int node) {
    if (s.selectedNode() == node) return {};
    const QModelIndex row = s.nodeIndex(node);
    if (!row.isValid()) return "no tree row for node " + std::to_string(node);
    s.tree().scrollTo(row);
    Settle();
    ClickAt(*s.tree().viewport(), s.tree().visualRect(row).center());
    Settle();
    return Expect(s.selectedNode() == node, "node " + std::to_string(node) + " was not shown");
}

std::string Expect(bool condition, const std::string& what) {
    return condition ? std::string() : what;
}

}  // namespace tabulon::bench

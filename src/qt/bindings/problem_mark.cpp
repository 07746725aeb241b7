#include "qt/bindings/problem_mark.h"

#include <QPolygon>
#include <algorithm>

#include "control/generic_sp_control.h"
#include "qt/qt_text.h"

namespace tabulon {

int ProblemMarkSize(int height) {
    return std::clamp(height * 2 / 5, 6, 12);
}

void PaintProblemMark(QPainter& painter, const QRect& rect, const QColor& background, int size) {
    size = std::min({size, rect.width(), rect.height()});
    if (size < 3) return;
    const bool darkBackground = qGray(background.rgb()) < 128;
    const QColor fill = darkBackground ? Qt::white : Qt::black;
    const QColor outline = darkBackground ? Qt::black : Qt::white;
    const QPoint corner = rect.topLeft();
    const QPolygon triangle({corner, corner + QPoint(size, 0), corner + QPoint(0, size)});
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(outline);
    painter.setBrush(fill);
    painter.drawPolygon(triangle);
    painter.restore();
}

QString CellDescription(const Generic_SP_Control& control, int row, int col) {
    QStringList parts;
    const std::string unit = control.CellUnit(row, col);
    if (!unit.empty()) parts << QStringLiteral("Unit: %1").arg(ToQString(unit));
    const std::string problem = control.CellProblem(row, col);
    if (!problem.empty()) parts << ToQString(problem);
    return parts.join(QStringLiteral(". "));
}

QString CellToolTip(const FlexGrid& grid, int row, int col, bool textCut) {
    QStringList lines;
    if (row >= grid.fixedRows() && col >= grid.fixedCols()) {
        const std::string& note = grid.cellNote(row, col);
        if (!note.empty()) lines << ToQString(note);
    }
    if (textCut) lines << ToQString(grid.textMatrix(row, col));
    return lines.join(QLatin1Char('\n'));
}

}  // namespace tabulon

#include "qt/editor_cues.h"

#include <QPaintEvent>
#include <QPainter>

#include "control/control_access.h"
#include "qt/bindings/component_binding.h"
#include "qt/bindings/problem_mark.h"
#include "qt/qt_text.h"
#include "qt/spreadsheet_widget.h"
#include "view/cell_colors.h"

namespace tabulon {

namespace {

// Laid over the open editor: the cell's red as a frame and the mark in the corner.
// The pointer passes through it.
class MarkOverlay : public QWidget {
public:
    explicit MarkOverlay(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
        setFocusPolicy(Qt::NoFocus);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QColor red = QColor::fromRgb(static_cast<QRgb>(kInvalidBackColor));
        painter.fillRect(QRect(0, 0, width(), kFrame), red);
        painter.fillRect(QRect(0, height() - kFrame, width(), kFrame), red);
        painter.fillRect(QRect(0, 0, kFrame, height()), red);
        painter.fillRect(QRect(width() - kFrame, 0, kFrame, height()), red);
        PaintProblemMark(painter, QRect(0, 0, width(), height()), palette().color(QPalette::Base),
                         ProblemMarkSize(height()));
    }

private:
    static constexpr int kFrame = 2;
};

std::array<Component*, 4> Editors(Form& form) {
    return {&form.txtTextBoxControl, &form.cboComboBoxControl, &form.unitNumControl,
            &form.unitDropControl};
}

}  // namespace

EditorCues::EditorCues(SpreadsheetWidget& widget)
    : widget_(widget), mark_(new MarkOverlay(&widget)) {
    Form& form = FormOf(widget.control());
    std::vector<Component*> watched(Editors(form).begin(), Editors(form).end());
    watched.push_back(&form.msgGridView);
    // Bindings place their widgets when told of a change; the cues follow once they have.
    for (Component* component : watched) {
        const int token = component->Subscribe([this](const ChangeInfo&) {
            if (refreshQueued_) return;
            refreshQueued_ = true;
            QMetaObject::invokeMethod(
                this,
                [this] {
                    refreshQueued_ = false;
                    refresh();
                },
                Qt::QueuedConnection);
        });
        subscriptions_.emplace_back(component, token);
    }
}

EditorCues::~EditorCues() {
    for (const auto& [component, token] : subscriptions_)
        component->Unsubscribe(token);
}

void EditorCues::refresh() {
    Generic_SP_Control& control = widget_.control();
    Form& form = FormOf(control);
    const FlexGrid& grid = form.msgGridView;
    const int row = grid.row();
    const int col = grid.col();
    const bool onCell = row >= 1 && col >= 1 && row < grid.rows() && col < grid.cols();
    const QString problem = onCell ? ToQString(control.CellProblem(row, col)) : QString();
    const QString description = onCell ? CellDescription(control, row, col) : QString();
    QString name;
    if (onCell) {
        name = ToQString(grid.textMatrix(row, 0)) + QStringLiteral(", ") +
               ToQString(grid.textMatrix(0, col));
    }

    QWidget* open = nullptr;
    for (Component* editor : Editors(form)) {
        auto* binding = static_cast<ComponentBinding*>(widget_.bindingFor(*editor));
        if (binding == nullptr) continue;
        const bool visible = editor->visible();
        if (visible) open = binding->widget();
        for (QWidget* part : {binding->widget(), binding->focusTarget()}) {
            part->setToolTip(visible ? problem : QString());
            part->setAccessibleName(visible ? name : QString());
            part->setAccessibleDescription(visible ? description : QString());
        }
    }
    if (mark_ == nullptr) return;
    if (open == nullptr || problem.isEmpty()) {
        mark_->hide();
        return;
    }
    mark_->setGeometry(open->geometry());
    mark_->show();
    mark_->raise();
}

}  // namespace tabulon

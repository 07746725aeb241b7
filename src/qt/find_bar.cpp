#include "qt/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include "control/control_access.h"
#include "qt/bindings/binding_host.h"
#include "qt/qt_text.h"
#include "qt/spreadsheet_widget.h"
#include "qt/twips_scale.h"

namespace tabulon {

namespace {

constexpr int kMargin = 4;

QToolButton* BarButton(QWidget* parent, const QString& text, const QString& name) {
    auto* button = new QToolButton(parent);
    button->setText(text);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

}  // namespace

FindBar::FindBar(SpreadsheetWidget& widget, BindingHost& host)
    : QFrame(&widget),
      widget_(widget),
      host_(host),
      text_(new QLineEdit(this)),
      matchCase_(new QCheckBox(tr("Match case"), this)),
      wholeCell_(new QCheckBox(tr("Whole cell"), this)),
      count_(new QLabel(this)) {
    setObjectName(QStringLiteral("findBar"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setAccessibleName(tr("Find"));
    text_->setPlaceholderText(tr("Find in every node"));
    text_->setAccessibleName(tr("Text to find"));
    text_->setClearButtonEnabled(true);
    count_->setAccessibleName(tr("Hits"));
    QToolButton* previousButton = BarButton(this, QStringLiteral("\u25B2"), tr("Previous hit"));
    QToolButton* nextButton = BarButton(this, QStringLiteral("\u25BC"), tr("Next hit"));
    QToolButton* closeButton = BarButton(this, QStringLiteral("\u2715"), tr("Close find"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    row->addWidget(text_, 1);
    row->addWidget(matchCase_);
    row->addWidget(wholeCell_);
    row->addWidget(count_);
    row->addWidget(previousButton);
    row->addWidget(nextButton);
    row->addWidget(closeButton);
    connect(previousButton, &QToolButton::clicked, this, &FindBar::previous);
    connect(nextButton, &QToolButton::clicked, this, &FindBar::next);
    connect(closeButton, &QToolButton::clicked, this, &FindBar::dismiss);
    hide();
}

void FindBar::place() {
    const FlexGrid& grid = FormOf(widget_.control()).msgGridView;
    const QRect area =
        widget_.scale().toPixels(grid.left(), grid.top(), grid.width(), grid.height());
    const int width = std::min(sizeHint().width(), std::max(area.width() - 2 * kMargin, 0));
    resize(width, sizeHint().height());
    move(area.right() - width - kMargin, area.top() + kMargin);
}

void FindBar::open() {
    place();
    show();
    raise();
    text_->selectAll();
    text_->setFocus(Qt::ShortcutFocusReason);
}

void FindBar::dismiss() {
    hide();
    widget_.setFocus(Qt::OtherFocusReason);
}

void FindBar::next() {
    step(true);
}

void FindBar::previous() {
    step(false);
}

void FindBar::step(bool forward) {
    Generic_SP_Control& control = widget_.control();
    const bool changed = !searchedOnce_ || text_->text() != searched_ ||
                         matchCase_->isChecked() != searchedMatchCase_ ||
                         wholeCell_->isChecked() != searchedWholeCell_;
    if (changed) {
        searched_ = text_->text();
        searchedMatchCase_ = matchCase_->isChecked();
        searchedWholeCell_ = wholeCell_->isChecked();
        searchedOnce_ = true;
        FindOptions options;
        options.matchCase = searchedMatchCase_;
        options.wholeCell = searchedWholeCell_;
        control.Find(ToStdString(searched_), options);
    }
    host_.runGesture([&control, forward] {
        if (forward) {
            control.FindNext();
        } else {
            control.FindPrevious();
        }
    });
    showCount();
    text_->setFocus(Qt::OtherFocusReason);
}

void FindBar::showCount() {
    const Generic_SP_Control& control = widget_.control();
    const int hits = static_cast<int>(CoreOf(control).find.hits.size());
    if (hits == 0) {
        count_->setText(tr("No hits"));
    } else {
        count_->setText(tr("%1 of %2").arg(control.CurrentFindHit() + 1).arg(hits));
    }
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            dismiss();
            return;
        case Qt::Key_Return:  // the line edit passes Enter on
        case Qt::Key_Enter:
            step(!event->modifiers().testFlag(Qt::ShiftModifier));
            return;
        default:
            QFrame::keyPressEvent(event);
    }
}

}  // namespace tabulon

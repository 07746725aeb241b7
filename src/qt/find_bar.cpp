#include "qt/find_bar.h"

#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QKeyEvent>

#include "control/control_access.h"
#include "qt/bindings/binding_host.h"
#include "qt/bindings/grid_view.h"
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
      count_(new QLabel(this)),
      slices_(new QTimer(this)) {
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
    slices_->setSingleShot(true);
    text_->installEventFilter(this);
    connect(slices_, &QTimer::timeout, this, &FindBar::search);
    hide();
}

void FindBar::place() {
    const FlexGrid& grid = FormOf(widget_.control()).msgGridView;
    const QRect area =
        widget_.scale().toPixels(grid.left(), grid.top(), grid.width(), grid.height());
    const int width = std::min(sizeHint().width(), std::max(area.width() - 2 * kMargin, 0));
    QRect bar(area.right() - width - kMargin, area.top() + kMargin, width, sizeHint().height());
    // Never over the current cell, where a hit was just gone to: then at the bottom.
    if (auto* view = static_cast<GridView*>(widget_.widgetFor(grid))) {
        QRect cell = view->cellRect(grid.row(), grid.col());
        cell.translate(view->mapTo(&widget_, QPoint()));
        QRect below = bar;
        below.moveBottom(area.bottom() - kMargin);
        if (!cell.isEmpty() && cell.intersects(bar) && !cell.intersects(below)) bar = below;
    }
    setGeometry(bar);
}

void FindBar::open() {
    place();
    show();
    raise();
    text_->selectAll();
    text_->setFocus(Qt::ShortcutFocusReason);
}

void FindBar::dismiss() {
    slices_->stop();
    wanted_ = Step::None;
    hide();
    widget_.setFocus(Qt::OtherFocusReason);
}

void FindBar::next() {
    step(true);
}

void FindBar::previous() {
    step(false);
}

bool FindBar::counting() const {
    return slices_->isActive();
}

void FindBar::step(bool forward) {
    Generic_SP_Control& control = widget_.control();
    // A load drops the hits: search its document again.
    const bool dropped = control.FindComplete() && control.FindHits().empty();
    const bool changed = !searchedOnce_ || dropped || text_->text() != searched_ ||
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
        control.StartFind(ToStdString(searched_), options);
    }
    wanted_ = forward ? Step::Next : Step::Previous;
    search();
}

void FindBar::search() {
    Generic_SP_Control& control = widget_.control();
    QElapsedTimer clock;
    clock.start();
    if (wanted_ != Step::None) {
        // Only until the step's hit is found: the jump is painted before counting on.
        while (!tryStep() && !control.FindComplete()) {
            control.ContinueFind(1);
            if (clock.elapsed() >= sliceMs_) break;
        }
    } else {
        do {
            control.ContinueFind(1);
        } while (!control.FindComplete() && clock.elapsed() < sliceMs_);
    }
    tryStep();
    showCount();
    if (control.FindComplete()) {
        slices_->stop();
    } else {
        slices_->start(0);
    }
}

bool FindBar::tryStep() {
    if (wanted_ == Step::None) return false;
    Generic_SP_Control& control = widget_.control();
    const bool forward = wanted_ == Step::Next;
    if (!FindStepKnown(CoreOf(control), forward)) return false;
    wanted_ = Step::None;
    host_.runGesture([&control, forward] {
        if (forward) {
            control.FindNext();
        } else {
            control.FindPrevious();
        }
    });
    place();
    text_->setFocus(Qt::OtherFocusReason);
    return true;
}

void FindBar::showCount() {
    const Generic_SP_Control& control = widget_.control();
    const int hits = static_cast<int>(control.FindHits().size());
    const int current = control.CurrentFindHit();
    if (!control.FindComplete()) {
        count_->setText(current < 0 ? tr("Searching\u2026")
                                    : tr("%1 of at least %2").arg(current + 1).arg(hits));
    } else if (hits == 0) {
        count_->setText(tr("No hits"));
    } else if (current < 0) {  // the step was given up
        count_->setText(hits == 1 ? tr("1 hit") : tr("%1 hits").arg(hits));
    } else {
        count_->setText(tr("%1 of %2").arg(current + 1).arg(hits));
    }
    // The bar grows with its label rather than squeezing the text being typed.
    if (isVisible() && width() < sizeHint().width()) place();
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    // A step whose hit is still being searched for is given up once the person goes
    // elsewhere: the jump must not pull them away from what they turned to.
    if (watched == text_ && event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            wanted_ = Step::None;
    }
    return QFrame::eventFilter(watched, event);
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

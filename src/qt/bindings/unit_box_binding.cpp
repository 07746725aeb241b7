#include "qt/bindings/unit_box_binding.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "qt/line_edit_mirror.h"
#include "qt/qt_text.h"

namespace tabulon {

UnitBoxBinding::UnitBoxBinding(BindingHost& bindingHost, UnitBoxBase& box, QWidget* parent)
    : ComponentBinding(bindingHost, box, new QWidget(parent)),
      box_(box),
      numberEdit_(new QLineEdit(widget())) {
    widget()->setFocusPolicy(Qt::NoFocus);
    numberEdit_->setFrame(false);
    numberEdit_->setFocusPolicy(Qt::ClickFocus);
    numberEdit_->setContextMenuPolicy(Qt::NoContextMenu);
    numberEdit_->setDragEnabled(false);
    numberEdit_->setAcceptDrops(false);
    numberEdit_->setAttribute(Qt::WA_InputMethodEnabled, false);
    adopt(numberEdit_);
}

void UnitBoxBinding::applyGeometry() {
    ComponentBinding::applyGeometry();
    layoutParts(QRect(QPoint(0, 0), widget()->size()));
}

void UnitBoxBinding::applyState(const ChangeInfo& /*change*/) {
    mirrorNumber();
    mirrorUnits();
    layoutParts(QRect(QPoint(0, 0), widget()->size()));
}

void UnitBoxBinding::mirrorNumber() {
    const QString text = ToQString(box_.NumberText());
    const Mirroring mirroring(*this);
    if (numberEdit_->text() != text) numberEdit_->setText(text);
    numberEdit_->setCursorPosition(static_cast<int>(text.size()));
}

bool UnitBoxBinding::keyPress(QWidget* part, QKeyEvent* event) {
    SendKeyStroke(host(), *event);
    if (part == numberEdit_ && box_.hasFocus() && event->matches(QKeySequence::Paste)) {
        const std::string text = ToStdString(FirstLine(QGuiApplication::clipboard()->text()));
        host().runGesture([this, text] { box_.UserSetText(text); });
    }
    return true;
}

}  // namespace tabulon

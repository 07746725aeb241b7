#include "qt/bindings/unit_box_binding.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "platform/key_codes.h"
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
    connect(numberEdit_, &QLineEdit::cursorPositionChanged, this, [this] {
        if (pointing_ && !mirroring()) pushSelection();
    });
    connect(numberEdit_, &QLineEdit::selectionChanged, this, [this] {
        if (pointing_ && !mirroring()) pushSelection();
    });
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
    const std::string& number = box_.NumberText();
    const QString text = ToQString(number);
    const int anchor = Utf16Index(number, box_.Anchor());
    const int caret = Utf16Index(number, box_.Caret());
    const Mirroring mirroring(*this);
    if (numberEdit_->text() != text) numberEdit_->setText(text);
    // setSelection puts the caret at start + length, before start for a negative length.
    numberEdit_->setSelection(anchor, caret - anchor);
}

void UnitBoxBinding::pushSelection() {
    const QString text = numberEdit_->text();
    int anchor = numberEdit_->cursorPosition();
    if (numberEdit_->hasSelectedText()) {
        const int start = numberEdit_->selectionStart();
        anchor = anchor == start ? numberEdit_->selectionEnd() : start;
    }
    const int first = CharacterIndex(text, anchor);
    const int last = CharacterIndex(text, numberEdit_->cursorPosition());
    host().runGesture([this, first, last] { box_.UserSelect(first, last); });
    mirrorNumber();
}

bool UnitBoxBinding::clipboardKey(const QKeyEvent& event) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (event.matches(QKeySequence::Copy)) {
        if (box_.SelLength() > 0) clipboard->setText(ToQString(box_.SelText()));
    } else if (event.matches(QKeySequence::Cut)) {
        if (box_.SelLength() == 0) return true;
        clipboard->setText(ToQString(box_.SelText()));
        // Cutting deletes the selection as Delete does.
        host().runGesture([this] { box_.UserKeyDown(keys::kDelete, 0); });
    } else if (event.matches(QKeySequence::Paste)) {
        const std::string text = ToStdString(FirstLine(clipboard->text()));
        host().runGesture([this, text] { box_.UserPaste(text); });
    } else {
        return false;
    }
    return true;
}

bool UnitBoxBinding::eventFilter(QObject* watched, QEvent* event) {
    if (watched == numberEdit_) {
        const QEvent::Type type = event->type();
        pointing_ = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick ||
                    type == QEvent::MouseMove || type == QEvent::MouseButtonRelease;
        if (type == QEvent::FocusIn || type == QEvent::FocusOut) {
            QMetaObject::invokeMethod(
                this, [this] { mirrorNumber(); }, Qt::QueuedConnection);
        }
    }
    return ComponentBinding::eventFilter(watched, event);
}

bool UnitBoxBinding::keyPress(QWidget* part, QKeyEvent* event) {
    SendKeyStroke(host(), *event);
    // The preview may have moved on (Tab, Enter): then the key was only the control's.
    if (part == numberEdit_ && box_.hasFocus()) clipboardKey(*event);
    return true;
}

}  // namespace tabulon

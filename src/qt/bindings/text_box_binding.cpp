#include "qt/bindings/text_box_binding.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QRegularExpression>

#include "qt/qt_text.h"

namespace tabulon {

namespace {

// Keys the line edit handles itself once the control has seen them: they move the
// caret or the selection, or only read.
bool LocalKey(const QKeyEvent& event) {
    if (event.matches(QKeySequence::SelectAll) || event.matches(QKeySequence::Copy)) return true;
    if (event.modifiers().testFlag(Qt::AltModifier)) return false;
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return false;
    }
}

}  // namespace

QString FirstLine(const QString& text) {
    const qsizetype end = text.indexOf(QRegularExpression(QStringLiteral("[\r\n]")));
    return end < 0 ? text : text.left(end);
}

TextBoxBinding::TextBoxBinding(BindingHost& bindingHost, TextBox& box, QWidget* parent)
    : ComponentBinding(bindingHost, box, new QLineEdit(parent)),
      box_(box),
      lineEdit_(static_cast<QLineEdit*>(widget())) {
    lineEdit_->setFrame(false);
    lineEdit_->setFocusPolicy(Qt::ClickFocus);
    lineEdit_->setContextMenuPolicy(Qt::NoContextMenu);
    lineEdit_->setDragEnabled(false);
    lineEdit_->setAcceptDrops(false);
    lineEdit_->setAttribute(Qt::WA_InputMethodEnabled, false);
    connect(lineEdit_, &QLineEdit::cursorPositionChanged, this, [this] {
        if (!mirroring()) pushSelection();
    });
    connect(lineEdit_, &QLineEdit::selectionChanged, this, [this] {
        if (!mirroring()) pushSelection();
    });
}

void TextBoxBinding::applyState(const ChangeInfo& change) {
    if (change.kind != Change::Selection) mirrorText();
    mirrorSelection();
}

void TextBoxBinding::mirrorText() {
    const QString text = ToQString(box_.text());
    if (lineEdit_->text() == text) return;
    const Mirroring mirroring(*this);
    lineEdit_->setText(text);
}

void TextBoxBinding::mirrorSelection() {
    if (pushing_) return;
    const std::string& text = box_.text();
    const int start = Utf16Index(text, box_.selStart());
    const int length = Utf16Index(text, box_.selStart() + box_.selLength()) - start;
    const bool same =
        length == 0
            ? !lineEdit_->hasSelectedText() && lineEdit_->cursorPosition() == start
            : lineEdit_->selectionStart() == start && lineEdit_->selectionLength() == length;
    if (same) return;
    const Mirroring mirroring(*this);
    if (length == 0) {
        lineEdit_->deselect();
        lineEdit_->setCursorPosition(start);
    } else {
        lineEdit_->setSelection(start, length);
    }
}

void TextBoxBinding::pushSelection() {
    const QString text = lineEdit_->text();
    const bool selection = lineEdit_->hasSelectedText();
    const int start = selection ? lineEdit_->selectionStart() : lineEdit_->cursorPosition();
    const int end = selection ? lineEdit_->selectionEnd() : start;
    const int first = CharacterIndex(text, start);
    const int last = CharacterIndex(text, end);
    pushing_ = true;
    host().runGesture([this, first, last] {
        box_.setSelStart(first);
        box_.setSelLength(last - first);
    });
    pushing_ = false;
    mirrorSelection();
}

void TextBoxBinding::replaceRange(int start, int length, const QString& text, int caret) {
    QString replaced = lineEdit_->text();
    replaced.replace(start, length, text);
    const std::string value = ToStdString(replaced);
    const int caretChars = caret < 0 ? -1 : CharacterIndex(replaced, caret);
    host().runGesture([this, value, caretChars] {
        box_.userPaste(value);
        if (caretChars >= 0) box_.setSelStart(caretChars);
    });
}

void TextBoxBinding::paste() {
    const QString clip = FirstLine(QGuiApplication::clipboard()->text());
    const bool selection = lineEdit_->hasSelectedText();
    const int start = selection ? lineEdit_->selectionStart() : lineEdit_->cursorPosition();
    const int length = selection ? lineEdit_->selectionLength() : 0;
    replaceRange(start, length, clip, -1);
}

void TextBoxBinding::cut() {
    if (!lineEdit_->hasSelectedText()) return;
    QGuiApplication::clipboard()->setText(lineEdit_->selectedText());
    const int start = lineEdit_->selectionStart();
    replaceRange(start, lineEdit_->selectionLength(), QString(), start);
}

void TextBoxBinding::deleteForward() {
    if (lineEdit_->hasSelectedText()) {
        const int start = lineEdit_->selectionStart();
        replaceRange(start, lineEdit_->selectionLength(), QString(), start);
        return;
    }
    const QString text = lineEdit_->text();
    const int caret = lineEdit_->cursorPosition();
    if (caret >= text.size()) return;
    const bool pair = text.at(caret).isHighSurrogate() && caret + 1 < text.size() &&
                      text.at(caret + 1).isLowSurrogate();
    replaceRange(caret, pair ? 2 : 1, QString(), caret);
}

bool TextBoxBinding::keyPress(QWidget* part, QKeyEvent* event) {
    SendKeyStroke(host(), *event);
    // The preview may have moved on (Tab, Enter): then the key was only the control's.
    if (part != lineEdit_ || !box_.hasFocus()) return true;
    if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (event->matches(QKeySequence::Cut)) {
        cut();
    } else if (event->matches(QKeySequence::Delete)) {
        deleteForward();
    } else if (LocalKey(*event)) {
        return false;
    }
    return true;
}

}  // namespace tabulon

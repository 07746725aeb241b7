#include "qt/line_edit_mirror.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QRegularExpression>

#include "qt/qt_text.h"

namespace tabulon {

QString FirstLine(const QString& text) {
    const qsizetype end = text.indexOf(QRegularExpression(QStringLiteral("[\r\n]")));
    return end < 0 ? text : text.left(end);
}

LineEditMirror::LineEditMirror(QLineEdit& lineEdit, TextBox& box, GestureRunner runGesture)
    : lineEdit_(lineEdit), box_(box), runGesture_(std::move(runGesture)) {
    lineEdit_.setContextMenuPolicy(Qt::NoContextMenu);
    lineEdit_.setDragEnabled(false);
    lineEdit_.setAcceptDrops(false);
    lineEdit_.setAttribute(Qt::WA_InputMethodEnabled, false);
    cursorMoved_ =
        QObject::connect(&lineEdit_, &QLineEdit::cursorPositionChanged, &lineEdit_, [this] {
            if (mirroring_ == 0) pushSelection();
        });
    selectionChanged_ =
        QObject::connect(&lineEdit_, &QLineEdit::selectionChanged, &lineEdit_, [this] {
            if (mirroring_ == 0) pushSelection();
        });
}

// The line edit may outlive its binding for a moment (deleted later by its parent).
LineEditMirror::~LineEditMirror() {
    QObject::disconnect(cursorMoved_);
    QObject::disconnect(selectionChanged_);
}

bool LineEditMirror::LocalKey(const QKeyEvent& event) {
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

void LineEditMirror::mirror(bool textToo) {
    if (textToo) mirrorText();
    mirrorSelection();
}

bool LineEditMirror::editKey(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Paste)) {
        paste();
    } else if (event.matches(QKeySequence::Cut)) {
        cut();
    } else if (event.matches(QKeySequence::Delete)) {
        deleteForward();
    } else {
        return false;
    }
    return true;
}

void LineEditMirror::mirrorText() {
    const QString text = ToQString(box_.text());
    if (lineEdit_.text() == text) return;
    ++mirroring_;
    lineEdit_.setText(text);
    --mirroring_;
}

void LineEditMirror::mirrorSelection() {
    if (pushing_) return;
    const std::string& text = box_.text();
    const int start = Utf16Index(text, box_.selStart());
    const int length = Utf16Index(text, box_.selStart() + box_.selLength()) - start;
    const bool same =
        length == 0 ? !lineEdit_.hasSelectedText() && lineEdit_.cursorPosition() == start
                    : lineEdit_.selectionStart() == start && lineEdit_.selectionLength() == length;
    if (same) return;
    ++mirroring_;
    if (length == 0) {
        lineEdit_.deselect();
        lineEdit_.setCursorPosition(start);
    } else {
        lineEdit_.setSelection(start, length);
    }
    --mirroring_;
}

void LineEditMirror::pushSelection() {
    const QString text = lineEdit_.text();
    const bool selection = lineEdit_.hasSelectedText();
    const int start = selection ? lineEdit_.selectionStart() : lineEdit_.cursorPosition();
    const int end = selection ? lineEdit_.selectionEnd() : start;
    const int first = CharacterIndex(text, start);
    const int last = CharacterIndex(text, end);
    pushing_ = true;
    runGesture_([this, first, last] {
        box_.setSelStart(first);
        box_.setSelLength(last - first);
    });
    pushing_ = false;
    mirrorSelection();
}

void LineEditMirror::replaceRange(int start, int length, const QString& text, int caret) {
    QString replaced = lineEdit_.text();
    replaced.replace(start, length, text);
    const std::string value = ToStdString(replaced);
    const int caretChars = caret < 0 ? -1 : CharacterIndex(replaced, caret);
    runGesture_([this, value, caretChars] {
        box_.userPaste(value);
        if (caretChars >= 0) box_.setSelStart(caretChars);
    });
}

void LineEditMirror::paste() {
    const QString clip = FirstLine(QGuiApplication::clipboard()->text());
    const bool selection = lineEdit_.hasSelectedText();
    const int start = selection ? lineEdit_.selectionStart() : lineEdit_.cursorPosition();
    const int length = selection ? lineEdit_.selectionLength() : 0;
    // The caret goes after what was pasted, as in any line edit, not to the end.
    replaceRange(start, length, clip, start + static_cast<int>(clip.size()));
}

void LineEditMirror::cut() {
    if (!lineEdit_.hasSelectedText()) return;
    QGuiApplication::clipboard()->setText(lineEdit_.selectedText());
    const int start = lineEdit_.selectionStart();
    replaceRange(start, lineEdit_.selectionLength(), QString(), start);
}

void LineEditMirror::deleteForward() {
    if (lineEdit_.hasSelectedText()) {
        const int start = lineEdit_.selectionStart();
        replaceRange(start, lineEdit_.selectionLength(), QString(), start);
        return;
    }
    const QString text = lineEdit_.text();
    const int caret = lineEdit_.cursorPosition();
    if (caret >= text.size()) return;
    const bool pair = text.at(caret).isHighSurrogate() && caret + 1 < text.size() &&
                      text.at(caret + 1).isLowSurrogate();
    replaceRange(caret, pair ? 2 : 1, QString(), caret);
}

}  // namespace tabulon

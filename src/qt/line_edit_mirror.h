// LineEditMirror: a QLineEdit that shows a text-box model, shared by the control's
// text editor and the property pages' text boxes.
//
// The model owns the text and the selection; the line edit shows them. Moving the
// caret and selecting in the line edit is handed to the model's selection at once.
// The clipboard keys edit the model: paste and cut replace the whole text at once as
// the model's paste does (the caret ends at the end of the text after a paste, where
// the cut was after a cut), Delete removes the selection or the character after the
// caret the same way; copy only reads. Undo, the context menu and drag and drop are
// off: they would change the text behind the model's back.
//
// Decision: pasted text is cut at its first line break (the box holds one line).
#pragma once

#include <QLineEdit>
#include <functional>

#include "platform/text_box.h"

class QKeyEvent;

namespace tabulon {

class LineEditMirror {
public:
    // Runs a change of the model as the user's gesture (the binding host's runGesture).
    using GestureRunner = std::function<void(const std::function<void()>&)>;

    LineEditMirror(QLineEdit& lineEdit, TextBox& box, GestureRunner runGesture);
    ~LineEditMirror();
    LineEditMirror(const LineEditMirror&) = delete;
    LineEditMirror& operator=(const LineEditMirror&) = delete;

    // The model's text and selection into the line edit; textToo false mirrors only
    // the selection.
    void mirror(bool textToo);

    // The clipboard and Delete keys, applied to the model: true when event was one.
    bool editKey(const QKeyEvent& event);

    // Keys the line edit may handle itself: they move the caret or the selection, or
    // only read.
    static bool LocalKey(const QKeyEvent& event);

private:
    void mirrorText();
    void mirrorSelection();
    // The line edit's caret and selection into the model.
    void pushSelection();
    // Replaces the line edit's range [start, start + length) (UTF-16 units) with text
    // through the model's paste, then puts the caret at caret (UTF-16 units; -1 leaves
    // it at the end).
    void replaceRange(int start, int length, const QString& text, int caret);
    void paste();
    void cut();
    void deleteForward();

    QLineEdit& lineEdit_;
    TextBox& box_;
    GestureRunner runGesture_;
    QMetaObject::Connection cursorMoved_;
    QMetaObject::Connection selectionChanged_;
    int mirroring_ = 0;  // writes into the line edit raise signals that are no gestures
    bool pushing_ = false;
};

// The first line of a pasted text (up to the first CR or LF).
QString FirstLine(const QString& text);

}  // namespace tabulon

// EventLog: the demo's log pane. Every signal of the control, every message box and
// every host action of the demo becomes one entry of text, so a user (and a script
// with --print-log) sees exactly what a host program would receive.
//
// Entry forms:
//   OKClick | HelpClick | CancelClick
//   PrintClick: C columns, R rows (N characters)
//   AppGridEventHandler: <GridValue ...>      (the element as the host receives it)
//   PropertyChanged: GeneralProperty
//   information: TEXT | critical: TEXT | plain: TEXT     (a message box)
//   anything else the demo notes (Load PATH: true ...)
// A text of several lines (the control ends its lines with CR LF) continues on
// following lines indented by four spaces.
#pragma once

#include <QPlainTextEdit>
#include <QString>

#include "support/message_sink.h"

namespace tabulon::demo {

class EventLog : public QPlainTextEdit {
    Q_OBJECT

public:
    explicit EventLog(QWidget* parent = nullptr);

    // Also writes every entry to standard output (off by default).
    void setEcho(bool echo) { echo_ = echo; }

    // Appends one entry.
    void note(const QString& text);
    // A message box of the control or of a property page.
    void message(MessageIcon icon, const QString& text);

    // The entry text for a message box.
    static QString MessageEntry(MessageIcon icon, const QString& text);
    // Multi-line text as one entry: CR LF and LF end lines, following lines indented.
    static QString IndentLines(const QString& text);

private:
    bool echo_ = false;
};

}  // namespace tabulon::demo

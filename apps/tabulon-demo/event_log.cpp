#include "event_log.h"

#include <QFontDatabase>
#include <cstdio>

#include "qt/qt_text.h"

namespace tabulon::demo {

EventLog::EventLog(QWidget* parent) : QPlainTextEdit(parent) {
    setReadOnly(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setMaximumBlockCount(5000);
}

QString EventLog::IndentLines(const QString& text) {
    QStringList lines = DisplayLines(text).split(QLatin1Char('\n'));
    for (qsizetype i = 1; i < lines.size(); ++i)
        lines[i].prepend(QStringLiteral("    "));
    return lines.join(QLatin1Char('\n'));
}

QString EventLog::MessageEntry(MessageIcon icon, const QString& text) {
    return QString::fromUtf8(MessageIconName(icon)) + QStringLiteral(": ") + text;
}

void EventLog::note(const QString& text) {
    const QString entry = IndentLines(text);
    appendPlainText(entry);
    if (echo_) {
        std::fputs(entry.toUtf8().constData(), stdout);
        std::fputc('\n', stdout);
        std::fflush(stdout);
    }
}

void EventLog::message(MessageIcon icon, const QString& text) {
    note(MessageEntry(icon, text));
}

}  // namespace tabulon::demo

#include "qt/qt_message_sink.h"

#include <QGuiApplication>

#include "qt/qt_text.h"

namespace tabulon {

QMessageBox::Icon QtMessageSink::IconFor(MessageIcon icon) {
    switch (icon) {
        case MessageIcon::Information:
            return QMessageBox::Information;
        case MessageIcon::Critical:
            return QMessageBox::Critical;
        case MessageIcon::Plain:
            break;
    }
    return QMessageBox::NoIcon;
}

void QtMessageSink::Show(MessageIcon icon, std::string_view text) {
    if (text.empty()) return;
    if (before_) before_();
    const QString message = ToQString(text);
    if (handler_) {
        handler_(icon, message);
        return;
    }
    QMessageBox box(IconFor(icon), QGuiApplication::applicationDisplayName(), DisplayLines(message),
                    QMessageBox::Ok, parent_.data());
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace tabulon

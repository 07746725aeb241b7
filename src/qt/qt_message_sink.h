// QtMessageSink: the control's message boxes as modal QMessageBoxes, or handed to a
// handler that a host or a test installs instead.
//
// Decisions:
// - Icons: information -> QMessageBox::Information, critical -> Critical, plain ->
//   NoIcon. One OK button.
// - The box's title is the application's display name (what Qt puts in window titles).
// - The text is shown as plain text (a "<" in a document value is not markup), with
//   the control's CR LF line ends shown as line breaks.
// - With a handler installed no box is shown: the handler gets the icon and the text
//   exactly as the control wrote it.
// - An empty text shows nothing and reaches no handler.
#pragma once

#include <QMessageBox>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <functional>
#include <string_view>

#include "support/message_sink.h"

namespace tabulon {

class QtMessageSink : public MessageSink {
public:
    using Handler = std::function<void(MessageIcon icon, const QString& text)>;

    // parent: the widget the boxes are modal to (may be null).
    explicit QtMessageSink(QWidget* parent = nullptr) : parent_(parent) {}

    // Installs a handler (an empty one restores the message boxes).
    void setHandler(Handler handler) { handler_ = std::move(handler); }
    const Handler& handler() const { return handler_; }
    // Called before every message, box or handler.
    void setBeforeMessage(std::function<void()> before) { before_ = std::move(before); }

    void Show(MessageIcon icon, std::string_view text) override;

    // The Qt icon of a message box of the control.
    static QMessageBox::Icon IconFor(MessageIcon icon);

private:
    QPointer<QWidget> parent_;
    Handler handler_;
    std::function<void()> before_;
};

}  // namespace tabulon

// PropertyPageDialog: one design-time property page of a SpreadsheetWidget — the
// "General" page (ppGeneral) or the "Advanced" page (ppButtonProperty) — as a
// QDialog with OK, Cancel and Apply, for hosts and design tools that let a developer
// edit the control's settings records.
//
// The dialog is a view of the headless page model: every control the page registers
// gets a Qt widget at the place the page's layout table gives it (twips -> pixels
// with the screen's logical DPI, inside its frame's group box), bound to the model
// (see PageBinding and its subclasses), in the page's layout order, which is also
// the Tab order. Creating the dialog selects the widget's control on the page, which
// fills the page from it. Apply, and OK, write the page's record back through the
// page's own apply; the control and its widgets follow at once.
//
// Messages (range violations of the numeric boxes, the page's validation messages,
// "Property page error - ...") are the front end's message boxes (QtMessageSink),
// modal to the dialog, or handed to a handler the host installs instead.
//
// Decisions:
// - Qt's focus and the page's focus move together: a widget of the dialog that takes
//   Qt's focus gives the page's focus to its control, and any other widget of the
//   dialog (a button) takes it away, so leaving a numeric box runs its lost-focus
//   rule (the clamp and its message) before a click on Apply or OK is handled.
// - Apply and OK always leave the focused control first, also when pressed from the
//   keyboard, so a value typed and not yet left is clamped before it is applied.
// - OK closes the dialog only when the page took the changes (nothing left to apply);
//   after a refused apply the dialog stays open with the page's message shown.
//   Cancel closes without applying. Apply is enabled exactly while the page says it
//   has changes.
// - The dialog's title is the page's caption; its font family is the page's.
// - When the control goes away while the dialog is open, the dialog closes as by
//   Cancel.
#pragma once

#include <QDialog>
#include <QString>
#include <memory>
#include <string_view>

#include "qt/message_handler.h"

class QPushButton;

namespace tabulon {

class PropertyPage;
class SpreadsheetWidget;

class PropertyPageDialog : public QDialog {
    Q_OBJECT

public:
    enum class Kind { General, Buttons };
    using MessageHandler = tabulon::MessageHandler;

    // A dialog showing the page of that kind for control (which it selects on the
    // page). messages, when given, replaces the message boxes from the start.
    PropertyPageDialog(Kind kind, SpreadsheetWidget& control, QWidget* parent = nullptr,
                       MessageHandler messages = {});
    ~PropertyPageDialog() override;

    // The page model the dialog shows.
    PropertyPage& page();
    // Message boxes go to handler instead (empty: boxes again).
    void setMessageHandler(MessageHandler handler);

    // The widget shown for the page's control of that name and array index (-1: not
    // in an array); null when the page has no such control.
    QWidget* widgetFor(std::string_view name, int index = -1) const;
    QPushButton* okButton() const;
    QPushButton* cancelButton() const;
    QPushButton* applyButton() const;

    // Leaves the focused control and applies the page. True when the page has
    // nothing left to apply afterwards.
    bool apply();

public Q_SLOTS:
    // Applies; closes only when the page took the changes.
    void accept() override;

private:
    class Private;
    std::unique_ptr<Private> d_;
};

}  // namespace tabulon

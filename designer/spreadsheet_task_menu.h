// The task menu that Qt Designer shows for a SpreadsheetWidget on a form: the control's
// two design-time property pages, "General..." and "Advanced...", each opening its
// PropertyPageDialog on the widget being designed.
//
// Decision: Designer has no property type for the control's settings records, so what
// the pages apply changes the widget on the form (and marks the form changed) but is
// not written into the .ui file; a host applies its settings in code (the
// GeneralProperty and ButtonProperty properties, or a saved property bag).
#pragma once

#include <QExtensionFactory>
#include <QObject>
#include <QPointer>
#include <QtDesigner/QDesignerTaskMenuExtension>

#include "qt/pages/property_page_dialog.h"

class QAction;

namespace tabulon {

class SpreadsheetWidget;

namespace designer {

class SpreadsheetTaskMenu : public QObject, public QDesignerTaskMenuExtension {
    Q_OBJECT
    Q_INTERFACES(QDesignerTaskMenuExtension)

public:
    SpreadsheetTaskMenu(SpreadsheetWidget* widget, QObject* parent);

    // The General page: what a double click on the widget opens.
    QAction* preferredEditAction() const override;
    // General..., then Advanced....
    QList<QAction*> taskActions() const override;

private:
    void openPage(PropertyPageDialog::Kind kind);

    QPointer<SpreadsheetWidget> widget_;
    QAction* general_;
    QAction* buttons_;
};

// Gives every SpreadsheetWidget on a form its task menu.
class SpreadsheetTaskMenuFactory : public QExtensionFactory {
    Q_OBJECT

public:
    explicit SpreadsheetTaskMenuFactory(QExtensionManager* parent = nullptr);

protected:
    // A SpreadsheetTaskMenu for a SpreadsheetWidget asked for its task menu; null for
    // anything else.
    QObject* createExtension(QObject* object, const QString& iid, QObject* parent) const override;
};

}  // namespace designer
}  // namespace tabulon

#include "spreadsheet_task_menu.h"

#include <QAction>
#include <QtDesigner/QDesignerFormWindowInterface>

#include "qt/spreadsheet_widget.h"

namespace tabulon::designer {

SpreadsheetTaskMenu::SpreadsheetTaskMenu(SpreadsheetWidget* widget, QObject* parent)
    : QObject(parent),
      widget_(widget),
      general_(new QAction(tr("General..."), this)),
      buttons_(new QAction(tr("Advanced..."), this)) {
    connect(general_, &QAction::triggered, this,
            [this] { openPage(PropertyPageDialog::Kind::General); });
    connect(buttons_, &QAction::triggered, this,
            [this] { openPage(PropertyPageDialog::Kind::Buttons); });
}

QAction* SpreadsheetTaskMenu::preferredEditAction() const {
    return general_;
}

QList<QAction*> SpreadsheetTaskMenu::taskActions() const {
    return {general_, buttons_};
}

void SpreadsheetTaskMenu::openPage(PropertyPageDialog::Kind kind) {
    if (widget_ == nullptr) return;
    PropertyPageDialog dialog(kind, *widget_, widget_->window());
    bool applied = false;
    connect(widget_, &SpreadsheetWidget::PropertyChanged, &dialog, [&applied] { applied = true; });
    dialog.exec();
    if (!applied) return;
    if (QDesignerFormWindowInterface* form =
            QDesignerFormWindowInterface::findFormWindow(widget_)) {
        form->setDirty(true);
    }
}

SpreadsheetTaskMenuFactory::SpreadsheetTaskMenuFactory(QExtensionManager* parent)
    : QExtensionFactory(parent) {}

QObject* SpreadsheetTaskMenuFactory::createExtension(QObject* object, const QString& iid,
                                                     QObject* parent) const {
    if (iid != QLatin1String(Q_TYPEID(QDesignerTaskMenuExtension))) return nullptr;
    auto* widget = qobject_cast<SpreadsheetWidget*>(object);
    return widget == nullptr ? nullptr : new SpreadsheetTaskMenu(widget, parent);
}

}  // namespace tabulon::designer

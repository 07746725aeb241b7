#include "spreadsheet_widget_plugin.h"

#include <QIcon>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QExtensionManager>

#include "qt/spreadsheet_widget.h"
#include "spreadsheet_task_menu.h"

namespace tabulon::designer {

SpreadsheetWidgetPlugin::SpreadsheetWidgetPlugin(QObject* parent) : QObject(parent) {}

QString SpreadsheetWidgetPlugin::name() const {
    return QStringLiteral("tabulon::SpreadsheetWidget");
}

QString SpreadsheetWidgetPlugin::group() const {
    return QStringLiteral("Tabulon");
}

QString SpreadsheetWidgetPlugin::toolTip() const {
    return tr("Spreadsheet control for engineering input data");
}

QString SpreadsheetWidgetPlugin::whatsThis() const {
    return tr(
        "A category tree beside a grid of values with in-place editors, loaded from "
        "an XML document (Load, LoadXML) and read back through the XML property.");
}

QString SpreadsheetWidgetPlugin::includeFile() const {
    return QStringLiteral("qt/spreadsheet_widget.h");
}

QIcon SpreadsheetWidgetPlugin::icon() const {
    return QIcon::fromTheme(QStringLiteral("x-office-spreadsheet"));
}

QWidget* SpreadsheetWidgetPlugin::createWidget(QWidget* parent) {
    return new SpreadsheetWidget(parent);
}

void SpreadsheetWidgetPlugin::initialize(QDesignerFormEditorInterface* core) {
    if (initialized_) return;
    QExtensionManager* manager = core->extensionManager();
    manager->registerExtensions(new SpreadsheetTaskMenuFactory(manager),
                                Q_TYPEID(QDesignerTaskMenuExtension));
    initialized_ = true;
}

QString SpreadsheetWidgetPlugin::domXml() const {
    return QStringLiteral(
        "<ui language=\"c++\">\n"
        " <widget class=\"tabulon::SpreadsheetWidget\" name=\"spreadsheet\">\n"
        "  <property name=\"geometry\">\n"
        "   <rect><x>0</x><y>0</y><width>560</width><height>430</height></rect>\n"
        "  </property>\n"
        " </widget>\n"
        "</ui>\n");
}

}  // namespace tabulon::designer

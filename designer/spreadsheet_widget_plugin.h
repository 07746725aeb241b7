// The Qt Designer plugin of the spreadsheet control: offers tabulon::SpreadsheetWidget
// in Designer's widget box (group "Tabulon") and gives it a task menu with the two
// property pages (SpreadsheetTaskMenu).
//
// Designer loads the plugin from its plugin path: install the build
// (lib/qt6/plugins/designer under the prefix) and point QT_PLUGIN_PATH at
// <prefix>/lib/qt6/plugins, or copy the library into Designer's own designer folder.
#pragma once

#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>

namespace tabulon::designer {

class SpreadsheetWidgetPlugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetInterface")
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    explicit SpreadsheetWidgetPlugin(QObject* parent = nullptr);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    // The header a generated form includes ("qt/spreadsheet_widget.h").
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override { return false; }
    // A new control with its first-time initialisation, as a host creates it.
    QWidget* createWidget(QWidget* parent) override;
    bool isInitialized() const override { return initialized_; }
    // Registers the task menu with Designer's extension manager (once).
    void initialize(QDesignerFormEditorInterface* core) override;
    QString domXml() const override;

private:
    bool initialized_ = false;
};

}  // namespace tabulon::designer

// The Qt Designer plugin: the widget box entry a form is built from, and the task menu
// that opens the two property pages on the widget being designed.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPluginLoader>
#include <QTimer>
#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <memory>

#include "propertypages/property_page.h"
#include "qt/pages/property_page_dialog.h"
#include "qt/spreadsheet_widget.h"
#include "spreadsheet_task_menu.h"

namespace tabulon {
namespace {

TEST(DesignerPlugin, OffersTheWidgetUnderItsClassAndHeader) {
    QPluginLoader loader(QString::fromUtf8(TABULON_DESIGNER_PLUGIN_PATH));
    QObject* instance = loader.instance();
    ASSERT_NE(instance, nullptr) << loader.errorString().toStdString();
    auto* plugin = qobject_cast<QDesignerCustomWidgetInterface*>(instance);
    ASSERT_NE(plugin, nullptr);

    EXPECT_EQ(plugin->includeFile(), QStringLiteral("qt/spreadsheet_widget.h"));
    EXPECT_TRUE(plugin->domXml().contains(QStringLiteral("class=\"") + plugin->name()));
    // The plugin holds its own copy of the static library: the class is compared by
    // name, as Designer does.
    const std::unique_ptr<QWidget> widget(plugin->createWidget(nullptr));
    ASSERT_NE(widget, nullptr);
    EXPECT_STREQ(widget->metaObject()->className(), "tabulon::SpreadsheetWidget");
}

TEST(DesignerTaskMenu, OffersTheTwoPagesForTheSpreadsheetWidgetOnlyAndOpensThemOnIt) {
    QExtensionManager manager;
    manager.registerExtensions(new designer::SpreadsheetTaskMenuFactory(&manager),
                               Q_TYPEID(QDesignerTaskMenuExtension));
    SpreadsheetWidget widget;
    QWidget other;
    EXPECT_EQ(qt_extension<QDesignerTaskMenuExtension*>(&manager, &other), nullptr);
    auto* menu = qt_extension<QDesignerTaskMenuExtension*>(&manager, &widget);
    ASSERT_NE(menu, nullptr);
    const QList<QAction*> actions = menu->taskActions();
    ASSERT_EQ(actions.size(), 2);
    EXPECT_EQ(actions[0]->text(), QStringLiteral("General..."));
    EXPECT_EQ(actions[1]->text(), QStringLiteral("Advanced..."));
    EXPECT_EQ(menu->preferredEditAction(), actions[0]);

    QString opened;
    const Generic_SP_Control* selected = nullptr;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<PropertyPageDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        opened = dialog->windowTitle();
        selected = dialog->page().selectedControls().front();
        dialog->reject();
    });
    actions[1]->trigger();
    EXPECT_EQ(opened, QStringLiteral("Advanced"));
    EXPECT_EQ(selected, &widget.control());
}

}  // namespace
}  // namespace tabulon

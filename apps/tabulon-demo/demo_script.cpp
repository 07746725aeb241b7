#include "demo_script.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTreeView>

#include "control/control_access.h"
#include "demo_window.h"
#include "qt/bindings/grid_view.h"
#include "qt/bindings/tree_binding.h"
#include "qt/qt_text.h"
#include "qt/spreadsheet_widget.h"

namespace tabulon::demo {

void SettleEvents() {
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

QString DemoScript::run(const std::vector<DemoStep>& steps) {
    for (const DemoStep& step : steps) {
        QString failure = runStep(step);
        SettleEvents();
        if (!failure.isEmpty()) return failure;
    }
    return {};
}

QWidget* DemoScript::screenshotTarget() const {
    if (page_ != nullptr) return page_;
    return &window_;
}

QString DemoScript::runStep(const DemoStep& step) {
    switch (step.kind) {
        case DemoStep::Kind::Node:
            return clickNode(step.args[0]);
        case DemoStep::Kind::Click:
            return clickCell(step.args[0].toInt(), step.args[1].toInt());
        case DemoStep::Kind::Type:
            return type(step.args[0]);
        case DemoStep::Kind::Print:
            return clickPrint();
        case DemoStep::Kind::Page: {
            const auto kind = step.args[0] == QLatin1String("general")
                                  ? PropertyPageDialog::Kind::General
                                  : PropertyPageDialog::Kind::Buttons;
            page_ = window_.openPropertyPage(kind);
            if (page_ != nullptr) (void)QTest::qWaitForWindowExposed(page_);
            return {};
        }
        case DemoStep::Kind::Pdf:
            return window_.exportReportPdf(step.args[0])
                       ? QString()
                       : QStringLiteral("--pdf: no report to export, or ") + step.args[0] +
                             QStringLiteral(" could not be written");
        case DemoStep::Kind::Save:
            return window_.saveXml(step.args[0])
                       ? QString()
                       : QStringLiteral("--save: no document, or ") + step.args[0] +
                             QStringLiteral(" could not be written");
    }
    return QStringLiteral("unknown step");
}

QString DemoScript::clickNode(const QString& key) {
    SpreadsheetWidget& spreadsheet = window_.spreadsheet();
    TreeView& tree = FormOf(spreadsheet.control()).treTreeView;
    const int index = tree.indexOf(ToStdString(key));
    auto* binding = static_cast<TreeBinding*>(spreadsheet.bindingFor(tree));
    const QModelIndex at = binding->indexFor(index);
    if (!at.isValid()) return QStringLiteral("--node: the tree has no node ") + key;
    QTreeView* view = binding->treeView();
    view->scrollTo(at);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      view->visualRect(at).center());
    return {};
}

QString DemoScript::clickCell(int row, int column) {
    SpreadsheetWidget& spreadsheet = window_.spreadsheet();
    auto* view =
        static_cast<GridView*>(spreadsheet.widgetFor(FormOf(spreadsheet.control()).msgGridView));
    const QRect cell = view->cellRect(row, column);
    if (cell.isEmpty()) {
        return QStringLiteral("--click: cell %1, %2 is not in view").arg(row).arg(column);
    }
    QTest::mouseClick(view, Qt::LeftButton, Qt::NoModifier, cell.center());
    return {};
}

QString DemoScript::type(const QString& text) {
    for (const QChar c : text) {
        QWidget* target = QApplication::focusWidget();
        if (target == nullptr) return QStringLiteral("--type: no widget has the focus");
        QTest::keyClicks(target, QString(c));
        SettleEvents();
    }
    return {};
}

QString DemoScript::clickPrint() {
    SpreadsheetWidget& spreadsheet = window_.spreadsheet();
    QWidget* button = spreadsheet.widgetFor(FormOf(spreadsheet.control()).cmdPrint);
    if (button == nullptr || !button->isVisible() || !button->isEnabled()) {
        return QStringLiteral("--print: the View/Print button is hidden or disabled");
    }
    QTest::mouseClick(button, Qt::LeftButton);
    return {};
}

}  // namespace tabulon::demo

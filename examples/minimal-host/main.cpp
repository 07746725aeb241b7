// minimal-host: the smallest complete host of the spreadsheet control. It loads the
// document named on the command line, listens to the control's five events and reads
// the edited document back through the XML property.
//
//   minimal-host DOCUMENT
#include <QApplication>
#include <QMessageBox>
#include <QTextStream>

#include "qt/spreadsheet_widget.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        QTextStream(stderr) << "usage: minimal-host DOCUMENT\n";
        return 2;
    }

    tabulon::SpreadsheetWidget sheet;
    sheet.setWindowTitle(QStringLiteral("Minimal host"));

    // OK: the control has checked every value; it writes the document back to its
    // file right after this returns. The edited document is the XML property.
    QObject::connect(&sheet, &tabulon::SpreadsheetWidget::OKClick, [&sheet, &app] {
        QTextStream(stdout) << sheet.XML() << '\n';
        app.quit();
    });
    QObject::connect(&sheet, &tabulon::SpreadsheetWidget::CancelClick, &app, &QApplication::quit);
    QObject::connect(&sheet, &tabulon::SpreadsheetWidget::HelpClick, [&sheet] {
        QMessageBox::information(&sheet, QStringLiteral("Help"),
                                 QStringLiteral("Edit the values, then press OK to save."));
    });
    // View/Print: the grid on screen as a small tagged text, for the host to print.
    QObject::connect(&sheet, &tabulon::SpreadsheetWidget::PrintClick,
                     [](const QString& report) { QTextStream(stdout) << report; });
    // A cell that asks the host to check its column: the GridValue element of that
    // column, which the host may read and change while the signal runs.
    QObject::connect(
        &sheet, &tabulon::SpreadsheetWidget::AppGridEventHandler, [](tabulon::xml::Node* column) {
            QTextStream(stdout) << "check: " << QString::fromStdString(column->serialize()) << '\n';
        });

    // A document the control refuses has already been explained in a message box.
    if (!sheet.Load(arguments[1])) return 1;
    sheet.resize(800, 560);
    sheet.show();
    return QApplication::exec();
}

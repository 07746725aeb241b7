// The demo's print preview of a View/Print report: the report's table on pages as
// they would print, with Print..., Export PDF... and Close; and the PDF export on its
// own for the command line.
#pragma once

#include <QDialog>
#include <QString>
#include <memory>

class QPrinter;
class QPrintPreviewWidget;
class QTextDocument;

namespace tabulon::demo {

// Prints document into a PDF file at path (A4, the printer's default margins). False
// when the file could not be written.
bool ExportPdf(QTextDocument& document, const QString& path);

class ReportPreviewDialog : public QDialog {
    Q_OBJECT

public:
    // Shows document, which the dialog takes over.
    ReportPreviewDialog(std::unique_ptr<QTextDocument> document, QWidget* parent = nullptr);
    ~ReportPreviewDialog() override;

    QTextDocument& document() const { return *document_; }

private:
    void print();
    void exportPdf();

    std::unique_ptr<QTextDocument> document_;
    std::unique_ptr<QPrinter> printer_;
    QPrintPreviewWidget* preview_;
};

}  // namespace tabulon::demo

#include "report_preview.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPageSize>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QTextDocument>
#include <QVBoxLayout>

namespace tabulon::demo {

bool ExportPdf(QTextDocument& document, const QString& path) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setOutputFileName(path);
    // QPrinter reports no failure: a file that is not there afterwards (or empty) is
    // one, so an older file of that name must not count.
    QFile::remove(path);
    document.print(&printer);
    const QFileInfo written(path);
    return written.exists() && written.size() > 0;
}

ReportPreviewDialog::ReportPreviewDialog(std::unique_ptr<QTextDocument> document, QWidget* parent)
    : QDialog(parent),
      document_(std::move(document)),
      printer_(std::make_unique<QPrinter>(QPrinter::HighResolution)),
      preview_(new QPrintPreviewWidget(printer_.get(), this)) {
    setWindowTitle(tr("View/Print report"));
    connect(preview_, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { document_->print(printer); });

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* printButton = buttons->addButton(tr("Print..."), QDialogButtonBox::ActionRole);
    QPushButton* pdfButton = buttons->addButton(tr("Export PDF..."), QDialogButtonBox::ActionRole);
    connect(printButton, &QPushButton::clicked, this, &ReportPreviewDialog::print);
    connect(pdfButton, &QPushButton::clicked, this, &ReportPreviewDialog::exportPdf);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(preview_);
    layout->addWidget(buttons);
    resize(800, 900);
}

ReportPreviewDialog::~ReportPreviewDialog() = default;

void ReportPreviewDialog::print() {
    QPrintDialog dialog(printer_.get(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    document_->print(printer_.get());
    preview_->updatePreview();
}

void ReportPreviewDialog::exportPdf() {
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Export PDF"), QStringLiteral("report.pdf"), tr("PDF files (*.pdf)"));
    if (path.isEmpty()) return;
    if (!ExportPdf(*document_, path)) {
        QMessageBox::critical(this, windowTitle(), tr("Could not write %1.").arg(path));
    }
}

}  // namespace tabulon::demo

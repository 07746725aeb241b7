#include "demo_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QSaveFile>
#include <QStatusBar>
#include <QTextDocument>
#include <QToolBar>

#include "event_log.h"
#include "qt/qt_text.h"
#include "qt/spreadsheet_widget.h"
#include "report_preview.h"
#include "report_table.h"
#include "support/failure.h"
#include "xml_text_dialog.h"

namespace tabulon::demo {

namespace {

QString YesNo(bool value) {
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

}  // namespace

DemoWindow::DemoWindow(PropertyBag* savedSettings, QWidget* parent)
    : QMainWindow(parent),
      savedSettings_(savedSettings),
      designSettings_(savedSettings == nullptr ? nullptr
                                               : std::make_unique<DesignSettings>(*savedSettings)),
      boxes_(this),
      log_(new EventLog(this)),
      logDock_(new QDockWidget(tr("Log"), this)),
      problems_(new QLabel(this)),
      spreadsheet_(nullptr) {
    makeSpreadsheet();
    logDock_->setObjectName(QStringLiteral("log"));
    logDock_->setWidget(log_);
    logDock_->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    addDockWidget(Qt::BottomDockWidgetArea, logDock_);
    resizeDocks({logDock_}, {150}, Qt::Vertical);
    buildMenus();
    buildToolBar();
    // Beside the passing messages, so that hovering a menu does not wipe it.
    problems_->setObjectName(QStringLiteral("problemCount"));
    statusBar()->addPermanentWidget(problems_);
    setDocumentTitle(QString());
    statusBar()->showMessage(tr("No document"));
}

DemoWindow::~DemoWindow() = default;

void DemoWindow::buildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Open..."), QKeySequence::Open, this, &DemoWindow::chooseDocument);
    file->addAction(tr("Open from &text..."), this, &DemoWindow::chooseXmlText);
    file->addAction(tr("Save &as..."), QKeySequence::SaveAs, this, &DemoWindow::chooseSaveTarget);
    file->addSeparator();
    previewAction_ = file->addAction(tr("&Print preview of the last report..."), this,
                                     &DemoWindow::showReportPreview);
    pdfAction_ = file->addAction(tr("&Export the last report as PDF..."), this,
                                 &DemoWindow::choosePdfTarget);
    previewAction_->setEnabled(false);
    pdfAction_->setEnabled(false);
    file->addAction(tr("E&xport the grids as CSV..."), this, &DemoWindow::chooseCsvFolder);
    file->addAction(tr("Export the grids as a &workbook (.xlsx)..."), this,
                    &DemoWindow::chooseXlsxTarget);
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    undoAction_ = edit->addAction(tr("&Undo"), this, [this] { spreadsheet_->Undo(); });
    undoAction_->setShortcut(QKeySequence::Undo);
    redoAction_ = edit->addAction(tr("&Redo"), this, [this] { spreadsheet_->Redo(); });
    redoAction_->setShortcuts({QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence::Redo});
    undoAction_->setEnabled(spreadsheet_->canUndo());
    redoAction_->setEnabled(spreadsheet_->canRedo());

    QMenu* properties = menuBar()->addMenu(tr("&Properties"));
    properties->addAction(tr("&General..."), this,
                          [this] { openPropertyPage(PropertyPageDialog::Kind::General); });
    properties->addAction(tr("&Advanced (buttons)..."), this,
                          [this] { openPropertyPage(PropertyPageDialog::Kind::Buttons); });

    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->addAction(logDock_->toggleViewAction());
    protectiveAction_ = view->addAction(tr("&Protective editing"), this,
                                        [this](bool on) { setProtectiveEditing(on); });
    protectiveAction_->setCheckable(true);
    protectiveAction_->setChecked(protectiveEditing_);
}

void DemoWindow::setProtectiveEditing(bool on) {
    protectiveEditing_ = on;
    spreadsheet_->setProtectiveEditing(on);
    if (protectiveAction_ != nullptr) protectiveAction_->setChecked(on);
    log_->note(QStringLiteral("ProtectiveEditing: ") + YesNo(on));
}

bool DemoWindow::mayCloseDocument() {
    if (!spreadsheet_->isModified()) return true;
    if (!interactive_) {
        log_->note(QStringLiteral("Unsaved changes to ") + documentName_ +
                   QStringLiteral(" discarded"));
        return true;
    }
    QMessageBox ask(QMessageBox::Warning, QApplication::applicationDisplayName(),
                    tr("%1 has changes that are not saved.").arg(documentName_),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    ask.setInformativeText(tr("Save them to a file before you go on?"));
    ask.setDefaultButton(QMessageBox::Save);
    switch (ask.exec()) {
        case QMessageBox::Save:
            return chooseSaveTarget();
        case QMessageBox::Discard:
            log_->note(QStringLiteral("Unsaved changes to ") + documentName_ +
                       QStringLiteral(" discarded"));
            return true;
        default:
            return false;
    }
}

void DemoWindow::closeEvent(QCloseEvent* event) {
    if (mayCloseDocument()) {
        event->accept();
    } else {
        event->ignore();
    }
}

void DemoWindow::makeSpreadsheet() {
    spreadsheet_ = new SpreadsheetWidget(
        this, savedSettings_,
        [this](MessageIcon icon, const QString& text) { showMessage(icon, text); });
    spreadsheet_->setProtectiveEditing(protectiveEditing_);
    setCentralWidget(spreadsheet_);
    connectSignals();
    spreadsheetUsed_ = false;
    setWindowModified(false);
    if (undoAction_ != nullptr) undoAction_->setEnabled(false);
    if (redoAction_ != nullptr) redoAction_->setEnabled(false);
}

SpreadsheetWidget& DemoWindow::controlForDocument() {
    if (spreadsheetUsed_) {
        // The pages edit the control that ends now.
        for (const QPointer<PropertyPageDialog>& page : openPages_)
            delete page;
        openPages_.clear();
        // The old control ends before the new one starts: the last control created or
        // ended on a thread decides the thread's tables.
        delete takeCentralWidget();
        makeSpreadsheet();
        if (isVisible()) spreadsheet_->show();
    }
    spreadsheetUsed_ = true;
    return *spreadsheet_;
}

bool DemoWindow::loadLogged(const QString& what,
                            const std::function<bool(SpreadsheetWidget&)>& load) {
    SpreadsheetWidget& control = controlForDocument();
    criticalDuringLoad_.clear();
    loading_ = true;
    const bool loaded = load(control);
    loading_ = false;
    QString entry = what + QStringLiteral(": ") + YesNo(loaded);
    if (loaded && !criticalDuringLoad_.isEmpty()) {
        entry += QStringLiteral(" (the document is valid, but the control reported \"") +
                 criticalDuringLoad_.first() +
                 QStringLiteral("\" while showing it: what it shows may be incomplete)");
    }
    log_->note(entry);
    return loaded;
}

void DemoWindow::buildToolBar() {
    QToolBar* bar = addToolBar(tr("Problems"));
    bar->setObjectName(QStringLiteral("problems"));
    bar->addAction(tr("Previous problem"), this, [this] { spreadsheet_->PreviousProblem(); })
        ->setToolTip(tr("The previous value that needs correcting (Shift+F9)"));
    bar->addAction(tr("Next problem"), this, [this] { spreadsheet_->NextProblem(); })
        ->setToolTip(tr("The next value that needs correcting (F9)"));
    bar->addAction(tr("Find"), this, [this] { spreadsheet_->showFindBar(); })
        ->setToolTip(tr("Find in every node (Ctrl+F)"));
}

void DemoWindow::showProblemCount(int count) {
    if (count == 0) {
        problems_->clear();
    } else if (count == 1) {
        problems_->setText(tr("1 cell needs correcting"));
    } else {
        problems_->setText(tr("%1 cells need correcting").arg(count));
    }
}

void DemoWindow::showLoaded(bool loaded, const QString& origin) {
    statusBar()->showMessage(loaded ? origin : tr("%1 was not loaded").arg(origin));
    // A fresh control starts at no problems, so its first count may not be a change.
    showProblemCount(spreadsheet_->control().ProblemCount());
}

void DemoWindow::connectSignals() {
    SpreadsheetWidget* w = spreadsheet_;
    connect(w, &SpreadsheetWidget::OKClick, this,
            [this] { log_->note(QStringLiteral("OKClick")); });
    connect(w, &SpreadsheetWidget::HelpClick, this,
            [this] { log_->note(QStringLiteral("HelpClick")); });
    connect(w, &SpreadsheetWidget::CancelClick, this,
            [this] { log_->note(QStringLiteral("CancelClick")); });
    connect(w, &SpreadsheetWidget::PrintClick, this, &DemoWindow::onPrintClick);
    connect(w, &SpreadsheetWidget::AppGridEventHandler, this, [this](xml::Node* element) {
        log_->note(QStringLiteral("AppGridEventHandler: ") + ToQString(element->serialize()));
    });
    connect(w, &SpreadsheetWidget::modifiedChanged, this, &QWidget::setWindowModified);
    connect(w, &SpreadsheetWidget::canUndoChanged, this,
            [this](bool can) { undoAction_->setEnabled(can); });
    connect(w, &SpreadsheetWidget::canRedoChanged, this,
            [this](bool can) { redoAction_->setEnabled(can); });
    connect(w, &SpreadsheetWidget::PropertyChanged, this, [this](const QString& name) {
        log_->note(QStringLiteral("PropertyChanged: ") + name);
        if (designSettings_ != nullptr) designSettings_->recordChanged(*spreadsheet_);
    });
    connect(w, &SpreadsheetWidget::ProblemCountChanged, this, &DemoWindow::showProblemCount);
    connect(w, &SpreadsheetWidget::SaveFailed, this,
            [this](const QString& reason) { log_->note(QStringLiteral("SaveFailed: ") + reason); });
}

void DemoWindow::showMessage(MessageIcon icon, const QString& text) {
    if (loading_ && icon == MessageIcon::Critical) criticalDuringLoad_.append(text);
    log_->message(icon, text);
    if (interactive_) boxes_.Show(icon, ToStdString(text));
}

void DemoWindow::setDocumentTitle(const QString& name) {
    documentName_ = name;
    // "[*]" is where Qt shows "*" while the window is modified.
    setWindowTitle(name.isEmpty()
                       ? QApplication::applicationDisplayName()
                       : name + QStringLiteral("[*] - ") + QApplication::applicationDisplayName());
}

bool DemoWindow::openDocument(const QString& path) {
    const bool loaded =
        loadLogged(QStringLiteral("Load ") + path,
                   [&path](SpreadsheetWidget& control) { return control.Load(path); });
    setDocumentTitle(QFileInfo(path).fileName());
    showLoaded(loaded, path);
    return loaded;
}

bool DemoWindow::openXmlText(const QString& text, const QString& origin) {
    const bool loaded = loadLogged(
        QStringLiteral("LoadXML ") + origin + QStringLiteral(" (%1 characters)").arg(text.size()),
        [&text](SpreadsheetWidget& control) { return control.LoadXML(text); });
    setDocumentTitle(origin);
    showLoaded(loaded, origin);
    return loaded;
}

bool DemoWindow::openXmlTextFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        log_->note(QStringLiteral("LoadXML: cannot read ") + path);
        return false;
    }
    return openXmlText(QString::fromUtf8(file.readAll()), QFileInfo(path).fileName());
}

bool DemoWindow::saveXml(const QString& path) {
    const QString xml = spreadsheet_->XML();
    if (xml.isEmpty()) {
        log_->note(QStringLiteral("Save as ") + path + QStringLiteral(": no document is loaded"));
        return false;
    }
    QSaveFile file(path);
    const QByteArray bytes = xml.toUtf8();
    const bool saved =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    log_->note(
        QStringLiteral("Save as ") + path + QStringLiteral(": ") +
        (saved ? QStringLiteral("%1 characters written").arg(xml.size()) : file.errorString()));
    if (saved) spreadsheet_->setModified(false);
    return saved;
}

void DemoWindow::onPrintClick(const QString& report) {
    lastReport_ = report;
    const ReportTable table = ParseReport(report);
    log_->note(QStringLiteral("PrintClick: %1 columns, %2 rows (%3 characters)")
                   .arg(table.columnCount())
                   .arg(table.rowCount())
                   .arg(report.size()));
    previewAction_->setEnabled(true);
    pdfAction_->setEnabled(true);
    // The preview is modal: it opens once the control's handler has returned.
    if (interactive_) {
        QMetaObject::invokeMethod(this, &DemoWindow::showReportPreview, Qt::QueuedConnection);
    }
}

void DemoWindow::showReportPreview() {
    if (lastReport_.isEmpty()) return;
    ReportPreviewDialog preview(ReportDocument(ParseReport(lastReport_), documentName_), this);
    preview.exec();
}

bool DemoWindow::exportReportPdf(const QString& path) {
    if (lastReport_.isEmpty()) {
        log_->note(QStringLiteral("Export PDF ") + path + QStringLiteral(": no report yet"));
        return false;
    }
    const auto document = ReportDocument(ParseReport(lastReport_), documentName_);
    const bool written = ExportPdf(*document, path);
    log_->note(QStringLiteral("Export PDF ") + path + QStringLiteral(": ") +
               (written ? QStringLiteral("written") : QStringLiteral("could not be written")));
    return written;
}

int DemoWindow::logExport(const QString& what, const QString& target,
                          const std::function<int()>& run, const QString& unit) {
    const QString head = QStringLiteral("Export ") + what + QStringLiteral(" ") + target;
    try {
        const int written = run();
        log_->note(head + QStringLiteral(": ") + QString::number(written) + unit);
        return written;
    } catch (const RuntimeFailure& failure) {
        log_->note(head + QStringLiteral(": ") + QString::fromStdString(failure.what()));
        return -1;
    }
}

int DemoWindow::exportCsv(const QString& folder) {
    return logExport(
        QStringLiteral("CSV"), folder,
        [&] { return spreadsheet_->control().ExportCsv(ToStdString(folder)); },
        QStringLiteral(" file(s)"));
}

int DemoWindow::exportXlsx(const QString& path) {
    return logExport(
        QStringLiteral("workbook"), path,
        [&] { return spreadsheet_->control().ExportXlsx(ToStdString(path)); },
        QStringLiteral(" worksheet(s)"));
}

PropertyPageDialog* DemoWindow::openPropertyPage(PropertyPageDialog::Kind kind) {
    const auto messages = [this](MessageIcon icon, const QString& text) {
        showMessage(icon, text);
    };
    if (designSettings_ != nullptr) designSettings_->pageOpened(*spreadsheet_);
    if (interactive_) {
        PropertyPageDialog dialog(kind, *spreadsheet_, this, messages);
        dialog.exec();
        return nullptr;
    }
    auto* dialog = new PropertyPageDialog(kind, *spreadsheet_, this, messages);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->show();
    openPages_.append(dialog);
    return dialog;
}

void DemoWindow::chooseDocument() {
    if (!mayCloseDocument()) return;
    const QString path = QFileDialog::getOpenFileName(this, tr("Open document"), QString(),
                                                      tr("XML documents (*.xml);;All files (*)"));
    if (!path.isEmpty()) openDocument(path);
}

void DemoWindow::chooseXmlText() {
    if (!mayCloseDocument()) return;
    XmlTextDialog dialog(this);
    if (dialog.exec() == QDialog::Accepted) openXmlText(dialog.text(), tr("text"));
}

bool DemoWindow::chooseSaveTarget() {
    const QString path = QFileDialog::getSaveFileName(this, tr("Save as"), QString(),
                                                      tr("XML documents (*.xml);;All files (*)"));
    return !path.isEmpty() && saveXml(path);
}

void DemoWindow::chooseCsvFolder() {
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Export the grids as CSV"));
    if (!folder.isEmpty()) exportCsv(folder);
}

void DemoWindow::chooseXlsxTarget() {
    const QString path =
        QFileDialog::getSaveFileName(this, tr("Export the grids as a workbook"),
                                     QStringLiteral("grids.xlsx"), tr("Workbooks (*.xlsx)"));
    if (!path.isEmpty()) exportXlsx(path);
}

void DemoWindow::choosePdfTarget() {
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Export PDF"), QStringLiteral("report.pdf"), tr("PDF files (*.pdf)"));
    if (!path.isEmpty()) exportReportPdf(path);
}

}  // namespace tabulon::demo

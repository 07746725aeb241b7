// DemoWindow: the demo host, a main window with the spreadsheet control in the
// middle and the log pane below it, written the way a host program uses the control.
//
// - File: Open... (Load), Open from text... (LoadXML), Save as... (writes the XML
//   property), Print preview... and Export PDF... of the last View/Print report, the
//   grids exported as CSV files or as one workbook, Quit.
// - Edit: Undo and Redo, enabled as the control says.
// - Properties: General... and Advanced... open the control's two property pages.
// - View: shows or hides the log pane; Protective editing switches the control's
//   ProtectiveEditing (on in the demo, for every control it makes).
// - A toolbar: Previous problem, Next problem and Find (the control's F9 / Shift+F9
//   and Ctrl+F); the right of the status line says how many values need correcting
//   ("3 cells need correcting"), empty when none do.
// The title carries "*" while the document has changes that are not saved.
// Every signal of the control, every message box (the control's and the pages') and
// every host action is written to the log pane (EventLog).
//
// Decisions:
// - Each document is opened in a fresh control (the one before it ends first, so the
//   per-thread tables are the new control's): custom units a document declares stay
//   with the control that loaded it, and a second document declaring the same units
//   would fail in it. Every new control is restored from the same design settings.
// - The design settings are written only when the user changes them on a property
//   page (DesignSettings), never at exit.
// - A load that returns true although the control showed a critical message (the file
//   is valid but could not be shown whole) is logged with that message, so the log
//   never says "true" beside an error without explaining it.
// - Interactive (the default), a message box is shown as well as logged and each
//   PrintClick opens the print preview once the control's handler has finished.
//   Not interactive (scripted runs, --screenshot), nothing modal ever opens: messages
//   are only logged, the preview is not opened and property pages open modeless.
// - The document's pictures are found as the control finds them, relative to the
//   current directory.
// - A document with unsaved changes is not set aside without asking: Quit (closing the
//   window) and opening another document first ask to save it (Save as), discard it or
//   cancel. Save as counts as saving. Not interactive, nothing asks and the changes
//   are discarded, which the log notes.
#pragma once

#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

#include "design_settings.h"

#include "qt/pages/property_page_dialog.h"
#include "qt/qt_message_sink.h"

class QAction;
class QCloseEvent;
class QDockWidget;
class QLabel;

namespace tabulon {
class PropertyBag;
class SpreadsheetWidget;
}  // namespace tabulon

namespace tabulon::demo {

class EventLog;

class DemoWindow : public QMainWindow {
    Q_OBJECT

public:
    // savedSettings: the control's design-time settings, restored into every control
    // the window makes and written when a property page changes them (null: each
    // control gets its first-time initialisation and nothing is written).
    explicit DemoWindow(PropertyBag* savedSettings = nullptr, QWidget* parent = nullptr);
    ~DemoWindow() override;

    SpreadsheetWidget& spreadsheet() const { return *spreadsheet_; }
    EventLog& log() const { return *log_; }

    bool interactive() const { return interactive_; }
    void setInteractive(bool interactive) { interactive_ = interactive; }

    // Load with a file path, into a fresh control once the current one has been given a
    // document; the result is logged and returned.
    bool openDocument(const QString& path);
    // LoadXML with a document's text, into a fresh control as Load; origin names it in
    // the log.
    bool openXmlText(const QString& text, const QString& origin);
    // LoadXML with the text of a file; false (logged) when it cannot be read.
    bool openXmlTextFile(const QString& path);
    // Writes the XML property to path (UTF-8). False (logged) when no document is
    // loaded or the file cannot be written.
    bool saveXml(const QString& path);

    // The text of the last PrintClick; empty before the first.
    const QString& lastReport() const { return lastReport_; }
    // Exports the last report as PDF. False (logged) when there is none or the file
    // cannot be written.
    bool exportReportPdf(const QString& path);
    // Every grid as shown into folder, one CSV per tree node; the number of files, -1
    // when one could not be written (the log says why).
    int exportCsv(const QString& folder);
    // Every grid as shown into one workbook at path, one worksheet per tree node; the
    // number of worksheets, -1 when it could not be written (the log says why).
    int exportXlsx(const QString& path);

    // Opens a property page for the control: modal while interactive (returns when
    // it closes, null), modeless otherwise (returns the open dialog, owned by the
    // window).
    PropertyPageDialog* openPropertyPage(PropertyPageDialog::Kind kind);

    // The View menu's switch, applied to the control now and to every later one.
    bool protectiveEditing() const { return protectiveEditing_; }
    void setProtectiveEditing(bool on);

    // True when the current document may be set aside: it has no unsaved changes, or
    // the user saved or discarded them (see above).
    bool mayCloseDocument();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    // The control a document is loaded into: the current one while it never had one,
    // else a fresh one in its place.
    SpreadsheetWidget& controlForDocument();
    void makeSpreadsheet();
    // Runs a Load or LoadXML and logs its result as "<what>: true|false", with the
    // critical message shown meanwhile when there was one; returns the result.
    bool loadLogged(const QString& what, const std::function<bool(SpreadsheetWidget&)>& load);
    void buildMenus();
    void buildToolBar();
    void showProblemCount(int count);
    void showLoaded(bool loaded, const QString& origin);
    void connectSignals();
    void showMessage(MessageIcon icon, const QString& text);
    void onPrintClick(const QString& report);
    void showReportPreview();
    void setDocumentTitle(const QString& name);

    // Menu handlers.
    void chooseDocument();
    void chooseXmlText();
    // True when the document was saved.
    bool chooseSaveTarget();
    void choosePdfTarget();
    void chooseCsvFolder();
    void chooseXlsxTarget();
    // Runs export, logging "Export WHAT TARGET: " and what came of it.
    int logExport(const QString& what, const QString& target, const std::function<int()>& run,
                  const QString& unit);

    // The log and the message mode exist before the control, which may show messages
    // while it starts.
    bool interactive_ = true;
    PropertyBag* savedSettings_;
    std::unique_ptr<DesignSettings> designSettings_;
    bool spreadsheetUsed_ = false;
    // The critical messages shown since the current load began.
    QStringList criticalDuringLoad_;
    bool loading_ = false;
    QList<QPointer<PropertyPageDialog>> openPages_;
    QtMessageSink boxes_;
    EventLog* log_;
    QDockWidget* logDock_;
    QLabel* problems_;
    SpreadsheetWidget* spreadsheet_;
    QAction* previewAction_ = nullptr;
    QAction* pdfAction_ = nullptr;
    QAction* undoAction_ = nullptr;
    QAction* redoAction_ = nullptr;
    QAction* protectiveAction_ = nullptr;
    bool protectiveEditing_ = true;
    QString lastReport_;
    QString documentName_;
};

}  // namespace tabulon::demo

// WidgetFixture: a SpreadsheetWidget hosted as a host program does (new instance,
// first-time initialisation, shown and active, at a fixed size), with every message
// box and signal recorded, helpers that drive it with real Qt input events, and the
// session tool run for the same steps so that both can be compared.
//
// Records use one text form for the widget and the session tool:
//   events:   "OKClick", "CancelClick", "HelpClick", "PrintClick <strXML>",
//             "AppGridEventHandler <element xml>", "changed <record>"
//   messages: "information: <text>", "critical: <text>", "plain: <text>"
#pragma once

#include <gtest/gtest.h>

#include <QComboBox>
#include <QPoint>
#include <QScrollBar>
#include <QString>
#include <QStyle>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/documents.h"
#include "common/files.h"
#include "control/control_access.h"
#include "qt/spreadsheet_widget.h"
#include "session/tool_runner.h"

namespace tabulon::testing {

// One node over rows x cols TextBox cells; cell (r, c) holds "r.c", and the cells of
// row 1 ask for the host's validation when validatedFirstRow is set.
inline std::string GridDocument(int rows, int cols, bool validatedFirstRow = false) {
    std::vector<std::string> columns;
    for (int c = 1; c <= cols; ++c) {
        std::vector<CellData> cells;
        for (int r = 1; r <= rows; ++r) {
            cells.emplace_back(std::to_string(r) + "." + std::to_string(c), true, true,
                               validatedFirstRow && r == 1);
        }
        columns.push_back(Column(cells));
    }
    return Document(std::vector<std::string>(rows, Row("TextBox", "MaxLength=\"20\"")), columns);
}

class WidgetFixture : public ::testing::Test {
protected:
    // The widget's size in pixels; the control's size in twips follows from the DPI.
    static constexpr int kWidthPixels = 600;
    static constexpr int kHeightPixels = 450;

    WidgetFixture();
    ~WidgetFixture() override;

    SpreadsheetWidget& widget() { return *widget_; }
    Form& form() { return FormOf(widget_->control()); }

    // A file of samples/ copied to this test's temporary folder (OK writes back to it).
    std::string SampleCopy(const std::string& name);
    // Loads a file through the widget's Load (paths relative to the repository root).
    bool Load(const std::string& path);
    // Shows the control's own scroll bars (GeneralProperty.intScrollBars = 1).
    void UseScrollBars();

    // --- real input events
    QPoint CellCentre(int row, int col);
    void ClickCell(int row, int col);
    void ClickNode(const std::string& key);
    // Key clicks into the widget that has Qt's focus.
    void TypeText(const QString& text);
    void KeyClick(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void ClickButton(Button& button);
    // Opens the combo's drop-down with the mouse and chooses the item in it.
    void PickFromPopup(QComboBox* combo, const QString& item);
    // Lets queued work (focus put right) run.
    static void ProcessEvents();

    // --- one gesture as real input events, returning the same step as a line of a
    // session script, so that a test writes each step once
    std::string ClickStep(int row, int col);
    std::string NodeStep(const std::string& key);
    std::string TypeStep(const std::string& text);
    // A key by its session name (Tab, Enter, F9, z, ...) with the session's modifiers
    // (ctrl, shift, alt, joined by "+"); Tab with shift is Backtab, as Qt sends it.
    std::string KeyStep(const std::string& name, const std::string& modifiers = "");
    // A click on the OK, Cancel, Help or Print button.
    std::string ButtonStep(const std::string& name);

    // --- the session tool for the same steps
    // "new W H" and "show" for the control's size, then steps.
    SessionRun RunSteps(const std::string& steps) const;
    // The steps joined into one script.
    static std::string Script(std::initializer_list<std::string> steps);
    // The run ended well with the widget's grid (its last "dump grid"), document (its
    // last result), events and messages.
    void ExpectSameOutcome(const SessionRun& run);

    std::vector<std::string> events;
    std::vector<std::string> messages;

private:
    std::unique_ptr<SpreadsheetWidget> widget_;
    std::optional<TempDir> tempDir_;
};

// The grid model against a session's "dump grid": counts, current cell, selection,
// scroll position, column widths, every cell's text and back colour.
void ExpectGridMatches(const FlexGrid& grid, const JsonValue& dump);
// Two documents are the same text; a difference is reported by its first line only.
void ExpectSameDocument(const std::string& actual, const std::string& expected);
int Int(const JsonValue& value);

// What a session run printed, in the records' text form.
std::vector<std::string> SessionEvents(const SessionRun& run);
std::vector<std::string> SessionMessages(const SessionRun& run);
// The last dump of that kind; a Null value when there is none.
JsonValue LastDump(const SessionRun& run, const std::string& what);
// The results of host calls, in order.
std::vector<JsonValue> Results(const SessionRun& run);

// Where one part of a scroll bar (an arrow, the track on either side, the thumb, the
// groove) lies in the bar as its style lays it out now.
QRect ScrollBarPart(const QScrollBar* bar, QStyle::SubControl part);

}  // namespace tabulon::testing

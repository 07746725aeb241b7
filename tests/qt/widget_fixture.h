// WidgetFixture: a SpreadsheetWidget hosted as a host program does (shown, active, at a
// fixed size) with every message box and signal recorded, gestures sent as real Qt
// input events, and the session tool run for the same steps so that both compare.
//
// Records use one text form for the widget and the session tool:
//   events:   "OKClick", "CancelClick", "HelpClick", "PrintClick <strXML>",
//             "AppGridEventHandler <element xml>", "changed <record>"
//   messages: "information: <text>", "critical: <text>", "plain: <text>"
#pragma once

#include <gtest/gtest.h>

#include <QPoint>
#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/documents.h"
#include "common/files.h"
#include "control/control_access.h"
#include "qt/bindings/grid_view.h"
#include "qt/spreadsheet_widget.h"
#include "session/tool_runner.h"

class QComboBox;
class QTreeView;

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
    static constexpr int kWidthPixels = 600;
    static constexpr int kHeightPixels = 450;

    WidgetFixture();

    SpreadsheetWidget& widget() { return *widget_; }
    Form& form() { return FormOf(widget_->control()); }
    GridView& view();
    QTreeView& treeView();
    // The tree view's index of the node with that key; invalid (and a failure) for none.
    QModelIndex TreeIndex(const std::string& key);

    // A file of samples/ copied to this test's temporary folder (OK writes back to it).
    std::string SampleCopy(const std::string& name);
    // Paths relative to the repository root.
    bool Load(const std::string& path);
    // GeneralProperty.intScrollBars = 1.
    void UseScrollBars();
    static void ProcessEvents();
    QPoint CellCentre(int row, int col);
    void TypeText(const QString& text);
    void KeyClick(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    // Opens the combo's drop-down with the mouse and chooses the item in it.
    void PickFromPopup(QComboBox* combo, const QString& item);

    // Each gesture as real input events; returns the same step as a session script line.
    std::string ClickCell(int row, int col);
    std::string ClickNode(const std::string& key);
    std::string TypeStep(const std::string& text);
    // A key by its session name (Tab, Enter, F9, z, ...) and modifiers ("ctrl+shift").
    std::string KeyStep(const std::string& name, const std::string& modifiers = "");
    // OK, Cancel, Help or Print.
    std::string ButtonStep(const std::string& name);

    // "new W H" and "show" for the control's size, then steps.
    SessionRun RunSteps(const std::string& steps) const;
    static std::string Script(std::initializer_list<std::string> steps);
    // The widget's grid, document, events and messages are those of the run's last
    // "dump grid" and last result.
    void ExpectSameOutcome(const SessionRun& run);

    std::vector<std::string> events;
    std::vector<std::string> messages;

private:
    std::optional<TempDir> tempDir_;  // outlives the widget, which may hold a file of it
    std::unique_ptr<SpreadsheetWidget> widget_;
};

// Counts, current cell, selection, scroll position, column widths, every cell's text
// and back colour.
void ExpectGridMatches(const FlexGrid& grid, const JsonValue& dump);
int Int(const JsonValue& value);

std::vector<std::string> SessionEvents(const SessionRun& run);
std::vector<std::string> SessionMessages(const SessionRun& run);
// The last dump of that kind; a Null value when there is none.
JsonValue LastDump(const SessionRun& run, const std::string& what);
std::vector<JsonValue> Results(const SessionRun& run);

}  // namespace tabulon::testing

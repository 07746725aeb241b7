// Writing the open editor's value back (CommitCellEdit, 1010).
//
// The value goes twice: as display text into the grid cell and as the text of the
// cell's CellValue element. The unit editors also check the range, colour the cell
// and set Valid; in a Metric document they store the value converted back to English
// with kStorageFormat. A cell whose ApplicationValidation is "1" then hands the
// column's GridValue element to the host and refills the column when the host
// changed it.
//
// Decisions:
// - Writing into a cell that has no CellValue element is a run-time failure (1010), as
//   writing through an unset element reference is; the grid text is already written.
// - A failure ends the commit where it happened: blnEditorActive and the registrar
//   stay as they were (the registrar is released when a commit runs to its end).
// - The host may change anything in the document during AppGridEventHandler, so the
//   GridValueKey index is marked stale after the event, whether or not it returns
//   normally.
// - Every commit is one step of the edit journal (edit_history.h), or part of the step
//   a caller holds open: the CellValue element as written and whatever the host then
//   changed in the column, recorded also when a failure ends the commit part-way.
//
// Protective editing (ControlCore::protectiveEditing) changes two things here: an
// editor whose value did not change since it opened writes nothing (no text, no Valid,
// no colour, no Metric round trip, no AppGridEventHandler), and a Metric UnitDrop
// value is stored with the English label of its unit, so the English number never
// sits under a Metric label.
#include "view/commit.h"

#include <exception>

#include "document/lookups.h"
#include "document/validation_scan.h"
#include "support/failure.h"
#include "support/number_format.h"
#include "support/numeric.h"
#include "support/text.h"
#include "view/cell_colors.h"
#include "view/cell_problems.h"
#include "view/edit_recording.h"
#include "view/grid_fill.h"
#include "view/problem_reasons.h"
#include "view/unit_codes.h"
#include "view/unit_display.h"

namespace tabulon {

namespace {

// The cell being committed: its grid position and the table of elements behind cells.
struct CommittedCell {
    int row;
    int col;
    const CellNodeTable& elements;

    // The element behind the cell; empty when the slot has none. A position outside
    // the table throws.
    xml::Node Element() const { return elements.at(row, col); }
    // The element behind the cell; empty also for a position outside the table.
    xml::Node ElementOrNone() const {
        const bool inside = row <= elements.upperBound1() && col <= elements.upperBound2();
        return inside ? elements.at(row, col) : xml::Node();
    }
    // The element to write to; an empty slot is a run-time failure.
    xml::Node Target() const {
        const xml::Node element = Element();
        if (!element) throw RuntimeFailure("Object variable or With block variable not set");
        return element;
    }
};

// The registrar the open unit editor was prepared with; without one, converting is a
// run-time failure. The control's own reference goes at the end of every commit, but
// an editor View/Print committed and left open still takes input, and its next
// commit must convert too, or the grid would show a value the document never gets.
const UnitRegistrar& EditorRegistrar(const UnitBoxBase& box) {
    if (!box.Registrar()) throw RuntimeFailure("Object variable or With block variable not set");
    return *box.Registrar();
}

// Colour and Valid after a unit editor's range check, and the reason beside them.
void MarkValidity(ControlCore& core, const CommittedCell& cell, const RangeFinding& finding,
                  const UnitBoxBase& box) {
    const bool valid = finding.verdict == RangeVerdict::Within;
    core.form.msgGridView.setCellBackColor(cell.row, cell.col, CellBackColor(valid));
    xml::Node target = cell.Target();
    const bool wasValid = target.attribute("Valid").value() == "1";
    SetValidFlag(core.doc, target, valid);
    NoteRangeCheck(core, cell.row, cell.col, target, wasValid,
                   DescribeFinding(finding, box.Registrar().get(), MetricDocument(core)));
}

// Text box and pick list: the text as typed or picked, no check, no colour.
void CommitText(ControlCore& core, const CommittedCell& cell, const std::string& text) {
    FlexGrid& grid = core.form.msgGridView;
    grid.setTextMatrix(cell.row, cell.col, text);
    cell.Target().setText(grid.textMatrix(cell.row, cell.col));
}

void CommitUnitNum(ControlCore& core, const CommittedCell& cell, const RowInfo& row) {
    FlexGrid& grid = core.form.msgGridView;
    UnitNumBox& box = core.form.unitNumControl;
    const std::string typed = box.NumberText();
    box.SetNumberText(FormatNumber(ReadNumber(typed), row.Format));
    // A negative entry below the minimum becomes zero, not the minimum: intended.
    if (box.Number() < 0 && ReadNumber(row.MinVal) > box.Number()) box.SetNumber(0);
    grid.setTextMatrix(cell.row, cell.col, box.NumberText());
    MarkValidity(core, cell, UnitNumFinding(box, typed), box);

    const std::string& shown = grid.textMatrix(cell.row, cell.col);
    if (!MetricDocument(core)) {
        cell.Target().setText(shown);
        return;
    }
    const double english =
        EditorRegistrar(box).Convert(ReadNumber(shown), box.UnitCode(), UnitRegistrar::kToEnglish);
    cell.Target().setText(FormatNumber(english, kStorageFormat));
}

// The grid text of a UnitDrop cell: number in the selected unit's format, then the
// unit in parentheses with no blank before "("; without a unit, the number alone.
std::string UnitDropText(const UnitDropBox& box, const RowInfo& row) {
    const std::string unit = Trim(box.SelectedUnitText());
    const std::string& number = box.NumberText();
    if (unit.empty())
        return number.empty() ? std::string() : FormatNumber(box.Number(), row.Format);
    const double value = number.empty() ? 0 : box.Number();
    return FormatNumber(value, box.FormatOf(box.SelectedUnitIndex())) + "(" + unit + ")";
}

void CommitUnitDrop(ControlCore& core, const CommittedCell& cell, const RowInfo& row) {
    FlexGrid& grid = core.form.msgGridView;
    const UnitDropBox& box = core.form.unitDropControl;
    MarkValidity(core, cell, UnitDropFinding(box), box);
    grid.setTextMatrix(cell.row, cell.col, UnitDropText(box, row));

    const std::string& shown = grid.textMatrix(cell.row, cell.col);
    if (!MetricDocument(core)) {
        cell.Target().setText(shown);
        return;
    }
    const std::size_t open = shown.find('(');
    if (open == std::string::npos) return;  // nothing to convert: the document stays
    const double value = ReadNumber(shown.substr(0, open));
    const std::string unit = WithoutLastCharacter(std::string_view(shown).substr(open + 1));
    const UnitRegistrar& registrar = EditorRegistrar(box);
    const int code = box.SelectedUnitIndex();
    const double english = registrar.Convert(value, code, UnitRegistrar::kToEnglish);
    // A unit the registrar no longer knows ends the commit with its error before the
    // document changes. As designed, the unit stored is the one shown (the display
    // pass resolves either system's label); protective editing stores the English one.
    const std::string englishUnit = registrar.UnitName(code, UnitRegistrar::kToEnglish);
    const std::string storedUnit = core.protectiveEditing ? englishUnit : Trim(unit);
    cell.Target().setText(FormatNumber(AsWrittenText(english), kStorageFormat) + "(" + storedUnit +
                          ")");
}

// Writes the visible editor of the row's type back; false when none was written.
bool WriteBack(ControlCore& core, const CommittedCell& cell) {
    const Form& form = core.form;
    const RowInfo& row = core.doc.arrRowInfo.at(static_cast<std::size_t>(cell.row));
    switch (row.ControlType) {
        case EditorKind::TextBox:
            if (!form.txtTextBoxControl.visible()) return false;
            CommitText(core, cell, form.txtTextBoxControl.text());
            return true;
        case EditorKind::ComboBox:
            if (!form.cboComboBoxControl.visible()) return false;
            CommitText(core, cell, form.cboComboBoxControl.text());
            return true;
        case EditorKind::UnitNum:
            if (!form.unitNumControl.visible()) return false;
            CommitUnitNum(core, cell, row);
            return true;
        case EditorKind::UnitDrop:
            if (!form.unitDropControl.visible()) return false;
            CommitUnitDrop(core, cell, row);
            return true;
        case EditorKind::None:
            break;
    }
    return false;
}

// WriteBack, recorded in the edit journal; under protective editing only when the
// editor's value changed since it opened.
bool WriteBackRecorded(ControlCore& core, const CommittedCell& cell) {
    if (core.protectiveEditing && !EditorChanged(core)) return false;
    const CellValueRecorder recorder(core.history, cell.ElementOrNone(), cell.col);
    return WriteBack(core, cell);
}

// Marks the GridValueKey index stale when it goes out of scope.
class StaleIndexOnExit {
public:
    explicit StaleIndexOnExit(DocumentModel& doc) : doc_(doc) {}
    ~StaleIndexOnExit() { doc_.cellValuesIndexStale = true; }
    StaleIndexOnExit(const StaleIndexOnExit&) = delete;
    StaleIndexOnExit& operator=(const StaleIndexOnExit&) = delete;

private:
    DocumentModel& doc_;
};

// The wait cursor for as long as it lives, given back also when the host's handler
// throws. Restoring it during that unwinding may not throw in turn: the host's first
// failure is the one the commit reports.
class WaitCursorGuard {
public:
    explicit WaitCursorGuard(HostEvents& host)
        : host_(host), failuresBefore_(std::uncaught_exceptions()) {
        host_.SetWaitCursor(true);
    }
    ~WaitCursorGuard() noexcept(false) {
        if (std::uncaught_exceptions() == failuresBefore_) {
            host_.SetWaitCursor(false);
            return;
        }
        try {
            host_.SetWaitCursor(false);
        } catch (...) {
            // The host's first failure is the one reported.
        }
    }
    WaitCursorGuard(const WaitCursorGuard&) = delete;
    WaitCursorGuard& operator=(const WaitCursorGuard&) = delete;

private:
    HostEvents& host_;
    int failuresBefore_;
};

// Hands the column's GridValue element to the host when the cell asks for it, and
// refills the column (converted again in a Metric document) if the host changed it.
void ApplicationValidation(ControlCore& core, const CommittedCell& cell) {
    DocumentModel& doc = core.doc;
    const xml::Node element = cell.Element();
    if (!element) return;
    if (GetAttributeValue(core.sink, element, "ApplicationValidation") != "1") return;

    xml::Node gridValue = doc.arrGridValueNodes.at(static_cast<std::size_t>(cell.col - 1));
    HostChangeRecorder hostChanges(core.history, gridValue, cell.col);
    {
        const WaitCursorGuard busy(core.host);
        const StaleIndexOnExit stale(doc);
        const ValidityWatch watch(core, {gridValue}, ValidityWatch::Cause::Host);
        core.host.AppGridEventHandler(gridValue);
    }
    if (hostChanges.Changed()) RefillColumn(core, ToInt16(cell.col));
}

}  // namespace

namespace {

enum class HostValidation { Now, Later };

// The commit; with Later the host's validation is not raised, and true is returned
// when it would have been.
bool Commit(ControlCore& core, HostValidation validation) {
    bool wanted = false;
    Guarded(core.sink, "1010", [&] {
        DocumentModel& doc = core.doc;
        if (doc.blnGridLoaded) {
            const FlexGrid& grid = core.form.msgGridView;
            if (grid.col() >= 1 && grid.row() >= 1) {
                const CommittedCell cell{grid.row(), grid.col(), doc.arrCellNodes};
                const EditHistory::StepGuard step(core.history, CurrentLocation(core));
                if (WriteBackRecorded(core, cell) && core.blnEditorActive) {
                    if (validation == HostValidation::Now) {
                        ApplicationValidation(core, cell);
                    } else {
                        const xml::Node element = cell.Element();
                        wanted = element && GetAttributeValue(core.sink, element,
                                                              "ApplicationValidation") == "1";
                    }
                }
            }
            core.blnEditorActive = false;
        }
        core.unitRegistrar.reset();
    });
    return wanted;
}

}  // namespace

void CommitCellEdit(ControlCore& core) {
    Commit(core, HostValidation::Now);
}

bool CommitBlockCell(ControlCore& core) {
    return Commit(core, HostValidation::Later);
}

void ValidateColumnWithHost(ControlCore& core, int row, int col) {
    Guarded(core.sink, "1010", [&] {
        const EditHistory::StepGuard step(core.history, CurrentLocation(core));
        ApplicationValidation(core, CommittedCell{row, col, core.doc.arrCellNodes});
    });
}

}  // namespace tabulon

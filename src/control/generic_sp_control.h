// Generic_SP_Control: the embeddable spreadsheet control as a host sees it.
//
// A facade: it keeps the members of the public interface (in function-table order,
// see dispatch_table.h), the lifecycle and the settings the control owns itself, and
// delegates everything else to the collaborators in view/ and document/, which share
// one ControlCore. Message boxes go to the MessageSink, events to the HostEvents;
// both must outlive the control. The state shared with the collaborators stays out of
// this header: the Qt front end, the tools and the tests reach it through
// control_access.h, which is not installed.
//
// Threading: everything runs on the thread that created the instance. Per-thread
// state (the conversion-name table, the grid the scroll bars drive, the largest
// allowed tree-view width) is shared by every instance of that thread; the last
// instance created or terminated decides it.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "control/settings_records.h"
#include "platform/clipboard.h"
#include "platform/property_bag.h"
#include "support/message_sink.h"
#include "view/block_report.h"
#include "view/find_hit.h"
#include "view/host_events.h"

namespace tabulon {

class Button;
class Component;
struct ControlCore;
struct ControlAccess;

class Generic_SP_Control {
public:
    // The smallest size the control lays itself out at (twips).
    static constexpr std::int32_t kMinimumWidth = 8200;
    static constexpr std::int32_t kMinimumHeight = 6300;

    // Creation: builds the per-thread conversion table, points the scroll bars' grid
    // reference at this instance's grid and records the design size.
    Generic_SP_Control(MessageSink& sink, HostEvents& host);
    ~Generic_SP_Control();  // terminates if the host did not
    Generic_SP_Control(const Generic_SP_Control&) = delete;
    Generic_SP_Control& operator=(const Generic_SP_Control&) = delete;

    // --- lifecycle driven by the host
    // First-time initialisation of a brand-new instance (no saved settings). Changes
    // nothing visible, by design: the child components keep their design state.
    void InitProperties();
    // Restores / saves the eighteen settings keys (failures: codes 1013 / 1017; what
    // was applied or written before a failure stays). The two scroll bars keep their
    // margins in the same bag under their component name: "hscGrid.LeftMargin",
    // "hscGrid.RightMargin", "vscGrid.TopMargin", "vscGrid.BottomMargin"; they are
    // restored before and saved after the control's own keys.
    void ReadProperties(PropertyBag& bag);
    void WriteProperties(PropertyBag& bag);
    // First showing: places the buttons and lays the control out; later calls do nothing.
    void Show();
    // The host gives the control a new size (twips); runs the resize handling (1003).
    // A size below 8200 x 6300 is raised to it before anything moves, and the parts
    // move by the difference between that raised size and the size recorded at the
    // last layout: the clamp and the change are one pass, never two.
    void Resize(std::int32_t width, std::int32_t height);
    // End of life: releases the document and every table built from it, and the
    // per-thread conversion table and grid reference. Idempotent.
    void Terminate();

    // --- the interface, in function-table order
    // With blnDefaultPos: the visible buttons go into 1265-twip slots from the right
    // edge (Help, Cancel, OK, Print); hidden ones keep their place. Otherwise nothing
    // (failures: 1014).
    void Reposition_Button();
    // The buttons as they stand (failures: 1015, with the record as far as read).
    gButtonProperty_type ButtonProperty();
    // Applies visibility and positions, keeps copies for saving, tells the host
    // "ButtonProperty" changed, then Reposition_Button (failures: 1016).
    void SetButtonProperty(const gButtonProperty_type& value);
    // Read from the parts; intScrollBars is 1 or 0 (failures: 1018).
    gGeneralProperty_type GeneralProperty();
    // The eight steps in order: a different tree width through the splitter, style,
    // filter frame and label, grid-area layout, grid selection and row height,
    // intColWidthMin and every column width (1020), scroll bars, then the host is told
    // "GeneralProperty" changed. A failure (1019, e.g. lngColWidthMin beyond 16 bits)
    // ends it and keeps the earlier steps.
    void SetGeneralProperty(const gGeneralProperty_type& value);
    // Only with intScrollBars 1 and a grid shown: recomputes and enables both bars.
    void RefreshAdvanceScrollbars();
    // See document_loading.h: true when the file was found, parsed and valid.
    bool Load(const std::string& XMLSource);
    // See document_loading.h: true only when the document was shown.
    bool LoadXML(const std::string& bstrXML);
    // Keyboard moves (9 Tab: column, 13 Enter: row; other codes do nothing).
    void MoveNextCell(std::int16_t KeyAscii);
    void MoveNextColumn();
    void MovePreviousCell(std::int16_t KeyAscii);
    void MovePreviousColumn();
    // The loaded document as it stands, edits included, without the built-in DTD;
    // "" before the first successful load. Never validates, commits or raises.
    std::string XML() const;
    void SetXML(const std::string& value);              // accepted and discarded
    std::string FilterValue() const;                    // the filter combo's text, trimmed
    void SetFilterValue(const std::string& value);      // accepted and discarded
    std::string DisplayColWidth() const;                // "1500,1080,1080"; "" with no columns
    void SetDisplayColWidth(const std::string& value);  // accepted and discarded

    // --- host settings and reports beyond the original interface
    // The largest document accepted, in bytes (default 1 GiB):
    // Load refuses a larger file before reading it, with the parser-reason message
    // "The file PATH is larger than the largest document accepted (N bytes)"; LoadXML
    // refuses a longer text with "Invalid XML".
    std::uint64_t MaxDocumentBytes() const;
    void SetMaxDocumentBytes(std::uint64_t bytes);
    // Why the last OK ended with "Unable the save the XML file." (e.g. "Cannot save
    // PATH: the file was changed by another program since it was loaded"); "" once
    // an OK has saved. HostEvents::SaveFailed hears the same reason when it happens.
    const std::string& LastSaveError() const;

    // --- keyboard: the control sees every key before the focused child does
    // Key press with a character code (Tab 9, Enter 13, ...); may swallow it (0).
    void KeyPress(int& keyAscii);
    // Key up with a key code and the shift state (1 Shift, 2 Ctrl, 4 Alt).
    void KeyUp(int& keyCode, int shift);
    // A whole keystroke to the focused component: first the editing keys (Ctrl+Z,
    // Ctrl+Y, Ctrl+Shift+Z, and Escape in an open editor; view/edit_keys.h) and the
    // access keys (F9, F12, Ctrl+F, Alt+V/O/C/H; see ProblemCount below), which end the
    // stroke when they act; then the component's key down (the unit editors' caret
    // keys), the KeyPress preview (only for keys with a character, keyAscii != 0), then
    // the component's own key press unless the preview swallowed it, then the KeyUp
    // preview. The text box, the unit editors and the buttons take key presses; a
    // character typed on the grid opens the current cell's editor and goes to it
    // (GridTypingTarget); other components ignore them. When no component of the
    // control has the focus the keystroke is not the control's and nothing runs.
    void UserKeyStroke(int keyCode, int keyAscii, int shift);

    // The mouse wheel over the grid: rows and cols to scroll (see GridWheel).
    void UserWheel(int rows, int cols);

    // --- edit safety: additions to the design; with protective editing off none of
    // them changes the designed behaviour
    // Undoes the open editor's own change when it has one, else the document's last
    // step (one commit together with what the host changed in AppGridEventHandler,
    // or one block edit), restoring XML() byte for byte, and shows it (view/undo.h).
    // True when something was undone; false, with nothing changed, when there was
    // nothing to undo.
    bool Undo();
    // Puts back what Undo took away; a new change to the document clears it.
    bool Redo();
    bool CanUndo() const;
    bool CanRedo() const;
    // True once the document was changed through the control (commits, the host's
    // changes during AppGridEventHandler); false after a load, after OK saved the
    // file or raised OKClick for a LoadXML document, and after undoing back to there.
    bool IsModified() const;
    // For a host that saves XML() itself: false makes the document as it is now the
    // saved one; true makes it count as changed until it is saved again.
    void SetModified(bool modified);
    // Protective editing, off by default: where it differs from the design, see
    // docs/embedding.md. It takes effect at once and is not saved with the settings.
    bool ProtectiveEditing() const;
    void SetProtectiveEditing(bool on);

    // --- blocks of cells: additions to the design (docs/embedding.md); rows and
    // columns are the grid's, the captions being row and column 0
    // Selects from (row1, col1), made current as by a click, to (row2, col2); more
    // than one cell commits and hides the open editor. Captions throw.
    void SelectCells(int row1, int col1, int row2, int col2);
    // The cells from (row1, col1) to (row2, col2) as the grid shows them, shown
    // columns only, as tab-separated text and an HTML table; with captions the column
    // captions come first and every row starts with its caption.
    ClipboardContent CopyCells(int row1, int col1, int row2, int col2, bool captions = false) const;
    // The selection onto the clipboard (Ctrl+C).
    void Copy(bool captions = false);
    // Tab-separated cells into the grid, each by the rules of the user's typing, one
    // undo step, AppGridEventHandler once per column that asks for it; skipped cells
    // are shown to the user in one message and returned (view/block_edit.h).
    BlockEditReport PasteCells(const std::string& tabSeparated);
    BlockEditReport Paste();       // the clipboard's text (Ctrl+V)
    BlockEditReport FillDown();    // Ctrl+D over the selection
    BlockEditReport FillRight();   // Ctrl+R
    BlockEditReport ClearCells();  // Delete: text and pick-list cells of the selection
    // Every grid as shown into folder, one CSV file per tree node that shows one, the
    // node shown now shown again afterwards (view/grid_export.h); returns how many
    // files. A folder or file that cannot be written throws RuntimeFailure.
    int ExportCsv(const std::string& folder);
    // The same grids as one workbook at file, one worksheet per node, plain numbers
    // as number cells (view/grid_workbook.h); file is replaced in one step. Returns
    // how many worksheets; a file that cannot be written throws RuntimeFailure and
    // leaves file as it was.
    int ExportXlsx(const std::string& file);
    // Where copies go and pastes come from; null gives the control its own again.
    // The clipboard must outlive the control or be replaced before it ends.
    void SetClipboard(Clipboard* clipboard);
    const Clipboard& clipboard() const;

    // The splitter between tree and grid dragged by x twips with the left button
    // (button 1; other buttons, shift and y are ignored). The tree's new width is
    // its width + x, kept within 1500 twips and the largest allowed width of this
    // control's current layout (grid width - 4950 + tree width); when the layout
    // leaves less than 1500, the 1500 minimum wins. The splitter, the filter frame
    // and combo, the grid area and the two scroll bars are then placed beside the
    // tree as the resize handling places them, and the largest allowed width is
    // published again. Failures: "Unexpected Error - 1003".
    void SplitterDrag(int button, int shift, std::int32_t x, std::int32_t y);

    // --- explanations, problems and find (additions: none of them changes what the
    // members above do, and each leaves the document as it is)
    // Why the data cell (row, col) of the grid on screen is invalid, in one short
    // sentence ("Above the maximum of 3,000 ton", "Not a number", "Marked invalid in
    // the document" ...); "" for a valid cell, a caption or a cell outside the grid.
    std::string CellProblem(int row, int col) const;
    // The unit the data cell (row, col) shows its value in (a UnitNum row's unit, the
    // unit in a UnitDrop value's parentheses); "" for other cells.
    std::string CellUnit(int row, int col) const;
    // The values of the whole document whose Valid is not "1" (what OK refuses).
    int ProblemCount() const;
    // Commits an open editor, then goes to the next (previous) value that needs
    // correcting after the current cell in the saving gate's order, across tree nodes
    // (the last one included), wrapping round: selects its node, shows "All" in the
    // filter when its column is filtered out, scrolls it into view and opens its
    // editor. False when no tree node shows such a value. Keys: F9, Shift+F9.
    bool NextProblem();
    bool PreviousProblem();
    // Searches every tree node's grid (captions and values as shown, Metric
    // included) for text and keeps the hits, in tree order then row by row; returns
    // them. An empty text finds nothing.
    std::vector<FindHit> Find(const std::string& text, const FindOptions& options = {});
    // Find made a few tree nodes at a time, for a front end that goes to the first hit
    // at once and counts the others between events: StartFind drops the kept hits and
    // begins; ContinueFind searches up to nodes more tree nodes, keeping their hits,
    // and returns FindComplete(). Until then FindNext and FindPrevious go only to hits
    // already found (no wrapping round). The hits are Find's; a load drops the search.
    void StartFind(const std::string& text, const FindOptions& options = {});
    bool ContinueFind(int nodes);
    bool FindComplete() const;
    // The hits kept so far.
    const std::vector<FindHit>& FindHits() const;
    // Goes to the kept hit index (node selected, cell current and in view, its
    // editor open; a caption's hit goes to the nearest value cell); false when out of
    // range or the node no longer has the cell.
    bool GoToFindHit(int index);
    // Goes to the kept hit after (before) the last one gone to, wrapping round.
    bool FindNext();
    bool FindPrevious();
    // The index of the kept hit gone to last; -1 before the first.
    int CurrentFindHit() const;

    // --- state
    bool terminated() const { return terminated_; }
    bool shown() const { return shown_; }
    VariantBool blnDefaultPos() const { return blnDefaultPos_; }

private:
    friend struct ControlAccess;

    void WireNotifications();
    // The resize steps (1003) with the control at its current size.
    void ResizeHandling();
    void ResizeSteps();
    // Splitter, filter frame and combo, grid area and grid beside the tree.
    void PlaceBesideTree();
    // hscGrid under the grid and vscGrid along its right edge, then their refresh.
    void PlaceScrollBars();
    // Publishes the largest allowed tree-view width of this layout.
    void PublishLargestTreeViewWidth();
    // intColWidthMin and every column width (1020).
    void SetColWidthMin(std::int16_t width);
    // New grid columns take intColWidthMin (a negative minimum leaves them as they were).
    void KeepDefaultColWidth();
    // Shows both scroll bars and refreshes them with move grid true, or hides both.
    void ShowScrollBars(bool show);
    // The component that holds the focus receives the key going down, and then a key
    // press that was not swallowed.
    void DeliverKeyDown(Component* target, int keyCode, int shift);
    void DeliverKeyPress(Component* target, int keyAscii);
    // The four buttons in record order: Print, OK, Cancel, Help.
    std::array<Button*, 4> Buttons();

    std::unique_ptr<ControlCore> core_;
    std::int16_t recordedWidth_ = 0;
    std::int16_t recordedHeight_ = 0;
    bool shown_ = false;
    bool terminated_ = false;
    VariantBool blnDefaultPos_ = kTrue;
    // Copies of the four visibility flags and positions, order Print, OK, Cancel, Help.
    std::array<VariantBool, 4> udtButtonVisible_{kTrue, kTrue, kTrue, kTrue};
    std::array<std::int32_t, 4> udtButtonLeft_{};  // the design's, from creation
};

// The largest tree-view width the General page accepts; kept up to date by every
// control of the thread as it lays itself out (resize, splitter). 0 until the first
// layout on the thread, which the page's numeric box reads as "no upper bound".
std::int16_t LargestTreeViewWidth();
void SetLargestTreeViewWidth(std::int16_t width);

}  // namespace tabulon

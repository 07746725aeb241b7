// ControlCore: the state one control instance shares between its collaborators
// (tree builder, grid filler, editors, commit, navigation, filter, save gate, report,
// edit journal): the form of child components, the document model, the editor flags
// and the two outlets to the host (message boxes and events).
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "document/document_model.h"
#include "platform/clipboard.h"
#include "support/message_sink.h"
#include "unitinput/unit_registrar.h"
#include "view/cell_problems.h"
#include "view/design_geometry.h"
#include "view/edit_history.h"
#include "view/editor_value.h"
#include "view/find.h"
#include "view/form.h"
#include "view/host_events.h"
#include "view/view_batch.h"

namespace tabulon {

inline constexpr std::uint64_t kDefaultMaxDocumentBytes = std::uint64_t{1} << 30;

struct ControlCore {
    ControlCore(MessageSink& messages, HostEvents& events) : sink(messages), host(events) {}
    ControlCore(const ControlCore&) = delete;
    ControlCore& operator=(const ControlCore&) = delete;

    MessageSink& sink;
    HostEvents& host;

    Form form;
    DocumentModel doc;

    // An editor is open and not yet committed.
    bool blnEditorActive = false;
    // False only while the control refreshes its scroll bars after a current-cell
    // change, so that the refresh's own grid scrolling does not commit.
    bool blnScrollCommit = true;
    // The unit registrar of the last unit-editor activation; released by every commit.
    std::shared_ptr<UnitRegistrar> unitRegistrar;

    // Width given to new grid columns and written by GeneralProperty (16-bit).
    std::int16_t intColWidthMin = design::kGridColWidthMin;

    // --- edit safety
    // The undo journal of the document loaded now.
    EditHistory history;
    // The value the open editor opened with, and the value the editor's own undo
    // replaced (editor_value.h).
    EditorValue editorOpenedWith;
    std::optional<EditorValue> editorUndone;
    // Protective editing: the host's one switch for the places where the control
    // protects data the user did not touch instead of behaving as designed. Off by
    // default; read only where the two behaviours part (docs/embedding.md lists them).
    bool protectiveEditing = false;
    // Which values need correcting, and why (view/cell_problems.h).
    CellProblems problems;
    // The last search across the tree (view/find.h).
    FindState find;

    // --- blocks of cells (block_edit.h)
    // The clipboard copies go to and pastes come from: ownClipboard unless a front end
    // hands the control the desktop's.
    MemoryClipboard ownClipboard;
    Clipboard* clipboard = &ownClipboard;

    // Host settings beyond the original design (generic_sp_control.h).
    // The largest document Load and LoadXML accept, in bytes.
    std::uint64_t maxDocumentBytes = kDefaultMaxDocumentBytes;
    // Why the last save of OK failed, for the host; "" when it succeeded or none ran.
    std::string lastSaveError;
    // Held while a block edit writes its cells (view/view_batch.h).
    ViewBatch views;
};

}  // namespace tabulon

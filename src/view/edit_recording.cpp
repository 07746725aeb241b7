// Decision: the host's changes are found by comparing the GridValue with its XML as
// taken before the event, parsed again (the writer guarantees that parsing its output
// gives the same model), so a column the host leaves alone costs no copy at all.
#include "view/edit_recording.h"

#include <utility>

#include "platform/xml/xml_changes.h"
#include "view/control_core.h"

namespace tabulon {

EditLocation CurrentLocation(const ControlCore& core) {
    const DocumentModel& doc = core.doc;
    const FlexGrid& grid = core.form.msgGridView;
    return {doc.shownTreeNode, doc.strCurrentHeaderKey, doc.strCurrentValueKey, grid.row(),
            grid.col()};
}

CellValueRecorder::CellValueRecorder(EditHistory& history, xml::Node element, int column)
    : history_(history),
      element_(element),
      column_(column),
      before_(history.applying ? xml::Snapshot() : xml::Snapshot::Of(element)) {}

CellValueRecorder::~CellValueRecorder() {
    if (before_.empty() || before_.Matches(element_)) return;
    try {
        history_.Record(ElementChange{xml::PathOf(element_), std::move(before_),
                                      xml::Snapshot::Of(element_), column_, true});
    } catch (...) {
        // Out of memory while unwinding: the change stays, only its undo is lost.
    }
}

HostChangeRecorder::HostChangeRecorder(EditHistory& history, xml::Node gridValue, int column)
    : history_(history), gridValue_(gridValue), column_(column), before_(gridValue.serialize()) {}

HostChangeRecorder::~HostChangeRecorder() {
    if (compared_) return;
    try {
        (void)Changed();
    } catch (...) {
        // As above: the host's change stays, only its undo is lost.
    }
}

bool HostChangeRecorder::Changed() {
    compared_ = true;
    if (gridValue_.serialize() == before_) return false;
    if (history_.applying) return true;
    xml::Document earlier;
    if (!earlier.Parse(before_)) return true;
    for (const auto& [was, now] : xml::ChangedElements(earlier.documentElement(), gridValue_)) {
        history_.Record(ElementChange{xml::PathOf(now), xml::Snapshot::Of(was),
                                      xml::Snapshot::Of(now), column_, now.name() == "CellValue"});
    }
    return true;
}

}  // namespace tabulon

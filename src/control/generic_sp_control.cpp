// Generic_SP_Control: creation, first-time initialisation, first showing, the end of
// life, and the members that only forward to a collaborator.
#include "control/generic_sp_control.h"
#include "view/control_core.h"

#include "control/document_loading.h"
#include "subcontrols/scroll_grid.h"
#include "support/numeric.h"
#include "units/conversion_table.h"
#include "view/design_geometry.h"
#include "view/filter.h"
#include "view/navigation.h"
#include "view/scrollbar_refresh.h"

namespace tabulon {

Generic_SP_Control::Generic_SP_Control(MessageSink& sink, HostEvents& host)
    : core_(std::make_unique<ControlCore>(sink, host)),
      udtButtonLeft_{design::Find("cmdPrint").left, design::Find("cmdOK").left,
                     design::Find("cmdCancel").left, design::Find("cmdHelp").left} {
    BuildConversionTable();
    Form& f = core_->form;
    SetScrollGrid(&f.msgGridView);
    f.hscGrid.setMessageSink(&sink);
    f.vscGrid.setMessageSink(&sink);
    KeepDefaultColWidth();
    recordedWidth_ = ToInt16(f.control.width());
    recordedHeight_ = ToInt16(f.control.height());
    WireNotifications();
}

Generic_SP_Control::~Generic_SP_Control() {
    Terminate();
}

void Generic_SP_Control::InitProperties() {
    // The records are read and adjusted but, on purpose, never written back: a new
    // instance keeps the design state of its child components (hosts rely on it).
    [[maybe_unused]] gButtonProperty_type buttons = ButtonProperty();
    buttons.blnPrintVisible = kTrue;
    buttons.blnOKVisible = kTrue;
    buttons.blnCancelVisible = kTrue;
    buttons.blnHelpVisible = kTrue;
    [[maybe_unused]] gGeneralProperty_type general = GeneralProperty();
    general.intScrollBars = 1;
    general.blnFilterVisible = kTrue;
}

void Generic_SP_Control::Show() {
    if (shown_) return;
    shown_ = true;
    Reposition_Button();
    ResizeHandling();
}

void Generic_SP_Control::Terminate() {
    if (terminated_) return;
    terminated_ = true;
    core_->doc = DocumentModel();
    core_->history.Clear();
    core_->problems.clear();
    DropFind(*core_);
    core_->unitRegistrar.reset();
    core_->blnEditorActive = false;
    ReleaseConversionTable();
    SetScrollGrid(nullptr);
}

void Generic_SP_Control::RefreshAdvanceScrollbars() {
    tabulon::RefreshAdvanceScrollbars(*core_);
}

bool Generic_SP_Control::Load(const std::string& XMLSource) {
    return LoadDocumentFile(*core_, XMLSource);
}

bool Generic_SP_Control::LoadXML(const std::string& bstrXML) {
    return LoadDocumentText(*core_, bstrXML);
}

std::uint64_t Generic_SP_Control::MaxDocumentBytes() const {
    return core_->maxDocumentBytes;
}

void Generic_SP_Control::SetMaxDocumentBytes(std::uint64_t bytes) {
    core_->maxDocumentBytes = bytes;
}

const std::string& Generic_SP_Control::LastSaveError() const {
    return core_->lastSaveError;
}

void Generic_SP_Control::MoveNextCell(std::int16_t KeyAscii) {
    tabulon::MoveNextCell(*core_, KeyAscii);
}

void Generic_SP_Control::MoveNextColumn() {
    tabulon::MoveNextColumn(*core_);
}

void Generic_SP_Control::MovePreviousCell(std::int16_t KeyAscii) {
    tabulon::MovePreviousCell(*core_, KeyAscii);
}

void Generic_SP_Control::MovePreviousColumn() {
    tabulon::MovePreviousColumn(*core_);
}

std::string Generic_SP_Control::XML() const {
    const DocumentModel& doc = core_->doc;
    return doc.objXMLDoc ? doc.objXMLDoc->Serialize() : std::string();
}

void Generic_SP_Control::SetXML(const std::string& /*value*/) {}

std::string Generic_SP_Control::FilterValue() const {
    return FilterValueText(*core_);
}

void Generic_SP_Control::SetFilterValue(const std::string& /*value*/) {}

std::string Generic_SP_Control::DisplayColWidth() const {
    const FlexGrid& grid = core_->form.msgGridView;
    std::string widths;
    for (int c = 0; c < grid.cols(); ++c) {
        if (c > 0) widths += ',';
        widths += IntegerToText(grid.colWidth(c));
    }
    return widths;
}

void Generic_SP_Control::SetDisplayColWidth(const std::string& /*value*/) {}

}  // namespace tabulon

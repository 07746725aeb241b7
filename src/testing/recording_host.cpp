#include "testing/recording_host.h"

namespace tabulon {

std::string_view HostEventName(HostEventKind kind) {
    switch (kind) {
        case HostEventKind::OKClick:
            return "OKClick";
        case HostEventKind::HelpClick:
            return "HelpClick";
        case HostEventKind::PrintClick:
            return "PrintClick";
        case HostEventKind::CancelClick:
            return "CancelClick";
        case HostEventKind::AppGridEventHandler:
            return "AppGridEventHandler";
        case HostEventKind::PropertyChanged:
            return "PropertyChanged";
        case HostEventKind::WaitCursor:
            return "WaitCursor";
    }
    return "";
}

void RecordingHost::OKClick() {
    events_.push_back({HostEventKind::OKClick, ""});
    if (onOKClick) onOKClick();
}

void RecordingHost::HelpClick() {
    events_.push_back({HostEventKind::HelpClick, ""});
    if (onHelpClick) onHelpClick();
}

void RecordingHost::PrintClick(const std::string& strXML) {
    events_.push_back({HostEventKind::PrintClick, strXML});
    if (onPrintClick) onPrintClick(strXML);
}

void RecordingHost::CancelClick() {
    events_.push_back({HostEventKind::CancelClick, ""});
    if (onCancelClick) onCancelClick();
}

void RecordingHost::AppGridEventHandler(xml::Node& ValidationXML) {
    events_.push_back({HostEventKind::AppGridEventHandler, ValidationXML.serialize()});
    if (onAppGridEventHandler) onAppGridEventHandler(ValidationXML);
}

void RecordingHost::PropertyChanged(std::string_view name) {
    events_.push_back({HostEventKind::PropertyChanged, std::string(name)});
    if (onPropertyChanged) onPropertyChanged(name);
}

void RecordingHost::SetWaitCursor(bool busy) {
    events_.push_back({HostEventKind::WaitCursor, busy ? "1" : "0"});
    if (onWaitCursor) onWaitCursor(busy);
}

std::vector<RecordedEvent> RecordingHost::eventsOf(HostEventKind kind) const {
    std::vector<RecordedEvent> result;
    for (const RecordedEvent& event : events_) {
        if (event.kind == kind) result.push_back(event);
    }
    return result;
}

}  // namespace tabulon

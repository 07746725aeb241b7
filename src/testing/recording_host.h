// RecordingHost: a HostEvents that records every event the control raises, in order,
// and lets a test or tool act as the host through an optional callback per event.
// The session tool prints from the callbacks; tests use them to change the element
// handed over in AppGridEventHandler or to check the document while OKClick runs.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "view/host_events.h"

namespace tabulon {

enum class HostEventKind {
    OKClick,
    HelpClick,
    PrintClick,
    CancelClick,
    AppGridEventHandler,
    PropertyChanged,
    WaitCursor,
};

// The name of the kind as hosts know it ("OKClick", ..., "PropertyChanged", "WaitCursor").
std::string_view HostEventName(HostEventKind kind);

struct RecordedEvent {
    HostEventKind kind;
    // PrintClick: the report text. AppGridEventHandler: the element's XML as the host
    // received it (before its callback ran). PropertyChanged: the record name.
    // WaitCursor: "1" busy, "0" restored. Otherwise "".
    std::string text;
    bool operator==(const RecordedEvent&) const = default;
};

class RecordingHost : public HostEvents {
public:
    void OKClick() override;
    void HelpClick() override;
    void PrintClick(const std::string& strXML) override;
    void CancelClick() override;
    void AppGridEventHandler(xml::Node& ValidationXML) override;
    void PropertyChanged(std::string_view name) override;
    void SetWaitCursor(bool busy) override;

    const std::vector<RecordedEvent>& events() const { return events_; }
    void clear() { events_.clear(); }
    // The events of one kind, in order.
    std::vector<RecordedEvent> eventsOf(HostEventKind kind) const;

    // Each runs after the event is recorded; empty callbacks are skipped.
    std::function<void()> onOKClick;
    std::function<void()> onHelpClick;
    std::function<void(const std::string& strXML)> onPrintClick;
    std::function<void()> onCancelClick;
    std::function<void(xml::Node& ValidationXML)> onAppGridEventHandler;
    std::function<void(std::string_view name)> onPropertyChanged;
    std::function<void(bool busy)> onWaitCursor;

private:
    std::vector<RecordedEvent> events_;
};

}  // namespace tabulon

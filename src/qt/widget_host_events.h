// WidgetHostEvents: the control's host side for SpreadsheetWidget. Each event of the
// control becomes the widget's Qt signal of the same name, emitted synchronously, so
// the control goes on only when every connected slot has returned (slots must be
// connected directly, as same-thread connections are by default: the element handed
// to AppGridEventHandler is valid only while the signal runs).
//
// The wait cursor: while the host validates a column the application's override
// cursor is the wait cursor; it is restored when the control says so, and any still
// set is restored when this object goes away.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "view/host_events.h"

namespace tabulon {

class SpreadsheetWidget;

class WidgetHostEvents : public HostEvents {
public:
    explicit WidgetHostEvents(SpreadsheetWidget& widget) : widget_(widget) {}
    ~WidgetHostEvents() override;
    WidgetHostEvents(const WidgetHostEvents&) = delete;
    WidgetHostEvents& operator=(const WidgetHostEvents&) = delete;

    void OKClick() override;
    void HelpClick() override;
    void PrintClick(const std::string& strXML) override;
    void CancelClick() override;
    void AppGridEventHandler(xml::Node& ValidationXML) override;
    void PropertyChanged(std::string_view name) override;
    void SetWaitCursor(bool busy) override;
    void SaveFailed(const std::string& reason) override;

    // How many wait cursors this object has set and not yet restored.
    int waitCursors() const { return waitCursors_; }
    // Called before every event that runs the host's code.
    void setBeforeEvent(std::function<void()> before) { before_ = std::move(before); }

private:
    void beforeEvent() const {
        if (before_) before_();
    }

    SpreadsheetWidget& widget_;
    std::function<void()> before_;
    int waitCursors_ = 0;
};

}  // namespace tabulon

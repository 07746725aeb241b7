// The host side of the control: the five events, the property-changed notice and
// the pointer shape. Every call is synchronous; the control continues only when the
// host's handler returns. The defaults do nothing.
#pragma once

#include <string>
#include <string_view>

#include "platform/xml/xml_document.h"

namespace tabulon {

class HostEvents {
public:
    virtual ~HostEvents() = default;

    virtual void OKClick() {}
    virtual void HelpClick() {}
    virtual void PrintClick(const std::string& /*strXML*/) {}
    virtual void CancelClick() {}
    // ValidationXML is the GridValue element of the edited column, by reference: the
    // host may change it (and anything else in the document) before returning.
    virtual void AppGridEventHandler(xml::Node& /*ValidationXML*/) {}

    // The named settings record ("ButtonProperty", "GeneralProperty") changed.
    virtual void PropertyChanged(std::string_view /*name*/) {}
    // The hourglass pointer while the host validates a column; false restores it.
    virtual void SetWaitCursor(bool /*busy*/) {}

    // Beyond the original design: OK ended with "Unable the save the XML file.", for
    // this reason (the control's LastSaveError), told after that message.
    virtual void SaveFailed(const std::string& /*reason*/) {}
};

}  // namespace tabulon

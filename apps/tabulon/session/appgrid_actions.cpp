#include "session/appgrid_actions.h"

#include <stdexcept>

#include "session/script_error.h"

namespace tabulon::cli::session {

void AppGridActions::CheckExpression(const std::string& xpath) {
    try {
        (void)xml::Node().select(xpath);
    } catch (const std::invalid_argument& error) {
        throw ScriptError("invalid XPath \"" + xpath + "\": " + error.what());
    }
}

void AppGridActions::AddSetAttribute(const std::string& xpath, const std::string& attribute,
                                     const std::string& value) {
    CheckExpression(xpath);
    if (attribute.empty()) throw ScriptError("on-appgrid: the attribute name is empty");
    actions_.push_back({xpath, attribute, value});
}

void AppGridActions::AddSetText(const std::string& xpath, const std::string& text) {
    CheckExpression(xpath);
    actions_.push_back({xpath, "", text});
}

void AppGridActions::Apply(xml::Node gridValue) const {
    for (const Action& action : actions_) {
        for (xml::Node node : gridValue.select(action.xpath)) {
            if (action.attribute.empty()) {
                node.setText(action.value);
            } else {
                node.setAttribute(action.attribute, action.value);
            }
        }
    }
}

}  // namespace tabulon::cli::session

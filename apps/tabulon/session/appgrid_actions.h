// What the scripted host does while AppGridEventHandler runs: it changes the nodes
// that an XPath expression, evaluated relative to the GridValue element it was
// handed, selects. The actions belong to the session and apply to every instance,
// in the order they were given, each time the event fires.
#pragma once

#include <string>
#include <vector>

#include "platform/xml/xml_document.h"

namespace tabulon::cli::session {

class AppGridActions {
public:
    // Sets attribute on every selected node (adding it where missing). Throws
    // ScriptError for an invalid expression or an empty attribute name.
    void AddSetAttribute(const std::string& xpath, const std::string& attribute,
                         const std::string& value);
    // Replaces the text of every selected node. Throws ScriptError for an invalid
    // expression.
    void AddSetText(const std::string& xpath, const std::string& text);
    void Clear() { actions_.clear(); }

    // Runs every action against gridValue, in order. An expression that selects
    // nothing changes nothing.
    void Apply(xml::Node gridValue) const;

private:
    struct Action {
        std::string xpath;
        std::string attribute;  // "" for a text change
        std::string value;
    };
    static void CheckExpression(const std::string& xpath);

    std::vector<Action> actions_;
};

}  // namespace tabulon::cli::session

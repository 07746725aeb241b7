// Recording changes into the edit journal (edit_history.h) at the one path every
// change takes: the commit of a cell and the host's AppGridEventHandler after it.
// Both recorders record also when a failure ends the change part-way, so that what
// did change can be undone.
#pragma once

#include <string>

#include "platform/xml/xml_document.h"
#include "platform/xml/xml_snapshot.h"
#include "view/edit_history.h"

namespace tabulon {

struct ControlCore;

// Where the user is now: the tree node shown, its grid's keys and the current cell.
EditLocation CurrentLocation(const ControlCore& core);

// The change of one CellValue element between construction and destruction.
class CellValueRecorder {
public:
    // column: the grid column of the cell (its GridValue index + 1).
    CellValueRecorder(EditHistory& history, xml::Node element, int column);
    ~CellValueRecorder();
    CellValueRecorder(const CellValueRecorder&) = delete;
    CellValueRecorder& operator=(const CellValueRecorder&) = delete;

private:
    EditHistory& history_;
    xml::Node element_;
    int column_;
    xml::Snapshot before_;
};

// What the host changes in a GridValue element while AppGridEventHandler runs. The
// element's XML is taken at construction; Changed() takes it again, compares, and
// records the smallest changed elements (xml_changes.h). When Changed() is never
// called (the handler failed), the destructor does the same.
class HostChangeRecorder {
public:
    HostChangeRecorder(EditHistory& history, xml::Node gridValue, int column);
    ~HostChangeRecorder();
    HostChangeRecorder(const HostChangeRecorder&) = delete;
    HostChangeRecorder& operator=(const HostChangeRecorder&) = delete;

    // True when the element's XML differs from the one taken at construction.
    bool Changed();

private:
    EditHistory& history_;
    xml::Node gridValue_;
    int column_;
    std::string before_;
    bool compared_ = false;
};

}  // namespace tabulon

// Loading a document: Load and LoadXML, then ProcessDocument, which reads the model
// stage by stage and shows the first node.
#include "control/document_loading.h"

#include <memory>
#include <new>
#include <string_view>

#include "document/document_reading.h"
#include "document/dtd.h"
#include "document/validate_document_text.h"
#include "document/validation_scan.h"
#include "platform/image_list.h"
#include "support/failure.h"
#include "view/cell_problems.h"
#include "view/node_selection.h"
#include "view/tree_builder.h"

namespace tabulon {

namespace {

// Every load starts from an empty, disabled view.
void ResetView(ControlCore& core) {
    core.doc.strCurrentHeaderKey.clear();
    core.doc.strCurrentValueKey.clear();
    core.doc.shownTreeNode = 0;
    core.doc.valuesFillFailed = false;
    core.form.msgGridView.setEnabled(false);
    core.form.cboFilter.setEnabled(false);
    core.form.treTreeView.clear();
    ClearProblems(core);
    DropFind(core);  // its hits name nodes and cells of the old document
}

// The new document replaces the old one, and with it every node handle into the old
// one goes stale. The model drops them all at this point (and the grid counts as not
// loaded) so nothing can reach a released node; the old grid stays on screen,
// disabled, until a load succeeds. The edit journal goes with the old document.
xml::Document& NewDocument(ControlCore& core) {
    DocumentModel& doc = core.doc;
    doc.blnGridLoaded = false;
    doc.objXMLRoot = xml::Node();
    doc.objTreeStructure = xml::Node();
    doc.objGridStructure = xml::Node();
    doc.arrGridHeaderNodes.clear();
    doc.arrGridValueNodes.clear();
    doc.arrColumnNodes.clear();
    doc.arrCellNodes.clear();
    doc.cellValuesIndex.clear();
    doc.cellValuesIndexStale = true;
    doc.validityIndex = ValidityIndex{};
    doc.objXMLDoc = std::make_unique<xml::Document>();
    core.history.Clear();
    // A CellValue of blanks keeps them: its text is the value.
    doc.objXMLDoc->SetTextElements(TextElements());
    return *doc.objXMLDoc;
}

// After memory ran out half way: an empty document, as after a parse failure.
void DropDocument(DocumentModel& doc) {
    doc.objXMLDoc = std::make_unique<xml::Document>();
}

// After a successful ProcessDocument: the grid takes input, the filter when there are rows.
void EnableView(ControlCore& core) {
    core.form.msgGridView.setEnabled(true);
    core.form.cboFilter.setEnabled(core.form.msgGridView.rows() >= 1);
}

// A single-node selection that finds nothing leaves no object to work on.
xml::Node Select(xml::Node parent, std::string_view name) {
    const xml::Node found = parent.firstChildElement(name);
    if (!found) throw RuntimeFailure("Object variable or With block variable not set");
    return found;
}

}  // namespace

bool LoadDocumentFile(ControlCore& core, const std::string& XMLSource) {
    // Only a missing, unreadable or invalid file makes Load fail; a model that cannot
    // be built afterwards leaves the grid disabled but Load still answers true.
    const bool result = true;
    ResetView(core);
    if (!FileExists(XMLSource)) {
        core.sink.Critical("XML file not found");
        return false;
    }
    FileStamp stamp;
    try {
        xml::Document& document = NewDocument(core);
        xml::ParseError error;
        if (!document.LoadFile(XMLSource, &error, core.maxDocumentBytes)) {
            core.sink.Critical(error.reason);
            return false;
        }
        if (!ValidateParsedDocument(document, core.sink)) return false;
        stamp = document.fileStamp();
    } catch (const std::bad_alloc&) {
        DropDocument(core.doc);
        core.sink.Critical("The file " + XMLSource + " is too large to load: not enough memory");
        return false;
    }
    if (ProcessDocument(core)) {
        EnableView(core);
        core.doc.strXMLPath = XMLSource;
        core.doc.xmlFileStamp = stamp;
        if (core.form.treTreeView.count() >= 1) core.form.treTreeView.setSelectedIndex(1);
    }
    return result;
}

bool LoadDocumentText(ControlCore& core, const std::string& bstrXML) {
    bool result = false;
    ResetView(core);
    try {
        xml::Document& document = NewDocument(core);
        // A text beyond the host's limit is refused like one that does not parse.
        if (bstrXML.size() > core.maxDocumentBytes || !document.Parse(bstrXML)) {
            core.sink.Critical("Invalid XML");
            return false;
        }
        if (!ValidateParsedDocument(document, core.sink)) return false;
    } catch (const std::bad_alloc&) {
        DropDocument(core.doc);
        core.sink.Critical("Invalid XML");
        return false;
    }
    if (ProcessDocument(core)) {
        EnableView(core);
        core.doc.strXMLPath.clear();
        core.doc.xmlFileStamp = FileStamp{};
        result = true;
    }
    return result;
}

bool ProcessDocument(ControlCore& core) {
    DocumentModel& doc = core.doc;
    std::string_view stage = "1032";  // root, measurement unit, custom units
    try {
        doc.objXMLRoot = Select(doc.objXMLDoc->root(), "xml");
        // The unit is the root's first attribute, whatever its name.
        const xml::Attribute unit = doc.objXMLRoot.attribute(std::size_t{0});
        if (!unit) throw RuntimeFailure("Object variable or With block variable not set");
        SetMeasurementUnit(doc, std::string(unit.value()), core.form.unitNumControl,
                           core.form.unitDropControl);

        // Custom units are read only from a root of exactly three children whose first
        // is UnitDropCustomUnits: a second list or a comment switches them off.
        if (doc.objXMLRoot.childCount() == 3 &&
            doc.objXMLRoot.firstChild().name() == "UnitDropCustomUnits") {
            if (!ReadCustomUnits(doc, core.sink, Select(doc.objXMLRoot, "UnitDropCustomUnits"))) {
                core.sink.Critical("Error in reading custom units.");
                return false;
            }
        }

        stage = "1033";  // the tree structure
        doc.objTreeStructure = Select(doc.objXMLRoot, "TreeStructure");

        stage = "1034";  // the grid structure, the tree and the grid index
        doc.objGridStructure = Select(doc.objXMLRoot, "GridStructure");
        if (!BuildTree(core, doc.objTreeStructure)) return false;
        if (!IndexGridStructure(doc, doc.objGridStructure)) return false;
        RebuildCellValuesIndex(doc);
        GatherValidityIndex(doc);
        CountProblems(core);

        if (core.form.treTreeView.count() >= 1) {
            core.form.treTreeView.setSelectedIndex(1);
            SelectTreeNode(core, 1);
            core.form.treTreeView.setFocus();
        }
        return true;
    } catch (...) {
        ReportUnexpectedError(core.sink, stage);
        return false;
    }
}

}  // namespace tabulon

// Dumps: the observable state of the current instance, one JSON object each.
// Colours are "#rrggbb", alignments the grid's alignment code, booleans true/false.
#include <array>
#include <string>

#include "control/control_access.h"
#include "document/document_model.h"
#include "session/command_table.h"
#include "session/page_dump.h"
#include "session/script_error.h"
#include "session/session.h"
#include "session/values.h"
#include "units/conversion_table.h"
#include "view/problem_walk.h"

namespace tabulon::cli::session {

namespace {

JsonObject Geometry(const Component& c) {
    return JsonObject()
        .Bool("visible", c.visible())
        .Bool("enabled", c.enabled())
        .Int("left", c.left())
        .Int("top", c.top())
        .Int("width", c.width())
        .Int("height", c.height());
}

JsonObject GridDump(const FlexGrid& grid) {
    JsonObject dump;
    dump.Str("dump", "grid")
        .Int("rows", grid.rows())
        .Int("cols", grid.cols())
        .Int("fixedRows", grid.fixedRows())
        .Int("fixedCols", grid.fixedCols())
        .Int("row", grid.row())
        .Int("col", grid.col())
        .Int("rowSel", grid.rowSel())
        .Int("colSel", grid.colSel())
        .Int("topRow", grid.topRow())
        .Int("leftCol", grid.leftCol())
        .Bool("enabled", grid.enabled())
        .Int("width", grid.width())
        .Int("height", grid.height());
    JsonArray widths, heights, cells;
    for (int c = 0; c < grid.cols(); ++c)
        widths.Int(grid.colWidth(c));
    for (int r = 0; r < grid.rows(); ++r) {
        heights.Int(grid.rowHeight(r));
        JsonArray row;
        for (int c = 0; c < grid.cols(); ++c) {
            row.Obj(JsonObject()
                        .Str("text", grid.textMatrix(r, c))
                        .Color("fore", grid.cellForeColor(r, c))
                        .Color("back", grid.cellBackColor(r, c))
                        .Int("align", static_cast<int>(grid.cellAlignment(r, c))));
        }
        cells.Arr(row);
    }
    return dump.Arr("colWidths", widths).Arr("rowHeights", heights).Arr("cells", cells);
}

// Nodes in the order the tree shows them: each node followed by its children.
void AddTreeNodes(const TreeView& tree, int parent, JsonArray& nodes) {
    for (const int index : tree.children(parent)) {
        const TreeNode& node = tree.node(index);
        nodes.Obj(JsonObject()
                      .Int("index", index)
                      .Str("key", node.key)
                      .Str("text", node.text)
                      .Int("image", node.image)
                      .Str("parent", node.parent == 0 ? std::string() : tree.node(node.parent).key)
                      .Bool("expanded", node.expanded)
                      .Bool("selected", tree.selectedIndex() == index));
        AddTreeNodes(tree, index, nodes);
    }
}

JsonObject TreeDump(const Form& form) {
    const TreeView& tree = form.treTreeView;
    JsonArray nodes, images;
    AddTreeNodes(tree, 0, nodes);
    for (int i = 1; i <= form.ilsTreeView.count(); ++i)
        images.Str(form.ilsTreeView.picture(i).path);
    return JsonObject()
        .Str("dump", "tree")
        .Arr("nodes", nodes)
        .Int("style", tree.style())
        .Bool("imagesBound", tree.imageList() != nullptr)
        .Arr("images", images);
}

JsonObject EditorsDump(const Form& form) {
    const TextBox& text = form.txtTextBoxControl;
    const ComboBox& combo = form.cboComboBoxControl;
    const UnitNumBox& num = form.unitNumControl;
    const UnitDropBox& drop = form.unitDropControl;
    JsonArray limits, formats;
    for (const UnitDropBox::Unit& unit : drop.Units()) {
        limits.Arr(JsonArray().Num(unit.minimum).Num(unit.maximum));
        formats.Str(unit.format);
    }
    return JsonObject()
        .Str("dump", "editors")
        .Obj(text.name(), Geometry(text)
                              .Str("text", text.text())
                              .Int("maxLength", text.maxLength())
                              .Int("selStart", text.selStart())
                              .Int("selLength", text.selLength())
                              .Bool("focus", text.hasFocus()))
        .Obj(combo.name(), Geometry(combo)
                               .Str("text", combo.text())
                               .Arr("items", StringArray(combo.items()))
                               .Int("listIndex", combo.listIndex())
                               .Bool("focus", combo.hasFocus()))
        .Obj(num.name(),
             Geometry(num)
                 .Str("text", num.NumberText())
                 .Str("unit", num.UnitLabel())
                 .Int("unitCode", num.UnitCode())
                 .Arr("limits", JsonArray().Num(num.AppliedMinimum()).Num(num.AppliedMaximum()))
                 .Str("format", num.DisplayFormat())
                 .Bool("focus", num.hasFocus()))
        .Obj(drop.name(), Geometry(drop)
                              .Str("text", drop.NumberText())
                              .Str("unit", drop.SelectedUnitText())
                              .Arr("items", StringArray(drop.UnitLabels()))
                              .Arr("limits", limits)
                              .Arr("formats", formats)
                              .Int("numberWidth", drop.NumberWidth())
                              .Int("unitWidth", drop.UnitWidth())
                              .Bool("focus", drop.hasFocus()));
}

JsonObject FilterDump(const Form& form) {
    return JsonObject()
        .Str("dump", "filter")
        .Bool("frameVisible", form.fraFilterView.visible())
        .Str("frameCaption", form.fraFilterView.caption())
        .Str("labelCaption", form.lblFilter.caption())
        .Bool("comboEnabled", form.cboFilter.enabled())
        .Str("text", form.cboFilter.text())
        .Arr("items", StringArray(form.cboFilter.items()));
}

JsonObject LayoutDump(Form& form) {
    const Component* focused = form.focus.focused();
    JsonObject dump;
    dump.Str("dump", "layout").Str("focus", focused == nullptr ? "" : focused->name());
    dump.Obj(form.control.name(), Geometry(form.control));
    for (const Component* child : form.children())
        dump.Obj(child->name(), Geometry(*child));
    return dump;
}

JsonObject BarDump(const Component& owner, const ScrollBar& bar, bool enabled, bool busy) {
    return JsonObject()
        .Bool("visible", owner.visible())
        .Bool("enabled", enabled)
        .Int("min", bar.min())
        .Int("max", bar.max())
        .Int("value", bar.value())
        .Bool("busy", busy);
}

JsonObject ScrollbarsDump(const Form& form) {
    const ctlHorizontalScroll& h = form.hscGrid;
    const ctlVerticalScroll& v = form.vscGrid;
    return JsonObject()
        .Str("dump", "scrollbars")
        .Obj(h.name(), BarDump(h, h.bar(), h.ScrollEnabled(), h.driver().busy())
                           .Int("leftMargin", h.LeftMargin())
                           .Int("rightMargin", h.RightMargin()))
        .Obj(v.name(), BarDump(v, v.bar(), v.ScrollEnabled(), v.driver().busy())
                           .Int("topMargin", v.TopMargin())
                           .Int("bottomMargin", v.BottomMargin()));
}

JsonObject StateDump(const Generic_SP_Control& control) {
    const ControlCore& core = CoreOf(control);
    const DocumentModel& doc = core.doc;
    return JsonObject()
        .Str("dump", "state")
        .Bool("blnGridLoaded", doc.blnGridLoaded)
        .Bool("blnEditorActive", core.blnEditorActive)
        .Bool("blnScrollCommit", core.blnScrollCommit)
        .Str("strCurrentHeaderKey", doc.strCurrentHeaderKey)
        .Str("strCurrentValueKey", doc.strCurrentValueKey)
        .Str("strMeasurementUnit", doc.strMeasurementUnit)
        .Str("strXMLPath", doc.strXMLPath)
        .Int("intColWidthMin", core.intColWidthMin)
        .Bool("blnDefaultPos", control.blnDefaultPos() != 0);
}

JsonObject ConversionDump() {
    JsonObject entries;
    for (const auto& [name, index] : ConversionEntries())
        entries.Int(name, index);
    return JsonObject()
        .Str("dump", "conversion")
        .Bool("present", HasConversionTable())
        .Obj("entries", entries);
}

JsonObject CustomUnitsDump(const DocumentModel& doc) {
    JsonArray units;
    for (const CustomUnitRow& row : doc.arrCustomUnits) {
        units.Obj(JsonObject().Str("EUnit", row[0]).Str("MUnit", row[1]).Str("EToMFactor", row[2]));
    }
    return JsonObject().Str("dump", "custom-units").Arr("units", units);
}

// One cell of the grid on screen: its text and, in words, its unit and problem.
JsonObject CellDump(Session& s, Args args) {
    const Generic_SP_Control& control = s.control();
    const FlexGrid& grid = FormOf(control).msgGridView;
    const auto row = static_cast<int>(IntegerArgument("dump cell", args[0], "R", 0, 1 << 30));
    const auto col = static_cast<int>(IntegerArgument("dump cell", args[1], "C", 0, 1 << 30));
    if (row >= grid.rows() || col >= grid.cols()) {
        throw ScriptError("dump cell: cell " + args[0].text + ", " + args[1].text +
                          " is outside the grid");
    }
    return JsonObject()
        .Str("dump", "cell")
        .Int("row", row)
        .Int("col", col)
        .Str("text", grid.textMatrix(row, col))
        .Str("unit", control.CellUnit(row, col))
        .Str("problem", control.CellProblem(row, col));
}

// The values that need correcting: the count, the tree's marks and every value with
// where it is shown and why.
JsonObject ProblemsDump(Generic_SP_Control& control) {
    ControlCore& core = CoreOf(control);
    const TreeView& tree = core.form.treTreeView;
    JsonArray marks, cells;
    for (int index = 1; index <= tree.count(); ++index) {
        const TreeNode& node = tree.node(index);
        if (node.problems != 0)
            marks.Obj(JsonObject().Str("key", node.key).Int("count", node.problems));
    }
    for (const ProblemCell& cell : ListProblems(core)) {
        cells.Obj(JsonObject()
                      .Str("node", cell.node == 0 ? std::string() : tree.node(cell.node).key)
                      .Int("row", cell.row)
                      .Int("col", static_cast<std::int64_t>(cell.gridValue) + 1)
                      .Str("rowCaption", cell.rowCaption)
                      .Str("columnCaption", cell.columnCaption)
                      .Str("reason", cell.reason));
    }
    return JsonObject()
        .Str("dump", "problems")
        .Int("count", control.ProblemCount())
        .Arr("marks", marks)
        .Arr("cells", cells);
}

using DumpFunction = JsonObject (*)(Generic_SP_Control& control);

struct DumpKind {
    std::string_view name;
    DumpFunction dump;
};

constexpr std::array<DumpKind, 10> kDumps = {{
    {"grid", [](Generic_SP_Control& c) { return GridDump(FormOf(c).msgGridView); }},
    {"tree", [](Generic_SP_Control& c) { return TreeDump(FormOf(c)); }},
    {"editors", [](Generic_SP_Control& c) { return EditorsDump(FormOf(c)); }},
    {"filter", [](Generic_SP_Control& c) { return FilterDump(FormOf(c)); }},
    {"layout", [](Generic_SP_Control& c) { return LayoutDump(FormOf(c)); }},
    {"scrollbars", [](Generic_SP_Control& c) { return ScrollbarsDump(FormOf(c)); }},
    {"state", [](Generic_SP_Control& c) { return StateDump(c); }},
    {"conversion", [](Generic_SP_Control&) { return ConversionDump(); }},
    {"custom-units", [](Generic_SP_Control& c) { return CustomUnitsDump(CoreOf(c).doc); }},
    {"problems", [](Generic_SP_Control& c) { return ProblemsDump(c); }},
}};

void Dump(Session& s, Args args) {
    const std::string& what = args[0].text;
    if (what == "cell") {
        if (args.size() != 3) throw ScriptError("dump cell: expected R C");
        s.output().Line(CellDump(s, args.subspan(1)));
        return;
    }
    if (args.size() != 1) throw ScriptError("dump " + what + ": takes no arguments");
    if (what == "page") {
        s.output().Line(PageDump(OpenPage(s, "dump page")));
        return;
    }
    for (const DumpKind& kind : kDumps) {
        if (kind.name == what) {
            s.output().Line(kind.dump(s.control()));
            return;
        }
    }
    throw ScriptError("dump: unknown dump \"" + what +
                      "\" (grid, tree, editors, filter, layout, scrollbars, state, conversion, "
                      "custom-units, page, cell, problems)");
}

constexpr ScriptCommand kCommands[] = {
    {"dump",
     "grid|tree|editors|filter|layout|scrollbars|state|conversion|custom-units|page|problems|"
     "cell R C",
     "grid: rows, cols, fixed rows/cols, row, col, rowSel, colSel, topRow, leftCol, enabled, "
     "width, height, colWidths, rowHeights and cells (rows of {text, fore, back, align}). "
     "tree: nodes in the order shown (index, key, text, image, parent key, expanded, "
     "selected), style and the image list's pictures. editors: for each of the four editors "
     "its geometry, text or number text, unit, items, limits, max length and focus. filter: "
     "frame visible and caption, label caption, combo enabled, text, items. layout: every "
     "child component's visibility, enabled state and geometry, and who has the focus. "
     "scrollbars: per bar visible, enabled, min, max, value, margins. state: the control's "
     "flags and keys. conversion: name -> index of the conversion-name table. custom-units: "
     "the document's custom units. page: the open property page. problems: how many values "
     "need correcting, the tree's marks (key, count) and every such value (node, row, col, "
     "captions, reason). cell R C: one cell's text, unit and problem (why it is red).",
     1, 3, false, Dump},
};

}  // namespace

std::span<const ScriptCommand> DumpCommands() {
    return kCommands;
}

}  // namespace tabulon::cli::session

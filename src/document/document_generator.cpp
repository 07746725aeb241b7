#include "document/document_generator.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace tabulon {

namespace {

GeneratedDocumentShape Normalised(GeneratedDocumentShape shape) {
    shape.treeNodes = std::max(shape.treeNodes, 1);
    shape.nodesPerGroup = std::max(shape.nodesPerGroup, 1);
    shape.gridHeaders = std::max(shape.gridHeaders, 1);
    shape.valueColumns = std::max(shape.valueColumns, 1);
    shape.rows = std::max(shape.rows, 1);
    return shape;
}

struct RowKind {
    std::string_view controlType;
    std::string_view attributes;  // written after ControlType
};

constexpr std::array<RowKind, 4> kRowKinds = {{
    {"TextBox", R"( MaxLength="20")"},
    {"ComboBox", R"( ListValues="Low;Medium;High")"},
    {"UnitNum", R"( Unit="FT_TO_M" Format="0.00" MinVal="0" MaxVal="1000")"},
    {"UnitDrop",
     R"( Unit="CFM_TO_LPS;GPM_TO_LPS" Format="0.0;0.00" MinVal="0;0" MaxVal="5000;800")"},
}};

const RowKind& KindOfRow(int r) {
    return kRowKinds[static_cast<std::size_t>(r) % kRowKinds.size()];
}

std::string Num(long long value) {
    return std::to_string(value);
}

// The stored text of cell (row r, column c) of group g, fitting the row's kind.
std::string CellText(int g, int c, int r) {
    const long long seed = (static_cast<long long>(g) * 31 + c * 7 + r * 3) % 1000;
    const std::string_view type = KindOfRow(r).controlType;
    if (type == "TextBox") return "Item " + Num(g) + "-" + Num(c) + "-" + Num(r);
    if (type == "ComboBox") {
        static constexpr std::array<std::string_view, 3> kChoices = {"Low", "Medium", "High"};
        return std::string(kChoices[static_cast<std::size_t>(seed % 3)]);
    }
    const std::string number = Num(seed / 4) + "." + Num(seed % 10);
    if (type == "UnitNum") return number;
    return number + (seed % 2 == 0 ? "(cu ft/min)" : "(gal/min)");
}

void AppendTree(std::string& out, const GeneratedDocumentShape& shape) {
    out += "  <TreeStructure>\n";
    const int groups = GeneratedGroupCount(shape);
    for (int g = 0; g < groups; ++g) {
        const int first = g * shape.nodesPerGroup;
        const int size = std::min(shape.nodesPerGroup, shape.treeNodes - first);
        const std::string header = "H" + Num(g % shape.gridHeaders);
        out += "    <Pnode Name=\"Group " + Num(g) + "\" KeyValue=\"N" + Num(first) +
               "\" GridHeaderKey=\"" + header + "\" GridValueKey=\"V" + Num(g) +
               "\" Filter=\"1\" FilterCaption=\"Type\"";
        if (size == 1) {
            out += "/>\n";
            continue;
        }
        out += ">\n";
        for (int n = 1; n < size; ++n) {
            out += "      <Cnode Name=\"Item " + Num(first + n) + "\" KeyValue=\"N" +
                   Num(first + n) + "\" GridHeaderKey=\"" + header + "\" Filter=\"0\"/>\n";
        }
        out += "    </Pnode>\n";
    }
    out += "  </TreeStructure>\n";
}

void AppendHeaders(std::string& out, const GeneratedDocumentShape& shape) {
    out += "    <GridHeaders>\n";
    for (int h = 0; h < shape.gridHeaders; ++h) {
        out += "      <GridHeader Key=\"H" + Num(h) + "\">\n        <ColumnHeaders>\n";
        out += "          <ColumnHeader HName=\"Property\" Width=\"1500\"/>\n";
        for (int c = 1; c <= shape.valueColumns; ++c) {
            out += "          <ColumnHeader HName=\"Case " + Num(c) + "\"/>\n";
        }
        out += "        </ColumnHeaders>\n        <RowHeaders>\n";
        for (int r = 1; r <= shape.rows; ++r) {
            const RowKind& kind = KindOfRow(r);
            out += "          <RowHeader HName=\"Row " + Num(r) + "\" ControlType=\"" +
                   std::string(kind.controlType) + "\"" + std::string(kind.attributes) + "/>\n";
        }
        out += "        </RowHeaders>\n      </GridHeader>\n";
    }
    out += "    </GridHeaders>\n";
}

void AppendValues(std::string& out, const GeneratedDocumentShape& shape) {
    const int groups = GeneratedGroupCount(shape);
    out += "    <GridValues>\n";
    for (int c = 1; c <= shape.valueColumns; ++c) {
        out += "      <GridValue>\n";
        const std::string filter = c % 2 == 1 ? "Type A" : "Type B";
        for (int g = 0; g < groups; ++g) {
            out += "        <CellValues GridValueKey=\"V" + Num(g) + "\" FilterValue=\"" + filter +
                   "\">\n";
            for (int r = 1; r <= shape.rows; ++r) {
                const bool enabled = (g + c + r) % 7 != 0;
                const bool valid = (g + 2 * c + r) % 11 != 0;
                out += "          <CellValue Enabled=\"" + std::string(enabled ? "1" : "0") +
                       "\" Valid=\"" + std::string(valid ? "1" : "0") +
                       "\" ApplicationValidation=\"0\">" + CellText(g, c, r) + "</CellValue>\n";
            }
            out += "        </CellValues>\n";
        }
        out += "      </GridValue>\n";
    }
    out += "    </GridValues>\n";
}

}  // namespace

int GeneratedGroupCount(GeneratedDocumentShape shape) {
    shape = Normalised(shape);
    return (shape.treeNodes + shape.nodesPerGroup - 1) / shape.nodesPerGroup;
}

int GeneratedGroupNodeIndex(GeneratedDocumentShape shape, int group) {
    shape = Normalised(shape);
    return group * shape.nodesPerGroup + 1;
}

std::string GenerateDocument(GeneratedDocumentShape shape) {
    shape = Normalised(shape);
    std::string out;
    out += std::string("<xml MeasurementUnit=\"") + (shape.metric ? "METRIC" : "ENGLISH") + "\">\n";
    AppendTree(out, shape);
    out += "  <GridStructure>\n";
    AppendHeaders(out, shape);
    AppendValues(out, shape);
    out += "  </GridStructure>\n</xml>\n";
    return out;
}

}  // namespace tabulon

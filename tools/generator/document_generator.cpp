#include "generator/document_generator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "generator/generator_tables.h"
#include "support/numeric.h"
#include "support/text.h"
#include "unitinput/unit_catalogue.h"

namespace tabulon {

namespace {

using generated::RowTemplate;

// --- deterministic choices: a hash of the seed and a few numbers, no generator state,
// so every part of the text can be chosen independently of the others.

enum class Salt : std::uint64_t { Group = 1, Level, Overview, RowType, RowPick, Service, Cell };

std::uint64_t Mix(std::uint64_t z) {
    z += 0x9e3779b97f4a7c15ULL;
    z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9ULL;
    z = (z ^ (z >> 27)) * 0x94d049bb133111ebULL;
    return z ^ (z >> 31);
}

std::uint64_t Hash(std::uint64_t seed, Salt salt, std::initializer_list<long long> parts) {
    std::uint64_t h = Mix(seed ^ Mix(static_cast<std::uint64_t>(salt)));
    for (const long long part : parts)
        h = Mix(h ^ static_cast<std::uint64_t>(part));
    return h;
}

template <typename T>
const T& Pick(std::span<const T> items, std::uint64_t h) {
    return items[static_cast<std::size_t>(h % items.size())];
}

std::string Num(long long value) {
    return IntegerToText(value);
}

// "name" for n = 0, "name 2" for n = 1 ...: names stay unique beyond a table's end.
std::string Numbered(std::string_view name, std::size_t round) {
    std::string out(name);
    if (round > 0) {
        out += ' ';
        out += Num(static_cast<long long>(round) + 1);
    }
    return out;
}

// --- the tree

struct PlannedNode {
    int level = 0;
    int key = 0;            // the key whose values the node shows
    bool overview = false;  // leaves GridValueKey out and inherits key from the node before
    std::string path;       // KeyValue; also the GridValueKey of the key it introduces
    int number = 1;         // among its siblings, from 1
};

struct TreePlan {
    std::vector<PlannedNode> nodes;
    std::vector<int> keyNode;  // per key: index into nodes of the node introducing it
};

char LevelLetter(int level) {
    const auto nouns = generated::LevelNouns();
    return nouns[std::min<std::size_t>(static_cast<std::size_t>(level), nouns.size() - 1)][0];
}

TreePlan PlanTree(const GeneratedDocumentShape& shape) {
    TreePlan plan;
    plan.nodes.reserve(static_cast<std::size_t>(shape.keys) * 7 / 6 + 1);
    plan.keyNode.reserve(static_cast<std::size_t>(shape.keys));
    std::vector<int> siblings(static_cast<std::size_t>(shape.depth), 0);
    std::vector<std::string> paths(static_cast<std::size_t>(shape.depth));
    const auto add = [&](int level, int key, bool overview) {
        const auto at = static_cast<std::size_t>(level);
        const int number = ++siblings[at];
        std::fill(siblings.begin() + static_cast<std::ptrdiff_t>(at) + 1, siblings.end(), 0);
        paths[at] =
            (level == 0 ? std::string() : paths[at - 1] + ".") + LevelLetter(level) + Num(number);
        plan.nodes.push_back({level, key, overview, paths[at], number});
    };

    int groupLeft = 0;  // nodes still to come in the current group (Pnode subtree)
    int inGroup = 0;    // position of the next node in its group
    for (int key = 0; key < shape.keys; ++key) {
        if (groupLeft == 0) {
            const auto spread = static_cast<int>(Hash(shape.seed, Salt::Group, {key}) % 9);
            groupLeft = shape.depth == 1 ? 1 : std::max(4 + spread, shape.depth);
            inGroup = 0;
        }
        int level = 0;
        if (inGroup > 0) {
            const int deepest = std::min(plan.nodes.back().level + 1, shape.depth - 1);
            // The first branch of a group goes straight down; later nodes anywhere above.
            level = inGroup < shape.depth
                        ? inGroup
                        : 1 + static_cast<int>(Hash(shape.seed, Salt::Level, {key}) %
                                               static_cast<std::uint64_t>(deepest));
        }
        plan.keyNode.push_back(static_cast<int>(plan.nodes.size()));
        add(level, key, false);
        if (level > 0 && Hash(shape.seed, Salt::Overview, {key}) % 6 == 0) add(level, key, true);
        --groupLeft;
        ++inGroup;
    }
    return plan;
}

// --- layouts

// One unit of a row, resolved: the name a document uses and the label a cell carries.
struct Offer {
    std::string name;
    std::string label;  // English label ("" for a UnitNum row without a unit)
    std::string format;
    double low = 0;
    double high = 0;
    int decimals = 0;
};

struct PlannedRow {
    std::string caption;
    const RowTemplate* base = nullptr;
    EditorKind type = EditorKind::TextBox;
    std::vector<Offer> offers;
    std::vector<std::string> choices;  // ComboBox
    int height = 0;
};

struct CustomUnit {
    std::string english;
    std::string metric;
    std::string factor;
    std::string caption;
    double high = 0;
};

std::vector<CustomUnit> PlanCustomUnits(int count) {
    const auto pool = generated::CustomUnitTemplates();
    std::vector<CustomUnit> units;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const auto& base = pool[i % pool.size()];
        const std::size_t round = i / pool.size();
        units.push_back({Numbered(base.english, round), Numbered(base.metric, round),
                         std::string(base.factor), Numbered(base.caption, round), base.high});
    }
    return units;
}

std::string EnglishLabelOf(std::string_view name) {
    for (const UnitConversion& conversion : BuiltInConversions()) {
        if (conversion.name == name) return std::string(conversion.english);
    }
    return {};
}

Offer BuiltInOffer(const generated::UnitOffer& unit) {
    return {std::string(unit.name),
            EnglishLabelOf(unit.name),
            std::string(unit.format),
            unit.low,
            unit.high,
            unit.decimals};
}

Offer CustomOffer(const CustomUnit& unit) {
    return {unit.english, unit.english, "0.0", 0, unit.high, 1};
}

// The position of a row type among the four, as the hashes and counters use it (the
// same numbers whatever values the EditorKind enumeration gives the kinds).
constexpr std::size_t TypeIndex(EditorKind type) {
    return static_cast<std::size_t>(type) - static_cast<std::size_t>(EditorKind::TextBox);
}

constexpr std::array kFirstTypes = {EditorKind::TextBox, EditorKind::ComboBox, EditorKind::UnitNum,
                                    EditorKind::UnitDrop};

// Rows of every layout. The first four rows of layout l are one of each type, rotated
// by l; later rows take any type. Within a layout each type runs through its templates
// from a point of its own; a template met again gets a numbered caption. With custom
// units, every second UnitDrop row of a layout (the first included) offers the next two
// custom units instead.
std::vector<std::vector<PlannedRow>> PlanLayouts(const GeneratedDocumentShape& shape,
                                                 const std::vector<CustomUnit>& customs) {
    std::vector<std::vector<PlannedRow>> layouts(static_cast<std::size_t>(shape.gridHeaders));
    std::size_t nextCustom = 0;
    for (int l = 0; l < shape.gridHeaders; ++l) {
        std::array<std::size_t, 4> seen{};
        for (int r = 0; r < shape.rows; ++r) {
            const EditorKind type =
                r < 4 ? kFirstTypes[static_cast<std::size_t>((r + l) % 4)]
                      : kFirstTypes[Hash(shape.seed, Salt::RowType, {l, r}) % kFirstTypes.size()];
            const std::size_t occurrence = seen.at(TypeIndex(type))++;
            const auto templates = generated::RowTemplates(type);
            const std::size_t start =
                Hash(shape.seed, Salt::RowPick, {l, static_cast<int>(TypeIndex(type))});
            const RowTemplate& base = templates[(start + occurrence) % templates.size()];
            PlannedRow row;
            row.base = &base;
            row.type = type;
            row.height = base.height;
            row.caption = Numbered(base.caption, occurrence / templates.size());
            if (type == EditorKind::UnitDrop && !customs.empty() && occurrence % 2 == 0) {
                const CustomUnit& first = customs[nextCustom++ % customs.size()];
                row.caption = first.caption;
                row.offers.push_back(CustomOffer(first));
                if (customs.size() > 1) {
                    row.offers.push_back(CustomOffer(customs[nextCustom++ % customs.size()]));
                }
            } else if (type == EditorKind::UnitDrop) {
                for (const auto& unit : base.units)
                    row.offers.push_back(BuiltInOffer(unit));
            } else if (type == EditorKind::UnitNum) {
                row.offers.push_back(BuiltInOffer(base.units[0]));
            } else if (type == EditorKind::ComboBox) {
                row.choices = SplitList(base.listValues);
            }
            layouts[static_cast<std::size_t>(l)].push_back(std::move(row));
        }
    }
    return layouts;
}

const generated::LayoutTemplate& LayoutOf(int layout) {
    const auto layouts = generated::Layouts();
    return layouts[static_cast<std::size_t>(layout) % layouts.size()];
}

std::string LayoutName(int layout) {
    return Numbered(LayoutOf(layout).name,
                    static_cast<std::size_t>(layout) / generated::Layouts().size());
}

// --- text

using Attribute = std::pair<std::string_view, std::string_view>;

// Appends a start tag; attributes that would run past column 100 go on the next line,
// aligned under the first one, as people wrap long tags by hand.
void StartTag(std::string& out, int indent, std::string_view name,
              std::span<const Attribute> attributes, bool empty) {
    constexpr std::size_t kWrapColumn = 100;
    out.append(static_cast<std::size_t>(indent), ' ');
    out += '<';
    out += name;
    const std::size_t align = static_cast<std::size_t>(indent) + name.size() + 2;
    std::size_t column = align - 1;
    for (std::size_t i = 0; i < attributes.size(); ++i) {
        const auto& [attribute, value] = attributes[i];
        const std::size_t width = attribute.size() + value.size() + 3;
        // The last attribute keeps the tag's end on its line.
        const std::size_t end = i + 1 < attributes.size() ? 0 : (empty ? 2 : 1);
        if (i > 0 && column + 1 + width + end > kWrapColumn) {
            out += '\n';
            out.append(align, ' ');
            column = align;
        } else {
            out += ' ';
            ++column;
        }
        out += attribute;
        out += "=\"";
        out += value;
        out += '"';
        column += width;
    }
    out += empty ? "/>\n" : ">\n";
}

void StartTag(std::string& out, int indent, std::string_view name,
              std::initializer_list<Attribute> attributes, bool empty) {
    StartTag(out, indent, name, std::span<const Attribute>(attributes.begin(), attributes.size()),
             empty);
}

void EndTag(std::string& out, int indent, std::string_view name) {
    out.append(static_cast<std::size_t>(indent), ' ');
    out += "</";
    out += name;
    out += ">\n";
}

std::string NumberIn(const Offer& offer, std::uint64_t h) {
    const double scale = std::pow(10.0, offer.decimals);
    const auto steps = static_cast<std::uint64_t>(std::llround((offer.high - offer.low) * scale));
    const auto scaled = static_cast<double>(h % (steps + 1));
    return NumberToText(offer.low + scaled / scale);
}

std::string TextCell(generated::TextKind kind, std::uint64_t h) {
    switch (kind) {
        case generated::TextKind::EquipmentTag:
            return std::string(Pick(generated::EquipmentPrefixes(), h)) + "-" +
                   Num(static_cast<long long>(1 + (h >> 8) % 40));
        case generated::TextKind::Area:
            return "Level " + Num(static_cast<long long>(1 + h % 12)) + " " +
                   std::string(Pick(generated::Directions(), h >> 8));
        case generated::TextKind::Maker:
            return std::string(Pick(generated::Makers(), h));
        case generated::TextKind::Note:
            return std::string(Pick(generated::Notes(), h));
    }
    return {};
}

// The stored text of one cell: English values, in range, fitting the row.
std::string CellText(const PlannedRow& row, std::uint64_t h) {
    switch (row.type) {
        case EditorKind::TextBox:
            return TextCell(row.base->text, h);
        case EditorKind::ComboBox:
            return row.choices[static_cast<std::size_t>(h % row.choices.size())];
        case EditorKind::UnitNum:
            return NumberIn(row.offers.front(), h);
        case EditorKind::UnitDrop: {
            const Offer& offer = row.offers[static_cast<std::size_t>(h % row.offers.size())];
            return NumberIn(offer, h >> 8) + "(" + offer.label + ")";
        }
        case EditorKind::None:
            break;
    }
    return {};
}

std::string JoinOffers(const PlannedRow& row, std::string (*part)(const Offer&)) {
    std::string out;
    for (const Offer& offer : row.offers) {
        if (!out.empty()) out += ';';
        out += part(offer);
    }
    return out;
}

void AppendCustomUnits(std::string& out, const std::vector<CustomUnit>& customs) {
    if (customs.empty()) return;
    out += "  <UnitDropCustomUnits>\n";
    for (const CustomUnit& unit : customs) {
        StartTag(out, 4, "CustomUnit",
                 {{"EUnit", unit.english}, {"MUnit", unit.metric}, {"EToMFactor", unit.factor}},
                 true);
    }
    out += "  </UnitDropCustomUnits>\n";
}

void AppendTree(std::string& out, const GeneratedDocumentShape& shape, const TreePlan& plan) {
    out += "  <TreeStructure>\n";
    const auto nouns = generated::LevelNouns();
    for (std::size_t i = 0; i < plan.nodes.size(); ++i) {
        const PlannedNode& node = plan.nodes[i];
        const int nextLevel = i + 1 < plan.nodes.size() ? plan.nodes[i + 1].level : 0;
        const bool pnode = node.level == 0;
        const std::string_view element = pnode ? "Pnode" : "Cnode";
        const std::string name =
            node.overview ? "Overview"
                          : std::string(nouns[std::min<std::size_t>(
                                static_cast<std::size_t>(node.level), nouns.size() - 1)]) +
                                " " + Num(node.number);
        const std::string layout = LayoutName(node.key % shape.gridHeaders);
        const std::string_view key =
            plan.nodes[static_cast<std::size_t>(plan.keyNode[static_cast<std::size_t>(node.key)])]
                .path;
        const int indent = 4 + 2 * node.level;
        const bool leaf = nextLevel <= node.level;
        if (pnode) {
            StartTag(out, indent, element,
                     {{"Name", name},
                      {"KeyValue", node.path},
                      {"GridHeaderKey", layout},
                      {"GridValueKey", key},
                      {"Filter", "1"},
                      {"FilterCaption", "Service"},
                      {"FilterProperty", "Service"}},
                     leaf);
        } else if (node.overview) {
            StartTag(out, indent, element,
                     {{"Name", name},
                      {"KeyValue", node.path},
                      {"GridHeaderKey", layout},
                      {"Filter", "0"}},
                     leaf);
        } else {
            // Floors (odd levels) show the filter with the caption of the node before.
            StartTag(out, indent, element,
                     {{"Name", name},
                      {"KeyValue", node.path},
                      {"GridHeaderKey", layout},
                      {"GridValueKey", key},
                      {"Filter", node.level % 2 == 1 ? "1" : "0"}},
                     leaf);
        }
        if (leaf) {
            for (int level = node.level - 1; level >= nextLevel; --level) {
                EndTag(out, 4 + 2 * level, level == 0 ? "Pnode" : "Cnode");
            }
        }
    }
    out += "  </TreeStructure>\n";
}

void AppendLayouts(std::string& out, const GeneratedDocumentShape& shape,
                   const std::vector<std::vector<PlannedRow>>& layouts) {
    out += "    <GridHeaders>\n";
    for (int l = 0; l < shape.gridHeaders; ++l) {
        StartTag(out, 6, "GridHeader", {{"Key", LayoutName(l)}}, false);
        out += "        <ColumnHeaders>\n";
        StartTag(out, 10, "ColumnHeader", {{"HName", "Property"}, {"Width", "2800"}}, true);
        const std::string_view prefix = LayoutOf(l).columnPrefix;
        for (int c = 1; c <= shape.valueColumns; ++c) {
            const std::string caption = std::string(prefix) + "-" + Num(c);
            // Odd layouts give their value columns a width: they start hidden and the
            // filter shows them.
            if (l % 2 == 1) {
                StartTag(out, 10, "ColumnHeader", {{"HName", caption}, {"Width", "1400"}}, true);
            } else {
                StartTag(out, 10, "ColumnHeader", {{"HName", caption}}, true);
            }
        }
        out += "        </ColumnHeaders>\n        <RowHeaders>\n";
        for (const PlannedRow& row : layouts[static_cast<std::size_t>(l)]) {
            const std::string type(EditorKindInfo(row.type).name);
            const std::string height = row.height > 0 ? Num(row.height) : std::string();
            std::string unit, format, low, high, list, length;
            if (!row.offers.empty()) {
                unit = JoinOffers(row, [](const Offer& o) { return o.name; });
                format = JoinOffers(row, [](const Offer& o) { return o.format; });
                low = JoinOffers(row, [](const Offer& o) { return NumberToText(o.low); });
                high = JoinOffers(row, [](const Offer& o) { return NumberToText(o.high); });
            }
            if (row.type == EditorKind::ComboBox) list = std::string(row.base->listValues);
            if (row.type == EditorKind::TextBox) length = Num(row.base->maxLength);
            // Attributes a row does not use are left out, as an author would.
            std::vector<Attribute> attributes = {{"HName", row.caption}, {"ControlType", type}};
            for (const Attribute& optional : {Attribute{"Unit", unit},
                                              {"Format", format},
                                              {"MinVal", low},
                                              {"MaxVal", high},
                                              {"ListValues", list},
                                              {"MaxLength", length},
                                              {"Height", height}}) {
                if (!optional.second.empty()) attributes.push_back(optional);
            }
            StartTag(out, 10, "RowHeader", attributes, true);
        }
        out += "        </RowHeaders>\n      </GridHeader>\n";
    }
    out += "    </GridHeaders>\n";
}

void AppendValues(std::string& out, const GeneratedDocumentShape& shape, const TreePlan& plan,
                  const std::vector<std::vector<PlannedRow>>& layouts) {
    out += "    <GridValues>\n";
    for (int c = 1; c <= shape.valueColumns; ++c) {
        const std::string_view service =
            Pick(generated::Services(), Hash(shape.seed, Salt::Service, {c}));
        out += "      <GridValue>\n        <!-- Column " + Num(c) + ": " + std::string(service) +
               " -->\n";
        for (int k = 0; k < shape.keys; ++k) {
            const std::string& key =
                plan.nodes[static_cast<std::size_t>(plan.keyNode[static_cast<std::size_t>(k)])]
                    .path;
            StartTag(
                out, 8, "CellValues",
                {{"GridValueKey", key}, {"FilterProperty", "Service"}, {"FilterValue", service}},
                false);
            const auto& rows = layouts[static_cast<std::size_t>(k % shape.gridHeaders)];
            for (int r = 0; r < shape.rows; ++r) {
                const std::uint64_t h = Hash(shape.seed, Salt::Cell, {k, c, r});
                const bool enabled = (h >> 40) % 23 != 0;
                const bool valid = shape.invalidEvery <= 0 ||
                                   (h >> 48) % static_cast<std::uint64_t>(shape.invalidEvery) != 0;
                out += "          <CellValue Enabled=\"";
                out += enabled ? '1' : '0';
                out += "\" Valid=\"";
                out += valid ? '1' : '0';
                const bool checked =
                    shape.hostCheckedEvery > 0 &&
                    (h >> 56) % static_cast<std::uint64_t>(shape.hostCheckedEvery) == 0;
                out += "\" ApplicationValidation=\"";
                out += checked ? '1' : '0';
                out += "\">";
                out += CellText(rows[static_cast<std::size_t>(r)], h);
                out += "</CellValue>\n";
            }
            out += "        </CellValues>\n";
        }
        out += "      </GridValue>\n";
    }
    out += "    </GridValues>\n";
}

}  // namespace

GeneratedDocumentShape NormalisedShape(GeneratedDocumentShape shape) {
    shape.keys = std::max(shape.keys, 1);
    shape.valueColumns = std::max(shape.valueColumns, 1);
    shape.rows = std::max(shape.rows, 1);
    shape.gridHeaders = std::max(shape.gridHeaders, 1);
    shape.customUnits = std::max(shape.customUnits, 0);
    shape.depth = std::clamp(shape.depth, 1, kMaxGeneratedDepth);
    shape.invalidEvery = std::max(shape.invalidEvery, 0);
    shape.hostCheckedEvery = std::max(shape.hostCheckedEvery, 0);
    return shape;
}

std::string GenerateDocument(const GeneratedDocumentShape& requested) {
    const GeneratedDocumentShape shape = NormalisedShape(requested);
    const TreePlan plan = PlanTree(shape);
    const std::vector<CustomUnit> customs = PlanCustomUnits(shape.customUnits);
    const auto layouts = PlanLayouts(shape, customs);

    std::string out;
    out.reserve(static_cast<std::size_t>(shape.keys) *
                    (static_cast<std::size_t>(shape.valueColumns) *
                         (static_cast<std::size_t>(shape.rows) * 90 + 100) +
                     200) +
                static_cast<std::size_t>(shape.gridHeaders * shape.rows) * 200 + 4096);
    out += std::string("<xml MeasurementUnit=\"") + (shape.metric ? "METRIC" : "ENGLISH") + "\">\n";
    AppendCustomUnits(out, customs);
    AppendTree(out, shape, plan);
    out +=
        "  <GridStructure>\n"
        "    <!-- Values are stored in English units; a Metric document shows them\n"
        "         converted and converts edits back. -->\n";
    AppendLayouts(out, shape, layouts);
    AppendValues(out, shape, plan, layouts);
    out += "  </GridStructure>\n</xml>\n";
    return out;
}

int GeneratedTreeNodeCount(const GeneratedDocumentShape& shape) {
    return static_cast<int>(PlanTree(NormalisedShape(shape)).nodes.size());
}

std::vector<int> GeneratedKeyNodeIndices(const GeneratedDocumentShape& shape) {
    std::vector<int> indices = PlanTree(NormalisedShape(shape)).keyNode;
    for (int& index : indices)
        ++index;
    return indices;
}

}  // namespace tabulon

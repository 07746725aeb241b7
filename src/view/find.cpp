#include "view/find.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "support/text.h"
#include "view/control_core.h"
#include "view/go_to_cell.h"
#include "view/grid_fill.h"
#include "view/layout_reading.h"
#include "view/unit_codes.h"
#include "view/unit_display.h"

namespace tabulon {

namespace {

char FoldAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The text looked for, and the test of one shown text against it.
class Needle {
public:
    Needle(std::string_view text, const FindOptions& options)
        : options_(options), text_(options.matchCase ? std::string(text) : Folded(text)) {}

    bool empty() const { return text_.empty(); }

    bool matches(std::string_view shown) const {
        if (shown.size() < text_.size()) return false;
        if (options_.matchCase) {
            return options_.wholeCell ? shown == text_
                                      : shown.find(text_) != std::string_view::npos;
        }
        if (options_.wholeCell) return EqualsIgnoreCase(shown, text_);
        const auto equal = [](char a, char b) { return FoldAscii(a) == b; };
        return std::search(shown.begin(), shown.end(), text_.begin(), text_.end(), equal) !=
               shown.end();
    }

private:
    static std::string Folded(std::string_view text) {
        std::string folded(text);
        for (char& c : folded)
            c = FoldAscii(c);
        return folded;
    }

    FindOptions options_;
    std::string text_;
};

struct CellMatch {
    int row;
    int col;
    std::string text;
};

// A layout the grid fill accepts, with the rules of its rows.
struct ReadLayout {
    Layout layout;
    std::vector<RowInfo> rules;  // index = grid row; [0] unused
};

std::optional<ReadLayout> ReadUsableLayout(const DocumentModel& doc, const std::string& key) {
    std::optional<Layout> layout = FindLayout(doc, key);
    if (!layout) return std::nullopt;
    const auto notElement = [](const xml::Node& n) { return n.type() != xml::NodeType::Element; };
    // The fill refuses a layout with anything but elements among its headers.
    if (std::any_of(layout->columns.begin(), layout->columns.end(), notElement) ||
        std::any_of(layout->rows.begin(), layout->rows.end(), notElement)) {
        return std::nullopt;
    }
    ReadLayout read{std::move(*layout), std::vector<RowInfo>(1)};
    try {
        for (const xml::Node& row : read.layout.rows)
            read.rules.push_back(RowRules(row));
    } catch (const std::exception&) {
        return std::nullopt;
    }
    return read;
}

// Searches the grids of the tree's nodes, one node at a time.
class TreeSearch {
public:
    TreeSearch(ControlCore& core, const Needle& needle)
        : core_(core),
          needle_(needle),
          metric_(MetricDocument(core)),
          numBox_("findUnitNum"),
          dropBox_("findUnitDrop") {
        if (metric_) {
            registrar_ = DisplayPassRegistrar(core);
            numBox_.SetRegistrar(registrar_);
            dropBox_.SetRegistrar(registrar_);
        }
    }

    // The matches of the grid that a node with these keys shows, row by row.
    std::vector<CellMatch> Search(const std::string& headerKey, const std::string& valueKey) {
        std::vector<CellMatch> matches;
        const auto found = layouts_.try_emplace(headerKey);
        if (found.second) found.first->second = ReadUsableLayout(core_.doc, headerKey);
        if (!found.first->second) return matches;
        const ReadLayout& read = *found.first->second;
        const Layout& layout = read.layout;
        for (int c = 0; c < layout.gridCols(); ++c)
            Test(0, c, HeaderCaption(layout.columns[static_cast<std::size_t>(c)]), matches);
        for (int r = 1; r < layout.gridRows(); ++r)
            Test(r, 0, HeaderCaption(layout.rows[static_cast<std::size_t>(r - 1)]), matches);
        if (layout.gridCols() >= 2 && layout.gridRows() >= 2) SearchValues(read, valueKey, matches);
        std::sort(matches.begin(), matches.end(), [](const CellMatch& a, const CellMatch& b) {
            return std::pair(a.row, a.col) < std::pair(b.row, b.col);
        });
        return matches;
    }

    // Drops the layouts read so far, and with them every handle into the document.
    void ForgetLayouts() { layouts_.clear(); }

private:
    void Test(int row, int col, std::string_view shown, std::vector<CellMatch>& matches) const {
        if (needle_.matches(shown)) matches.push_back({row, col, std::string(shown)});
    }

    // The English texts the value columns show, then the Metric pass over them row by
    // row, as the fill and the display pass do.
    void SearchValues(const ReadLayout& read, const std::string& key,
                      std::vector<CellMatch>& matches) {
        const Layout& layout = read.layout;
        const int rows = layout.gridRows();
        const auto columns = static_cast<std::size_t>(layout.gridCols() - 1);
        const std::size_t gridValues = std::min(columns, core_.doc.arrGridValueNodes.size());
        // stored[(r - 1) * gridValues + c - 1]: the stored text behind cell (r, c).
        std::vector<std::optional<std::string_view>> stored(static_cast<std::size_t>(rows - 1) *
                                                            gridValues);
        for (std::size_t c = 0; c < gridValues; ++c) {
            for (const xml::Node& cellValues : MatchingCellValues(core_, c, key)) {
                int r = 1;
                for (xml::Node cell = cellValues.firstChild(); cell && r < rows;
                     cell = cell.nextSibling(), ++r) {
                    stored[static_cast<std::size_t>(r - 1) * gridValues + c] =
                        cell.firstChild().value();
                }
            }
        }
        bool converting = metric_;
        for (int r = 1; r < rows; ++r) {
            const RowInfo& rules = read.rules[static_cast<std::size_t>(r)];
            bool convertRow = false;
            if (converting) {
                try {
                    convertRow = converter().SetRow(rules);
                } catch (const MetricPassFault&) {
                    converting = false;  // the pass ends here: later rows stay as stored
                }
            }
            const bool units = rules.ControlType == EditorKind::UnitNum ||
                               rules.ControlType == EditorKind::UnitDrop;
            for (std::size_t c = 0; c < gridValues; ++c) {
                const std::optional<std::string_view>& value =
                    stored[static_cast<std::size_t>(r - 1) * gridValues + c];
                if (!value) continue;
                if (!units) {
                    Test(r, static_cast<int>(c) + 1, *value, matches);
                    continue;
                }
                std::string text;
                try {
                    text = CellDisplayText(rules, std::string(*value));
                } catch (const std::exception&) {
                    continue;  // the fill fails on this column: nothing to find in it
                }
                if (convertRow && converting) {
                    try {
                        if (const std::optional<std::string> metric = converter().Convert(text))
                            text = *metric;
                    } catch (...) {
                        converting = false;
                    }
                }
                Test(r, static_cast<int>(c) + 1, text, matches);
            }
        }
    }

    MetricTextConverter& converter() {
        if (!converter_) converter_.emplace(core_, *registrar_, numBox_, dropBox_);
        return *converter_;
    }

    ControlCore& core_;
    Needle needle_;
    bool metric_;
    std::shared_ptr<UnitRegistrar> registrar_;
    UnitNumBox numBox_;
    UnitDropBox dropBox_;
    std::optional<MetricTextConverter> converter_;
    std::map<std::string, std::optional<ReadLayout>> layouts_;
};

}  // namespace

// A search made a few tree nodes at a time. Between steps it keeps no handle into
// the document (the layouts read are dropped), only the shown texts it matched, so an
// edit between steps cannot leave it reading a released node.
class TreeFind {
public:
    TreeFind(ControlCore& core, std::string_view text, const FindOptions& options) {
        if (const Needle needle(text, options); !needle.empty()) search_.emplace(core, needle);
    }
    // The search's converter holds on to the boxes beside it.
    TreeFind(const TreeFind&) = delete;
    TreeFind& operator=(const TreeFind&) = delete;

    // Searches up to nodes more tree nodes, adding their hits; true once every node is.
    bool Continue(ControlCore& core, int nodes, std::vector<FindHit>& hits) {
        if (!search_) return true;
        const DocumentModel& doc = core.doc;
        const int last = std::min(doc.treeRecordCount(), core.form.treTreeView.count());
        const TreeRecords& records = doc.udtTreeNodes;
        for (; next_ <= last && nodes > 0; ++next_, --nodes) {
            const auto i = static_cast<std::size_t>(next_ - 1);
            std::pair<std::string, std::string> shown(records.text(i, TreeField::GridHeaderKey),
                                                      records.text(i, TreeField::GridValueKey));
            // Nodes that show the same layout and key show the same grid.
            auto grid = searched_.find(shown);
            if (grid == searched_.end()) {
                std::vector<CellMatch> matches = search_->Search(shown.first, shown.second);
                grid = searched_.emplace(std::move(shown), std::move(matches)).first;
            }
            for (const CellMatch& match : grid->second) {
                hits.push_back({next_, std::string(records.text(i, TreeField::KeyValue)), match.row,
                                match.col, match.text});
            }
        }
        search_->ForgetLayouts();
        return next_ > last;
    }

private:
    std::optional<TreeSearch> search_;  // none for an empty text: it finds nothing
    std::map<std::pair<std::string, std::string>, std::vector<CellMatch>> searched_;
    int next_ = 1;
};

std::vector<FindHit> FindInTree(ControlCore& core, std::string_view text,
                                const FindOptions& options) {
    std::vector<FindHit> hits;
    TreeFind(core, text, options).Continue(core, std::numeric_limits<int>::max(), hits);
    return hits;
}

void StartFind(ControlCore& core, std::string_view text, const FindOptions& options) {
    DropFind(core);
    core.find.pending = std::make_shared<TreeFind>(core, text, options);
}

bool ContinueFind(ControlCore& core, int nodes) {
    FindState& find = core.find;
    if (!find.pending) return true;
    if (find.pending->Continue(core, std::max(nodes, 0), find.hits)) find.pending.reset();
    return !find.pending;
}

void DropFind(ControlCore& core) {
    core.find.hits.clear();
    core.find.current = -1;
    core.find.pending.reset();
}

int RunFind(ControlCore& core, std::string_view text, const FindOptions& options) {
    StartFind(core, text, options);
    ContinueFind(core, std::numeric_limits<int>::max());
    return static_cast<int>(core.find.hits.size());
}

bool GoToFindHit(ControlCore& core, int index) {
    FindState& find = core.find;
    if (index < 0 || index >= static_cast<int>(find.hits.size())) return false;
    find.current = index;
    const FindHit& hit = find.hits[static_cast<std::size_t>(index)];
    return GoToCell(core, hit.node, std::max(hit.row, 1), std::max(hit.col, 1));
}

bool StepFindHit(ControlCore& core, bool forward) {
    const int count = static_cast<int>(core.find.hits.size());
    if (count == 0) return false;
    const int current = core.find.current;
    int next = forward ? current + 1 : current - 1;
    if (current < 0) next = forward ? 0 : count - 1;
    if (!FindStepKnown(core, forward)) return false;
    return GoToFindHit(core, (next + count) % count);
}

bool FindStepKnown(const ControlCore& core, bool forward) {
    // While searching, the hit after the last one found (or before the first) is not
    // known yet: no wrapping round.
    const int current = core.find.current;
    const int found = static_cast<int>(core.find.hits.size());
    return !core.find.pending || (forward ? current + 1 < found : current > 0);
}

}  // namespace tabulon

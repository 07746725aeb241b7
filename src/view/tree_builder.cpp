// Building the category tree.
//
// Decisions:
// - The tree walk reads every child node, as the document model lists them. A child
//   that is not an element (a comment or processing instruction inside TreeStructure
//   or a node) has no attribute list: ReadTreeNode treats that as a run-time failure
//   (1024), so the tree is not built and the load fails.
// - udtCurrentNode is not touched here between loads either: the first node of a new
//   document inherits the optional attributes of the last node of the previous one.
// - Pictures are read through the image list's loader, so a front end that installs a
//   decoding loader gets decoded pictures without this code knowing.
// - Each file is read once per load, however many spellings of its path the document
//   uses ("a.png", "./a.png", "x/../a.png" name one file: same device and inode): the
//   other spellings still get positions of their own, as the rules say, holding the
//   same picture. The image list caps the bytes held (image_list.h); a picture beyond
//   that cap, like one that cannot be read, is a failure of the image loading (1026).
// - Paths are found by hashing, not by a search of the lists, so 100,000 nodes with
//   pictures (found or missing) cost time in proportion (missing_pictures.h).
#include "view/tree_builder.h"

#include <limits>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "support/failure.h"
#include "support/numeric.h"
#include "view/missing_pictures.h"

namespace tabulon {

namespace {

constexpr std::string_view kMissingImagesHeader =
    "There are following images not found in defined location:";

// The 1-based position of path among the paths loaded, or -1, with the search's own
// rules: positions are 16-bit, and one beyond is a failure of the search (1036).
std::int16_t PathPosition(MessageSink& sink,
                          const std::unordered_map<std::string, std::size_t>& positions,
                          const std::string& path) {
    const auto found = positions.find(path);
    if (found == positions.end()) return -1;
    if (found->second > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max())) {
        ReportUnexpectedError(sink, "1036");
        return -1;
    }
    return static_cast<std::int16_t>(found->second);
}

// The nodes below root, at any depth: the tree records to make room for.
std::size_t CountDescendants(xml::Node root) {
    std::size_t count = 0;
    xml::Node at = root.firstChild();
    while (at) {
        ++count;
        if (const xml::Node child = at.firstChild()) {
            at = child;
            continue;
        }
        while (!at.nextSibling()) {
            at = at.parent();
            if (at == root) return count;
        }
        at = at.nextSibling();
    }
    return count;
}

void StoreAttribute(TreeNodeInfo& node, std::string_view name, std::string_view value) {
    if (name == "Name") {
        node.Name = value;
    } else if (name == "KeyValue") {
        node.KeyValue = value;
    } else if (name == "ImageName") {
        node.ImageName = value;
    } else if (name == "GridHeaderKey") {
        node.GridHeaderKey = value;
    } else if (name == "GridValueKey") {
        node.GridValueKey = value;
    } else if (name == "FilterCaption") {
        node.FilterCaption = value;
    } else if (name == "FilterProperty") {
        node.FilterProperty = value;
    } else if (name == "Filter") {
        node.Filter = ReadInt16(value);
    }
}

// One level deeper or back up; the depth is a 16-bit counter.
void StepLevel(DocumentModel& doc, int delta) {
    doc.intTreeLevel = ToInt16(static_cast<double>(doc.intTreeLevel) + delta);
}

}  // namespace

bool BuildTree(ControlCore& core, xml::Node treeStructure) {
    DocumentModel& doc = core.doc;
    doc.udtTreeNodes.clear();
    doc.udtTreeNodes.reserve(CountDescendants(treeStructure) + 1);  // one allocation
    doc.udtTreeNodes.push_back(TreeNodeInfo{});
    doc.intTreeLevel = 0;
    for (xml::Node pnode = treeStructure.firstChild(); pnode; pnode = pnode.nextSibling()) {
        if (!ReadTreeNode(core, pnode)) return false;
        if (pnode.firstChild()) {
            StepLevel(doc, 1);
            if (!ReadChildNodes(core, pnode)) return false;
        }
    }
    if (!LoadTreeImages(core)) return false;
    doc.udtTreeNodes.trim();
    return FillTreeView(core);
}

bool ReadTreeNode(ControlCore& core, xml::Node element) {
    return Guarded(core.sink, "1024", [&] {
        if (element.type() != xml::NodeType::Element) {
            throw RuntimeFailure("Object variable not set");
        }
        DocumentModel& doc = core.doc;
        TreeNodeInfo& current = doc.udtCurrentNode;
        const std::size_t count = element.attributeCount();
        for (std::size_t i = 0; i < count; ++i) {
            const xml::Attribute attribute = element.attribute(i);
            StoreAttribute(current, attribute.name(), attribute.value());
        }
        current.Level = doc.intTreeLevel;
        if (current.GridHeaderKey.empty()) current.GridValueKey.clear();
        doc.udtTreeNodes.set(doc.udtTreeNodes.size() - 1, current);
        doc.udtTreeNodes.push_back(TreeNodeInfo{});
        return true;
    });
}

bool ReadChildNodes(ControlCore& core, xml::Node parent) {
    const bool ok = Guarded(core.sink, "1023", [&] {
        for (xml::Node child = parent.firstChild(); child; child = child.nextSibling()) {
            if (!ReadTreeNode(core, child)) return false;
            if (child.firstChild()) {
                StepLevel(core.doc, 1);
                if (!ReadChildNodes(core, child)) return false;
            }
        }
        return true;
    });
    // Raised once before the descent, lowered once when it returns, however it ended.
    StepLevel(core.doc, -1);
    return ok;
}

bool LoadTreeImages(ControlCore& core) {
    return Guarded(core.sink, "1026", [&] {
        DocumentModel& doc = core.doc;
        ImageList& images = core.form.ilsTreeView;
        // The paths loaded so far, with the position of each (the first one of a path
        // listed twice, as a search of the list finds it).
        std::vector<std::string> loaded;
        std::unordered_map<std::string, std::size_t> positions;
        // The picture of each file already read, under any spelling of its path.
        std::unordered_map<FileIdentity, int, FileIdentityHash> files;
        MissingPictures missing;
        TreeRecords& records = doc.udtTreeNodes;
        const auto count = static_cast<std::size_t>(doc.treeRecordCount());
        for (std::size_t i = 0; i < count; ++i) {
            const std::string path(records.text(i, TreeField::ImageName));
            if (path.empty()) continue;
            const std::int16_t position = PathPosition(core.sink, positions, path);
            if (position >= 1) {
                records.setText(i, TreeField::ImageName, std::to_string(position));
                continue;
            }
            const std::optional<FileIdentity> file = RegularFileIdentity(path);
            if (!file) {
                records.setText(i, TreeField::ImageName, "");
                missing.Add(path);
                continue;
            }
            loaded.push_back(path);
            positions.emplace(path, loaded.size());
            // Positions count from 1 again on every load; earlier entries are
            // replaced, later ones stay.
            const int index = static_cast<int>(loaded.size());
            const auto known = files.find(*file);
            if (known != files.end()) {
                Picture shared = images.picture(known->second);
                shared.path = path;
                images.set(index, std::move(shared));
            } else {
                images.set(index, images.loader()(path));
                files.emplace(*file, index);
            }
            records.setText(i, TreeField::ImageName, std::to_string(index));
            doc.blnTreeImages = true;
        }
        if (!missing.text().empty()) {
            core.sink.Information(std::string(kMissingImagesHeader) + "\r\n" + missing.text());
        }
        return true;
    });
}

bool FillTreeView(ControlCore& core) {
    return Guarded(core.sink, "1025", [&] {
        DocumentModel& doc = core.doc;
        TreeView& tree = core.form.treTreeView;
        if (doc.blnTreeImages) tree.setImageList(&core.form.ilsTreeView);
        tree.clear();
        const TreeRecords& records = doc.udtTreeNodes;
        const auto count = static_cast<std::size_t>(doc.treeRecordCount());
        std::size_t textBytes = 0;
        for (std::size_t i = 0; i < count; ++i) {
            textBytes += TextPool::Footprint(records.text(i, TreeField::KeyValue)) +
                         TextPool::Footprint(records.text(i, TreeField::Name));
        }
        tree.reserve(doc.treeRecordCount(), textBytes);
        // The key of the node added last at each depth, indexed by depth + 1.
        std::vector<std::optional<std::string>> lastKeyAt;
        std::string key;
        std::string name;
        for (std::size_t i = 0; i < count; ++i) {
            const std::string_view imageName = records.text(i, TreeField::ImageName);
            const int image = imageName.empty() ? 0 : ReadInt32(imageName);
            const std::int16_t recordLevel = records.level(i);
            key = records.text(i, TreeField::KeyValue);
            name = records.text(i, TreeField::Name);
            if (recordLevel == 0) {
                tree.add("", key, name, image);
            } else {
                const auto level = static_cast<std::size_t>(recordLevel);
                if (recordLevel < 0 || level >= lastKeyAt.size() || !lastKeyAt[level]) {
                    throw InvalidArgumentFailure("Invalid procedure call or argument");
                }
                tree.add(*lastKeyAt[level], key, name, image);
            }
            const auto slot = static_cast<std::size_t>(recordLevel) + 1;
            if (lastKeyAt.size() <= slot) lastKeyAt.resize(slot + 1);
            lastKeyAt[slot] = key;
        }
        if (tree.count() >= 2) tree.setExpanded(1, true);
        return true;
    });
}

}  // namespace tabulon

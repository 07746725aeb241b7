// The tree records of a load. A record is read as a TreeNodeInfo and kept packed: its
// texts in one pool, a field equal to the previous record's (as inherited attributes
// are) shared with it, so a record costs some 60 bytes besides its own texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/text_pool.h"

namespace tabulon {

// One tree node as read from a Pnode/Cnode.
struct TreeNodeInfo {
    std::string Name;
    std::string KeyValue;
    std::string ImageName;  // after image loading: the 1-based image index as text, or ""
    std::string GridHeaderKey;
    std::string GridValueKey;
    std::int16_t Filter = 0;
    std::string FilterCaption;
    std::string FilterProperty;
    std::int16_t Level = 0;
};

// The text fields of a record.
enum class TreeField {
    Name,
    KeyValue,
    ImageName,
    GridHeaderKey,
    GridValueKey,
    FilterCaption,
    FilterProperty,
};

class TreeRecords {
public:
    std::size_t size() const { return records_.size(); }
    bool empty() const { return records_.empty(); }
    // A copy of record i (0-based; the caller keeps i in range).
    TreeNodeInfo operator[](std::size_t i) const;
    std::string_view text(std::size_t i, TreeField field) const {
        return texts_.view(records_[i].texts[Slot(field)]);
    }
    std::int16_t level(std::size_t i) const { return records_[i].Level; }

    void push_back(const TreeNodeInfo& record);
    // Replaces record i. The texts it held stay in the pool until clear.
    void set(std::size_t i, const TreeNodeInfo& record);
    void setText(std::size_t i, TreeField field, std::string_view value);
    // Room for count records, so that adding that many allocates once.
    void reserve(std::size_t count) { records_.reserve(count); }
    // Gives back the room held beyond the texts, once the records are complete.
    void trim() { texts_.trim(); }
    // Drops every record and the memory they held.
    void clear();

private:
    static constexpr std::size_t kFields = 7;
    struct Packed {
        TextRef texts[kFields] = {};
        std::int16_t Filter = 0;
        std::int16_t Level = 0;
    };
    static std::size_t Slot(TreeField field) { return static_cast<std::size_t>(field); }

    std::vector<Packed> records_;
    TextPool texts_;
};

}  // namespace tabulon

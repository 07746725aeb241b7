#include "document/lookups.h"

#include "support/failure.h"
#include "support/numeric.h"
#include "support/text.h"

namespace tabulon {

namespace {

constexpr int kCustomUnitColumns = static_cast<int>(std::tuple_size_v<CustomUnitRow>);

// Positions are 16-bit: a table longer than that is a failure of the search itself.
std::int16_t Position(std::size_t index) {
    return ToInt16(static_cast<double>(index));
}

}  // namespace

std::int16_t FindItemIndex(MessageSink& sink, const std::vector<std::string>& items,
                           std::string_view value) {
    std::int16_t result = -1;
    Guarded(sink, "1036", [&] {
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (items[i] == value) {
                result = Position(i + 1);
                return;
            }
        }
    });
    return result;
}

std::int16_t FindArrayIndex(MessageSink& sink, const std::vector<CustomUnitRow>& table,
                            std::string_view value, int column) {
    std::int16_t result = -1;
    Guarded(sink, "1038", [&] {
        if (column >= kCustomUnitColumns) return;
        // Negative columns address no column of the table.
        if (column < 0) throw InvalidArgumentFailure("Subscript out of range");
        for (std::size_t row = 0; row < table.size(); ++row) {
            if (table[row][static_cast<std::size_t>(column)] == value) {
                result = Position(row);
                return;
            }
        }
    });
    return result;
}

std::int16_t FindArrayIndex(MessageSink& sink, const std::vector<std::string>& table,
                            std::string_view value) {
    std::int16_t result = -1;
    Guarded(sink, "1038", [&] {
        for (std::size_t row = 0; row < table.size(); ++row) {
            if (table[row] == value) {
                result = Position(row);
                return;
            }
        }
    });
    return result;
}

std::string GetAttributeValue(MessageSink& sink, xml::Node element, std::string_view name) {
    std::string result;
    Guarded(sink, "1039", [&] {
        // Only elements carry an attribute list; asking any other node (or none) for
        // one is the same failure as on the platform's DOM.
        if (element.type() != xml::NodeType::Element) {
            throw RuntimeFailure("Object variable or With block variable not set");
        }
        if (const xml::Attribute attribute = element.attribute(name)) {
            result = Trim(attribute.value());
        }
    });
    return result;
}

}  // namespace tabulon

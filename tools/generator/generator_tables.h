// The rows, custom units and words generated documents are made of (see
// document_generator.h). Tables only: one row per entry, chosen from by the generator.
//
// The four labels (English and Metric of both units) of a UnitDrop row are all
// different, so a unit text in a cell selects the same unit in either system; custom
// unit labels match no built-in label and no other custom label at all.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "document/editor_kind.h"

namespace tabulon::generated {

// One unit a row offers: the conversion name (a built-in name; "" for a UnitNum row
// without a unit), its display format and the range of stored English values.
struct UnitOffer {
    std::string_view name;
    std::string_view format;
    double low = 0;
    double high = 0;
    int decimals = 0;  // of the stored values
};

// What a text cell holds.
enum class TextKind { EquipmentTag, Area, Maker, Note };

struct RowTemplate {
    std::string_view caption;
    EditorKind type = EditorKind::TextBox;
    std::array<UnitOffer, 2> units{};  // UnitNum: one; UnitDrop: two
    std::string_view listValues;       // ComboBox
    int maxLength = 0;                 // TextBox
    TextKind text = TextKind::Note;    // TextBox
    int height = 0;                    // twips; 0 leaves Height out
};

struct CustomUnitTemplate {
    std::string_view english;
    std::string_view metric;
    std::string_view factor;
    std::string_view caption;  // of a row offering it first
    double high = 0;           // stored values lie in 0..high
};

std::span<const RowTemplate> RowTemplates(EditorKind type);
std::span<const CustomUnitTemplate> CustomUnitTemplates();

// The words of text cells, tree node names, column captions and filter tags.
std::span<const std::string_view> EquipmentPrefixes();
std::span<const std::string_view> Directions();
std::span<const std::string_view> Makers();
std::span<const std::string_view> Notes();       // already escaped for XML text
std::span<const std::string_view> LevelNouns();  // tree level 0, 1, 2, ...; the last repeats
std::span<const std::string_view> Services();    // filter tags of value columns
// A layout's name and the tag prefix of its value columns ("AHU" gives "AHU-1" ...).
struct LayoutTemplate {
    std::string_view name;
    std::string_view columnPrefix;
};
std::span<const LayoutTemplate> Layouts();

}  // namespace tabulon::generated

#include "generator/generator_tables.h"

namespace tabulon::generated {

namespace {

constexpr RowTemplate Text(std::string_view caption, int maxLength, TextKind kind, int height = 0) {
    RowTemplate row;
    row.caption = caption;
    row.type = EditorKind::TextBox;
    row.maxLength = maxLength;
    row.text = kind;
    row.height = height;
    return row;
}

constexpr RowTemplate Combo(std::string_view caption, std::string_view listValues, int height = 0) {
    RowTemplate row;
    row.caption = caption;
    row.type = EditorKind::ComboBox;
    row.listValues = listValues;
    row.height = height;
    return row;
}

constexpr RowTemplate Number(std::string_view caption, UnitOffer unit) {
    RowTemplate row;
    row.caption = caption;
    row.type = EditorKind::UnitNum;
    row.units = {unit, UnitOffer{}};
    return row;
}

constexpr RowTemplate Drop(std::string_view caption, UnitOffer first, UnitOffer second,
                           int height = 0) {
    RowTemplate row;
    row.caption = caption;
    row.type = EditorKind::UnitDrop;
    row.units = {first, second};
    row.height = height;
    return row;
}

constexpr std::array kTextRows = {
    Text("Equipment tag", 20, TextKind::EquipmentTag),
    Text("Served area", 40, TextKind::Area),
    Text("Manufacturer", 30, TextKind::Maker),
    Text("Notes", 80, TextKind::Note, 400),
};

constexpr std::array kComboRows = {
    Combo("Cleanliness class", "ISO 5;ISO 6;ISO 7;ISO 8;Unclassified"),
    Combo("Economizer", "None;Dry bulb;Enthalpy;Differential enthalpy"),
    Combo("Fan control", "Constant volume;VAV;VFD", 380),
    Combo("Metered", "Yes;No"),
};

// Offers: conversion name, format, lowest and highest stored value, stored decimals.
constexpr std::array kNumberRows = {
    Number("Floor area", {"SQFT_TO_SQM", "0.0", 100, 200000, 0}),
    Number("Design airflow", {"CFM_TO_LPS", "0", 0, 100000, 0}),
    Number("Supply air temperature", {"F_TO_C", "0.0", 40, 140, 1}),
    Number("External static pressure", {"INWG_TO_PA", "0", 0, 10, 2}),
    Number("Cooling capacity", {"TONS_TO_KW", "0.0", 0, 2000, 1}),
    Number("Fan motor power", {"BHP_TO_KW", "0.00", 0, 500, 2}),
    Number("Air changes per hour", {"", "0", 0, 60, 0}),
};

constexpr std::array kDropRows = {
    Drop("Ceiling height", {"FT_TO_M", "0.00", 7, 30, 1}, {"INCH_TO_MM", "0", 84, 360, 0}),
    Drop("Annual energy", {"KBTU_TO_MJ", "0", 0, 5000000, 0}, {"TONHR_TO_KWH", "0", 0, 1000000, 0},
         420),
    Drop("Peak load", {"BTUHR_TO_W", "0", 0, 5000000, 0}, {"TONS_TO_KW", "0.0", 0, 2000, 1}),
    Drop("Supply pressure", {"PSIG_TO_KPA", "0.0", 0, 150, 1}, {"INWG_TO_PA", "0", 0, 100, 1}),
    Drop("Outdoor airflow", {"CFM_TO_LPS", "0", 0, 50000, 0}, {"CFH_TO_M3H", "0", 0, 3000000, 0}),
    Drop("Condenser water flow", {"GPM_TO_LPS", "0.0", 0, 5000, 1},
         {"GPH_TO_LH", "0", 0, 300000, 0}),
};

constexpr std::array kCustomUnits = {
    CustomUnitTemplate{"gr/lb", "g/kg", "0.142857143", "Moisture limit", 120},
    CustomUnitTemplate{"therm", "GJ", "0.105505585", "Gas use", 100000},
    CustomUnitTemplate{"USD/sq ft", "USD/sq m", "10.7639104", "Finish cost", 500},
    CustomUnitTemplate{"lb/1000 sq ft", "g/sq m", "4.88242764", "Coating weight", 50},
    CustomUnitTemplate{"mil", "um", "25.4", "Film thickness", 100},
    CustomUnitTemplate{"lbf", "N", "4.44822162", "Actuator force", 2000},
    CustomUnitTemplate{"klb/h", "t/h", "0.45359237", "Steam flow", 500},
};

constexpr std::array<std::string_view, 8> kEquipmentPrefixes = {"AHU",  "RTU", "FCU", "CH",
                                                                "CHWP", "CWP", "EF",  "VAV"};
constexpr std::array<std::string_view, 4> kDirections = {"North", "East", "South", "West"};
constexpr std::array<std::string_view, 6> kMakers = {"Northwind Air",    "Calder &amp; Sons",
                                                     "Brightwater HVAC", "Osterfeld",
                                                     "Kestrel Systems",  "Marlow Thermal"};
constexpr std::array<std::string_view, 6> kNotes = {"Verify with site survey",
                                                    "Serves R&amp;D exhaust; keep negative",
                                                    "Replace filters quarterly",
                                                    "Existing unit to remain",
                                                    "Coordinate duct route with structure",
                                                    "Values per submittal rev. B"};
constexpr std::array<std::string_view, 5> kLevelNouns = {"Building", "Floor", "Zone", "Room",
                                                         "Space"};
constexpr std::array<std::string_view, 4> kServices = {"Supply", "Return", "Exhaust", "Outdoor"};
constexpr std::array kLayouts = {
    LayoutTemplate{"AirHandling", "AHU"}, LayoutTemplate{"Chillers", "CH"},
    LayoutTemplate{"Pumps", "CHWP"},      LayoutTemplate{"Zones", "VAV"},
    LayoutTemplate{"Boilers", "B"},       LayoutTemplate{"Fans", "EF"},
};

}  // namespace

std::span<const RowTemplate> RowTemplates(EditorKind type) {
    switch (type) {
        case EditorKind::TextBox:
            return kTextRows;
        case EditorKind::ComboBox:
            return kComboRows;
        case EditorKind::UnitNum:
            return kNumberRows;
        case EditorKind::UnitDrop:
            return kDropRows;
        case EditorKind::None:
            break;
    }
    return {};
}

std::span<const CustomUnitTemplate> CustomUnitTemplates() {
    return kCustomUnits;
}
std::span<const std::string_view> EquipmentPrefixes() {
    return kEquipmentPrefixes;
}
std::span<const std::string_view> Directions() {
    return kDirections;
}
std::span<const std::string_view> Makers() {
    return kMakers;
}
std::span<const std::string_view> Notes() {
    return kNotes;
}
std::span<const std::string_view> LevelNouns() {
    return kLevelNouns;
}
std::span<const std::string_view> Services() {
    return kServices;
}
std::span<const LayoutTemplate> Layouts() {
    return kLayouts;
}

}  // namespace tabulon::generated

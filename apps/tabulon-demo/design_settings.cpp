#include "design_settings.h"

#include "qt/spreadsheet_widget.h"

namespace tabulon::demo {

namespace {

// Keeps every write, the default one included, with the default it came with.
class CapturingBag : public PropertyBag {
public:
    PropertyValue Read(const std::string&, const PropertyValue& defaultValue) override {
        return defaultValue;
    }
    void Write(const std::string& key, const PropertyValue& value,
               const PropertyValue& defaultValue) override {
        if (key.starts_with("GeneralProperty.") || key.starts_with("ButtonProperty.")) {
            written[key] = {value, defaultValue};
        }
    }
    std::map<std::string, std::pair<PropertyValue, PropertyValue>> written;
};

}  // namespace

DesignSettings::Snapshot DesignSettings::Take(SpreadsheetWidget& control) {
    CapturingBag bag;
    control.saveSettings(bag);
    return std::move(bag.written);
}

void DesignSettings::pageOpened(SpreadsheetWidget& control) {
    atOpen_ = Take(control);
}

std::vector<std::string> DesignSettings::recordChanged(SpreadsheetWidget& control) {
    Snapshot now = Take(control);
    std::vector<std::string> written;
    for (const auto& [key, entry] : now) {
        const auto before = atOpen_.find(key);
        if (before != atOpen_.end() && before->second.first == entry.first) continue;
        store_.Write(key, entry.first, entry.second);
        written.push_back(key);
    }
    atOpen_ = std::move(now);
    return written;
}

}  // namespace tabulon::demo

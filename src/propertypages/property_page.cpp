#include "propertypages/property_page.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/caption_component.h"
#include "subcontrols/numeric_text_box.h"
#include "support/failure.h"

namespace tabulon {

namespace {

// The part of a control that takes the keyboard focus.
Component* FocusPartOf(Component& component) {
    if (auto* numeric = dynamic_cast<ctlNumericTextBox*>(&component)) return &numeric->textBox();
    if (dynamic_cast<CaptionComponent*>(&component) != nullptr) return nullptr;
    return &component;
}

}  // namespace

std::string PropertyPageErrorText(std::string_view code) {
    return "Property page error - " + std::string(code);
}

PropertyPage::PropertyPage(std::string name, std::string caption, MessageSink& sink,
                           std::int32_t width, std::int32_t height)
    : name_(std::move(name)),
      caption_(std::move(caption)),
      sink_(sink),
      width_(width),
      height_(height) {}

void PropertyPage::SelectControls(std::vector<Generic_SP_Control*> controls) {
    if (std::find(controls.begin(), controls.end(), nullptr) != controls.end()) {
        throw std::invalid_argument("SelectControls: null control");
    }
    selected_ = std::move(controls);
    SelectionChanged();
}

void PropertyPage::SelectionChanged() {
    if (!selected_.empty()) OnSelectionChanged();
}

void PropertyPage::ApplyChanges() {
    OnApplyChanges();
}

void PropertyPage::setChanged(bool changed) {
    if (changed == changed_) return;
    changed_ = changed;
    Notify(Change::Content);
}

const PageControl* PropertyPage::findControl(std::string_view name, int index) const {
    for (const PageControl& control : controls_) {
        if (control.component->name() == name && control.index == index) return &control;
    }
    return nullptr;
}

bool PropertyPage::isControlArray(std::string_view name) const {
    return std::any_of(controls_.begin(), controls_.end(), [name](const PageControl& control) {
        return control.index >= 0 && control.component->name() == name;
    });
}

void PropertyPage::AddControls(std::span<Component* const> parts,
                               std::span<const PagePlacement> layout) {
    if (parts.size() != layout.size()) {
        throw std::logic_error(name_ + ": " + std::to_string(parts.size()) + " controls but " +
                               std::to_string(layout.size()) + " placements");
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const PagePlacement& place = layout[i];
        if (parts[i] == nullptr) {
            throw std::logic_error(name_ + ": no control for placement " + std::string(place.name));
        }
        Component& part = *parts[i];
        if (part.name() != place.name) {
            throw std::logic_error(name_ + ": placement " + std::string(place.name) + " given to " +
                                   part.name());
        }
        part.move(place.left, place.top, place.width, place.height);
        Component* focusPart = FocusPartOf(part);
        if (focusPart != nullptr) focusPart->attachFocus(&focus_);
        controls_.push_back({&part, place.index, place.container, focusPart});
    }
}

Generic_SP_Control& PropertyPage::FirstSelected() const {
    if (selected_.empty()) throw RuntimeFailure("No control is selected");
    return *selected_.front();
}

}  // namespace tabulon

#include "qt/model_binding.h"

namespace tabulon {

ModelBinding::ModelBinding(Component& model, QWidget* widget) : model_(model), widget_(widget) {
    observe(model);
}

ModelBinding::~ModelBinding() {
    for (const auto& [observable, token] : subscriptions_)
        observable->Unsubscribe(token);
}

void ModelBinding::observe(Observable& part, Observable::Observer handler) {
    if (!handler) handler = [this](const ChangeInfo& change) { onChange(change); };
    const int token = part.Subscribe(std::move(handler));
    subscriptions_.emplace_back(&part, token);
}

void ModelBinding::refresh() {
    onChange(ChangeInfo{Change::Everything});
}

void ModelBinding::onChange(const ChangeInfo& change) {
    switch (change.kind) {
        case Change::Everything:
            applyGeometry();
            applyState(change);
            break;
        case Change::Geometry:
        case Change::Enabled:
            applyGeometry();
            break;
        case Change::Focus:
            break;
        default:
            applyState(change);
            break;
    }
}

void ModelBinding::applyState(const ChangeInfo& /*change*/) {}

void ModelBinding::placeWidget(const TwipsScale& scale, bool enabled) {
    const Mirroring mirroring(*this);
    const Component& m = model_;
    widget_->setGeometry(scale.toPixels(m.left(), m.top(), m.width(), m.height()));
    widget_->setEnabled(enabled);
}

}  // namespace tabulon

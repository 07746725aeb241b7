#include "qt/model_binding.h"

namespace tabulon {

ModelBinding::ModelBinding(Component& model, QWidget* widget) : model_(model), widget_(widget) {
    observe(model);
}

ModelBinding::~ModelBinding() {
    for (const Subscription& subscription : subscriptions_)
        subscription.part->Unsubscribe(subscription.token);
}

void ModelBinding::observe(Observable& part, Observable::Observer handler) {
    if (!handler) handler = [this](const ChangeInfo& change) { onChange(change); };
    const std::size_t index = subscriptions_.size();
    const int token =
        part.Subscribe([this, index](const ChangeInfo& change) { receive(index, change); });
    subscriptions_.push_back({&part, token, std::move(handler)});
}

void ModelBinding::receive(std::size_t subscription, const ChangeInfo& change) {
    if (!held_) {
        subscriptions_[subscription].handler(change);
        return;
    }
    if (gatheredKeys_.emplace(subscription, change.kind, change.row, change.col).second)
        gathered_.emplace_back(subscription, change);
}

void ModelBinding::refresh() {
    onChange(ChangeInfo{Change::Everything});
}

void ModelBinding::hold() {
    held_ = true;
}

void ModelBinding::release() {
    held_ = false;
    const auto gathered = std::move(gathered_);
    gathered_.clear();
    gatheredKeys_.clear();
    for (const auto& [subscription, change] : gathered)
        subscriptions_[subscription].handler(change);
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
    const Component& m = model_;
    placeWidget(scale.toPixels(m.left(), m.top(), m.width(), m.height()), enabled);
}

void ModelBinding::placeWidget(const QRect& pixels, bool enabled) {
    const Mirroring mirroring(*this);
    widget_->setGeometry(pixels);
    widget_->setEnabled(enabled);
}

}  // namespace tabulon

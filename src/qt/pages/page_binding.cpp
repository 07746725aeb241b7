#include "qt/pages/page_binding.h"

namespace tabulon {

PageBinding::PageBinding(PageBindingHost& host, Component& model, QWidget* widget)
    : ModelBinding(model, widget), host_(host) {}

void PageBinding::applyGeometry() {
    if (widget() == nullptr) return;
    const Mirroring mirroring(*this);
    placeWidget(host_.scale(), shownEnabled());
    widget()->setVisible(model().visible());
}

}  // namespace tabulon

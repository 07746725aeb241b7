#include "platform/caption_component.h"

namespace tabulon {

void CaptionComponent::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    Notify(Change::Content);
}

}  // namespace tabulon

// Components that show only a caption: frames and labels.
#pragma once

#include <string>

#include "platform/component.h"

namespace tabulon {

class CaptionComponent : public Component {
public:
    CaptionComponent(std::string name, std::string caption)
        : Component(std::move(name)), caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);

private:
    std::string caption_;
};

using Frame = CaptionComponent;
using Label = CaptionComponent;

}  // namespace tabulon

#include "qt/bindings/caption_binding.h"

namespace tabulon {

CaptionBinding::CaptionBinding(BindingHost& bindingHost, CaptionComponent& component, Kind kind,
                               QWidget* parent)
    : ComponentBinding(bindingHost, component, MakeCaptionWidget(kind, parent)),
      component_(component),
      kind_(kind) {}

QGroupBox* CaptionBinding::groupBox() const {
    return qobject_cast<QGroupBox*>(widget());
}

QLabel* CaptionBinding::label() const {
    return qobject_cast<QLabel*>(widget());
}

void CaptionBinding::applyState(const ChangeInfo& /*change*/) {
    ShowCaption(*widget(), component_.caption());
}

}  // namespace tabulon

#include "qt/bindings/caption_binding.h"

#include "qt/qt_text.h"

namespace tabulon {

namespace {

QWidget* MakeWidget(CaptionBinding::Kind kind, QWidget* parent) {
    if (kind == CaptionBinding::Kind::GroupBox) return new QGroupBox(parent);
    return new QLabel(parent);
}

}  // namespace

CaptionBinding::CaptionBinding(BindingHost& bindingHost, CaptionComponent& component, Kind kind,
                               QWidget* parent)
    : ComponentBinding(bindingHost, component, MakeWidget(kind, parent)),
      component_(component),
      kind_(kind) {
    widget()->setFocusPolicy(Qt::NoFocus);
    if (QLabel* text = label()) text->setTextFormat(Qt::PlainText);
}

QGroupBox* CaptionBinding::groupBox() const {
    return kind_ == Kind::GroupBox ? static_cast<QGroupBox*>(widget()) : nullptr;
}

QLabel* CaptionBinding::label() const {
    return kind_ == Kind::Text ? static_cast<QLabel*>(widget()) : nullptr;
}

void CaptionBinding::applyState(const ChangeInfo& change) {
    (void)change;
    const QString caption = ToQString(component_.caption());
    if (QGroupBox* frame = groupBox()) frame->setTitle(caption);
    if (QLabel* text = label()) text->setText(caption);
}

}  // namespace tabulon

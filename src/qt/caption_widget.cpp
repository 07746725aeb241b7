#include "qt/caption_widget.h"

#include "qt/qt_text.h"

namespace tabulon {

QWidget* MakeCaptionWidget(CaptionKind kind, QWidget* parent) {
    QWidget* widget = nullptr;
    if (kind == CaptionKind::GroupBox) {
        widget = new QGroupBox(parent);
    } else {
        auto* label = new QLabel(parent);
        label->setTextFormat(Qt::PlainText);
        widget = label;
    }
    widget->setFocusPolicy(Qt::NoFocus);
    return widget;
}

void ShowCaption(QWidget& widget, const std::string& caption) {
    const QString text = ToQString(caption);
    if (auto* frame = qobject_cast<QGroupBox*>(&widget)) frame->setTitle(text);
    if (auto* label = qobject_cast<QLabel*>(&widget)) label->setText(text);
}

}  // namespace tabulon

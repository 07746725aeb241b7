// The Qt widget that shows a caption model (CaptionComponent): a QGroupBox for a frame,
// a QLabel for a label. Shared by the control's bindings and the property pages'.
#pragma once

#include <QGroupBox>
#include <QLabel>
#include <string>

namespace tabulon {

enum class CaptionKind { GroupBox, Text };

// A new caption widget under parent: never takes the focus, and a label shows its text
// as plain text (a caption is data, not markup).
QWidget* MakeCaptionWidget(CaptionKind kind, QWidget* parent);

// The caption into the widget made above: a group box's title or a label's text.
void ShowCaption(QWidget& widget, const std::string& caption);

}  // namespace tabulon

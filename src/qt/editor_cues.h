// EditorCues: what an open cell editor tells about the cell under it, which it
// covers. While an editor is open over a value that needs correcting, the editor is
// framed in the cell's red with the problem mark (problem_mark.h) in its top-left
// corner, and the cell's reason is the editor's tooltip; for every open editor the accessible name
// says which cell it edits ("Capacity, CH-1") and the accessible description gives the cell's unit
// and reason. Painting and texts only: the editors' models are not touched. It must end before the
// control does (it observes the control's models).
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <vector>

#include "control/generic_sp_control.h"

namespace tabulon {

class Component;
class SpreadsheetWidget;

class EditorCues : public QObject {
    Q_OBJECT

public:
    explicit EditorCues(SpreadsheetWidget& widget);
    ~EditorCues() override;

    // The frame and mark over the open editor; hidden when there is none to show.
    QWidget* mark() const { return mark_; }

    // Reads the models again and updates the cues.
    void refresh();

private:
    SpreadsheetWidget& widget_;
    QPointer<QWidget> mark_;
    std::vector<std::pair<Component*, int>> subscriptions_;
    bool refreshQueued_ = false;
};

}  // namespace tabulon

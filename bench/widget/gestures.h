// The gestures a person makes on the grid, written once for any Subject so that the
// control and the stock anchor get the same real Qt events (QTest mouse and keys, a
// QWheelEvent, a window resize), and the runner that times them.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "gesture_clock.h"
#include "grid_contents.h"
#include "subject.h"

namespace tabulon::bench {

// What the gestures need to know of the document, read from the control's first grid.
struct GestureContext {
    GridContents grid;                      // the grid shown first
    int node = 0;                           // the tree node that shows it
    std::map<std::string, int> editorRows;  // "textbox", "combobox", "unitnum", "unitdrop"
    std::vector<int> nodes;                 // tree nodes to click in turn (1-based)
};

// The plan of a gesture on a subject; nothing when the subject cannot make it (the
// stock anchor has no View/Print or OK) or the document offers nothing to make it on.
std::optional<GesturePlan> MakePlan(const std::string& gesture, Subject& subject,
                                    const GestureContext& context);

// Runs warmup + count samples of a plan. The samples after the warm-up are filed by
// kind (the gesture's name unless the plan says otherwise); a step that went wrong,
// or a message box shown during it, ends the run with failure set.
struct GestureRun {
    std::map<std::string, Samples> samples;
    std::string failure;
};
GestureRun RunPlan(const std::string& gesture, const GesturePlan& plan, Subject& subject, int count,
                   int warmup);

}  // namespace tabulon::bench

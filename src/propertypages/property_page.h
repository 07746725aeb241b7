// PropertyPage: the headless model of a design-time property page. Whatever shows the
// page (a dialog of the Qt front end, the session tool, a test) hands it the selected
// controls, forwards the user's gestures to the page's controls and asks it to apply
// its changes; the page reads and writes one settings record of the first selected
// control and says through its changed flag whether there is anything to apply.
//
// Every control of a page is registered with its name, its index in a control array
// and its place (the frame holding it and its geometry in twips), in layout order,
// so that views and tools can find, show and drive them by name. All controls of a
// page share one focus manager; the part of a numeric box that takes the focus is its
// inner text box, so leaving a numeric box runs its lost-focus rule.
//
// Decisions:
// - SelectionChanged with no selected control does nothing: there is no record to
//   read, and the controls keep what they show.
// - ApplyChanges with no selected control validates as usual; writing the record then
//   fails like any other failure of the apply (the page's own error code).
// - The page's font is "Arial" throughout; it is recorded once, as fontName().
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "control/generic_sp_control.h"
#include "platform/component.h"
#include "platform/observable.h"
#include "support/message_sink.h"

namespace tabulon {

// Where one control sits on its page: the frame that holds it ("" for the page
// itself) and its left, top, width and height in twips, relative to that frame.
struct PagePlacement {
    std::string_view name;
    int index;  // position in a control array; -1 when the control is not in one
    std::string_view container;
    std::int32_t left;
    std::int32_t top;
    std::int32_t width;
    std::int32_t height;
};

// One registered control of a page.
struct PageControl {
    Component* component;
    int index;                   // -1 when not in a control array
    std::string_view container;  // "" for the page itself
    Component* focusPart;        // what takes the focus; null for frames and labels
};

// "Property page error - " followed by the code.
std::string PropertyPageErrorText(std::string_view code);

class PropertyPage : public Observable {
public:
    ~PropertyPage() override = default;
    PropertyPage(const PropertyPage&) = delete;
    PropertyPage& operator=(const PropertyPage&) = delete;

    // The page's class name ("ppGeneral") and the caption of its tab ("General").
    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    std::string_view fontName() const { return "Arial"; }
    // The page's own size in twips.
    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }

    // Stores the selected controls (null entries are not allowed) and runs
    // SelectionChanged. Only the first is ever read or written.
    void SelectControls(std::vector<Generic_SP_Control*> controls);
    const std::vector<Generic_SP_Control*>& selectedControls() const { return selected_; }

    // Fills the page from the first selected control; nothing when none is selected.
    // Has no failure handler of its own: a failure reaches the caller.
    void SelectionChanged();
    // Validates the page and writes its record to the first selected control; every
    // message and failure is shown through the page's message sink.
    void ApplyChanges();

    // Whether the page holds edits not yet applied. Observers hear Change::Content
    // whenever the flag flips.
    bool changed() const { return changed_; }
    void setChanged(bool changed);

    // Every control in layout order.
    const std::vector<PageControl>& controls() const { return controls_; }
    // The control with that name and index (-1: not in a control array); null when
    // there is none.
    const PageControl* findControl(std::string_view name, int index = -1) const;
    // True when name is a control array of this page (its elements have indices).
    bool isControlArray(std::string_view name) const;

    FocusManager& focus() { return focus_; }
    MessageSink& sink() { return sink_; }

protected:
    PropertyPage(std::string name, std::string caption, MessageSink& sink, std::int32_t width,
                 std::int32_t height);

    // Registers parts in order, each placed at the row of layout with the same
    // position. A row whose name does not match its part throws std::logic_error.
    void AddControls(std::span<Component* const> parts, std::span<const PagePlacement> layout);

    // The first selected control; throws RuntimeFailure when none is selected.
    Generic_SP_Control& FirstSelected() const;

    // Runs body; any failure inside it shows "Property page error - " + code as a
    // critical message, and the apply ends there.
    template <class Body>
    void Guard(std::string_view code, Body&& body) {
        try {
            body();
        } catch (...) {
            sink_.Critical(PropertyPageErrorText(code));
        }
    }

private:
    virtual void OnSelectionChanged() = 0;
    virtual void OnApplyChanges() = 0;

    std::string name_;
    std::string caption_;
    MessageSink& sink_;
    std::int32_t width_;
    std::int32_t height_;
    std::vector<Generic_SP_Control*> selected_;
    bool changed_ = false;
    std::vector<PageControl> controls_;
    FocusManager focus_;
};

}  // namespace tabulon

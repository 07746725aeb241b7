// Change notification shared by every platform model: a view (the Qt binding, a
// test) subscribes and mirrors the model's state when told it changed.
//
// Also the one helper every model uses to raise its plain-callback notifications
// (EnterCell, Click, Change ...), so that a handler may safely replace or clear the
// very callback that is running.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace tabulon {

// What part of a model changed; views may repaint less for narrow kinds.
enum class Change {
    Everything,  // any state; re-read the whole model
    Geometry,    // visible, left, top, width, height
    Content,     // text, items, captions, values, tree nodes (row = node index or -1)
    Cell,        // one grid cell (row and column given)
    Layout,      // grid structure, sizes of rows/columns
    Scroll,      // grid TopRow / LeftCol
    Current,     // grid current cell or selection, selected tree node, list index
    Selection,   // text box caret and selected text
    Focus,       // focus gained or lost
    Enabled,
    Marks,  // marks drawn over tree nodes (problem counts): row = node index, -1 for many
};

struct ChangeInfo {
    Change kind = Change::Everything;
    int row = -1;
    int col = -1;
};

class Observable {
public:
    using Observer = std::function<void(const ChangeInfo&)>;

    Observable() = default;
    // Observers belong to one model instance: copies start without any.
    Observable(const Observable&) {}
    Observable& operator=(const Observable&) { return *this; }
    virtual ~Observable() = default;

    // Returns a token for Unsubscribe. Observers are called synchronously, in
    // subscription order, after the state has changed. An empty observer is ignored
    // (its token is still valid and unsubscribing it does nothing).
    int Subscribe(Observer observer);
    // Removes the observer; an unknown token does nothing. Safe during a
    // notification: an observer removed while one runs is not called afterwards.
    void Unsubscribe(int token);

protected:
    // Calls the observers present when the notification starts; observers added
    // meanwhile wait for the next one.
    void Notify(Change kind, int row = -1, int col = -1) const;

private:
    std::map<int, std::shared_ptr<const Observer>> observers_;
    int next_ = 1;
};

// Runs a notification callback if one is set. The callback is copied first, so a
// handler may reassign or clear it while it runs.
template <class Signature, class... Args>
void Raise(const std::function<Signature>& callback, Args&&... args) {
    if (!callback) return;
    const std::function<Signature> copy = callback;
    copy(std::forward<Args>(args)...);
}

}  // namespace tabulon

// Change notification shared by every platform model: a view (the Qt binding, a
// test) subscribes and mirrors the model's state when told it changed.
#pragma once

#include <functional>
#include <map>

namespace tabulon {

// What part of a model changed; views may repaint less for narrow kinds.
enum class Change {
    Everything,  // any state; re-read the whole model
    Geometry,    // visible, left, top, width, height
    Content,     // text, items, captions, values
    Cell,        // one grid cell (row and column given)
    Layout,      // grid structure, sizes of rows/columns
    Scroll,      // grid TopRow / LeftCol
    Current,     // grid current cell or selection
    Focus,       // focus gained or lost
    Enabled,
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
    // subscription order, after the state has changed.
    int Subscribe(Observer observer);
    void Unsubscribe(int token);

protected:
    void Notify(Change kind, int row = -1, int col = -1) const;

private:
    std::map<int, Observer> observers_;
    int next_ = 1;
};

}  // namespace tabulon

// The control's own layout: the resize handling, the splitter between tree and grid,
// and the largest tree-view width the General page may offer.
#include <algorithm>
#include <cstdint>
#include <limits>

#include "control/generic_sp_control.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "view/control_core.h"
#include "view/design_geometry.h"
#include "view/filter.h"

namespace tabulon {

namespace {

// The control never gets smaller than it was designed.
constexpr std::int32_t kMinimumWidth = design::kControlWidth;
constexpr std::int32_t kMinimumHeight = design::kControlHeight;
static_assert(Generic_SP_Control::kMinimumWidth == kMinimumWidth &&
                  Generic_SP_Control::kMinimumHeight == kMinimumHeight,
              "the public minimum size is the design size");
constexpr std::int32_t kMinimumTreeWidth = 1500;
// Width the grid keeps when the tree takes all it may.
constexpr std::int32_t kGridReserve = 4950;

thread_local std::int16_t tLargestTreeViewWidth = 0;

std::int16_t Narrow(long long value) {
    return ToInt16(static_cast<double>(value));
}

// Division rounded towards minus infinity.
long long FloorDiv(long long value, long long divisor) {
    const long long quotient = value / divisor;
    return (value % divisor != 0 && (value < 0) != (divisor < 0)) ? quotient - 1 : quotient;
}

}  // namespace

std::int16_t LargestTreeViewWidth() {
    return tLargestTreeViewWidth;
}
void SetLargestTreeViewWidth(std::int16_t width) {
    tLargestTreeViewWidth = width;
}

void Generic_SP_Control::Resize(std::int32_t width, std::int32_t height) {
    Guarded(core_->sink, "1003", [&] {
        Component& control = core_->form.control;
        control.move(control.left(), control.top(), width, height);
        ResizeSteps();
    });
}

void Generic_SP_Control::ResizeHandling() {
    Guarded(core_->sink, "1003", [&] { ResizeSteps(); });
}

void Generic_SP_Control::ResizeSteps() {
    Form& f = core_->form;
    Component& control = f.control;
    if (control.width() < kMinimumWidth) control.setWidth(kMinimumWidth);
    if (control.height() < kMinimumHeight) control.setHeight(kMinimumHeight);
    const std::int16_t width = Narrow(control.width());
    const std::int16_t height = Narrow(control.height());
    const std::int16_t dW = Narrow(width - recordedWidth_);
    const std::int16_t dH = Narrow(height - recordedHeight_);

    const std::array<Component*, 3> tall = {&f.treTreeView, &f.imgSplitter, &f.msgGridView};
    for (Component* c : tall)
        c->setHeight(c->height() + dH);
    const std::array<Button*, 4> buttons = Buttons();
    for (Button* b : buttons)
        b->setTop(b->top() + dH);

    // The tree grows with a third of the extra width and never shrinks while it is
    // 1500 twips wide or less.
    const std::int16_t third = Narrow(FloorDiv(dW, 3));
    if (third >= 1 || f.treTreeView.width() > kMinimumTreeWidth) {
        f.treTreeView.setWidth(f.treTreeView.width() + third);
    }
    PlaceBesideTree();
    // The buttons keep their distance from the right edge.
    for (Button* b : buttons)
        b->setLeft(b->left() + dW);
    PlaceScrollBars();

    recordedWidth_ = width;
    recordedHeight_ = height;
    PublishLargestTreeViewWidth();
}

void Generic_SP_Control::PlaceBesideTree() {
    Form& f = core_->form;
    f.imgSplitter.setLeft(f.treTreeView.left() + f.treTreeView.width() + 30);
    f.fraFilterView.setWidth(f.control.width() - f.imgSplitter.left() - 65);
    f.cboFilter.setWidth(f.fraFilterView.width() - (f.cboFilter.left() + 100));
    f.fraFilterView.setLeft(f.imgSplitter.left() + f.imgSplitter.width() + 20);
    LayoutGridArea(*core_);
    f.msgGridView.setWidth(f.fraFilterView.width());
    f.msgGridView.setLeft(f.fraFilterView.left());
}

void Generic_SP_Control::PlaceScrollBars() {
    Form& f = core_->form;
    const FlexGrid& grid = f.msgGridView;
    f.hscGrid.setTop(grid.top() + grid.height());
    f.hscGrid.setLeft(grid.left() + 50);
    f.hscGrid.setWidth(Narrow(grid.width() - Narrow(340 - f.hscGrid.RightMargin())));
    f.hscGrid.RefresHScrollBar();

    f.vscGrid.setTop(grid.top() + 40);
    f.vscGrid.setLeft(grid.left() + grid.width() - (f.vscGrid.width() + 15));
    f.vscGrid.setHeight(grid.height() - 350);
    f.vscGrid.RefresVScrollBar();
}

void Generic_SP_Control::PublishLargestTreeViewWidth() {
    const Form& f = core_->form;
    SetLargestTreeViewWidth(Narrow(f.msgGridView.width() - kGridReserve + f.treTreeView.width()));
}

void Generic_SP_Control::SplitterDrag(int button, int /*shift*/, std::int32_t x,
                                      std::int32_t /*y*/) {
    if (button != 1) return;
    Guarded(core_->sink, "1003", [&] {
        Form& f = core_->form;
        const long long current = f.treTreeView.width();
        const long long largest = f.msgGridView.width() - kGridReserve + current;
        long long target = std::min(current + x, largest);
        target = std::max<long long>(target, kMinimumTreeWidth);
        f.treTreeView.setWidth(static_cast<std::int32_t>(
            std::min<long long>(target, std::numeric_limits<std::int32_t>::max())));
        PlaceBesideTree();
        PlaceScrollBars();
        PublishLargestTreeViewWidth();
    });
}

}  // namespace tabulon

#include "gestures.h"

#include "edit_gestures.h"
#include "gesture_steps.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWheelEvent>
#include <memory>

namespace tabulon::bench {

namespace {

QStyleOptionSlider SliderOption(const QScrollBar& bar) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.subControls = QStyle::SC_All;
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.sliderPosition = bar.sliderPosition();
    option.sliderValue = bar.value();
    option.singleStep = bar.singleStep();
    option.pageStep = bar.pageStep();
    option.upsideDown = bar.invertedAppearance();
    if (bar.orientation() == Qt::Horizontal) option.state |= QStyle::State_Horizontal;
    return option;
}

QRect BarPart(const QScrollBar& bar, QStyle::SubControl part) {
    const QStyleOptionSlider option = SliderOption(bar);
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, part, &bar);
}

// --- the gestures

GesturePlan ClickCell(Subject& s, const GestureContext& c) {
    std::vector<Cell> cells;
    for (int row = 1; row < std::min(c.grid.rows, 7); ++row) {
        for (int col = 1; col < std::min(c.grid.cols, 5); ++col) {
            if (Enabled(c.grid, row, col)) cells.emplace_back(row, col);
        }
    }
    const auto target = [cells](int i) {
        return cells[static_cast<std::size_t>(i) % cells.size()];
    };
    return {[&s, target](int i) {
                return Expect(!s.cellRect(target(i).first, target(i).second).isEmpty(),
                              "cell " + Where(target(i)) + " is not in view");
            },
            [&s, target](int i) {
                ClickAt(s.cellArea(), s.cellRect(target(i).first, target(i).second).center());
            },
            [&s, target](int i) {
                return Expect(s.currentRow() == target(i).first &&
                                  s.currentCol() == target(i).second && s.editing(),
                              "no editor on the clicked cell " + Where(target(i)));
            },
            {}};
}

// Tab along a row, or Enter down a column, from the first cell to the last; the
// samples that scrolled the grid are filed as "<name>-scroll".
GesturePlan Move(Subject& s, const GestureContext& c, bool columns, const std::string& name) {
    struct State {
        int from = 0;
        int scrolled = 0;
    };
    auto state = std::make_shared<State>();
    const int row = c.editorRows.count("textbox") ? c.editorRows.at("textbox") : 1;
    const Cell start = columns ? EnabledIn(c.grid, row).value_or(Cell{row, 1}) : Cell{1, 1};
    const auto position = [&s, columns] { return columns ? s.currentCol() : s.currentRow(); };
    const auto scroll = [&s, columns] { return columns ? s.leftCol() : s.topRow(); };
    const auto last = [&s, columns] { return (columns ? s.cols() : s.rows()) - 1; };
    GesturePlan plan;
    plan.before = [&s, state, start, position, scroll, last, columns](int i) {
        std::string failure;
        const bool restart = i == 0 || position() >= last() ||
                             QApplication::focusWidget() == nullptr ||
                             !s.window().isAncestorOf(QApplication::focusWidget());
        if (restart) {
            s.scrollHome();
            failure = Open(s, start);
        } else if (!columns && !s.enterMovesDown()) {
            // Enter closed the stock table's editor where it was: open the next one.
            failure = Open(s, {1 + i % std::min(10, last()), start.second});
        }
        state->from = position();
        state->scrolled = scroll();
        return failure;
    };
    plan.act = [columns](int) { KeyToFocus(columns ? Qt::Key_Tab : Qt::Key_Return); };
    plan.after = [&s, state, position, columns](int) {
        if (!columns && !s.enterMovesDown())
            return Expect(!s.editing(), "Enter left the editor open");
        return Expect(position() > state->from, "the current cell did not move");
    };
    plan.kind = [state, scroll, name](int) {
        return scroll() != state->scrolled ? name + "-scroll" : name;
    };
    return plan;
}

// One character typed at the end of a freshly opened editor's text, on two cells of
// a row in turn; each is deleted again before the next, so that the document stays
// valid.
std::optional<GesturePlan> Type(Subject& s, const GestureContext& c, const std::string& kind) {
    const auto row = c.editorRows.find(kind);
    if (row == c.editorRows.end()) return std::nullopt;
    const std::optional<Cell> first = EnabledIn(c.grid, row->second);
    const std::optional<Cell> second =
        first ? EnabledIn(c.grid, row->second, first->second + 1) : std::nullopt;
    if (!second) return std::nullopt;
    const char typed = kind == "textbox" ? 'x' : kind == "combobox" ? 'a' : '5';
    const bool list = kind == "combobox";
    const auto erase = [&s, list] {
        if (!list && s.editing()) KeyToFocus(Qt::Key_Backspace);
    };
    return GesturePlan{[&s, first, second, erase, list](int i) {
                           if (i > 0) erase();
                           std::string failure = Open(s, i % 2 == 0 ? *first : *second);
                           if (failure.empty() && !list) KeyToFocus(Qt::Key_End);
                           Settle();
                           return failure;
                       },
                       [typed](int) { KeyToFocus(Qt::Key_unknown, typed); },
                       [&s](int) { return Expect(s.editing(), "the editor closed on typing"); },
                       {},
                       [erase] {
                           erase();
                           Settle();
                       }};
}

// A value typed into a cell (Retype, not timed), then a click on the next cell: the commit,
// the repaint and the next editor. The cells go round the rows of every editor kind.
GesturePlan Leave(Subject& s, const GestureContext& c) {
    std::vector<Cell> cells;
    for (const char* kind : {"unitnum", "unitdrop", "textbox", "combobox"}) {
        const auto row = c.editorRows.find(kind);
        if (row == c.editorRows.end()) continue;
        if (auto cell = EnabledIn(c.grid, row->second)) cells.push_back(*cell);
    }
    const auto at = [cells](int i) { return cells[static_cast<std::size_t>(i) % cells.size()]; };
    return {[&s, at](int i) {
                std::string failure = Open(s, at(i));
                if (failure.empty()) {
                    Retype();
                    Settle();
                }
                return failure;
            },
            [&s, at](int i) {
                ClickAt(s.cellArea(), s.cellRect(at(i + 1).first, at(i + 1).second).center());
            },
            [&s, at](int i) {
                return Expect(s.currentRow() == at(i + 1).first && s.editing(),
                              "no editor on the next cell " + Where(at(i + 1)));
            },
            {}};
}

std::optional<GesturePlan> NodeClick(Subject& s, const GestureContext& c) {
    if (c.nodes.size() < 2) return std::nullopt;
    const std::vector<int> nodes = c.nodes;
    const auto node = [nodes](int i) { return nodes[static_cast<std::size_t>(i) % nodes.size()]; };
    // The row is looked up before the clock starts: finding it is the bench's work.
    auto row = std::make_shared<QPersistentModelIndex>();
    return GesturePlan{
        [&s, node, row](int i) {
            *row = s.nodeIndex(node(i));
            if (!row->isValid()) return std::string("no tree row");
            s.tree().scrollTo(*row);
            Settle();
            return Expect(s.tree().visualRect(*row).isValid(), "the tree row is not in view");
        },
        [&s, row](int) { ClickAt(*s.tree().viewport(), s.tree().visualRect(*row).center()); },
        [&s, node](int i) {
            return Expect(s.selectedNode() == node(i), "the node was not selected");
        },
        {}};
}

// One click on an arrow: forward to the end of the range, then back.
GesturePlan ScrollStep(Subject& s, Qt::Orientation orientation) {
    struct State {
        int direction = 1;
        int from = 0;
    };
    auto state = std::make_shared<State>();
    const auto position = [&s, orientation] {
        return orientation == Qt::Vertical ? s.topRow() : s.leftCol();
    };
    return {[&s, state, orientation, position](int) {
                if (!s.canScroll(orientation, state->direction))
                    state->direction = -state->direction;
                state->from = position();
                return Expect(s.scrollBar(orientation).isVisible() &&
                                  s.canScroll(orientation, state->direction),
                              "the grid has nowhere to scroll");
            },
            [&s, state, orientation](int) {
                QScrollBar& bar = s.scrollBar(orientation);
                ClickAt(bar, BarPart(bar, state->direction > 0 ? QStyle::SC_ScrollBarAddLine
                                                               : QStyle::SC_ScrollBarSubLine)
                                 .center());
            },
            [state, position](int) {
                return Expect((position() - state->from) * state->direction > 0,
                              "the grid did not scroll");
            },
            {}};
}

// The thumb pressed, dragged over the whole groove in kSteps moves and released,
// then the same way back; each press, move and release is one sample.
std::optional<GesturePlan> ThumbDrag(Subject& s, Qt::Orientation orientation) {
    constexpr int kSteps = 24;
    QScrollBar& bar = s.scrollBar(orientation);
    struct State {
        QPoint start, end;
        std::optional<QPoint> held;  // where the button is held down
    };
    auto state = std::make_shared<State>();
    const auto along = [orientation](const QPoint& p) {
        return orientation == Qt::Vertical ? p.y() : p.x();
    };
    return GesturePlan{
        [&s, &bar, state, orientation](int i) {
            if (i % (kSteps + 2) != 0) return std::string();
            if (bar.maximum() <= bar.minimum() || !bar.isVisible())
                return std::string("the scroll bar has no range");
            const QRect groove = BarPart(bar, QStyle::SC_ScrollBarGroove);
            const QRect handle = BarPart(bar, QStyle::SC_ScrollBarSlider);
            const bool forward = bar.value() <= bar.minimum();
            state->start = handle.center();
            state->end = state->start;
            if (orientation == Qt::Vertical) {
                state->end.setY(forward ? groove.bottom() + handle.height()
                                        : groove.top() - handle.height());
            } else {
                state->end.setX(forward ? groove.right() + handle.width()
                                        : groove.left() - handle.width());
            }
            (void)s;
            return std::string();
        },
        [&bar, state](int i) {
            const int phase = i % (kSteps + 2);
            if (phase == 0) {
                QTest::mousePress(&bar, Qt::LeftButton, Qt::NoModifier, state->start);
                state->held = state->start;
            } else if (phase <= kSteps) {
                state->held = state->start + (state->end - state->start) * phase / kSteps;
                QTest::mouseMove(&bar, *state->held);
            } else {
                QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, state->end);
                state->held.reset();
            }
        },
        [&bar, state, along](int i) {
            if (i % (kSteps + 2) != kSteps + 1) return std::string();
            const bool forward = along(state->end) > along(state->start);
            return Expect(bar.value() == (forward ? bar.maximum() : bar.minimum()),
                          "the drag did not reach the end of the range");
        },
        {},
        // The samples may end during a drag: the button goes up where it is.
        [&bar, state] {
            if (state->held)
                QTest::mouseRelease(&bar, Qt::LeftButton, Qt::NoModifier, *state->held);
            Settle();
        }};
}

GesturePlan Wheel(Subject& s) {
    struct State {
        int direction = 1;
        int from = 0;
    };
    auto state = std::make_shared<State>();
    return {[&s, state](int) {
                if (!s.canScroll(Qt::Vertical, state->direction))
                    state->direction = -state->direction;
                state->from = s.topRow();
                return Expect(s.canScroll(Qt::Vertical, state->direction), "nothing to scroll");
            },
            [&s, state](int) {
                QWidget& area = s.cellArea();
                const QPointF centre = QRectF(area.rect()).center();
                QWheelEvent wheel(centre, area.mapToGlobal(centre), QPoint(),
                                  QPoint(0, -120 * state->direction), Qt::NoButton, Qt::NoModifier,
                                  Qt::NoScrollPhase, false);
                QApplication::sendEvent(&area, &wheel);
            },
            [&s, state](int) {
                return Expect((s.topRow() - state->from) * state->direction > 0,
                              "the wheel did not scroll");
            },
            {}};
}

GesturePlan Resize(Subject& s) {
    auto width = std::make_shared<int>(0);
    return {[&s, width](int i) {
                *width = s.window().width() + (i % 2 == 0 ? 100 : -100);
                return std::string();
            },
            [&s, width](int) { s.window().resize(*width, s.window().height()); },
            [&s, width](int) {
                return Expect(s.window().width() == *width, "the window kept its size");
            },
            {}};
}

// Press on the right border of column 2's header, three moves of 10 pixels, release;
// wider, then narrower again. Each event is one sample.
GesturePlan BorderDrag(Subject& s) {
    constexpr int kCol = 2;
    constexpr int kPhases = 5;
    struct State {
        QPoint start;
        int width = 0;
        int step = 10;
        std::optional<QPoint> held;  // where the button is held down
    };
    auto state = std::make_shared<State>();
    return {[&s, state](int i) {
                if (i % kPhases != 0) return std::string();
                state->start = s.columnBorder(kCol);
                state->width = s.columnWidth(kCol);
                state->step = (i / kPhases) % 2 == 0 ? 10 : -10;
                return Expect(state->width > 40, "column 2 is not in view");
            },
            [&s, state](int i) {
                const int phase = i % kPhases;
                QWidget& area = s.borderArea();
                const QPoint at = state->start + QPoint(state->step * std::min(phase, 3), 0);
                if (phase == 0) {
                    QTest::mousePress(&area, Qt::LeftButton, Qt::NoModifier, at);
                } else if (phase < kPhases - 1) {
                    QTest::mouseMove(&area, at);
                } else {
                    QTest::mouseRelease(&area, Qt::LeftButton, Qt::NoModifier, at);
                }
                state->held = phase < kPhases - 1 ? std::optional<QPoint>(at) : std::nullopt;
            },
            [&s, state](int i) {
                if (i % kPhases != kPhases - 1) return std::string();
                return Expect(std::abs(s.columnWidth(kCol) - state->width - 3 * state->step) <= 2,
                              "the column did not take the dragged width (" +
                                  std::to_string(state->width) + " -> " +
                                  std::to_string(s.columnWidth(kCol)) + ")");
            },
            {},
            // The samples may end during a drag: the button goes up where it is (a
            // press left held would make the next click's release end the drag).
            [&s, state] {
                if (state->held) {
                    QTest::mouseRelease(&s.borderArea(), Qt::LeftButton, Qt::NoModifier,
                                        *state->held);
                }
                Settle();
            }};
}

// The popup opened and the pointer on the entry (not timed), then Enter chooses it.
std::optional<GesturePlan> Filter(Subject& s) {
    QComboBox& combo = s.filter();
    if (combo.count() < 3 || !combo.isVisible()) return std::nullopt;
    const auto entry = [&combo](int i) {
        return (combo.currentIndex() + 1 + i % 2) % combo.count();
    };
    auto target = std::make_shared<int>(0);
    return GesturePlan{[&combo, entry, target](int i) {
                           *target = entry(i);
                           ClickAt(combo, combo.rect().center());
                           Settle();
                           QAbstractItemView* view = combo.view();
                           if (!view->isVisible()) return std::string("the drop-down did not open");
                           const QModelIndex index = view->model()->index(*target, 0);
                           QTest::mouseMove(view->viewport(), view->visualRect(index).center());
                           if (view->currentIndex() != index) view->setCurrentIndex(index);
                           Settle();
                           return std::string();
                       },
                       [&combo](int) { QTest::keyClick(combo.view(), Qt::Key_Return); },
                       [&combo, target](int) {
                           return Expect(
                               combo.currentIndex() == *target && !combo.view()->isVisible(),
                               "the entry was not chosen");
                       },
                       {}};
}

std::optional<GesturePlan> Button(Subject& s, bool print) {
    QPushButton* button = print ? s.printButton() : s.okButton();
    if (button == nullptr) return std::nullopt;
    auto before = std::make_shared<int>(0);
    const auto count = [&s, print] { return print ? s.printClicks() : s.okClicks(); };
    return GesturePlan{[before, count](int) {
                           *before = count();
                           return std::string();
                       },
                       [button](int) { ClickAt(*button, button->rect().center()); },
                       [before, count](int) {
                           return Expect(count() == *before + 1, "the button raised no event");
                       },
                       {}};
}

}  // namespace

std::optional<GesturePlan> MakePlan(const std::string& gesture, Subject& s,
                                    const GestureContext& c) {
    if (gesture == "click-cell") return ClickCell(s, c);
    if (gesture == "tab") return Move(s, c, true, "tab");
    if (gesture == "enter") return Move(s, c, false, "enter");
    if (gesture.rfind("type-", 0) == 0) return Type(s, c, gesture.substr(5));
    if (gesture.rfind("leave-", 0) == 0) return Leave(s, c);
    if (gesture == "node-click") return NodeClick(s, c);
    if (gesture == "settle") return GesturePlan{{}, [](int) {}, {}, {}};
    if (gesture == "vscroll-step") return ScrollStep(s, Qt::Vertical);
    if (gesture == "hscroll-step") return ScrollStep(s, Qt::Horizontal);
    if (gesture == "thumb-drag") return ThumbDrag(s, Qt::Vertical);
    if (gesture == "hthumb-drag") return ThumbDrag(s, Qt::Horizontal);
    if (gesture == "wheel") return Wheel(s);
    if (gesture == "resize") return Resize(s);
    if (gesture == "border-drag") return BorderDrag(s);
    if (gesture == "filter") return Filter(s);
    if (gesture == "print") return Button(s, true);
    if (gesture == "ok") return Button(s, false);
    return MakeEditPlan(gesture, s, c);
}

GestureRun RunPlan(const std::string& gesture, const GesturePlan& plan, Subject& subject, int count,
                   int warmup) {
    GestureRun run;
    for (int i = 0; i < warmup + count; ++i) {
        const std::string failure = plan.before ? plan.before(i) : std::string();
        if (!failure.empty()) {
            run.failure = "before sample " + std::to_string(i) + ": " + failure;
            return run;
        }
        const int messages = subject.messages();
        GestureTime time;
        GestureTime later;
        if (plan.answered) {
            const AnsweredTime answered = TimeAnswer([&] { plan.act(i); }, plan.answered);
            time = answered.answer;
            later = answered.longestRound;
        } else {
            time = TimeGesture([&] { plan.act(i); });
        }
        std::string wrong;
        if (subject.messages() != messages && !plan.tells) {
            wrong = "a message box: " + subject.lastMessage().toStdString();
        } else if (plan.after) {
            wrong = plan.after(i);
        }
        if (!wrong.empty()) {
            run.failure = "sample " + std::to_string(i) + ": " + wrong;
            return run;
        }
        if (i >= warmup) {
            run.samples[plan.kind ? plan.kind(i) : gesture].add(time);
            if (plan.answered) run.samples[gesture + "-later"].add(later);
        }
    }
    if (plan.finish) plan.finish();
    return run;
}

}  // namespace tabulon::bench

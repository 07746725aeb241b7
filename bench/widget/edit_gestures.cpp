#include "edit_gestures.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <memory>
#include <tuple>

#include "control_subject.h"
#include "gesture_steps.h"
#include "qt/qt_text.h"
#include "support/cell_table_text.h"

namespace tabulon::bench {

namespace {

constexpr int kPasteRows = 50;
constexpr int kPasteCols = 20;

void Chord(Qt::Key key) {
    KeyToFocus(key, 0, Qt::ControlModifier);
}

std::optional<Cell> TextCell(const GestureContext& c) {
    const auto row = c.editorRows.find("textbox");
    return row == c.editorRows.end() ? std::nullopt : EnabledIn(c.grid, row->second);
}

// A text cell's value with an "x" put at its end, or the last character taken off,
// committed with Enter: a step to undo that leaves the document as valid as it was.
std::string EditText(Subject& s, const Cell& cell, QString& before, QString& after) {
    if (std::string failure = Open(s, cell); !failure.empty()) return failure;
    before = s.cellText(cell.first, cell.second);
    auto* line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    if (line == nullptr) return "the editor of cell " + Where(cell) + " is not a line edit";
    KeyToFocus(Qt::Key_End);
    const bool full = line->text().size() >= line->maxLength();
    if (full || line->text().endsWith(QLatin1Char('x'))) {
        KeyToFocus(Qt::Key_Backspace);
    } else {
        KeyToFocus(Qt::Key_unknown, 'x');
    }
    KeyToFocus(Qt::Key_Return);
    Settle();
    after = s.cellText(cell.first, cell.second);
    return Expect(after != before, "Enter did not commit the edit of cell " + Where(cell));
}

// Undo (Ctrl+Z) of an edit made before the clock starts, or redo (Ctrl+Y) of an edit
// made and undone before it starts. Of two text cells, the one that is not current
// takes the edit (the stock table opens an editor when the current cell changes).
std::optional<GesturePlan> UndoRedo(Subject& s, const GestureContext& c, bool redo) {
    const std::optional<Cell> first = TextCell(c);
    const std::optional<Cell> second =
        first ? EnabledIn(c.grid, first->first, first->second + 1) : std::nullopt;
    if (!second) return std::nullopt;
    struct State {
        Cell cell;
        QString before, after;
    };
    auto state = std::make_shared<State>();
    const auto shows = [&s, state](const QString& text) {
        return s.cellText(state->cell.first, state->cell.second) == text;
    };
    GesturePlan plan;
    plan.before = [&s, node = c.node, first, second, state, shows, redo](int i) {
        if (std::string failure = i == 0 ? ShowNode(s, node) : ""; !failure.empty()) return failure;
        const bool onFirst = s.currentRow() == first->first && s.currentCol() == first->second;
        state->cell = onFirst ? *second : *first;
        std::string failure = EditText(s, state->cell, state->before, state->after);
        if (!failure.empty() || !redo) return failure;
        Chord(Qt::Key_Z);
        Settle();
        return Expect(shows(state->before), "Ctrl+Z did not undo the edit");
    };
    plan.act = [redo](int) { Chord(redo ? Qt::Key_Y : Qt::Key_Z); };
    plan.after = [state, shows, redo](int) {
        return redo ? Expect(shows(state->after), "Ctrl+Y did not redo the edit")
                    : Expect(shows(state->before), "Ctrl+Z did not undo the edit");
    };
    return plan;
}

// Ctrl+V of a 50 x 20 block at the first shown cell: the grid's own texts one column
// to the right, so that every value changes. Each paste is undone (Ctrl+Z, not timed)
// before the next and after the last: a shown value pasted back is stored from its
// rounded text, which may lie past a limit the stored value kept within. Disabled
// cells in the block are skipped and the user told.
std::optional<GesturePlan> Paste(Subject& s, const GestureContext& c) {
    if (dynamic_cast<ControlSubject*>(&s) == nullptr) return std::nullopt;
    std::vector<int> shown;
    for (int col = 1; col < c.grid.cols; ++col) {
        if (c.grid.colWidths[static_cast<std::size_t>(col)] > 0) shown.push_back(col);
    }
    const std::optional<Cell> text = TextCell(c);
    if (c.grid.rows <= kPasteRows || shown.size() <= kPasteCols || !text ||
        text->first > kPasteRows) {
        return std::nullopt;
    }
    CellTable table(kPasteRows);
    for (int row = 1; row <= kPasteRows; ++row) {
        for (std::size_t k = 1; k <= kPasteCols; ++k) {
            table[static_cast<std::size_t>(row - 1)].push_back(
                ToStdString(c.grid.cell(row, shown[k]).text));
        }
    }
    const QString block = ToQString(ToTabSeparated(table));
    // Checked on a text cell of the block that the paste changes.
    std::optional<Cell> checked;
    QString before, after;
    for (std::size_t k = 0; k < kPasteCols && !checked; ++k) {
        before = c.grid.cell(text->first, shown[k]).text;
        after = c.grid.cell(text->first, shown[k + 1]).text;
        if (Enabled(c.grid, text->first, shown[k]) && before != after)
            checked = Cell{text->first, shown[k]};
    }
    if (!checked) return std::nullopt;
    const auto shows = [&s, checked](const QString& value) {
        return s.cellText(checked->first, checked->second) == value;
    };
    const Cell start{1, shown.front()};
    GesturePlan plan;
    plan.before = [&s, node = c.node, start, block, shows, before](int i) {
        if (i > 0) {
            Chord(Qt::Key_Z);
            Settle();
            if (!shows(before)) return std::string("Ctrl+Z did not undo the paste");
        }
        if (std::string failure = i == 0 ? ShowNode(s, node) : ""; !failure.empty()) return failure;
        QApplication::clipboard()->setText(block);
        s.scrollHome();
        ClickAt(s.cellArea(), s.cellRect(start.first, start.second).center());
        Settle();
        return Expect(s.currentRow() == start.first && s.currentCol() == start.second,
                      "cell " + Where(start) + " did not become current");
    };
    plan.act = [](int) { Chord(Qt::Key_V); };
    plan.after = [shows, after, checked](int) {
        return Expect(shows(after), "the paste did not reach cell " + Where(*checked));
    };
    plan.finish = [] {
        Chord(Qt::Key_Z);
        Settle();
    };
    plan.tells = true;
    return plan;
}

// Ctrl+F, a word typed into the find bar, Enter: the search across the document and
// the jump to its first hit. Two words of the first grid in turn, so that each sample
// searches again.
std::optional<GesturePlan> Find(Subject& s, const GestureContext& c) {
    auto* control = dynamic_cast<ControlSubject*>(&s);
    const std::optional<Cell> first = TextCell(c);
    if (control == nullptr || !first) return std::nullopt;
    std::vector<QString> words;
    for (int col = first->second; col < c.grid.cols && words.size() < 2; ++col) {
        const QString& text = c.grid.cell(first->first, col).text;
        if (Enabled(c.grid, first->first, col) && !text.isEmpty() &&
            (words.empty() || words.front() != text)) {
            words.push_back(text);
        }
    }
    if (words.size() < 2) return std::nullopt;
    GesturePlan plan;
    auto sample = std::make_shared<int>(0);
    plan.before = [control, node = c.node, sample](int i) {
        *sample = i;
        if (std::string failure = i == 0 ? ShowNode(*control, node) : ""; !failure.empty())
            return failure;
        if (control->findBar().isVisible()) {
            KeyToFocus(Qt::Key_Escape);
            Settle();
        }
        QWidget* focus = QApplication::focusWidget();
        return Expect(!control->findBar().isVisible() && focus != nullptr &&
                          control->window().isAncestorOf(focus),
                      "the find bar did not close, or the control lost the focus");
    };
    plan.act = [words](int i) {
        Chord(Qt::Key_F);
        if (QWidget* field = QApplication::focusWidget())
            QTest::keyClicks(field, words[static_cast<std::size_t>(i % 2)]);
        KeyToFocus(Qt::Key_Return);
    };
    const auto there = [control, words](int i) {
        const QString& word = words[static_cast<std::size_t>(i % 2)];
        const QString shown = control->cellText(control->currentRow(), control->currentCol());
        return control->findBar().isVisible() &&
               control->findCount().contains(QLatin1String(" of ")) &&
               shown.contains(word, Qt::CaseInsensitive);
    };
    // The hit is the answer; the count of the others goes on between events.
    plan.answered = [there, sample] { return there(*sample); };
    plan.after = [there, words, control](int i) {
        return Expect(there(i) && !control->findCount().contains(QLatin1String("at least")),
                      "find did not go to a cell showing \"" +
                          ToStdString(words[static_cast<std::size_t>(i % 2)]) +
                          "\" and count the hits");
    };
    return plan;
}

// F9: the next value that needs correcting, its node shown when it is another.
std::optional<GesturePlan> NextInvalid(Subject& s, const GestureContext& c) {
    auto* control = dynamic_cast<ControlSubject*>(&s);
    const std::optional<Cell> first = EnabledIn(c.grid, 1);
    if (control == nullptr || !first) return std::nullopt;
    using Place = std::tuple<int, int, int>;  // node, row, column
    const auto place = [control] {
        return Place{control->selectedNode(), control->currentRow(), control->currentCol()};
    };
    auto from = std::make_shared<Place>();
    GesturePlan plan;
    plan.before = [&s, first, place, from](int i) {
        std::string failure = i == 0 ? Open(s, *first) : std::string();
        *from = place();
        return failure;
    };
    plan.act = [](int) { KeyToFocus(Qt::Key_F9); };
    plan.after = [control, place, from](int) {
        return Expect(place() != *from &&
                          control->needsCorrecting(control->currentRow(), control->currentCol()),
                      "F9 did not go to another value that needs correcting");
    };
    return plan;
}

}  // namespace

std::optional<GesturePlan> MakeEditPlan(const std::string& gesture, Subject& s,
                                        const GestureContext& c) {
    if (gesture == "undo") return UndoRedo(s, c, false);
    if (gesture == "redo") return UndoRedo(s, c, true);
    if (gesture == "paste-50x20") return Paste(s, c);
    if (gesture == "find") return Find(s, c);
    if (gesture == "next-invalid") return NextInvalid(s, c);
    return std::nullopt;
}

}  // namespace tabulon::bench

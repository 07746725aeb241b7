#include "view/access_keys.h"

#include <algorithm>
#include <vector>

#include "view/cell_editors.h"
#include "view/commit.h"
#include "view/problem_walk.h"

namespace tabulon {

namespace {

bool Usable(const Component& c) {
    return c.visible() && c.enabled();
}

// The parts F12 visits, in order.
std::vector<Component*> Parts(Form& f) {
    std::vector<Component*> parts;
    if (Usable(f.treTreeView)) parts.push_back(&f.treTreeView);
    if (f.fraFilterView.visible() && Usable(f.cboFilter)) parts.push_back(&f.cboFilter);
    if (Usable(f.msgGridView)) parts.push_back(&f.msgGridView);
    std::array<Button*, 4> buttons = {&f.cmdPrint, &f.cmdOK, &f.cmdCancel, &f.cmdHelp};
    std::stable_sort(buttons.begin(), buttons.end(),
                     [](const Button* a, const Button* b) { return a->left() < b->left(); });
    for (Button* button : buttons) {
        if (Usable(*button)) parts.push_back(button);
    }
    return parts;
}

// The part a focused component belongs to: the editors and the grid's own scroll bars
// are the grid's.
const Component* PartOf(const Form& f, const Component* focused) {
    const std::array<const Component*, 6> gridParts = {&f.txtTextBoxControl, &f.cboComboBoxControl,
                                                       &f.unitNumControl,    &f.unitDropControl,
                                                       &f.hscGrid,           &f.vscGrid};
    if (std::find(gridParts.begin(), gridParts.end(), focused) != gridParts.end())
        return &f.msgGridView;
    return focused;
}

bool ClickIfUsable(Button& button) {
    if (!Usable(button)) return false;
    button.userClick();
    return true;
}

}  // namespace

const AccessKey* FindAccessKey(int keyCode, int shift) {
    for (const AccessKey& key : kAccessKeys) {
        if (key.keyCode == keyCode && key.shift == shift) return &key;
    }
    return nullptr;
}

void CycleFocus(ControlCore& core, bool forward) {
    Form& f = core.form;
    const std::vector<Component*> parts = Parts(f);
    if (parts.empty()) return;
    const auto here = std::find(parts.begin(), parts.end(), PartOf(f, f.focus.focused()));
    const auto count = static_cast<std::ptrdiff_t>(parts.size());
    std::ptrdiff_t next = forward ? 0 : count - 1;
    if (here != parts.end()) next = ((here - parts.begin()) + (forward ? 1 : count - 1)) % count;
    if (f.anyEditorVisible()) {
        CommitCellEdit(core);
        HideCellEditors(core);
    }
    Component* target = parts[static_cast<std::size_t>(next)];
    target->setFocus();
    if (target == &f.msgGridView) OpenCellEditor(core);
}

bool AccessKeyDown(ControlCore& core, int keyCode, int shift) {
    const AccessKey* key = FindAccessKey(keyCode, shift);
    if (key == nullptr) return false;
    Form& f = core.form;
    switch (key->action) {
        case AccessAction::NextProblem:
        case AccessAction::PreviousProblem:
            GoToProblem(core, key->action == AccessAction::NextProblem);
            return true;
        case AccessAction::NextPart:
        case AccessAction::PreviousPart:
            CycleFocus(core, key->action == AccessAction::NextPart);
            return true;
        case AccessAction::Find:
            if (!core.find.onRequested) return false;
            Raise(core.find.onRequested);
            return true;
        case AccessAction::ClickPrint:
            return ClickIfUsable(f.cmdPrint);
        case AccessAction::ClickOK:
            return ClickIfUsable(f.cmdOK);
        case AccessAction::ClickCancel:
            return ClickIfUsable(f.cmdCancel);
        case AccessAction::ClickHelp:
            return ClickIfUsable(f.cmdHelp);
    }
    return false;
}

}  // namespace tabulon

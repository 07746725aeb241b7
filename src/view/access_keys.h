// Keys beyond the design's key tables, for people who work from the keyboard: the
// next and previous value that needs correcting, find, moving between the parts of
// the control, and the four buttons.
//
// They use only keys no table of the design uses (those are Tab, Enter and F5 to F8
// with any modifier in the data area, and Space on the buttons) and act at key-down,
// before the control's own key handlers; a key that acts ends its stroke there, so the
// key-up handler, which swallows every key-up in the data area, never sees it. A key
// that finds nothing to do goes on to those handlers as before.
//
//   F9 / Shift+F9     next / previous value that needs correcting (problem_walk.h)
//   F12 / Shift+F12   focus to the next / previous part: tree, filter combo, grid, then
//                     the buttons in screen order; parts hidden or disabled are passed
//   Ctrl+F            find (FindState::onRequested; only when a front end set it)
//   Alt+V, O, C, H    click View/Print, OK, Cancel, Help (when visible and enabled);
//                     the captions stay as they are
#pragma once

#include <array>

#include "platform/key_codes.h"
#include "view/control_core.h"

namespace tabulon {

enum class AccessAction {
    NextProblem,
    PreviousProblem,
    NextPart,
    PreviousPart,
    Find,
    ClickPrint,
    ClickOK,
    ClickCancel,
    ClickHelp
};

struct AccessKey {
    int keyCode;
    int shift;  // exactly these modifiers
    AccessAction action;
};

inline constexpr std::array<AccessKey, 9> kAccessKeys = {{
    {keys::FunctionKey(9), 0, AccessAction::NextProblem},
    {keys::FunctionKey(9), kShiftBit, AccessAction::PreviousProblem},
    {keys::FunctionKey(12), 0, AccessAction::NextPart},
    {keys::FunctionKey(12), kShiftBit, AccessAction::PreviousPart},
    {'F', kCtrlBit, AccessAction::Find},
    {'V', kAltBit, AccessAction::ClickPrint},
    {'O', kAltBit, AccessAction::ClickOK},
    {'C', kAltBit, AccessAction::ClickCancel},
    {'H', kAltBit, AccessAction::ClickHelp},
}};

// The entry for a key code and shift state; null when the key is not one of them.
const AccessKey* FindAccessKey(int keyCode, int shift);

// Acts on an access key at key-down; true when it acted (the stroke ends there).
bool AccessKeyDown(ControlCore& core, int keyCode, int shift);

// Moves the focus to the next (previous) part, as F12 (Shift+F12) does. Leaving the
// grid commits and closes an open editor; arriving at the grid opens the current
// cell's editor as a click on it would.
void CycleFocus(ControlCore& core, bool forward);

}  // namespace tabulon

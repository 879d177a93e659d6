// Which key does what in a path field with completion.
#include "completion/key_table.h"

namespace ferry::completion {

namespace {

// The virtual keys, by the numbers of Windows. Letters are their capitals in ASCII.
enum VirtualKey : unsigned {
    kBackspace = 0x08,
    kTab = 0x09,
    kEnter = 0x0D,
    kEscape = 0x1B,
    kSpace = 0x20,
    kPageUp = 0x21,
    kPageDown = 0x22,
    kUp = 0x26,
    kDown = 0x28,
};

using Condition = bool (*)(const KeyState&);

constexpr Condition kAlways = [](const KeyState&) { return true; };
constexpr Condition kOpen = [](const KeyState& state) { return state.IsListOpen; };
constexpr Condition kClosed = [](const KeyState& state) { return !state.IsListOpen; };
constexpr Condition kCtrl = [](const KeyState& state) { return state.Ctrl; };
constexpr Condition kCtrlClosed = [](const KeyState& state) { return state.Ctrl && !state.IsListOpen; };
constexpr Condition kShiftOpen = [](const KeyState& state) { return state.Shift && state.IsListOpen; };
constexpr Condition kPlainClosed = [](const KeyState& state) {
    return !state.IsListOpen && state.IsCompletionOn && !state.Shift && !state.Ctrl && !state.Alt;
};

struct Row {
    unsigned Key;
    Condition Holds;
    KeyAction Action;
};

// The first row that fits is taken.
constexpr Row kRows[] = {
    {kBackspace, kCtrlClosed, KeyAction::UpOneLevel},
    {'K', kCtrlClosed, KeyAction::UpOneLevel},
    {kPageUp, kClosed, KeyAction::UpOneLevel},
    {kPageDown, kClosed, KeyAction::DeleteToEnd},
    {'L', kCtrlClosed, KeyAction::DeleteToEnd},
    {kTab, kShiftOpen, KeyAction::PreviousItem},
    {kTab, kOpen, KeyAction::NextItem},
    {kTab, kPlainClosed, KeyAction::Complete},
    {kSpace, kCtrl, KeyAction::Complete},
    {'J', kCtrl, KeyAction::Complete},
    {kDown, kAlways, KeyAction::Complete},
    {kUp, kOpen, KeyAction::PreviousItem},
    {kUp, kClosed, KeyAction::OpenFixedItems},
    {kEnter, kClosed, KeyAction::NotifyAndPassOn},
    {kEnter, kOpen, KeyAction::AcceptItem},
    {kEscape, kOpen, KeyAction::CloseList},
    {'H', kCtrlClosed, KeyAction::AskToClear},
};

}  // namespace

KeyAction ActionOf(unsigned key, const KeyState& state) noexcept {
    for (const Row& row : kRows) {
        if (row.Key == key && row.Holds(state)) {
            return row.Action;
        }
    }
    return KeyAction::PassOn;
}

}  // namespace ferry::completion

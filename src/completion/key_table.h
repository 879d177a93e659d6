// Which key does what in a path field with completion.
#pragma once

namespace ferry::completion {

/// The state of the field and of the keyboard at the moment of a key.
struct KeyState {
    bool IsListOpen = false;
    bool IsCompletionOn = true;
    bool Ctrl = false;
    bool Shift = false;
    bool Alt = false;
};

/// What a key does. All but PassOn and NotifyAndPassOn consume it.
enum class KeyAction {
    PassOn,
    NotifyAndPassOn,  ///< Tells the owner about Enter; the dialog sees the key too.
    UpOneLevel,
    DeleteToEnd,
    Complete,
    NextItem,
    PreviousItem,
    OpenFixedItems,
    AcceptItem,  ///< Takes the selected item, if there is one, and closes the list.
    CloseList,
    AskToClear,  ///< Asks whether to clear the history.
};

/// The action of the virtual key `key`, one of the numbers that Windows sends with a key message.
/// Any number is allowed; unknown ones are passed on.
KeyAction ActionOf(unsigned key, const KeyState& state) noexcept;

}  // namespace ferry::completion

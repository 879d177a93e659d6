// What the launcher says, in the languages that it speaks.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "launcher/launch_options.h"
#include "launcher/selection.h"

namespace ferry::launcher {

/// All texts in one language; "%1" stands for what is filled in.
struct Texts {
    std::wstring_view Help;

    std::wstring_view UnknownSwitch;
    std::wstring_view MissingValue;
    std::wstring_view WrongValue;
    std::wstring_view SeeHelp;

    std::wstring_view CannotTake;  ///< Stands above the list of what cannot be taken.
    std::wstring_view Missing;
    std::wstring_view Wildcard;
    std::wstring_view Malformed;
    std::wstring_view UnreadableList;
    std::wstring_view StandardInput;
    std::wstring_view More;     ///< So many more than are shown.
    std::wstring_view TooMany;  ///< So many items beyond the limit.
    std::wstring_view GoOn;     ///< The question whether the other %1 items are handed over.
    std::wstring_view NothingLeft;

    std::wstring_view NoFerry;
    std::wstring_view CannotStart;
    std::wstring_view CannotShare;
    std::wstring_view CannotAddSendTo;
    std::wstring_view CannotRemoveSendTo;
    std::wstring_view CopyLink;  ///< File names of the entries in "Send to".
    std::wstring_view MoveLink;
};

extern const Texts kEnglish;
extern const Texts kJapanese;

/// The texts for the language suffix of the host's settings, as Ferry's own dialogs take it.
const Texts& TextsFor(std::wstring_view languageSuffix) noexcept;

/// What is wrong with a command line, with a hint at the help.
std::wstring MistakeText(const Texts& texts, const Mistake& mistake);

/// What cannot be taken, the first ones by name, and the question whether to go on with the rest; or that
/// nothing is left.
std::wstring RefusalText(const Texts& texts, const Selection& selection);

/// `text` with `value` for its "%1".
std::wstring Filled(std::wstring_view text, std::wstring_view value);

}  // namespace ferry::launcher

// The entries of the Explorer's menu "Send to".
#pragma once

#include <windows.h>

#include <string>

#include "launcher/launch_texts.h"

namespace ferry::launcher {

/// Puts one link for copying and one for moving, named in the language of `texts`, into the folder "Send to"
/// of the user; both start `program`. Links of it in another language go. 0 or the system's error.
HRESULT AddSendTo(const Texts& texts, const std::wstring& program);

/// Takes the links away, in whatever language they were made. A file of their name that is no link to
/// `program` stays. 0 or the system's error.
HRESULT RemoveSendTo(const std::wstring& program);

}  // namespace ferry::launcher

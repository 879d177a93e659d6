// What the host handed over for this command.
#pragma once

#include <string>

#include "base/text_list.h"

namespace ferry::hostlink {

/// The host's data, kept by the application for the whole run. Everything is zero or empty until
/// the host variable and the shared block have been read.
struct HostData {
    int WindowMode = 0;          ///< How the dialog sits relative to the host window (0 to 4).
    int ActivateHostOnExit = 0;  ///< 1: the host gets the foreground back at the end.
    bool ShareMode = false;      ///< A shared block was announced.
    std::wstring CurrentDir;     ///< The host's current folder; kept, not acted on.
    std::wstring Option;         ///< The host's option text; kept, not acted on.
    base::TextList SelectedItems;
    base::TextList TabFolders;  ///< The folders of the host's other tabs, in tab order.
};

}  // namespace ferry::hostlink

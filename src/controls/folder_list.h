// The folders of the host's other tabs.
#pragma once

#include "base/text_list.h"
#include "framework/window.h"

namespace ferry::controls {

/// A list box of folders, which scrolls sideways as far as the longest of them reaches.
class CFolderList : public framework::CWnd {
public:
    /// Shows `folders` in the place of what was there.
    void Show(const base::TextList& folders) const;

protected:
    std::span<const framework::Route> Routes() const override;

private:
    void FitToWidest() const;
    framework::Answer OnScaled(WPARAM wParam, LPARAM lParam);
};

}  // namespace ferry::controls

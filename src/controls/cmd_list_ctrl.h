// The list of the items that the command works on.
#pragma once

#include <functional>

#include "base/text_list.h"
#include "completion/type_ahead.h"
#include "controls/icon_worker.h"
#include "controls/list_items.h"
#include "framework/controls.h"

namespace ferry::controls {

/// Gives the system's small icons for windows of a scaling, in dots per inch; null when there are none.
using SmallIconSource = std::function<HIMAGELIST(UINT dpi)>;

/// A virtual list of paths: it shows their last components with the system's small icons, which
/// are found in the background. Typing the beginning of a name finds its item.
class CCmdListCtrl : public framework::CListCtrl {
public:
    /// `info` must outlive the list; its threads ask it.
    explicit CCmdListCtrl(files::FileInfo& info) noexcept : icons_(items_, info) {}

    /// Attaches to the list view `list` and shows the icons of `icons`, which is asked again when the scaling
    /// of the window changes.
    bool Prepare(HWND list, SmallIconSource icons);

    /// Takes over the paths in `list` and shows them after the ones that are there.
    void Append(base::TextList list);

    /// Empties the list.
    void Clear();

    const ListItems& Items() const noexcept { return items_; }

protected:
    std::span<const framework::Route> Routes() const override;
    framework::Answer OnOwnNotification(NMHDR& header) override;
    void OnWindowGone() override { icons_.Stop(); }

private:
    void ShowIcons() const;
    void FillDisplayInfo(LVITEMW& item) const;
    void LetMeasureOneItem() const;
    void FitColumn() const;
    void RequestIcons(int first, int last);
    framework::Answer OnIconsReady(WPARAM first, LPARAM last);
    framework::Answer OnScaled(WPARAM wParam, LPARAM lParam);
    framework::Answer OnKeyDown(WPARAM key, LPARAM);
    framework::Answer OnChar(WPARAM unit, LPARAM);
    void FocusTypedItem() const;

    ListItems items_;
    completion::TypeAhead typing_;
    IconWorker icons_;
    SmallIconSource smallIcons_;
};

}  // namespace ferry::controls

// Shows paths in a list that is too narrow for them.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::controls {

/// Measures texts with the font of one control.
class PathDisplay {
public:
    /// For as long as this object lives, `control` must.
    explicit PathDisplay(HWND control) noexcept;
    ~PathDisplay();
    PathDisplay(const PathDisplay&) = delete;
    PathDisplay& operator=(const PathDisplay&) = delete;

    /// `path` as it is when it fits the control's client area; otherwise with an ellipsis in its
    /// middle, so that its end stays to be seen.
    std::wstring Shown(const std::wstring& path) const;

    /// The width of `text` in the control's font, in pixels.
    LONG WidthOf(const std::wstring& text) const noexcept;

private:
    HWND control_;
    HDC context_;
    HGDIOBJ oldFont_;
    RECT area_{};
};

}  // namespace ferry::controls

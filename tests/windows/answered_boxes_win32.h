// Message boxes that never appear: what the program would have shown is written down, and a test answers.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "windows/watched_import_win32.h"

namespace ferry::test {

/// A message box as the program asked for it.
struct AskedBox {
    std::wstring Text;
    std::wstring Title;
    UINT Style = 0;  ///< The MB_ flags.
    HWND Owner = nullptr;

    UINT Buttons() const noexcept { return Style & MB_TYPEMASK; }
    UINT Icon() const noexcept { return Style & MB_ICONMASK; }
};

/// Answers every message box of this program while it lives, so that none can wait for anybody.
class AnsweredBoxes {
public:
    explicit AnsweredBoxes(int answer = IDOK)
        : watched_("MessageBoxW", [this, answer](HWND owner, LPCWSTR text, LPCWSTR title, UINT style) {
              Asked.push_back({text, title, style, owner});
              return answer;
          }) {}

    std::vector<AskedBox> Asked;

    /// The only box; with any other number of boxes a failure, and an empty one.
    AskedBox Only() const {
        EXPECT_EQ(Asked.size(), 1U);
        return Asked.size() == 1 ? Asked.front() : AskedBox();
    }

private:
    WatchedImport<&MessageBoxW> watched_;
};

}  // namespace ferry::test

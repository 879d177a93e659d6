// What holds for each dialog of the program, whichever are there.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "ids.h"
#include "lang/dialog_text.h"
#include "process/module_path_win32.h"
#include "windows/any_dialog_win32.h"
#include "windows/dialog_template_win32.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"

namespace ferry::dialogs {
namespace {

bool IsJapanese(const std::wstring& text) {
    return std::ranges::any_of(text, [](wchar_t unit) { return unit >= 0x3000; });
}

/// The text file of a dialog's English texts, beside this program.
std::wstring EnglishTextPath(int templateId) {
    const std::wstring module = process::ModulePath();
    return lang::DialogTextPath(module.substr(0, module.rfind(L'\\') + 1) + L"Ferry.exe", L".en-US",
                                templateId);
}

TEST(EveryDialog, SpeaksEnglishToWhoeverReadsEnglish) {
    test::DialogWorld world;
    world.Store.HostTexts[L"NLS"] = L".en-US";
    const std::vector<int> templates = test::TemplatesOfTheProgram();
    ASSERT_GE(templates.size(), 5U);
    for (const int id : templates) {
        SCOPED_TRACE(id);
        // Without the file the dialog would write one.
        const std::wstring path = EnglishTextPath(id);
        ASSERT_NE(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
        test::AnyDialog dialog(static_cast<UINT>(id), world.Services().Localiser);
        ASSERT_TRUE(dialog.Create(nullptr));
        EXPECT_FALSE(IsJapanese(test::TextOfWindow(dialog.Handle())));
        for (HWND control = GetWindow(dialog.Handle(), GW_CHILD); control != nullptr;
             control = GetWindow(control, GW_HWNDNEXT)) {
            EXPECT_FALSE(IsJapanese(test::TextOfWindow(control))) << GetDlgCtrlID(control);
        }
    }
}

/// How wide the icon is that `window` bears in this size; 0 when it bears none.
LONG IconWidth(HWND window, WPARAM size) {
    ICONINFO info{};
    const auto icon = reinterpret_cast<HICON>(SendMessageW(window, WM_GETICON, size, 0));
    if (icon == nullptr || GetIconInfo(icon, &info) == FALSE)
        return 0;
    BITMAP bitmap{};
    GetObjectW(info.hbmMask, sizeof bitmap, &bitmap);
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return bitmap.bmWidth;
}

TEST(EveryDialog, BearsTheIconInBothSizes) {
    test::DialogWorld world;
    framework::CDialog::UseIcon(IDI_FERRY);
    for (const int id : test::TemplatesOfTheProgram()) {
        SCOPED_TRACE(id);
        test::AnyDialog dialog(static_cast<UINT>(id), world.Services().Localiser);
        EXPECT_TRUE(dialog.Create(nullptr));
        const UINT dpi = GetDpiForWindow(dialog.Handle());
        EXPECT_EQ(IconWidth(dialog.Handle(), ICON_BIG), GetSystemMetricsForDpi(SM_CXICON, dpi));
        EXPECT_EQ(IconWidth(dialog.Handle(), ICON_SMALL), GetSystemMetricsForDpi(SM_CXSMICON, dpi));
    }
    framework::CDialog::UseIcon(0);
}

TEST(EveryDialog, IsInJapaneseByItselfAndInTheFontOfDialogs) {
    for (const int id : test::TemplatesOfTheProgram()) {
        SCOPED_TRACE(id);
        const test::DialogTemplate dialog = test::ReadDialogTemplate(id);
        EXPECT_TRUE(IsJapanese(dialog.Title));
        EXPECT_EQ(dialog.Font, L"MS Shell Dlg 9 400 0 1");
    }
}

}  // namespace
}  // namespace ferry::dialogs

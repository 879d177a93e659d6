// The confirmation dialog in-process, with whatever a host would have handed over.
#pragma once

#include <windows.h>
#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/ferry_dialog.h"
#include "ids.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"

namespace ferry::dialogs {

class FerryDialogTest : public testing::Test {
protected:
    /// Opens the dialog with `items` as the host's selection and draws it once.
    void Open(const std::vector<std::wstring>& items, const StartOptions& options = {}) {
        dialog_.reset();
        world_.Services().Host = {};
        for (const std::wstring& item : items) {
            world_.Services().Host.SelectedItems.Append(item);
        }
        dialog_ = std::make_unique<CFerryDlg>(world_.Services(), options, nullptr);
        ASSERT_TRUE(dialog_->Create(nullptr));
        ShowWindow(Window(), SW_SHOW);
        UpdateWindow(List());
    }

    void Close() { dialog_.reset(); }

    HWND Window() const { return dialog_->Handle(); }
    HWND List() const { return GetDlgItem(Window(), IDC_SOURCE_LIST); }

    /// The field of the destination, and what it says.
    HWND Edit() const {
        return reinterpret_cast<HWND>(
            SendDlgItemMessageW(Window(), IDC_DESTINATION, CBEM_GETEDITCONTROL, 0, 0));
    }
    std::wstring Destination() const { return test::TextOfWindow(Edit()); }

    std::wstring ItemText(int index) const {
        std::wstring text(512, L'\0');
        LVITEMW item{};
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        text.resize(static_cast<std::size_t>(SendMessageW(
            List(), LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item))));
        return text;
    }

    int ItemIcon(int index) const {
        LVITEMW item{};
        item.mask = LVIF_IMAGE;
        item.iItem = index;
        SendMessageW(List(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return item.iImage;
    }

    const test::ForegroundLockKeeper lock_;
    test::DialogWorld world_;
    std::unique_ptr<CFerryDlg> dialog_;
};

}  // namespace ferry::dialogs

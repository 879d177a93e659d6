// A dialog to try the driver on: it has the controls that the driver touches, and few manners.
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <string>

#include "e2e/driver/practice_dialog.h"
#include "e2e/driver/remote_dialog.h"

namespace {

using namespace ferry::e2e;

struct Child {
    const wchar_t* Class;
    const wchar_t* Text;
    DWORD Style;
    int Id;
    int Left, Top, Width, Height;
};

constexpr Child kChildren[] = {
    {WC_LISTVIEWW, L"", LVS_LIST | WS_TABSTOP, kSourceList, 10, 10, 300, 100},
    {WC_COMBOBOXEXW, L"", CBS_DROPDOWN | WS_TABSTOP, kDestination, 10, 120, 300, 200},
    {WC_COMBOBOXW, L"", CBS_DROPDOWNLIST | WS_TABSTOP, kPrecision, 330, 120, 120, 200},
    {WC_BUTTONW, L"コピー", BS_AUTORADIOBUTTON | WS_GROUP | WS_TABSTOP, kCopy, 330, 10, 100, 20},
    {WC_BUTTONW, L"移動", BS_AUTORADIOBUTTON, kMove, 330, 40, 100, 20},
    {WC_BUTTONW, L"開始", BS_DEFPUSHBUTTON | WS_GROUP | WS_TABSTOP, kStart, 330, 200, 80, 30},
    {WC_BUTTONW, L"Cancel", BS_PUSHBUTTON | WS_TABSTOP, kCancel, 420, 200, 80, 30},
};

void AddItem(HWND dialog, std::wstring text) {
    LVITEMW item = {};
    item.mask = LVIF_TEXT;
    item.iItem = 0x7FFFFFFF;
    item.pszText = text.data();
    SendDlgItemMessageW(dialog, kSourceList, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void MakeChildren(HWND dialog) {
    for (const Child& child : kChildren) {
        CreateWindowExW(0, child.Class, child.Text, child.Style | WS_CHILD | WS_VISIBLE, child.Left,
                        child.Top, child.Width, child.Height, dialog,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(child.Id)), nullptr, nullptr);
    }
    for (const wchar_t* text : {L"0", L"1", L"2"}) {
        SendDlgItemMessageW(dialog, kPrecision, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
    DragAcceptFiles(dialog, TRUE);
}

void TakeDrop(HWND dialog, HDROP drop) {
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT index = 0; index < count; ++index) {
        std::wstring path(DragQueryFileW(drop, index, nullptr, 0) + 1, L'\0');
        DragQueryFileW(drop, index, path.data(), static_cast<UINT>(path.size()));
        AddItem(dialog, path);
    }
    DragFinish(drop);
}

/// Ends with 10 plus 1 when Shift is held, or says that the destination is missing.
void Start(HWND dialog) {
    if (RemoteDialog(dialog).Destination().empty())
        MessageBoxW(dialog, L"行き先がありません。\n2", L"practice", MB_OK);
    else
        EndDialog(dialog, GetKeyState(VK_SHIFT) < 0 ? 11 : 10);
}

void ShowMenu(HWND dialog) {
    const HMENU inner = CreatePopupMenu();
    AppendMenuW(inner, MF_STRING, 2, L"in&ner");
    AppendMenuW(inner, MF_STRING, 3, L"deep");
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 1, L"one");
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(inner), L"&more");
    AppendMenuW(menu, MF_STRING | MF_GRAYED, 4, L"last");
    RECT place = {};
    GetWindowRect(dialog, &place);
    const BOOL choice = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, place.left + 30, place.top + 60,
                                       0, dialog, nullptr);
    DestroyMenu(menu);
    if (choice != 0)
        EndDialog(dialog, choice);
}

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_INITDIALOG:
            MakeChildren(dialog);
            return TRUE;
        case WM_DROPFILES:
            TakeDrop(dialog, reinterpret_cast<HDROP>(first));
            return TRUE;
        case WM_COPYDATA:
            RemoteDialog(dialog).SetDestination(
                static_cast<const wchar_t*>(reinterpret_cast<const COPYDATASTRUCT*>(second)->lpData));
            return TRUE;
        case WM_COMMAND:
            if (LOWORD(first) == kStart && HIWORD(first) == BN_CLICKED)
                Start(dialog);
            if (LOWORD(first) == kCancel)
                EndDialog(dialog, 0);
            return TRUE;
        case practice::kEnd:
            ExitProcess(static_cast<UINT>(first));
        case practice::kHang:
            SetPropW(dialog, practice::kHangs, dialog);
            Sleep(INFINITE);
            return TRUE;
        case practice::kShowMenu:
            ShowMenu(dialog);
            return TRUE;
        case practice::kLinger:
            Sleep(static_cast<DWORD>(first));
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t*, int) {
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), 0xFF | ICC_USEREX_CLASSES};
    InitCommonControlsEx(&classes);
    struct {
        DLGTEMPLATE Head;
        WORD Menu, Class, Title;
    } form = {};
    form.Head.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE | DS_CENTER;
    form.Head.cx = 300;
    form.Head.cy = 150;
    return static_cast<int>(DialogBoxIndirectParamW(instance, &form.Head, nullptr, Procedure, 0));
}

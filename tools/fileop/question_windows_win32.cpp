#include "question_windows_win32.h"

#include "item_path.h"
#include "log_win32.h"
#include "module_win32.h"
#include "resource.h"

namespace ferry::fileop {
namespace {

struct CollisionTexts {
    std::wstring Question;
    std::wstring Source;
    std::wstring Target;
    bool IsForAll = false;
};

struct ErrorTexts {
    std::wstring Message;
    std::wstring Path;
};

INT_PTR CALLBACK CollisionProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        const auto* texts = reinterpret_cast<const CollisionTexts*>(lParam);
        SetDlgItemTextW(window, IDC_TEXT, texts->Question.c_str());
        SetDlgItemTextW(window, IDC_SOURCE, texts->Source.c_str());
        SetDlgItemTextW(window, IDC_TARGET, texts->Target.c_str());
        return TRUE;
    }
    const int id = LOWORD(wParam);
    if (message == WM_COMMAND && (id == IDC_REPLACE || id == IDC_SKIP || id == IDCANCEL)) {
        auto* texts = reinterpret_cast<CollisionTexts*>(GetWindowLongPtrW(window, DWLP_USER));
        texts->IsForAll = IsDlgButtonChecked(window, IDC_FOR_ALL) == BST_CHECKED;
        EndDialog(window, id);
        return TRUE;
    }
    return FALSE;
}

INT_PTR CALLBACK ErrorProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* texts = reinterpret_cast<const ErrorTexts*>(lParam);
        SetDlgItemTextW(window, IDC_TEXT, texts->Message.c_str());
        SetDlgItemTextW(window, IDC_SOURCE, texts->Path.c_str());
        SetFocus(GetDlgItem(window, IDC_SKIP));  // the Enter key must not try the same again for ever
        return FALSE;
    }
    const int id = LOWORD(wParam);
    if (message == WM_COMMAND && (id == IDRETRY || id == IDC_SKIP || id == IDCANCEL)) {
        EndDialog(window, id);
        return TRUE;
    }
    return FALSE;
}

INT_PTR ShowDialog(int id, HWND owner, DLGPROC procedure, void* texts) {
    return DialogBoxParamW(ModuleHandle(), MAKEINTRESOURCEW(id), owner, procedure,
                           reinterpret_cast<LPARAM>(texts));
}

std::wstring SystemText(Result result) {
    wchar_t* text = nullptr;
    const DWORD length = FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
        static_cast<DWORD>(result), 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
    std::wstring message(text != nullptr ? text : L"", length);
    LocalFree(text);
    return message;
}

// The shell's own codes have no text in the system's tables.
std::wstring MessageFor(Result result) {
    switch (result) {
        case kSameFile:
            return L"The source and the destination are the same item.";
        case kIntoItself:
            return L"The destination folder lies inside the source folder.";
        case kFolderOntoFile:
            return L"The destination already has a file with the name of this folder.";
        case kFileOntoFolder:
            return L"The destination already has a folder with the name of this file.";
        case kRootAsSource:
            return L"The root of a drive cannot be transferred.";
        default:
            return SystemText(result) + L"(" + HexResult(result) + L")";
    }
}

}  // namespace

CollisionChoice ShowCollisionWindow(HWND owner, const std::wstring& source, const std::wstring& target) {
    CollisionTexts texts;
    texts.Question = L"The destination already has a file named \"" + std::wstring(NameOf(target)) + L"\".";
    texts.Source = L"From: " + source;
    texts.Target = L"To: " + target;
    switch (ShowDialog(IDD_COLLISION, owner, CollisionProc, &texts)) {
        case IDC_REPLACE:
            return {CollisionAnswer::Replace, texts.IsForAll};
        case IDC_SKIP:
            return {CollisionAnswer::Skip, texts.IsForAll};
        default:
            return {};
    }
}

ErrorAnswer ShowErrorWindow(HWND owner, const std::wstring& path, Result result) {
    ErrorTexts texts{MessageFor(result), path};
    switch (ShowDialog(IDD_ERROR, owner, ErrorProc, &texts)) {
        case IDRETRY:
            return ErrorAnswer::Retry;
        case IDC_SKIP:
            return ErrorAnswer::Skip;
        default:
            return ErrorAnswer::Cancel;
    }
}

bool ShowMakeFolderWindow(HWND owner, const std::wstring& path) {
    const std::wstring text = L"The folder does not exist. Make it?\n\n" + path;
    return MessageBoxW(owner, text.c_str(), L"Make Folder", MB_YESNO | MB_ICONQUESTION) == IDYES;
}

}  // namespace ferry::fileop

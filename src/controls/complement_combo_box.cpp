#include "controls/complement_combo_box.h"

#include <utility>

#include "completion/candidates.h"
#include "completion/field_text.h"
#include "controls/dropped_files.h"
#include "controls/path_display.h"
#include "framework/handles.h"
#include "framework/keyboard.h"

namespace ferry::controls {

using completion::KeyAction;
using framework::Answer;

namespace {

constexpr std::uint16_t kMessageHistory = 62400;
constexpr std::uint16_t kMessageClearTail = 63007;

// What the list draws beside the text of an item, at 96 dots per inch: its own margins.
constexpr int kItemMargins = 12;

// Beside the items themselves: what the list's own bookkeeping takes of memory for each.
constexpr LPARAM kUnitsPerItem = 64;

completion::KeyState StateOf(bool isListOpen, bool completionOn) noexcept {
    completion::KeyState state;
    state.IsListOpen = isListOpen;
    state.IsCompletionOn = completionOn;
    // Layouts with AltGr report it as Ctrl and the right Alt; together they type a character.
    state.Ctrl = framework::IsKeyHeld(VK_CONTROL) && !framework::IsKeyHeld(VK_RMENU);
    state.Shift = framework::IsKeyHeld(VK_SHIFT);
    state.Alt = framework::IsKeyHeld(VK_MENU);
    return state;
}

}  // namespace

bool CComplementComboBox::Prepare(HWND control) {
    return Attach(control) && composition_.Attach(Edit());
}

void CComplementComboBox::SetNotification(HWND window, int id) noexcept {
    notifyWindow_ = window;
    notifyId_ = id;
}

bool CComplementComboBox::PreTranslateMessage(MSG& message) {
    const bool isOpen = IsListOpen();
    switch (message.message) {
        case WM_LBUTTONDBLCLK:
            if (isOpen) {
                return false;
            }
            Search();
            Show();
            return true;
        case WM_MOUSEWHEEL:
            // The closed list would step through its items: a destination changed by accident.
            return !isOpen;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            break;
        default:
            return false;
    }
    if (composition_.IsComposing()) {
        return false;
    }
    const auto key = static_cast<unsigned>(message.wParam);
    if (!Perform(completion::ActionOf(key, StateOf(isOpen, completionOn_)))) {
        return false;
    }
    if (message.message == WM_SYSKEYDOWN) {
        // Windows must see that Alt was not pressed alone, or its release opens the window's menu.
        DefWindowProcW(message.hwnd, message.message, message.wParam, message.lParam);
    }
    return true;
}

bool CComplementComboBox::Perform(KeyAction action) {
    const int count = static_cast<int>(candidates_.size());
    switch (action) {
        case KeyAction::PassOn:
            return false;
        case KeyAction::NotifyAndPassOn:
            if (notifyWindow_ != nullptr) {
                PostMessageW(notifyWindow_, WM_COMMAND, static_cast<WPARAM>(notifyId_), 0);
            }
            return false;
        case KeyAction::UpOneLevel:
            GoUpOneLevel();
            break;
        case KeyAction::DeleteToEnd:
            DeleteToEnd();
            break;
        case KeyAction::Complete:
            Complete();
            break;
        case KeyAction::NextItem:
            SelectWhole(completion::NextItem(SelectedItem(), count));
            break;
        case KeyAction::PreviousItem:
            SelectWhole(completion::PreviousItem(SelectedItem(), count));
            break;
        case KeyAction::OpenFixedItems:
            ShowFixedItems();
            OpenOwnList();
            break;
        case KeyAction::AcceptItem:
            AcceptItem();
            break;
        case KeyAction::CloseList:
            OpenList(false);
            break;
        case KeyAction::AskToClear:
            AskToClear();
            break;
    }
    return true;
}

void CComplementComboBox::Complete() {
    if (IsListOpen()) {
        Perform(KeyAction::NextItem);
        return;
    }
    if (const std::wstring text = EditText(); !baseFolder_.empty() && completion::IsRelative(text)) {
        PutText(completion::ResolveAgainst(baseFolder_, text));
    }
    Search();
    Show();
}

void CComplementComboBox::Search() {
    const std::wstring text = EditText();
    if (text.size() < completion::kMinSearchLength) {
        // No search is made, so nothing of an earlier one may be offered either.
        ShowFixedItems();
        return;
    }
    FillList(completion::FindCandidates(search_, completion::SearchText(text, searchBase_), foldersOnly_));
}

void CComplementComboBox::Show() {
    const std::wstring text = EditText();
    switch (completion::OfferFor(text, candidates_.size())) {
        case completion::Offer::Nothing:
            break;
        case completion::Offer::PutRoot:
            PutText(*completion::RootFor(text));
            break;
        case completion::Offer::PutOnlyItem:
            PutText(candidates_.front());
            break;
        case completion::Offer::OpenList:
            OpenOwnList();
            break;
    }
}

void CComplementComboBox::ShowFixedItems() {
    FillList(fixedItems_);
}

void CComplementComboBox::GoUpOneLevel() {
    if (const auto shorter = completion::UpOneLevel(EditText())) {
        PutText(*shorter);
    }
}

void CComplementComboBox::DeleteToEnd() {
    const HWND edit = Edit();
    DWORD start = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), 0);
    SendMessageW(edit, EM_SETSEL, start, -1);
    // As an edit of the user's, so that it can be undone like one.
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
}

void CComplementComboBox::AskToClear() {
    const std::wstring question = messages_.Fetch(kMessageHistory) + messages_.Fetch(kMessageClearTail);
    if (speaker_.Ask(question, lang::Tone::Question)) {
        PostMessageW(Handle(), kClearHistoryMessage, 0, 0);
    }
}

void CComplementComboBox::FillList(std::vector<std::wstring> paths) {
    candidates_ = std::move(paths);
    const HWND edit = Edit();
    const std::wstring text = EditText();
    DWORD start = 0;
    DWORD end = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    SendMessageW(Combo(), WM_SETREDRAW, FALSE, 0);
    RemoveItems();
    SendMessageW(Combo(), CB_INITSTORAGE, candidates_.size(),
                 static_cast<LPARAM>(candidates_.size()) * kUnitsPerItem);
    WidenList();
    // The field around it may have no font of its own.
    const PathDisplay display(Combo());
    for (const std::wstring& path : candidates_) {
        AddItem(display.Shown(path));
    }
    SendMessageW(Combo(), WM_SETREDRAW, TRUE, 0);
    if (EditText() != text) {
        // An emptied list may take the field's text with it.
        SetEditText(text);
        SendMessageW(edit, EM_SETSEL, start, static_cast<LPARAM>(end));
    }
}

// A text as wide as the control must show its end beside a scroll bar, too.
void CComplementComboBox::WidenList() const noexcept {
    RECT area{};
    GetClientRect(Handle(), &area);
    const UINT dpi = GetDpiForWindow(Handle());
    const int width = area.right + GetSystemMetricsForDpi(SM_CXVSCROLL, dpi) +
                      MulDiv(kItemMargins, static_cast<int>(dpi), USER_DEFAULT_SCREEN_DPI);
    SendMessageW(Combo(), CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width), 0);
}

void CComplementComboBox::OpenOwnList() {
    isOpening_ = true;
    OpenList(true);
    isOpening_ = false;
    // Typing hides the pointer, and an open list keeps the mouse: nothing would show it again.
    SetCursor(LoadCursorW(nullptr, IDC_ARROW));
}

void CComplementComboBox::SelectWhole(int index) {
    if (const auto path = WholePath(index)) {
        SelectItem(index);
        // The control has put the item's text there, which may be shortened.
        SetEditText(*path);
    }
}

void CComplementComboBox::AcceptItem() {
    if (const auto path = WholePath(SelectedItem())) {
        chosenText_ = *path;
        acceptedText_ = *path;
    }
    OpenList(false);
}

std::optional<std::wstring> CComplementComboBox::WholePath(int index) const {
    if (index < 0 || static_cast<std::size_t>(index) >= candidates_.size()) {
        return std::nullopt;
    }
    return candidates_[static_cast<std::size_t>(index)];
}

void CComplementComboBox::PutText(const std::wstring& text) {
    SetEditText(text);
    const HWND edit = Edit();
    SendMessageW(edit, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
    SendMessageW(edit, EM_SCROLLCARET, 0, 0);
}

void CComplementComboBox::ReplaceText(const std::wstring& text) {
    if (IsListOpen()) {
        OpenList(false);
    }
    PutText(text);
}

Answer CComplementComboBox::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && lParam != 0 && reinterpret_cast<HWND>(lParam) == Combo()) {
        return OnListNotification(HIWORD(wParam), wParam, lParam);
    }
    if (message == WM_DROPFILES) {
        return OnDropFiles(wParam, lParam);
    }
    return CComboBoxEx::Dispatch(message, wParam, lParam);
}

// The list ends with or without an accepted item. Whether the control then shows the item, the
// shortened text or what was typed differs between the ways to end it, so it is said here.
Answer CComplementComboBox::OnListNotification(UINT code, WPARAM wParam, LPARAM lParam) {
    if (code == CBN_DROPDOWN) {
        typedText_ = EditText();
        acceptedText_.reset();
        if (!isOpening_) {
            ShowFixedItems();
        }
        return std::nullopt;
    }
    if (code == CBN_SELENDOK) {
        acceptedText_ = WholePath(SelectedItem());
        return std::nullopt;
    }
    if (code != CBN_CLOSEUP && code != CBN_SELCHANGE) {
        return std::nullopt;
    }
    const LRESULT result = CallDefault(WM_COMMAND, wParam, lParam);
    if (code == CBN_CLOSEUP) {
        if (GetFocus() == Combo()) {
            SetFocus(Edit());
        }
        PutText(acceptedText_.value_or(typedText_));
    } else if (const auto path = WholePath(SelectedItem()); path && !IsListOpen()) {
        // A click on an item reports the change after the list has closed.
        PutText(*path);
    }
    return result;
}

Answer CComplementComboBox::OnDropFiles(WPARAM wParam, LPARAM lParam) {
    const framework::DropHandle drop(reinterpret_cast<HDROP>(wParam));
    if (const std::wstring path = controls::DroppedFileName(drop.Get(), 0); !path.empty()) {
        searchBase_ = completion::FieldTextOfDrop(path, info_.Attributes(path), foldersOnly_);
        ReplaceText(searchBase_);
    }
    return CallDefault(WM_DROPFILES, wParam, lParam);
}

}  // namespace ferry::controls

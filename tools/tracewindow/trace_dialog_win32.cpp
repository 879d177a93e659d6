#include "trace_dialog_win32.h"

#include <commdlg.h>

#include <algorithm>
#include <cwchar>
#include <utility>

#include "base/handles_win32.h"
#include "base/text.h"
#include "desktop/system_error.h"
#include "script/byte_files_win32.h"
#include "script/limits.h"
#include "script/script_files.h"
#include "trace_ids.h"

namespace ferry::tracewindow {

namespace {

/// What came is shown this much later, and so together with what comes meanwhile.
constexpr UINT kShowAfterMs = 30;
constexpr UINT_PTR kShowTimer = 1;

constexpr int kMaxNumberDigits = 9;

/// The title of boxes: one with the window's own would be found in its place.
constexpr wchar_t kBoxTitle[] = L"FerryTrace";

struct LabelledItem {
    int Id;
    const wchar_t* Texts::* Text;
};
constexpr LabelledItem kLabelledItems[] = {
    {IDC_TRACE_SCRIPT_LABEL, &Texts::ScriptLabel},
    {IDC_TRACE_LINES_LABEL, &Texts::LinesLabel},
    {IDC_TRACE_VARIABLES_LABEL, &Texts::VariablesLabel},
    {IDC_TRACE_WHOLE_LABEL, &Texts::WholeLabel},
    {IDC_TRACE_NUMBER_LABEL, &Texts::NumberLabel},
    {IDC_TRACE_TOGGLE, &Texts::Toggle},
    {IDC_TRACE_GO_ON, &Texts::GoOn},
    {IDC_TRACE_STEP, &Texts::Step},
    {IDC_TRACE_HOLD_NOTHING, &Texts::HoldNothing},
    {IDC_TRACE_CLEAR, &Texts::Clear},
    {IDC_TRACE_SAVE, &Texts::Save},
};

/// `text` with the line ends of an edit field, in which a line feed alone is none.
std::wstring WithEditLineEnds(std::wstring_view text) {
    return base::ReplaceAll(base::ReplaceAll(text, L"\r\n", L"\n"), L"\n", L"\r\n");
}

/// Lays controls out in the units of the dialog's template, which follow its font and scaling.
class DialogUnits {
public:
    explicit DialogUnits(HWND dialog) noexcept : dialog_(dialog) {}

    int Across(int units) const noexcept { return Pixels(units).right; }
    int Down(int units) const noexcept { return Pixels(units).bottom; }

private:
    RECT Pixels(int units) const noexcept {
        RECT pixels{0, 0, units, units};
        MapDialogRect(dialog_, &pixels);
        return pixels;
    }

    HWND dialog_;
};

}  // namespace

CTraceDialog::CTraceDialog(const Texts& texts) noexcept : CDialog(IDD_TRACE), texts_(texts) {}

bool CTraceDialog::Register() {
    WNDCLASSEXW type{};
    type.cbSize = sizeof(type);
    type.lpfnWndProc = DefDlgProcW;
    type.cbWndExtra = DLGWINDOWEXTRA;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // IDC_ARROW
    type.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_3DFACE) + 1);
    type.lpszClassName = kTraceClass;
    return RegisterClassExW(&type) != 0;
}

std::span<const framework::Route> CTraceDialog::Routes() const {
    static constexpr framework::Route kRoutes[] = {
        framework::OnMessage<&CTraceDialog::OnCopyData>(WM_COPYDATA),
        framework::OnMessage<&CTraceDialog::OnTimer>(WM_TIMER),
        framework::OnMessage<&CTraceDialog::OnNotify>(WM_NOTIFY),
        framework::OnMessage<&CTraceDialog::OnSize>(WM_SIZE),
        framework::OnMessage<&CTraceDialog::OnLimits>(WM_GETMINMAXINFO),
        framework::OnMessage<&CTraceDialog::OnClose>(WM_CLOSE),
        framework::OnMessage<&CTraceDialog::OnEndSession>(WM_ENDSESSION),
        framework::OnCommand<&CTraceDialog::ShowChosenScript>(IDC_TRACE_SCRIPT, CBN_SELCHANGE),
        framework::OnClick<&CTraceDialog::GoOn>(IDC_TRACE_GO_ON),
        framework::OnClick<&CTraceDialog::Step>(IDC_TRACE_STEP),
        framework::OnClick<&CTraceDialog::HoldNothing>(IDC_TRACE_HOLD_NOTHING),
        framework::OnClick<&CTraceDialog::Clear>(IDC_TRACE_CLEAR),
        framework::OnClick<&CTraceDialog::Save>(IDC_TRACE_SAVE),
    };
    return kRoutes;
}

bool CTraceDialog::OnInitDialog() {
    for (const auto& [id, text] : kLabelledItems)
        SetDlgItemTextW(Handle(), id, texts_.*text);
    scripts_.Attach(Item(IDC_TRACE_SCRIPT));
    lines_.Attach(Item(IDC_TRACE_LINES));
    variables_.Attach(Item(IDC_TRACE_VARIABLES));
    for (const HWND list : {lines_.Handle(), variables_.Handle()})
        ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    for (const wchar_t* title : {texts_.MarkColumn, texts_.NumberColumn, texts_.LineColumn})
        lines_.AddColumn(title);
    for (const wchar_t* title : {texts_.MarkColumn, texts_.NameColumn, texts_.ValueColumn})
        variables_.AddColumn(title);
    SendDlgItemMessageW(Handle(), IDC_TRACE_NUMBER, EM_LIMITTEXT, kMaxNumberDigits, 0);
    SendDlgItemMessageW(Handle(), IDC_TRACE_WHOLE, EM_LIMITTEXT, 0, 0);  // as much as it can
    wholeOf_ = IDC_TRACE_LINES;
    LayOut();
    Show();
    SetFocus(lines_.Handle());
    return false;
}

bool CTraceDialog::PreTranslateMessage(MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN)
        return false;
    constexpr LPARAM kAltIsHeld = 1 << 29;
    if ((message.lParam & kAltIsHeld) != 0)
        return false;
    switch (message.wParam) {
        case VK_F5:
            GoOn();
            return true;
        case VK_F9:
            ToggleHold();
            return true;
        case VK_F10:
            Step();
            return true;
        default:
            return false;
    }
}

framework::Answer CTraceDialog::OnCopyData(WPARAM, LPARAM lParam) {
    const auto* const data = reinterpret_cast<const COPYDATASTRUCT*>(lParam);
    if (data == nullptr)
        return TRUE;
    const auto* const bytes = static_cast<const std::byte*>(data->lpData);
    const bool isToBeHeld =
        model_.Take(ReadRecord(data->dwData, {bytes, bytes == nullptr ? 0 : std::size_t{data->cbData}}));
    ShowSoon();
    // One script is held at a time; none while a dialog stands in the way of the keys, nor when nobody looks.
    if (isToBeHeld && !IsHolding() && !isSaving_ && !isClosed_)
        Hold(*model_.Line());
    return TRUE;
}

void CTraceDialog::Hold(std::size_t line) {
    heldAt_ = line;
    // A menu or a border that is being dragged has a loop of its own, which would wait for this one.
    SendMessageW(Handle(), WM_CANCELMODE, 0, 0);
    Show();
    if (IsIconic(Handle()))
        ShowWindow(Handle(), SW_RESTORE);
    SetForegroundWindow(Handle());  // best effort: the title flashes where this is refused
    MSG message;
    while (IsHolding() && Handle() != nullptr) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0)
            PostQuitMessage(
                static_cast<int>(message.wParam));  // whoever runs the next loop has to hear it too
        if (got <= 0)
            break;
        if (!HandleDialogMessage(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    heldAt_.reset();
    if (Handle() != nullptr)
        ShowSoon();
}

void CTraceDialog::EndHold() noexcept {
    heldAt_.reset();
    // The loop may be waiting for a message while a sent one got us here.
    PostMessageW(Handle(), WM_NULL, 0, 0);
}

void CTraceDialog::GoOn() {
    if (IsHolding()) {
        EndHold();
        ShowSoon();
    }
}

void CTraceDialog::Step() {
    model_.HoldNextLine();
    GoOn();
    ShowSoon();
}

void CTraceDialog::HoldNothing() {
    model_.HoldNothing();
    GoOn();
    InvalidateRect(lines_.Handle(), nullptr, FALSE);
    ShowSoon();
}

void CTraceDialog::Clear() {
    model_.Clear();
    ShowSoon();
}

/// The number that was typed, or else the line that is selected.
std::optional<std::size_t> CTraceDialog::ChosenLine() const {
    const bool isTyped = GetFocus() == Item(IDC_TRACE_NUMBER);
    if (const int focused = lines_.FocusedItem(); !isTyped && focused >= 0)
        return static_cast<std::size_t>(focused) + 1;
    return ReadLineNumber(framework::WindowText(Item(IDC_TRACE_NUMBER)));
}

void CTraceDialog::ToggleHold() {
    if (const auto line = ChosenLine())
        ToggleHoldAt(*line);
    else
        MessageBoxW(Handle(), texts_.NoLineNumber, kBoxTitle, MB_OK | MB_ICONINFORMATION);
}

void CTraceDialog::ToggleHoldAt(std::size_t line) {
    model_.ToggleHold(line);
    const int row = static_cast<int>(line) - 1;
    lines_.RedrawItems(row, row);
    ShowStatus();
}

void CTraceDialog::Save() {
    std::wstring path(32768, L'\0');
    std::wstring kinds = texts_.FileKind + std::wstring(L" (*.txt)");
    kinds.append(1, L'\0').append(L"*.txt").append(2, L'\0');
    OPENFILENAMEW choice{};
    choice.lStructSize = sizeof(choice);
    choice.hwndOwner = Handle();
    choice.lpstrFilter = kinds.c_str();
    choice.lpstrFile = path.data();
    choice.nMaxFile = static_cast<DWORD>(path.size());
    choice.lpstrDefExt = L"txt";
    choice.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
    isSaving_ = true;
    const bool isChosen = GetSaveFileNameW(&choice) != FALSE;
    isSaving_ = false;
    if (!isChosen)
        return;
    path.resize(std::wcslen(path.c_str()));
    if (const DWORD error = SaveTo(path); error != 0) {
        const std::wstring text = Fill(texts_.CannotSave, desktop::SystemErrorText(error));
        MessageBoxW(Handle(), text.c_str(), kBoxTitle, MB_OK | MB_ICONWARNING);
    }
}

DWORD CTraceDialog::SaveTo(const std::wstring& path) const {
    const std::wstring text = L'\xFEFF' + FileText(model_, texts_);
    const base::FileHandle file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file)
        return GetLastError();
    // Fewer bytes than a call can write: what is kept is bounded.
    const auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    DWORD written = 0;
    if (!WriteFile(file.Get(), text.data(), size, &written, nullptr))
        return GetLastError();
    return written == size ? ERROR_SUCCESS : ERROR_DISK_FULL;
}

framework::Answer CTraceDialog::OnClose(WPARAM, LPARAM) {
    isClosed_ = true;
    EndHold();
    EndDialog(IDCANCEL);
    return 0;
}

framework::Answer CTraceDialog::OnEndSession(WPARAM wParam, LPARAM) {
    if (wParam != FALSE)
        EndHold();
    return std::nullopt;
}

framework::Answer CTraceDialog::OnTimer(WPARAM wParam, LPARAM) {
    if (wParam != kShowTimer)
        return std::nullopt;
    Show();
    return 0;
}

framework::Answer CTraceDialog::OnNotify(WPARAM, LPARAM lParam) {
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    const bool isOfLines = header.hwndFrom == lines_.Handle();
    if (header.code == LVN_ITEMCHANGED || header.code == NM_SETFOCUS) {
        wholeOf_ = isOfLines ? IDC_TRACE_LINES : IDC_TRACE_VARIABLES;
        ShowWhole();
    } else if (isOfLines && (header.code == NM_CLICK || header.code == NM_DBLCLK)) {
        const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(header);
        // A click on the text selects the line; one on what stands before it means the hold.
        if (click.iItem >= 0 && (click.iSubItem < kFirstTextColumn || header.code == NM_DBLCLK))
            ToggleHoldAt(static_cast<std::size_t>(click.iItem) + 1);
    }
    return std::nullopt;
}

void CTraceDialog::ShowSoon() {
    // The timer begins anew when it is set again: what keeps coming would never be shown.
    if (!std::exchange(isShowDue_, true))
        SetTimer(Handle(), kShowTimer, kShowAfterMs, nullptr);
}

void CTraceDialog::Show() {
    KillTimer(Handle(), kShowTimer);
    isShowDue_ = false;
    ShowScripts();
    ShowLine();
    ShowVariables();
    ShowWhole();
    ShowStatus();
    const HWND goOn = Item(IDC_TRACE_GO_ON);
    // A button that is greyed while it has the focus would keep the keys to itself.
    if (!IsHolding() && GetFocus() == goOn)
        SendMessageW(Handle(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(lines_.Handle()), TRUE);
    EnableWindow(goOn, IsHolding());
}

void CTraceDialog::ShowScripts() {
    if (shownStarts_ == model_.Starts())
        return;
    shownStarts_ = model_.Starts();
    SendMessageW(scripts_.Handle(), CB_RESETCONTENT, 0, 0);
    for (const std::wstring& path : model_.Scripts())
        scripts_.Append(path.c_str());
    if (const auto last = model_.LastStarted()) {
        SendMessageW(scripts_.Handle(), CB_SETCURSEL, *last, 0);
        ShowScript(model_.Scripts()[*last]);
    } else {
        scriptText_ = ScriptText::Read;
        lines_.Show({});
    }
}

void CTraceDialog::ShowChosenScript() {
    if (const auto path = scripts_.SelectedText()) {
        ShowScript(*path);
        ShowLine();
        ShowWhole();
        ShowStatus();
    }
}

void CTraceDialog::ShowScript(const std::wstring& path) {
    std::optional<std::wstring> text;
    scriptText_ = ScriptText::NotAFullPath;
    if (IsPathOfFile(path)) {
        script::DiskByteFiles files;
        text = script::ReadWhole(files, path, script::kMaxScriptBytes);
        scriptText_ = text ? ScriptText::Read : ScriptText::Unreadable;
    }
    lines_.Show(std::move(text).value_or(std::wstring()));
}

void CTraceDialog::ShowLine() {
    const std::size_t line = model_.Line().value_or(0);
    const bool isThere = line >= 1 && line <= lines_.Script().Count();
    const int row = isThere ? static_cast<int>(line) - 1 : CMarkedList::kNone;
    if (row == lines_.Marked())
        return;
    lines_.Mark(row);
    if (isThere)
        ListView_EnsureVisible(lines_.Handle(), row, FALSE);
}

void CTraceDialog::ShowVariables() {
    const auto changed = model_.LastChanged();
    variables_.SetItemCount(model_.Variables().size());
    variables_.Mark(changed ? static_cast<int>(*changed) : CMarkedList::kNone);
    InvalidateRect(variables_.Handle(), nullptr, FALSE);
    if (changed)
        ListView_EnsureVisible(variables_.Handle(), static_cast<int>(*changed), FALSE);
}

void CTraceDialog::ShowStatus() {
    const Situation situation{.HeldAt = heldAt_,
                              .IsNextHeld = model_.HoldsNextLine(),
                              .Text = scriptText_,
                              .LineCount = lines_.Script().Count()};
    const std::wstring text = StatusText(model_, situation, texts_);
    const HWND status = Item(IDC_TRACE_STATUS);
    if (framework::WindowText(status) != text)
        SetWindowTextW(status, text.c_str());
}

/// The row that is selected, at its full length: a table shows the beginning only.
void CTraceDialog::ShowWhole() {
    std::wstring text;
    const int row = wholeOf_ == IDC_TRACE_LINES ? lines_.FocusedItem() : variables_.FocusedItem();
    const auto index = static_cast<std::size_t>(row);
    if (row >= 0 && wholeOf_ == IDC_TRACE_LINES) {
        text = lines_.Script().Line(index + 1);
    } else if (row >= 0 && index < model_.Variables().size()) {
        const TracedVariable& variable = model_.Variables()[index];
        text = variable.Value;
        if (variable.IsCut())
            text += Fill(texts_.CutValue, std::to_wstring(variable.Units));
    }
    text = WithEditLineEnds(text);
    const HWND whole = Item(IDC_TRACE_WHOLE);
    // What stays is not set again, or it would scroll back under the reader's eyes.
    if (framework::WindowText(whole) != text)
        SetWindowTextW(whole, text.c_str());
}

framework::Answer CTraceDialog::OnSize(WPARAM wParam, LPARAM) {
    if (wParam != SIZE_MINIMIZED)
        LayOut();
    return std::nullopt;
}

framework::Answer CTraceDialog::OnLimits(WPARAM, LPARAM lParam) {
    constexpr int kLeastWidth = 340;
    constexpr int kLeastHeight = 200;
    const DialogUnits units(Handle());
    auto& limits = *reinterpret_cast<MINMAXINFO*>(lParam);
    limits.ptMinTrackSize = {units.Across(kLeastWidth), units.Down(kLeastHeight)};
    return 0;
}

void CTraceDialog::LayOut() {
    const DialogUnits units(Handle());
    RECT client{};
    GetClientRect(Handle(), &client);
    const auto place = [this](int id, int left, int top, int right, int bottom) {
        MoveWindow(Item(id), left, top, std::max(right - left, 0), std::max(bottom - top, 0), TRUE);
    };
    const int edge = units.Across(7);
    const int gap = units.Across(4);
    const int textHeight = units.Down(9);
    const int fieldHeight = units.Down(14);
    const int left = edge;
    const int right = client.right - edge;

    // From the top: the script, the two tables' names.
    int top = units.Down(7);
    const int fieldLeft = left + units.Across(40);
    place(IDC_TRACE_SCRIPT_LABEL, left, top + units.Down(3), fieldLeft, top + units.Down(3) + textHeight);
    place(IDC_TRACE_SCRIPT, fieldLeft, top, right, top + units.Down(150));
    top += units.Down(20);

    // From the bottom: the sentences, the buttons, the full text.
    int bottom = client.bottom - units.Down(5);
    place(IDC_TRACE_STATUS, left, bottom - textHeight, right, bottom);
    bottom -= textHeight + units.Down(6);
    int across = left;
    const auto row = [&](int id, int width, int below) {
        place(id, across, bottom - fieldHeight + below, across + units.Across(width), bottom);
        across += units.Across(width) + gap;
    };
    row(IDC_TRACE_GO_ON, 54, 0);
    row(IDC_TRACE_STEP, 66, 0);
    row(IDC_TRACE_HOLD_NOTHING, 78, 0);
    across = right - 2 * units.Across(42) - gap;
    row(IDC_TRACE_CLEAR, 42, 0);
    row(IDC_TRACE_SAVE, 42, 0);
    bottom -= fieldHeight + units.Down(5);
    across = left;
    row(IDC_TRACE_NUMBER_LABEL, 34, units.Down(3));
    row(IDC_TRACE_NUMBER, 34, 0);
    row(IDC_TRACE_TOGGLE, 108, 0);
    bottom -= fieldHeight + units.Down(7);
    const int wholeTop = bottom - units.Down(34);
    place(IDC_TRACE_WHOLE, left, wholeTop, right, bottom);
    bottom = wholeTop - units.Down(1);
    place(IDC_TRACE_WHOLE_LABEL, left, bottom - textHeight, right, bottom);
    bottom -= textHeight + units.Down(4);

    // Between them the tables, three parts of five for the lines.
    const int middle = left + (right - left) * 3 / 5;
    place(IDC_TRACE_LINES_LABEL, left, top, middle - gap, top + textHeight);
    place(IDC_TRACE_VARIABLES_LABEL, middle, top, right, top + textHeight);
    top += textHeight + units.Down(1);
    place(IDC_TRACE_LINES, left, top, middle - gap, bottom);
    place(IDC_TRACE_VARIABLES, middle, top, right, bottom);
    lines_.SetWidths({units.Across(28), units.Across(28)});
    variables_.SetWidths({units.Across(28), units.Across(56)});
}

}  // namespace ferry::tracewindow

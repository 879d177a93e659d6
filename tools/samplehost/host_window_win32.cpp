#include "host_window_win32.h"

#include <algorithm>

namespace ferry::samplehost {
namespace {

/// The text of a message's data: up to the first NUL, and never past the data's end.
/// Ferry's byte counts are larger than its texts, so that only the NUL tells the length.
std::wstring TextOf(const COPYDATASTRUCT& data) {
    if (data.lpData == nullptr)
        return {};
    const auto* const begin = static_cast<const wchar_t*>(data.lpData);
    return {begin, std::find(begin, begin + data.cbData / sizeof(wchar_t), L'\0')};
}

/// Messages that Ferry or its scripts post on purpose, and those that tell of the foreground.
bool IsWorthLogging(UINT message) {
    return message == WM_COMMAND || message == WM_ACTIVATE || message == WM_CLOSE || message >= WM_USER;
}

}  // namespace

HostWindow::~HostWindow() {
    log_.SetView(nullptr);
    for (const HWND window : {trace_, window_}) {
        if (window != nullptr)
            DestroyWindow(window);
    }
}

bool HostWindow::Create(const WindowPlace& place, int answerAfterMs) {
    answerAfterMs_ = answerAfterMs;
    const HINSTANCE instance = GetModuleHandleW(nullptr);
    if (!Register(kHostWindowClass))
        return false;
    window_ = CreateWindowExW(0, kHostWindowClass, L"Sample host", WS_OVERLAPPEDWINDOW, place.Left, place.Top,
                              place.Width, place.Height, nullptr, nullptr, instance, this);
    if (window_ == nullptr)
        return false;
    RECT client = {};
    GetClientRect(window_, &client);
    list_ = CreateWindowExW(0, L"LISTBOX", nullptr,
                            WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS, 0, 0,
                            client.right, client.bottom, window_, nullptr, instance, nullptr);
    log_.SetView([this](const std::wstring& line) { Show(line); });
    ShowWindow(window_, SW_SHOW);
    return list_ != nullptr;
}

bool HostWindow::CreateTrace(const std::wstring& title) {
    // A class of its own: the host is found by its class, and this window is not the host.
    constexpr wchar_t kClass[] = L"SampleHostTrace";
    if (!Register(kClass))
        return false;
    trace_ = CreateWindowExW(0, kClass, title.c_str(), WS_OVERLAPPEDWINDOW, 0, 0, 0, 0, nullptr, nullptr,
                             GetModuleHandleW(nullptr), this);
    return trace_ != nullptr;
}

bool HostWindow::Register(const wchar_t* className) {
    WNDCLASSEXW type = {};
    type.cbSize = sizeof(type);
    type.lpfnWndProc = Procedure;
    type.hInstance = GetModuleHandleW(nullptr);
    type.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    type.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    type.lpszClassName = className;
    return RegisterClassExW(&type) != 0;
}

void HostWindow::Show(const std::wstring& line) {
    const LRESULT index = SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    SendMessageW(list_, LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
}

LRESULT CALLBACK HostWindow::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        const auto* const creation = reinterpret_cast<const CREATESTRUCTW*>(second);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* const self = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr || self->window_ == nullptr)
        return DefWindowProcW(window, message, first, second);
    return self->Handle(window, message, first, second);
}

LRESULT HostWindow::Handle(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_COPYDATA) {
        LogData(window == window_ ? L"COPYDATA" : L"TRACE", first,
                *reinterpret_cast<const COPYDATASTRUCT*>(second));
        Sleep(static_cast<DWORD>(answerAfterMs_));
        return TRUE;
    }
    if (window != window_)
        return DefWindowProcW(window, message, first, second);
    if (IsWorthLogging(message)) {
        log_.Write({L"MESSAGE", Hexadecimal(message), Hexadecimal(first),
                    Hexadecimal(static_cast<unsigned long long>(second))});
    }
    switch (message) {
        case WM_SIZE:
            MoveWindow(list_, 0, 0, LOWORD(second), HIWORD(second), TRUE);
            return 0;
        case WM_CLOSE:
            PostQuitMessage(0);  // the window goes when the host does
            return 0;
        default:
            return DefWindowProcW(window_, message, first, second);
    }
}

void HostWindow::LogData(const wchar_t* kind, WPARAM sender, const COPYDATASTRUCT& data) {
    log_.Write({kind, std::to_wstring(data.dwData), std::to_wstring(data.cbData), Hexadecimal(sender),
                TextOf(data)});
}

}  // namespace ferry::samplehost

#include "windows/recording_window_win32.h"

#include <algorithm>

namespace ferry::test {

RecordingWindow::RecordingWindow(std::wstring className, const std::wstring& title)
    : className_(std::move(className)) {
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = className_.c_str();
    EXPECT_NE(RegisterClassW(&description), 0);
    window_.Reset(CreateWindowExW(0, className_.c_str(), title.c_str(), WS_OVERLAPPEDWINDOW, 30, 40, 300, 200,
                                  nullptr, nullptr, GetModuleHandleW(nullptr), nullptr));
    SetWindowLongPtrW(window_.Get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

RecordingWindow::~RecordingWindow() {
    window_.Reset();
    UnregisterClassW(className_.c_str(), GetModuleHandleW(nullptr));
}

std::vector<script::contract::ArrivedRecord> RecordingWindow::TakeRecords() {
    HandlePosted();
    return std::exchange(records_, {});
}

std::vector<script::contract::ArrivedMessage> RecordingWindow::TakeMessages() {
    HandlePosted();
    return std::exchange(messages_, {});
}

void RecordingWindow::HandlePosted() {
    handlesPosted_ = true;
    Pump();
    handlesPosted_ = false;
}

void RecordingWindow::NoteRecord(WPARAM sender, const COPYDATASTRUCT& data) {
    const auto* const bytes = static_cast<const std::byte*>(data.lpData);
    const auto* const text = static_cast<const wchar_t*>(data.lpData);
    lastSender_ = sender;
    lastBytes_.assign(bytes, bytes + data.cbData);
    records_.push_back({static_cast<std::uint32_t>(data.dwData), data.cbData,
                        std::wstring(text, std::find(text, text + data.cbData / sizeof(wchar_t), L'\0'))});
}

LRESULT CALLBACK RecordingWindow::Procedure(HWND window, UINT message, WPARAM wParam,
                                            LPARAM lParam) noexcept {
    auto* const self = reinterpret_cast<RecordingWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self != nullptr && message == WM_COPYDATA) {
        self->NoteRecord(wParam, *reinterpret_cast<const COPYDATASTRUCT*>(lParam));
        return TRUE;
    }
    // Those of the system's own parts bear registered numbers, far above what anybody posts by number.
    constexpr UINT kFirstRegistered = 0xC000;
    if (self != nullptr && (message == WM_COMMAND || (message >= WM_APP && message < kFirstRegistered))) {
        self->messages_.push_back(
            {message, static_cast<int>(wParam), static_cast<int>(lParam), self->handlesPosted_});
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace ferry::test

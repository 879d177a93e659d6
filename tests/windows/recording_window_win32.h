// A window that writes down what other programs send to it.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "core/script/window_contract.h"
#include "windows/support_win32.h"

namespace ferry::test {

/// A top-level window of this thread, with a class of its own.
class RecordingWindow {
public:
    RecordingWindow(std::wstring className, const std::wstring& title);
    ~RecordingWindow();
    RecordingWindow(const RecordingWindow&) = delete;
    RecordingWindow& operator=(const RecordingWindow&) = delete;

    HWND Handle() const noexcept { return window_.Get(); }

    /// What came since the last call: records, and messages from WM_COMMAND and WM_APP on. Messages that wait
    /// are handled first.
    std::vector<script::contract::ArrivedRecord> TakeRecords();
    std::vector<script::contract::ArrivedMessage> TakeMessages();

    /// Who the last record said that it is from.
    WPARAM LastSender() const noexcept { return lastSender_; }

    /// The bytes of the last record.
    const std::vector<std::byte>& LastBytes() const noexcept { return lastBytes_; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void NoteRecord(WPARAM sender, const COPYDATASTRUCT& data);
    void HandlePosted();

    std::wstring className_;
    TestWindow window_;
    std::vector<script::contract::ArrivedRecord> records_;
    std::vector<script::contract::ArrivedMessage> messages_;
    std::vector<std::byte> lastBytes_;
    WPARAM lastSender_ = 0;
    bool handlesPosted_ = false;
};

}  // namespace ferry::test

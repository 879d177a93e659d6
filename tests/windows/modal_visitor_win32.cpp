#include "windows/modal_visitor_win32.h"

#include <string_view>
#include <utility>

namespace ferry::test {
namespace {

constexpr UINT kLookMs = 10;

}  // namespace

ModalVisitor::ModalVisitor(HWND owner, std::function<void(HWND)> visit)
    : owner_(owner), visit_(std::move(visit)), timer_(SetTimer(nullptr, 0, kLookMs, &Look)) {
    EnumThreadWindows(GetCurrentThreadId(), &Remember, reinterpret_cast<LPARAM>(this));
    current_ = this;
}

ModalVisitor::~ModalVisitor() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
}

void CALLBACK ModalVisitor::Look(HWND, UINT, UINT_PTR, DWORD) {
    if (!current_->hasVisited_) {
        EnumThreadWindows(GetCurrentThreadId(), &VisitIfWanted, reinterpret_cast<LPARAM>(current_));
    }
}

BOOL CALLBACK ModalVisitor::Remember(HWND window, LPARAM visitor) {
    reinterpret_cast<ModalVisitor*>(visitor)->before_.insert(window);
    return TRUE;
}

BOOL CALLBACK ModalVisitor::VisitIfWanted(HWND window, LPARAM visitor) {
    auto& self = *reinterpret_cast<ModalVisitor*>(visitor);
    wchar_t className[16] = {};
    GetClassNameW(window, className, 16);
    if (std::wstring_view(className) != L"#32770" || !IsWindowVisible(window) ||
        GetWindow(window, GW_OWNER) != self.owner_ || self.before_.contains(window)) {
        return TRUE;
    }
    self.hasVisited_ = true;
    self.visit_(window);
    return FALSE;
}

}  // namespace ferry::test

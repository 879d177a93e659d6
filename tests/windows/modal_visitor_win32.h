// A look into a modal dialog from inside its own loop.
#pragma once

#include <windows.h>

#include <functional>
#include <set>

namespace ferry::test {

/// Calls `visit` with the next dialog of this thread that `owner` owns, once it is visible; `visit` ends it.
/// A dialog that stood before is none.
class ModalVisitor {
public:
    ModalVisitor(HWND owner, std::function<void(HWND)> visit);
    ~ModalVisitor();
    ModalVisitor(const ModalVisitor&) = delete;
    ModalVisitor& operator=(const ModalVisitor&) = delete;

    bool HasVisited() const noexcept { return hasVisited_; }

private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD);
    static BOOL CALLBACK VisitIfWanted(HWND window, LPARAM visitor);
    static BOOL CALLBACK Remember(HWND window, LPARAM visitor);

    static inline ModalVisitor* current_ = nullptr;
    HWND owner_;
    std::set<HWND> before_;
    std::function<void(HWND)> visit_;
    UINT_PTR timer_;
    bool hasVisited_ = false;
};

}  // namespace ferry::test

#include "framework/app.h"

#include "framework/errors.h"

namespace ferry::framework {

int CWinApp::Run() noexcept {
    try {
        if (!InitInstance()) {
            return 0;
        }
        MSG message{};
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        return static_cast<int>(message.wParam);
    } catch (...) {
        ReportCurrentException();
        return 1;
    }
}

}  // namespace ferry::framework

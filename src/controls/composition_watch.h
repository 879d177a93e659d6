// Knows whether an input method is composing in an edit field.
#pragma once

#include "framework/window.h"

namespace ferry::controls {

/// Listens to an edit field. What the input method's own keys do to a text that is being composed
/// must not be disturbed by what the same keys mean to the field.
class CompositionWatch : public framework::CWnd {
public:
    bool IsComposing() const noexcept { return isComposing_; }

protected:
    framework::Answer Dispatch(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_IME_STARTCOMPOSITION || message == WM_IME_ENDCOMPOSITION) {
            isComposing_ = message == WM_IME_STARTCOMPOSITION;
        }
        return CWnd::Dispatch(message, wParam, lParam);
    }

private:
    bool isComposing_ = false;
};

}  // namespace ferry::controls

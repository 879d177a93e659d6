// Dialogs made from resource templates, modal and modeless.
#pragma once

#include <windows.h>

#include "framework/handles.h"
#include "framework/window.h"

namespace ferry::framework {

/// A dialog of one resource template.
/// Modal dialogs are created modeless and driven by a loop of our own, so that controls see keys
/// before the dialog does and the object can go on working after its dialog has ended.
class CDialog : public CWnd {
public:
    /// `owner` may be null; one that the system refuses counts as null. The template is looked up in the
    /// executable.
    explicit CDialog(UINT templateId, HWND owner = nullptr) noexcept
        : templateId_(templateId), owner_(owner) {}
    CDialog(const CDialog&) = delete;
    CDialog& operator=(const CDialog&) = delete;
    ~CDialog() override;

    /// The icon that all dialogs bear, by its number in the executable; 0: none.
    static void UseIcon(UINT icon) noexcept { iconId_ = icon; }

    /// Shows the dialog and returns what EndDialog was given; -1 when it could not be made.
    int DoModal();

    /// Makes the dialog without running a loop. False when it could not be made.
    bool Create(HWND owner);

    /// Destroys the window, if there is one.
    virtual void DestroyWindow();

    /// Ends the dialog: its owner is enabled, it is hidden at once, and DoModal returns `result`
    /// as soon as the message that is being handled is done.
    virtual void EndDialog(int result);

    /// A modeless dialog whose keys work while this one is modal, and which gets the keyboard afterwards;
    /// null for none. It must outlive DoModal.
    void SetCompanion(CDialog* companion) noexcept { companion_ = companion; }

    /// Gives `message` to the controls' pre-translation and to the dialog's keyboard handling.
    /// True when it was consumed and must not be dispatched.
    bool HandleDialogMessage(MSG& message);

protected:
    int TemplateId() const noexcept { return static_cast<int>(templateId_); }

    /// Called once when all controls exist. True lets the system choose the first focus.
    virtual bool OnInitDialog() { return true; }
    virtual void OnOK() { EndDialog(IDOK); }
    virtual void OnCancel() { EndDialog(IDCANCEL); }

    /// The class's routes first, then the dialog's own OK and Cancel. Help that no route gives is asked of
    /// the owner: WM_HELP with the number of this dialog's template.
    Answer Dispatch(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void RunLoop();
    void EnableOwner() noexcept;
    void ShowIcons();
    Answer AskOwnerForHelp(WPARAM wParam, LPARAM lParam);
    bool Make(HWND owner);

    static inline UINT iconId_ = 0;

    UINT templateId_;
    IconHandle largeIcon_;
    IconHandle smallIcon_;
    HWND owner_;
    HWND disabledOwner_ = nullptr;
    CDialog* companion_ = nullptr;
    int result_ = -1;
    bool ended_ = false;
};

}  // namespace ferry::framework

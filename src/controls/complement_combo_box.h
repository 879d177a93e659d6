// A field for a folder's path, completed against the file system.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "completion/key_table.h"
#include "controls/composition_watch.h"
#include "files/ports.h"
#include "framework/controls.h"
#include "lang/catalogue.h"

namespace ferry::controls {

/// An extended combo box that offers what completes the typed path, and walks the folder tree by
/// keys. While no search is under way its list shows the fixed items. The list may show a path
/// shortened; the edit field and everything else have it whole.
class CComplementComboBox : public framework::CComboBoxEx {
public:
    /// All must outlive the control.
    CComplementComboBox(files::FileInfo& info, files::FolderSearch& search, lang::Catalogue& messages,
                        lang::Speaker& speaker) noexcept
        : info_(info), search_(search), messages_(messages), speaker_(speaker) {}

    /// Attaches to the extended combo box `control`. False when there is none.
    bool Prepare(HWND control);

    /// Posts the command `id` to `window` when Enter is pressed while the list is closed.
    void SetNotification(HWND window, int id) noexcept;

    /// The folder that completion puts in front of a relative text; empty: none.
    void SetBaseFolder(std::wstring folder) { baseFolder_ = std::move(folder); }

    /// The folder that a search for a relative text looks in; empty: none.
    void SetSearchBase(std::wstring folder) { searchBase_ = std::move(folder); }
    void SetFoldersOnly(bool on) noexcept { foldersOnly_ = on; }

    /// Whether Tab completes.
    void SetCompletionOn(bool on) noexcept { completionOn_ = on; }

    /// The whole path of the item that was last accepted with Enter.
    const std::wstring& ChosenText() const noexcept { return chosenText_; }

    /// The whole paths of the list's items, in their order.
    const std::vector<std::wstring>& Candidates() const noexcept { return candidates_; }

    /// Closes the list and puts `text` into the field, with the caret behind it.
    void ReplaceText(const std::wstring& text);

    bool PreTranslateMessage(MSG& message) override;

protected:
    /// The message that asks for the history to be cleared.
    static constexpr UINT kClearHistoryMessage = WM_APP + 5;

    framework::Answer Dispatch(UINT message, WPARAM wParam, LPARAM lParam) override;

    /// Puts the fixed items into the list.
    virtual void ShowFixedItems();
    void SetFixedItems(std::vector<std::wstring> items) { fixedItems_ = std::move(items); }

private:
    bool Perform(completion::KeyAction action);

    void Complete();
    void Search();
    void Show();
    void GoUpOneLevel();
    void DeleteToEnd();
    void AskToClear();

    void FillList(std::vector<std::wstring> paths);
    void WidenList() const noexcept;
    void OpenOwnList();
    void SelectWhole(int index);
    void AcceptItem();
    std::optional<std::wstring> WholePath(int index) const;
    void PutText(const std::wstring& text);

    framework::Answer OnListNotification(UINT code, WPARAM wParam, LPARAM lParam);
    framework::Answer OnDropFiles(WPARAM wParam, LPARAM lParam);

    files::FileInfo& info_;
    files::FolderSearch& search_;
    lang::Catalogue& messages_;
    lang::Speaker& speaker_;
    CompositionWatch composition_;
    HWND notifyWindow_ = nullptr;
    int notifyId_ = 0;
    std::wstring chosenText_;
    std::vector<std::wstring> candidates_;
    std::wstring baseFolder_;
    std::vector<std::wstring> fixedItems_;
    bool foldersOnly_ = false;
    bool completionOn_ = false;
    std::wstring searchBase_;

    // While the list is open: the text that was typed, and the item taken in its place.
    std::wstring typedText_;
    std::optional<std::wstring> acceptedText_;
    bool isOpening_ = false;
};

}  // namespace ferry::controls

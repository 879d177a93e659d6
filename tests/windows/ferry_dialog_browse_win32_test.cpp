// The folder browser of the destination: what it is asked, and what becomes of its answer.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which the shell's headers build on.
#include <shlobj.h>

#include <functional>
#include <optional>
#include <set>

#include "windows/ferry_dialog_fixture_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

/// A browser in which a folder of this path is chosen at once; none when nothing is.
class InstantBrowser {
public:
    explicit InstantBrowser(std::optional<std::wstring> chosen) : chosen_(std::move(chosen)) {}

    HWND Owner = nullptr;
    std::wstring Prompt;
    std::wstring Start;
    UINT Flags = 0;
    std::function<void()> WhenOpen = [] {};

    /// The memory that the program has been given and has to free.
    std::set<const void*> Given;

private:
    PIDLIST_ABSOLUTE Browse(LPBROWSEINFOW info) {
        Owner = info->hwndOwner;
        Prompt = info->lpszTitle;
        Start = StartOf(*info);
        Flags = info->ulFlags;
        WhenOpen();
        if (!chosen_) {
            return nullptr;
        }
        const PIDLIST_ABSOLUTE item = ILCreateFromPathW(L"C:\\");
        Given.insert(item);
        return item;
    }

    /// The folder that the browser is told to select when it has opened.
    static std::wstring StartOf(const BROWSEINFOW& info) {
        const test::TestWindow browser(
            CreateWindowExW(0, L"Static", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr));
        std::wstring start;
        const test::WatchedImport<&SendMessageW> send(
            "SendMessageW", [&](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
                if (window == browser.Get() && message == BFFM_SETSELECTIONW && wParam == TRUE) {
                    start = reinterpret_cast<const wchar_t*>(lParam);
                }
                return 0;
            });
        info.lpfn(browser.Get(), BFFM_INITIALIZED, 0, info.lParam);
        return start;
    }

    HRESULT Name(SIGDN form, PWSTR* name) {
        EXPECT_EQ(form, SIGDN_FILESYSPATH);
        const std::size_t bytes = (chosen_->size() + 1) * sizeof(wchar_t);
        *name = static_cast<PWSTR>(CoTaskMemAlloc(bytes));
        CopyMemory(*name, chosen_->c_str(), bytes);
        Given.insert(*name);
        return S_OK;
    }

    std::optional<std::wstring> chosen_;
    test::WatchedImport<&SHBrowseForFolderW> browse_{"SHBrowseForFolderW",
                                                     [this](LPBROWSEINFOW info) { return Browse(info); }};
    test::WatchedImport<&SHGetNameFromIDList> name_{
        "SHGetNameFromIDList",
        [this](PCIDLIST_ABSOLUTE, SIGDN form, PWSTR* name) { return Name(form, name); }};
};

class Browsing : public FerryDialogTest {
protected:
    void SetUp() override {
        world_.Messages.File = L"63503\tWhere to?\r\n";
        Open({L"C:\\a.txt"});
        SetWindowTextW(Edit(), L"D:\\before");
    }

    void PressBrowse() { test::Click(Window(), IDC_BROWSE); }
};

TEST_F(Browsing, AsksWithItsPromptFromTheDestinationOn) {
    const InstantBrowser browser(std::nullopt);
    PressBrowse();
    EXPECT_EQ(browser.Owner, Window());
    EXPECT_EQ(browser.Prompt, L"Where to?");
    EXPECT_EQ(browser.Start, L"D:\\before");
    EXPECT_EQ(Destination(), L"D:\\before");
}

TEST_F(Browsing, PutsTheChosenFolderThereAndSelectsIt) {
    const InstantBrowser browser(L"E:\\chosen");
    PressBrowse();
    EXPECT_EQ(Destination(), L"E:\\chosen\\");
    DWORD start = 9;
    DWORD end = 0;
    SendMessageW(Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 0U);
    EXPECT_EQ(end, 10U);
}

TEST_F(Browsing, TakesNoFolderOfFiveHundredAndTwentyCharactersOrMore) {
    const std::wstring longest = L"E:\\" + std::wstring(516, L'x');
    {
        const InstantBrowser browser(longest + L"y");
        PressBrowse();
        EXPECT_EQ(Destination(), L"D:\\before");
    }
    const InstantBrowser browser(longest);
    PressBrowse();
    EXPECT_EQ(Destination(), longest + L"\\");
}

TEST_F(Browsing, TakesNothingThatHasNoPath) {
    const InstantBrowser browser(L"");
    PressBrowse();
    EXPECT_EQ(Destination(), L"D:\\before");
}

TEST_F(Browsing, OffersFoldersOnDisksAndAFieldForAPath) {
    const InstantBrowser browser(std::nullopt);
    PressBrowse();
    EXPECT_EQ(browser.Flags, UINT{BIF_RETURNONLYFSDIRS | BIF_EDITBOX | BIF_NEWDIALOGSTYLE});
}

TEST_F(Browsing, HasOleWhileTheBrowserIsOpen) {
    // Without it the field for a path completes nothing, and nothing can be dragged.
    std::vector<std::string> steps;
    const test::WatchedImport<&OleInitialize> begin("OleInitialize", [&](LPVOID reserved) {
        steps.emplace_back("begin");
        return begin.CallReal(reserved);
    });
    const test::WatchedImport<&OleUninitialize> end("OleUninitialize", [&] {
        steps.emplace_back("end");
        end.CallReal();
    });
    InstantBrowser browser(std::nullopt);
    browser.WhenOpen = [&] { steps.emplace_back("browse"); };
    PressBrowse();
    EXPECT_EQ(steps, (std::vector<std::string>{"begin", "browse", "end"}));
}

TEST_F(Browsing, LeavesNeitherTheChosenItemNorItsPathInMemory) {
    std::set<const void*> freed;
    const test::WatchedImport<&CoTaskMemFree> release("CoTaskMemFree", [&](LPVOID memory) {
        freed.insert(memory);
        release.CallReal(memory);
    });
    const InstantBrowser browser(L"E:\\chosen");
    PressBrowse();
    EXPECT_EQ(browser.Given.size(), 2U);
    EXPECT_EQ(freed, browser.Given);
}

}  // namespace
}  // namespace ferry::dialogs

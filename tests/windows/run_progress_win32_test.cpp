// The progress window through whole runs: what a person sees of it while an item is under way.
#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which it builds on.
#include <commctrl.h>

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/transfer/model_ports.h"
#include "dialogs/run_windows.h"
#include "ids.h"
#include "paths/path_grammar.h"
#include "transfer/individual_run.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

namespace ferry::dialogs {
namespace {

/// Transfers nothing, and tells of each item while it is under way.
class TellingShell final : public transfer::ShellOperations {
public:
    explicit TellingShell(std::function<void(std::wstring_view)> during) : during_(std::move(during)) {}

    transfer::ShellOutcome Transfer(const transfer::ShellTransfer& transfer) override {
        during_(paths::LastComponent(transfer.Source));
        return {};
    }
    transfer::BatchOutcome TransferAll(const base::TextList&, const transfer::ShellTransfer&) override {
        return {};
    }
    void NotifyFolderMade(std::wstring_view) override {}

private:
    std::function<void(std::wstring_view)> during_;
};

/// Skips whatever is asked about, after a moment.
class SkippingPerson final : public transfer::Questions {
public:
    explicit SkippingPerson(std::function<void()> think) : think_(std::move(think)) {}

    transfer::CollisionAnswer AskCollision(std::wstring_view) override {
        think_();
        return {};
    }
    transfer::NameAnswer AskNewName(transfer::RenameKind, std::wstring_view) override { return {}; }
    void ShowError(std::uint16_t) override {}

private:
    std::function<void()> think_;
};

/// What the window showed while an item was under way, and when the item was begun.
struct Sight {
    std::wstring Item;
    std::wstring Title;
    std::wstring Name;
    LRESULT Position = 0;
    LRESULT Range = 0;
    bool IsDrawn = false;
    ULONGLONG Begun = 0;
};

/// Whether nothing of `window` waits to be drawn.
bool IsDrawn(HWND window) {
    bool isDrawn = GetUpdateRect(window, nullptr, FALSE) == FALSE;
    for (HWND control = GetWindow(window, GW_CHILD); control != nullptr;
         control = GetWindow(control, GW_HWNDNEXT))
        isDrawn = isDrawn && GetUpdateRect(control, nullptr, FALSE) == FALSE;
    return isDrawn;
}

/// Runs over made-up files on a clock that goes on only while an item is under way. Its messages come no
/// sooner: a timer does not help a window that nobody lets draw.
class ProgressOfARun : public testing::Test {
protected:
    ProgressOfARun() {
        world_.Messages.File = L"5953\tmoving\r\n5954\tcopying\r\n";
        shared_.Files.AddFolder(L"D:\\out");
        shared_.Faults = [this](std::size_t, std::wstring_view port) {
            if (port == L"MakeFolder")
                LookDuring(L"folder " + std::to_wstring(++folders_));
            return transfer::model::Fault::None;
        };
    }

    /// A file that takes a while to go.
    void AddFile(const std::wstring& path, ULONGLONG takesMs = 0, std::uint64_t size = 0) {
        shared_.Files.AddFile(path, {}).ExtraSize = size;
        takesMs_[std::wstring(paths::LastComponent(path))] = takesMs;
    }

    void AddSource(std::wstring_view path) { request_.Sources.Append(path); }

    void Run(transfer::Operation operation = transfer::Operation::Copy) {
        request_.What = operation;
        request_.Destination = L"D:\\out\\";
        const test::WatchedImport<&GetTickCount64> clock("GetTickCount64", [this] { return now_; });
        const test::WatchedImport<&SetTimer> timers("SetTimer",
                                                    [](HWND, UINT_PTR id, UINT, TIMERPROC) { return id; });
        ProgressWindow view(world_.Services(), confirmation_.Get(), operation);
        window_ = view.Window();
        transfer::IndividualRun run(request_, {files_, files_, files_, shell_, world_.Clock, person_, view});
        EXPECT_TRUE(run.Run());
    }

    /// What was seen while `item` was under way, in words.
    std::wstring During(const wchar_t* item) const {
        const auto sight = std::ranges::find(seen_, item, &Sight::Item);
        if (sight == seen_.end())
            return L"it never came";
        return std::to_wstring(sight->Position) + L" of " + std::to_wstring(sight->Range) + L", " +
               sight->Title + L" '" + sight->Name + L"'" + (sight->IsDrawn ? L"" : L", not drawn");
    }

    test::DialogWorld world_;
    transfer::model::World shared_;
    transfer::TransferRequest request_;
    ULONGLONG thinksMs_ = 0;  ///< How long a question is open.
    std::vector<Sight> seen_;

private:
    /// Looks at the window as it stands, without handling a message, as the copying of a file would.
    void LookDuring(const std::wstring& item) {
        const HWND bar = GetDlgItem(window_, IDC_BUSY_BAR);
        seen_.push_back({item, test::TextOfControl(window_, IDC_BUSY_TITLE),
                         test::TextOfControl(window_, IDC_BUSY_ITEM), SendMessageW(bar, PBM_GETPOS, 0, 0),
                         SendMessageW(bar, PBM_GETRANGE, FALSE, 0), IsDrawn(window_), now_});
        now_ += takesMs_[item];
    }

    ULONGLONG now_ = 1'000'000;
    HWND window_ = nullptr;
    int folders_ = 0;
    std::map<std::wstring, ULONGLONG> takesMs_;
    test::TestWindow confirmation_{CreateWindowExW(0, L"Static", L"confirmation", WS_POPUP, 0, 0, 100, 100,
                                                   nullptr, nullptr, nullptr, nullptr)};
    transfer::model::ModelFileSystem files_{shared_};
    TellingShell shell_{[this](std::wstring_view item) { LookDuring(std::wstring(item)); }};
    SkippingPerson person_{[this] { now_ += thinksMs_; }};
};

TEST_F(ProgressOfARun, ShowsTheFirstItemWhileItIsUnderWay) {
    AddFile(L"C:\\s\\only");
    AddSource(L"C:\\s\\only");
    Run();
    EXPECT_EQ(During(L"only"), L"1 of 1, copying ''");
}

TEST_F(ProgressOfARun, ShowsTheFirstFolderWhileItIsMade) {
    AddFile(L"C:\\s\\dir\\a");
    AddSource(L"C:\\s\\dir");
    Run(transfer::Operation::Move);
    EXPECT_EQ(During(L"folder 1"), L"1 of 2, moving ''");
}

TEST_F(ProgressOfARun, ShowsTheFirstItemOfTheNextSourceWithTheCountOfThatSource) {
    AddFile(L"C:\\s\\a");
    AddFile(L"C:\\s\\b");
    AddFile(L"C:\\s\\dir\\c");
    AddFile(L"C:\\s\\dir\\d");
    for (const wchar_t* const source : {L"C:\\s\\a", L"C:\\s\\b", L"C:\\s\\dir"})
        AddSource(source);
    Run();
    EXPECT_EQ(During(L"b"), L"1 of 1, copying 'a'") << "although it stands beside the item before";
    EXPECT_EQ(During(L"folder 1"), L"1 of 3, copying 'b'");
}

TEST_F(ProgressOfARun, ShowsTheFirstItemOfEachFolder) {
    for (const wchar_t* const file :
         {L"C:\\s\\dir\\one\\a", L"C:\\s\\dir\\one\\b", L"C:\\s\\dir\\two\\c", L"C:\\s\\dir\\d"})
        AddFile(file);
    AddSource(L"C:\\s\\dir");
    Run();
    EXPECT_EQ(During(L"folder 2"), L"2 of 7, copying 'dir'");
    EXPECT_EQ(During(L"a"), L"4 of 7, copying 'two'");
    EXPECT_EQ(During(L"c"), L"6 of 7, copying 'b'");
    EXPECT_EQ(During(L"d"), L"7 of 7, copying 'c'");
}

TEST_F(ProgressOfARun, ShowsALargeFileWhileItIsUnderWay) {
    AddFile(L"C:\\s\\dir\\a");
    AddFile(L"C:\\s\\dir\\b");
    AddFile(L"C:\\s\\dir\\large", 0, transfer::kQuickSizeLimit + 1);
    AddSource(L"C:\\s\\dir");
    Run();
    EXPECT_EQ(During(L"large"), L"4 of 4, copying 'b'");
}

TEST_F(ProgressOfARun, ShowsAnItemThatBeginsATenthOfASecondAfterTheLastDrawing) {
    AddFile(L"C:\\s\\dir\\a", kShowDelayMs / 2);
    AddFile(L"C:\\s\\dir\\asked about");
    AddFile(L"C:\\s\\dir\\b");
    AddFile(L"D:\\out\\dir\\asked about");
    AddSource(L"C:\\s\\dir");
    request_.Settings.Policy = static_cast<std::uint32_t>(transfer::CollisionPolicy::AskEach);
    thinksMs_ = kShowDelayMs / 2;
    Run();
    EXPECT_EQ(During(L"asked about"), L"it never came");
    EXPECT_EQ(During(L"b"), L"4 of 4, copying 'a'");
}

TEST_F(ProgressOfARun, ShowsTheItemThatFollowsASlowOne) {
    for (const wchar_t* const file : {L"a", L"b", L"c"})
        AddFile(std::wstring(L"C:\\s\\dir\\") + file, kShowDelayMs);
    AddSource(L"C:\\s\\dir");
    Run();
    EXPECT_EQ(During(L"b"), L"3 of 4, copying 'a'") << "which was drawn as the last one just now";
    EXPECT_EQ(During(L"c"), L"4 of 4, copying 'b'");
}

TEST_F(ProgressOfARun, ShowsQuickItemsLaterThanTheyCome) {
    AddFile(L"C:\\s\\dir\\slow", kShowDelayMs);
    for (const wchar_t* const file : {L"a", L"b", L"c"})
        AddFile(std::wstring(L"C:\\s\\dir\\") + file);
    AddSource(L"C:\\s\\dir");
    Run();
    for (const wchar_t* const item : {L"a", L"b", L"c"})
        EXPECT_EQ(During(item), L"3 of 5, copying 'slow'") << "or drawing would take longer than copying";
}

TEST_F(ProgressOfARun, ShowsNothingThatIsOlderThanATenthOfASecondWhenAnItemBegins) {
    constexpr std::size_t kFiles = 200;
    for (std::size_t file = 0; file < kFiles; ++file)
        AddFile(L"C:\\s\\dir\\" + std::to_wstring(file), file * 37 % kShowDelayMs);
    AddSource(L"C:\\s\\dir");
    Run();
    ASSERT_EQ(seen_.size(), kFiles + 1);
    seen_.front().Item = L"dir";
    for (std::size_t index = 1; index <= kFiles; ++index) {
        const Sight& sight = seen_[index];
        const auto position = static_cast<std::size_t>(sight.Position);
        const auto isOld = [&](const Sight& other) { return other.Begun + kShowDelayMs <= sight.Begun; };
        EXPECT_LE(position, index + 1);
        EXPECT_GE(position, static_cast<std::size_t>(std::ranges::count_if(seen_, isOld))) << index;
        ASSERT_GE(position, 1U);
        const std::wstring before = position == 1 ? L"" : seen_[position - 2].Item;
        EXPECT_TRUE(sight.Name == before || sight.Name == seen_[position - 1].Item)
            << index << ": the name and the bar are of the same moment";
        EXPECT_EQ(sight.Range, LRESULT{kFiles + 1});
        EXPECT_EQ(sight.Title, L"copying");
    }
}

TEST_F(ProgressOfARun, IsRightDuringEachSlowItemWhateverIsMixed) {
    constexpr ULONGLONG kSlowMs = 5'000;
    AddFile(L"C:\\s\\first", kSlowMs);
    AddFile(L"C:\\s\\dir\\sub\\in sub", kSlowMs);
    AddFile(L"C:\\s\\dir\\sub\\after slow", kSlowMs);
    for (int quick = 1; quick <= 3; ++quick)
        AddFile(L"C:\\s\\dir\\quick " + std::to_wstring(quick), 1);
    AddFile(L"C:\\s\\dir\\large", kSlowMs, 5'000'000);
    AddFile(L"C:\\s\\dir\\quick 4", 1);
    AddFile(L"C:\\s\\last", kSlowMs);
    for (const wchar_t* const source : {L"C:\\s\\first", L"C:\\s\\dir", L"C:\\s\\last"})
        AddSource(source);
    Run(transfer::Operation::Move);
    EXPECT_EQ(During(L"first"), L"1 of 1, moving ''");
    EXPECT_EQ(During(L"in sub"), L"3 of 9, moving 'sub'");
    EXPECT_EQ(During(L"after slow"), L"4 of 9, moving 'in sub'");
    EXPECT_EQ(During(L"large"), L"8 of 9, moving 'quick 3'");
    EXPECT_EQ(During(L"last"), L"1 of 1, moving 'quick 4'");
}

}  // namespace
}  // namespace ferry::dialogs

// The list of paths: its icons and how they are asked for, and its drawing.
#include "controls/cmd_list_ctrl.h"

#include <windows.h>
#include <gtest/gtest.h>
// After windows.h, which these build on.
#include <commctrl.h>
#include <imm.h>
#include <objbase.h>
#include <shellapi.h>

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <set>

#include "base/handles_win32.h"
#include "files/disk_win32.h"
#include "framework/dialog.h"
#include "ids.h"
#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"
#include "windows/watched_messages_win32.h"

namespace ferry::controls {
namespace {

constexpr UINT kIconsReady = 48500;
constexpr UINT kByName = 0x4010;
constexpr UINT kByPath = 0x4002;
constexpr DWORD kFolderAttribute = 16;
constexpr DWORD kFileAttribute = 128;

/// What the shell was asked about one icon.
struct AskedIcon {
    std::wstring What;
    DWORD Attributes = 0;
    UINT Flags = 0;
    bool IsOnWorker = false;

    bool operator==(const AskedIcon&) const = default;
};

void PrintTo(const AskedIcon& icon, std::ostream* stream) {
    *stream << testing::PrintToString(icon.What) << " " << icon.Attributes << " " << icon.Flags
            << (icon.IsOnWorker ? " on a worker" : "");
}

constexpr int kIcon = 7;
constexpr int kIconOfAnother = 8;

/// Answers for the shell's icons: a path that ends with "another" has a number of its own, every other one
/// the same, unless the query fails.
class WatchedIcons {
public:
    std::atomic<bool> Fails = false;

    /// Lets queries wait until Release; one that waits too long gives up.
    void Hold() { ResetEvent(released_.Get()); }
    void Release() { SetEvent(released_.Get()); }

    /// How many queries wait.
    int Waiting() const { return waiting_; }

    std::vector<AskedIcon> Asked() const {
        const std::lock_guard guard(lock_);
        return asked_;
    }

private:
    DWORD_PTR Answer(LPCWSTR what, DWORD attributes, SHFILEINFOW* info, UINT size, UINT flags) {
        EXPECT_EQ(size, sizeof(SHFILEINFOW));
        ++waiting_;
        WaitForSingleObject(released_.Get(), test::kPatienceMs);
        --waiting_;
        const std::lock_guard guard(lock_);
        asked_.push_back({what, attributes, flags, GetCurrentThreadId() != thread_});
        info->iIcon = asked_.back().What.ends_with(L"another") ? kIconOfAnother : kIcon;
        return Fails ? 0 : 1;
    }

    DWORD thread_ = GetCurrentThreadId();
    base::EventHandle released_{CreateEventW(nullptr, TRUE, TRUE, nullptr)};
    std::atomic<int> waiting_ = 0;
    mutable std::mutex lock_;
    std::vector<AskedIcon> asked_;
    test::WatchedImport<&SHGetFileInfoW> query_{
        "SHGetFileInfoW", [this](LPCWSTR what, DWORD attributes, SHFILEINFOW* info, UINT size, UINT flags) {
            return Answer(what, attributes, info, size, flags);
        }};
};

/// The list stands in a dialog, which passes its notifications on to it.
class CmdListCtrlTest : public testing::Test {
protected:
    void SetUp() override {
        const INITCOMMONCONTROLSEX classes{sizeof(classes), ICC_USEREX_CLASSES | ICC_LISTVIEW_CLASSES};
        ASSERT_TRUE(InitCommonControlsEx(&classes));
        ASSERT_TRUE(dialog_.Create(nullptr));
        icons_ = ImageList_Create(16, 16, ILC_COLOR, 1, 1);
        largeIcons_ = ImageList_Create(32, 32, ILC_COLOR, 1, 1);
        belowList_ = std::make_unique<test::WatchedMessages>(dialog_.Item(IDC_SOURCE_LIST));
        list_ = std::make_unique<CCmdListCtrl>(info_);
        ASSERT_TRUE(list_->Prepare(dialog_.Item(IDC_SOURCE_LIST), [this](UINT dpi) {
            return dpi > USER_DEFAULT_SCREEN_DPI ? largeIcons_ : icons_;
        }));
        messages_ = std::make_unique<test::WatchedMessages>(list_->Handle());
    }

    ~CmdListCtrlTest() override {
        shell_.Release();
        dialog_.DestroyWindow();
        ImageList_Destroy(largeIcons_);
        ImageList_Destroy(icons_);
    }

    void Append(const std::vector<std::wstring>& paths) {
        base::TextList list;
        for (const std::wstring& path : paths) {
            list.Append(path);
        }
        list_->Append(std::move(list));
    }

    /// Tells the list that these items are about to be drawn.
    void Hint(int first, int last) {
        NMLVCACHEHINT hint{};
        hint.hdr = {list_->Handle(), IDC_SOURCE_LIST, static_cast<UINT>(LVN_ODCACHEHINT)};
        hint.iFrom = first;
        hint.iTo = last;
        SendMessageW(dialog_.Handle(), WM_NOTIFY, IDC_SOURCE_LIST, reinterpret_cast<LPARAM>(&hint));
    }

    /// Hints and waits until the icons of these items have been found.
    void FindIcons(int first, int last) {
        const std::size_t before = messages_->Count(kIconsReady);
        Hint(first, last);
        EXPECT_TRUE(test::PumpUntil([&] { return messages_->Count(kIconsReady) > before; }));
    }

    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(list_->Handle(), message, wParam, lParam);
    }

    /// Many items, of which the first is focused and one far below stands at the top.
    void AppendManyAndScroll() {
        Append(std::vector<std::wstring>(200, L"C:\\many"));
        ListView_SetItemState(list_->Handle(), 0, LVIS_FOCUSED, LVIS_FOCUSED);
        ListView_EnsureVisible(list_->Handle(), 150, FALSE);
    }

    /// What the list view has to draw.
    std::wstring ShownText(int index) const {
        std::wstring text(512, L'\0');
        LVITEMW item{};
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        text.resize(static_cast<std::size_t>(
            Ask(LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item))));
        return text;
    }
    int ShownIcon(int index) const {
        LVITEMW item{};
        item.mask = LVIF_IMAGE;
        item.iItem = index;
        Ask(LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        return item.iImage;
    }
    LRESULT Focused() const { return Ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED); }
    HIMAGELIST ShownIcons() const { return reinterpret_cast<HIMAGELIST>(Ask(LVM_GETIMAGELIST, LVSIL_SMALL)); }

    int IconOf(int index) const { return list_->Items().Icon(static_cast<std::size_t>(index)); }

    framework::CDialog dialog_{IDD_FERRY};
    HIMAGELIST icons_ = nullptr;
    HIMAGELIST largeIcons_ = nullptr;
    WatchedIcons shell_;
    std::unique_ptr<test::WatchedMessages> belowList_;  ///< What the list leaves to its window.
    files::DiskInfo info_;
    std::unique_ptr<CCmdListCtrl> list_;
    std::unique_ptr<test::WatchedMessages> messages_;
};

TEST_F(CmdListCtrlTest, ShowsTheSystemsSmallIcons) {
    EXPECT_EQ(ShownIcons(), icons_);
}

TEST_F(CmdListCtrlTest, DrawsNoIconBeforeAnItemsOwnIsKnown) {
    Append({L"C:\\a"});
    EXPECT_EQ(ShownIcon(0), I_IMAGENONE);
    FindIcons(0, 0);
    EXPECT_EQ(ShownIcon(0), kIcon);
}

TEST_F(CmdListCtrlTest, NothingWaitsHereWhileTheShellIsAskedForAnIcon) {
    Append({L"C:\\a", L"C:\\b"});
    shell_.Hold();
    Hint(0, 1);
    ASSERT_TRUE(test::WaitUntil([&] { return shell_.Waiting() == 1; }));
    Hint(0, 1);
    Append({L"C:\\c"});
    Hint(0, 2);
    list_->Clear();
    Append({L"C:\\d"});
    Hint(0, 0);
    EXPECT_EQ(shell_.Waiting(), 1);
    shell_.Release();
    EXPECT_TRUE(test::PumpUntil([&] { return IconOf(0) == kIcon; }));
}

TEST_F(CmdListCtrlTest, ItsItemsAreLookedAtOnlyWhileNobodyElseWorksOnThem) {
    const test::WatchedImport<&TryEnterCriticalSection> tryEnter("TryEnterCriticalSection",
                                                                 [](LPCRITICAL_SECTION) { return FALSE; });
    Append({L"C:\\a"});
    // Somebody does, and so its icon counts as missing.
    FindIcons(0, 0);
    FindIcons(0, 0);
    EXPECT_EQ(tryEnter.Calls().size(), 2U);
    EXPECT_EQ(shell_.Asked().size(), 1U);
}

TEST_F(CmdListCtrlTest, TheIconOfAnItemThatWasClearedIsNotGivenToALaterOne) {
    Append({L"C:\\first"});
    shell_.Hold();
    Hint(0, 0);
    ASSERT_TRUE(test::WaitUntil([&] { return shell_.Waiting() == 1; }));
    list_->Clear();
    Append({L"C:\\another"});
    shell_.Release();
    EXPECT_TRUE(test::PumpUntil([&] { return messages_->Count(kIconsReady) == 1; }));
    EXPECT_NE(IconOf(0), kIcon);
    Hint(0, 0);
    EXPECT_TRUE(test::PumpUntil([&] { return IconOf(0) == kIconOfAnother; }));
}

TEST_F(CmdListCtrlTest, ClearedItemsAreNotAskedFor) {
    Append({L"C:\\a", L"C:\\b"});
    shell_.Hold();
    Hint(0, 1);
    ASSERT_TRUE(test::WaitUntil([&] { return shell_.Waiting() == 1; }));
    list_->Clear();
    Append({L"C:\\c", L"C:\\d"});
    shell_.Release();
    EXPECT_TRUE(test::PumpUntil([&] { return messages_->Count(kIconsReady) == 1; }));
    EXPECT_EQ(shell_.Asked().size(), 1U);
}

TEST_F(CmdListCtrlTest, AsksForTheOpenIconOfAPathOnADrive) {
    Append({L"C:\\dir\\a.txt", L"D:\\b"});
    FindIcons(0, 1);
    EXPECT_EQ(shell_.Asked(),
              (std::vector<AskedIcon>{{L"C:\\dir\\a.txt", 0, kByPath, true}, {L"D:\\b", 0, kByPath, true}}));
    EXPECT_EQ(IconOf(0), kIcon);
    EXPECT_EQ(IconOf(1), kIcon);
}

TEST_F(CmdListCtrlTest, AsksForAnItemOnANetworkByItsNameAndAttributesAlone) {
    const std::map<std::wstring, DWORD> attributes = {
        {L"\\\\server\\share\\dir", FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN},
        {L"\\\\server\\share\\file.txt", FILE_ATTRIBUTE_READONLY},
        {L"\\\\server\\share\\gone.txt", INVALID_FILE_ATTRIBUTES}};
    const test::WatchedImport<&GetFileAttributesW> look("GetFileAttributesW",
                                                        [&](LPCWSTR path) { return attributes.at(path); });
    std::vector<std::wstring> paths;
    for (const auto& [path, bits] : attributes) {
        paths.push_back(path);
    }
    Append(paths);
    FindIcons(0, 2);
    EXPECT_EQ(shell_.Asked(), (std::vector<AskedIcon>{{L"dir", kFolderAttribute, kByName, true},
                                                      {L"file.txt", kFileAttribute, kByName, true},
                                                      {L"gone.txt", kFileAttribute, kByName, true}}));
}

TEST_F(CmdListCtrlTest, ADriveLetterMayStandForAFolderOfAServer) {
    const test::WatchedImport<&GetDriveTypeW> drive("GetDriveTypeW", [](LPCWSTR root) -> UINT {
        return std::wstring_view(root) == L"Z:\\" ? DRIVE_REMOTE : DRIVE_FIXED;
    });
    const test::WatchedImport<&GetFileAttributesW> look("GetFileAttributesW", [](LPCWSTR path) -> DWORD {
        return std::wstring_view(path) == L"Z:\\dir" ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
    });
    Append({L"Z:\\dir", L"Z:\\dir\\a.txt", L"C:\\dir\\b.txt"});
    FindIcons(0, 2);
    EXPECT_EQ(shell_.Asked(), (std::vector<AskedIcon>{{L"dir", kFolderAttribute, kByName, true},
                                                      {L"a.txt", kFileAttribute, kByName, true},
                                                      {L"C:\\dir\\b.txt", 0, kByPath, true}}));
}

TEST_F(CmdListCtrlTest, LooksAtANetworkPathOfAnyLength) {
    const std::wstring below = L"server\\share\\" + std::wstring(300, L'n');
    std::wstring asked;
    const test::WatchedImport<&GetFileAttributesW> look("GetFileAttributesW", [&](LPCWSTR path) -> DWORD {
        asked = path;
        return FILE_ATTRIBUTE_NORMAL;
    });
    Append({L"\\\\" + below});
    FindIcons(0, 0);
    EXPECT_EQ(asked, L"\\\\?\\UNC\\" + below);
}

TEST_F(CmdListCtrlTest, AFailedQueryGivesTheFirstIconAndIsNotMadeAgain) {
    shell_.Fails = true;
    Append({L"C:\\a.txt"});
    FindIcons(0, 0);
    EXPECT_EQ(IconOf(0), 0);
    EXPECT_EQ(ShownIcon(0), 0);
    Append({L"C:\\b.txt"});
    FindIcons(0, 1);
    EXPECT_EQ(shell_.Asked().size(), 2U);
}

TEST_F(CmdListCtrlTest, TellsItselfWhichIconsAreThereAndDrawsThemAgain) {
    Append({L"C:\\a", L"C:\\b", L"C:\\c"});
    FindIcons(1, 2);
    ASSERT_EQ(messages_->Count(kIconsReady), 1U);
    EXPECT_EQ(messages_->Of(kIconsReady)[0].wParam, 1U);
    EXPECT_EQ(messages_->Of(kIconsReady)[0].lParam, 2);
    ASSERT_EQ(messages_->Count(LVM_REDRAWITEMS), 1U);
    EXPECT_EQ(messages_->Of(LVM_REDRAWITEMS)[0].wParam, 1U);
    EXPECT_EQ(messages_->Of(LVM_REDRAWITEMS)[0].lParam, 2);
    EXPECT_EQ(IconOf(0), ListItems::kNoIcon);
}

TEST_F(CmdListCtrlTest, StartsNoSecondWorkerForWhatOneLooksForAlready) {
    const test::WatchedImport<&CoInitialize> workers("CoInitialize");
    Append({L"C:\\a", L"C:\\b", L"C:\\c"});
    shell_.Hold();
    Hint(0, 1);
    Hint(0, 1);
    Hint(1, 1);
    Hint(1, 2);
    shell_.Release();
    EXPECT_TRUE(test::PumpUntil([&] { return messages_->Count(kIconsReady) == 2; }));
    dialog_.DestroyWindow();
    EXPECT_EQ(workers.Calls().size(), 2U);
}

TEST_F(CmdListCtrlTest, StartsNoWorkerWhileNoIconIsMissing) {
    // Every worker begins COM for itself.
    const test::WatchedImport<&CoInitialize> workers("CoInitialize");
    Append({L"C:\\a", L"C:\\b"});
    FindIcons(0, 1);
    EXPECT_EQ(workers.Calls().size(), 1U);
    Hint(0, 1);
    Hint(1, 1);
    // The list waits for its workers when its window goes.
    dialog_.DestroyWindow();
    EXPECT_EQ(workers.Calls().size(), 1U);
    EXPECT_EQ(shell_.Asked().size(), 2U);
}

TEST_F(CmdListCtrlTest, AWorkerHasComWhileItAsksAndEndsItItself) {
    std::atomic<int> begun = 0;
    std::atomic<int> ended = 0;
    const test::WatchedImport<&CoInitialize> begin("CoInitialize", [&](LPVOID reserved) {
        begun += shell_.Asked().empty() ? 1 : 0;
        return begin.CallReal(reserved);
    });
    const test::WatchedImport<&CoUninitialize> end("CoUninitialize", [&] {
        ended += shell_.Asked().size() == 1 ? 1 : 0;
        end.CallReal();
    });
    Append({L"C:\\a"});
    FindIcons(0, 0);
    dialog_.DestroyWindow();
    EXPECT_EQ(begun, 1);
    EXPECT_EQ(ended, 1);
}

TEST_F(CmdListCtrlTest, ItemsThatTheListDoesNotHaveAreNotAskedFor) {
    Append({L"C:\\a"});
    FindIcons(0, 50);
    EXPECT_EQ(shell_.Asked().size(), 1U);
    Hint(7, 9);
    dialog_.DestroyWindow();
    EXPECT_EQ(shell_.Asked().size(), 1U);
}

TEST_F(CmdListCtrlTest, EmptiedItHasNeitherItemsNorIcons) {
    Append({L"C:\\a", L"C:\\b"});
    FindIcons(0, 1);
    list_->Clear();
    EXPECT_EQ(SendMessageW(list_->Handle(), LVM_GETITEMCOUNT, 0, 0), 0);
    EXPECT_EQ(list_->Items().Size(), 0U);
    Append({L"C:\\c"});
    EXPECT_EQ(IconOf(0), ListItems::kNoIcon);
}

TEST_F(CmdListCtrlTest, StaysWhereItIsScrolledToWhenMoreItemsCome) {
    AppendManyAndScroll();
    const LRESULT top = Ask(LVM_GETTOPINDEX);
    ASSERT_GT(top, 100);
    Append({L"C:\\more"});
    EXPECT_EQ(Ask(LVM_GETTOPINDEX), top);
}

TEST_F(CmdListCtrlTest, ItsColumnHoldsTheLongestNameAndNeverMoreThanTheList) {
    RECT client{};
    GetClientRect(list_->Handle(), &client);
    constexpr LRESULT kIconWidth = 16;
    Append({L"C:\\folder\\a longer name", L"C:\\b"});
    const LRESULT text = Ask(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(L"a longer name"));
    EXPECT_GT(Ask(LVM_GETCOLUMNWIDTH), text + kIconWidth);
    EXPECT_LT(Ask(LVM_GETCOLUMNWIDTH), client.right);
    Append({L"C:\\" + std::wstring(200, L'w')});
    EXPECT_EQ(Ask(LVM_GETCOLUMNWIDTH), client.right);
}

TEST_F(CmdListCtrlTest, ItsColumnAndItsIconsFollowTheScalingOfTheWindow) {
    Append({L"C:\\a name"});
    const LRESULT before = Ask(LVM_GETCOLUMNWIDTH);
    const LRESULT text = Ask(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(L"a name"));
    const test::WatchedImport<&GetDpiForWindow> dpi("GetDpiForWindow",
                                                    [](HWND) { return UINT{2 * USER_DEFAULT_SCREEN_DPI}; });
    LOGFONTW description{};
    const auto font = reinterpret_cast<HFONT>(Ask(WM_GETFONT));
    ASSERT_NE(GetObjectW(font, sizeof(description), &description), 0);
    description.lfHeight *= 2;
    const HFONT larger = CreateFontIndirectW(&description);
    Ask(WM_SETFONT, reinterpret_cast<WPARAM>(larger), FALSE);
    ASSERT_EQ(Ask(LVM_GETCOLUMNWIDTH), before);
    Ask(WM_DPICHANGED_AFTERPARENT);
    EXPECT_GT(Ask(LVM_GETCOLUMNWIDTH), before + text / 2);
    EXPECT_EQ(ShownIcons(), largeIcons_);
    Ask(WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    DeleteObject(larger);
}

TEST_F(CmdListCtrlTest, APathWithASeparatorAtItsEndHasANameToo) {
    Append({L"C:\\folder\\dir\\", L"D:\\", L"C:\\" + std::wstring(300, L'n') + L"\\", L"C:\\file"});
    EXPECT_EQ(ShownText(0), L"dir");
    EXPECT_EQ(ShownText(1), L"D:\\");
    EXPECT_TRUE(ShownText(2).starts_with(std::wstring(200, L'n')));
    EXPECT_EQ(ShownText(2).find(L'\\'), std::wstring::npos);
    EXPECT_EQ(ShownText(3), L"file");
    EXPECT_EQ(list_->Items().Path(0), L"C:\\folder\\dir\\");
    EXPECT_EQ(list_->Items().Path(1), L"D:\\");
    Ask(WM_KEYDOWN, 'D', 1);
    EXPECT_EQ(Focused(), 0);
    Ask(WM_KEYDOWN, 'D', 1);
    EXPECT_EQ(Focused(), 1);
}

TEST_F(CmdListCtrlTest, ItsColumnHoldsANameBeforeASeparator) {
    Append({L"C:\\folder\\a longer name\\", L"C:\\b"});
    EXPECT_GT(Ask(LVM_GETCOLUMNWIDTH),
              Ask(LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(L"a longer name")));
    EXPECT_EQ(list_->Items().LongestName(), L"a longer name");
}

TEST_F(CmdListCtrlTest, HasNoInputMethodWhichWouldComposeWhatIsTyped) {
    EXPECT_EQ(ImmGetContext(list_->Handle()), nullptr);
    EXPECT_NE(ImmGetContext(dialog_.Handle()), nullptr);
}

TEST_F(CmdListCtrlTest, ALetterGoesToTheItemThatBeginsWithItAndShowsIt) {
    AppendManyAndScroll();
    Append({L"C:\\zebra"});
    ListView_EnsureVisible(list_->Handle(), 0, FALSE);
    messages_->Forget();
    Ask(WM_KEYDOWN, 'Z', 1);
    EXPECT_EQ(Ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 200);
    EXPECT_EQ(Ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 200);
    EXPECT_GT(Ask(LVM_GETTOPINDEX), 100);
    // Some systems show whatever is focused, others only what they are told to show.
    ASSERT_EQ(messages_->Count(LVM_ENSUREVISIBLE), 1U);
    EXPECT_EQ(messages_->Of(LVM_ENSUREVISIBLE)[0].wParam, 200U);
}

TEST_F(CmdListCtrlTest, ALetterWithCtrlIsACommandAndFindsNothing) {
    Append({L"C:\\apple", L"C:\\zebra"});
    test::HoldKeys({VK_CONTROL});
    Ask(WM_KEYDOWN, 'Z', 1);
    test::HoldKeys({});
    EXPECT_EQ(Ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), -1);
}

TEST_F(CmdListCtrlTest, ADigitOfTheKeypadGoesToTheItemThatBeginsWithIt) {
    Append({L"C:\\apple", L"C:\\2024"});
    Ask(WM_KEYDOWN, VK_NUMPAD2, 1);
    Ask(WM_CHAR, L'2', 1);
    EXPECT_EQ(Focused(), 1);
    EXPECT_EQ(belowList_->Count(WM_CHAR), 0U);
}

TEST_F(CmdListCtrlTest, ACharacterThatItDoesNotLookForGoesNowhere) {
    Append({L"C:\\apple", L"C:\\zebra", L"C:\\-dash"});
    Ask(WM_KEYDOWN, 'Z', 1);
    ASSERT_EQ(Focused(), 1);
    for (const wchar_t unit : {L'-', L'_', L'é', L'あ'}) {
        Ask(WM_CHAR, unit, 1);
        EXPECT_EQ(Focused(), 1) << static_cast<unsigned>(unit);
    }
    NMLVFINDITEMW find{};
    find.hdr = {list_->Handle(), IDC_SOURCE_LIST, static_cast<UINT>(LVN_ODFINDITEMW)};
    find.lvfi.flags = LVFI_STRING | LVFI_PARTIAL;
    find.lvfi.psz = L"a";
    EXPECT_EQ(SendMessageW(dialog_.Handle(), WM_NOTIFY, IDC_SOURCE_LIST, reinterpret_cast<LPARAM>(&find)),
              -1);
}

TEST_F(CmdListCtrlTest, KeepsTheCharactersOfNamesFromTheWindowsOwnSearch) {
    for (const wchar_t unit : {L'a', L'Z', L'0', L'9'}) {
        Ask(WM_CHAR, unit, 1);
    }
    EXPECT_EQ(belowList_->Count(WM_CHAR), 0U);
    Ask(WM_CHAR, L' ', 1);
    EXPECT_EQ(belowList_->Count(WM_CHAR), 1U);
}

TEST(ListItemsTest, AreGuardedByASectionThatSpinsAWhile) {
    const test::WatchedImport<&InitializeCriticalSectionAndSpinCount> make(
        "InitializeCriticalSectionAndSpinCount");
    const ListItems items;
    EXPECT_EQ(std::get<1>(make.OnlyCall()), 4000U);
}

TEST(ListItemsTest, AreChangedUnderTheirLockOnly) {
    ListItems items;
    const DWORD thread = GetCurrentThreadId();
    std::set<LPCRITICAL_SECTION> entered;
    const test::WatchedImport<&EnterCriticalSection> enter("EnterCriticalSection",
                                                           [&](LPCRITICAL_SECTION section) {
                                                               if (GetCurrentThreadId() == thread) {
                                                                   entered.insert(section);
                                                               }
                                                               enter.CallReal(section);
                                                           });
    LPCRITICAL_SECTION own = nullptr;
    {
        const std::lock_guard guard(items.Lock());
        ASSERT_EQ(entered.size(), 1U);
        own = *entered.begin();
    }
    entered.clear();
    base::TextList list;
    list.Append(L"C:\\a");
    items.Append(std::move(list));
    EXPECT_TRUE(entered.contains(own));
    entered.clear();
    items.Clear();
    EXPECT_TRUE(entered.contains(own));
}

}  // namespace
}  // namespace ferry::controls

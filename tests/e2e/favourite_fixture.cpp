#include "e2e/favourite_fixture.h"

#include "base/utf16.h"

namespace ferry::e2e {
namespace {

/// The user folder is the one that the host's settings name.
constexpr DWORD kNamedUserFolder = 2;

}  // namespace

FavouriteTest::FavouriteTest() : userFolder_(Tree().Path(L"user")) {
    WriteText(kHostKey, L"UserDir", userFolder_);
    WriteNumber(kHostKey, L"UserDirMode", kNamedUserFolder);
}

std::wstring FavouriteTest::Favourites(const std::wstring& name) const {
    const std::wstring folder = userFolder_ + L"\\Bar\\Favorite";
    return name.empty() ? folder : folder + L"\\" + name;
}

void FavouriteTest::WriteScript(const std::wstring& name, std::initializer_list<std::wstring> lines) const {
    const std::wstring path = Favourites(name);
    MakeFolders(path.substr(0, path.rfind(L'\\')));
    std::wstring text;
    for (const std::wstring& line : lines)
        text += line + L"\r\n";
    WriteUtf16(path, text);
}

void FavouriteTest::WriteJump(const std::wstring& name, const std::wstring& folder, int pane) const {
    WriteScript(name, {L"folderjump=" + std::to_wstring(pane) + L"," + folder});
}

testing::AssertionResult FavouriteTest::OpenDialog() {
    if (const auto opened = Open(Plan({L"C:\\Work\\a.txt"}, {L"D:\\tab"})); !opened)
        return opened;
    menu_ = RemoteMenu(Dialog().Window());
    Dialog().SetDestination(kBefore);
    before_ = WhatStands();
    return testing::AssertionSuccess();
}

testing::AssertionResult FavouriteTest::OpenMenu() {
    if (!TakeForeground(Dialog().Window()))
        return testing::AssertionFailure() << "the dialog does not come to the front";
    Dialog().Click(kFavourites);
    if (!menu_.WaitUntilOpen())
        return testing::AssertionFailure() << "no menu came";
    return testing::AssertionSuccess();
}

testing::AssertionResult FavouriteTest::Choose(std::initializer_list<std::wstring> path) {
    auto failure = testing::AssertionFailure() << "not chosen; the menu has:";
    // On a busy machine a late move of the mouse can take the selection away from the keys; the menu is then
    // still open, and nothing is chosen.
    for (int tries = 0; tries < 2; ++tries) {
        if (const auto opened = OpenMenu(); !opened)
            return opened;
        if (menu_.Choose({path.begin(), path.size()}))
            return testing::AssertionSuccess();
        for (const std::wstring& text : menu_.IsShown() ? menu_.Texts() : std::vector<std::wstring>{})
            failure << ' ' << base::ToUtf8(text);
        if (!menu_.IsShown() || !menu_.Cancel())
            break;
    }
    return failure;
}

testing::AssertionResult FavouriteTest::DestinationIs(const std::wstring& folder) const {
    // Its file is free again when the script is over.
    if (!HasHandledAll(Dialog().Window()))
        return testing::AssertionFailure() << "the dialog is busy";
    const std::wstring shown = folder + L"\\";
    if (!DestinationBecomes(shown))
        return testing::AssertionFailure() << "the destination is " << base::ToUtf8(Dialog().Destination());
    const std::pair<int, int> whole(0, static_cast<int>(shown.size()));
    if (!WaitUntil([&] { return Dialog().DestinationSelection() == whole; }))
        return testing::AssertionFailure() << "not all of it is selected";
    return testing::AssertionSuccess();
}

testing::AssertionResult FavouriteTest::IsUnchanged() {
    if (!HasHandledAll(Dialog().Window()))
        return testing::AssertionFailure() << "the dialog is busy";
    if (menu_.IsShown() || FindMessageBox(Run().FerryId()).Window != nullptr)
        return testing::AssertionFailure() << "something is still open";
    const std::vector<std::wstring> now = WhatStands();
    for (std::size_t at = 0; at < now.size(); ++at) {
        if (now[at] != before_[at])
            return testing::AssertionFailure()
                   << base::ToUtf8(before_[at]) << " became " << base::ToUtf8(now[at]);
    }
    if (!WaitUntil([this] { return GetForegroundWindow() == Dialog().Window(); }))
        return testing::AssertionFailure() << "in front is " << GetForegroundWindow();
    return testing::AssertionSuccess();
}

testing::AssertionResult FavouriteTest::IsAsBefore() {
    const auto isUnchanged = IsUnchanged();
    return isUnchanged ? IsAliveAndUsable(Run(), Dialog()) : isUnchanged;
}

std::vector<std::wstring> FavouriteTest::WhatStands() const {
    std::vector<std::wstring> texts = {Dialog().Title(), Dialog().Destination(), Dialog().Text(kItemCount),
                                       Dialog().SourceText(0)};
    for (const int id : {kCopy, kMove, kBatch, kIndividual, kNoAsk, kOpenDestination, kStart, kFavourites}) {
        texts.push_back(std::to_wstring(id) + (Dialog().IsChecked(id) ? L" checked" : L"") +
                        (Dialog().IsEnabled(id) ? L" enabled" : L"") +
                        (Dialog().IsShown(id) ? L" shown" : L""));
    }
    texts.emplace_back(IsWindowEnabled(Dialog().Window()) != FALSE ? L"the dialog is enabled" : L"");
    return texts;
}

}  // namespace ferry::e2e

// The contract of the file system.
#include <algorithm>
#include <cmath>

#include "core/transfer/port_contract.h"

namespace ferry::transfer::contract {

PortContract::Names PortContract::NamesIn(std::wstring_view relative) {
    Names names;
    Files().Enumerate(Path(relative), [&](const FoundItem& item) { names.push_back(item.Name); });
    std::ranges::sort(names);
    return names;
}

std::wstring PortContract::MissingDrive() {
    for (const wchar_t letter : std::wstring_view(L"QBRVXWYUT")) {
        std::wstring root = std::wstring(1, letter) + L":\\";
        if (Files().Attributes(root) == kInvalidAttributes)
            return root;
    }
    ADD_FAILURE() << "every drive is there";
    return {};
}

namespace {

constexpr const wchar_t* kMissingServer = L"\\\\no-such-server.invalid\\";

TEST_P(FileSystemContract, AttributesTellFilesFromFoldersAndFromNothing) {
    AddFile(L"file");
    AddFolder(L"folder");
    EXPECT_EQ(AttributesOf(L"file"), 0u);
    EXPECT_EQ(AttributesOf(L"folder"), kAttributeDirectory);
    EXPECT_EQ(Files().Attributes(Path(L"folder") + L"\\"), Files().Attributes(Path(L"folder")));
    for (const wchar_t* const missing : {L"missing", L"missing\\below", L"file\\below"})
        EXPECT_EQ(Files().Attributes(Path(missing)), kInvalidAttributes);
    EXPECT_EQ(Files().Attributes(L""), kInvalidAttributes);
}

TEST_P(FileSystemContract, AttributesAreSetAndTakenBack) {
    AddFile(L"file");
    AddFolder(L"folder");
    for (const std::uint32_t attributes : {kReadOnly, kHidden, kReadOnly | kHidden | kSystem, 0u}) {
        EXPECT_TRUE(Files().SetAttributes(Path(L"file"), attributes));
        EXPECT_EQ(AttributesOf(L"file"), attributes);
        // Not every system has read-only folders.
        EXPECT_TRUE(Files().SetAttributes(Path(L"folder"), attributes));
        EXPECT_EQ(AttributesOf(L"folder") | kReadOnly, attributes | kReadOnly | kAttributeDirectory);
    }
    EXPECT_EQ(AttributesOf(L"folder"), kAttributeDirectory);
    EXPECT_FALSE(Files().SetAttributes(Path(L"missing"), 0));
    EXPECT_FALSE(IsThere(L"missing"));
}

TEST_P(FileSystemContract, AFolderAndAFileStayWhatTheyAreWhateverTheirAttributes) {
    AddFile(L"file", "bytes");
    AddFolder(L"folder");
    EXPECT_TRUE(Files().SetAttributes(Path(L"file"), kAttributeDirectory | kHidden));
    EXPECT_EQ(AttributesOf(L"file"), kHidden);
    EXPECT_EQ(ContentOf(L"file"), "bytes");
    EXPECT_TRUE(Files().SetAttributes(Path(L"folder"), kAttributeDirectory));
    EXPECT_EQ(AttributesOf(L"folder"), kAttributeDirectory);
}

TEST_P(FileSystemContract, AttributesOfCompressionAndOfLinksCannotBeSet) {
    constexpr std::uint32_t kLinkAndCompressed = 0x400 | 0x800;
    AddFolder(L"folder");
    EXPECT_TRUE(Files().SetAttributes(Path(L"folder"), kLinkAndCompressed | kHidden));
    EXPECT_EQ(Files().Attributes(Path(L"folder")) & (kLinkAndCompressed | kHidden), kHidden);
}

TEST_P(FileSystemContract, AnItemIsFoundWithItsOwnSpellingItsAttributesAndItsTime) {
    AddFile(L"File.txt", "bytes", kSomeTime + 7 * kSecond);
    AddFolder(L"Folder");
    ASSERT_TRUE(Files().SetAttributes(Path(L"File.txt"), kReadOnly));
    const auto file = Files().Find(Path(L"FILE.TXT"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Name, L"File.txt");
    EXPECT_EQ(file->Attributes & kKeptAttributes, kReadOnly);
    EXPECT_EQ(file->LastWriteTime, kSomeTime + 7 * kSecond);
    EXPECT_TRUE(file->IsTimeKnown);
    const auto folder = Files().Find(Path(L"folder"));
    ASSERT_TRUE(folder);
    EXPECT_EQ(folder->Name, L"Folder");
    EXPECT_EQ(folder->Attributes & kKeptAttributes, kAttributeDirectory);
    EXPECT_TRUE(folder->IsTimeKnown);
}

TEST_P(FileSystemContract, NothingIsFoundWhereNothingIs) {
    AddFile(L"file");
    AddFolder(L"folder");
    for (const wchar_t* const name : {L"missing", L"missing\\below", L"file\\below", L"folder\\below",
                                      L"folder\\", L"not<a>name", L"a|b"})
        EXPECT_FALSE(Files().Find(Path(name))) << testing::PrintToString(std::wstring(name));
    EXPECT_FALSE(Files().Find(L""));
}

TEST_P(FileSystemContract, DotsAndBlanksAtTheEndOfANameDoNotCount) {
    AddFile(L"file", "bytes");
    for (const wchar_t* const name : {L"file.", L"file ", L"file. .", L"FILE..."}) {
        const auto found = Files().Find(Path(name));
        ASSERT_TRUE(found) << testing::PrintToString(std::wstring(name));
        EXPECT_EQ(found->Name, L"file");
        EXPECT_EQ(AttributesOf(name), 0u);
        EXPECT_EQ(Files().FileSize(Path(name)), 5u);
    }
    EXPECT_FALSE(Files().Find(Path(L".file")));
    EXPECT_FALSE(Files().Find(Path(L" file")));
}

TEST_P(FileSystemContract, OneDotIsTheFolderAndTwoAreTheOneAbove) {
    AddFolder(L"outer\\inner");
    AddFile(L"outer\\file", "bytes");
    EXPECT_EQ(Files().Find(Path(L"outer\\inner\\."))->Name, L"inner");
    EXPECT_EQ(Files().Find(Path(L"outer\\inner\\.."))->Name, L"outer");
    EXPECT_EQ(AttributesOf(L"outer\\inner\\..\\file"), 0u);
    EXPECT_EQ(AttributesOf(L"outer\\.\\inner"), kAttributeDirectory);
    EXPECT_FALSE(Files().Find(Path(L"outer\\...")));
    EXPECT_FALSE(Files().Rename(Path(L"outer\\file"), Path(L"outer\\.")));
    EXPECT_FALSE(Files().Rename(Path(L"outer\\file"), Path(L"outer\\..")));
    EXPECT_FALSE(Files().Rename(Path(L"outer\\file"), Path(L"outer\\...")));
    EXPECT_EQ(ContentOf(L"outer\\file"), "bytes");
}

TEST_P(FileSystemContract, CaseDoesNotCountInAnyAlphabet) {
    constexpr std::pair<const wchar_t*, const wchar_t*> kSpellings[] = {
        {L"Folder Ä", L"FOLDER ä"}, {L"ＡＢＣ", L"ａｂｃ"}, {L"Ωμέγα", L"ΩΜΈΓΑ"}, {L"Файл", L"ФАЙЛ"}};
    for (const auto& [name, other] : kSpellings) {
        AddFolder(name);
        AddFile(std::wstring(name) + L"\\x");
        EXPECT_EQ(Files().CreateFolder(Path(other)), kFolderExists);
        ASSERT_TRUE(Files().Find(Path(other)));
        EXPECT_EQ(Files().Find(Path(other))->Name, name);
        EXPECT_EQ(NamesIn(other), (Names{L"x"}));
    }
}

TEST_P(FileSystemContract, AListingHoldsEachEntryOnceAndNoDots) {
    for (const wchar_t* const name : {L"c", L"a", L".dot", L"..two", L"B.TXT"})
        AddFile(name, "x", kSomeTime);
    AddFolder(L"folder");
    AddFile(L"folder\\deep");
    AddFile(L"hidden");
    ASSERT_TRUE(Files().SetAttributes(Path(L"hidden"), kHidden | kSystem));
    EXPECT_EQ(NamesIn(L""), (Names{L"..two", L".dot", L"B.TXT", L"a", L"c", L"folder", L"hidden"}));
    Files().Enumerate(Root(), [&](const FoundItem& item) {
        EXPECT_EQ(item.Attributes & kKeptAttributes, AttributesOf(item.Name));
        EXPECT_TRUE(item.IsTimeKnown);
        EXPECT_TRUE(item.Name == L"folder" || item.LastWriteTime == kSomeTime);
    });
}

TEST_P(FileSystemContract, AListingComesInTheSameOrderEveryTimeWithOrWithoutASeparator) {
    for (const wchar_t* const name : {L"c", L"a", L"b"})
        AddFile(name);
    Names first;
    Names second;
    Files().Enumerate(Root(), [&](const FoundItem& item) { first.push_back(item.Name); });
    Files().Enumerate(Root() + L"\\", [&](const FoundItem& item) { second.push_back(item.Name); });
    EXPECT_EQ(first.size(), 3u);
    EXPECT_EQ(first, second);
}

TEST_P(FileSystemContract, AnEmptyFolderAMissingOneAndAFileHaveNoEntries) {
    AddFolder(L"empty");
    AddFile(L"file");
    for (const wchar_t* const name : {L"empty", L"missing", L"file", L"file\\below"})
        EXPECT_TRUE(NamesIn(name).empty()) << testing::PrintToString(std::wstring(name));
}

TEST_P(FileSystemContract, AVisitMayListAndChangeOtherFolders) {
    AddFolder(L"outer\\inner");
    AddFile(L"outer\\inner\\file");
    AddFolder(L"other");
    Names seen;
    Files().Enumerate(Path(L"outer"), [&](const FoundItem& item) {
        seen = NamesIn(L"outer\\" + item.Name);
        EXPECT_TRUE(Files().RemoveFolder(Path(L"other")));
    });
    EXPECT_EQ(seen, (Names{L"file"}));
}

TEST_P(FileSystemContract, AFileHasItsSizeAndEverythingElseHasNone) {
    AddFile(L"file", "12345");
    AddFile(L"empty", "");
    AddFolder(L"folder");
    EXPECT_EQ(Files().FileSize(Path(L"file")), 5u);
    EXPECT_EQ(Files().FileSize(Path(L"FILE")), 5u);
    for (const wchar_t* const name : {L"empty", L"folder", L"missing", L"file\\below"})
        EXPECT_EQ(Files().FileSize(Path(name)), 0u);
}

TEST_P(FileSystemContract, AFolderIsMadeOnceWithItsParents) {
    EXPECT_EQ(Files().CreateFolder(Path(L"one\\two\\three")), kFolderCreated);
    EXPECT_EQ(AttributesOf(L"one\\two\\three"), kAttributeDirectory);
    EXPECT_EQ(Files().CreateFolder(Path(L"one\\two\\three")), kFolderExists);
    EXPECT_EQ(Files().CreateFolder(Path(L"ONE\\two")), kFolderExists);
    EXPECT_EQ(Files().CreateFolder(Path(L"one\\four.")), kFolderCreated);
    EXPECT_EQ(NamesIn(L"one"), (Names{L"four", L"two"}));
    EXPECT_EQ(Files().CreateFolder(Drive()), kFolderExists);
}

TEST_P(FileSystemContract, AFolderIsNotMadeOverAFileNorBelowOne) {
    AddFile(L"file", "bytes");
    EXPECT_NE(Files().CreateFolder(Path(L"file")), kFolderCreated);
    for (const wchar_t* const name : {L"file\\below", L"file\\below\\deeper"}) {
        const int result = Files().CreateFolder(Path(name));
        EXPECT_NE(result, kFolderCreated);
        EXPECT_NE(result, kFolderExists);
    }
    EXPECT_EQ(ContentOf(L"file"), "bytes");
}

TEST_P(FileSystemContract, AFolderIsNotMadeWithoutAProperPath) {
    for (const std::wstring& path :
         {std::wstring(L"relative"), std::wstring(), Path(L"what?"), Path(L"a<b>")}) {
        const int result = Files().CreateFolder(path);
        EXPECT_NE(result, kFolderCreated) << testing::PrintToString(path);
        EXPECT_NE(result, kFolderExists) << testing::PrintToString(path);
    }
    EXPECT_TRUE(NamesIn(L"").empty());
}

TEST_P(FileSystemContract, AFolderIsNotMadeOnADriveNorOnAServerThatIsNotThere) {
    for (const std::wstring& path :
         {MissingDrive() + L"folder", MissingDrive() + L"outer\\inner",
          std::wstring(kMissingServer) + L"share", std::wstring(kMissingServer) + L"share\\folder"}) {
        const int result = Files().CreateFolder(path);
        EXPECT_NE(result, kFolderCreated) << testing::PrintToString(path);
        EXPECT_NE(result, kFolderExists) << testing::PrintToString(path);
        EXPECT_EQ(Files().Attributes(path), kInvalidAttributes) << testing::PrintToString(path);
    }
}

TEST_P(FileSystemContract, ADriveWithoutItsSeparatorIsTheDriveToAListing) {
    const std::wstring drive = Drive();
    EXPECT_NE(Files().Attributes(drive) & kAttributeDirectory, 0u);
    EXPECT_NE(Files().Attributes(drive), kInvalidAttributes);
    Names with;
    Names without;
    Files().Enumerate(drive, [&](const FoundItem& item) { with.push_back(item.Name); });
    Files().Enumerate(drive.substr(0, 2), [&](const FoundItem& item) { without.push_back(item.Name); });
    EXPECT_EQ(with, without);
    EXPECT_FALSE(with.empty());
}

TEST_P(FileSystemContract, ADriveThatIsNotThereIsEmptyAndHasNoItem) {
    const std::wstring root = MissingDrive();
    for (const std::wstring& path : {root, root.substr(0, 2), root + L"x"}) {
        EXPECT_EQ(Files().Attributes(path), kInvalidAttributes) << testing::PrintToString(path);
        EXPECT_FALSE(Files().Find(path)) << testing::PrintToString(path);
        Files().Enumerate(path, [](const FoundItem&) { ADD_FAILURE() << "an entry of nothing"; });
    }
}

TEST_P(FileSystemContract, ASlashIsASeparatorToEverythingThatLooks) {
    AddFolder(L"folder\\inner");
    AddFile(L"folder\\file", "12345");
    const std::wstring folder = WithSlashes(Path(L"folder"));
    EXPECT_NE(Files().Attributes(folder) & kAttributeDirectory, 0u);
    EXPECT_EQ(Files().Attributes(folder + L"/file") & kAttributeDirectory, 0u);
    EXPECT_EQ(Files().FileSize(folder + L"/file"), 5u);
    ASSERT_TRUE(Files().Find(folder + L"/FILE"));
    EXPECT_EQ(Files().Find(folder + L"/FILE")->Name, L"file");
    EXPECT_FALSE(Files().Find(folder + L"/missing"));
    Names names;
    for (const wchar_t* const end : {L"", L"/"})
        Files().Enumerate(folder + end, [&](const FoundItem& item) { names.push_back(item.Name); });
    EXPECT_EQ(names.size(), 4u);
}

TEST_P(FileSystemContract, ASlashIsASeparatorToEverythingThatChanges) {
    AddFolder(L"folder");
    AddFile(L"file", "bytes");
    EXPECT_TRUE(Files().SetAttributes(WithSlashes(Path(L"file")), kHidden));
    EXPECT_EQ(AttributesOf(L"file"), kHidden);
    EXPECT_TRUE(Files().Rename(WithSlashes(Path(L"file")), WithSlashes(Path(L"folder\\new"))));
    EXPECT_EQ(NamesIn(L"folder"), (Names{L"new"}));
    EXPECT_FALSE(Files().RemoveFolder(WithSlashes(Path(L"folder"))));
    EXPECT_TRUE(Files().Rename(Path(L"folder\\new"), Path(L"file")));
    EXPECT_TRUE(Files().RemoveFolder(WithSlashes(Path(L"folder"))));
    EXPECT_EQ(NamesIn(L""), (Names{L"file"}));
}

TEST_P(FileSystemContract, AFolderBehindSlashesIsMadeWhereItsParentIsThereAndNoParentWithIt) {
    const std::wstring root = WithSlashes(Root());
    EXPECT_EQ(Files().CreateFolder(root + L"/one"), kFolderCreated);
    EXPECT_EQ(Files().CreateFolder(root + L"/one"), kFolderExists);
    EXPECT_EQ(Files().CreateFolder(Path(L"one/two")), kFolderCreated);
    const int result = Files().CreateFolder(root + L"/three/four");
    EXPECT_NE(result, kFolderCreated);
    EXPECT_NE(result, kFolderExists);
    EXPECT_EQ(NamesIn(L""), (Names{L"one"}));
    EXPECT_EQ(NamesIn(L"one"), (Names{L"two"}));
}

TEST_P(FileSystemContract, AUnitThatNobodySeesIsPartOfAName) {
    const std::wstring name = L"work\x008B";
    EXPECT_EQ(Files().CreateFolder(WithSlashes(Path(name))), kFolderCreated);
    EXPECT_EQ(Files().CreateFolder(Path(name)), kFolderExists);
    EXPECT_EQ(NamesIn(L""), (Names{name}));
    EXPECT_FALSE(IsThere(L"work"));
    AddFile(name + L"\\file");
    EXPECT_EQ(NamesIn(name), (Names{L"file"}));
    EXPECT_FALSE(IsThere(name + L"file")) << "it separates nothing";
}

TEST_P(FileSystemContract, OnlyAnEmptyFolderIsRemoved) {
    AddFolder(L"folder\\inner");
    AddFile(L"file");
    EXPECT_FALSE(Files().RemoveFolder(Path(L"folder")));
    EXPECT_FALSE(Files().RemoveFolder(Path(L"file")));
    EXPECT_FALSE(Files().RemoveFolder(Path(L"missing")));
    EXPECT_FALSE(Files().RemoveFolder(Path(L"missing\\below")));
    EXPECT_TRUE(Files().RemoveFolder(Path(L"FOLDER\\inner")));
    EXPECT_TRUE(Files().RemoveFolder(Path(L"folder")));
    EXPECT_EQ(NamesIn(L""), (Names{L"file"}));
}

TEST_P(FileSystemContract, AFolderThatWasMadePlainIsRemoved) {
    AddFolder(L"folder");
    ASSERT_TRUE(Files().SetAttributes(Path(L"folder"), kReadOnly | kHidden | kSystem | kAttributeDirectory));
    ASSERT_TRUE(Files().SetAttributes(Path(L"folder"), kAttributeDirectory));
    EXPECT_TRUE(Files().RemoveFolder(Path(L"folder")));
    EXPECT_FALSE(IsThere(L"folder"));
}

TEST_P(FileSystemContract, WhatComesGoesOrIsRenamedInAFolderGivesItANewTime) {
    AddFolder(L"outer\\inner");
    AddFile(L"outer\\file");
    const auto expectNewTime = [this](const char* what) {
        EXPECT_NE(TimeOf(L"outer"), kSomeTime) << what;
        SetTime(L"outer", kSomeTime);
    };
    SetTime(L"outer", kSomeTime);
    ASSERT_TRUE(Files().Rename(Path(L"outer\\file"), Path(L"outer\\new")));
    expectNewTime("renamed");
    ASSERT_TRUE(Files().Rename(Path(L"outer\\new"), Path(L"away")));
    expectNewTime("moved out");
    ASSERT_TRUE(Files().Rename(Path(L"away"), Path(L"outer\\back")));
    expectNewTime("moved in");
    ASSERT_TRUE(Files().RemoveFolder(Path(L"outer\\inner")));
    expectNewTime("removed");
    AddFolder(L"outer\\again");
    expectNewTime("made");
}

TEST_P(FileSystemContract, LookingAtThingsAndSettingAttributesChangesNoTime) {
    AddFolder(L"outer\\inner");
    AddFile(L"outer\\file", "bytes", kSomeTime);
    SetTime(L"outer\\inner", kSomeTime);
    SetTime(L"outer", kSomeTime);
    NamesIn(L"outer");
    IsThere(L"outer\\file");
    Files().FileSize(Path(L"outer\\file"));
    EXPECT_EQ(Files().CreateFolder(Path(L"outer\\inner")), kFolderExists);
    EXPECT_FALSE(Files().RemoveFolder(Path(L"outer")));
    ASSERT_TRUE(Files().SetAttributes(Path(L"outer"), kHidden));
    ASSERT_TRUE(Files().SetAttributes(Path(L"outer\\file"), kHidden));
    Files().NotifyFolderMade(Path(L"outer\\inner"));
    for (const wchar_t* const item : {L"outer", L"outer\\inner", L"outer\\file"})
        EXPECT_EQ(TimeOf(item), kSomeTime) << testing::PrintToString(std::wstring(item));
}

TEST_P(FileSystemContract, AFileGetsANewNameWithEverythingElseAsItWas) {
    AddFile(L"a", "bytes", kSomeTime);
    ASSERT_TRUE(Files().SetAttributes(Path(L"a"), kReadOnly | kHidden));
    EXPECT_TRUE(Files().Rename(Path(L"a"), Path(L"b.c d")));
    EXPECT_EQ(NamesIn(L""), (Names{L"b.c d"}));
    EXPECT_EQ(ContentOf(L"b.c d"), "bytes");
    EXPECT_EQ(AttributesOf(L"b.c d"), kReadOnly | kHidden);
    EXPECT_EQ(Files().Find(Path(L"b.c d"))->LastWriteTime, kSomeTime);
}

TEST_P(FileSystemContract, AFolderGetsANewNameWithAllThatItHolds) {
    AddFolder(L"a\\inner");
    AddFile(L"a\\inner\\file", "bytes");
    EXPECT_TRUE(Files().Rename(Path(L"a"), Path(L"b")));
    EXPECT_EQ(NamesIn(L""), (Names{L"b"}));
    EXPECT_EQ(ContentOf(L"b\\inner\\file"), "bytes");
}

TEST_P(FileSystemContract, ATakenNameIsNotGivenAgain) {
    AddFile(L"a", "first");
    AddFile(L"b", "second");
    AddFolder(L"folder");
    AddFolder(L"empty");
    for (const wchar_t* const taken : {L"b", L"B", L"b.", L"b ", L"folder"})
        EXPECT_FALSE(Files().Rename(Path(L"a"), Path(taken))) << testing::PrintToString(std::wstring(taken));
    EXPECT_FALSE(Files().Rename(Path(L"folder"), Path(L"empty")));
    EXPECT_FALSE(Files().Rename(Path(L"folder"), Path(L"a")));
    EXPECT_EQ(ContentOf(L"a"), "first");
    EXPECT_EQ(ContentOf(L"b"), "second");
    EXPECT_EQ(NamesIn(L""), (Names{L"a", L"b", L"empty", L"folder"}));
}

TEST_P(FileSystemContract, AnItemKeepsItsNameWhenItIsRenamedToIt) {
    AddFile(L"name", "bytes");
    EXPECT_TRUE(Files().Rename(Path(L"name"), Path(L"name")));
    EXPECT_TRUE(Files().Rename(Path(L"name"), Path(L"NAME")));
    EXPECT_EQ(NamesIn(L"").size(), 1u);
    EXPECT_EQ(ContentOf(L"Name"), "bytes");
}

TEST_P(FileSystemContract, WhatIsMissingOrHasNoPlaceIsNotRenamed) {
    AddFile(L"a", "bytes");
    AddFolder(L"folder");
    EXPECT_FALSE(Files().Rename(Path(L"missing"), Path(L"b")));
    EXPECT_FALSE(Files().Rename(Path(L"a"), Path(L"missing\\b")));
    EXPECT_FALSE(Files().Rename(Path(L"folder"), Path(L"folder\\inside")));
    EXPECT_EQ(NamesIn(L""), (Names{L"a", L"folder"}));
    EXPECT_EQ(ContentOf(L"a"), "bytes");
}

TEST_P(FileSystemContract, ANameThatWindowsForbidsIsNotGiven) {
    AddFile(L"a", "bytes");
    for (const wchar_t* const name : {L"x*", L"x?", L"\"x\"", L"<x>", L"x|y", L"", L" ", L".", L". ."})
        EXPECT_FALSE(Files().Rename(Path(L"a"), Path(name))) << testing::PrintToString(std::wstring(name));
    EXPECT_EQ(NamesIn(L""), (Names{L"a"}));
    EXPECT_EQ(ContentOf(L"a"), "bytes");
}

TEST_P(FileSystemContract, ANewNameLosesTheDotsAndBlanksAtItsEnd) {
    AddFile(L"a", "bytes");
    EXPECT_TRUE(Files().Rename(Path(L"a"), Path(L"b. .")));
    EXPECT_EQ(NamesIn(L""), (Names{L"b"}));
    EXPECT_EQ(ContentOf(L"b"), "bytes");
}

// A server with its separator is none for Windows, but is one for some systems of its kind.
TEST_P(FileSystemContract, RootsAreDrivesAndShares) {
    for (const wchar_t* const root : {L"C:\\", L"z:\\", L"\\", L"\\\\server", L"\\\\server\\share"})
        EXPECT_TRUE(Files().IsRoot(root)) << testing::PrintToString(std::wstring(root));
    for (const wchar_t* const other : {L"", L"C", L"C:", L"C:/", L"C:\\x", L"C:\\x\\", L"\\x", L"name",
                                       L"\\\\server\\share\\x", L"\\\\server\\share\\"})
        EXPECT_FALSE(Files().IsRoot(other)) << testing::PrintToString(std::wstring(other));
}

/// A date value on a scale without a fold: before the epoch the fraction counts forward all the same.
double Unfolded(double date) {
    return date >= 0 ? date : std::ceil(date) - (date - std::ceil(date));
}

TEST_P(FileSystemContract, LocalDatesCountDaysAndDropWhatIsBelowASecond) {
    constexpr std::uint64_t kHour = 3600 * kSecond;
    // 1880, 1899 about the epoch, and 2021.
    for (const std::uint64_t start :
         {88'043'328'000'000'000ULL, 94'352'256'000'000'000ULL, 132'539'328'000'000'000ULL}) {
        const double first = Unfolded(Files().LocalDate(start));
        for (std::uint64_t hour = 0; hour <= 100; ++hour) {
            const double date = Files().LocalDate(start + hour * kHour);
            EXPECT_NEAR(Unfolded(date) - first, static_cast<double>(hour) / 24, 1e-7) << hour;
            EXPECT_EQ(Files().LocalDate(start + hour * kHour + kSecond - 1), date);
            EXPECT_NE(Files().LocalDate(start + hour * kHour + kSecond), date);
        }
    }
}

TEST_P(FileSystemContract, ATimeOutsideTheCalendarIsDateZero) {
    constexpr std::uint64_t kLastYears = 2'650'467'743'990'000'000;  // the last second of the year 9999, UTC
    constexpr std::uint64_t kDay = 86'400 * kSecond;
    EXPECT_GT(Files().LocalDate(kLastYears - 2 * kDay), 2'958'000.0);
    for (const std::uint64_t time : {kLastYears + 2 * kDay, std::uint64_t{1} << 63, ~std::uint64_t{0}})
        EXPECT_EQ(Files().LocalDate(time), 0.0) << time;
}

}  // namespace
}  // namespace ferry::transfer::contract

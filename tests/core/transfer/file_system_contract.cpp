// The contract of the file system.
#include <algorithm>
#include <cmath>

#include "core/transfer/port_contract.h"

namespace ferry::transfer::contract {

PortContract::Names PortContract::NamesIn(std::wstring_view relative) {
    Names names;
    VisitEntries(Path(relative), [&](const files::Match& item) { names.emplace_back(item.Name); });
    std::ranges::sort(names);
    return names;
}

std::uint32_t PortContract::VisitEntries(std::wstring_view folder,
                                         const std::function<void(const files::Match&)>& visit) {
    return files::ForEachEntry(Search(), folder, [&visit](const files::Match& item) {
        visit(item);
        return true;
    });
}

std::wstring PortContract::MissingDrive() {
    for (const wchar_t letter : std::wstring_view(L"QBRVXWYUT")) {
        std::wstring root = std::wstring(1, letter) + L":\\";
        if (Info().Attributes(root) == files::kInvalidAttributes)
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
    EXPECT_EQ(AttributesOf(L"folder"), files::kAttributeDirectory);
    EXPECT_EQ(Info().Attributes(Path(L"folder") + L"\\"), Info().Attributes(Path(L"folder")));
    for (const wchar_t* const missing : {L"missing", L"missing\\below", L"file\\below"})
        EXPECT_EQ(Info().Attributes(Path(missing)), files::kInvalidAttributes);
    EXPECT_EQ(Info().Attributes(L""), files::kInvalidAttributes);
}

TEST_P(FileSystemContract, AttributesAreSetAndTakenBack) {
    AddFile(L"file");
    AddFolder(L"folder");
    for (const std::uint32_t attributes : {kReadOnly, kHidden, kReadOnly | kHidden | kSystem, 0u}) {
        EXPECT_TRUE(Changes().SetAttributes(Path(L"file"), attributes));
        EXPECT_EQ(AttributesOf(L"file"), attributes);
        // Not every system has read-only folders.
        EXPECT_TRUE(Changes().SetAttributes(Path(L"folder"), attributes));
        EXPECT_EQ(AttributesOf(L"folder") | kReadOnly, attributes | kReadOnly | files::kAttributeDirectory);
    }
    EXPECT_EQ(AttributesOf(L"folder"), files::kAttributeDirectory);
    EXPECT_FALSE(Changes().SetAttributes(Path(L"missing"), 0));
    EXPECT_FALSE(IsThere(L"missing"));
}

TEST_P(FileSystemContract, AFolderAndAFileStayWhatTheyAreWhateverTheirAttributes) {
    AddFile(L"file", "bytes");
    AddFolder(L"folder");
    EXPECT_TRUE(Changes().SetAttributes(Path(L"file"), files::kAttributeDirectory | kHidden));
    EXPECT_EQ(AttributesOf(L"file"), kHidden);
    EXPECT_EQ(ContentOf(L"file"), "bytes");
    EXPECT_TRUE(Changes().SetAttributes(Path(L"folder"), files::kAttributeDirectory));
    EXPECT_EQ(AttributesOf(L"folder"), files::kAttributeDirectory);
}

TEST_P(FileSystemContract, AttributesOfCompressionAndOfLinksCannotBeSet) {
    constexpr std::uint32_t kLinkAndCompressed = 0x400 | 0x800;
    AddFolder(L"folder");
    EXPECT_TRUE(Changes().SetAttributes(Path(L"folder"), kLinkAndCompressed | kHidden));
    EXPECT_EQ(Info().Attributes(Path(L"folder")) & (kLinkAndCompressed | kHidden), kHidden);
}

TEST_P(FileSystemContract, AnItemIsFoundWithItsOwnSpellingItsAttributesAndItsTime) {
    AddFile(L"File.txt", "bytes", kSomeTime + 7 * kSecond);
    AddFolder(L"Folder");
    ASSERT_TRUE(Changes().SetAttributes(Path(L"File.txt"), kReadOnly));
    const auto file = Info().Find(Path(L"FILE.TXT"));
    ASSERT_TRUE(file);
    EXPECT_EQ(NameOf(Path(L"FILE.TXT")), L"File.txt");
    EXPECT_EQ(file->Attributes & kKeptAttributes, kReadOnly);
    EXPECT_EQ(file->LastWriteTime, kSomeTime + 7 * kSecond);
    EXPECT_TRUE(file->IsTimeKnown);
    const auto folder = Info().Find(Path(L"folder"));
    ASSERT_TRUE(folder);
    EXPECT_EQ(NameOf(Path(L"folder")), L"Folder");
    EXPECT_EQ(folder->Attributes & kKeptAttributes, files::kAttributeDirectory);
    EXPECT_TRUE(folder->IsTimeKnown);
}

TEST_P(FileSystemContract, NothingIsFoundWhereNothingIs) {
    AddFile(L"file");
    AddFolder(L"folder");
    for (const wchar_t* const name : {L"missing", L"missing\\below", L"file\\below", L"folder\\below",
                                      L"folder\\", L"not<a>name", L"a|b"})
        EXPECT_FALSE(Info().Find(Path(name))) << testing::PrintToString(std::wstring(name));
    EXPECT_FALSE(Info().Find(L""));
}

TEST_P(FileSystemContract, DotsAndBlanksAtTheEndOfANameDoNotCount) {
    AddFile(L"file", "bytes");
    for (const wchar_t* const name : {L"file.", L"file ", L"file. .", L"FILE..."}) {
        ASSERT_TRUE(Info().Find(Path(name))) << testing::PrintToString(std::wstring(name));
        EXPECT_EQ(NameOf(Path(name)), L"file");
        EXPECT_EQ(AttributesOf(name), 0u);
        EXPECT_EQ(Info().Size(Path(name)), 5u);
    }
    EXPECT_FALSE(Info().Find(Path(L".file")));
    EXPECT_FALSE(Info().Find(Path(L" file")));
}

TEST_P(FileSystemContract, OneDotIsTheFolderAndTwoAreTheOneAbove) {
    AddFolder(L"outer\\inner");
    AddFile(L"outer\\file", "bytes");
    EXPECT_EQ(NameOf(Path(L"outer\\inner\\.")), L"inner");
    EXPECT_EQ(NameOf(Path(L"outer\\inner\\..")), L"outer");
    EXPECT_EQ(AttributesOf(L"outer\\inner\\..\\file"), 0u);
    EXPECT_EQ(AttributesOf(L"outer\\.\\inner"), files::kAttributeDirectory);
    EXPECT_FALSE(Info().Find(Path(L"outer\\...")));
    EXPECT_FALSE(Changes().Rename(Path(L"outer\\file"), Path(L"outer\\.")));
    EXPECT_FALSE(Changes().Rename(Path(L"outer\\file"), Path(L"outer\\..")));
    EXPECT_FALSE(Changes().Rename(Path(L"outer\\file"), Path(L"outer\\...")));
    EXPECT_EQ(ContentOf(L"outer\\file"), "bytes");
}

TEST_P(FileSystemContract, CaseDoesNotCountInAnyAlphabet) {
    constexpr std::pair<const wchar_t*, const wchar_t*> kSpellings[] = {
        {L"Folder Ä", L"FOLDER ä"}, {L"ＡＢＣ", L"ａｂｃ"}, {L"Ωμέγα", L"ΩΜΈΓΑ"}, {L"Файл", L"ФАЙЛ"}};
    for (const auto& [name, other] : kSpellings) {
        AddFolder(name);
        AddFile(std::wstring(name) + L"\\x");
        EXPECT_EQ(Changes().MakeFolder(Path(other)), files::kFolderExists);
        ASSERT_TRUE(Info().Find(Path(other)));
        EXPECT_EQ(NameOf(Path(other)), name);
        EXPECT_EQ(NamesIn(other), (Names{L"x"}));
    }
}

TEST_P(FileSystemContract, AListingHoldsEachEntryOnceAndNoDots) {
    for (const wchar_t* const name : {L"c", L"a", L".dot", L"..two", L"B.TXT"})
        AddFile(name, "x", kSomeTime);
    AddFolder(L"folder");
    AddFile(L"folder\\deep");
    AddFile(L"hidden");
    ASSERT_TRUE(Changes().SetAttributes(Path(L"hidden"), kHidden | kSystem));
    EXPECT_EQ(NamesIn(L""), (Names{L"..two", L".dot", L"B.TXT", L"a", L"c", L"folder", L"hidden"}));
    VisitEntries(Root(), [&](const files::Match& item) {
        EXPECT_EQ(item.Attributes & kKeptAttributes, AttributesOf(item.Name));
        EXPECT_TRUE(item.Name == L"folder" || item.Times.LastWrite == kSomeTime);
    });
}

TEST_P(FileSystemContract, AListingComesInTheSameOrderEveryTimeWithOrWithoutASeparator) {
    for (const wchar_t* const name : {L"c", L"a", L"b"})
        AddFile(name);
    Names first;
    Names second;
    VisitEntries(Root(), [&](const files::Match& item) { first.emplace_back(item.Name); });
    VisitEntries(Root() + L"\\", [&](const files::Match& item) { second.emplace_back(item.Name); });
    EXPECT_EQ(first.size(), 3u);
    EXPECT_EQ(first, second);
}

TEST_P(FileSystemContract, AnEmptyFolderAMissingOneAndAFileHaveNoEntries) {
    AddFolder(L"empty");
    AddFile(L"file");
    for (const wchar_t* const name : {L"empty", L"missing", L"file", L"file\\below"})
        EXPECT_TRUE(NamesIn(name).empty()) << testing::PrintToString(std::wstring(name));
    const auto nothing = [](const files::Match&) {};
    EXPECT_EQ(VisitEntries(Path(L"empty"), nothing), 0u);
    for (const wchar_t* const name : {L"missing", L"file", L"file\\below"})
        EXPECT_NE(VisitEntries(Path(name), nothing), 0u) << testing::PrintToString(std::wstring(name));
}

TEST_P(FileSystemContract, AVisitMayListAndChangeOtherFolders) {
    AddFolder(L"outer\\inner");
    AddFile(L"outer\\inner\\file");
    AddFolder(L"other");
    Names seen;
    VisitEntries(Path(L"outer"), [&](const files::Match& item) {
        seen = NamesIn(L"outer\\" + std::wstring(item.Name));
        EXPECT_TRUE(Changes().RemoveFolder(Path(L"other")));
    });
    EXPECT_EQ(seen, (Names{L"file"}));
}

TEST_P(FileSystemContract, AFileHasItsSizeAndEverythingElseHasNone) {
    AddFile(L"file", "12345");
    AddFile(L"empty", "");
    AddFolder(L"folder");
    EXPECT_EQ(Info().Size(Path(L"file")), 5u);
    EXPECT_EQ(Info().Size(Path(L"FILE")), 5u);
    for (const wchar_t* const name : {L"empty", L"folder", L"missing", L"file\\below"})
        EXPECT_EQ(Info().Size(Path(name)), 0u);
}

TEST_P(FileSystemContract, AFolderIsMadeOnceWithItsParents) {
    EXPECT_EQ(Changes().MakeFolder(Path(L"one\\two\\three")), files::kFolderMade);
    EXPECT_EQ(AttributesOf(L"one\\two\\three"), files::kAttributeDirectory);
    EXPECT_EQ(Changes().MakeFolder(Path(L"one\\two\\three")), files::kFolderExists);
    EXPECT_EQ(Changes().MakeFolder(Path(L"ONE\\two")), files::kFolderExists);
    EXPECT_EQ(Changes().MakeFolder(Path(L"one\\four.")), files::kFolderMade);
    EXPECT_EQ(NamesIn(L"one"), (Names{L"four", L"two"}));
    EXPECT_EQ(Changes().MakeFolder(Drive()), files::kFolderExists);
}

TEST_P(FileSystemContract, AFolderIsNotMadeOverAFileNorBelowOne) {
    AddFile(L"file", "bytes");
    EXPECT_NE(Changes().MakeFolder(Path(L"file")), files::kFolderMade);
    for (const wchar_t* const name : {L"file\\below", L"file\\below\\deeper"}) {
        const int result = Changes().MakeFolder(Path(name));
        EXPECT_NE(result, files::kFolderMade);
        EXPECT_NE(result, files::kFolderExists);
    }
    EXPECT_EQ(ContentOf(L"file"), "bytes");
}

TEST_P(FileSystemContract, AFolderIsNotMadeWithoutAProperPath) {
    for (const std::wstring& path :
         {std::wstring(L"relative"), std::wstring(), Path(L"what?"), Path(L"a<b>")}) {
        const int result = Changes().MakeFolder(path);
        EXPECT_NE(result, files::kFolderMade) << testing::PrintToString(path);
        EXPECT_NE(result, files::kFolderExists) << testing::PrintToString(path);
    }
    EXPECT_TRUE(NamesIn(L"").empty());
}

TEST_P(FileSystemContract, AFolderIsNotMadeOnADriveNorOnAServerThatIsNotThere) {
    for (const std::wstring& path :
         {MissingDrive() + L"folder", MissingDrive() + L"outer\\inner",
          std::wstring(kMissingServer) + L"share", std::wstring(kMissingServer) + L"share\\folder"}) {
        const int result = Changes().MakeFolder(path);
        EXPECT_NE(result, files::kFolderMade) << testing::PrintToString(path);
        EXPECT_NE(result, files::kFolderExists) << testing::PrintToString(path);
        EXPECT_EQ(Info().Attributes(path), files::kInvalidAttributes) << testing::PrintToString(path);
    }
}

TEST_P(FileSystemContract, ADriveWithoutItsSeparatorIsTheDriveToAListing) {
    const std::wstring drive = Drive();
    EXPECT_NE(Info().Attributes(drive) & files::kAttributeDirectory, 0u);
    EXPECT_NE(Info().Attributes(drive), files::kInvalidAttributes);
    Names with;
    Names without;
    VisitEntries(drive, [&](const files::Match& item) { with.emplace_back(item.Name); });
    VisitEntries(drive.substr(0, 2), [&](const files::Match& item) { without.emplace_back(item.Name); });
    EXPECT_EQ(with, without);
    EXPECT_FALSE(with.empty());
}

TEST_P(FileSystemContract, ADriveThatIsNotThereIsEmptyAndHasNoItem) {
    const std::wstring root = MissingDrive();
    for (const std::wstring& path : {root, root.substr(0, 2), root + L"x"}) {
        EXPECT_EQ(Info().Attributes(path), files::kInvalidAttributes) << testing::PrintToString(path);
        EXPECT_FALSE(Info().Find(path)) << testing::PrintToString(path);
        VisitEntries(path, [](const files::Match&) { ADD_FAILURE() << "an entry of nothing"; });
    }
}

TEST_P(FileSystemContract, ASlashIsASeparatorToEverythingThatLooks) {
    AddFolder(L"folder\\inner");
    AddFile(L"folder\\file", "12345");
    const std::wstring folder = WithSlashes(Path(L"folder"));
    EXPECT_NE(Info().Attributes(folder) & files::kAttributeDirectory, 0u);
    EXPECT_EQ(Info().Attributes(folder + L"/file") & files::kAttributeDirectory, 0u);
    EXPECT_EQ(Info().Size(folder + L"/file"), 5u);
    ASSERT_TRUE(Info().Find(folder + L"/FILE"));
    EXPECT_EQ(NameOf(folder + L"/FILE"), L"file");
    EXPECT_FALSE(Info().Find(folder + L"/missing"));
    Names names;
    for (const wchar_t* const end : {L"", L"/"})
        VisitEntries(folder + end, [&](const files::Match& item) { names.emplace_back(item.Name); });
    EXPECT_EQ(names.size(), 4u);
}

TEST_P(FileSystemContract, ASlashIsASeparatorToEverythingThatChanges) {
    AddFolder(L"folder");
    AddFile(L"file", "bytes");
    EXPECT_TRUE(Changes().SetAttributes(WithSlashes(Path(L"file")), kHidden));
    EXPECT_EQ(AttributesOf(L"file"), kHidden);
    EXPECT_TRUE(Changes().Rename(WithSlashes(Path(L"file")), WithSlashes(Path(L"folder\\new"))));
    EXPECT_EQ(NamesIn(L"folder"), (Names{L"new"}));
    EXPECT_FALSE(Changes().RemoveFolder(WithSlashes(Path(L"folder"))));
    EXPECT_TRUE(Changes().Rename(Path(L"folder\\new"), Path(L"file")));
    EXPECT_TRUE(Changes().RemoveFolder(WithSlashes(Path(L"folder"))));
    EXPECT_EQ(NamesIn(L""), (Names{L"file"}));
}

TEST_P(FileSystemContract, AFolderBehindSlashesIsMadeWhereItsParentIsThereAndNoParentWithIt) {
    const std::wstring root = WithSlashes(Root());
    EXPECT_EQ(Changes().MakeFolder(root + L"/one"), files::kFolderMade);
    EXPECT_EQ(Changes().MakeFolder(root + L"/one"), files::kFolderExists);
    EXPECT_EQ(Changes().MakeFolder(Path(L"one/two")), files::kFolderMade);
    const int result = Changes().MakeFolder(root + L"/three/four");
    EXPECT_NE(result, files::kFolderMade);
    EXPECT_NE(result, files::kFolderExists);
    EXPECT_EQ(NamesIn(L""), (Names{L"one"}));
    EXPECT_EQ(NamesIn(L"one"), (Names{L"two"}));
}

TEST_P(FileSystemContract, AUnitThatNobodySeesIsPartOfAName) {
    const std::wstring name = L"work\x008B";
    EXPECT_EQ(Changes().MakeFolder(WithSlashes(Path(name))), files::kFolderMade);
    EXPECT_EQ(Changes().MakeFolder(Path(name)), files::kFolderExists);
    EXPECT_EQ(NamesIn(L""), (Names{name}));
    EXPECT_FALSE(IsThere(L"work"));
    AddFile(name + L"\\file");
    EXPECT_EQ(NamesIn(name), (Names{L"file"}));
    EXPECT_FALSE(IsThere(name + L"file")) << "it separates nothing";
}

TEST_P(FileSystemContract, OnlyAnEmptyFolderIsRemoved) {
    AddFolder(L"folder\\inner");
    AddFile(L"file");
    EXPECT_FALSE(Changes().RemoveFolder(Path(L"folder")));
    EXPECT_FALSE(Changes().RemoveFolder(Path(L"file")));
    EXPECT_FALSE(Changes().RemoveFolder(Path(L"missing")));
    EXPECT_FALSE(Changes().RemoveFolder(Path(L"missing\\below")));
    EXPECT_TRUE(Changes().RemoveFolder(Path(L"FOLDER\\inner")));
    EXPECT_TRUE(Changes().RemoveFolder(Path(L"folder")));
    EXPECT_EQ(NamesIn(L""), (Names{L"file"}));
}

TEST_P(FileSystemContract, AFolderThatWasMadePlainIsRemoved) {
    AddFolder(L"folder");
    ASSERT_TRUE(
        Changes().SetAttributes(Path(L"folder"), kReadOnly | kHidden | kSystem | files::kAttributeDirectory));
    ASSERT_TRUE(Changes().SetAttributes(Path(L"folder"), files::kAttributeDirectory));
    EXPECT_TRUE(Changes().RemoveFolder(Path(L"folder")));
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
    ASSERT_TRUE(Changes().Rename(Path(L"outer\\file"), Path(L"outer\\new")));
    expectNewTime("renamed");
    ASSERT_TRUE(Changes().Rename(Path(L"outer\\new"), Path(L"away")));
    expectNewTime("moved out");
    ASSERT_TRUE(Changes().Rename(Path(L"away"), Path(L"outer\\back")));
    expectNewTime("moved in");
    ASSERT_TRUE(Changes().RemoveFolder(Path(L"outer\\inner")));
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
    Info().Size(Path(L"outer\\file"));
    EXPECT_EQ(Changes().MakeFolder(Path(L"outer\\inner")), files::kFolderExists);
    EXPECT_FALSE(Changes().RemoveFolder(Path(L"outer")));
    ASSERT_TRUE(Changes().SetAttributes(Path(L"outer"), kHidden));
    ASSERT_TRUE(Changes().SetAttributes(Path(L"outer\\file"), kHidden));
    Shell().NotifyFolderMade(Path(L"outer\\inner"));
    for (const wchar_t* const item : {L"outer", L"outer\\inner", L"outer\\file"})
        EXPECT_EQ(TimeOf(item), kSomeTime) << testing::PrintToString(std::wstring(item));
}

TEST_P(FileSystemContract, AFileGetsANewNameWithEverythingElseAsItWas) {
    AddFile(L"a", "bytes", kSomeTime);
    ASSERT_TRUE(Changes().SetAttributes(Path(L"a"), kReadOnly | kHidden));
    EXPECT_TRUE(Changes().Rename(Path(L"a"), Path(L"b.c d")));
    EXPECT_EQ(NamesIn(L""), (Names{L"b.c d"}));
    EXPECT_EQ(ContentOf(L"b.c d"), "bytes");
    EXPECT_EQ(AttributesOf(L"b.c d"), kReadOnly | kHidden);
    EXPECT_EQ(Info().Find(Path(L"b.c d"))->LastWriteTime, kSomeTime);
}

TEST_P(FileSystemContract, AFolderGetsANewNameWithAllThatItHolds) {
    AddFolder(L"a\\inner");
    AddFile(L"a\\inner\\file", "bytes");
    EXPECT_TRUE(Changes().Rename(Path(L"a"), Path(L"b")));
    EXPECT_EQ(NamesIn(L""), (Names{L"b"}));
    EXPECT_EQ(ContentOf(L"b\\inner\\file"), "bytes");
}

TEST_P(FileSystemContract, ATakenNameIsNotGivenAgain) {
    AddFile(L"a", "first");
    AddFile(L"b", "second");
    AddFolder(L"folder");
    AddFolder(L"empty");
    for (const wchar_t* const taken : {L"b", L"B", L"b.", L"b ", L"folder"})
        EXPECT_FALSE(Changes().Rename(Path(L"a"), Path(taken)))
            << testing::PrintToString(std::wstring(taken));
    EXPECT_FALSE(Changes().Rename(Path(L"folder"), Path(L"empty")));
    EXPECT_FALSE(Changes().Rename(Path(L"folder"), Path(L"a")));
    EXPECT_EQ(ContentOf(L"a"), "first");
    EXPECT_EQ(ContentOf(L"b"), "second");
    EXPECT_EQ(NamesIn(L""), (Names{L"a", L"b", L"empty", L"folder"}));
}

TEST_P(FileSystemContract, AnItemKeepsItsNameWhenItIsRenamedToIt) {
    AddFile(L"name", "bytes");
    EXPECT_TRUE(Changes().Rename(Path(L"name"), Path(L"name")));
    EXPECT_TRUE(Changes().Rename(Path(L"name"), Path(L"NAME")));
    EXPECT_EQ(NamesIn(L"").size(), 1u);
    EXPECT_EQ(ContentOf(L"Name"), "bytes");
}

TEST_P(FileSystemContract, WhatIsMissingOrHasNoPlaceIsNotRenamed) {
    AddFile(L"a", "bytes");
    AddFolder(L"folder");
    EXPECT_FALSE(Changes().Rename(Path(L"missing"), Path(L"b")));
    EXPECT_FALSE(Changes().Rename(Path(L"a"), Path(L"missing\\b")));
    EXPECT_FALSE(Changes().Rename(Path(L"folder"), Path(L"folder\\inside")));
    EXPECT_EQ(NamesIn(L""), (Names{L"a", L"folder"}));
    EXPECT_EQ(ContentOf(L"a"), "bytes");
}

TEST_P(FileSystemContract, ANameThatWindowsForbidsIsNotGiven) {
    AddFile(L"a", "bytes");
    for (const wchar_t* const name : {L"x*", L"x?", L"\"x\"", L"<x>", L"x|y", L"", L" ", L".", L". ."})
        EXPECT_FALSE(Changes().Rename(Path(L"a"), Path(name))) << testing::PrintToString(std::wstring(name));
    EXPECT_EQ(NamesIn(L""), (Names{L"a"}));
    EXPECT_EQ(ContentOf(L"a"), "bytes");
}

TEST_P(FileSystemContract, ANewNameLosesTheDotsAndBlanksAtItsEnd) {
    AddFile(L"a", "bytes");
    EXPECT_TRUE(Changes().Rename(Path(L"a"), Path(L"b. .")));
    EXPECT_EQ(NamesIn(L""), (Names{L"b"}));
    EXPECT_EQ(ContentOf(L"b"), "bytes");
}

TEST_P(FileSystemContract, AnItemIsTheSameBySpellingsAndNotAfterItWasReplaced) {
    AddFolder(L"folder\\inner");
    AddFile(L"folder\\file");
    AddFile(L"folder\\other");
    for (const wchar_t* const spelling :
         {L"FOLDER\\file", L"folder\\.\\file", L"folder\\inner\\..\\file", L"folder/file"})
        EXPECT_EQ(Info().Identity(Path(spelling)), Info().Identity(Path(L"folder\\file")))
            << testing::PrintToString(std::wstring(spelling));
    EXPECT_TRUE(Info().Identity(Path(L"folder\\file")));
    EXPECT_EQ(Info().Identity(Path(L"folder\\")), Info().Identity(Path(L"folder")));
    EXPECT_NE(Info().Identity(Path(L"folder\\file")), Info().Identity(Path(L"folder\\other")));
    EXPECT_NE(Info().Identity(Path(L"folder\\inner")), Info().Identity(Path(L"folder")));
    EXPECT_FALSE(Info().Identity(Path(L"missing")));
}

// A server with its separator is none for Windows, but is one for some systems of its kind.
TEST_P(FileSystemContract, RootsAreDrivesAndShares) {
    for (const wchar_t* const root : {L"C:\\", L"z:\\", L"\\", L"\\\\server", L"\\\\server\\share"})
        EXPECT_TRUE(Info().IsRoot(root)) << testing::PrintToString(std::wstring(root));
    for (const wchar_t* const other : {L"", L"C", L"C:", L"C:/", L"C:\\x", L"C:\\x\\", L"\\x", L"name",
                                       L"\\\\server\\share\\x", L"\\\\server\\share\\"})
        EXPECT_FALSE(Info().IsRoot(other)) << testing::PrintToString(std::wstring(other));
}

}  // namespace
}  // namespace ferry::transfer::contract

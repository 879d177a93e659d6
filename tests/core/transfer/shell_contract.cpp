// The contract of the shell's file operation.
#include "core/transfer/port_contract.h"

namespace ferry::transfer::contract {
namespace {

TEST_P(ShellContract, ACopyKeepsTheSourceAndGivesItsBytesItsTimeAndItsAttributes) {
    AddFile(L"File.txt", "bytes", kSomeTime + 5 * kSecond);
    ASSERT_TRUE(Changes().SetAttributes(Path(L"File.txt"), kReadOnly | kHidden));
    const ShellOutcome outcome = Transfer(L"File.txt", Operation::Copy);
    EXPECT_EQ(outcome.What, ShellResult::Done);
    EXPECT_FALSE(outcome.Aborted);
    EXPECT_EQ(NamesIn(L""), (Names{L"File.txt", L"to"}));
    EXPECT_EQ(NamesIn(L"to"), (Names{L"File.txt"}));
    for (const wchar_t* const file : {L"File.txt", L"to\\File.txt"}) {
        EXPECT_EQ(ContentOf(file), "bytes");
        EXPECT_EQ(AttributesOf(file), kReadOnly | kHidden);
        EXPECT_EQ(Info().Find(Path(file))->LastWriteTime, kSomeTime + 5 * kSecond);
    }
}

TEST_P(ShellContract, ACopyChangesNoTimeInTheFolderThatItComesFrom) {
    AddFolder(L"from");
    AddFile(L"from\\file", "bytes", kSomeTime);
    SetTime(L"from", kSomeTime);
    SetTime(L"to", kSomeTime);
    EXPECT_EQ(Transfer(L"from\\file", Operation::Copy).What, ShellResult::Done);
    EXPECT_EQ(TimeOf(L"from"), kSomeTime);
    EXPECT_NE(TimeOf(L"to"), kSomeTime);
    EXPECT_EQ(Transfer(L"from\\file", Operation::Move).What, ShellResult::Done);
    EXPECT_NE(TimeOf(L"from"), kSomeTime);
}

TEST_P(ShellContract, WhatIsNotAskedTellsNoAbort) {
    AddFile(L"a", "bytes");
    AddFolder(L"to\\a");
    const std::wstring source = Path(L"a");
    const std::wstring folder = Path(L"to\\");
    const std::uint32_t flags = kFlagSilent | kFlagNoConfirmation | kFlagNoErrorWindow;
    EXPECT_FALSE(Shell().Transfer({source, folder, {}, Operation::Copy, flags, false}).Aborted);
    EXPECT_TRUE(Shell().Transfer({source, folder, {}, Operation::Copy, flags, true}).Aborted);
}

TEST_P(ShellContract, APathWithASlashIsNothingToTheShell) {
    AddFile(L"a", "bytes");
    for (const wchar_t* const name : {L"", L"b"}) {
        for (const Operation what : {Operation::Copy, Operation::Move}) {
            for (const auto& [source, folder] : {std::pair(WithSlashes(Path(L"a")), Path(L"to\\")),
                                                 std::pair(Path(L"a"), WithSlashes(Path(L"to\\")))}) {
                const ShellOutcome outcome = TransferPath(source, folder, what, name);
                EXPECT_NE(outcome.What, ShellResult::Done);
                EXPECT_FALSE(outcome.Aborted);
            }
        }
    }
    EXPECT_TRUE(NamesIn(L"to").empty());
    EXPECT_EQ(ContentOf(L"a"), "bytes");
}

TEST_P(ShellContract, AUnitThatNobodySeesIsPartOfAName) {
    const std::wstring unseen = L"\x008B";
    AddFolder(L"to" + unseen);
    AddFile(L"a" + unseen, "bytes");
    EXPECT_EQ(TransferInto(L"to" + unseen + L"\\", L"a" + unseen, Operation::Copy).What, ShellResult::Done);
    EXPECT_EQ(NamesIn(L"to" + unseen), (Names{L"a" + unseen}));
    EXPECT_NE(TransferPath(Path(L"a" + unseen), WithSlashes(Path(L"to" + unseen)), Operation::Copy).What,
              ShellResult::Done);
    EXPECT_TRUE(NamesIn(L"to").empty());
}

TEST_P(ShellContract, AFolderIsMergedIntoOneOfItsName) {
    for (const Operation what : {Operation::Copy, Operation::Move}) {
        AddFolder(L"dir\\sub");
        AddFile(L"dir\\sub\\both", "incoming both");
        AddFile(L"dir\\new", "incoming new");
        if (!IsThere(L"to\\dir"))
            AddFolder(L"to\\dir\\sub");
        AddFile(L"to\\dir\\sub\\both", "existing both");
        AddFile(L"to\\dir\\old", "existing old");
        EXPECT_EQ(Transfer(L"dir", what).What, ShellResult::Done);
        EXPECT_EQ(NamesIn(L"to\\dir"), (Names{L"new", L"old", L"sub"}));
        EXPECT_EQ(ContentOf(L"to\\dir\\sub\\both"), "incoming both");
        EXPECT_EQ(ContentOf(L"to\\dir\\old"), "existing old");
        if (what == Operation::Copy) {
            Changes().Rename(Path(L"dir"), Path(L"copied"));
            continue;
        }
        EXPECT_FALSE(IsThere(L"dir"));
    }
}

TEST_P(ShellContract, AMoveTakesTheSourceAway) {
    AddFile(L"File.txt", "bytes", kSomeTime);
    const ShellOutcome outcome = Transfer(L"File.txt", Operation::Move);
    EXPECT_EQ(outcome.What, ShellResult::Done);
    EXPECT_FALSE(outcome.Aborted);
    EXPECT_EQ(NamesIn(L""), (Names{L"to"}));
    EXPECT_EQ(NamesIn(L"to"), (Names{L"File.txt"}));
    EXPECT_EQ(ContentOf(L"to\\File.txt"), "bytes");
    EXPECT_EQ(Info().Find(Path(L"to\\File.txt"))->LastWriteTime, kSomeTime);
}

TEST_P(ShellContract, TheSourceMayBeSpelledInAnotherCaseAndKeepsItsOwnSpelling) {
    AddFile(L"File.txt", "bytes");
    EXPECT_EQ(Transfer(L"FILE.TXT", Operation::Copy).What, ShellResult::Done);
    EXPECT_EQ(NamesIn(L"to"), (Names{L"File.txt"}));
}

TEST_P(ShellContract, ANewNameIsGivenToTheTargetOnly) {
    AddFile(L"a", "first");
    AddFile(L"b", "second");
    AddFile(L"to\\a", "existing");
    EXPECT_EQ(Transfer(L"a", Operation::Copy, L"new a").What, ShellResult::Done);
    EXPECT_EQ(Transfer(L"b", Operation::Move, L"new b").What, ShellResult::Done);
    EXPECT_EQ(NamesIn(L"to"), (Names{L"a", L"new a", L"new b"}));
    EXPECT_EQ(NamesIn(L""), (Names{L"a", L"to"}));
    EXPECT_EQ(ContentOf(L"to\\new a"), "first");
    EXPECT_EQ(ContentOf(L"to\\new b"), "second");
    EXPECT_EQ(ContentOf(L"to\\a"), "existing");
}

TEST_P(ShellContract, AFileCanGetANewNameInItsOwnFolder) {
    AddFile(L"to\\a", "bytes");
    EXPECT_EQ(Transfer(L"to\\a", Operation::Copy, L"b").What, ShellResult::Done);
    EXPECT_EQ(NamesIn(L"to"), (Names{L"a", L"b"}));
    EXPECT_EQ(Transfer(L"to\\a", Operation::Move, L"c").What, ShellResult::Done);
    EXPECT_EQ(NamesIn(L"to"), (Names{L"b", L"c"}));
    EXPECT_EQ(ContentOf(L"to\\c"), "bytes");
}

TEST_P(ShellContract, ANameThatWindowsForbidsFailsAndNothingHappens) {
    AddFile(L"a", "bytes");
    for (const wchar_t* const name : {L"x*", L"x?", L"x|y", L"x<y", L"x:y", L"x/y", L"\"", L".", L".."}) {
        for (const Operation what : {Operation::Copy, Operation::Move})
            EXPECT_NE(Transfer(L"a", what, name).What, ShellResult::Done)
                << testing::PrintToString(std::wstring(name));
    }
    EXPECT_TRUE(NamesIn(L"to").empty());
    EXPECT_EQ(NamesIn(L""), (Names{L"a", L"to"}));
    EXPECT_EQ(ContentOf(L"a"), "bytes");
}

TEST_P(ShellContract, ANewNameLosesTheDotsAndBlanksAtItsEnd) {
    AddFile(L"a", "first");
    EXPECT_EQ(Transfer(L"a", Operation::Copy, L"b. ").What, ShellResult::Done);
    EXPECT_EQ(NamesIn(L"to"), (Names{L"b"}));
    EXPECT_EQ(ContentOf(L"to\\b"), "first");
}

TEST_P(ShellContract, WithoutConfirmationAnExistingFileIsReplacedAlsoAReadOnlyOne) {
    for (const Operation what : {Operation::Copy, Operation::Move}) {
        for (const std::uint32_t attributes : {0u, kReadOnly}) {
            AddFile(L"a", "incoming");
            AddFile(L"to\\A", "existing");
            ASSERT_TRUE(Changes().SetAttributes(Path(L"to\\A"), attributes));
            const ShellOutcome outcome = Transfer(L"a", what);
            EXPECT_EQ(outcome.What, ShellResult::Done);
            EXPECT_FALSE(outcome.Aborted);
            EXPECT_EQ(NamesIn(L"to").size(), 1u);
            EXPECT_EQ(ContentOf(L"to\\a"), "incoming");
            EXPECT_EQ(AttributesOf(L"to\\a"), 0u);
            EXPECT_EQ(IsThere(L"a"), what == Operation::Copy);
        }
    }
}

TEST_P(ShellContract, RenamingOnCollisionKeepsBothFilesAndIsStrongerThanNoConfirmation) {
    AddFile(L"to\\a.txt", "existing");
    std::size_t count = 1;
    for (const Operation what : {Operation::Copy, Operation::Move}) {
        AddFile(L"a.txt", "incoming");
        EXPECT_EQ(Transfer(L"a.txt", what, {}, kFlagRenameOnCollision | kFlagNoConfirmation).What,
                  ShellResult::Done);
        EXPECT_EQ(NamesIn(L"to").size(), ++count);
        EXPECT_EQ(ContentOf(L"to\\a.txt"), "existing");
        for (const std::wstring& name : NamesIn(L"to"))
            EXPECT_EQ(ContentOf(L"to\\" + name), name == L"a.txt" ? "existing" : "incoming");
        EXPECT_EQ(IsThere(L"a.txt"), what == Operation::Copy);
    }
}

TEST_P(ShellContract, RenamingOnCollisionLeavesAFreeNameAlone) {
    AddFile(L"a.txt", "incoming");
    EXPECT_EQ(Transfer(L"a.txt", Operation::Copy, {}, kFlagRenameOnCollision).What, ShellResult::Done);
    EXPECT_EQ(NamesIn(L"to"), (Names{L"a.txt"}));
}

TEST_P(ShellContract, AMissingSourceOrFolderFailsWithoutBeingAnAbort) {
    AddFile(L"a", "bytes");
    for (const wchar_t* const name : {L"", L"b"}) {
        const ShellOutcome missing = Transfer(L"missing", Operation::Move, name);
        EXPECT_EQ(missing.What, ShellResult::NoSourceItem);
        EXPECT_LT(missing.Code, 0);
        EXPECT_FALSE(missing.Aborted);
        for (const wchar_t* const folder : {L"nowhere\\", L"a\\"}) {
            const ShellOutcome nowhere = TransferInto(folder, L"a", Operation::Move, name);
            EXPECT_NE(nowhere.What, ShellResult::Done);
            EXPECT_EQ(NamesIn(L""), (Names{L"a", L"to"}));
        }
        EXPECT_FALSE(TransferInto(L"nowhere\\", L"a", Operation::Move, name).Aborted);
    }
    EXPECT_TRUE(NamesIn(L"to").empty());
    EXPECT_EQ(ContentOf(L"a"), "bytes");
}

TEST_P(ShellContract, AFileNeverTakesThePlaceOfAFolder) {
    AddFile(L"a", "bytes");
    AddFolder(L"to\\a");
    AddFile(L"to\\a\\inside", "other");
    for (const Operation what : {Operation::Copy, Operation::Move}) {
        const ShellOutcome outcome = Transfer(L"a", what);
        EXPECT_NE(outcome.What, ShellResult::Done);
        EXPECT_TRUE(outcome.Aborted) << "an item that is refused counts as aborted";
    }
    EXPECT_EQ(ContentOf(L"a"), "bytes");
    EXPECT_EQ(ContentOf(L"to\\a\\inside"), "other");
}

TEST_P(ShellContract, AFolderNeverTakesThePlaceOfAFile) {
    AddFolder(L"a");
    AddFile(L"a\\inside", "bytes");
    AddFile(L"to\\a", "other");
    for (const Operation what : {Operation::Copy, Operation::Move})
        EXPECT_NE(Transfer(L"a", what).What, ShellResult::Done);
    EXPECT_EQ(ContentOf(L"a\\inside"), "bytes");
    EXPECT_EQ(ContentOf(L"to\\a"), "other");
}

TEST_P(ShellContract, AFileIsNotTransferredOntoItself) {
    AddFile(L"to\\a", "bytes");
    for (const Operation what : {Operation::Copy, Operation::Move}) {
        for (const wchar_t* const source : {L"to\\a", L"TO\\A"}) {
            const ShellOutcome outcome = Transfer(source, what);
            EXPECT_NE(outcome.What, ShellResult::Done);
            EXPECT_TRUE(outcome.Aborted) << "an item that is refused counts as aborted";
        }
    }
    EXPECT_NE(Transfer(L"to\\a", Operation::Move, {}, kFlagRenameOnCollision).What, ShellResult::Done);
    EXPECT_EQ(NamesIn(L"to"), (Names{L"a"}));
    EXPECT_EQ(ContentOf(L"to\\a"), "bytes");
}

TEST_P(ShellContract, RenamingOnCollisionCopiesAFileBesideItself) {
    AddFile(L"to\\a", "bytes");
    EXPECT_EQ(Transfer(L"to\\a", Operation::Copy, {}, kFlagRenameOnCollision).What, ShellResult::Done);
    const Names names = NamesIn(L"to");
    ASSERT_EQ(names.size(), 2u);
    for (const std::wstring& name : names)
        EXPECT_EQ(ContentOf(L"to\\" + name), "bytes");
}

TEST_P(ShellContract, AFolderInThePlaceOfAFileIsTransferredWithAllThatItHolds) {
    for (const Operation what : {Operation::Copy, Operation::Move}) {
        const std::wstring name = what == Operation::Copy ? L"copied" : L"moved";
        AddFolder(name + L"\\inner");
        AddFile(name + L"\\inner\\file", base::ToUtf8(name));
        AddFile(name + L"\\other", "other");
        EXPECT_EQ(Transfer(name, what).What, ShellResult::Done);
        EXPECT_EQ(ContentOf(L"to\\" + name + L"\\inner\\file"), base::ToUtf8(name));
        EXPECT_EQ(ContentOf(L"to\\" + name + L"\\other"), "other");
        EXPECT_EQ(IsThere(name), what == Operation::Copy);
    }
    AddFolder(L"again");
    EXPECT_EQ(Transfer(L"again", Operation::Move, L"new").What, ShellResult::Done);
    EXPECT_EQ(AttributesOf(L"to\\new"), files::kAttributeDirectory);
}

TEST_P(ShellContract, ABatchTransfersTreesAndFilesAndLeavesOutWhatIsMissing) {
    for (const Operation what : {Operation::Copy, Operation::Move}) {
        const std::wstring to = what == Operation::Copy ? L"copies" : L"moved";
        const std::wstring from = L"from " + to;
        AddFolder(to);
        AddFolder(from + L"\\tree\\inner\\empty");
        AddFile(from + L"\\tree\\inner\\file", "deep");
        AddFile(from + L"\\single", "flat");
        base::TextList sources;
        for (const wchar_t* const name : {L"\\tree", L"\\missing", L"\\single"})
            sources.Append(Path(from + name));
        EXPECT_EQ(TransferAll(sources, to, what).What, ShellResult::Done);
        EXPECT_EQ(NamesIn(to), (Names{L"single", L"tree"}));
        EXPECT_EQ(ContentOf(to + L"\\tree\\inner\\file"), "deep");
        EXPECT_EQ(AttributesOf(to + L"\\tree\\inner\\empty"), files::kAttributeDirectory);
        EXPECT_EQ(ContentOf(to + L"\\single"), "flat");
        EXPECT_EQ(NamesIn(from), what == Operation::Copy ? (Names{L"single", L"tree"}) : Names{});
    }
}

TEST_P(ShellContract, ABatchOfNothingOrIntoNowhereFails) {
    AddFile(L"a", "bytes");
    base::TextList none;
    none.Append(Path(L"missing"));
    EXPECT_EQ(TransferAll(none, L"to", Operation::Copy).What, ShellResult::Failed);
    base::TextList one;
    one.Append(Path(L"a"));
    EXPECT_EQ(TransferAll(one, L"nowhere", Operation::Move).What, ShellResult::Failed);
    EXPECT_EQ(NamesIn(L""), (Names{L"a", L"to"}));
    EXPECT_EQ(ContentOf(L"a"), "bytes");
}

}  // namespace
}  // namespace ferry::transfer::contract

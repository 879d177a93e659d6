// The engine on a disk that fails in every place in turn: nothing may be lost.
#include "copy_engine.h"

#include <gmock/gmock.h>

#include "disk_win32.h"
#include "test_folder.h"

namespace ferry::fileop {
namespace {

constexpr std::uint32_t kAccessDenied = 5;

// The real disk, except that one changing call fails, a copy after half of its bytes.
class FailingDisk final : public Disk {
public:
    int FailingCall = 0;  ///< Counted from 1; 0: none.
    int Calls = 0;
    bool IsSecondVolume = false;  ///< "to" lies on another volume than "from".

    ItemKind Kind(const std::wstring& path) override { return disk_.Kind(path); }
    std::uint32_t List(const std::wstring& folder, std::vector<std::wstring>& names) override {
        return Fails() ? kAccessDenied : disk_.List(folder, names);
    }
    bool IsSame(const std::wstring& left, const std::wstring& right) override {
        return disk_.IsSame(left, right);
    }
    std::wstring TemporaryBeside(const std::wstring& path) override { return disk_.TemporaryBeside(path); }
    std::uint32_t Copy(const std::wstring& source, const std::wstring& target, bool settles,
                       const std::function<bool()>& goesOn) override {
        if (Fails()) {
            WriteContent(target, ContentOf(source).substr(0, 3));
            return kAccessDenied;
        }
        return disk_.Copy(source, target, settles, goesOn);
    }
    std::uint32_t Rename(const std::wstring& from, const std::wstring& to, bool replaces) override {
        const bool crosses =
            (from.find(L"\\from\\") != std::wstring::npos) != (to.find(L"\\from\\") != std::wstring::npos);
        if (Fails()) {
            return kAccessDenied;
        }
        return IsSecondVolume && crosses ? kErrorNotSameDevice : disk_.Rename(from, to, replaces);
    }
    std::uint32_t MakeFile(const std::wstring& path, std::uint32_t attributes) override {
        return Fails() ? kAccessDenied : disk_.MakeFile(path, attributes);
    }
    std::uint32_t MakeFolder(const std::wstring& path) override {
        return Fails() ? kAccessDenied : disk_.MakeFolder(path);
    }
    std::uint32_t CopyFolderAttributes(const std::wstring& source, const std::wstring& target) override {
        return Fails() ? kAccessDenied : disk_.CopyFolderAttributes(source, target);
    }
    std::uint32_t RemoveFile(const std::wstring& path) override {
        return Fails() ? kAccessDenied : disk_.RemoveFile(path);
    }
    std::uint32_t RemoveFolder(const std::wstring& path) override {
        return Fails() ? kAccessDenied : disk_.RemoveFolder(path);
    }

private:
    bool Fails() { return ++Calls == FailingCall; }

    WindowsDisk disk_;
};

// Answers every failure in one way and cancels before the given look.
class FixedPerson final : public Person {
public:
    ErrorAnswer OnError = ErrorAnswer::Skip;
    int CancellingLook = 0;
    int Looks = 0;

    CollisionAnswer AskCollision(const std::wstring&, const std::wstring&) override {
        return CollisionAnswer::Replace;
    }
    bool AskMakeFolder(const std::wstring&) override { return true; }
    ErrorAnswer AskError(const std::wstring&, Result) override { return OnError; }
    void ShowItem(const std::wstring&) override {}
    bool HasCancelled() override { return ++Looks == CancellingLook; }
    void Wait(std::uint32_t) override {}
};

class SilentJournal final : public Journal {
public:
    void Item(const ItemRecord&) override {}
    void Failure(std::wstring_view, Result) override {}
    void Question(std::wstring_view, std::wstring_view) override {}
};

struct Case {
    Verb What;
    bool IsSecondVolume;
    ErrorAnswer OnError;
};

class EngineSweep : public testing::TestWithParam<Case> {
protected:
    struct World {
        TestFolder Folder;
        FailingDisk Disk;
        FixedPerson Person;

        World() {
            Folder.MakeFile(L"from\\d\\new.txt", "incoming new");
            Folder.MakeFile(L"from\\d\\both.txt", "incoming both");
            Folder.MakeFile(L"from\\d\\s\\deep.txt", "incoming deep");
            Folder.MakeFile(L"to\\d\\both.txt", "existing both");
            Folder.MakeFile(L"to\\d\\old.txt", "existing old");
        }
    };

    static Result Run(World& world) {
        world.Disk.IsSecondVolume = GetParam().IsSecondVolume;
        world.Person.OnError = GetParam().OnError;
        SilentJournal journal;
        FaultPlan faults;
        CopyEngine engine(world.Disk, world.Person, journal, faults, kFlagNoConfirmation);
        return engine.Perform({GetParam().What, world.Folder.In(L"from\\d"), world.Folder.In(L"to"), L"", 0});
    }

    static void ExpectNothingLost(const World& world) {
        for (const wchar_t* name : {L"new.txt", L"both.txt", L"s\\deep.txt"}) {
            const std::string source = ContentOf(world.Folder.In(L"from\\d\\" + std::wstring(name)));
            const std::string target = ContentOf(world.Folder.In(L"to\\d\\" + std::wstring(name)));
            const bool isSourceWhole = source.starts_with("incoming ");
            const bool isTargetNew = target.starts_with("incoming ") && target.size() > 11;
            EXPECT_TRUE(isSourceWhole || (GetParam().What == Verb::Move && isTargetNew))
                << source << "|" << target;
            EXPECT_TRUE(isTargetNew || target == "existing both" || target == "<missing>") << target;
        }
        EXPECT_NE(ContentOf(world.Folder.In(L"to\\d\\both.txt")), "<missing>");
        EXPECT_EQ(ContentOf(world.Folder.In(L"to\\d\\old.txt")), "existing old");
        for (const std::wstring& path : TreeOf(world.Folder.Path())) {
            EXPECT_EQ(path.find(L"~ferry"), std::wstring::npos) << testing::PrintToString(path);
        }
    }
};

TEST_P(EngineSweep, LosesNothingWhicheverCallFails) {
    World whole;
    ASSERT_EQ(Run(whole), kDone);
    ASSERT_GT(whole.Disk.Calls, 3);
    for (int call = 1; call <= whole.Disk.Calls; ++call) {
        SCOPED_TRACE(call);
        World world;
        world.Disk.FailingCall = call;
        Run(world);
        ExpectNothingLost(world);
    }
}

TEST_P(EngineSweep, LosesNothingWhereverItIsCancelled) {
    World whole;
    ASSERT_EQ(Run(whole), kDone);
    for (int look = 1; look <= whole.Person.Looks; ++look) {
        SCOPED_TRACE(look);
        World world;
        world.Person.CancellingLook = look;
        Run(world);
        ExpectNothingLost(world);
    }
}

class EngineRetrySweep : public EngineSweep {};

TEST_P(EngineRetrySweep, CompletesWhenTheFailedCallIsTriedAgain) {
    World whole;
    ASSERT_EQ(Run(whole), kDone);
    for (int call = 1; call <= whole.Disk.Calls; ++call) {
        SCOPED_TRACE(call);
        World world;
        world.Disk.FailingCall = call;
        EXPECT_EQ(Run(world), kDone);
        EXPECT_EQ(ContentOf(world.Folder.In(L"to\\d\\s\\deep.txt")), "incoming deep");
        EXPECT_EQ(ContentOf(world.Folder.In(L"to\\d\\both.txt")), "incoming both");
        EXPECT_EQ(Exists(world.Folder.In(L"from\\d")), GetParam().What == Verb::Copy);
    }
}

INSTANTIATE_TEST_SUITE_P(All, EngineSweep,
                         testing::Values(Case{Verb::Copy, false, ErrorAnswer::Skip},
                                         Case{Verb::Move, false, ErrorAnswer::Cancel},
                                         Case{Verb::Move, true, ErrorAnswer::Skip}));

INSTANTIATE_TEST_SUITE_P(All, EngineRetrySweep,
                         testing::Values(Case{Verb::Copy, false, ErrorAnswer::Retry},
                                         Case{Verb::Move, false, ErrorAnswer::Retry},
                                         Case{Verb::Move, true, ErrorAnswer::Retry}));

}  // namespace
}  // namespace ferry::fileop

// A library planted beside the program must not be taken for the system's.
#include <string_view>

#include "base/utf16.h"
#include "e2e/driver/app_copy.h"
#include "e2e/driver/surroundings.h"
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

// version.dll is not among them: where user32.dll itself imports it, as under Wine, the loader has
// looked for it before any code of the program runs.
/// Libraries that Windows would take from the program's folder when the program let it.
constexpr const wchar_t* kPlantedNames[] = {
    L"version", L"uxtheme",  L"dwmapi",   L"propsys", L"cryptbase", L"profapi",     L"netapi32",
    L"userenv", L"riched20", L"wtsapi32", L"sapi",    L"winmm",     L"textshaping",
};

/// Wine's own user32 needs this one before any program runs; no program could keep it out.
constexpr std::wstring_view kNeededByWine = L"version";

/// The mark of a planted library is the only evidence: Wine names its own libraries by the path of
/// a planted file. It also prefers its own unless this key says otherwise, which Windows ignores.
constexpr wchar_t kPreferencesKey[] = L"Software\\Wine\\AppDefaults\\Ferry.exe\\DllOverrides";

std::wstring PlantedLibrary() {
    const std::string name = E2E_PLANTED_NAME;
    return OwnFolder() + L'\\' + std::wstring(name.begin(), name.end());
}

class PlantedLibraries : public FerryTest {
protected:
    void SetUp() override {
        mark_ = Tree().Path(L"loaded.mark");
        SetVariable(L"FERRY_E2E_PLANTED_MARK", mark_);
        for (const wchar_t* name : kPlantedNames) {
            if (name != kNeededByWine)
                WriteText(kPreferencesKey, name, L"native,builtin");
        }
    }

    void TearDown() override {
        SetVariable(L"FERRY_E2E_PLANTED_MARK", L"");
        for (const wchar_t* name : kPlantedNames) {
            DeleteValue(kPreferencesKey, name);
        }
    }

    /// A copy of the installed layout with the planted libraries beside the program.
    testing::AssertionResult MakeSpoiltApp(const std::wstring& app) const {
        if (!CopyApp(app))
            return testing::AssertionFailure() << "the layout cannot be copied";
        for (const wchar_t* name : kPlantedNames) {
            const std::wstring planted = ProgramFolder(app) + L"\\" + name + L".dll";
            if (!CopyFileW(PlantedLibrary().c_str(), planted.c_str(), FALSE))
                return testing::AssertionFailure() << base::ToUtf8(planted) << ' ' << GetLastError();
        }
        return testing::AssertionSuccess();
    }

    std::wstring mark_;
};

TEST_F(PlantedLibraries, LeaveAMarkWhenSomebodyLoadsThem) {
    const HMODULE library = LoadLibraryW(PlantedLibrary().c_str());
    ASSERT_NE(library, nullptr);
    FreeLibrary(library);
    EXPECT_TRUE(Exists(mark_));
}

TEST_F(PlantedLibraries, AreNotLoadedByAWholeRun) {
    const std::wstring app = Tree().Path(L"app");
    ASSERT_TRUE(MakeSpoiltApp(app));
    RunPlan plan = Plan({Tree().WriteFile(L"元\\a.txt", "a")});
    plan.AppFolder = app;
    ASSERT_TRUE(Open(plan)) << "a planted library was loaded: " << Exists(mark_);
    ASSERT_TRUE(Transfer(Tree().MakeFolder(L"先")));
    EXPECT_FALSE(Exists(mark_));
}

}  // namespace
}  // namespace ferry::e2e

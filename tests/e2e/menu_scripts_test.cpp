// The test scripts that touch the world, run once more through the menu of the installed program: files,
// registry, clipboard, programs, boxes and the destination are looked at from outside.
//
// A script takes part when, in a pretended world with what the menu gives, it does what its lines say;
// Rehearse has the rules. Of the effects on its lines, all but these are compared with what happened:
// - hand-overs ("send") go to the dialog, which keeps the last folder of the codes 100, 200 and 300 as its
//   destination and takes no notice of the others; so the destination is compared;
// - window messages ("post", "sendm") go to the dialog, which knows none of their numbers;
// - waits ("sleep") take time and change nothing;
// - opening and writing a file ("open", "write") shows in what the file holds afterwards;
// - starts ("run", "start") that the system refuses show in the message about it only.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/utf16.h"
#include "e2e/driver/surroundings.h"
#include "e2e/favourite_fixture.h"
#include "e2e/script_stage.h"
#include "e2e/stand_in.h"

namespace ferry::e2e {
namespace {

namespace fs = std::filesystem;
using scripttools::Hindrance;
using scripttools::RehearsedBox;

/// The scripts about boxes, of which boxes alone count.
constexpr std::string_view kBoxTopic = "boxes";

/// How many scripts of a topic have to take part at least, so that the rules do not come to leave all of them
/// out; not all that do now, since machines differ.
constexpr struct {
    std::string_view Topic;
    std::size_t Scripts;
} kAtLeast[] = {{kBoxTopic, 20}, {"clipboard", 5}, {"files", 30},   {"host", 45},
                {"options", 14}, {"programs", 20}, {"registry", 9}, {"unknown-lines", 14}};

std::vector<std::string> Topics() {
    std::vector<std::string> topics;
    std::error_code error;
    for (fs::directory_iterator at(FERRY_TEST_SCRIPTS, error), end; !error && at != end;
         at.increment(error)) {
        if (at->is_directory(error))
            topics.push_back(at->path().filename().string());
    }
    std::ranges::sort(topics);
    return topics;
}

std::string ReadScriptText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::map<std::wstring, std::wstring> OwnEnvironment() {
    std::map<std::wstring, std::wstring> environment;
    wchar_t* const block = GetEnvironmentStringsW();
    for (std::wstring_view entry = block; !entry.empty(); entry = entry.data() + entry.size() + 1) {
        // The current folders of drives are variables whose names begin with the sign.
        if (const std::size_t sign = entry.find(L'='); sign != 0 && sign != std::wstring_view::npos)
            environment.emplace(entry.substr(0, sign), entry.substr(sign + 1));
    }
    FreeEnvironmentStringsW(block);
    return environment;
}

std::string InSystemEncoding(const std::wstring& text) {
    const auto convert = [&text](char* place, int room) {
        return WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(text.size()),
                                   place, room, nullptr, nullptr);
    };
    std::string narrow(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
    convert(narrow.data(), static_cast<int>(narrow.size()));
    return narrow;
}

/// The numbers of the buttons that a box of this style has.
std::set<int> ButtonsOf(std::uint32_t style) {
    constexpr std::uint32_t kButtonsMask = 0xF;
    static const std::set<int> kButtons[] = {{},
                                             {IDOK, IDCANCEL},
                                             {IDABORT, IDRETRY, IDIGNORE},
                                             {IDYES, IDNO, IDCANCEL},
                                             {IDYES, IDNO},
                                             {IDRETRY, IDCANCEL},
                                             {IDCANCEL, IDTRYAGAIN, IDCONTINUE}};
    return kButtons[style & kButtonsMask];
}

/// The current folder of this process, which those that it starts begin in; put back at the end.
class CurrentFolder {
public:
    explicit CurrentFolder(const std::wstring& folder) : before_(GetCurrentDirectoryW(0, nullptr), L'\0') {
        before_.resize(GetCurrentDirectoryW(static_cast<DWORD>(before_.size()), before_.data()));
        SetCurrentDirectoryW(folder.c_str());
    }
    ~CurrentFolder() { SetCurrentDirectoryW(before_.c_str()); }
    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;

private:
    std::wstring before_;
};

class MenuScripts : public FavouriteTest, public testing::WithParamInterface<std::string> {
protected:
    MenuScripts() { SetVariable(kStandInLog, log_); }
    ~MenuScripts() override { SetVariable(kStandInLog, L""); }

    /// Reads the scripts of the topic and rehearses them; those that take part, by the current folder that
    /// they want, since a program has one all the time.
    std::map<std::wstring, std::vector<StagedScript>> ScriptsByFolder() const {
        const scripttools::InstalledWorld installed = Installed();
        std::map<std::wstring, std::vector<StagedScript>> scripts;
        std::error_code error;
        const fs::path topic = fs::path(FERRY_TEST_SCRIPTS) / GetParam();
        for (fs::directory_iterator at(topic, error), end; !error && at != end; at.increment(error)) {
            StagedScript script{at->path().filename().string(),
                                ReadMovedScript(base::FromUtf8(ReadScriptText(at->path())), places_),
                                {}};
            if (Rehearse(script.File, GetParam() == kBoxTopic, installed, script.Rehearsed) ==
                Hindrance::None)
                scripts[script.File.World.CurrentFolder].push_back(std::move(script));
        }
        return scripts;
    }

    /// Opens Ferry so that it runs in `folder`, and stands where the pretended host's window does.
    testing::AssertionResult OpenIn(const std::wstring& folder) {
        MakeFolders(folder);
        MakeFolders(Favourites());
        const CurrentFolder current(folder);
        if (const auto opened = OpenDialog(); !opened)
            return opened;
        const auto& place = scripttools::kHostPlace;
        SetWindowPos(Dialog().Window(), nullptr, place.Left, place.Top, place.Right - place.Left,
                     place.Bottom - place.Top, SWP_NOZORDER | SWP_NOACTIVATE);
        return testing::AssertionSuccess();
    }

    /// Chooses the script in the menu, answers its boxes and looks at what it has done. False when the next
    /// one cannot be tried.
    bool Play(const StagedScript& script) {
        const ScriptStage stage(script, places_, log_);
        Dialog().SetDestination(kBefore);
        const std::wstring& path = script.File.World.Script;
        if (const auto chosen = Choose({path.substr(path.rfind(L'\\') + 1)}); !chosen) {
            ADD_FAILURE() << chosen.message();
            return false;
        }
        for (const RehearsedBox& expected : script.Rehearsed.Boxes) {
            if (!Answer(expected))
                return false;
        }
        if (const auto isOver = EndsWithoutAnotherBox(); !isOver) {
            ADD_FAILURE() << isOver.message();
            return false;
        }
        const std::string differences = stage.Differences();
        EXPECT_TRUE(differences.empty()) << differences;
        EXPECT_EQ(base::ToUtf8(Dialog().Destination()), base::ToUtf8(DestinationAfter(script)));
        return true;
    }

private:
    scripttools::InstalledWorld Installed() const {
        scripttools::InstalledWorld installed;
        installed.MenuFolder = Favourites();
        installed.ProgramFolder = AppFolder() + L"\\Command\\Ferry\\";
        installed.Environment = OwnEnvironment();
        for (const auto& [name, value] : ReadValues(kHostKey)) {
            if (const auto text = ReadText(kHostKey, name))
                installed.HostSettings[name] = *text;
            else if (const auto number = ReadNumber(kHostKey, name))
                installed.HostSettings[name] = static_cast<std::uint32_t>(*number);
        }
        installed.Metric = [](int index) { return GetSystemMetrics(index); };
        installed.Narrow = InSystemEncoding;
        return installed;
    }

    /// Whether the box comes, with its text and its buttons, and goes again.
    bool Answer(const RehearsedBox& expected) {
        const ShownBox box = Box();
        if (box.Window == nullptr) {
            ADD_FAILURE() << "no box came with the text " << base::ToUtf8(expected.Text);
            return false;
        }
        EXPECT_EQ(base::ToUtf8(box.Text), base::ToUtf8(expected.Text));
        const std::wstring title = RemoteText(box.Window);
        const bool isScripts = expected.Kind == L"msg";
        EXPECT_TRUE(isScripts ? title == L"Kiv" : title.starts_with(L"Ferry")) << base::ToUtf8(title);
        const std::set<int> buttons = isScripts                 ? ButtonsOf(expected.Style)
                                      : expected.Kind == L"ask" ? std::set<int>{IDYES, IDNO}
                                                                : std::set<int>{};
        for (const int button : buttons)
            EXPECT_NE(GetDlgItem(box.Window, button), nullptr) << "button " << button;
        // A box with nothing to choose has one button, whatever its number.
        const bool isGone = DismissMessageBox(box, buttons.empty() ? 0 : expected.Button);
        EXPECT_TRUE(isGone);
        return isGone;
    }

    testing::AssertionResult EndsWithoutAnotherBox() {
        ShownBox box;
        const bool isOver = HasHandledAll(Dialog().Window()) && WaitUntil([&] {
                                box = FindMessageBox(Run().FerryId());
                                return box.Window != nullptr ||
                                       (IsWindowEnabled(Dialog().Window()) != FALSE &&
                                        !FindRunDialog(Run().FerryId(), RunDialog::Progress).IsOpen());
                            });
        if (box.Window == nullptr)
            return isOver ? testing::AssertionSuccess() : testing::AssertionFailure() << "it does not end";
        DismissMessageBox(box);
        return testing::AssertionFailure() << "a box came with the text " << base::ToUtf8(box.Text);
    }

    /// What the destination should be afterwards: what was last handed over to one of the panes.
    static std::wstring DestinationAfter(const StagedScript& script) {
        std::wstring destination = kBefore;
        for (const scripttools::Effect& effect : script.Rehearsed.Effects) {
            const std::size_t blank = effect.Text.find(L' ');
            const std::wstring code = effect.Text.substr(0, blank);
            if (effect.Kind != L"send" || (code != L"100" && code != L"200" && code != L"300"))
                continue;
            destination = effect.Text.substr(blank + 1);
            if (!destination.ends_with(L'\\'))
                destination += L'\\';
        }
        return destination;
    }

    scripttools::MovedPlaces places_{Favourites(), Tree().Path(L"drive")};
    std::wstring log_ = Tree().Path(L"programs.log");
};

TEST_P(MenuScripts, DoWhatTheirLinesSay) {
    std::size_t count = 0;
    for (const auto& [folder, scripts] : ScriptsByFolder()) {
        ASSERT_TRUE(OpenIn(folder));
        for (const StagedScript& script : scripts) {
            SCOPED_TRACE(script.Place);
            ASSERT_TRUE(Play(script));
            ++count;
        }
        ASSERT_TRUE(CancelEndsWell());
    }
    for (const auto& [topic, scripts] : kAtLeast) {
        if (topic == GetParam()) {
            EXPECT_GE(count, scripts);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Topics, MenuScripts, testing::ValuesIn(Topics()), [](const auto& topic) {
    std::string name = topic.param;
    std::ranges::replace(name, '-', '_');
    return name;
});

}  // namespace
}  // namespace ferry::e2e

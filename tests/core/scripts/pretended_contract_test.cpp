// The pretended world keeps the contracts of a script's world.
#include <algorithm>
#include <utility>

#include "core/script/file_contract.h"
#include "core/script/program_contract.h"
#include "core/script/system_contract.h"
#include "core/script/window_contract.h"
#include "script/pretended_world.h"

namespace ferry::script::contract {
namespace {

using scripttools::Bytes;
using scripttools::Effect;
using scripttools::PretendedWorld;
using scripttools::WorldDescription;

/// A world that can be described anew.
class World {
public:
    WorldDescription Description{.CurrentFolder = L"C:\\cur",
                                 .LoginName = L"u",
                                 .LocalAppData = L"C:\\Users\\u\\AppData\\Local",
                                 .ProgramFolder = L"C:\\Kiv\\Command\\Ferry\\"};

    PretendedWorld& Get() {
        if (!world_)
            world_ = std::make_unique<PretendedWorld>(Description);
        return *world_;
    }
    script::World Ports() { return Get().Ports(); }

    /// The next look is at a world made of the description as it is then.
    void Renew() {
        world_.reset();
        taken_ = 0;
    }

    /// The effects since the last call.
    std::vector<Effect> Take() {
        const auto& all = Get().Effects();
        return {all.begin() + static_cast<std::ptrdiff_t>(std::exchange(taken_, all.size())), all.end()};
    }

private:
    std::unique_ptr<PretendedWorld> world_;
    std::size_t taken_ = 0;
};

/// The next number in `text`, which loses it and the blank behind it.
long long TakeNumber(std::wstring& text) {
    std::size_t length = 0;
    const long long number = std::stoll(text, &length);
    text.erase(0, std::min(length + 1, text.size()));
    return number;
}

ArrivedRecord RecordOf(const Effect& effect, std::size_t byteCount) {
    std::wstring text = effect.Text;
    const auto code = static_cast<std::uint32_t>(TakeNumber(text));
    return {code, byteCount, text};
}

class PretendedFilePlace final : public FilePlace {
public:
    PretendedFilePlace() { world_.Description.Folders.push_back(LongFolder()); }

    ByteFiles& Files() override { return world_.Ports().ByteFiles; }
    std::wstring Root() override { return L"C:\\cur"; }
    std::wstring LongFolder() override { return L"C:\\" + std::wstring(320, L'd'); }

    void Write(const std::wstring& path, const std::string& content) override {
        const auto bytes = std::as_bytes(std::span(content));
        world_.Description.Files[path] = Bytes(bytes.begin(), bytes.end());
        world_.Renew();
    }

    std::optional<std::string> Content(const std::wstring& path) override {
        const auto files = world_.Get().Files();
        const auto found = files.find(path);
        if (found == files.end())
            return std::nullopt;
        return std::string(reinterpret_cast<const char*>(found->second.data()), found->second.size());
    }

private:
    World world_;
};

INSTANTIATE_TEST_SUITE_P(Pretended, FileContract,
                         testing::Values(&test::Make<FilePlace, PretendedFilePlace>));

class PretendedProgramPlace final : public ProgramPlace {
public:
    PretendedProgramPlace() {
        for (const std::uint32_t code : {0U, 3U, 7U, 259U})
            world_.Description.Programs[Ending(code)] = {.ExitCode = code, .DurationMs = 20};
        world_.Description.Programs[Staying()] = {.ExitCode = 0, .DurationMs = 1'000'000};
    }

    Programs& ThePrograms() override { return world_.Ports().Programs; }
    std::wstring Ending(std::uint32_t exitCode) override {
        return L"end" + std::to_wstring(exitCode) + L".exe";
    }
    std::wstring Staying() override { return L"stay.exe"; }
    std::wstring Missing() override { return L"missing.exe"; }

private:
    World world_;
};

INSTANTIATE_TEST_SUITE_P(Pretended, ProgramContract,
                         testing::Values(&test::Make<ProgramPlace, PretendedProgramPlace>));

class PretendedHostPlace final : public HostPlace {
public:
    PretendedHostPlace() { there_.Description.HasHostWindow = true; }

    HostWindow& Present() override { return there_.Ports().Host; }
    HostWindow& Absent() override { return gone_.Ports().Host; }
    ScreenBox Stands() override { return scripttools::kHostPlace; }

    std::vector<ArrivedRecord> TakeRecords() override {
        std::vector<ArrivedRecord> records;
        for (const Effect& effect : Arrived())
            records.push_back(RecordOf(effect, effect.ByteCount.value_or(0)));
        return records;
    }

    std::vector<ArrivedMessage> TakeMessages() override {
        std::vector<ArrivedMessage> messages;
        for (const Effect& effect : Arrived()) {
            std::wstring text = effect.Text;
            const auto number = static_cast<std::uint32_t>(TakeNumber(text));
            const auto first = static_cast<int>(TakeNumber(text));
            messages.push_back({number, first, static_cast<int>(TakeNumber(text)), effect.Kind == L"post"});
        }
        return messages;
    }

private:
    /// What happened in either world: nothing arrives from the one without a window.
    std::vector<Effect> Arrived() {
        std::vector<Effect> effects = there_.Take();
        for (Effect& effect : gone_.Take())
            effects.push_back(std::move(effect));
        return effects;
    }

    World there_;
    World gone_;
};

INSTANTIATE_TEST_SUITE_P(Pretended, HostContract,
                         testing::Values(&test::Make<HostPlace, PretendedHostPlace>));

class PretendedTracePlace final : public TracePlace {
public:
    PretendedTracePlace() { world_.Description.Trace = scripttools::TraceKind::Trace; }

    TraceWindow& Trace() override { return world_.Ports().Trace; }
    const wchar_t* Title() override { return L"Script trace Kiv"; }

    std::vector<ArrivedRecord> TakeRecords() override {
        std::vector<ArrivedRecord> records;
        for (const Effect& effect : world_.Take()) {
            const ArrivedRecord record = RecordOf(effect, 0);
            // Nobody looks at the count of a trace record.
            records.push_back({record.Code, Record{record.Code, record.Text}.ByteCount(), record.Text});
        }
        return records;
    }

private:
    World world_;
};

INSTANTIATE_TEST_SUITE_P(Pretended, TraceContract,
                         testing::Values(&test::Make<TracePlace, PretendedTracePlace>));

class PretendedBoxPlace final : public BoxPlace {
public:
    Boxes& TheBoxes() override { return world_.Ports().Boxes; }

    std::wstring ReadDuring(const std::function<void()>& show, int button) override {
        world_.Description.Answers = {button};
        world_.Renew();
        show();
        const std::vector<Effect> effects = world_.Take();
        EXPECT_EQ(effects.size(), 1U);
        std::wstring text = effects.empty() ? L"0 " : effects.front().Text;
        TakeNumber(text);
        return text;
    }

private:
    World world_;
};

INSTANTIATE_TEST_SUITE_P(Pretended, BoxContract, testing::Values(&test::Make<BoxPlace, PretendedBoxPlace>));

class PretendedClipboardPlace final : public ClipboardPlace {
public:
    Clipboard& TheClipboard() override { return world_.Ports().Clipboard; }
    void Copy(const std::wstring& text) override {
        world_.Description.Clipboard = text;
        world_.Renew();
    }
    void Clear() override { Copy({}); }
    std::wstring Pasted() override {
        const auto& effects = world_.Get().Effects();
        return effects.empty() ? world_.Description.Clipboard : effects.back().Text;
    }

private:
    World world_;
};

INSTANTIATE_TEST_SUITE_P(Pretended, ClipboardContract,
                         testing::Values(&test::Make<ClipboardPlace, PretendedClipboardPlace>));

class PretendedSurroundingsPlace final : public SurroundingsPlace {
public:
    Surroundings& TheSurroundings() override { return world_.Ports().Surroundings; }
    void SetVariable(const std::wstring& name, const std::wstring& value) override {
        world_.Description.Environment[name] = value;
        world_.Renew();
    }
    std::wstring CurrentFolder() override { return L"C:\\cur"; }
    bool IsNarrowComplete() override { return false; }

private:
    World world_;
};

INSTANTIATE_TEST_SUITE_P(Pretended, SurroundingsContract,
                         testing::Values(&test::Make<SurroundingsPlace, PretendedSurroundingsPlace>));

class PretendedSmallPlace final : public SmallPlace {
public:
    Homes& TheHomes() override { return world_.Ports().Homes; }
    Chance& TheChance() override { return world_.Ports().Chance; }
    Pace& ThePace() override { return world_.Ports().Pace; }
    Speech& TheSpeech() override { return world_.Ports().Speech; }

private:
    World world_;
};

INSTANTIATE_TEST_SUITE_P(Pretended, SmallContract,
                         testing::Values(&test::Make<SmallPlace, PretendedSmallPlace>));

}  // namespace
}  // namespace ferry::script::contract

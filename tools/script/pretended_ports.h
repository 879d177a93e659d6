// The small ports of a pretended world.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/case_order.h"
#include "effects.h"
#include "pretended_world.h"
#include "script/ports.h"

namespace ferry::scripttools {

/// The buttons that a person presses.
class PretendedAnswers {
public:
    explicit PretendedAnswers(const std::vector<int>& answers) : answers_(answers) {}

    /// The next one; `otherwise` when none is left.
    int Next(int otherwise) { return next_ < answers_.size() ? answers_[next_++] : otherwise; }

private:
    const std::vector<int>& answers_;
    std::size_t next_ = 0;
};

class PretendedBoxes final : public script::Boxes {
public:
    PretendedBoxes(PretendedAnswers& answers, EffectLog& log) : answers_(answers), log_(log) {}

    int Show(const std::wstring& text, std::uint32_t style) override;

private:
    PretendedAnswers& answers_;
    EffectLog& log_;
};

class PretendedSpeaker final : public lang::Speaker {
public:
    PretendedSpeaker(PretendedAnswers& answers, EffectLog& log) : answers_(answers), log_(log) {}

    void Tell(const std::wstring& text, lang::Tone tone) override;
    bool Ask(const std::wstring& question, lang::Tone tone) override;

private:
    PretendedAnswers& answers_;
    EffectLog& log_;
};

class PretendedPrograms final : public script::Programs {
public:
    PretendedPrograms(const WorldDescription& world, PretendedDisk& disk, EffectLog& log)
        : world_(world), disk_(disk), log_(log) {}

    std::unique_ptr<script::RunningProgram> Start(const script::ProgramStart& start) override;
    bool StartHelper(const std::wstring& commandLine) override;
    bool Open(const script::ProgramStart& what) override;

private:
    void Note(const script::ProgramStart& start, bool isWaitedFor);
    std::optional<PretendedProgram> Known(std::wstring_view commandLine) const;

    const WorldDescription& world_;
    PretendedDisk& disk_;
    EffectLog& log_;
};

class PretendedHost final : public script::HostWindow {
public:
    PretendedHost(const WorldDescription& world, EffectLog& log) : world_(world), log_(log) {}

    bool Exists() override { return world_.HasHostWindow; }
    void HandOver(const script::Record& record) override;
    void Post(std::uint32_t message, int wParam, int lParam) override;
    void Send(std::uint32_t message, int wParam, int lParam) override;
    std::optional<script::ScreenBox> Position() override;

private:
    const WorldDescription& world_;
    EffectLog& log_;
};

class PretendedTrace final : public script::TraceWindow {
public:
    PretendedTrace(TraceKind kind, EffectLog& log) : kind_(kind), log_(log) {}

    bool Find(const wchar_t* title) override;
    void Send(const script::Record& record) override;

private:
    TraceKind kind_;
    EffectLog& log_;
    bool isFound_ = false;
};

/// The program's own key is empty at first; of other keys only the host's can be read.
class PretendedSettings final : public settings::SettingsStore {
public:
    PretendedSettings(const std::map<std::wstring, HostSetting>& host, EffectLog& log);

    std::wstring ReadText(std::wstring_view name, std::wstring_view defaultText) override;
    std::uint32_t ReadNumber(std::wstring_view name, std::uint32_t defaultNumber) override;
    bool WriteText(std::wstring_view name, std::wstring_view text) override;
    bool WriteNumber(std::wstring_view name, std::uint32_t number) override;
    std::wstring ReadHostText(std::wstring_view name, std::wstring_view defaultText) override;
    std::uint32_t ReadHostNumber(std::wstring_view name) override;
    bool WriteTextToKey(std::wstring_view key, std::wstring_view name, std::wstring_view text) override;
    bool WriteNumberToKey(std::wstring_view key, std::wstring_view name, std::uint32_t number) override;

private:
    /// Keys and names in small letters.
    using Place = std::pair<std::wstring, std::wstring>;

    static Place PlaceOf(std::wstring_view key, std::wstring_view name);
    std::optional<Bytes> BytesAt(std::wstring_view key, std::wstring_view name) const;
    std::wstring TextAt(std::wstring_view key, std::wstring_view name, std::wstring_view defaultText) const;
    std::uint32_t NumberAt(std::wstring_view key, std::wstring_view name, std::uint32_t defaultNumber) const;

    std::map<Place, HostSetting> values_;
    EffectLog& log_;
};

class PretendedClipboard final : public script::Clipboard {
public:
    PretendedClipboard(std::wstring text, EffectLog& log) : text_(std::move(text)), log_(log) {}

    std::wstring Text() override { return text_; }
    void SetText(const std::wstring& text) override;

private:
    std::wstring text_;
    EffectLog& log_;
};

class PretendedSpeech final : public script::Speech {
public:
    explicit PretendedSpeech(EffectLog& log) : log_(log) {}

    void Speak(const std::wstring& text) override { log_.Add(L"speak", text); }
    void SetFlags(int flags) override { Note(L"flags ", flags); }
    void SetVolume(int percent) override { Note(L"volume ", percent); }
    void SetRate(int rate) override { Note(L"rate ", rate); }
    void SetPitch(int pitch) override { Note(L"pitch ", pitch); }

private:
    void Note(const wchar_t* what, int value) { log_.Add(L"speech", what + std::to_wstring(value)); }

    EffectLog& log_;
};

/// It stands still, in a zone without a distance from UTC.
class PretendedClock final : public calendar::Clock {
public:
    explicit PretendedClock(const calendar::CalendarFields& now) : now_(now) {}

    calendar::CalendarFields Now() override { return now_; }
    std::optional<calendar::CalendarFields> LocalTime(std::uint64_t fileTime) override;
    double LocalDate(std::uint64_t fileTime) override;

private:
    calendar::CalendarFields now_;
};

/// No chance at all: 0, 1, 2 and so on, so that a script runs alike each time and comes to every candidate.
class PretendedChance final : public script::Chance {
public:
    std::size_t Below(std::size_t count) override { return next_++ % count; }

private:
    std::size_t next_ = 0;
};

class PretendedSurroundings final : public script::Surroundings {
public:
    PretendedSurroundings(const WorldDescription& world, const PretendedDisk& disk);

    std::wstring ExpandEnvironment(const std::wstring& text) override;
    std::wstring FullPath(const std::wstring& path) override;
    std::wstring CurrentFolder() override;
    std::string Narrow(const std::wstring& text) override;
    int Metric(int index) override;

private:
    const WorldDescription& world_;
    const PretendedDisk& disk_;
    std::map<std::wstring, std::wstring> environment_;  ///< By names in small letters.
};

class PretendedHomes final : public script::Homes {
public:
    explicit PretendedHomes(const WorldDescription& world) : world_(world) {}

    std::optional<std::wstring> LoginName() override { return Known(world_.LoginName); }
    std::optional<std::wstring> LocalAppData() override { return Known(world_.LocalAppData); }
    std::wstring ProgramFolder() override { return world_.ProgramFolder; }

private:
    static std::optional<std::wstring> Known(const std::wstring& text) {
        return text.empty() ? std::nullopt : std::optional(text);
    }

    const WorldDescription& world_;
};

class PretendedPace final : public script::Pace {
public:
    PretendedPace(Budget budget, EffectLog& log) : budget_(budget), log_(log) {}

    void Sleep(std::uint32_t milliseconds) override { log_.Add(L"sleep", std::to_wstring(milliseconds)); }
    bool GoesOn() override;

    bool IsSpent() const noexcept { return isSpent_; }

private:
    Budget budget_;
    EffectLog& log_;
    std::uint64_t statements_ = 0;
    bool isSpent_ = false;
};

}  // namespace ferry::scripttools

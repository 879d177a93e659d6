#include "script/words.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace ferry::script {

namespace {

constexpr auto kCommands = std::to_array<CommandWord>({
    {L"appendcsvselectitem", CommandId::AppendCsvSelectItem, 1, kAnyCount},
    {L"appendselectitem", CommandId::AppendSelectItem, 1, 1},
    {L"backgroundimage", CommandId::BackgroundImage, 1, 1},
    {L"bomout", CommandId::BomOut, 0, 1, true},
    {L"call", CommandId::Call, 1, 2},
    {L"exec", CommandId::Exec, 1, 2},
    {L"exrun", CommandId::ExRun, 1, 1},
    {L"favoritejump", CommandId::FavoriteJump, 2, 2},
    {L"filejump", CommandId::FileJump, 2, 2},
    {L"fileopen", CommandId::FileOpen, 1, 1},
    {L"fileopenmode", CommandId::FileOpenMode, 0, 1, true},
    {L"filewritea", CommandId::FileWriteA, 0, 1, true},
    {L"filewritew", CommandId::FileWriteW, 0, 1, true},
    {L"folderjump", CommandId::FolderJump, 2, 2},
    {L"fullstateopen", CommandId::FullStateOpen, 1, 1},
    {L"fullstateopenex", CommandId::FullStateOpenEx, 1, 2},
    {L"getselectitems", CommandId::GetSelectItems, 1, 1},
    {L"icon", CommandId::Icon, 1, 1},
    {L"include", CommandId::Include, 1, 1},
    {L"listinnerparam", CommandId::ListInnerParam, 0, 1, true},
    {L"messagebox", CommandId::Box, 2, 2, true},
    {L"messageboxok", CommandId::BoxOk, 1, 1},
    {L"messageboxyn", CommandId::BoxYesNo, 1, 1},
    {L"operationmode", CommandId::OperationMode, 1, 1},
    {L"postmessage", CommandId::PostToHost, 1, 2},
    {L"postmessage1", CommandId::PostToHost1, 1, 2},
    {L"postmessage2", CommandId::PostToHost2, 1, 2},
    {L"postmessageall", CommandId::PostToHostAll, 1, 2},
    {L"postmessagebar", CommandId::PostToHostBar, 1, 2},
    {L"postmessagetab", CommandId::PostToHostTab, 0, kAnyCount},
    {L"postwait", CommandId::PostWait, 1, 2},
    {L"select", CommandId::Select, 0, 1, true},
    {L"sendmessage", CommandId::SendToHost, 1, 2},
    {L"sendmessageall", CommandId::SendToHostAll, 1, 2},
    {L"setclipboardtext", CommandId::SetClipboardText, 0, 1, true},
    {L"shell", CommandId::Shell, 1, 2},
    {L"speach", CommandId::Speach, 1, 1},
    {L"speachflag", CommandId::SpeachFlag, 1, 1},
    {L"speachpitch", CommandId::SpeachPitch, 1, 1},
    {L"speachratespeed", CommandId::SpeachRateSpeed, 1, 1},
    {L"speachvolume", CommandId::SpeachVolume, 1, 1},
    {L"system_command", CommandId::SystemCommand, 2, 2},
    {L"tabletmode", CommandId::TabletMode, 1, 1},
    {L"ubjump", CommandId::UbJump, 2, 2},
    {L"wait", CommandId::Wait, 1, 1},
    {L"writeregnum", CommandId::WriteRegNum, 3, 3},
    {L"writeregstring", CommandId::WriteRegString, 3, 3},
});

constexpr auto kFunctions = std::to_array<FunctionWord>({
    {L"exist", FunctionId::Exist, 1, 1},
    {L"fileallread", FunctionId::FileReadAll, 1, 1},
    {L"fileread", FunctionId::FileRead, 1, 1},
    {L"find", FunctionId::Find, 2, 2},
    {L"getclipboardtext", FunctionId::GetClipboardText, 0, kAnyCount},
    {L"getext", FunctionId::GetExt, 1, 1},
    {L"getname", FunctionId::GetName, 1, 1},
    {L"getpath", FunctionId::GetPath, 1, 1},
    {L"getsystemmetrics", FunctionId::GetSystemMetrics, 1, 1},
    {L"isdirectory", FunctionId::IsDirectory, 1, 1},
    {L"isfile", FunctionId::IsFile, 1, 1},
    {L"left", FunctionId::Left, 2, 2},
    {L"length", FunctionId::Length, 0, 1},
    {L"mainwindowposition", FunctionId::MainWindowPosition, 0, kAnyCount},
    {L"random", FunctionId::Random, 1, 1},
    {L"removelastseparator", FunctionId::RemoveLastSeparator, 1, 1},
    {L"replace", FunctionId::Replace, 3, 3},
    {L"right", FunctionId::Right, 2, 2},
    {L"substring", FunctionId::SubString, 3, 3},
});

constexpr auto kOptions = std::to_array<OptionWord>({
    {L"commandlineoption", OptionId::CommandLineOption, L""},
    {L"bootdir", OptionId::BootDir, L""},
    {L"bootmode", OptionId::BootMode, L"0"},
    {L"showwindow", OptionId::ShowWindow, L"1"},
    {L"timeout", OptionId::Timeout, L"-1"},
    {L"runwait", OptionId::RunWait, L"0"},
    {L"sendinfomode", OptionId::SendInfoMode, L"0"},
    {L"multicommandmode", OptionId::MultiCommandMode, L"0"},
    {L"shiftsilentmode", OptionId::ShiftSilentMode, L"1"},
    {L"filter", OptionId::Filter, L""},
    {L"exitloopcount", OptionId::ExitLoopCount, L"5"},
    {L"checkgrammar", OptionId::CheckGrammar, L"0"},
    {L"openmode", OptionId::OpenMode, L"0"},
});

static_assert(kOptions.size() == kOptionCount);

constexpr std::wstring_view kReserved[] = {
    L"if",    L"endif",    L"var",  L"goto", L"exit", L"exitall", L"for", L"next",
    L"break", L"continue", L"skip", L"stop", L"else", L"while",   L"do",  L"debug",
};

// Names are looked up by halving, and rows by their number.
static_assert(std::ranges::is_sorted(kCommands, {}, &CommandWord::Name));
static_assert(std::ranges::is_sorted(kCommands, {}, &CommandWord::Id));
static_assert(std::ranges::is_sorted(kFunctions, {}, &FunctionWord::Name));
static_assert(std::ranges::is_sorted(kOptions, {}, &OptionWord::Id));

/// Whether the small letters of `word` stand before `name` in any letter case.
bool StandsBefore(std::wstring_view word, std::wstring_view name) noexcept {
    return std::ranges::lexicographical_compare(word, name, {}, {}, base::LowerAscii);
}

template <class Row, std::size_t kCount>
const Row* FindRow(const std::array<Row, kCount>& rows, std::wstring_view name) noexcept {
    const auto row = std::ranges::lower_bound(rows, name, StandsBefore, &Row::Name);
    return row != rows.end() && base::EqualsIgnoringAsciiCase(row->Name, name) ? &*row : nullptr;
}

}  // namespace

const CommandWord* FindCommand(std::wstring_view name) noexcept {
    return FindRow(kCommands, name);
}

const FunctionWord* FindFunction(std::wstring_view name) noexcept {
    return FindRow(kFunctions, name);
}

const OptionWord& OptionWordOf(OptionId id) noexcept {
    return kOptions[static_cast<std::size_t>(id)];
}

const OptionWord* FindOption(std::wstring_view name) noexcept {
    const auto row = std::ranges::find_if(
        kOptions, [name](const OptionWord& word) { return base::EqualsIgnoringAsciiCase(word.Name, name); });
    return row != kOptions.end() ? &*row : nullptr;
}

bool IsReserved(std::wstring_view name) noexcept {
    return std::ranges::any_of(
        kReserved, [name](std::wstring_view word) { return base::EqualsIgnoringAsciiCase(word, name); });
}

}  // namespace ferry::script

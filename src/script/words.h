// The words of the language: commands, functions, options, reserved words, with what they take.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ferry::script {

/// The statements that act on the world, in the order of their words. Those whose words are names of
/// functions of the system have others here.
enum class CommandId : std::uint8_t {
    AppendCsvSelectItem,
    AppendSelectItem,
    BackgroundImage,
    BomOut,
    Call,
    Exec,
    ExRun,
    FavoriteJump,
    FileJump,
    FileOpen,
    FileOpenMode,
    FileWriteA,
    FileWriteW,
    FolderJump,
    FullStateOpen,
    FullStateOpenEx,
    GetSelectItems,
    Icon,
    Include,
    ListInnerParam,
    Box,
    BoxOk,
    BoxYesNo,
    OperationMode,
    PostToHost,
    PostToHost1,
    PostToHost2,
    PostToHostAll,
    PostToHostBar,
    PostToHostTab,
    PostWait,
    Select,
    SendToHost,
    SendToHostAll,
    SetClipboardText,
    Shell,
    Speach,
    SpeachFlag,
    SpeachPitch,
    SpeachRateSpeed,
    SpeachVolume,
    SystemCommand,
    TabletMode,
    UbJump,
    Wait,
    WriteRegNum,
    WriteRegString,
};

/// Any number of arguments.
inline constexpr std::size_t kAnyCount = static_cast<std::size_t>(-1);

/// A command and its fields. A text that is the last field keeps its commas.
struct CommandWord {
    std::wstring_view Name;
    CommandId Id;
    std::size_t MinFields;
    std::size_t MaxFields;
    bool MayBeEmpty = false;  ///< Whether an empty argument is no error.
};

/// The command called `name` in any letter case; nothing for another name.
const CommandWord* FindCommand(std::wstring_view name) noexcept;

/// The functions whose result a variable takes, in the order of their names.
enum class FunctionId : std::uint8_t {
    Exist,
    FileReadAll,
    FileRead,
    Find,
    GetClipboardText,
    GetExt,
    GetName,
    GetPath,
    GetSystemMetrics,
    IsDirectory,
    IsFile,
    Left,
    Length,
    MainWindowPosition,
    Random,
    RemoveLastSeparator,
    Replace,
    Right,
    SubString,
};

/// A function and its arguments. The only argument of a function keeps its commas; of others more arguments
/// than needed are not looked at.
struct FunctionWord {
    std::wstring_view Name;
    FunctionId Id;
    std::size_t MinArguments;
    std::size_t MaxArguments;  ///< kAnyCount: whatever stands there is not looked at.
};

/// The function called `name` in any letter case; nothing for another name.
const FunctionWord* FindFunction(std::wstring_view name) noexcept;

/// The options of a run.
enum class OptionId : std::uint8_t {
    CommandLineOption,
    BootDir,
    BootMode,
    ShowWindow,
    Timeout,
    RunWait,
    SendInfoMode,
    MultiCommandMode,
    ShiftSilentMode,
    Filter,
    ExitLoopCount,
    CheckGrammar,
    OpenMode,
};

inline constexpr std::size_t kOptionCount = 13;

/// An option and the value that it has before a script sets it.
struct OptionWord {
    std::wstring_view Name;
    OptionId Id;
    std::wstring_view Default;
};

/// The option `id`.
const OptionWord& OptionWordOf(OptionId id) noexcept;

/// The option called `name` in any letter case; nothing for another name.
const OptionWord* FindOption(std::wstring_view name) noexcept;

/// Whether no variable may be called `name`; its letter case does not count.
bool IsReserved(std::wstring_view name) noexcept;

}  // namespace ferry::script

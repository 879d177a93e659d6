#include "script/functions.h"

#include <algorithm>

#include "base/case_order.h"
#include "base/text.h"
#include "base/text_search.h"
#include "paths/path_grammar.h"
#include "script/limits.h"
#include "script/numbers.h"

namespace ferry::script {

namespace {

/// A result that stands for an empty text: an empty result itself would give the arguments.
constexpr std::wstring_view kEmptyMark = L"\t空文字\n\r置換\t";

/// The end of a file, to a script.
constexpr std::wstring_view kEndOfFile = L"ERROR";

const wchar_t* TruthText(bool isTrue) noexcept {
    return isTrue ? L"1" : L"0";
}

/// The arguments as `function` counts them.
std::vector<std::wstring_view> ArgumentsOf(const FunctionWord& function, std::wstring_view text) {
    if (function.MaxArguments == 1) {
        return {text};
    }
    std::vector<std::wstring_view> arguments;
    while (!text.empty() && function.MaxArguments != kAnyCount) {
        const std::size_t comma = text.find(L',');
        arguments.push_back(text.substr(0, comma));
        if (comma == std::wstring_view::npos || arguments.size() == function.MaxArguments) {
            break;
        }
        text.remove_prefix(comma + 1);
        if (text.empty()) {
            arguments.push_back(text);
        }
    }
    return arguments;
}

/// A count or a place in a text; what lies before its start counts as its start.
std::size_t ToCount(std::wstring_view argument) {
    return static_cast<std::size_t>(std::max(ToArgument(argument), 0));
}

std::wstring_view Middle(std::wstring_view text, std::size_t start, std::size_t count) noexcept {
    return text.substr(std::min(start, text.size()), count);
}

std::wstring_view LastUnits(std::wstring_view text, std::size_t count) noexcept {
    return text.substr(text.size() - std::min(count, text.size()));
}

std::wstring PlaceOf(std::wstring_view text, std::wstring_view part) {
    const std::size_t at = base::TextSearch(part).Find(text, 0);
    return at == std::wstring_view::npos ? L"-1" : std::to_wstring(at);
}

}  // namespace

Outcome Functions::Call(const CallParts& call, std::wstring& result) {
    const FunctionWord* const function = FindFunction(call.Name);
    if (function == nullptr) {
        return Outcome::IllegalCall;
    }
    const Arguments arguments = ArgumentsOf(*function, call.Arguments);
    if (arguments.size() < function->MinArguments) {
        return Outcome::SyntaxError;
    }
    result.clear();
    const Outcome outcome = function->MaxArguments != kAnyCount && function->MaxArguments > 1
                                ? OfText(function->Id, arguments, result)
                                : OfSystem(function->Id, call.Arguments, result);
    if (result.empty()) {
        result = call.Arguments;
    } else if (result == kEmptyMark) {
        result.clear();
    }
    return outcome;
}

Outcome Functions::OfText(FunctionId id, const Arguments& arguments, std::wstring& result) {
    const std::wstring_view text = arguments[0];
    switch (id) {
        case FunctionId::Left:
            result = text.substr(0, ToCount(arguments[1]));
            return Outcome::Done;
        case FunctionId::Right:
            result = LastUnits(text, ToCount(arguments[1]));
            return Outcome::Done;
        case FunctionId::SubString:
            result = Middle(text, ToCount(arguments[1]), ToCount(arguments[2]));
            return Outcome::Done;
        case FunctionId::Find:
            result = PlaceOf(text, arguments[1]);
            return Outcome::Done;
        default:
            result = text;
            return base::ReplaceAllWithin(result, arguments[1], arguments[2], kMaxValueUnits)
                       ? Outcome::Done
                       : Outcome::TooLong;
    }
}

Outcome Functions::OfSystem(FunctionId id, std::wstring_view argument, std::wstring& result) {
    switch (id) {
        case FunctionId::Length:
            result = std::to_wstring(argument.size());
            return Outcome::Done;
        case FunctionId::GetClipboardText:
            result = world_.Clipboard.Text();
            return result.size() <= kMaxValueUnits ? Outcome::Done : Outcome::TooLong;
        case FunctionId::MainWindowPosition: {
            const std::optional<ScreenBox> box = world_.Host.Position();
            if (!box) {
                return Outcome::IllegalCall;
            }
            result = std::to_wstring(box->Left) + L',' + std::to_wstring(box->Top) + L',' +
                     std::to_wstring(box->Right) + L',' + std::to_wstring(box->Bottom);
            return Outcome::Done;
        }
        default:
            return argument.empty() ? Outcome::IllegalCall : OfPath(id, argument, result);
    }
}

Outcome Functions::OfPath(FunctionId id, std::wstring_view path, std::wstring& result) {
    switch (id) {
        case FunctionId::Exist:
            result = TruthText(world_.Files.Attributes(path) != files::kInvalidAttributes);
            break;
        // The attributes of nothing have every bit set, the folder's too, and scripts rely on what follows.
        case FunctionId::IsDirectory:
            result = TruthText((world_.Files.Attributes(path) & files::kAttributeDirectory) != 0);
            break;
        case FunctionId::IsFile:
            result = TruthText((world_.Files.Attributes(path) & files::kAttributeDirectory) == 0);
            break;
        case FunctionId::GetPath:
            result = paths::SplitPath(path).Folder;
            break;
        case FunctionId::GetName:
            result = paths::SplitPath(path).Name;
            break;
        case FunctionId::GetExt:
            result = paths::SplitPath(path).Extension;
            break;
        case FunctionId::RemoveLastSeparator:
            result = paths::StripTrailingSeparator(path);
            break;
        case FunctionId::GetSystemMetrics:
            result = std::to_wstring(world_.Surroundings.Metric(ToArgument(path)));
            break;
        case FunctionId::FileRead:
            return ReadLine(path, result);
        case FunctionId::FileReadAll:
            return ReadAll(path, result);
        default:
            return Choose(path, result);
    }
    return Outcome::Done;
}

Outcome Functions::ReadLine(std::wstring_view path, std::wstring& result) {
    switch (lines_.Next(path, result)) {
        case ReadStatus::NotOpen:
            return Outcome::NotOpen;
        case ReadStatus::TooLong:
            return Outcome::TooLong;
        case ReadStatus::End:
            result = kEndOfFile;
            return Outcome::Done;
        default:
            return Outcome::Done;
    }
}

Outcome Functions::ReadAll(std::wstring_view path, std::wstring& result) {
    // Two bytes a unit, and the mark.
    std::optional<std::wstring> text = ReadWhole(world_.ByteFiles, path, 2 * kMaxValueUnits + 2);
    if (!text) {
        return Outcome::NotOpen;
    }
    result = std::move(*text);
    return result.size() <= kMaxValueUnits ? Outcome::Done : Outcome::TooLong;
}

Outcome Functions::Choose(std::wstring_view from, std::wstring& result) {
    if (files::IsFolder(world_.Files.Attributes(from))) {
        const std::wstring folder = world_.Surroundings.FullPath(std::wstring(from));
        const std::vector<std::wstring> names = FilesIn(folder);
        if (names.empty()) {
            return Outcome::IllegalCall;
        }
        result = paths::WithTrailingSeparator(folder) + names[world_.Chance.Below(names.size())];
        return Outcome::Done;
    }
    const std::vector<std::wstring_view> pieces = base::Split(from, L',');
    if (pieces.empty()) {
        return Outcome::IllegalCall;
    }
    result = pieces[world_.Chance.Below(pieces.size())];
    return Outcome::Done;
}

std::vector<std::wstring> Functions::FilesIn(std::wstring_view folder) {
    std::vector<std::wstring> names;
    // A folder that cannot be listed to its end gives what was seen of it.
    files::ForEachEntry(world_.Folders, folder, [&names](const files::Match& match) {
        if (!files::IsFolder(match.Attributes)) {
            names.emplace_back(match.Name);
        }
        return names.size() < kMaxItems;
    });
    base::SortIgnoringCase(names);
    return names;
}

}  // namespace ferry::script

// Variables, values, conditions and functions.
#include <algorithm>

#include "base/case_order.h"
#include "core/script/literal/literal_run.h"
#include "paths/path_grammar.h"

namespace ferry::script::literal {
namespace {

constexpr const wchar_t* kReserved[] = {L"if",   L"endif", L"var",      L"goto",  L"exit", L"exitall",
                                        L"for",  L"next",  L"continue", L"break", L"skip", L"stop",
                                        L"else", L"while", L"do",       L"debug"};

/// What a function gives that means an empty text.
constexpr wchar_t kNoText[] = L"\t空文字\n\r置換\t";

constexpr const wchar_t* kOperators[] = {L"==", L"!=", L"!^", L"^", L"<=", L">=", L"<", L">"};

/// A text as NAME(WRITTEN).
struct CallText {
    std::wstring Name;
    std::wstring Written;
};

bool IsNameUnit(wchar_t unit) {
    return (unit >= L'a' && unit <= L'z') || (unit >= L'A' && unit <= L'Z') ||
           (unit >= L'0' && unit <= L'9') || unit == L'_';
}

std::optional<CallText> AsCall(const std::wstring& value) {
    const std::size_t begin = std::min(value.find_first_not_of(L' '), value.size());
    const std::wstring text = value.substr(begin, value.find_last_not_of(L' ') + 1 - begin);
    const std::size_t bracket = text.find(L'(');
    if (bracket == std::wstring::npos || bracket == 0 || !text.ends_with(L')'))
        return std::nullopt;
    const std::wstring name = text.substr(0, bracket);
    if (!std::ranges::all_of(name, IsNameUnit) || (name[0] >= L'0' && name[0] <= L'9'))
        return std::nullopt;
    return CallText{Small(name), text.substr(bracket + 1, text.size() - bracket - 2)};
}

std::wstring Truth(bool isTrue) {
    return isTrue ? L"1" : L"0";
}

/// A count in an argument; none is below 0.
std::size_t CountOf(const std::wstring& argument) {
    return static_cast<std::size_t>(std::max(0, Number(NumberInDecimal(argument))));
}

std::wstring Left(const std::wstring& text, std::size_t count) {
    return text.substr(0, count);
}

std::wstring Middle(const std::wstring& text, std::size_t start, std::size_t count) {
    return start >= text.size() ? L"" : text.substr(start, count);
}

std::wstring Right(const std::wstring& text, std::size_t count) {
    return count >= text.size() ? text : text.substr(text.size() - count);
}

std::wstring Place(std::size_t place) {
    return place == std::wstring::npos ? L"-1" : std::to_wstring(place);
}

std::wstring Decimal(std::uint64_t bits) {
    return std::to_wstring(static_cast<std::int64_t>(bits));
}

std::uint64_t Quotient(std::int64_t left, std::int64_t right) {
    if (right == 0)
        return 0;
    // The one quotient that 64 bits cannot hold wraps round to its dividend.
    return right == -1 ? 0 - static_cast<std::uint64_t>(left) : static_cast<std::uint64_t>(left / right);
}

std::uint64_t Remainder(std::int64_t left, std::int64_t right) {
    return right == 0 || right == -1 ? 0 : static_cast<std::uint64_t>(left % right);
}

std::wstring Calculated(wchar_t sign, std::int64_t left, std::int64_t right) {
    const auto leftBits = static_cast<std::uint64_t>(left);
    const auto rightBits = static_cast<std::uint64_t>(right);
    switch (sign) {
        case L'+':
            return Decimal(leftBits + rightBits);
        case L'-':
            return Decimal(leftBits - rightBits);
        case L'*':
            return Decimal(leftBits * rightBits);
        case L'/':
            return Decimal(Quotient(left, right));
        default:
            return Decimal(Remainder(left, right));
    }
}

/// How many pieces a function needs; 0 for one that takes no pieces.
std::size_t PiecesOf(const std::wstring& function) {
    if (function == L"substring" || function == L"replace")
        return 3;
    if (function == L"find" || function == L"left" || function == L"right")
        return 2;
    return 0;
}

bool TakesPath(const std::wstring& function) {
    static constexpr const wchar_t* kFunctions[] = {
        L"exist",  L"isdirectory",         L"isfile",   L"getpath",    L"getname", L"getext",
        L"random", L"removelastseparator", L"fileread", L"fileallread"};
    return std::ranges::find(kFunctions, function) != std::end(kFunctions);
}

}  // namespace

std::wstring LiteralRun::Expanded(const std::wstring& text) {
    std::wstring result = Substituted(text);
    if (result.empty())
        return result;
    result = together_.Folders.Expanded(result);
    RequireLength(result.size());
    result = WithDates(result, world_.Clock);
    RequireLength(result.size());
    result = WithFolders(result, world_.Surroundings.CurrentFolder());
    RequireLength(result.size());
    if (const std::optional<std::wstring> item = Item())
        result = WithItem(result, *item);
    RequireLength(result.size());
    return result;
}

std::wstring LiteralRun::Substituted(std::wstring text) {
    for (int pass = 0; pass < 10; ++pass) {
        bool hasReplaced = false;
        for (const auto& [name, value] : together_.Variables) {
            if (name == value || text.find(name) == std::wstring::npos)
                continue;
            RequireLength(ReplacedSize(text, name, value));
            text = Replaced(text, name, value);
            hasReplaced = true;
        }
        if (!hasReplaced)
            break;
    }
    return text;
}

void LiteralRun::DeclareAll() {
    const std::wstring text = BehindFirstWord(line_);
    if (text.empty())
        throw SyntaxError();
    const std::size_t bracket = text.find(L'[');
    if (bracket == std::wstring::npos) {
        RequireRoom(1);
        Declare(text);
        return;
    }
    if (bracket == 0 || !text.ends_with(L']'))
        throw SyntaxError();
    const std::wstring name = text.substr(0, bracket);
    const std::wstring key = text.substr(bracket + 1, text.size() - bracket - 2);
    const std::int32_t count = Number(key);
    RequireRoom(static_cast<std::size_t>(std::max(count, 1)));
    if (count == 0)
        Declare(name + L"[" + key + L"]");
    for (std::int32_t index = 0; index < count; ++index)
        Declare(name + L"[" + std::to_wstring(index) + L"]");
}

void LiteralRun::RequireRoom(std::size_t count) const {
    if (together_.Variables.size() + count > kMostVariables)
        throw Failure{L"Too many variables.(65536)\n" + raw_};
}

void LiteralRun::Declare(const std::wstring& name) {
    CheckName(name);
    together_.Variables.emplace_back(name, L"");
    TraceValue(10, name, L"");
}

void LiteralRun::CheckName(const std::wstring& name) {
    for (const wchar_t* word : kReserved) {
        if (Small(name) == word)
            throw Failure{L"This word is reserved and can not be used as a variable.\n" + name};
    }
    if (TextOf(together_.Variables, name) != nullptr)
        throw Failure{L"It has already been declared.\n" + name};
    for (const auto& [known, value] : together_.Variables) {
        if (known.find(name) != std::wstring::npos)
            throw Failure{L"It is contained in the variable declared.\n" + name + L"/" + known};
    }
    for (const auto& [known, value] : together_.Variables) {
        if (name.find(known) != std::wstring::npos)
            throw Failure{L"It is contained in the variable declared.\n" + known + L"/" + name};
    }
}

/// The name of the variable to which a line assigns.
std::wstring LiteralRun::TargetName(const std::wstring& written) {
    const std::size_t bracket = written.find(L'[');
    if (bracket == std::wstring::npos || !written.ends_with(L']'))
        return written;
    const std::wstring index = written.substr(bracket + 1, written.size() - bracket - 2);
    return written.substr(0, bracket) + L"[" + Expanded(index) + L"]";
}

bool LiteralRun::Assign() {
    const std::size_t sign = line_.find(L'=');
    if (sign == std::wstring::npos)
        return false;
    const std::wstring name = TargetName(Trimmed(line_.substr(0, sign)));
    if (TextOf(together_.Variables, name) == nullptr)
        return false;
    const std::wstring value = Expanded(line_.substr(sign + 1));
    if (!value.empty() && std::wstring(L"+-*/%&").find(value[0]) != std::wstring::npos)
        Store(name, Operated(*TextOf(together_.Variables, name), value));
    else if (const std::optional<std::wstring> result = ValueOf(value))
        Store(name, *result);
    return true;
}

void LiteralRun::Store(const std::wstring& name, const std::wstring& value) {
    RequireLength(value.size());
    *TextOf(together_.Variables, name) = value;
    TraceValue(11, name, value);
}

std::wstring LiteralRun::Operated(const std::wstring& value, const std::wstring& text) const {
    const std::wstring operand = text.substr(1);
    if (text[0] == L'&')
        return value + operand;
    return Calculated(text[0], LongNumber(value), LongNumber(operand));
}

std::optional<std::wstring> LiteralRun::ValueOf(const std::wstring& text) {
    const std::optional<CallText> call = AsCall(text);
    if (!call)
        return text;
    std::optional<std::wstring> result = Call(call->Name, call->Written);
    if (result == kNoText)
        return L"";
    if (result && result->empty())
        return call->Written;
    return result;
}

bool LiteralRun::Condition(const std::wstring& text) {
    std::wstring sign;
    for (const wchar_t* known : kOperators) {
        if (sign.empty() && text.find(known) != std::wstring::npos)
            sign = known;
    }
    if (sign.empty())
        throw SyntaxError();
    const std::wstring left = Side(text.substr(0, text.find(sign)));
    const std::wstring right = Side(text.substr(text.find(sign) + sign.size()));
    if (sign == L"==" || sign == L"!=")
        return IsSame(left, right) == (sign == L"==");
    if (sign == L"^" || sign == L"!^")
        return IsLike(left, right) == (sign == L"^");
    if (sign == L"<=")
        return Number(left) <= Number(right);
    if (sign == L">=")
        return Number(left) >= Number(right);
    return sign == L"<" ? Number(left) < Number(right) : Number(left) > Number(right);
}

/// One side of a condition as it is compared.
std::wstring LiteralRun::Side(const std::wstring& text) {
    return NumberInDecimal(Small(Trimmed(Expanded(text))));
}

std::optional<std::wstring> LiteralRun::Call(const std::wstring& name, const std::wstring& written) {
    if (TakesPath(name))
        return CallOnPath(name, written);
    if (PiecesOf(name) != 0)
        return CallOnPieces(name, Pieces(written));
    if (name == L"length")
        return std::to_wstring(written.size());
    if (name == L"getclipboardtext")
        return world_.Clipboard.Text();
    if (name == L"mainwindowposition")
        return Position();
    if (name != L"getsystemmetrics" || written.empty())
        throw IllegalCall();
    return std::to_wstring(world_.Surroundings.Metric(Number(NumberInDecimal(written))));
}

std::optional<std::wstring> LiteralRun::CallOnPath(const std::wstring& name, const std::wstring& path) {
    if (path.empty())
        throw IllegalCall();
    const paths::PathParts parts = paths::SplitPath(path);
    if (name == L"exist")
        return Truth(world_.Files.Attributes(path) != files::kInvalidAttributes);
    // What is missing has every bit set, a folder's too.
    if (name == L"isdirectory")
        return Truth((world_.Files.Attributes(path) & files::kAttributeDirectory) != 0);
    if (name == L"isfile")
        return Truth((world_.Files.Attributes(path) & files::kAttributeDirectory) == 0);
    if (name == L"getpath")
        return std::wstring(parts.Folder);
    if (name == L"getname")
        return std::wstring(parts.Name);
    if (name == L"getext")
        return std::wstring(parts.Extension);
    if (name == L"removelastseparator")
        return std::wstring(paths::StripTrailingSeparator(path));
    if (name == L"random")
        return Random(path);
    return name == L"fileread" ? ReadLine(path) : ReadAll(path);
}

std::optional<std::wstring> LiteralRun::CallOnPieces(const std::wstring& name,
                                                     const std::vector<std::wstring>& pieces) {
    if (pieces.size() < PiecesOf(name))
        throw SyntaxError();
    if (name == L"substring")
        return Middle(pieces[0], CountOf(pieces[1]), CountOf(pieces[2]));
    if (name == L"left")
        return Left(pieces[0], CountOf(pieces[1]));
    if (name == L"right")
        return Right(pieces[0], CountOf(pieces[1]));
    if (name == L"find")
        return Place(pieces[0].find(pieces[1]));
    RequireLength(ReplacedSize(pieces[0], pieces[1], pieces[2]));
    return Replaced(pieces[0], pieces[1], pieces[2]);
}

std::optional<std::wstring> LiteralRun::ReadLine(const std::wstring& path) {
    if (!fileRead_ || fileRead_->Path != path) {
        fileRead_.reset();
        std::unique_ptr<InFile> file = world_.ByteFiles.OpenToRead(path);
        if (file == nullptr) {
            Tell(L"File is not open.");
            return std::nullopt;
        }
        fileRead_.emplace(path, UnitFile(std::move(file)), false);
    }
    // What others write behind the end that was seen is not looked for.
    const std::optional<std::wstring> line = fileRead_->HasEnded ? std::nullopt : NextLine(fileRead_->Units);
    fileRead_->HasEnded = !line;
    return line ? *line : L"ERROR";
}

std::optional<std::wstring> LiteralRun::ReadAll(const std::wstring& path) {
    std::unique_ptr<InFile> file = world_.ByteFiles.OpenToRead(path);
    if (file == nullptr) {
        Tell(L"File is not open.");
        return std::nullopt;
    }
    UnitFile units(std::move(file));
    std::wstring text;
    while (const std::optional<wchar_t> unit = units.Next())
        text.push_back(*unit);
    return text;
}

std::wstring LiteralRun::Random(const std::wstring& text) {
    const std::uint32_t attributes = world_.Files.Attributes(text);
    const std::vector<std::wstring> candidates =
        files::IsFolder(attributes)
            ? FilesIn(paths::WithTrailingSeparator(world_.Surroundings.FullPath(text)))
            : Pieces(text);
    if (candidates.empty())
        throw IllegalCall();
    return candidates[world_.Chance.Below(candidates.size())];
}

std::vector<std::wstring> LiteralRun::FilesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    world_.Folders.Search(folder + L"*", [&names](const files::Match& match) {
        if (!files::IsFolder(match.Attributes))
            names.emplace_back(match.Name);
        return true;
    });
    base::SortIgnoringCase(names);
    for (std::wstring& name : names)
        name = folder + name;
    return names;
}

std::wstring LiteralRun::Position() {
    const std::optional<ScreenBox> box = world_.Host.Position();
    if (!box)
        throw IllegalCall();
    return std::to_wstring(box->Left) + L"," + std::to_wstring(box->Top) + L"," +
           std::to_wstring(box->Right) + L"," + std::to_wstring(box->Bottom);
}

}  // namespace ferry::script::literal

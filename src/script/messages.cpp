#include "script/messages.h"

#include "script/limits.h"

namespace ferry::script {

namespace {

std::wstring Joined(std::wstring_view message, std::wstring_view text) {
    return std::wstring(message).append(text);
}

/// `message` with the limit that was met, and what met it.
std::wstring LimitText(std::wstring_view message, std::size_t limit, std::wstring_view unit,
                       std::wstring_view text) {
    return Joined(message, L"(").append(std::to_wstring(limit)).append(unit).append(L")\n").append(text);
}

std::wstring NumberedLine(const Line& line) {
    return std::to_wstring(line.Number).append(1, L':').append(line.Text);
}

}  // namespace

std::wstring UnreadableText(std::wstring_view path) {
    return Joined(L"Cannot read ", path);
}

std::wstring SyntaxErrorText(const Line& line) {
    return Joined(L"Syntax error!\n", line.Text);
}

std::wstring StoppedText(const Line& line) {
    return Joined(L"The script was stopped.\n", NumberedLine(line));
}

std::wstring TooDeepText(std::wstring_view path) {
    return LimitText(L"Too many nested scripts.", kMaxIncludeDepth, {}, path);
}

std::wstring DoubledLabelText(const Line& line) {
    return Joined(L"This label is already in use.\n", line.Text);
}

std::wstring UndefinedLabelText(std::wstring_view name) {
    return Joined(L"Undefined label.\n", name);
}

std::wstring TooManyRepetitionsText(int limit) {
    return L"The number of repetitions of up too many.(" + std::to_wstring(limit) + L" times)";
}

std::wstring UsedWithoutText(std::wstring_view word, std::wstring_view opener) {
    return Joined(L"'", word).append(L"' was used without '").append(opener).append(L"'\n");
}

std::wstring TooManyBlocksText(const Line& line) {
    return LimitText(L"Too many open blocks.", kMaxOpenBlocks, {}, line.Text);
}

std::wstring EmptiedInLoopText() {
    return L"RemoveSelectItems can not be executed within the loop.";
}

std::wstring UnknownLineText(const Line& line) {
    return Joined(L"This is the line that I do not understand.\nDo you want to continue?\n",
                  NumberedLine(line));
}

std::wstring NameFaultText(NameFault fault, std::wstring_view name, std::wstring_view other,
                           const Line& line) {
    switch (fault) {
        case NameFault::Reserved:
            return Joined(L"This word is reserved and can not be used as a variable.\n", name);
        case NameFault::Declared:
            return Joined(L"It has already been declared.\n", name);
        case NameFault::InsideOther:
            return Joined(L"It is contained in the variable declared.\n", name).append(L"/").append(other);
        case NameFault::HoldsOther:
            return Joined(L"It is contained in the variable declared.\n", other).append(L"/").append(name);
        default:
            return LimitText(L"Too many variables.", kMaxVariables, {}, line.Text);
    }
}

std::wstring TooLongText(const Line& line) {
    return LimitText(L"The value is too long.", kMaxValueUnits, L" characters", line.Text);
}

std::wstring TooManyStepsText(const Line& line) {
    return LimitText(L"The pattern takes too long.", kMaxLikeSteps, L" steps", line.Text);
}

std::wstring OutcomeText(Outcome outcome, const Line& line) {
    switch (outcome) {
        case Outcome::SyntaxError:
            return SyntaxErrorText(line);
        case Outcome::IllegalCall:
            return Joined(L"Illegal Function Call!\n", line.Text);
        case Outcome::NotOpen:
            return L"File is not open.";
        case Outcome::NotWritten:
            return Joined(L"Cannot write to the file.\n", line.Text);
        case Outcome::NotStarted:
            return Joined(L"Cannot start the program.\n", line.Text);
        case Outcome::TooLong:
            return TooLongText(line);
        case Outcome::TooMuch:
            return LimitText(L"The values are too long together.", kMaxGatheredUnits, L" characters",
                             line.Text);
        case Outcome::TooManyItems:
            return LimitText(L"Too many items.", kMaxItems, {}, line.Text);
        case Outcome::Done:
        case Outcome::EndRun:
            break;
    }
    return {};
}

}  // namespace ferry::script

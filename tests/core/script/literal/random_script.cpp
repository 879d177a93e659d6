// Random scripts in random pretended worlds, made so that much happens in few lines.
#include "core/script/literal/random_script.h"

#include <algorithm>

#include "base/utf16.h"

namespace ferry::script::literal {
namespace {

constexpr int kDeepest = 4;

// Names that do not contain one another, and behind them some that are no good beside them.
constexpr const wchar_t* kGoodNames[] = {L"va", L"vb", L"n1", L"n2", L"Txt", L"key[x]", L"arr[0]", L"arr[1]"};
constexpr const wchar_t* kDeclared[] = {
    L"va",  L"vb",   L"n1",    L"n2",     L"Txt",  L"key[x]", L"arr[3]", L"arr",   L"arr[2]", L"va2",
    L"v",   L"goto", L"If",    L"txt",    L"[1]",  L"q[",     L"q[0]",   L"w[-1]", L"w[ 2 ]", L"w[0x2]",
    L"t u", L"p]",   L"k[va]", L"debug1", L"exit", L"=",      L"a=b",    L"?Name?"};

constexpr const wchar_t* kNumbers[] = {L"0",
                                       L"1",
                                       L"2",
                                       L"3",
                                       L"10",
                                       L"-1",
                                       L"+4",
                                       L"-5",
                                       L"007",
                                       L"1 0",
                                       L"0x",
                                       L"0x10",
                                       L"0X10",
                                       L"0 x 1 1",
                                       L"0xfg",
                                       L"010x",
                                       L"2147483647",
                                       L"2147483648",
                                       L"-2147483648",
                                       L"-2147483649",
                                       L"4294967296",
                                       L"9223372036854775807",
                                       L"9223372036854775808",
                                       L"-9223372036854775808",
                                       L"0x7FFFFFFF",
                                       L"0xffffffff",
                                       L"0x8000000000000000",
                                       L"0x7fffffffffffffff",
                                       L"0x123456789abcdef01"};

constexpr const wchar_t* kWords[] = {
    L"a",  L"abc", L"b c",  L"ABC", L"x",   L"true", L"あ漢", L"é", L" ",           L"  ",
    L"\t", L"*",   L"?",    L"a*",  L"?b?", L"//",   L":",    L";", L"\"q\"",       L"(",
    L")",  L"EOF", L"=",    L"==",  L"!^",  L"<",    L"\\",   L"/", L"%",           L"&",
    L"-",  L"'",   L"f(a)", L"[",   L"]",   L",",    L"a,b",  L"n", L"\xD83D\xDE00"};

constexpr const wchar_t* kPlaceholders[] = {
    L"?SelFile?",    L"?selfile?",    L"?FileName?",      L"?Name?",        L"?Ext?",
    L"?filename?",   L"?name?",       L"?ext?",           L"?selpath?",     L"?SelPath?",
    L"?SelParent?",  L"?NAME?",       L"?NowDir?",        L"?nowdir?",      L"?Drive?",
    L"?Dir?",        L"?TargetDir?",  L"?TargetDrive?",   L"?Date?",        L"?Time?",
    L"?Year?",       L"?Month?",      L"?Day?",           L"?Hour?",        L"?Minute?",
    L"?Second?",     L"?Week?",       L"?WEEK?",          L"?ShellTime?",   L"?SelectedCount?",
    L"?ScriptName?", L"?ScriptPath?", L"%App_Dir%",       L"%User_dir%",    L"%Script_dir%",
    L"%Menu_dir%",   L"%CMD_Dir%",    L"%CmdPlugin_Dir%", L"%Viewer_Dir%",  L"%UserCmd_Dir%",
    L"%TEMP%",       L"%nothing%",    L"?ErrorLine?",     L"?Sel?Ext?File?"};

constexpr const wchar_t* kPaths[] = {
    L"C:\\d\\b.txt",     L"C:\\d",       L"C:\\d\\",          L"C:\\none",          L"C:\\t\\lines.txt",
    L"C:\\t\\empty.txt", L"C:\\t\\last", L"rel.txt",          L"C:\\a.b\\c.tar.gz", L"archive",
    L".profile",         L"C:\\",        L"..\\t\\lines.txt", L"C:/d/b.txt",        L"C:\\empty",
    L"C:\\t\\mark.txt"};

constexpr const wchar_t* kScripts[] = {L"C:\\s\\main.txt", L"C:\\s\\one.txt", L"two.txt"};

constexpr const wchar_t* kOutFiles[] = {L"C:\\o\\out.txt",   L"C:\\o\\two.txt", L"out.txt",
                                        L"C:\\t\\lines.txt", L"C:\\missing\\x", L"C:\\d"};

constexpr const wchar_t* kPathFunctions[] = {L"Exist",    L"IsDirectory", L"IsFile", L"GetPath",
                                             L"GetName",  L"GetExt",      L"random", L"RemoveLastSeparator",
                                             L"fileread", L"fileallread", L"Length", L"GetSystemMetrics"};

constexpr const wchar_t* kTextFunctions[] = {L"SubString", L"find", L"replace", L"left", L"right"};

constexpr const wchar_t* kOtherFunctions[] = {
    L"MainWindowPosition", L"GetClipboardText", L"Upper", L"no_such1", L"1st", L"", L"left "};

constexpr const wchar_t* kTextCommands[] = {L"messageboxok",
                                            L"messageboxok",
                                            L"messageboxyn",
                                            L"speach",
                                            L"speachflag",
                                            L"speachvolume",
                                            L"speachratespeed",
                                            L"speachpitch",
                                            L"setclipboardtext",
                                            L"select",
                                            L"wait",
                                            L"fullstateopen",
                                            L"backgroundimage",
                                            L"listinnerparam",
                                            L"tabletmode",
                                            L"operationmode",
                                            L"appendselectitem",
                                            L"appendcsvselectitem",
                                            L"icon",
                                            L"exrun",
                                            L"filewritew",
                                            L"filewritea",
                                            L"filewritew",
                                            L"filewritea",
                                            L"bomout",
                                            L"fileopenmode",
                                            L"postmessagetab"};

constexpr const wchar_t* kFieldCommands[] = {
    L"messagebox", L"call",         L"exec",   L"shell",           L"system_command", L"filejump",
    L"folderjump", L"favoritejump", L"ubjump", L"fullstateopenex", L"writeregnum",    L"writeregstring"};

constexpr const wchar_t* kWindowCommands[] = {L"postmessage",    L"sendmessage",    L"postmessage1",
                                              L"postmessage2",   L"postwait",       L"postmessagebar",
                                              L"postmessageall", L"sendmessageall", L"postmessagetab"};

constexpr const wchar_t* kOptions[] = {
    L"commandlineoption", L"bootdir",      L"bootmode",         L"showwindow",      L"timeout",
    L"runwait",           L"sendinfomode", L"multicommandmode", L"shiftsilentmode", L"filter",
    L"exitloopcount",     L"checkgrammar", L"openmode"};

constexpr const wchar_t* kOptionValues[] = {
    L"", L"0", L"1", L"2", L"-1", L"100", L" 1", L"0x1", L"fix.exe ?ErrorLine?"};

constexpr const wchar_t* kPrograms[] = {L"tool.exe",        L"slow.exe",     L"none.exe",
                                        L"C:\\p\\tool.exe", L"\"tool.exe\"", L"C:\\d\\b.txt"};

constexpr const wchar_t* kLabels[] = {L"L1", L"L2", L"l1", L"two words", L"x:y"};

constexpr const wchar_t* kOddLines[] = {L"skip",
                                        L"stop",
                                        L"foo",
                                        L"foo=1",
                                        L"messagebox",
                                        L"messageboxok text",
                                        L"messageboxok text=1",
                                        L"timeout",
                                        L"timeout 5",
                                        L"do it",
                                        L"debug it",
                                        L"EOF it",
                                        L"endif x",
                                        L"else x",
                                        L"=",
                                        L"=5",
                                        L":",
                                        L"::",
                                        L"goto",
                                        L"goto :",
                                        L"goto:",
                                        L"GOTO none",
                                        L"var",
                                        L"if",
                                        L"while",
                                        L"if a",
                                        L"if(1==1)",
                                        L"while 1",
                                        L"updatestate now",
                                        L"updatestate",
                                        L"updatestate=1",
                                        L"fileclose=1",
                                        L"fileclose now",
                                        L"removeselectitems=1",
                                        L"removeselectitems all",
                                        L"messageboxok=Name:",
                                        L"va=x:",
                                        L"exit=1",
                                        L"va 5",
                                        L"(va)=5",
                                        L"postmessagetab",
                                        L"icon=",
                                        L"icon",
                                        L"getselectitems=",
                                        L"getselectitems=nobody",
                                        L"this is no statement",
                                        L"nor=this",
                                        L"getselectitems=?Name?",
                                        L"include",
                                        L"include=",
                                        L"include=C:\\s\\missing.txt"};

/// Puts a script together, line by line.
class ScriptWriter {
public:
    explicit ScriptWriter(Dice& dice) : dice_(dice) {}

    std::vector<std::wstring> Script(bool isMain);

private:
    void Declarations();
    void Statements(std::uint32_t most, int depth);
    void Statement(int depth);
    void Structure(int depth);
    void If(int depth);
    void Do(int depth);
    void For(int depth);
    void Jumps(int depth);
    void JumpByVariable(const std::wstring& label);
    void WriteFile();
    void Launch();
    void Grow();
    void Show();
    void Control();
    void Spoil();

    std::wstring Simple();
    std::wstring Assignment();
    std::wstring CallAssignment();
    std::wstring TextArguments();
    std::wstring Command();
    std::wstring FieldCommand();
    std::wstring Option();
    std::wstring FileCommand();
    std::wstring Condition();
    std::wstring Text(std::uint32_t most);
    std::wstring Atom();
    std::wstring Name();
    std::wstring Number();
    std::wstring InOddCase(std::wstring word);

    void Add(std::wstring line) { lines_.push_back(std::move(line)); }

    Dice& dice_;
    std::vector<std::wstring> lines_;
};

std::wstring ScriptWriter::Name() {
    return dice_.Pick(kGoodNames);
}

std::wstring ScriptWriter::Number() {
    return dice_.OneIn(3) ? std::wstring(dice_.Pick(kNumbers)) : std::to_wstring(dice_.Below(6));
}

std::wstring ScriptWriter::Atom() {
    switch (dice_.Below(8)) {
        case 0:
        case 1:
            return Name();
        case 2:
            return Number();
        case 3:
        case 4:
            return dice_.Pick(kPlaceholders);
        case 5:
            return dice_.Pick(kPaths);
        default:
            return dice_.Pick(kWords);
    }
}

std::wstring ScriptWriter::Text(std::uint32_t most) {
    std::wstring text;
    for (std::uint32_t count = dice_.Below(most + 1); count > 0; --count)
        text += Atom();
    return text;
}

/// Most words as they are, some in capitals, some in a mixture.
std::wstring ScriptWriter::InOddCase(std::wstring word) {
    const std::uint32_t way = dice_.Below(12);
    for (wchar_t& unit : word) {
        const bool isSmall = unit >= L'a' && unit <= L'z';
        if (isSmall && (way == 0 || (way == 1 && dice_.OneIn(2))))
            unit = static_cast<wchar_t>(unit - L'a' + L'A');
    }
    return word;
}

std::wstring ScriptWriter::Condition() {
    static constexpr const wchar_t* kSigns[] = {L"==", L"==", L"!=", L"!^", L"^", L"<=",
                                                L">=", L"<",  L">",  L"=",  L""};
    const std::wstring left = dice_.OneIn(2) ? Name() : Text(2);
    const std::wstring right = dice_.OneIn(2) ? Number() : Text(2);
    const std::wstring blank = dice_.OneIn(3) ? L" " : L"";
    return left + blank + dice_.Pick(kSigns) + blank + right;
}

std::wstring ScriptWriter::TextArguments() {
    std::wstring text = Text(2);
    for (std::uint32_t count = dice_.Below(4); count > 0; --count)
        text += L"," + (dice_.OneIn(2) ? Number() : Text(1));
    return text;
}

std::wstring ScriptWriter::CallAssignment() {
    const std::wstring blank = dice_.OneIn(6) ? L" " : L"";
    std::wstring line = Name() + L"=" + blank;
    switch (dice_.Below(6)) {
        case 0:
        case 1:
            line += InOddCase(dice_.Pick(kPathFunctions)) + L"(" + std::wstring(dice_.Pick(kPaths)) + L")";
            break;
        case 2:
            line += InOddCase(dice_.Pick(kPathFunctions)) + L"(" + Text(2) + L")";
            break;
        case 3:
        case 4:
            line += InOddCase(dice_.Pick(kTextFunctions)) + L"(" + TextArguments() + L")";
            break;
        default:
            line += InOddCase(dice_.Pick(kOtherFunctions)) + L"(" + Text(1) + L")";
            break;
    }
    return dice_.OneIn(20) ? line + Text(1) : line;
}

std::wstring ScriptWriter::Assignment() {
    static constexpr const wchar_t* kSigns[] = {L"+", L"-", L"*", L"/", L"%", L"&", L" "};
    static constexpr const wchar_t* kTargets[] = {L"arr[n1]",    L"arr[ n1 ]", L"arr[9]",
                                                  L"key[?Ext?]", L"arr [0]",   L"VA"};
    const std::wstring target = dice_.OneIn(8) ? std::wstring(dice_.Pick(kTargets)) : Name();
    const std::wstring equals = dice_.OneIn(8) ? L" = " : L"=";
    if (dice_.OneIn(2))
        return target + equals + dice_.Pick(kSigns) + (dice_.OneIn(3) ? Text(2) : Number());
    return target + equals + (dice_.OneIn(3) ? Number() : Text(3));
}

std::wstring ScriptWriter::FieldCommand() {
    std::wstring line = InOddCase(dice_.Pick(kFieldCommands)) + L"=";
    if (dice_.OneIn(2))
        line += dice_.Pick(kPrograms);
    else
        line += dice_.OneIn(2) ? std::to_wstring(dice_.Below(5)) : Text(1);
    for (std::uint32_t count = dice_.Below(4); count > 0; --count)
        line += (dice_.OneIn(4) ? L" , " : L",") + (dice_.OneIn(3) ? Number() : Text(2));
    return line;
}

std::wstring ScriptWriter::Option() {
    const std::wstring name = InOddCase(dice_.OneIn(4) ? L"checkgrammar" : dice_.Pick(kOptions));
    const std::wstring equals = dice_.OneIn(8) ? L" = " : L"=";
    return name + equals + (dice_.OneIn(4) ? Text(2) : std::wstring(dice_.Pick(kOptionValues)));
}

std::wstring ScriptWriter::FileCommand() {
    switch (dice_.Below(7)) {
        case 0:
        case 1:
            return L"fileopen=" + std::wstring(dice_.Pick(kOutFiles));
        case 2:
            return L"fileopenmode=" + Number();
        case 3:
            return L"bomout=" + Number();
        case 4:
            return InOddCase(L"fileclose");
        case 5:
            return L"filewritea=" + Text(2);
        default:
            return L"filewritew=" + Text(2);
    }
}

std::wstring ScriptWriter::Command() {
    static constexpr const wchar_t* kStyles[] = {L"0", L"4", L"36", L"0x30", L"0X4",
                                                 L"x", L"",  L"va", L"-1",   L"064x"};
    switch (dice_.Below(8)) {
        case 0:
            return L"messagebox=" + std::wstring(dice_.Pick(kStyles)) + (dice_.OneIn(6) ? L"" : L",") +
                   Text(2);
        case 1:
        case 2:
            return FieldCommand();
        case 3:
            return InOddCase(dice_.Pick(kWindowCommands)) + L"=" + Number() +
                   (dice_.OneIn(2) ? L"," + Number() : L"") + (dice_.OneIn(4) ? Text(1) : L"");
        case 4:
            return L"getselectitems=" + Name();
        default:
            return InOddCase(dice_.Pick(kTextCommands)) + (dice_.OneIn(8) ? L" = " : L"=") + Text(3);
    }
}

std::wstring ScriptWriter::Simple() {
    switch (dice_.Below(16)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return Assignment();
        case 4:
        case 5:
        case 6:
            return CallAssignment();
        case 7:
        case 8:
        case 9:
            return Command();
        case 10:
            return Option();
        case 11:
            return FileCommand();
        case 12:
            return L"include=" + std::wstring(dice_.OneIn(8) ? kScripts[0] : kScripts[1 + dice_.Below(2)]);
        case 13:
            return InOddCase(L"var ") + dice_.Pick(kDeclared);
        case 14:
            return dice_.Pick(kOddLines);
        default:
            return L"messageboxok=" + Name() + L"|" + Name() + L"|" + Text(1);
    }
}

/// Makes everything seen that could have changed.
void ScriptWriter::Show() {
    Add(L"messageboxok=1|va|vb|n1|n2|Txt|key[x]|arr[0]|arr[1]|arr[2]|?SelectedCount?|?selfile?");
}

void ScriptWriter::Control() {
    static constexpr const wchar_t* kWays[] = {
        L"break",  L"continue", L"exit", L"exitall",           L"next", L"while 1==2", L"endif",
        L"else",   L"do",       L"for",  L"removeselectitems", L"EOF",  L"debug",      L"break 1",
        L"if 1==1"};
    const std::wstring way = dice_.Pick(kWays);
    if (dice_.OneIn(2)) {
        Add(L"if " + Condition());
        Add(InOddCase(way));
        Add(L"endif");
    } else if (way != L"EOF" || dice_.OneIn(4)) {
        Add(InOddCase(way));
    }
}

void ScriptWriter::If(int depth) {
    Add(InOddCase(L"if ") + Condition());
    Statements(3, depth + 1);
    if (dice_.OneIn(2)) {
        Add(InOddCase(L"else"));
        Statements(3, depth + 1);
    }
    if (dice_.OneIn(8))
        Add(L"else");
    Add(InOddCase(L"endif"));
}

void ScriptWriter::Do(int depth) {
    Add(InOddCase(L"do"));
    Statements(4, depth + 1);
    if (dice_.OneIn(3)) {
        Add(L"while " + Condition());
        return;
    }
    Add(L"n1=+1");
    Add(L"while n1<" + std::to_wstring(dice_.Below(5)));
}

void ScriptWriter::For(int depth) {
    Add(InOddCase(L"for"));
    Statements(4, depth + 1);
    if (dice_.OneIn(2))
        Add(L"messageboxok=?name??Ext?");
    Add(InOddCase(L"next"));
}

/// A text that ends in a colon comes from a function only: a line that does so is a label.
void ScriptWriter::JumpByVariable(const std::wstring& label) {
    Add(L"Txt=left(" + label + L":," + std::to_wstring(label.size() + 1) + L")");
    if (dice_.OneIn(3))
        Add(L"bootmode=" + std::to_wstring(dice_.Below(4)));
    Add(dice_.OneIn(6) ? L"exrun=nowhereTxt" : L"exrun=Txt");
}

/// A label, a way back to it, or both, with something between them.
void ScriptWriter::Jumps(int depth) {
    const std::wstring label = dice_.Pick(kLabels);
    const std::wstring way = L"goto " + label + (dice_.OneIn(4) ? L":" : L"");
    const std::uint32_t order = dice_.Below(4);
    if (order == 0)
        Add(way);
    if (order != 1)
        Add(label + (dice_.OneIn(6) ? L" :" : L":"));
    Statements(3, depth + 1);
    if (order == 2)
        JumpByVariable(label);
    else if (order != 0)
        Add(way);
}

/// A file that is opened, written and most often closed, and now and then read.
void ScriptWriter::WriteFile() {
    const std::wstring path = dice_.Pick(kOutFiles);
    if (dice_.OneIn(2))
        Add(dice_.OneIn(2) ? L"fileopenmode=1" : L"bomout=" + Number());
    Add(L"fileopen=" + path);
    for (std::uint32_t count = dice_.Below(4); count > 0; --count)
        Add(dice_.OneIn(3) ? FileCommand()
                           : InOddCase(dice_.OneIn(3) ? L"filewritea=" : L"filewritew=") + Text(2));
    if (!dice_.OneIn(3))
        Add(L"fileclose");
    for (std::uint32_t count = dice_.Below(3); count > 0; --count)
        Add(Name() + (dice_.OneIn(3) ? L"=fileallread(" : L"=fileread(") + path + L")");
}

/// A program, waited for as the options have it.
void ScriptWriter::Launch() {
    static constexpr const wchar_t* kLimits[] = {L"0", L"100", L"-1", L"-5", L"1000000"};
    if (dice_.OneIn(2))
        Add(L"timeout=" + std::wstring(dice_.Pick(kLimits)));
    if (dice_.OneIn(2))
        Add(L"runwait=" + std::to_wstring(dice_.Below(3)));
    Add((dice_.OneIn(2) ? L"call=" : L"exec=") + std::wstring(dice_.Pick(kPrograms)) + L"," + Text(2));
}

/// A text that doubles, some of them beyond the longest.
void ScriptWriter::Grow() {
    Add(L"va=0123456789");
    Add(L"n2=0");
    Add(L"do");
    Add(dice_.OneIn(2) ? L"va=&va" : L"va=vava");
    Add(L"n2=+1");
    Add(L"while n2<" + std::to_wstring(15 + dice_.Below(5)));
    Add(L"messageboxok=va" + Text(1) + L"va");
}

void ScriptWriter::Structure(int depth) {
    if (dice_.OneIn(255))
        return Grow();
    switch (dice_.Below(7)) {
        case 0:
        case 1:
            return If(depth);
        case 2:
            return Do(depth);
        case 3:
            return For(depth);
        case 4:
            return WriteFile();
        case 5:
            return Launch();
        default:
            return Jumps(depth);
    }
}

void ScriptWriter::Statement(int depth) {
    const std::uint32_t kind = dice_.Below(12);
    if (kind < 4 && depth < kDeepest)
        Structure(depth);
    else if (kind == 4)
        Control();
    else if (kind == 5)
        Show();
    else
        Add(Simple());
}

void ScriptWriter::Statements(std::uint32_t most, int depth) {
    for (std::uint32_t count = dice_.Below(most + 1); count > 0; --count)
        Statement(depth);
}

void ScriptWriter::Declarations() {
    for (const wchar_t* name : {L"va", L"vb", L"n1", L"n2", L"Txt", L"key[x]", L"arr[3]"}) {
        if (!dice_.OneIn(12))
            Add(L"var " + std::wstring(name));
    }
    if (dice_.OneIn(3))
        Add(L"checkgrammar=" + std::wstring(dice_.Pick(kOptionValues)));
    if (dice_.OneIn(4))
        Add(L"exitloopcount=" + Number());
    for (std::uint32_t count = dice_.Below(6); count > 0; --count)
        Add(dice_.OneIn(3) ? CallAssignment() : Name() + L"=" + (dice_.OneIn(2) ? Number() : Text(2)));
}

/// Small damage, as people do it.
void ScriptWriter::Spoil() {
    if (lines_.empty())
        return;
    const std::size_t place = dice_.Below(static_cast<std::uint32_t>(lines_.size()));
    std::wstring& line = lines_[place];
    switch (dice_.Below(7)) {
        case 0:
            lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(place));
            break;
        case 1:
            lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(place), dice_.Pick(lines_));
            break;
        case 2:
            std::swap(line, lines_[dice_.Below(static_cast<std::uint32_t>(lines_.size()))]);
            break;
        case 3:
            line = (dice_.OneIn(2) ? L"\t" : L"  ") + line + (dice_.OneIn(2) ? L"\t " : L"");
            break;
        case 4:
            line = line.substr(0, dice_.Below(static_cast<std::uint32_t>(line.size() + 1)));
            break;
        case 5:
            line.insert(dice_.Below(static_cast<std::uint32_t>(line.size() + 1)), Text(1));
            break;
        default:
            std::ranges::replace(line, L' ', L'\t');
            break;
    }
}

std::vector<std::wstring> ScriptWriter::Script(bool isMain) {
    if (dice_.OneIn(2))
        Add(L"debug");
    if (isMain && !dice_.OneIn(10))
        Declarations();
    Statements(isMain ? 12 : 5, isMain ? 0 : 2);
    if (isMain || dice_.OneIn(3))
        Show();
    for (std::uint32_t count = dice_.OneIn(2) ? dice_.Below(4) : 0; count > 0; --count)
        Spoil();
    return std::move(lines_);
}

scripttools::Bytes BytesOf(const std::wstring& text, bool hasMark) {
    return base::BytesFromUnits((hasMark ? L"\xFEFF" : L"") + text);
}

void DescribeTexts(scripttools::WorldDescription& world, Dice& dice) {
    world.Files[L"C:\\t\\lines.txt"] = BytesOf(L"first\r\nva\n\r\n  f(x) \r\nlast", dice.OneIn(2));
    world.Files[L"C:\\t\\empty.txt"] = {};
    world.Files[L"C:\\t\\mark.txt"] = BytesOf(L"\t空文字\n\r置換\t", dice.OneIn(2));
    world.Files[L"C:\\t\\last"] = BytesOf(L"10\n-5\n", true);
    world.Files[L"C:\\t\\last"].push_back(std::byte{0x41});
    world.Files[L"C:\\cur\\rel.txt"] = BytesOf(L"rel", true);
    world.Files[L"C:\\d\\b.txt"] = {};
    world.Files[L"C:\\d\\A.txt"] = {};
    world.Files[L"C:\\d\\sub\\c"] = {};
    world.Folders = {L"C:\\empty", L"C:\\o", L"C:\\s"};
}

scripttools::WorldDescription RandomWorld(Dice& dice) {
    static constexpr const wchar_t* kItems[] = {L"C:\\sel\\a.txt",    L"C:\\sel\\b c.tar.gz",
                                                L"C:\\sel\\.profile", L"D:\\va",
                                                L"C:\\sel\\noext",    L"\\\\srv\\share\\x.y"};
    static constexpr const wchar_t* kTexts[] = {L"",   L"clip",        L"\t空文字\n\r置換\t",
                                                L"n1", L"length(abc)", L"two\r\nlines"};
    static constexpr int kAnswers[] = {1, 2, 6, 6, 6, 7};
    static constexpr scripttools::TraceKind kTraces[] = {
        scripttools::TraceKind::Trace, scripttools::TraceKind::Trace, scripttools::TraceKind::Debugger,
        scripttools::TraceKind::None};
    static constexpr const wchar_t* kUserFolders[] = {L"", L"C:\\", L"D:\\user", L"D:\\user\\", L"D:/user/"};
    scripttools::WorldDescription world;
    world.Script = kScripts[0];
    for (std::uint32_t count = dice.Below(5); count > 0; --count)
        world.Selection.emplace_back(dice.Pick(kItems));
    world.Clock = {2026, 2, 3, 4, 5, 6};
    if (dice.OneIn(2)) {
        world.HostSettings[L"UserDirMode"] = dice.Below(4);
        world.HostSettings[L"UserDir"] = std::wstring(dice.Pick(kUserFolders));
    }
    world.Environment[L"TEMP"] = dice.OneIn(4) ? L"?Name?" : L"C:\\temp";
    for (std::uint32_t count = dice.Below(6); count > 0; --count)
        world.Answers.push_back(dice.Pick(kAnswers));
    world.Programs[L"tool.exe"] = {dice.Below(3), dice.Below(200)};
    world.Programs[L"slow.exe"] = {1, 1'000'000};
    world.Programs[L"fix.exe"] = {0, 0};
    world.Trace = dice.Pick(kTraces);
    world.HasHostWindow = !dice.OneIn(6);
    world.Clipboard = dice.Pick(kTexts);
    world.CurrentFolder = dice.OneIn(5) ? L"C:\\" : L"C:\\cur";
    world.LoginName = dice.OneIn(4) ? L"" : L"u";
    world.LocalAppData = dice.OneIn(4) ? L"" : L"C:\\Users\\u\\AppData\\Local";
    world.ProgramFolder = L"C:\\Kiv\\Command\\Ferry\\";
    world.Metrics = {{0, 1024}, {1, 768}, {16, -3}};
    DescribeTexts(world, dice);
    return world;
}

}  // namespace

std::uint32_t ByteDice::Below(std::uint32_t limit) {
    if (rest_.empty())
        return 0;
    const std::uint32_t value = rest_.front() % limit;
    rest_ = rest_.subspan(1);
    return value;
}

ScriptCase RandomCase(Dice& dice) {
    ScriptCase one;
    one.World = RandomWorld(dice);
    for (const wchar_t* path : kScripts) {
        ScriptFile file;
        file.Path = one.Scripts.size() == 2 ? L"C:\\cur\\two.txt" : path;
        file.Lines = ScriptWriter(dice).Script(one.Scripts.empty());
        file.HasMark = !dice.OneIn(4);
        file.LineEnd = dice.OneIn(4) ? L"\n" : L"\r\n";
        file.EndsLastLine = !dice.OneIn(4);
        one.Scripts.push_back(std::move(file));
    }
    one.Statements = dice.OneIn(20) ? dice.Below(40) : 300;
    return one;
}

scripttools::WorldDescription WorldOf(const ScriptCase& one) {
    scripttools::WorldDescription world = one.World;
    for (const ScriptFile& file : one.Scripts) {
        std::wstring text;
        for (const std::wstring& line : file.Lines)
            text += line + file.LineEnd;
        if (!file.EndsLastLine && !text.empty())
            text.resize(text.size() - file.LineEnd.size());
        world.Files[file.Path] = BytesOf(text, file.HasMark);
    }
    return world;
}

}  // namespace ferry::script::literal

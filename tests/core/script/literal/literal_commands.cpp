// Options and commands.
#include <algorithm>

#include "base/utf16.h"
#include "core/script/literal/literal_run.h"

namespace ferry::script::literal {
namespace {

constexpr wchar_t kHostMain[] = L"Software\\Marrowby\\Kiv\\Main001\\";

constexpr const wchar_t* kCommands[] = {L"messagebox",
                                        L"messageboxok",
                                        L"messageboxyn",
                                        L"icon",
                                        L"call",
                                        L"exec",
                                        L"shell",
                                        L"include",
                                        L"exrun",
                                        L"fileopen",
                                        L"fileopenmode",
                                        L"bomout",
                                        L"filewritew",
                                        L"filewritea",
                                        L"postmessage",
                                        L"sendmessage",
                                        L"postmessage1",
                                        L"postmessage2",
                                        L"postwait",
                                        L"postmessagebar",
                                        L"postmessageall",
                                        L"postmessagetab",
                                        L"sendmessageall",
                                        L"writeregnum",
                                        L"writeregstring",
                                        L"system_command",
                                        L"speach",
                                        L"speachflag",
                                        L"speachvolume",
                                        L"speachratespeed",
                                        L"speachpitch",
                                        L"setclipboardtext",
                                        L"select",
                                        L"wait",
                                        L"filejump",
                                        L"folderjump",
                                        L"favoritejump",
                                        L"ubjump",
                                        L"fullstateopen",
                                        L"fullstateopenex",
                                        L"backgroundimage",
                                        L"listinnerparam",
                                        L"tabletmode",
                                        L"operationmode",
                                        L"appendselectitem",
                                        L"appendcsvselectitem",
                                        L"getselectitems"};

constexpr const wchar_t* kMayBeEmpty[] = {L"messagebox", L"setclipboardtext", L"filewritew",
                                          L"filewritea", L"fileopenmode",     L"bomout",
                                          L"select",     L"listinnerparam"};

template <typename Names>
bool IsAmong(const Names& names, const std::wstring& name) {
    return std::ranges::find(names, name) != std::end(names);
}

/// The text before the first comma, and all behind it.
struct Fields {
    std::wstring First;
    std::wstring Rest;
    bool HasRest = false;
};

Fields FieldsOf(const std::wstring& text) {
    const std::size_t comma = text.find(L',');
    if (comma == std::wstring::npos)
        return {Trimmed(text), L"", false};
    return {Trimmed(text.substr(0, comma)), Trimmed(text.substr(comma + 1)), true};
}

/// Those of `texts` that are not empty, with a blank between them.
std::wstring Joined(const std::vector<std::wstring>& texts) {
    std::wstring joined;
    for (const std::wstring& text : texts) {
        if (!joined.empty() && !text.empty())
            joined += L' ';
        joined += text;
    }
    return joined;
}

std::uint32_t Unsigned(std::int32_t number) {
    return static_cast<std::uint32_t>(number);
}

std::vector<std::byte> NarrowBytes(const std::string& text) {
    std::vector<std::byte> bytes;
    for (const char unit : text)
        bytes.push_back(static_cast<std::byte>(unit));
    return bytes;
}

}  // namespace

bool LiteralRun::SetOption() {
    const std::size_t sign = line_.find(L'=');
    if (sign == std::wstring::npos)
        return false;
    const std::wstring name = Small(Trimmed(line_.substr(0, sign)));
    if (TextOf(together_.Options, name) == nullptr)
        return false;
    std::wstring value = Expanded(Trimmed(line_.substr(sign + 1)));
    if (name == L"checkgrammar" && value.empty())
        value = L"0";
    *TextOf(together_.Options, name) = value;
    return true;
}

Course LiteralRun::Command(const std::wstring& name) {
    if (!IsAmong(kCommands, name)) {
        return Assign() ? Course::GoesOn : Unknown();
    }
    const std::size_t sign = line_.find(L'=');
    if (sign == std::wstring::npos)
        throw SyntaxError();
    if (name == L"getselectitems") {
        GetSelectItems();
        return Course::GoesOn;
    }
    const std::wstring text = Expanded(Trimmed(line_.substr(sign + 1)));
    if (name == L"postmessagetab" || (text.empty() && !IsAmong(kMayBeEmpty, name)))
        throw SyntaxError();
    return CommandOfText(name, text);
}

/// Commands that take one text; those that take several are tried then.
Course LiteralRun::CommandOfText(const std::wstring& name, const std::wstring& text) {
    if (name == L"messageboxok")
        world_.Boxes.Show(text, 48);
    else if (name == L"messageboxyn")
        return world_.Boxes.Show(text, 36) == 7 ? Course::RunEnds : Course::GoesOn;
    else if (name == L"include")
        return Include(text);
    else if (name == L"exrun")
        return ExRun(text);
    else if (name == L"fileopen")
        FileOpen(text);
    else if (name == L"fileopenmode")
        overwrites_ = Number(text) != 0;
    else if (name == L"bomout")
        writesMark_ = Number(text) != 0;
    else if (name == L"filewritew")
        Write(base::BytesFromUnits(text));
    else if (name == L"filewritea")
        Write(NarrowBytes(world_.Surroundings.Narrow(text)));
    else if (name == L"setclipboardtext")
        world_.Clipboard.SetText(text);
    else if (name == L"select")
        HandOver(800, text);
    else if (name == L"wait")
        world_.Pace.Sleep(Unsigned(std::max(0, Number(text))));
    else if (name == L"fullstateopen")
        HandOver(201, text);
    else if (name == L"backgroundimage")
        HandOver(1200, text);
    else if (name == L"listinnerparam")
        HandOver(910, text);
    else if (name == L"tabletmode")
        HandOver(912, text);
    else if (name == L"operationmode")
        HandOver(911, text);
    else if (name == L"appendselectitem")
        AppendItems({text});
    else if (!CommandOfSpeech(name, text))
        return CommandOfFields(name, text);
    return Course::GoesOn;
}

/// Whether it was one.
bool LiteralRun::CommandOfSpeech(const std::wstring& name, const std::wstring& text) {
    if (name == L"speach")
        world_.Speech.Speak(text);
    else if (name == L"speachflag")
        world_.Speech.SetFlags(Number(text));
    else if (name == L"speachvolume")
        world_.Speech.SetVolume(Number(text));
    else if (name == L"speachratespeed")
        world_.Speech.SetRate(Number(text));
    else if (name == L"speachpitch")
        world_.Speech.SetPitch(Number(text));
    else
        return false;
    return true;
}

Course LiteralRun::CommandOfFields(const std::wstring& name, const std::wstring& text) {
    const Fields fields = FieldsOf(text);
    if (name == L"messagebox")
        ShowBox(text);
    else if (name == L"call")
        StartProgram(text, true);
    else if (name == L"exec")
        StartProgram(text, Option(L"runwait") == L"1");
    else if (name == L"shell")
        Open(text);
    else if (name == L"writeregnum" || name == L"writeregstring")
        Registry(name == L"writeregnum", text);
    else if (name == L"filejump" || name == L"folderjump")
        PaneJump(name == L"filejump", text);
    else if (name == L"favoritejump" || name == L"ubjump")
        NumberedJump(name == L"ubjump" ? 1003 : 901, text);
    else if (name == L"fullstateopenex")
        FullStateOpen(text);
    else if (name == L"appendcsvselectitem") {
        std::vector<std::wstring> items = Pieces(text);
        for (std::wstring& item : items)
            item = Trimmed(item);
        AppendItems(items);
    } else if (name == L"system_command") {
        if (fields.First.empty() || fields.Rest.empty())
            throw SyntaxError();
        HandOver(Unsigned(Number(fields.First)), fields.Rest);
    } else if (name != L"icon")
        ToWindow(name, text);
    return Course::GoesOn;
}

void LiteralRun::ShowBox(const std::wstring& text) {
    const Fields fields = FieldsOf(text);
    if (!fields.HasRest)
        return;
    if (fields.First.empty() || fields.Rest.empty())
        throw SyntaxError();
    const bool isOfAnyBase = fields.First.find(L'x') != std::wstring::npos;
    const std::int32_t style = isOfAnyBase ? NumberOfAnyBase(fields.First) : Number(fields.First);
    world_.Boxes.Show(fields.Rest, Unsigned(style));
}

/// A program with its parameters, as the options have it.
ProgramStart LiteralRun::StartOf(const std::wstring& text, bool isWaitedFor) {
    const Fields fields = FieldsOf(text);
    if (fields.First.empty())
        throw SyntaxError();
    ProgramStart start;
    start.CommandLine = Joined({fields.First, fields.Rest, Option(L"commandlineoption")});
    start.WorkingFolder = Option(L"bootdir");
    start.ShowMode = static_cast<std::uint16_t>(Number(Option(L"showwindow")));
    start.IsWaitedFor = isWaitedFor;
    return start;
}

void LiteralRun::StartProgram(const std::wstring& text, bool isWaitedFor) {
    const std::unique_ptr<RunningProgram> program = world_.Programs.Start(StartOf(text, isWaitedFor));
    if (program == nullptr)
        throw Failure{L"Cannot start the program.\n" + raw_};
    if (!isWaitedFor)
        return;
    if (program->Wait(Unsigned(Number(Option(L"timeout"))))) {
        program->ExitCode();
        return;
    }
    if (world_.Speaker.Ask(L"Timeout!\nAre you sure you want to kill the process?", lang::Tone::Plain))
        program->Kill(999);
}

void LiteralRun::Open(const std::wstring& text) {
    if (!world_.Programs.Open(StartOf(text, false)))
        throw Failure{L"Cannot start the program.\n" + raw_};
}

Course LiteralRun::Include(const std::wstring& path) {
    if (depth_ == kDeepestInclude)
        throw Failure{L"Too many nested scripts.(32)\n" + path};
    LiteralRun run(together_, path, depth_ + 1, isTraced_, ItemOfLoop());
    const Course course = run.Run();
    return course == Course::RunEnds ? Course::GoesOn : course;
}

Course LiteralRun::ExRun(const std::wstring& text) {
    if (text.ends_with(L':')) {
        if (const std::optional<std::size_t> line = LineOf(Trimmed(text.substr(0, text.size() - 1))))
            return JumpTo(*line);
    }
    const std::int32_t mode = Number(Option(L"bootmode"));
    HandOver(mode == 1 ? 200 : mode == 2 ? 300 : 100, text);
    return Course::GoesOn;
}

void LiteralRun::FileOpen(const std::wstring& path) {
    file_.reset();
    file_ = world_.ByteFiles.OpenToWrite(path, overwrites_ ? OpenMode::Overwrite : OpenMode::Append);
    overwrites_ = false;
    if (file_ == nullptr)
        Tell(L"File is not open.");
}

void LiteralRun::Write(std::vector<std::byte> bytes) {
    if (file_ == nullptr)
        throw Failure{L"File is not open."};
    if (writesMark_)
        bytes.insert(bytes.begin(), {std::byte{0xFF}, std::byte{0xFE}});
    writesMark_ = false;
    file_->Write(bytes);
}

void LiteralRun::ToWindow(const std::wstring& name, const std::wstring& text) {
    if (!world_.Host.Exists())
        return;
    const std::vector<std::wstring> fields = Pieces(text);
    const int first = Number(Trimmed(fields[0]));
    const int second = fields.size() > 1 ? Number(Trimmed(fields[1])) : 0;
    if (first == 0)
        throw SyntaxError();
    if (name == L"sendmessage")
        world_.Host.Send(273, first, second);
    else if (name == L"sendmessageall")
        world_.Host.Send(32776, first, second);
    else if (name == L"postmessage")
        world_.Host.Post(273, first, second);
    else if (name == L"postmessageall")
        world_.Host.Post(32776, first, second);
    else if (name == L"postmessage1")
        world_.Host.Post(32777, first, second);
    else if (name == L"postmessage2")
        world_.Host.Post(32778, first, second);
    else if (name == L"postwait")
        world_.Host.Post(32779, first, second);
    else
        world_.Host.Post(32780, first, second);
}

void LiteralRun::Registry(bool isNumber, const std::wstring& text) {
    const Fields key = FieldsOf(text);
    const Fields value = FieldsOf(key.Rest);
    if (key.First.empty() || value.First.empty() || value.Rest.empty())
        throw SyntaxError();
    if (isNumber)
        world_.Settings.WriteNumberToKey(kHostMain + key.First, value.First, Unsigned(Number(value.Rest)));
    else
        world_.Settings.WriteTextToKey(kHostMain + key.First, value.First, value.Rest);
}

void LiteralRun::PaneJump(bool isFile, const std::wstring& text) {
    const Fields fields = FieldsOf(text);
    const std::int32_t pane = Number(fields.First);
    if (fields.First.empty() || fields.Rest.empty() || pane < 0 || pane > 3)
        throw SyntaxError();
    HandOver(Unsigned(pane + 1) * 100 + (isFile ? 3 : 0), world_.Surroundings.FullPath(fields.Rest));
}

void LiteralRun::NumberedJump(std::uint32_t code, const std::wstring& text) {
    const Fields fields = FieldsOf(text);
    if (fields.First.empty() || fields.Rest.empty())
        throw SyntaxError();
    HandOver(code, std::to_wstring(Number(fields.First)) + L"/" + fields.Rest);
}

void LiteralRun::FullStateOpen(const std::wstring& text) {
    const Fields fields = FieldsOf(text);
    if (fields.First.empty())
        throw SyntaxError();
    HandOver(201, fields.Rest.empty() ? fields.First : fields.First + L"," + fields.Rest);
}

/// Appends all of `items` that are not empty, or none when they are too many.
void LiteralRun::AppendItems(const std::vector<std::wstring>& items) {
    std::vector<std::wstring> selection = together_.Selection;
    for (const std::wstring& item : items) {
        if (!item.empty())
            selection.push_back(item);
    }
    if (selection.size() > kMostItems)
        throw Failure{L"Too many items.(1048576)\n" + raw_};
    together_.Selection = selection;
}

void LiteralRun::GetSelectItems() {
    const std::wstring name = Trimmed(line_.substr(line_.find(L'=') + 1));
    if (TextOf(together_.Variables, name) == nullptr)
        throw SyntaxError();
    std::wstring items;
    for (std::size_t place = 0; place < together_.Selection.size(); ++place)
        items += (place == 0 ? L"" : L",") + together_.Selection[place];
    Store(name, items);
}

void LiteralRun::HandOver(std::uint32_t code, const std::wstring& text) {
    if (world_.Host.Exists())
        world_.Host.HandOver({code, text});
}

Course LiteralRun::Unknown() {
    const std::wstring check = Option(L"checkgrammar");
    if (check == L"0")
        return Course::GoesOn;
    if (world_.Speaker.Ask(
            L"This is the line that I do not understand.\nDo you want to continue?\n" + NumberedText(),
            lang::Tone::Question))
        return Course::GoesOn;
    if (check != L"1")
        world_.Programs.StartHelper(Replaced(check, L"?ErrorLine?", std::to_wstring(now_)));
    return Course::RunEnds;
}

}  // namespace ferry::script::literal

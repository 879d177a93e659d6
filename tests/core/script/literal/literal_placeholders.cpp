// What stands between question marks and percent signs, read the slow way.
#include "core/script/literal/literal_placeholders.h"

#include "calendar/date_format.h"
#include "core/script/literal/literal_text.h"
#include "paths/path_grammar.h"

namespace ferry::script::literal {
namespace {

/// A value between quotes; nothing at all where there is no value.
std::wstring Quoted(const std::wstring& value) {
    return value.empty() ? L"" : L"\"" + value + L"\"";
}

bool Has(const std::wstring& text, const wchar_t* token) {
    return text.find(token) != std::wstring::npos;
}

}  // namespace

std::wstring HostFolders::Expanded(std::wstring text) {
    if (text.empty())
        return text;
    text = world_.Surroundings.ExpandEnvironment(text);
    // The user's folder may be made by asking for it, so it is asked for where it is wanted only.
    static constexpr const wchar_t* kOfUser[][2] = {
        {L"%Script_dir%", L"Script\\"}, {L"%User_dir%", L""}, {L"%Menu_dir%", L"Menu\\"}};
    for (const auto& [token, below] : kOfUser) {
        if (Has(text, token))
            text = Replaced(text, token, UserFolder() + below);
    }
    static constexpr const wchar_t* kOfApplication[][2] = {{L"%App_Dir%", L""},
                                                           {L"%CMD_Dir%", L"command\\Default\\"},
                                                           {L"%CmdPlugin_Dir%", L"command\\CmdPlugin\\"},
                                                           {L"%Viewer_Dir%", L"command\\Viewer\\"},
                                                           {L"%UserCmd_Dir%", L"command\\User\\"}};
    for (const auto& [token, below] : kOfApplication) {
        if (Has(text, token))
            text = Replaced(text, token, ApplicationFolder() + below);
    }
    return text;
}

std::wstring HostFolders::ApplicationFolder() {
    return world_.Surroundings.FullPath(world_.Homes.ProgramFolder() + L"..\\..\\");
}

std::wstring HostFolders::UserFolder() {
    if (!userFolder_)
        userFolder_ = FindUserFolder();
    return *userFolder_;
}

std::wstring HostFolders::FindUserFolder() {
    const std::uint32_t mode = world_.Settings.ReadHostNumber(L"UserDirMode");
    if (mode == 0)
        return OwnUserFolder();
    if (mode != 2)
        return SharedUserFolder();
    std::wstring folder = world_.Settings.ReadHostText(L"UserDir", L"");
    if (folder.ends_with(L'\\') || folder.ends_with(L'/'))
        folder.pop_back();
    return folder + L"\\";
}

std::wstring HostFolders::OwnUserFolder() {
    const std::optional<std::wstring> local = world_.Homes.LocalAppData();
    if (!local)
        return ApplicationFolder();
    const std::wstring folder = *local + L"\\Kiv";
    if (world_.Files.Attributes(folder) == files::kInvalidAttributes)
        world_.Changes.MakeFolder(folder);
    return folder + L"\\";
}

std::wstring HostFolders::SharedUserFolder() {
    const std::optional<std::wstring> login = world_.Homes.LoginName();
    const std::wstring folder = ApplicationFolder() + L"Ubar" + (login ? L"\\" + *login : L"");
    world_.Changes.MakeFolder(folder);
    return folder + L"\\";
}

std::wstring WithDates(std::wstring text, calendar::Clock& clock) {
    if (!Has(text, L"?"))
        return text;
    static constexpr const wchar_t* kFormats[][2] = {
        {L"?Date?", L"%Y-%m-%d"}, {L"?Time?", L"%H-%M-%S"}, {L"?Year?", L"%Y"},     {L"?Month?", L"%m"},
        {L"?Day?", L"%d"},        {L"?Hour?", L"%H"},       {L"?Minute?", L"%M"},   {L"?Second?", L"%S"},
        {L"?Week?", L"%a"},       {L"?WEEK?", L"%A"},       {L"?ShellTime?", L"%c"}};
    const calendar::DateTimeValue now = calendar::ToDateTime(clock.Now());
    for (const auto& [token, format] : kFormats) {
        if (Has(text, token))
            text = Replaced(text, token, calendar::FormatDateTime(now, format));
    }
    return text;
}

std::wstring WithFolders(std::wstring text, const std::wstring& current) {
    if (!current.empty()) {
        const std::wstring path = paths::WithTrailingSeparator(current);
        const paths::PathParts parts = paths::SplitPath(path);
        text = Replaced(text, L"?Drive?", std::wstring(parts.Drive));
        text = Replaced(text, L"?Dir?", std::wstring(parts.Folder));
    }
    const std::wstring folder(paths::StripTrailingSeparator(current));
    text = Replaced(text, L"?NowDir?", Quoted(folder));
    text = Replaced(text, L"?nowdir?", folder);
    for (const wchar_t* token :
         {L"?NowDir?", L"?nowdir?", L"?Drive?", L"?Dir?", L"?TargetDir?", L"?TargetDrive?"})
        text = Replaced(text, token, L"");
    return text;
}

std::wstring WithItem(std::wstring text, const std::wstring& item) {
    const paths::PathParts parts = paths::SplitPath(item);
    const std::wstring name(parts.Name);
    const std::wstring extension(parts.Extension);
    const std::wstring parent(paths::ParentWithSeparator(item));
    // Capitals ask for the bare value and small letters for quotes; with the full path it is the other way.
    const std::wstring values[][2] = {{L"?SelFile?", Quoted(item)},
                                      {L"?selfile?", item},
                                      {L"?FileName?", name + extension},
                                      {L"?Name?", name},
                                      {L"?Ext?", extension},
                                      {L"?filename?", Quoted(name + extension)},
                                      {L"?name?", Quoted(name)},
                                      {L"?ext?", Quoted(extension)},
                                      {L"?selpath?", Quoted(parent)},
                                      {L"?SelPath?", parent},
                                      {L"?SelParent?", std::wstring(paths::StripTrailingSeparator(parent))}};
    for (const auto& [token, value] : values)
        text = Replaced(text, token, value);
    for (const auto& [token, value] : values)
        text = Replaced(text, token, L"");
    return text;
}

}  // namespace ferry::script::literal

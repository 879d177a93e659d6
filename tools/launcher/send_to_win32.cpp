#include "launcher/send_to_win32.h"

#include <shlobj.h>

#include <array>

#include "base/com_ptr_win32.h"
#include "paths/path_grammar.h"

namespace ferry::launcher {
namespace {

/// What the links pass on; the Explorer puts the paths behind it.
constexpr wchar_t kCopyArguments[] = L"/c --";
constexpr wchar_t kMoveArguments[] = L"/m --";

/// The longest text that a link gives back.
constexpr int kLongestTarget = 32768;

using TaskText = base::UniqueResource<base::ReleasedBy<void*, &CoTaskMemFree>>;

/// The folder with a separator at its end; empty, with its error in `result`, when there is none.
std::wstring SendToFolder(HRESULT& result) {
    PWSTR path = nullptr;
    result = SHGetKnownFolderPath(FOLDERID_SendTo, KF_FLAG_CREATE, nullptr, &path);
    const TaskText owner(path);
    return FAILED(result) ? std::wstring() : paths::WithTrailingSeparator(path);
}

/// A link object and the interface through which it is kept in a file.
struct Link {
    base::ComPtr<IShellLinkW> Object;
    base::ComPtr<IPersistFile> File;
};

HRESULT MakeLink(Link& link) {
    void* object = nullptr;
    HRESULT result =
        CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &object);
    if (FAILED(result))
        return result;
    link.Object.Reset(static_cast<IShellLinkW*>(object));
    void* file = nullptr;
    result = link.Object->QueryInterface(IID_IPersistFile, &file);
    if (SUCCEEDED(result))
        link.File.Reset(static_cast<IPersistFile*>(file));
    return result;
}

HRESULT WriteLink(const std::wstring& path, const std::wstring& program, const wchar_t* arguments) {
    Link link;
    HRESULT result = MakeLink(link);
    if (SUCCEEDED(result))
        result = link.Object->SetPath(program.c_str());
    if (SUCCEEDED(result))
        result = link.Object->SetArguments(arguments);
    if (SUCCEEDED(result))
        result = link.Object->SetIconLocation(program.c_str(), 0);
    return SUCCEEDED(result) ? link.File->Save(path.c_str(), TRUE) : result;
}

/// Whether the file at `path` is a link to `program`.
bool IsLinkTo(const std::wstring& path, const std::wstring& program) {
    Link link;
    if (FAILED(MakeLink(link)) || FAILED(link.File->Load(path.c_str(), STGM_READ)))
        return false;
    std::wstring target(kLongestTarget, L'\0');
    if (link.Object->GetPath(target.data(), kLongestTarget, nullptr, 0) != S_OK)
        return false;
    target.resize(target.find(L'\0'));
    return paths::IsSamePath(target, program);
}

HRESULT RemoveLinks(const std::wstring& folder, const std::wstring& program) {
    HRESULT result = S_OK;
    for (const std::wstring_view name :
         {kEnglish.CopyLink, kEnglish.MoveLink, kJapanese.CopyLink, kJapanese.MoveLink}) {
        const std::wstring path = folder + std::wstring(name);
        if (IsLinkTo(path, program) && !DeleteFileW(path.c_str()))
            result = HRESULT_FROM_WIN32(GetLastError());
    }
    return result;
}

}  // namespace

HRESULT AddSendTo(const Texts& texts, const std::wstring& program) {
    const base::ComApartment com;
    HRESULT result = S_OK;
    const std::wstring folder = SendToFolder(result);
    if (SUCCEEDED(result))
        result = RemoveLinks(folder, program);
    if (SUCCEEDED(result))
        result = WriteLink(folder + std::wstring(texts.CopyLink), program, kCopyArguments);
    if (SUCCEEDED(result))
        result = WriteLink(folder + std::wstring(texts.MoveLink), program, kMoveArguments);
    return result;
}

HRESULT RemoveSendTo(const std::wstring& program) {
    const base::ComApartment com;
    HRESULT result = S_OK;
    const std::wstring folder = SendToFolder(result);
    return FAILED(result) ? result : RemoveLinks(folder, program);
}

}  // namespace ferry::launcher

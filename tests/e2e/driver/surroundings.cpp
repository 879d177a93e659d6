#include "e2e/driver/surroundings.h"

namespace ferry::e2e {
namespace {

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

std::wstring Variable(const std::wstring& name) {
    const DWORD size = GetEnvironmentVariableW(name.c_str(), nullptr, 0);
    if (size == 0)
        return {};
    std::wstring value(size, L'\0');
    value.resize(GetEnvironmentVariableW(name.c_str(), value.data(), size));
    return value;
}

void SetVariable(const std::wstring& name, const std::wstring& value) {
    SetEnvironmentVariableW(name.c_str(), value.empty() ? nullptr : value.c_str());
}

std::wstring OwnFolder() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path.substr(0, path.rfind(L'\\'));
}

std::wstring AppFolder() {
    std::wstring folder = Variable(L"FERRY_E2E_APP");
    while (folder.ends_with(L'\\') || folder.ends_with(L'/')) {
        folder.pop_back();
    }
    return folder;
}

std::wstring FerryPath(const std::wstring& appFolder) {
    return appFolder + L"\\Command\\Ferry\\Ferry.exe";
}

std::wstring HostPath() {
    return Variable(L"FERRY_E2E_HOST");
}

std::wstring BaseFolder() {
    const std::wstring base = Variable(L"FERRY_E2E_BASE");
    return base.empty() ? L"C:\\ferry-e2e" : base;
}

std::wstring OtherVolume() {
    return Variable(L"FERRY_OTHER_VOLUME");
}

std::wstring WhyNoTestService() {
    constexpr wchar_t kServer[] =
        L"Software\\Classes\\CLSID\\{3AD05575-8857-4850-9277-11B85BDB8E09}\\InprocServer32";
    wchar_t path[1024] = {};
    DWORD size = sizeof(path);
    RegGetValueW(HKEY_LOCAL_MACHINE, kServer, nullptr, RRF_RT_REG_SZ, nullptr, path, &size);
    if (std::wstring_view(path).ends_with(L"ferry_fileop.dll"))
        return {};
    return L"the file-operation service of the tests is not registered";
}

std::wstring MissingSurroundings() {
    if (!IsFile(FerryPath(AppFolder())))
        return L"FERRY_E2E_APP names no folder with Command\\Ferry\\Ferry.exe";
    if (!IsFile(HostPath()))
        return L"FERRY_E2E_HOST names no sample host";
    return {};
}

}  // namespace ferry::e2e

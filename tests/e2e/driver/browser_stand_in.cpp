#include "e2e/driver/browser_stand_in.h"

#include <windows.h>

#include <algorithm>

#include "e2e/driver/temp_tree.h"
#include "support/poll_win32.h"

namespace ferry::e2e {
namespace {

constexpr wchar_t kProgram[] = L"FerryTest.Page";

void Set(const std::wstring& key, const std::wstring& text) {
    RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

BrowserStandIn::BrowserStandIn(const std::wstring& file) : file_(file) {
    Set(L".html", kProgram);
    Set(std::wstring(kProgram) + L"\\shell\\open\\command",
        L"C:\\windows\\system32\\cmd.exe /c echo %1>\"" + file + L"\"");
}

BrowserStandIn::~BrowserStandIn() {
    Set(L".html", L"htmlfile");
    RegDeleteTreeW(HKEY_CLASSES_ROOT, kProgram);
}

std::wstring BrowserStandIn::WaitForPage() const {
    std::string opened;
    test::WaitUntil([&] { return (opened = ReadBytes(file_)).ends_with('\n'); });
    std::erase(opened, '"');
    return {opened.begin(), std::find(opened.begin(), opened.end(), '\r')};
}

}  // namespace ferry::e2e

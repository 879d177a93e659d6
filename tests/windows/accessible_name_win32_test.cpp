// The names that screen readers read where Windows finds none.
#include "framework/accessible_name.h"

#include <windows.h>
#include <gtest/gtest.h>
#include <oleacc.h>

#include <string>
#include <utility>
#include <vector>

#include "windows/support_win32.h"
#include "windows/watched_import_win32.h"

#ifdef __GNUC__
#pragma GCC diagnostic push
// COM classes are destroyed by their Release, never through an interface.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

namespace ferry::framework {
namespace {

using Names = std::vector<std::pair<HWND, std::wstring>>;

/// The annotation service; writes the names down. Lives on the stack.
class RecordingNames final : public IAccPropServices {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++References; }
    ULONG STDMETHODCALLTYPE Release() override { return --References; }

    HRESULT WINAPI SetHwndPropStr(HWND window, DWORD object, DWORD child, MSAAPROPID property,
                                  LPCWSTR text) override {
        EXPECT_EQ(object, static_cast<DWORD>(OBJID_CLIENT));
        EXPECT_EQ(child, DWORD{CHILDID_SELF});
        EXPECT_EQ(property.Data1, 0x608d3df8U) << "the name";
        Given.emplace_back(window, text);
        return S_OK;
    }

    HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                 AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHwndProp(HWND, DWORD, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                     AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHwndProps(HWND, DWORD, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_NOTIMPL; }
    HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                      AnnoScope) override {
        return E_NOTIMPL;
    }
    HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_NOTIMPL; }
    HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override { return E_NOTIMPL; }
    HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
        return E_NOTIMPL;
    }

    Names Given;
    ULONG References = 0;
};

TEST(AccessibleNames, AreGivenByTheServiceWhichIsLetGo) {
    RecordingNames service;
    const test::WatchedImport<&CoCreateInstance> create(
        "CoCreateInstance", [&](REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID* object) {
            service.AddRef();
            *object = &service;
            return S_OK;
        });
    const auto one = reinterpret_cast<HWND>(0x10);
    const auto other = reinterpret_cast<HWND>(0x20);
    NameForScreenReaders(std::vector<AccessibleName>{{one, L"出力先"}, {other, L"browse"}});
    EXPECT_EQ(service.Given, (Names{{one, L"出力先"}, {other, L"browse"}}));
    EXPECT_EQ(service.References, 0U);
}

TEST(AccessibleNames, AreLeftOutWhereTheSystemHasNoSuchService) {
    const test::WatchedImport<&CoCreateInstance> create(
        "CoCreateInstance", [](REFCLSID, LPUNKNOWN, DWORD, REFIID, LPVOID* object) {
            *object = nullptr;
            return REGDB_E_CLASSNOTREG;
        });
    NameForScreenReaders(std::vector<AccessibleName>{{GetDesktopWindow(), L"name"}});
    SUCCEED();
}

}  // namespace
}  // namespace ferry::framework

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

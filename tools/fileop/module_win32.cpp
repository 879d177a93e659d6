#include "module_win32.h"

#include <objbase.h>
#include <olectl.h>

#include <atomic>
#include <new>

#include "file_operation_win32.h"
#include "log_win32.h"
#include "registration_win32.h"

namespace ferry::fileop {
namespace {

HINSTANCE moduleHandle = nullptr;
std::atomic<long> locks{0};

// One factory for the whole library; it is never freed, so its count does not matter.
class Factory final : public IClassFactory {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        if (object == nullptr) {
            return E_POINTER;
        }
        const bool isKnown = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
        *object = isKnown ? static_cast<IClassFactory*>(this) : nullptr;
        if (isKnown) {
            AddRef();
        }
        return isKnown ? S_OK : E_NOINTERFACE;
    }

    ULONG STDMETHODCALLTYPE AddRef() noexcept override {
        LockModule();
        return 2;
    }

    ULONG STDMETHODCALLTYPE Release() noexcept override {
        UnlockModule();
        return 1;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept override {
        if (object == nullptr) {
            return E_POINTER;
        }
        *object = nullptr;
        if (outer != nullptr) {
            return CLASS_E_NOAGGREGATION;
        }
        auto* operation = new (std::nothrow) FileOperation;
        if (operation == nullptr) {
            return E_OUTOFMEMORY;
        }
        const HRESULT result = operation->QueryInterface(id, object);
        operation->Release();
        return result;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL isLocked) noexcept override {
        if (isLocked) {
            LockModule();
        } else {
            UnlockModule();
        }
        return S_OK;
    }

    static Factory& Only() noexcept {
        static Factory factory;
        return factory;
    }

private:
    Factory() = default;
    ~Factory() = default;
};

}  // namespace

HINSTANCE ModuleHandle() noexcept {
    return moduleHandle;
}
void LockModule() noexcept {
    ++locks;
}
void UnlockModule() noexcept {
    --locks;
}

}  // namespace ferry::fileop

using namespace ferry::fileop;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        moduleHandle = instance;
        DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    return IsEqualCLSID(classId, CLSID_FileOperation) ? Factory::Only().QueryInterface(id, object)
                                                      : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return locks == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    try {
        return RegisterClassServer();
    } catch (...) {
        return E_UNEXPECTED;
    }
}

STDAPI DllUnregisterServer() {
    try {
        return UnregisterClassServer();
    } catch (...) {
        return E_UNEXPECTED;
    }
}

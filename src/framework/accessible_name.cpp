#include "framework/accessible_name.h"

#include <initguid.h>
// After initguid.h, which lets it define the numbers of the service.
#include <oleacc.h>

#include "base/com_ptr_win32.h"

namespace ferry::framework {

void NameForScreenReaders(std::span<const AccessibleName> names) {
    const base::ComApartment com;
    base::ComPtr<IAccPropServices> services;
    // Not every SDK ties this interface to its number.
    CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER, IID_IAccPropServices,
                     reinterpret_cast<void**>(services.Put()));
    if (!services)
        return;
    for (const AccessibleName& name : names) {
        services->SetHwndPropStr(name.Window, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, PROPID_ACC_NAME,
                                 name.Name.c_str());
    }
}

}  // namespace ferry::framework

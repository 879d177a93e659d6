#include "framework/common_controls.h"

#include <stdexcept>

namespace ferry::framework {

namespace {

template <class Function>
Function* Require(const base::LibraryHandle& library, const char* name) {
    auto* const function = base::FindFunction<Function>(library, name);
    if (function == nullptr) {
        throw std::runtime_error("The common controls library of the system cannot be used.");
    }
    return function;
}

}  // namespace

// By its bare name: only then does the manifest decide which version it is.
CommonControls::CommonControls() : library_(LoadLibraryW(L"comctl32.dll")) {
    Init = Require<decltype(InitCommonControlsEx)>(library_, "InitCommonControlsEx");
    SetSubclass = Require<decltype(SetWindowSubclass)>(library_, "SetWindowSubclass");
    RemoveSubclass = Require<decltype(RemoveWindowSubclass)>(library_, "RemoveWindowSubclass");
    CallNext = Require<decltype(DefSubclassProc)>(library_, "DefSubclassProc");
}

const CommonControls& CommonControls::Get() {
    static const CommonControls kControls;
    return kControls;
}

}  // namespace ferry::framework

// Owners of COM references and of a thread's COM initialisation.
#pragma once

#include <windows.h>
// After windows.h: the lean form of that header leaves COM out.
#include <objbase.h>

#include "base/handles_win32.h"

namespace ferry::base {

template <class Interface>
struct ComTraits {
    using Value = Interface*;
    static Value Nothing() noexcept { return nullptr; }
    static void Release(Value object) noexcept {
        const LastErrorKeeper keeper;
        object->Release();
    }
};

/// Owns one reference to a COM object; the arrow calls its methods.
template <class Interface>
class ComPtr : public UniqueResource<ComTraits<Interface>> {
public:
    using UniqueResource<ComTraits<Interface>>::UniqueResource;

    /// The object, which must be there.
    Interface* operator->() const noexcept { return this->Get(); }
};

/// Initialises COM for the calling thread, apartment-threaded, and ends it when it was this
/// object that began it.
class ComApartment {
public:
    ComApartment() noexcept : result_(CoInitialize(nullptr)) {}
    ~ComApartment() {
        // S_FALSE (somebody was first) keeps its count on purpose: only the first one ends COM.
        if (result_ == S_OK) {
            CoUninitialize();
        }
    }

    ComApartment(const ComApartment&) = delete;
    ComApartment& operator=(const ComApartment&) = delete;

private:
    HRESULT result_;
};

}  // namespace ferry::base

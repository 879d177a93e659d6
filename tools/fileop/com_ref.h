// Ownership of COM references.
#pragma once

#include <unknwn.h>

#include <utility>

namespace ferry::fileop {

/// Owns one reference to a COM object, or none.
template <class T>
class ComRef {
public:
    ComRef() noexcept = default;

    /// Takes a further reference to `object`, which may be null.
    explicit ComRef(T* object) noexcept : object_(object) {
        if (object_ != nullptr) {
            object_->AddRef();
        }
    }

    ComRef(const ComRef& other) noexcept : ComRef(other.object_) {}
    ComRef(ComRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}

    ComRef& operator=(const ComRef& other) noexcept {
        ComRef copy(other);
        std::swap(object_, copy.object_);
        return *this;
    }
    ComRef& operator=(ComRef&& other) noexcept {
        ComRef taken(std::move(other));
        std::swap(object_, taken.object_);
        return *this;
    }

    ~ComRef() {
        if (object_ != nullptr) {
            object_->Release();
        }
    }

    T* Get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    /// Where a function may put a new reference; what was owned is released first.
    T** Put() noexcept {
        *this = ComRef();
        return &object_;
    }

private:
    T* object_ = nullptr;
};

}  // namespace ferry::fileop

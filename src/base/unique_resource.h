// Sole ownership of a handle whose kind is told by a traits type.
#pragma once

#include <utility>

namespace ferry::base {

/// Owns one resource and releases it exactly once.
/// `Traits` has `using Value`, `static Value Nothing()`, `static void Release(Value)`; different
/// traits give different types, so a file handle never stands where an event is wanted. Release
/// functions keep the thread's last error. There is no conversion to the raw value.
template <class Traits>
class UniqueResource {
public:
    using Value = typename Traits::Value;

    UniqueResource() noexcept = default;

    /// Takes ownership of `value`, which may be Traits::Nothing().
    explicit UniqueResource(Value value) noexcept : value_(value) {}

    UniqueResource(UniqueResource&& other) noexcept : value_(other.Release()) {}

    UniqueResource& operator=(UniqueResource&& other) noexcept {
        if (this != &other) {
            Reset(other.Release());
        }
        return *this;
    }

    UniqueResource(const UniqueResource&) = delete;
    UniqueResource& operator=(const UniqueResource&) = delete;

    ~UniqueResource() { Reset(); }

    /// The owned value; still owned.
    Value Get() const noexcept { return value_; }

    /// Where a function that creates a resource may put it; what was owned is released first.
    Value* Put() noexcept {
        Reset();
        return &value_;
    }

    /// Gives the value up without releasing it.
    [[nodiscard]] Value Release() noexcept { return std::exchange(value_, Traits::Nothing()); }

    /// Releases what is owned and owns `value` instead.
    void Reset(Value value = Traits::Nothing()) noexcept {
        const Value old = std::exchange(value_, value);
        if (old != Traits::Nothing()) {
            Traits::Release(old);
        }
    }

    explicit operator bool() const noexcept { return value_ != Traits::Nothing(); }

private:
    Value value_ = Traits::Nothing();
};

}  // namespace ferry::base

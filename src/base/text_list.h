// An ordered list of texts that lie together in a few large blocks of memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace ferry::base {

/// An ordered list of texts, made for a million paths: each text costs its units, a terminator
/// and one view. The views that it hands out stay valid until the list is cleared or destroyed,
/// also when the list grows or is moved; each is followed by a NUL in memory.
class TextList {
public:
    TextList() = default;
    TextList(const TextList&) = delete;
    TextList& operator=(const TextList&) = delete;
    TextList(TextList&& other) noexcept;
    TextList& operator=(TextList&& other) noexcept;
    ~TextList() = default;

    /// Appends a copy of `text`.
    void Append(std::wstring_view text);

    /// Takes over the texts of `list` behind the own ones without copying them: its views stay valid.
    void Append(TextList&& list);

    /// Forgets every text and gives the memory back.
    void Clear() noexcept;

    std::size_t Size() const noexcept { return views_.size(); }
    bool IsEmpty() const noexcept { return views_.empty(); }

    /// The text at `index`, which must be below Size().
    std::wstring_view operator[](std::size_t index) const noexcept { return views_[index]; }

    auto begin() const noexcept { return views_.begin(); }
    auto end() const noexcept { return views_.end(); }

private:
    std::vector<std::unique_ptr<wchar_t[]>> blocks_;
    std::vector<std::wstring_view> views_;
    std::size_t used_ = 0;
    std::size_t capacity_ = 0;
};

}  // namespace ferry::base

// Whether paths exist, asked for many in one folder at a time.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace ferry::launcher {

/// Answers for paths one after the other. A selection mostly lies in one folder; from the path number
/// kEnoughToList of a folder on, the folder is listed, which costs less than to ask for each.
class KnownNames {
public:
    using Lister = std::function<std::vector<std::wstring>(const std::wstring& folder)>;
    using Asker = std::function<bool(const std::wstring& path)>;

    static constexpr std::size_t kEnoughToList = 32;

    /// `list` gives the names in a folder, which ends with a separator; none when it cannot. `ask` answers
    /// for one path.
    KnownNames(Lister list, Asker ask) : list_(std::move(list)), ask_(std::move(ask)) {}

    /// Whether `path` exists. A name that the listing does not have is asked for: the system knows more ways
    /// to write one.
    bool Exists(const std::wstring& path);

private:
    void Enter(std::wstring_view folder);

    Lister list_;
    Asker ask_;
    std::wstring folder_;
    std::size_t asked_ = 0;
    std::unordered_set<std::wstring> names_;
};

}  // namespace ferry::launcher

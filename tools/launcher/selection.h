// What is handed over to Ferry, and what cannot be.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "launcher/launch_options.h"

namespace ferry::launcher {

/// The most items of one selection, and the most units that all its paths have together: the size of a block
/// is announced in bytes as a number of 31 bits.
inline constexpr std::size_t kMostItems = 1'000'000;
inline constexpr std::size_t kMostUnits = std::size_t{1} << 28;

/// The most of the last destinations that become other tabs.
inline constexpr std::size_t kMostLastFolders = 10;

/// Why something cannot be taken.
enum class Reason { Missing, Wildcard, Malformed, UnreadableList };

/// Something that cannot be taken, as it was given.
struct Refusal {
    std::wstring Text;
    Reason Why;

    bool operator==(const Refusal&) const = default;
};

/// What Ferry gets.
struct Selection {
    std::vector<std::wstring> Items;
    std::vector<std::wstring> Tabs;
    std::vector<Refusal> Refusals;
    std::size_t TooMany = 0;  ///< So many items more were given than can be taken.
};

/// What a selection has to know of the system.
class Surroundings {
public:
    virtual ~Surroundings() = default;

    /// `path` made absolute from the current folder; empty when the system cannot.
    virtual std::wstring FullPath(const std::wstring& path) = 0;

    /// Whether there is a file or a folder of this full path. What cannot be looked at counts as there.
    virtual bool Exists(const std::wstring& path) = 0;
};

/// Collects a selection.
class SelectionMaker {
public:
    explicit SelectionMaker(Surroundings& surroundings, std::size_t mostItems = kMostItems)
        : surroundings_(surroundings), mostItems_(mostItems) {}

    /// Takes `path` as an item. One that was taken already, whatever its case, is not taken twice.
    void AddItem(std::wstring_view path);

    /// Takes `path` as a folder of the other tabs; it need not exist, since Ferry makes a destination.
    void AddTab(std::wstring_view path);

    /// Takes the last destinations as other tabs behind those that were given, the first `kMostLastFolders`
    /// that are full paths.
    void AddLastFolders(const std::vector<std::wstring>& folders);

    /// Notes a list that could not be read.
    void AddUnreadableList(std::wstring_view name);

    /// What was collected; the maker is empty then.
    Selection Take();

private:
    std::wstring FullPathOf(std::wstring_view path);
    bool HasTab(std::wstring_view path) const;

    Surroundings& surroundings_;
    std::size_t mostItems_;
    Selection selection_;
    std::unordered_set<std::wstring> taken_;
    std::size_t units_ = 0;
};

}  // namespace ferry::launcher

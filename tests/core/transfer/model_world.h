// The world of a model run: the tree, the record of every port call, and the faults.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/transfer/model_tree.h"

namespace ferry::transfer::model {

/// A second of file time.
inline constexpr std::uint64_t kSecond = 10'000'000;

/// When files were last written about which nothing else is said.
inline constexpr std::uint64_t kBaseTime = 133'000'000'000'000'000;

/// What goes wrong at a port call. The outside faults hit an item just before the call: the item
/// that the call is about, the one that it leads to, or, at a call without a path, one of the
/// items of the last calls, as it happens while a dialog is open.
enum class Fault {
    None,
    Fail,          ///< The call does nothing and says so.
    Cancel,        ///< The person stops it, where that is possible; otherwise as Fail.
    NoObject,      ///< There is no operation object; for other calls as Fail.
    DoNothing,     ///< The call does nothing and claims success.
    Late,          ///< The call does all of its work and says that it failed.
    LateNoObject,  ///< A shell operation does its work and says that there was no object.
    Half,          ///< A shell operation breaks off: half a target is left. For other calls as Fail.
    KeepSource,    ///< A move by the shell leaves its source and fails. For other calls as Late.
    Vanish,        ///< Outside: the item is removed.
    Change,        ///< Outside: the file is written, or a new one is put into the folder.
    Swap,          ///< Outside: a folder takes the file's place, or a file the folder's.
    Appear,        ///< Outside: a file is put where the call leads to, if nothing stands there.
    VanishTarget,  ///< Outside: as Vanish, where the call leads to.
    ChangeTarget,  ///< Outside: as Change, where the call leads to.
};

inline constexpr std::array kAllFaults = {
    Fault::Fail,   Fault::Cancel,       Fault::NoObject,     Fault::DoNothing,   Fault::Late,
    Fault::Half,   Fault::KeepSource,   Fault::Vanish,       Fault::Change,      Fault::Swap,
    Fault::Appear, Fault::VanishTarget, Fault::ChangeTarget, Fault::LateNoObject};

/// One file that the shell transferred, or began to.
struct Transferred {
    std::wstring Source;
    std::wstring Target;
    std::string Content;
    std::uint64_t SourceTime = 0;
    std::uint32_t Flags = 0;
    std::optional<std::string> Overwritten;  ///< The content that the target had before.
    std::uint64_t OverwrittenTime = 0;
    bool PersonAgreed = false;      ///< The shell asked before it overwrote.
    bool SourceStays = false;       ///< The shell left the source where it was.
    bool TargetWasSeen = false;     ///< The run had found something at the file's target.
    bool TargetWasHidden = false;   ///< Nobody could look at the file's target.
    bool IsInRenamedPlace = false;  ///< What stood at the target was renamed, as the run was told.
    bool WasDeclined = false;       ///< The person had refused this file.
    std::uint32_t Policy = 0;       ///< The policy that held for this file.
};

/// What all ports of one model share.
class World {
public:
    Tree Files;

    /// Every port call as a line, when Logging is on.
    std::vector<std::wstring> Log;
    bool Logging = false;

    /// Decides the fault of call number `index` (from 0) to `port`; empty: nothing goes wrong.
    std::function<Fault(std::size_t index, std::wstring_view port)> Faults;
    std::size_t CallCount = 0;

    std::vector<std::string> Written;  ///< Every content that a file was ever given.
    std::set<std::string> Excused;     ///< Contents that somebody outside removed.
    std::set<std::wstring> Disturbed;  ///< Folded paths that somebody outside touched.
    std::vector<Transferred> Transfers;
    std::vector<std::wstring> RemovedFolders;
    std::set<std::wstring> FoldersHandedOver;   ///< Folded paths of folders that the shell took as a whole.
    std::set<std::wstring> HiddenAttributes;    ///< Folded paths whose attributes a fault hid.
    std::set<std::wstring> HiddenItems;         ///< Folded paths which a fault hid from a search.
    std::set<std::wstring> RenamedAway;         ///< Folded paths whose item was given another name.
    std::set<std::wstring> ToldRenamed;         ///< Folded paths for which a renaming claimed success.
    bool ServersWithSeparatorAreRoots = false;  ///< Of systems some take "\\server\" for a root.
    bool DatesDisturbed = false;                ///< A fault spoiled a conversion of a time.
    std::uint32_t RunPolicy = 0;
    std::optional<std::uint32_t> PolicyForOne;
    std::optional<bool> TargetWasSeen;       ///< What the first search for the file at hand found.
    bool TargetWasHidden = false;            ///< Nobody could tell the run what stands at the file's target.
    bool HasDeclined = false;                ///< The person refused the file at hand.
    bool HasStopped = false;                 ///< The person or the shell ended the run.
    std::vector<std::wstring> CallsTooLate;  ///< What changed something after the run was ended.

    /// Records a call on `path` that leads to `target`, and applies what comes from outside; the
    /// fault that remains for the port itself to act on.
    Fault Enter(std::wstring_view port, std::wstring_view path, std::wstring_view details = {},
                std::wstring_view target = {});

    /// Records a call that touches no path.
    Fault EnterPlain(std::wstring_view port, std::wstring_view details = {}) {
        return Enter(port, {}, details);
    }

    /// Adds a file with a content of its own and returns it.
    Node& AddUniqueFile(std::wstring_view path, std::uint64_t lastWriteTime);

    /// Gives `folder` the time at which an entry of it came, went or was renamed: later than any before.
    void Touch(Node& folder) noexcept { folder.LastWriteTime = ++now_; }

    /// The policy that holds for the file at hand.
    std::uint32_t EffectivePolicy() const { return PolicyForOne.value_or(RunPolicy); }

private:
    void Write(std::wstring_view port, std::wstring_view path, std::wstring_view details);
    void Remember(std::wstring_view path);
    void ActFromOutside(Fault fault, const std::wstring& path, const std::wstring& target);
    void Vanish(const std::wstring& path);
    void Change(const std::wstring& path);
    void Swap(const std::wstring& path);
    void Appear(const std::wstring& path);
    void Excuse(const Node& node);
    std::string UniqueContent();

    std::size_t contentCount_ = 0;
    std::uint64_t now_ = 140'000'000'000'000'000;
    std::array<std::wstring, 4> recent_;  ///< The paths of the last calls.
    std::size_t recentNext_ = 0;
};

/// Whether `fault` keeps a call from doing anything and lets it say so.
bool Stops(Fault fault) noexcept;

}  // namespace ferry::transfer::model

// The world of a model run: the tree, the record of every port call, and the faults.
#pragma once

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

/// What goes wrong at a port call.
enum class Fault {
    None,
    Fail,       ///< The call does nothing and says so.
    Cancel,     ///< The person stops it, where that is possible; otherwise as Fail.
    NoObject,   ///< There is no operation object; for other calls as Fail.
    DoNothing,  ///< The call does nothing and claims success.
    Vanish,     ///< Somebody removes the item just before the call.
    Change,     ///< Somebody writes the file, or puts a new one into the folder, just before.
};

/// One file that the shell transferred.
struct Transferred {
    std::wstring Source;
    std::wstring Target;
    std::string Content;
    std::uint64_t SourceTime = 0;
    std::optional<std::string> Overwritten;  ///< The content that the target had before.
    std::uint64_t OverwrittenTime = 0;
    bool PersonAgreed = false;  ///< The shell asked before it overwrote.
    std::uint32_t Policy = 0;   ///< The policy that held for this file.
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
    std::set<std::wstring> Disturbed;  ///< Folded paths that a fault touched.
    std::vector<Transferred> Transfers;
    std::vector<std::wstring> RemovedFolders;
    std::set<std::wstring> RenamedAway;  ///< Folded paths whose item was given another name.
    bool DatesDisturbed = false;         ///< A fault spoiled a conversion of a time.
    std::uint32_t RunPolicy = 0;
    std::optional<std::uint32_t> PolicyForOne;

    /// Records a call on `path` and applies what comes from outside; the fault that remains for
    /// the port itself to act on.
    Fault Enter(std::wstring_view port, std::wstring_view path, std::wstring_view details = {});

    /// Records a call that touches no path.
    Fault EnterPlain(std::wstring_view port, std::wstring_view details = {}) {
        return Enter(port, {}, details);
    }

    /// Adds a file with a content of its own and returns it.
    Node& AddUniqueFile(std::wstring_view path, std::uint64_t lastWriteTime);

    /// The policy that holds for the file at hand.
    std::uint32_t EffectivePolicy() const { return PolicyForOne.value_or(RunPolicy); }

private:
    void Vanish(std::wstring_view path);
    void Change(std::wstring_view path);
    void Excuse(const Node& node);
    std::string UniqueContent();

    std::size_t contentCount_ = 0;
};

}  // namespace ferry::transfer::model

// The machine as the world that a test script describes, and what the script has made of it.
#pragma once

#include <string>
#include <vector>

#include "core/scripts/moved_script.h"
#include "e2e/driver/settings_guard.h"

namespace ferry::e2e {

/// A test script that takes part.
struct StagedScript {
    std::string Place;  ///< Where a person finds it.
    scripttools::ScriptFile File;
    scripttools::Rehearsal Rehearsed;
};

/// Makes the folders, files, programs and the clipboard that a script wants, and clears them away at the end.
/// What the script writes into the registry is put back.
class ScriptStage {
public:
    /// All that the script may touch lies below `places`. The programs write into the log at `programLog`.
    ScriptStage(const StagedScript& script, scripttools::MovedPlaces places, std::wstring programLog);
    ~ScriptStage();
    ScriptStage(const ScriptStage&) = delete;
    ScriptStage& operator=(const ScriptStage&) = delete;

    /// How the machine differs from what the script should have left, a line each; empty when it does not.
    /// UTF-8.
    std::string Differences() const;

private:
    /// The values of a key as they were.
    struct KeptKey {
        std::wstring Path;
        StoredValues Values;
        std::vector<std::wstring> NewKeys;  ///< Of the key and those above it, what was not there.
    };

    void MakeFiles() const;
    void MakePrograms();
    void KeepKeys();
    void PutKeysBack() const;
    std::string FileDifferences() const;
    std::string ProgramDifferences() const;
    std::string RegistryDifferences() const;
    std::string ClipboardDifferences() const;
    bool UsesClipboard() const;

    const StagedScript& script_;
    scripttools::MovedPlaces places_;
    std::wstring programLog_;
    std::vector<std::wstring> programs_;
    std::vector<KeptKey> keys_;
};

}  // namespace ferry::e2e

// One run on the model world, and the check that it did no harm.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/transfer/model_ports.h"
#include "transfer/individual_run.h"

namespace ferry::transfer::model {

/// All that a run needs, in one place.
struct ModelRun {
    World Shared;
    ModelFileSystem Files{Shared};
    ModelClock Clock{Shared};
    ModelShell Shell{Shared};
    ModelQuestions Person{Shared};
    ModelProgress View{Shared};
    TransferRequest Request;
    Leftovers Left;  ///< What the last run left behind.

    /// Runs the request; false when it was stopped.
    bool Run();
};

/// Whether `later` is newer by `precision` in integer arithmetic, apart from the engine's own.
bool IsNewerByOracle(std::uint64_t later, std::uint64_t earlier, std::uint32_t precision);

/// Remembers a world before its run and judges it afterwards. The sources lie in C:\src; nothing
/// outside of it and of the destination may change.
class HarmCheck {
public:
    /// `run` must outlive the check. `overlaps`: the destination lies within C:\src, so that paths
    /// of the two trees cannot be told apart.
    HarmCheck(ModelRun& run, bool overlaps);

    /// What the run did that it must not do; empty when all is well.
    std::vector<std::string> Violations(bool finished);

private:
    void CheckContents();
    void CheckOverwrites();
    void CheckPlaces();
    void CheckConsent();
    void CheckCopiedSource();
    void CheckSkippedFiles();
    void CheckDestinationFiles();
    void CheckFolders(bool finished);
    void CheckRemovedFolders();
    void CheckHandedOverFolders();
    void CheckProgress(bool finished);
    void CheckOutside();
    void Report(const std::string& what, const std::wstring& path);
    bool IsDisturbed(const std::wstring& path) const;
    bool WasHandedOver(const std::wstring& path) const;
    std::vector<std::wstring> TargetsOf(const std::wstring& path) const;
    bool HasCounterpart(const std::wstring& folder, const std::set<std::wstring>& removed) const;
    bool IsMove() const;

    ModelRun& run_;
    bool overlaps_;
    std::map<std::wstring, std::string> sourceFiles_;
    std::map<std::wstring, std::string> destinationFiles_;
    std::vector<std::wstring> folders_;
    std::map<std::wstring, std::string> outside_;
    std::map<std::wstring, std::string> sourceLines_;
    std::vector<std::string> violations_;
};

}  // namespace ferry::transfer::model

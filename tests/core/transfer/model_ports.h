// The ports of a run, played by a model world.
#pragma once

#include <functional>
#include <string>

#include "core/calendar/standing_clock.h"
#include "core/transfer/model_world.h"
#include "transfer/ports.h"

namespace ferry::transfer::model {

/// The file system of the model.
class ModelFileSystem final : public files::FileInfo, public files::FolderSearch, public files::FileChanges {
public:
    explicit ModelFileSystem(World& world) noexcept : world_(world) {}

    std::uint32_t Attributes(std::wstring_view path) override;
    bool SetAttributes(std::wstring_view path, std::uint32_t attributes) override;
    std::uint32_t Search(std::wstring_view pattern,
                         const std::function<bool(const files::Match&)>& visit) override;
    std::optional<files::FoundItem> Find(std::wstring_view path) override;
    std::uint64_t Size(std::wstring_view path) override;
    int MakeFolder(std::wstring_view path) override;
    bool RemoveFolder(std::wstring_view path) override;
    bool Rename(std::wstring_view from, std::wstring_view to) override;
    void LetOthersClose() override { world_.EnterPlain(L"LetOthersClose"); }
    bool IsRoot(std::wstring_view path) override;
    std::optional<files::ItemId> Identity(std::wstring_view path) override;

    /// The most searches that were ever open at a time.
    int MostOpenSearches() const noexcept { return mostOpenSearches_; }

private:
    bool Move(std::wstring_view from, std::wstring_view to);
    bool MakeWithParents(std::wstring_view path);
    bool MakeOne(std::wstring_view path);

    World& world_;
    int openSearches_ = 0;
    int mostOpenSearches_ = 0;
};

/// The clock of the model.
class ModelClock final : public test::StandingClock {
public:
    explicit ModelClock(World& world) noexcept : world_(world) {}

    std::optional<calendar::CalendarFields> LocalTime(std::uint64_t fileTime) override;
    double LocalDate(std::uint64_t fileTime) override;

private:
    World& world_;
};

/// What the person answers when the shell asks about an existing item.
enum class ShellAnswer { Overwrite, Skip, Abort };

/// The shell's file operation on the model tree.
class ModelShell final : public ShellOperations {
public:
    explicit ModelShell(World& world) noexcept : world_(world) {}

    ShellOutcome Transfer(const ShellTransfer& transfer) override;
    BatchOutcome TransferAll(const base::TextList& sources, const ShellTransfer& batch) override;
    void NotifyFolderMade(std::wstring_view path) override;

    /// Skip when it is empty.
    std::function<ShellAnswer()> Answer;

private:
    /// How the shell puts one file into its place.
    struct Placing {
        const ShellTransfer& Transfer;
        Node& Source;
        Node& Folder;
        std::wstring Name;
        bool PersonAgreed = false;
        Fault What = Fault::None;
    };

    ShellOutcome Perform(const ShellTransfer& transfer, Fault fault);
    ShellOutcome Place(const Placing& placing);
    ShellOutcome PlaceIfAgreed(Placing& placing);
    ShellOutcome PlaceFolder(const Placing& placing);

    World& world_;
};

/// A person who answers by the given functions; without them, every question is cancelled.
class ModelQuestions final : public Questions {
public:
    explicit ModelQuestions(World& world) noexcept : world_(world) {}

    CollisionAnswer AskCollision(std::wstring_view name) override;
    NameAnswer AskNewName(RenameKind kind, std::wstring_view path) override;
    void ShowError(std::uint16_t message) override;

    std::function<CollisionAnswer()> Collision;
    std::function<NameAnswer()> NewName;
    std::vector<std::uint16_t> Errors;

private:
    void Refuse(bool stops);

    World& world_;
};

/// A progress view that counts.
class ModelProgress final : public Progress {
public:
    explicit ModelProgress(World& world) noexcept : world_(world) {}

    void SetRange(std::uint32_t count) override;
    bool DrainAndTakeCancel(Pause at) override;
    void Step() override;
    void ShowItem(std::wstring_view name) override;
    void ShowNow() override;

    std::vector<std::uint32_t> Ranges;
    std::vector<std::size_t> Steps;         ///< Per range.
    std::wstring Line;                      ///< The name of the last item.
    std::size_t FoldersRemovedAtRange = 0;  ///< How many folders were gone when the last range began.
    bool CancelRequested = false;
    std::vector<std::wstring> Shown;  ///< Steps and line, each time they had to be drawn at once.
    std::size_t Asked = 0;            ///< How often a listing asked whether to stop.
    std::size_t StopAtAsking = 0;     ///< At which asking the person has stopped it; 0: never.

private:
    World& world_;
};

}  // namespace ferry::transfer::model

// The model keeps the contract that the adapters keep.
#include "core/calendar/clock_contract.h"
#include "core/files/search_contract.h"
#include "core/transfer/model_ports.h"
#include "core/transfer/port_contract.h"
#include "core/transfer/progress_contract.h"

namespace ferry::transfer::contract {
namespace {

class ModelPlace final : public Place {
public:
    ModelPlace() { world_.Files.AddFolder(Root()); }

    files::FileInfo& Info() override { return files_; }
    files::FolderSearch& Search() override { return files_; }
    files::FileChanges& Changes() override { return files_; }
    ShellOperations& Shell() override { return shell_; }
    bool HasShell() const override { return true; }
    std::wstring Root() const override { return L"C:\\Temp\\Place"; }

    void WriteFile(const std::wstring& path, const std::string& content, std::uint64_t time) override {
        world_.Files.Detach(path);
        world_.Files.AddFile(path, content, time);
    }

    void SetTime(const std::wstring& path, std::uint64_t time) override {
        world_.Files.At(path)->LastWriteTime = time;
    }

    std::optional<std::string> ReadFile(const std::wstring& path) override {
        const model::Node* const node = world_.Files.At(path);
        return node == nullptr || node->IsFolder ? std::nullopt : std::optional(node->Content);
    }

private:
    model::World world_;
    model::ModelFileSystem files_{world_};
    model::ModelShell shell_{world_};
};

class ModelProgressPlace final : public ProgressPlace {
public:
    Progress& View() override { return view_; }
    void RequestCancel() override { view_.CancelRequested = true; }

    bool Shows(std::uint32_t position, std::uint32_t range, const std::wstring& line) override {
        const bool isEmpty = view_.Ranges.empty() && range == 0 && position == 0;
        return view_.Line == line &&
               (isEmpty || (view_.Ranges.back() == range && view_.Steps.back() == position));
    }

private:
    model::World world_;
    model::ModelProgress view_{world_};
};

class ModelFolders final : public files::contract::SearchPlace {
public:
    ModelFolders() { world_.Files.AddFolder(Folder()); }

    files::FolderSearch& Search() override { return files_; }
    std::wstring Folder() override { return L"C:\\Temp\\Place\\"; }
    void AddFolder(const std::wstring& name) override { world_.Files.AddFolder(Folder() + name); }
    void AddFile(const std::wstring& name) override { world_.Files.AddFile(Folder() + name, "x"); }
    void SetTimes(const std::wstring& name, const files::ItemTimes& times) override {
        model::Node& node = *world_.Files.At(Folder() + name);
        node.LastAccessTime = times.LastAccess;
        node.LastWriteTime = times.LastWrite;
    }

private:
    model::World world_;
    model::ModelFileSystem files_{world_};
};

/// The clock with a world of its own.
class ClockOfItsOwn final : public calendar::Clock {
public:
    calendar::CalendarFields Now() override { return clock_.Now(); }
    std::optional<calendar::CalendarFields> LocalTime(std::uint64_t time) override {
        return clock_.LocalTime(time);
    }
    double LocalDate(std::uint64_t time) override { return clock_.LocalDate(time); }

private:
    model::World world_;
    model::ModelClock clock_{world_};
};

INSTANTIATE_TEST_SUITE_P(Model, ProgressContract,
                         testing::Values(&test::Make<ProgressPlace, ModelProgressPlace>));
INSTANTIATE_TEST_SUITE_P(Model, FileSystemContract, testing::Values(&test::Make<Place, ModelPlace>));
INSTANTIATE_TEST_SUITE_P(Model, ShellContract, testing::Values(&test::Make<Place, ModelPlace>));

}  // namespace
}  // namespace ferry::transfer::contract

namespace ferry::files::contract {
INSTANTIATE_TEST_SUITE_P(Model, SearchContract,
                         testing::Values(&test::Make<SearchPlace, transfer::contract::ModelFolders>));
}  // namespace ferry::files::contract

namespace ferry::calendar::contract {
INSTANTIATE_TEST_SUITE_P(Model, ClockContract,
                         testing::Values(&test::Make<Clock, transfer::contract::ClockOfItsOwn>));
}  // namespace ferry::calendar::contract

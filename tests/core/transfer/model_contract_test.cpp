// The model keeps the contract that the adapters keep.
#include "core/transfer/model_ports.h"
#include "core/transfer/port_contract.h"
#include "core/transfer/progress_contract.h"

namespace ferry::transfer::contract {
namespace {

class ModelPlace final : public Place {
public:
    ModelPlace() { world_.Files.AddFolder(Root()); }

    FileSystem& Files() override { return files_; }
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

INSTANTIATE_TEST_SUITE_P(Model, ProgressContract,
                         testing::Values(&test::Make<ProgressPlace, ModelProgressPlace>));
INSTANTIATE_TEST_SUITE_P(Model, FileSystemContract, testing::Values(&test::Make<Place, ModelPlace>));
INSTANTIATE_TEST_SUITE_P(Model, ShellContract, testing::Values(&test::Make<Place, ModelPlace>));

}  // namespace
}  // namespace ferry::transfer::contract

// The message file in memory keeps the contract that the one on a disk keeps.
#include "core/lang/message_text.h"

#include "core/lang/source_contract.h"

namespace ferry::lang::contract {
namespace {

class MemoryPlace final : public Place {
public:
    CatalogueSource& Source() override { return source_; }
    void Write(std::wstring_view units) override { source_.File = units; }
    void Remove() override { source_.File.reset(); }

    bool Reports() override {
        const int before = source_.Reports;
        source_.ReportCannotOpen();
        return source_.Reports == before + 1;
    }

private:
    test::MessageText source_;
};

INSTANTIATE_TEST_SUITE_P(Memory, SourceContract, testing::Values(&test::Make<Place, MemoryPlace>));

}  // namespace
}  // namespace ferry::lang::contract

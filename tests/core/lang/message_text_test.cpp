// The text file in memory keeps the contract that those on a disk keep.
#include "core/lang/message_text.h"

#include "core/lang/text_files_contract.h"

namespace ferry::lang::contract {
namespace {

class MemoryPlace final : public Place {
public:
    TextFiles& Files() override { return text_; }
    std::wstring Path() override { return L"C:\\Lang\\Msg.ja-JP.txt"; }
    void Write(std::wstring_view units) override { text_.File = units; }
    void Remove() override { text_.File.reset(); }

private:
    test::MessageText text_;
};

INSTANTIATE_TEST_SUITE_P(Memory, TextFilesContract, testing::Values(&test::Make<Place, MemoryPlace>));

}  // namespace
}  // namespace ferry::lang::contract

// Registry values of wrong types, sizes and ranges.
#include "e2e/fixture.h"

namespace ferry::e2e {
namespace {

class HostileSettings : public FerryTest {};

const StoredValue kValues[] = {
    {REG_SZ, {'i', 0, 'n', 0, 'd', 0}},
    {REG_SZ, {}},
    {REG_SZ, {'x'}},
    {REG_BINARY, {1}},
    {REG_BINARY, {1, 2, 3}},
    {REG_BINARY, std::vector<BYTE>(70000, 0xEE)},
    {REG_QWORD, {1, 0, 0, 0, 0, 0, 0, 0}},
    {REG_MULTI_SZ, {'a', 0, 0, 0, 'b', 0}},
    {REG_DWORD, {0xFF, 0xFF, 0xFF, 0xFF}},
    {REG_DWORD, {0, 0, 0, 0x80}},
    {REG_DWORD, {99, 0, 0, 0}},
    {REG_NONE, {}},
};

TEST_F(HostileSettings, WrongValuesDoNotKeepTheDialogFromWorking) {
    for (const StoredValue& value : kValues) {
        SCOPED_TRACE(testing::Message() << "type " << value.Type << ", bytes " << value.Bytes.size());
        for (const wchar_t* name :
             {L"Mode", L"Name", L"1", L"OpenTarget", L"TimeCmpType", L"Ferry000", L"Ferry019"}) {
            WriteValue(kProgramKey, name, value);
        }
        ASSERT_TRUE(Open(Plan({L"C:\\Work\\a.txt"})));
        EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
    }
}

TEST_F(HostileSettings, WrongHostValuesDoNotKeepTheDialogFromWorking) {
    WriteNumber(kHostKey, L"NLS", 7);
    WriteText(kHostKey, L"LangOut", L"yes");
    WriteNumber(kHostKey, L"UserDir", 1);
    ASSERT_TRUE(Open(Plan({L"C:\\Work\\a.txt"})));
    EXPECT_TRUE(IsAliveAndUsable(Run(), Dialog()));
}

TEST_F(HostileSettings, APolicyBeyondTheLastOverwritesAsTheNumberOfOverwritingDoes) {
    const std::wstring file = Tree().WriteFile(L"元\\a.txt", "incoming");
    Tree().WriteFile(L"先\\a.txt", "existing and newer", 60);
    WriteNumber(kProgramKey, L"Mode", 1);
    WriteNumber(kProgramKey, L"Name", 99);
    ASSERT_TRUE(Open(Plan({file})));
    ASSERT_TRUE(Transfer(Tree().Path(L"先")));
    EXPECT_EQ(ReadBytes(Tree().Path(L"先\\a.txt")), "incoming");
}

}  // namespace
}  // namespace ferry::e2e

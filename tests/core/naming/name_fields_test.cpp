// A name in two fields, and back.
#include "naming/name_fields.h"

#include <gtest/gtest.h>

#include <utility>

namespace ferry::naming {
namespace {

TEST(NameFields, StandApartAtTheLastDot) {
    const std::pair<const wchar_t*, NameFields> cases[] = {
        {L"C:\\dir\\a.txt", {L"a", L"txt"}},   {L"C:\\a.b\\c.tar.gz", {L"c.tar", L"gz"}},
        {L"C:\\dir\\README", {L"README", {}}}, {L"C:\\dir\\ends.", {L"ends", {}}},
        {L"C:\\dir.d\\sub\\", {L"sub", {}}},   {L"C:\\資料\\表 1.xlsx", {L"表 1", L"xlsx"}},
    };
    for (const auto& [path, fields] : cases)
        EXPECT_EQ(FieldsOfName(path, true), fields);
}

TEST(NameFields, OfANameWithNothingBeforeItsLastDotHoldTheWholePath) {
    EXPECT_EQ(FieldsOfName(L"C:\\dir\\.profile", true), (NameFields{L"C:\\dir\\.profile", L"profile"}));
}

TEST(NameFields, HoldTheWholeNameInOneWhereTheyDoNotStandApart) {
    EXPECT_EQ(FieldsOfName(L"C:\\dir\\a.txt", false), (NameFields{L"a.txt", {}}));
    EXPECT_EQ(FieldsOfName(L"C:\\dir\\.profile", false), (NameFields{L".profile", {}}));
}

TEST(NameFields, MakeANameWithADotOnlyWhereThereIsAnExtension) {
    EXPECT_EQ(NameOfFields({L"a", L"txt"}), L"a.txt");
    EXPECT_EQ(NameOfFields({L"a", {}}), L"a");
    EXPECT_EQ(NameOfFields({{}, L"txt"}), L".txt");
    EXPECT_EQ(NameOfFields({{}, {}}), L"");
}

}  // namespace
}  // namespace ferry::naming

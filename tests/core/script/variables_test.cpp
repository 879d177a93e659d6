// Names, values and their place in texts.
#include "script/variables.h"

#include <gtest/gtest.h>

#include <random>

#include "base/text.h"
#include "base/utf16.h"
#include "script/limits.h"

namespace ferry::script {
namespace {

NameFault Fault(const Variables& variables, std::wstring_view name) {
    return variables.Check(name).Fault;
}

/// Variables with these names and values.
Variables Of(std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> rows) {
    Variables variables;
    for (const auto& [name, value] : rows) {
        variables.Declare(name);
        EXPECT_TRUE(variables.SetText(variables.Find(name), value));
    }
    return variables;
}

std::string Substituted(const Variables& variables, std::wstring text) {
    EXPECT_TRUE(variables.Substitute(text));
    return base::ToUtf8(text);
}

TEST(Declaration, IsANameWithAnOptionalBracket) {
    EXPECT_EQ(SplitDeclaration(L"a b")->Name, L"a b");
    EXPECT_EQ(SplitDeclaration(L"a b")->Bracket, std::nullopt);
    EXPECT_EQ(SplitDeclaration(L"a[b[0]]")->Name, L"a");
    EXPECT_EQ(SplitDeclaration(L"a[b[0]]")->Bracket, L"b[0]");
    EXPECT_EQ(SplitDeclaration(L"a[]")->Bracket, L"");
    for (const wchar_t* const text : {L"", L"[1]", L"a[1", L"a[1]x"}) {
        EXPECT_FALSE(SplitDeclaration(text)) << base::ToUtf8(text);
    }
}

TEST(Variables, RefuseNamesInAFixedOrder) {
    const Variables variables = Of({{L"index", L""}, {L"other", L""}, {L"dex", L""}});
    EXPECT_EQ(Fault(variables, L"GoTo"), NameFault::Reserved);
    EXPECT_EQ(Fault(variables, L"index"), NameFault::Declared);
    EXPECT_EQ(Fault(variables, L"Other"), NameFault::None);
    EXPECT_EQ(Fault(variables, L"nde"), NameFault::InsideOther);
    EXPECT_EQ(variables.Check(L"e").Other, 0U);
    EXPECT_EQ(variables.Check(L"t").Other, 1U);
    EXPECT_EQ(variables.Check(L"xother").Fault, NameFault::HoldsOther);
    EXPECT_EQ(variables.Check(L"dexother").Other, 1U);
    EXPECT_EQ(Fault(variables, L"xo"), NameFault::None);
}

TEST(Variables, AreSoManyAndNoMore) {
    Variables variables;
    for (std::size_t index = 0; index < kMaxVariables; ++index) {
        variables.Declare(ElementName(L"a", std::to_wstring(index)));
    }
    EXPECT_EQ(Fault(variables, L"b"), NameFault::TooMany);
    EXPECT_EQ(variables.Find(L"a[65535]"), 65535U);
    EXPECT_EQ(variables.Find(L"a[65536]"), NameIndex::kNone);
}

TEST(Substitution, GoesByTheOrderOfDeclaration) {
    EXPECT_EQ(Substituted(Of({{L"a", L"1"}, {L"b", L"2"}}), L"a+b=ab"), "1+2=12");
    // What a variable puts in is searched for the later ones in the same pass.
    EXPECT_EQ(Substituted(Of({{L"xy", L"1z"}, {L"yz", L"2"}}), L"xyz"), "1zz");
    EXPECT_EQ(Substituted(Of({{L"yz", L"2"}, {L"xy", L"1z"}}), L"xyz"), "x2");
    EXPECT_EQ(Substituted(Of({{L"aa", L"b"}}), L"aaaaa"), "bba");
}

TEST(Substitution, EndsWithTenPasses) {
    EXPECT_EQ(Substituted(Of({{L"q", L"q1"}}), L"q"), "q1111111111");
    EXPECT_EQ(Substituted(Of({{L"q", L"q"}}), L"q"), "q");
    EXPECT_EQ(Substituted(Of({{L"a", L"b"}, {L"b", L"a"}}), L"a"), "a");
    EXPECT_EQ(Substituted(Of({{L"c", L"!"}, {L"b", L"c"}, {L"a", L"b"}}), L"a"), "!");
}

TEST(Substitution, StopsATextThatGetsTooLong) {
    const Variables variables = Of({{L"q", L"qqqqqqqqqq"}});
    std::wstring text = L"q";
    EXPECT_FALSE(variables.Substitute(text));
    text.assign(kMaxValueUnits, L'x');
    EXPECT_TRUE(variables.Substitute(text));
}

/// As it is written down: pass by pass, variable by variable, each over the whole text.
/// Nothing when the text gets too long.
std::optional<std::wstring> SlowlySubstituted(const Variables& variables, std::wstring text) {
    bool isReplaced = true;
    for (int pass = 0; pass < kMaxSubstitutionPasses && isReplaced; ++pass) {
        isReplaced = false;
        for (std::uint32_t variable = 0; variable < variables.Count(); ++variable) {
            const std::wstring& name = variables.Name(variable);
            if (variables.Text(variable) != name && text.find(name) != std::wstring::npos) {
                text = base::ReplaceAll(text, name, variables.Text(variable));
                isReplaced = true;
                if (text.size() > kMaxValueUnits) {
                    return std::nullopt;
                }
            }
        }
    }
    return text;
}

TEST(Substitution, DoesWhatEachVariableInTurnWouldDo) {
    std::mt19937 random(12);
    const auto anyText = [&random](std::size_t length) {
        std::wstring text(random() % (length + 1), L' ');
        for (wchar_t& unit : text) {
            unit = L"abcd"[random() % 4];
        }
        return text;
    };
    int grown = 0;
    for (int round = 0; round < 1500; ++round) {
        Variables variables;
        for (int index = 0; index < 6; ++index) {
            const std::wstring name = anyText(3);
            if (!name.empty() && Fault(variables, name) == NameFault::None) {
                variables.Declare(name);
                ASSERT_TRUE(variables.SetText(variables.Find(name), anyText(3)));
            }
        }
        const std::wstring text = anyText(8);
        const std::optional<std::wstring> expected = SlowlySubstituted(variables, text);
        std::wstring actual = text;
        ASSERT_EQ(variables.Substitute(actual), expected.has_value()) << base::ToUtf8(text);
        if (expected) {
            ASSERT_EQ(actual, *expected) << base::ToUtf8(text);
        }
        grown += expected && expected->size() > 50 ? 1 : 0;
    }
    EXPECT_GT(grown, 0);
}

TEST(Variables, RememberTheRoomThatTheyTake) {
    Variables variables = Of({{L"a[", L""}});
    const std::wstring longText(kMaxValueUnits, L'x');
    for (int index = 0; index < 64; ++index) {
        const std::wstring name = ElementName(L"v", std::to_wstring(index));
        variables.Declare(name);
        ASSERT_TRUE(variables.SetText(variables.Find(name), longText));
    }
    EXPECT_FALSE(variables.SetText(0, L"x"));
    EXPECT_FALSE(variables.Append(0, L"x"));
    variables.SetNumber(1, 5);
    EXPECT_TRUE(variables.SetText(0, L"x"));
    EXPECT_EQ(variables.Text(1), L"5");
}

}  // namespace
}  // namespace ferry::script

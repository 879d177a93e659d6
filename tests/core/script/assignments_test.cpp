// What assigned texts do.
#include "script/assignments.h"

#include <gtest/gtest.h>

#include "base/utf16.h"
#include "script_run.h"

namespace ferry::script {
namespace {

TEST(Compute, WrapsAndTakesZeroForWhatCannotBeDivided) {
    EXPECT_EQ(Compute(INT64_MAX, L'+', 1), INT64_MIN);
    EXPECT_EQ(Compute(INT64_MIN, L'-', 1), INT64_MAX);
    EXPECT_EQ(Compute(INT64_MIN, L'*', -1), INT64_MIN);
    EXPECT_EQ(Compute(-7, L'/', 2), -3);
    EXPECT_EQ(Compute(-7, L'%', 2), -1);
    EXPECT_EQ(Compute(7, L'/', 0), 0);
    EXPECT_EQ(Compute(7, L'%', 0), 0);
    EXPECT_EQ(Compute(INT64_MIN, L'/', -1), INT64_MIN);
    EXPECT_EQ(Compute(INT64_MIN, L'%', -1), 0);
}

TEST(Call, IsANameWithArgumentsInParentheses) {
    EXPECT_EQ(SplitCall(L"  f_1(a,(b)) ")->Name, L"f_1");
    EXPECT_EQ(SplitCall(L"f(a,(b))")->Arguments, L"a,(b)");
    EXPECT_EQ(SplitCall(L"f()")->Arguments, L"");
    for (const wchar_t* const text :
         {L"", L" ", L"f", L"f(a", L"(a)", L"1f(a)", L"f (a)", L"f-(a)", L"f(a)b", L"f(a):\n", L"ｆ(a)"}) {
        EXPECT_FALSE(SplitCall(text)) << base::ToUtf8(text);
    }
}

/// The value of v after `assigned` texts, one after the other.
std::string ValueAfter(std::wstring_view assigned) {
    const Lines effects =
        EffectsOf(std::wstring(L"var v\nvar w\nw=7\n").append(assigned).append(L"\nmessagebox=0,<v>"));
    return effects.empty() ? "" : effects.back();
}

TEST(Assignment, TakesTextsAndOperations) {
    EXPECT_EQ(ValueAfter(L"v=a b"), "msg 0 <a b>");
    EXPECT_EQ(ValueAfter(L"v= a"), "msg 0 < a>");
    EXPECT_EQ(ValueAfter(L"v=5\nv=+2"), "msg 0 <7>");
    EXPECT_EQ(ValueAfter(L"v=+2"), "msg 0 <2>");
    EXPECT_EQ(ValueAfter(L"v=5\nv=-7"), "msg 0 <-2>");
    EXPECT_EQ(ValueAfter(L"v=5\nv=--7"), "msg 0 <12>");
    EXPECT_EQ(ValueAfter(L"v=5\nv=*0x10"), "msg 0 <80>");
    EXPECT_EQ(ValueAfter(L"v=0x10\nv=+1"), "msg 0 <17>");
    EXPECT_EQ(ValueAfter(L"v=010\nv=+1"), "msg 0 <11>");
    EXPECT_EQ(ValueAfter(L"v=17\nv=/5"), "msg 0 <3>");
    EXPECT_EQ(ValueAfter(L"v=17\nv=%5"), "msg 0 <2>");
    EXPECT_EQ(ValueAfter(L"v=17\nv=/0"), "msg 0 <0>");
    EXPECT_EQ(ValueAfter(L"v=17\nv=+w"), "msg 0 <24>");
    EXPECT_EQ(ValueAfter(L"v=17\nv=-w\nv=*w\nv=%w"), "msg 0 <0>");
    EXPECT_EQ(ValueAfter(L"v=17\nv=+ w"), "msg 0 <24>");
    EXPECT_EQ(ValueAfter(L"v=17\nv=&w"), "msg 0 <177>");
    EXPECT_EQ(ValueAfter(L"v=17\nv=& 1 "), "msg 0 <17 1>");
    EXPECT_EQ(ValueAfter(L"v=9223372036854775807\nv=+1"), "msg 0 <-9223372036854775808>");
    EXPECT_EQ(ValueAfter(L"v=abc\nv=+1"), "msg 0 <1>");
    // A value that begins with an operator makes an operation of a plain assignment.
    EXPECT_EQ(ValueAfter(L"v=10\nw=0\nw=-3\nv=w"), "msg 0 <7>");
}

TEST(Assignment, OfSumsAndOfTextsIsTheSame) {
    // A name that may stand inside a number is found there, too.
    EXPECT_EQ(EffectsOf(L"var v\nvar 1\n1=9\nv=5\nv=+1\nmessagebox=0,<v>"), Lines{"msg 0 <94>"});
    EXPECT_EQ(EffectsOf(L"var v\nvar w\nv=9\nw=3\nv=+w\nvar 12\n12=x\nif v==x\nmessagebox=0,yes\nendif"),
              Lines{"msg 0 yes"});
    EXPECT_EQ(EffectsOf(L"var v\nvar w\nv=1\nw=2\nvar +2\n+2=+40\nv=+w\nmessagebox=0,v"), Lines{"msg 0 40"});
}

TEST(Assignment, OfAnElementExpandsItsIndex) {
    EXPECT_EQ(EffectsOf(L"var i\nvar a[3]\ni=2\na[i]=x\nmessagebox=0,a[0]a[2]a[i]"), Lines{"msg 0 xx"});
    EXPECT_EQ(EffectsOf(L"var a[k]\na[k]=x\nmessagebox=0,a[k]"), Lines{"msg 0 x"});
    EXPECT_EQ(EffectsOf(L"var a[3]\ncheckgrammar=1\na[3]=x"),
              Lines{"ask This is the line that I do not understand.\nDo you want to continue?\n3:a[3]=x"});
}

TEST(Assignment, OfTooMuchHasNoEffect) {
    // Each round doubles the value, as long as it fits.
    const std::wstring doubling = L"var $v\nvar $n\n$n=0\n$v=x\ndo\n$v=&$v\n$n=+1\nwhile $n<19\n";
    EXPECT_EQ(EffectsOf(doubling + L"$v=&$v$v\n$v=right($v,1)\nmessagebox=0,$v"),
              (Lines{"err The value is too long.(1048576 characters)\n$v=&$v$v", "msg 0 x"}));
    EXPECT_EQ(EffectsOf(doubling + L"$v=Length($v)\nmessagebox=0,$v"), Lines{"msg 0 524288"});
}

}  // namespace
}  // namespace ferry::script

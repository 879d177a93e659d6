// What is found before a script runs.
#include "script/checker.h"

#include <gtest/gtest.h>

#include "base/utf16.h"
#include "script_run.h"

namespace ferry::script {
namespace {

constexpr const wchar_t* kPath = L"C:\\s\\main.txt";

/// The findings of `world` in short: kind, line, column and text.
Lines Found(FakeWorld& world) {
    Lines lines;
    for (const Finding& finding : Check(world, kPath)) {
        const std::string file = finding.File == kPath ? "" : base::ToUtf8(finding.File) + ' ';
        lines.push_back(file + NameOf(finding.Kind) + ' ' + std::to_string(finding.Line) + ':' +
                        std::to_string(finding.Column) + ' ' + base::ToUtf8(finding.Text));
    }
    return lines;
}

Lines FindingsIn(std::wstring_view text) {
    FakeWorld world;
    world.Texts[kPath] = text;
    return Found(world);
}

TEST(Checker, IsSilentAboutAGoodScript) {
    EXPECT_EQ(
        FindingsIn(
            L"// a good one\nvar $i\nvar $a[3]\nvar $n[key]\n$i=0\ndo\n  $a[$i]=Length(a,b)\n  $i=+1\n"
            L"  if $i>1\n    break\n  else\n    messagebox=0,$a[$i]\n  endif\nwhile $i<3\nfor\n"
            L"  if ?Ext?==.txt\n    exec=$i,?SelFile?\n    goto in\n    in:\n  "
            L"endif\nnext\n$n[key]=left($i,$i)\n"
            L"filewritew=\nselect=\ntimeout=5\nmessagebox=$i\npostmessage=1,2\ngetselectitems=$i\nend:\n"
            L"checkgrammar=1\nfileclose\nupdatestate\nEOF\nnonsense"),
        Lines{});
}

TEST(Checker, FindsLabels) {
    EXPECT_EQ(FindingsIn(L"goto x\nx:\n x:\ngoto y:\ngoto\nX:"),
              (Lines{"doubled-label 3:2 x", "undefined-label 4:1 y", "wrong-form 5:1 goto"}));
}

TEST(Checker, FindsBlocks) {
    EXPECT_EQ(FindingsIn(L"if 1==1\nfor\ndo\n"),
              (Lines{"unclosed-block 1:1 if 1==1", "unclosed-block 2:1 for", "unclosed-block 3:1 do"}));
    EXPECT_EQ(FindingsIn(L"else\nendif\nnext\nwhile 1==1\nbreak\ncontinue\nif 1==1\nelse\nelse\nendif"),
              (Lines{"unopened-block 1:1 else", "unopened-block 2:1 endif", "unopened-block 3:1 next",
                     "unopened-block 4:1 while 1==1", "unopened-block 5:1 break",
                     "unopened-block 6:1 continue", "unopened-block 9:1 else"}));
    EXPECT_EQ(FindingsIn(L"for\nwhile 1==1\nnext"), Lines{"unopened-block 2:1 while 1==1"});
}

TEST(Checker, FindsUnknownLines) {
    EXPECT_EQ(FindingsIn(L"hello\nmesagebox=0,a\nskip\nvar $a[2]\n$a[2]=x\n$b[0]=x\n$v=1\ngetselectitems=$v"),
              (Lines{"unknown-line 1:1 hello", "unknown-line 2:1 mesagebox=0,a", "unknown-line 3:1 skip",
                     "unknown-line 5:1 $a[2]=x", "unknown-line 6:1 $b[0]=x", "unknown-line 7:1 $v=1",
                     "unknown-line 8:1 getselectitems=$v"}));
}

TEST(Checker, FindsNames) {
    EXPECT_EQ(FindingsIn(L"var Next\nvar index\nvar index\nvar dex\nvar myindex\nvar\nvar a[\nvar a[999999]"),
              (Lines{"reserved-name 1:1 Next", "doubled-name 3:1 index", "overlapping-name 4:1 dex",
                     "overlapping-name 5:1 myindex", "wrong-form 6:1 var", "wrong-form 7:1 var a[",
                     "wrong-form 8:1 var a[999999]"}));
}

TEST(Checker, CountsArguments) {
    EXPECT_EQ(
        FindingsIn(
            L"var $v\nmessagebox=0\nmessagebox=\nwriteregnum=a,b\nwait=\npostmessage=1,2,3\n$v=left(a)\n"
            L"$v=replace(a,b,c,d)\n$v=Exist()\n$v=Nothing(1)\n$v=no (1)\nmessageboxok=a,b,c"),
        (Lines{"argument-count 2:1 messagebox=0",
               "argument-count 3:1 messagebox=", "argument-count 4:1 writeregnum=a,b",
               "argument-count 5:1 wait=", "argument-count 6:1 postmessage=1,2,3", "argument-count 7:1 left",
               "argument-count 8:1 replace", "argument-count 9:1 Exist", "unknown-function 10:1 Nothing"}));
}

TEST(Checker, FindsWrongForms) {
    EXPECT_EQ(FindingsIn(L"if\nendif\nif a=b\nendif\nmessagebox 0,a\npostmessagetab=1,2"),
              (Lines{"wrong-form 1:1 if", "wrong-form 3:1 if a=b", "wrong-form 5:1 messagebox 0,a",
                     "wrong-form 6:1 postmessagetab=1,2"}));
}

TEST(Checker, WarnsOfJumpsOutOfBranches) {
    EXPECT_EQ(FindingsIn(L"a:\nif 1==1\ngoto a\nif 1==1\ngoto b\nendif\nb:\nendif\ndo\nif "
                         L"1==1\ncontinue\nbreak\nendif\ncontinue\n"
                         L"while 1==1"),
              (Lines{"leaves-branch 3:1 goto a", "leaves-branch 5:1 goto b", "leaves-branch 11:1 continue"}));
    EXPECT_TRUE(IsWarning(FindingKind::LeavesBranch));
    EXPECT_FALSE(IsWarning(FindingKind::WrongForm));
}

TEST(Checker, FollowsIncludes) {
    FakeWorld world;
    world.Texts[kPath] =
        L"include=?ScriptPath?lib.txt\n include=C:\\no.txt\n$v=1\n$w=1\ninclude=C:\\s\\main.txt";
    world.Texts[L"C:\\s\\lib.txt"] = L"var $v\noops";
    EXPECT_EQ(Found(world), (Lines{"cannot-read 2:2 C:\\no.txt", "unknown-line 4:1 $w=1",
                                   "C:\\s\\lib.txt unknown-line 2:1 oops"}));
    world.Texts[kPath] = L"include=%User_dir%x\n$v=1";
    EXPECT_EQ(Found(world), Lines{});
    world.Texts.clear();
    EXPECT_EQ(Found(world), Lines{"cannot-read 1:1 C:\\s\\main.txt"});
}

}  // namespace
}  // namespace ferry::script

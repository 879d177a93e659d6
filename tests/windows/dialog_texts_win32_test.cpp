// Every dialog writes its texts for a translator where there are none, and shows those that are there.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>

#include "dialogs/busy_dialog.h"
#include "dialogs/ferry_dialog.h"
#include "dialogs/file_mode_dialog.h"
#include "dialogs/input_dialog.h"
#include "dialogs/report_dialog.h"
#include "texts/new_language.h"
#include "texts/text_tree.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"

namespace ferry::dialogs {
namespace {

using DialogMaker = std::function<std::unique_ptr<framework::CDialog>(Services&)>;

struct TextCase {
    const char* Name;
    int Template;
    DialogMaker Make;
    std::wstring FirstLines;
};

class DialogTexts : public testing::TestWithParam<TextCase> {
protected:
    DialogTexts() { world_.Store.HostTexts[L"NLS"] = L".xx-XX"; }

    void OpenAndClose() {
        const auto dialog = GetParam().Make(world_.Services());
        ASSERT_TRUE(dialog->Create(nullptr));
        title_ = test::TextOfWindow(dialog->Handle());
    }

    std::wstring Path() const {
        return folder_ / (L".xx-XX\\Ferry\\" + std::to_wstring(GetParam().Template) + L".txt");
    }

    test::TempFolder folder_;
    test::DialogWorld world_{folder_ / L"Ferry.exe"};
    std::wstring title_;
};

TEST_P(DialogTexts, AreWrittenWhereThereAreNone) {
    OpenAndClose();
    EXPECT_EQ(test::ReadUnits(Path()).substr(0, GetParam().FirstLines.size()), GetParam().FirstLines);
}

TEST_P(DialogTexts, AreReadWhereTheyLie) {
    test::MakeFolders(folder_ / L".xx-XX\\Ferry");
    const std::wstring text = L"\xFEFFTranslated\r\n";
    test::WriteUnits(Path(), text);
    OpenAndClose();
    // The rename dialog has the title that its caller wants.
    EXPECT_EQ(title_, GetParam().Template == 133 ? L"caption" : L"Translated");
    EXPECT_EQ(test::ReadUnits(Path()), text);
}

TEST_P(DialogTexts, AreWhatTranslatorsStartWith) {
    OpenAndClose();
    texts::TextTree tree(FERRY_ROOT);
    ASSERT_TRUE(tree.Load());
    const auto file = std::ranges::find(tree.Dialogs(), GetParam().Template,
                                        [](const texts::DialogFile& one) { return one.Dialog.Number; });
    ASSERT_NE(file, tree.Dialogs().end());
    EXPECT_EQ(test::ReadUnits(Path()), texts::StartDialogText(file->Dialog, L"").Units);
}

template <class Dialog, class... Arguments>
DialogMaker MakerOf(Arguments... arguments) {
    return [=](Services& services) { return std::make_unique<Dialog>(services, arguments...); };
}

std::string NameOfCase(const testing::TestParamInfo<TextCase>& info) {
    return info.param.Name;
}

INSTANTIATE_TEST_SUITE_P(
    All, DialogTexts,
    testing::Values(
        TextCase{"Confirmation", 102, MakerOf<CFerryDlg>(StartOptions(), HWND{}),
                 L"\xFEFFファイルの操作の確認\r\n1350\tStatic\t(9999999999)\r\n"},
        TextCase{"Progress", 131,
                 [](Services& services) { return std::make_unique<CDlgBusy>(services.Localiser); },
                 L"\xFEFF進捗状況\r\n1350\tStatic\txxx\r\n1352\tStatic\txxx\r\n2\tButton\t中止(&C)\r\n"},
        TextCase{"Rename", 133, MakerOf<CDlgInput>(HWND{}, std::wstring(L"caption"), std::wstring(L"C:\\a")),
                 L"\xFEFF名前の変更\r\n1353\tStatic\t"},
        TextCase{"Collision", 134, MakerOf<CDlgFileMode>(HWND{}, std::wstring(L"a.txt")),
                 L"\xFEFFファイル処理の確認\r\n1901\tStatic\tファイル名\r\n1900\tButton\t"},
        TextCase{"Report", 135,
                 [](Services& services) {
                     static const transfer::Leftovers nothing;
                     return std::make_unique<CDlgReport>(services.Localiser, nullptr, nothing);
                 },
                 L"\xFEFF処理できなかった項目\r\n1900\tStatic\t%2 項目のうち %1 "}),
    &NameOfCase);

}  // namespace
}  // namespace ferry::dialogs

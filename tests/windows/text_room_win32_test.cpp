// No text of a dialog is cut, in any language and at any scaling: texts and controls are measured in the font
// that dialogs have there.
#include <windows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "base/handles_win32.h"
#include "base/utf16.h"
#include "framework/controls.h"
#include "windows/any_dialog_win32.h"
#include "windows/dialog_template_win32.h"
#include "windows/dialog_world_win32.h"
#include "windows/support_win32.h"

namespace ferry::dialogs {
namespace {

constexpr int kPoints = 9;
constexpr wchar_t kFamily[] = L"MS Shell Dlg";

using FontHandle = base::UniqueResource<base::ReleasedBy<HFONT, &DeleteObject>>;
using MemoryContext = base::UniqueResource<base::ReleasedBy<HDC, &DeleteDC>>;

/// The font of dialogs at a scaling in percent.
class DialogFont {
public:
    explicit DialogFont(int percent) : percent_(percent) {
        const int height = -MulDiv(kPoints, MulDiv(USER_DEFAULT_SCREEN_DPI, percent, 100), 72);
        font_.Reset(CreateFontW(height, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0, 0, 0,
                                kFamily));
        context_.Reset(CreateCompatibleDC(nullptr));
        SelectObject(context_.Get(), font_.Get());
    }

    /// What four horizontal and eight vertical dialog units are in pixels, by the rule of the dialog manager:
    /// the mean of the Latin letters, and the height.
    SIZE Units() const {
        constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
        SIZE letters{};
        GetTextExtentPoint32W(context_.Get(), kLetters.data(), static_cast<int>(kLetters.size()), &letters);
        TEXTMETRICW metrics{};
        GetTextMetricsW(context_.Get(), &metrics);
        return {(letters.cx / 26 + 1) / 2, metrics.tmHeight};
    }

    /// Pixels of what has `pixels` at 100 %.
    int Scaled(int pixels) const { return MulDiv(pixels, percent_, 100); }

    /// The room of a control.
    SIZE RoomOf(const test::TemplateItem& item) const {
        const SIZE units = Units();
        return {MulDiv(item.Width, units.cx, 4), MulDiv(item.Height, units.cy, 8)};
    }

    /// The pixels that `text` needs; in lines of `width`, when that is not 0.
    SIZE Measure(const std::wstring& text, UINT flags, LONG width = 0) const {
        RECT box{0, 0, width, 0};
        DrawTextW(context_.Get(), text.data(), static_cast<int>(text.size()), &box,
                  DT_CALCRECT | flags | (width == 0 ? DT_SINGLELINE : DT_WORDBREAK));
        ABC last{};
        // What is blank behind the last letter may be cut. Fonts of bitmaps do not tell.
        if (!text.empty() && width == 0 &&
            GetCharABCWidthsW(context_.Get(), text.back(), text.back(), &last) != FALSE)
            box.right -= std::max(last.abcC, 0);
        return {box.right, box.bottom};
    }

    /// The family of the font itself, which may have another name than was asked for; empty for bitmaps.
    std::wstring Family() const {
        std::vector<std::byte> room(GetOutlineTextMetricsW(context_.Get(), 0, nullptr));
        if (room.empty())
            return {};
        auto* const metrics = reinterpret_cast<OUTLINETEXTMETRICW*>(room.data());
        GetOutlineTextMetricsW(context_.Get(), static_cast<UINT>(room.size()), metrics);
        // The name's place counts from the beginning.
        const auto place = reinterpret_cast<std::size_t>(metrics->otmpFamilyName);
        return reinterpret_cast<const wchar_t*>(room.data() + place);
    }

    bool HasJapaneseLetters() const {
        WORD glyph = 0;
        GetGlyphIndicesW(context_.Get(), L"あ", 1, &glyph, GGI_MARK_NONEXISTING_GLYPHS);
        return glyph != 0xFFFF;
    }

private:
    int percent_;
    FontHandle font_;
    MemoryContext context_;
};

class TextRoom : public testing::TestWithParam<std::tuple<const wchar_t*, int>> {
protected:
    TextRoom() { world_.Store.HostTexts[L"NLS"] = std::get<0>(GetParam()); }

    /// Looks at every control of dialog `id` that shows a text.
    void JudgeDialog(int id) {
        test::AnyDialog dialog(static_cast<UINT>(id), world_.Services().Localiser);
        ASSERT_TRUE(dialog.Create(nullptr));
        HWND control = GetWindow(dialog.Handle(), GW_CHILD);
        for (const test::TemplateItem& item : test::ReadDialogTemplate(id).Items) {
            ASSERT_NE(control, nullptr);
            ASSERT_EQ(GetDlgCtrlID(control), item.Id);
            if (item.Width > 0 && (item.Style & WS_VISIBLE) != 0)
                JudgeControl(control, item);
            control = GetWindow(control, GW_HWNDNEXT);
        }
    }

    std::size_t judged_ = 0;
    DialogFont font_{std::get<1>(GetParam())};

private:
    void JudgeControl(HWND control, const test::TemplateItem& item) {
        SCOPED_TRACE(item.Id);
        if (item.Class == L"combobox") {
            const auto count = static_cast<int>(SendMessageW(control, CB_GETCOUNT, 0, 0));
            for (int index = 0; index < count; ++index)
                JudgeEntry(framework::ItemTextOf(control, index), item);
            return;
        }
        const std::wstring text = test::TextOfWindow(control);
        if (text.empty())
            return;
        if (item.Class == L"button")
            JudgeButton(text, item);
        else if (item.Class == L"static" && (item.Style & SS_ELLIPSISMASK) == 0)
            JudgeLabel(text, item);
    }

    void JudgeLabel(const std::wstring& text, const test::TemplateItem& item) {
        const UINT flags = (item.Style & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0U;
        const SIZE room = font_.RoomOf(item);
        const SIZE oneLine = font_.Measure(text, flags);
        const bool isOneLine = oneLine.cx <= room.cx;
        Expect(text, isOneLine ? oneLine : font_.Measure(text, flags | DT_EXPANDTABS, room.cx), room);
    }

    void JudgeButton(const std::wstring& text, const test::TemplateItem& item) {
        SIZE room = font_.RoomOf(item);
        switch (item.Style & BS_TYPEMASK) {
            case BS_GROUPBOX:
                // The frame begins to the left of the text, and the text stands in its upper edge.
                room.cx -= font_.Scaled(7);
                break;
            case BS_AUTOCHECKBOX:
            case BS_AUTORADIOBUTTON:
                // The glyph and half a digit between it and the text.
                room.cx -= font_.Scaled(13) + font_.Measure(L"0", DT_NOPREFIX).cx / 2;
                break;
            default:
                // The frame and what a pressed button moves by.
                room.cx -= 2 * font_.Scaled(3);
                room.cy -= 2 * font_.Scaled(2);
        }
        Expect(text, font_.Measure(text, 0), room);
    }

    void JudgeEntry(const std::wstring& text, const test::TemplateItem& item) {
        // The arrow is as wide as that of a scroll bar; the height is that of the list when it is open.
        const LONG frame =
            GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(font_.Scaled(USER_DEFAULT_SCREEN_DPI))) +
            2 * font_.Scaled(3);
        const SIZE room = font_.RoomOf(item);
        Expect(text, font_.Measure(text, DT_NOPREFIX), {room.cx - frame, room.cy});
    }

    void Expect(const std::wstring& text, SIZE needed, SIZE room) {
        EXPECT_LE(needed.cx, room.cx) << base::ToUtf8(text);
        EXPECT_LE(needed.cy, room.cy) << base::ToUtf8(text);
        ++judged_;
    }

    test::DialogWorld world_;
};

TEST_P(TextRoom, IsEnoughForEveryTextOfEveryDialog) {
    const bool isJapanese = std::wstring_view(std::get<0>(GetParam())) == L".ja-JP";
    if (isJapanese && !font_.HasJapaneseLetters())
        GTEST_SKIP() << "the dialogs of this system have a font without Japanese letters";
    // Whoever runs this for another font than the usual one says so.
    wchar_t family[LF_FACESIZE] = L"";
    if (GetEnvironmentVariableW(L"FERRY_DIALOG_FAMILY", family, LF_FACESIZE) > 0) {
        ASSERT_EQ(font_.Family(), family);
    }
    for (const int id : test::TemplatesOfTheProgram()) {
        SCOPED_TRACE(id);
        JudgeDialog(id);
    }
    EXPECT_GE(judged_, 80U);
}

std::string NameOfRoom(const testing::TestParamInfo<std::tuple<const wchar_t*, int>>& info) {
    const bool isJapanese = std::wstring_view(std::get<0>(info.param)) == L".ja-JP";
    return (isJapanese ? "Japanese" : "English") + std::to_string(std::get<1>(info.param));
}

INSTANTIATE_TEST_SUITE_P(Scalings, TextRoom,
                         testing::Combine(testing::Values(L".ja-JP", L".en-US"),
                                          testing::Values(100, 125, 150, 200)),
                         NameOfRoom);

TEST(DialogFont, MakesTheDialogUnitsOfTheDialogManager) {
    test::DialogWorld world;
    test::AnyDialog dialog(static_cast<UINT>(test::TemplatesOfTheProgram().at(0)),
                           world.Services().Localiser);
    ASSERT_TRUE(dialog.Create(nullptr));
    RECT mapped{0, 0, 400, 800};
    ASSERT_TRUE(MapDialogRect(dialog.Handle(), &mapped));
    const auto dpi = static_cast<int>(GetDpiForWindow(dialog.Handle()));
    const SIZE units = DialogFont(MulDiv(dpi, 100, USER_DEFAULT_SCREEN_DPI)).Units();
    EXPECT_EQ(mapped.right, MulDiv(400, units.cx, 4));
    EXPECT_EQ(mapped.bottom, MulDiv(800, units.cy, 8));
}

}  // namespace
}  // namespace ferry::dialogs

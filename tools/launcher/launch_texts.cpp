#include "launcher/launch_texts.h"

#include <algorithm>

#include "base/text.h"
#include "lang/catalogue.h"

namespace ferry::launcher {

const Texts kEnglish = {
    .Help =
        L"Opens Ferry to copy or move files and folders.\n\n"
        L"FerryOpen [/c | /m] [/d FOLDER] [/tab FOLDER]... [/list FILE]... [/quiet] [--] PATH...\n\n"
        L"/c   copy (without a switch, too)\n"
        L"/m   move\n"
        L"/d FOLDER   the destination that is preset\n"
        L"/tab FOLDER   a further folder to choose as the destination\n"
        L"/list FILE   takes the paths in FILE, one on each line; - is the standard input\n"
        L"/quiet   says and asks nothing; what is missing shows in the exit code\n"
        L"/wait   allowed; FerryOpen always waits until Ferry has ended\n"
        L"--   only paths follow\n"
        L"/sendto install   puts copy and move into the menu \"Send to\" of the Explorer\n"
        L"/sendto remove   takes them away again\n\n"
        L"The last destinations can be chosen, too. Instead of \"/\" a switch may begin with \"-\".\n"
        L"Lists are UTF-8 or UTF-16. The exit code is Ferry's.",
    .UnknownSwitch = L"FerryOpen does not know this switch:\n%1",
    .MissingValue = L"The value of this switch is missing:\n%1",
    .WrongValue = L"This switch cannot have that value:\n%1",
    .SeeHelp =
        L"\n\nFerryOpen /? shows what there is. A path that begins with \"/\" or \"-\" stands behind \"--\".",
    .CannotTake = L"These cannot be copied or moved:",
    .Missing = L"%1  (does not exist)",
    .Wildcard = L"%1  (wildcards are not allowed)",
    .Malformed = L"%1  (is not a path)",
    .UnreadableList = L"%1  (the list cannot be read)",
    .StandardInput = L"The standard input",
    .More = L"and %1 more",
    .TooMany = L"%1 items beyond the 1,000,000 that fit",
    .GoOn = L"Go on with the other %1?",
    .NothingLeft = L"Nothing is left to copy or move.",
    .NoFerry = L"Ferry.exe is missing. It has to lie beside FerryOpen.exe:\n%1",
    .CannotStart = L"Ferry cannot be started:\n%1",
    .CannotShare = L"The items cannot be handed over to Ferry:\n%1",
    .CannotAddSendTo = L"The entries of \"Send to\" cannot be made:\n%1",
    .CannotRemoveSendTo = L"The entries of \"Send to\" cannot be removed:\n%1",
    .CopyLink = L"Ferry - copy.lnk",
    .MoveLink = L"Ferry - move.lnk",
};

const Texts kJapanese = {
    .Help =
        L"Ferry を開いてファイルやフォルダーをコピー・移動します。\n\n"
        L"FerryOpen [/c | /m] [/d フォルダー] [/tab フォルダー]... [/list ファイル]... [/quiet] [--] "
        L"パス...\n\n"
        L"/c   コピー（指定がないときも）\n"
        L"/m   移動\n"
        L"/d フォルダー   最初に表示する出力先\n"
        L"/tab フォルダー   出力先として選べるフォルダーの追加\n"
        L"/list ファイル   ファイルに 1 行に 1 つ書かれたパス。- は標準入力\n"
        L"/quiet   何も表示しない（終了コードのみ）\n"
        L"/wait   書いても同じです（FerryOpen はいつも Ferry の終了を待ちます）\n"
        L"--   この後はパスのみ\n"
        L"/sendto install   エクスプローラーの「送る」にコピーと移動を登録\n"
        L"/sendto remove   その登録を解除\n\n"
        L"最近の出力先も選べます。スイッチは「/」の代わりに「-」でも始められます。\n"
        L"リストは UTF-8 または UTF-16 です。終了コードは Ferry のものです。",
    .UnknownSwitch = L"FerryOpen にないスイッチです。\n%1",
    .MissingValue = L"スイッチの値がありません。\n%1",
    .WrongValue = L"スイッチの値が正しくありません。\n%1",
    .SeeHelp =
        L"\n\n使い方は FerryOpen /? で表示されます。「/」や「-」で始まるパスは「--」の後に書いてください。",
    .CannotTake = L"次のものはコピーも移動もできません。",
    .Missing = L"%1（存在しません）",
    .Wildcard = L"%1（ワイルドカードは使えません）",
    .Malformed = L"%1（パスではありません）",
    .UnreadableList = L"%1（リストを読み込めません）",
    .StandardInput = L"標準入力",
    .More = L"ほか %1 件",
    .TooMany = L"上限の 1,000,000 件を超えた %1 件",
    .GoOn = L"残りの %1 項目で続けますか?",
    .NothingLeft = L"コピーまたは移動するものがありません。",
    .NoFerry = L"Ferry.exe がありません。FerryOpen.exe と同じフォルダーに置いてください。\n%1",
    .CannotStart = L"Ferry を起動できません。\n%1",
    .CannotShare = L"Ferry に項目を渡せません。\n%1",
    .CannotAddSendTo = L"「送る」に登録できません。\n%1",
    .CannotRemoveSendTo = L"「送る」の登録を解除できません。\n%1",
    .CopyLink = L"Ferry - コピー.lnk",
    .MoveLink = L"Ferry - 移動.lnk",
};

namespace {

/// A box with more lines would not fit on a small screen.
constexpr std::size_t kMostShown = 10;

/// As much of a path as a line of a box holds; the end tells the name.
constexpr std::size_t kMostUnitsShown = 100;

std::wstring Shortened(std::wstring_view path) {
    if (path.size() <= kMostUnitsShown)
        return std::wstring(path);
    constexpr std::size_t kHead = kMostUnitsShown / 3;
    return std::wstring(path.substr(0, kHead)) + L"…" +
           std::wstring(path.substr(path.size() - (kMostUnitsShown - kHead - 1)));
}

/// `text` on one line: what is not a path may hold anything.
std::wstring OnOneLine(std::wstring text) {
    std::ranges::replace_if(text, [](wchar_t unit) { return unit < L' '; }, L' ');
    return text;
}

std::wstring_view FormOf(const Texts& texts, Reason reason) noexcept {
    switch (reason) {
        case Reason::Missing:
            return texts.Missing;
        case Reason::Wildcard:
            return texts.Wildcard;
        case Reason::UnreadableList:
            return texts.UnreadableList;
        case Reason::Malformed:
            break;
    }
    return texts.Malformed;
}

std::wstring LineOf(const Texts& texts, const Refusal& refusal) {
    const bool isStandardInput = refusal.Why == Reason::UnreadableList && refusal.Text == kStandardInput;
    const std::wstring shown =
        isStandardInput ? std::wstring(texts.StandardInput) : OnOneLine(Shortened(refusal.Text));
    return Filled(FormOf(texts, refusal.Why), shown);
}

std::wstring_view FormOf(const Texts& texts, MistakeKind kind) noexcept {
    switch (kind) {
        case MistakeKind::MissingValue:
            return texts.MissingValue;
        case MistakeKind::WrongValue:
            return texts.WrongValue;
        case MistakeKind::UnknownSwitch:
        case MistakeKind::None:
            break;
    }
    return texts.UnknownSwitch;
}

}  // namespace

const Texts& TextsFor(std::wstring_view languageSuffix) noexcept {
    return languageSuffix == lang::kBuiltInSuffix ? kJapanese : kEnglish;
}

std::wstring MistakeText(const Texts& texts, const Mistake& mistake) {
    return Filled(FormOf(texts, mistake.Kind), OnOneLine(Shortened(mistake.Argument))).append(texts.SeeHelp);
}

std::wstring RefusalText(const Texts& texts, const Selection& selection) {
    const auto& refusals = selection.Refusals;
    std::wstring text(texts.CannotTake);
    text += L'\n';
    // The line that tells of one more takes as much room as that one.
    const std::size_t shown = refusals.size() <= kMostShown + 1 ? refusals.size() : kMostShown;
    for (std::size_t index = 0; index < shown; ++index) {
        text.append(L"\n").append(LineOf(texts, refusals[index]));
    }
    if (shown < refusals.size())
        text.append(L"\n").append(Filled(texts.More, std::to_wstring(refusals.size() - shown)));
    if (selection.TooMany > 0)
        text.append(L"\n").append(Filled(texts.TooMany, std::to_wstring(selection.TooMany)));
    text += L"\n\n";
    return text.append(selection.Items.empty() ? std::wstring(texts.NothingLeft)
                                               : Filled(texts.GoOn, std::to_wstring(selection.Items.size())));
}

std::wstring Filled(std::wstring_view text, std::wstring_view value) {
    return base::ReplaceAll(text, L"%1", value);
}

}  // namespace ferry::launcher

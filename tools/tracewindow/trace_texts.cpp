#include "trace_texts.h"

#include <utility>

#include "base/text.h"
#include "script/shown_text.h"

namespace ferry::tracewindow {

const Texts kEnglish = {
    .ScriptLabel = L"Scri&pt:",
    .LinesLabel = L"Li&nes:",
    .VariablesLabel = L"&Variables:",
    .WholeLabel = L"&Whole text of what is selected:",
    .NumberLabel = L"L&ine:",
    .Toggle = L"Set or remove &hold  F9",
    .GoOn = L"&Go on  F5",
    .Step = L"One s&tep  F10",
    .HoldNothing = L"Stop ho&lding",
    .Clear = L"&Clear",
    .Save = L"&Save...",
    .MarkColumn = L"Mark",
    .NumberColumn = L"Line",
    .LineColumn = L"Text",
    .NameColumn = L"Name",
    .ValueColumn = L"Value",
    .Waiting = L"Waiting for a script with a line \"debug\".",
    .HeldAt = L"Held before line %1. The script waits for F5 or F10.",
    .LastLine = L"Last line: %1.",
    .Started = L"The script has started.",
    .NextIsHeld = L"The next line will be held.",
    .Unreadable = L"The script's file cannot be read.",
    .NotAFullPath = L"The script's path is not a full one, so its file is not read.",
    .NoSuchLine = L"This script has no line %1: it belongs to another one.",
    .Records = L"Records: %1.",
    .Malformed = L"Malformed: %1.",
    .Dropped = L"Only the last %1 are kept.",
    .CutValue = L"... (%1 characters)",
    .DroppedLines = L"%1 earlier records were not kept.",
    .NoLineNumber = L"Type the number of a line, or select one.",
    .CannotSave = L"The file cannot be written:\n%1",
    .FileKind = L"Text files",
};

const Texts kJapanese = {
    .ScriptLabel = L"スクリプト(&P):",
    .LinesLabel = L"行(&N):",
    .VariablesLabel = L"変数(&V):",
    .WholeLabel = L"選択項目の全文(&W):",
    .NumberLabel = L"行番号(&I):",
    .Toggle = L"停止位置の設定/解除(&H)  F9",
    .GoOn = L"続行(&G)  F5",
    .Step = L"1 行実行(&T)  F10",
    .HoldNothing = L"停止をすべて解除(&L)",
    .Clear = L"消去(&C)",
    .Save = L"保存(&S)...",
    .MarkColumn = L"印",
    .NumberColumn = L"行",
    .LineColumn = L"内容",
    .NameColumn = L"名前",
    .ValueColumn = L"値",
    .Waiting = L"「debug」の行を含むスクリプトを待っています。",
    .HeldAt = L"%1 行目の前で停止中です。F5 で続行、F10 で 1 行実行します。",
    .LastLine = L"最後の行: %1。",
    .Started = L"スクリプトが始まりました。",
    .NextIsHeld = L"次の行で停止します。",
    .Unreadable = L"スクリプトのファイルを読み取れません。",
    .NotAFullPath = L"スクリプトのパスがフルパスでないため、ファイルを読み取りません。",
    .NoSuchLine = L"このスクリプトに %1 行目はありません。別のスクリプトの行です。",
    .Records = L"記録: %1 件。",
    .Malformed = L"不正な記録: %1 件。",
    .Dropped = L"最後の %1 件だけを保持しています。",
    .CutValue = L"... (%1 文字)",
    .DroppedLines = L"これより前の %1 件の記録は保持されていません。",
    .NoLineNumber = L"行番号を入力するか、行を選択してください。",
    .CannotSave = L"ファイルに書き込めません:\n%1",
    .FileKind = L"テキスト ファイル",
};

namespace {

/// Sentences, one behind the other.
class Sentences {
public:
    void Add(std::wstring_view text, std::uint64_t number = 0) {
        if (!all_.empty())
            all_ += L"  ";
        all_ += Fill(text, std::to_wstring(number));
    }

    std::wstring All() && { return std::move(all_); }

private:
    std::wstring all_;
};

void AddPlace(Sentences& sentences, const TraceModel& model, const Situation& situation, const Texts& texts) {
    if (situation.HeldAt)
        sentences.Add(texts.HeldAt, *situation.HeldAt);
    else if (model.Line())
        sentences.Add(texts.LastLine, *model.Line());
    else if (model.LastStarted())
        sentences.Add(texts.Started);
    else
        sentences.Add(texts.Waiting);
    if (situation.IsNextHeld)
        sentences.Add(texts.NextIsHeld);
}

void AddFile(Sentences& sentences, const TraceModel& model, const Situation& situation, const Texts& texts) {
    if (!model.LastStarted())
        return;
    if (situation.Text == ScriptText::Unreadable)
        sentences.Add(texts.Unreadable);
    else if (situation.Text == ScriptText::NotAFullPath)
        sentences.Add(texts.NotAFullPath);
    else if (model.Line() && *model.Line() > situation.LineCount)
        sentences.Add(texts.NoSuchLine, *model.Line());
}

void AddCounts(Sentences& sentences, const TraceModel& model, const Texts& texts) {
    if (model.Count() == 0)
        return;
    sentences.Add(texts.Records, model.Count());
    if (model.MalformedCount() != 0)
        sentences.Add(texts.Malformed, model.MalformedCount());
    if (model.DroppedCount() != 0)
        sentences.Add(texts.Dropped, model.Count() - model.DroppedCount());
}

}  // namespace

std::wstring Fill(std::wstring_view text, std::wstring_view part) {
    return base::ReplaceAll(text, L"%1", part);
}

std::wstring ValueText(const TracedVariable& variable, const Texts& texts) {
    std::wstring text = scripttools::WithSigns(variable.Value);
    if (variable.IsCut())
        text += Fill(texts.CutValue, std::to_wstring(variable.Units));
    return text;
}

std::wstring FileText(const TraceModel& model, const Texts& texts) {
    std::wstring text;
    if (model.DroppedCount() != 0)
        text = Fill(texts.DroppedLines, std::to_wstring(model.DroppedCount())) + L"\r\n";
    return text + model.RecordLines();
}

std::wstring StatusText(const TraceModel& model, const Situation& situation, const Texts& texts) {
    Sentences sentences;
    AddPlace(sentences, model, situation, texts);
    AddFile(sentences, model, situation, texts);
    AddCounts(sentences, model, texts);
    return std::move(sentences).All();
}

}  // namespace ferry::tracewindow

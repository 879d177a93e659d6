// Templates and texts for them, in any units: whatever the dialogs are, their texts are judged, and the files
// that a language begins with are complete.
#include "fuzz_input.h"
#include "texts/dialog_check.h"
#include "texts/dialog_source.h"
#include "texts/message_check.h"
#include "texts/new_language.h"

namespace {

using namespace ferry;

void CheckDialog(const texts::DialogSource& dialog, std::wstring_view text, std::size_t lines) {
    for (const texts::Finding& finding : texts::CheckBuiltInTexts(dialog, L"a.rc"))
        fuzz::Require(finding.Line > 0 && finding.Line <= lines && !finding.What.empty(),
                      "a line of the source");
    for (const texts::Finding& finding : texts::CheckDialogText(dialog, text, L"1.txt"))
        fuzz::Require(finding.File == L"1.txt" && !finding.What.empty(), "a finding in the translation");
    const std::wstring started = texts::StartDialogText(dialog, text).Units;
    fuzz::Require(started.starts_with(L'\xFEFF') && started.ends_with(L"\r\n"), "a whole file");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::ExactUnits units(fuzz::UnitsOf(data, size));
    const std::wstring_view text = units.View();
    const texts::ResourceNumbers numbers = texts::ParseResourceNumbers(text);
    const std::size_t lines = text.size() + 1;
    const texts::DialogSources sources = texts::ParseDialogSource(text, numbers);
    for (const std::size_t line : sources.BadLines)
        fuzz::Require(line > 0 && line <= lines, "a bad line of the source");
    for (const texts::DialogSource& dialog : sources.Dialogs)
        CheckDialog(dialog, text, lines);
    texts::UsedNumbers used;
    texts::FindUsedNumbers(text, L"a.cpp", used);
    for (const texts::Finding& finding : texts::CheckMessages(text, L"Msg.txt", used))
        fuzz::Require(!finding.What.empty(), "a finding in the messages");
    texts::CompareMessages(text, L"Msg.txt", text.substr(text.size() / 2));
    return 0;
}

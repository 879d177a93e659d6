// Values, functions and conditions of any text, in both interpreters. A line feed divides the text: the
// first line is assigned, the second is a condition, the third a command's argument.
#include "core/script/literal/differential.h"
#include "fuzz_input.h"
#include "script_world.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace ferry;
    // UTF-8, in which made-up bytes are most often something that means something.
    const std::wstring text = base::FromUtf8({reinterpret_cast<const char*>(data), size});
    std::vector<std::wstring> parts(1);
    for (const wchar_t unit : text) {
        if (unit == L'\n')
            parts.emplace_back();
        else
            parts.back() += unit;
    }
    parts.resize(3);
    script::literal::ScriptCase one;
    one.World = fuzz::SmallWorld({});
    one.Statements = fuzz::kSmallBudget.Statements;
    script::literal::ScriptFile file;
    file.Path = fuzz::kScriptPath;
    file.Lines = {L"debug",
                  L"var va",
                  L"var n[2]",
                  L"n[1]=7",
                  L"va=abc",
                  L"va=" + parts[0],
                  L"if " + parts[1],
                  L"messageboxok=yes",
                  L"else",
                  L"messageboxok=no",
                  L"endif",
                  L"n[0]=" + parts[0],
                  L"messagebox=" + parts[2],
                  L"messageboxok=va|n[0]|n[1]"};
    one.Scripts = {file};
    const std::string difference = script::literal::DifferenceIn(one);
    fuzz::Require(difference.empty(), difference.c_str());
    return 0;
}

// A second interpreter of scripts, against which the program's own is compared.
#include "core/script/literal/literal_engine.h"

#include "core/script/literal/literal_run.h"

namespace ferry::script::literal {

RunResult LiteralEngine::Run(const std::wstring& path, std::vector<std::wstring>& selection) {
    Together together{world_, folders_, selection, {}, {}};
    together.Options = {{L"commandlineoption", L""}, {L"bootdir", L""},
                        {L"bootmode", L"0"},         {L"showwindow", L"1"},
                        {L"timeout", L"-1"},         {L"runwait", L"0"},
                        {L"sendinfomode", L"0"},     {L"multicommandmode", L"0"},
                        {L"shiftsilentmode", L"1"},  {L"filter", L""},
                        {L"exitloopcount", L"5"},    {L"checkgrammar", L"0"},
                        {L"openmode", L"0"}};
    LiteralRun run(together, path, 0, false, std::nullopt);
    return run.Run() == Course::AllEnd ? RunResult::EndedAll : RunResult::Ended;
}

}  // namespace ferry::script::literal

#include "script/engine.h"

#include "script/executor.h"

namespace ferry::script {

RunResult Engine::Run(const std::wstring& path, std::vector<std::wstring>& selection) {
    Variables variables;
    Options options;
    Selection items(selection);
    const SharedState shared{world_, variables, options, items, folders_, result_, running_};
    ScriptStart start;
    start.Path = path;
    return Executor(shared, std::move(start)).Run() == Ending::EndedAll ? RunResult::EndedAll
                                                                        : RunResult::Ended;
}

std::optional<ScriptPlace> Engine::Place() const {
    return running_ != nullptr ? std::optional(running_->Place()) : std::nullopt;
}

}  // namespace ferry::script

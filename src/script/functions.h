// The functions whose result a variable takes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "script/assignments.h"
#include "script/ports.h"
#include "script/script_files.h"
#include "script/words.h"

namespace ferry::script {

/// What a statement came to.
enum class Outcome : std::uint8_t {
    Done,
    SyntaxError,   ///< An argument is missing.
    IllegalCall,   ///< A function that nobody knows or that cannot be carried out.
    NotOpen,       ///< A file that is not open, or could not be opened.
    NotWritten,    ///< A file that did not take what was written.
    NotStarted,    ///< A program that could not be started.
    TooLong,       ///< A text longer than kMaxValueUnits.
    TooMuch,       ///< More text in all than kMaxGatheredUnits.
    TooManyItems,  ///< More selected items than kMaxItems.
    EndRun,        ///< Not an error: the run ends.
};

/// Carries out calls of functions for one run.
class Functions {
public:
    /// `world` must outlive this object.
    explicit Functions(const World& world) : world_(world), lines_(world.ByteFiles) {}

    /// Puts the result of `call` into `result`, and says whether there is one.
    Outcome Call(const CallParts& call, std::wstring& result);

private:
    using Arguments = std::vector<std::wstring_view>;

    Outcome OfPath(FunctionId id, std::wstring_view path, std::wstring& result);
    Outcome OfText(FunctionId id, const Arguments& arguments, std::wstring& result);
    Outcome OfSystem(FunctionId id, std::wstring_view argument, std::wstring& result);
    Outcome ReadLine(std::wstring_view path, std::wstring& result);
    Outcome ReadAll(std::wstring_view path, std::wstring& result);
    Outcome Choose(std::wstring_view from, std::wstring& result);
    std::vector<std::wstring> FilesIn(std::wstring_view folder);

    const World& world_;
    LineFile lines_;
};

}  // namespace ferry::script

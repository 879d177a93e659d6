// Scripts against programs of another language that are written the same way: against Tcl where the host has
// it, against batch files on Windows. Whole programs are timed, their start included.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "comparison.h"
#include "run_program.h"
#include "script_programs.h"

namespace {

using namespace ferry::bench;
namespace fs = std::filesystem;

// At most what Tcl takes natively, and a tenth of what a batch file does.
#ifdef _WIN32
constexpr Language kOther = Language::Batch;
constexpr double kScriptGoal = 0.1;
constexpr char kOtherName[] = ", against a batch file";
constexpr char kRunnerName[] = "FerryScript.exe";
#else
constexpr Language kOther = Language::Tcl;
constexpr double kScriptGoal = 1.0;
constexpr char kOtherName[] = ", against Tcl";
constexpr char kRunnerName[] = "ferry-script";
// What costs the same comes out like this or better on a busy machine.
constexpr double kSameCost = 1.2;
#endif

class Ground {
public:
    explicit Ground(fs::path runner)
        : runner_(std::move(runner)), folder_(fs::temp_directory_path() / "ferry_script_bench") {
        fs::create_directories(folder_);
    }
    Ground(const Ground&) = delete;
    Ground& operator=(const Ground&) = delete;
    ~Ground() {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    /// The side that runs `program` in `language`.
    Side Runs(const Program& program, Language language) {
        const fs::path file = folder_ / ("program" + std::to_string(++count_) + ExtensionOf(language));
        Write(file, program.In(language), language);
        const fs::path items = folder_ / "items.txt";
        std::vector<fs::path> command;
        if (language == Language::Script)
            command = {runner_, "run", "--pretend", file};
        else if (language == Language::Tcl)
            command = {"tclsh", file};
        else
            command = {"cmd", "/c", file};
        if (program.TakesItems) {
            WriteItems(items, std::stoi(program.Result.substr(1)));
            // A batch file finds them beside itself: its interpreter makes one of two quoted arguments.
            if (language == Language::Script)
                command.insert(command.end(), {"--select-from", items});
            else if (language == Language::Tcl)
                command.push_back(items);
        }
        return [command, expected = program.Result]() -> std::optional<double> {
            std::string output;
            const double spent = MillisecondsOf([&] { output = OutputOf(command); });
            if (output.find(expected) != std::string::npos)
                return spent;
            std::fprintf(stderr, "%s did not print %s but %s\n", command.back().string().c_str(),
                         expected.c_str(), output.substr(0, 200).c_str());
            return std::nullopt;
        };
    }

private:
    static const char* ExtensionOf(Language language) {
        return language == Language::Script ? ".txt" : language == Language::Tcl ? ".tcl" : ".bat";
    }

    /// Scripts are UTF-16LE, the others as they are.
    static void Write(const fs::path& file, const std::string& text, Language language) {
        std::ofstream out(file, std::ios::binary);
        if (language == Language::Script)
            out << "\xFF\xFE";
        for (const char unit : text) {
            if (unit == '\n' && language != Language::Tcl)
                Put(out, '\r', language);
            Put(out, unit, language);
        }
    }

    static void Put(std::ofstream& out, char unit, Language language) {
        out.put(unit);
        if (language == Language::Script)
            out.put('\0');
    }

    static void WriteItems(const fs::path& file, int count) {
        std::ofstream out(file);
        for (const std::string& item : Items(count)) {
            out << item << "\n";
        }
    }

    fs::path runner_;
    fs::path folder_;
    int count_ = 0;
};

bool CompareWithOther(Ground& ground, const Program& program) {
    return Compare({ground.Runs(program, Language::Script), ground.Runs(program, kOther)},
                   {{"script: " + program.Name + kOtherName, 0, 1, kScriptGoal}});
}

#ifndef _WIN32
/// That the cost of `larger` is that of `smaller`.
bool CompareSizes(Ground& ground, const std::string& name, const Program& larger, const Program& smaller) {
    return Compare({ground.Runs(larger, Language::Script), ground.Runs(smaller, Language::Script)},
                   {{"script: " + name, 0, 1, kSameCost}});
}
#endif

bool MeasureScripts(const fs::path& runner) {
    Ground ground(runner);
    bool isMeasured = true;
#ifdef _WIN32
    // A batch file is read anew at each jump, and its texts end at 8,191 characters; more takes minutes.
    isMeasured &= CompareWithOther(ground, CountingLoop(20'000));
    isMeasured &= CompareWithOther(ground, TextLoop(25, 700));
    isMeasured &= CompareWithOther(ground, ItemLoop(10'000));
    isMeasured &= CompareWithOther(ground, ManyVariables(200, 150));
    isMeasured &= CompareWithOther(ground, LongJump(20'000, 2));
#else
    isMeasured &= CompareWithOther(ground, CountingLoop(1'000'000));
    isMeasured &= CompareWithOther(ground, TextLoop(1, 100'000));
    isMeasured &= CompareWithOther(ground, ItemLoop(10'000));
    isMeasured &= CompareWithOther(ground, ManyVariables(200, 5'000));
    isMeasured &= CompareWithOther(ground, LongJump(20'000, 50));
    isMeasured &= CompareSizes(ground, "the same statements in 40000 lines instead of 20000",
                               LongJump(40'000, 100), LongJump(20'000, 200));
    isMeasured &= CompareSizes(ground, "the same loop beside 4000 variables instead of 2000",
                               CountingLoop(4'000'000, 4'000), CountingLoop(4'000'000, 2'000));
#endif
    return isMeasured;
}

}  // namespace

int main(int, char** arguments) {
    // It is built beside this program.
    const fs::path runner = fs::absolute(arguments[0]).parent_path() / "../../tools/script" / kRunnerName;
    return ResultOf([&] { return MeasureScripts(runner.lexically_normal()); });
}

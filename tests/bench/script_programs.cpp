#include "script_programs.h"

namespace ferry::bench {
namespace {

std::string Text(int number) {
    return std::to_string(number);
}

/// A name that holds no other one.
std::string Variable(int index) {
    const std::string digits = Text(index);
    return "v" + std::string(4 - digits.size(), '0') + digits;
}

}  // namespace

Program CountingLoop(int rounds, int spare) {
    std::string names;
    for (int index = 0; index < spare; ++index) {
        names += "var " + Variable(index) + "\n";
    }
    return {"a counting loop of " + Text(rounds) + " rounds",
            names + "var q\nq=0\ndo\nq=+1\nwhile q<" + Text(rounds) + "\nmessagebox=0,[q]\n",
            "set q 0\nwhile 1 {\n  set q [expr {$q + 1}]\n  if {!($q < " + Text(rounds) +
                ")} break\n}\nputs \"\\[$q\\]\"\n",
            "@echo off\nset q=0\n:again\nset /a q=q+1 >nul\nif %q% lss " + Text(rounds) +
                " goto again\necho [%q%]\n",
            "[" + Text(rounds) + "]"};
}

Program TextLoop(int texts, int pieces) {
    const std::string last = Text(10 * (pieces - 1));
    return {"a loop that builds " + (texts == 1 ? "a text" : Text(texts) + " texts") + " of " + Text(pieces) +
                " pieces",
            "var whole\nvar q\nvar z\nz=0\ndo\nwhole=\nq=0\ndo\nwhole=&0123456789\nq=+1\nwhile q<" +
                Text(pieces) + "\nz=+1\nwhile z<" + Text(texts) + "\nq=SubString(whole," + last +
                ",10)\nmessagebox=0,[z q]\n",
            "set r 0\nwhile 1 {\n  set whole {}\n  set q 0\n  while 1 {\n    append whole 0123456789\n"
            "    set q [expr {$q + 1}]\n    if {!($q < " +
                Text(pieces) + ")} break\n  }\n  set r [expr {$r + 1}]\n  if {!($r < " + Text(texts) +
                ")} break\n}\nputs \"\\[$r [string range $whole " + last + " end]\\]\"\n",
            "@echo off\nset r=0\n:text\nset whole=\nset q=0\n:piece\nset whole=%whole%0123456789\n"
            "set /a q=q+1 >nul\nif %q% lss " +
                Text(pieces) + " goto piece\nset /a r=r+1 >nul\nif %r% lss " + Text(texts) +
                " goto text\necho [%r% %whole:~" + last + "%]\n",
            "[" + Text(texts) + " 0123456789]"};
}

Program ItemLoop(int items) {
    return {
        "a loop over " + Text(items) + " items",
        "var part\nvar q\nq=0\nfor\npart=?Name?_?Ext?\nq=+1\nnext\nmessagebox=0,[q part]\n",
        "set file [open [lindex $argv 0]]\nset q 0\nforeach item [split [string trim [read $file]] \\n] {\n"
        "  set part \"[file rootname [file tail [string map {\\\\ /} $item]]]_[file extension $item]\"\n"
        "  set q [expr {$q + 1}]\n}\nputs \"\\[$q $part\\]\"\n",
        "@echo off\nset q=0\nfor /f \"usebackq delims=\" %%i in (\"%~dp0items.txt\") do call :one %%i\necho "
        "[%q% %part%]\ngoto :eof\n"
        ":one\nset part=%~n1_%~x1\nset /a q=q+1 >nul\ngoto :eof\n",
        "[" + Text(items) + " item" + Text(items - 1) + "_.txt]",
        true};
}

Program ManyVariables(int count, int rounds) {
    Program program;
    program.Name = "a loop over " + Text(count) + " variables";
    program.Result = "[" + Text(rounds) + "]";
    std::string script = "var q\n";
    std::string tcl;
    std::string steps;
    std::string tclSteps;
    std::string batch = "@echo off\nset q=0\n";
    std::string batchSteps;
    for (int index = 0; index < count; ++index) {
        const std::string name = Variable(index);
        script += "var " + name + "\n" + name + "=0\n";
        tcl += "set " + name + " 0\n";
        steps += name + "=+1\n";
        tclSteps += "  set " + name + " [expr {$" + name + " + 1}]\n";
        batch += "set " + name + "=0\n";
        batchSteps += "set /a " + name + "=" + name + "+1 >nul\n";
    }
    const std::string last = Variable(count - 1);
    program.Script =
        script + "q=0\ndo\n" + steps + "q=+1\nwhile q<" + Text(rounds) + "\nmessagebox=0,[" + last + "]\n";
    program.Tcl = tcl + "set q 0\nwhile 1 {\n" + tclSteps + "  set q [expr {$q + 1}]\n  if {!($q < " +
                  Text(rounds) + ")} break\n}\nputs \"\\[$" + last + "\\]\"\n";
    program.Batch = batch + ":again\n" + batchSteps + "set /a q=q+1 >nul\nif %q% lss " + Text(rounds) +
                    " goto again\necho [%" + last + "%]\n";
    return program;
}

Program LongJump(int lines, int rounds) {
    std::string script = "var q\nq=0\nexitloopcount=" + Text(rounds) + "\nstart:\n";
    std::string tcl = "set q 0\nset r 0\nwhile 1 {\n";
    std::string batch = "@echo off\nset q=0\nset r=0\n:start\n";
    const int steps = lines - 8;
    for (int line = 0; line < steps; ++line) {
        script += "q=+1\n";
        tcl += "  set q [expr {$q + 1}]\n";
        batch += "set /a q=q+1 >nul\n";
    }
    const std::string whole = Text(steps * rounds);
    script += "if q<" + whole + "\ngoto start\nendif\nmessagebox=0,[q]\n";
    tcl += "  if {!($q < " + whole + ")} break\n}\nputs \"\\[$q\\]\"\n";
    batch += "if %q% lss " + whole + " goto start\necho [%q%]\n";
    return {"a script of " + Text(lines) + " lines with a jump from its end to its start", script, tcl,
            rounds < 3 ? batch : std::string(), "[" + whole + "]"};
}

std::vector<std::string> Items(int count) {
    std::vector<std::string> items;
    for (int index = 0; index < count; ++index) {
        items.push_back("C:\\folder\\item" + Text(index) + ".txt");
    }
    return items;
}

}  // namespace ferry::bench

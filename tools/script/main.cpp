// ferry-script: tries scripts out, where this is no Windows.
#include <iostream>

#include "script_program.h"

int main(int count, char** arguments) {
    using namespace ferry::scripttools;
    const Arguments given(arguments + (count > 0 ? 1 : 0), arguments + count);
    return static_cast<int>(RunScriptProgram(given, {std::cout, std::cerr}));
}

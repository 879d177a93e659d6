// ferry-texts: for translators.
#include <iostream>

#include "texts/texts_program.h"

int main(int count, char** arguments) {
    using namespace ferry::texts;
    const Arguments given(arguments + (count > 0 ? 1 : 0), arguments + count);
    return static_cast<int>(RunTextsProgram(given, std::cout, std::cerr));
}

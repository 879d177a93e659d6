// The dialogs as their templates describe them, read from the sources of the resources.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "lang/dialog_text.h"

namespace ferry::texts {

/// What a control shows of its text.
enum class Shape {
    Label,        ///< All of it, over as many lines as it is high.
    Button,       ///< All of it, within a frame.
    Choice,       ///< All of it, behind the box or the circle.
    Frame,        ///< All of it, in the upper edge.
    List,         ///< One entry, before the arrow.
    NotMeasured,  ///< It scrolls, is never shown, or shortens what does not fit.
};

/// A control of a template. Lengths are dialog units.
struct ControlSource {
    lang::ControlText Texts;  ///< Its number, window class, text and entries.
    Shape Looks = Shape::NotMeasured;
    int Width = 0;
    int Height = 0;
    bool IsShown = true;       ///< The template does not hide it for ever.
    bool HasMnemonics = true;  ///< "&" stands before the letter that leads to it.
    std::size_t Line = 0;      ///< Where it stands in its source, from 1.
};

struct DialogSource {
    int Number = 0;
    std::wstring Title;
    std::size_t TitleLine = 0;
    int Width = 0;
    std::vector<ControlSource> Controls;  ///< In window order.
};

/// The numbers behind the names of a header.
using ResourceNumbers = std::map<std::wstring, int, std::less<>>;

/// The numbers that the lines "#define NAME NUMBER" of `header` give, and those of the usual buttons.
ResourceNumbers ParseResourceNumbers(std::wstring_view header);

struct DialogSources {
    std::vector<DialogSource> Dialogs;
    std::vector<std::size_t> BadLines;  ///< Lines within a dialog that were not understood.
};

/// The dialogs that `source`, a file of resources, describes. Entries of lists stand elsewhere.
DialogSources ParseDialogSource(std::wstring_view source, const ResourceNumbers& numbers);

}  // namespace ferry::texts

// Speaks to the person in front of the screen.
#pragma once

#include <string>

namespace ferry::lang {

/// How a text is meant; the mark beside it says so.
enum class Tone { Plain, Warning, Error, Question };

/// The one voice of the program.
class Speaker {
public:
    virtual ~Speaker() = default;

    /// Shows `text` until the person has read it.
    virtual void Tell(const std::wstring& text, Tone tone) = 0;

    /// Asks for a yes.
    virtual bool Ask(const std::wstring& question, Tone tone) = 0;
};

}  // namespace ferry::lang

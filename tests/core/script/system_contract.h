// What scripts rely on in the system around them. The system and the one that is made up are held against the
// same tests.
#pragma once

#include <string>

#include "script/ports.h"
#include "support/contract.h"

namespace ferry::script::contract {

/// The clipboard under test, and another program that uses it.
class ClipboardPlace {
public:
    virtual ~ClipboardPlace() = default;

    virtual Clipboard& TheClipboard() = 0;

    /// The other program copies `text`.
    virtual void Copy(const std::wstring& text) = 0;

    /// The other program empties the clipboard.
    virtual void Clear() = 0;

    /// What the other program pastes.
    virtual std::wstring Pasted() = 0;
};

class ClipboardContract : public test::ContractOf<ClipboardPlace> {};

/// The surroundings under test.
class SurroundingsPlace {
public:
    virtual ~SurroundingsPlace() = default;

    virtual Surroundings& TheSurroundings() = 0;

    /// Gives the environment's variable `name` a value.
    virtual void SetVariable(const std::wstring& name, const std::wstring& value) = 0;

    /// The current folder, on a drive, without a separator at its end.
    virtual std::wstring CurrentFolder() = 0;

    /// Whether the narrow encoding has a place for every character.
    virtual bool IsNarrowComplete() = 0;
};

class SurroundingsContract : public test::ContractOf<SurroundingsPlace> {
protected:
    Surroundings& Around() { return AtPlace().TheSurroundings(); }
};

/// Homes, chance and pace under test.
class SmallPlace {
public:
    virtual ~SmallPlace() = default;

    virtual Homes& TheHomes() = 0;
    virtual Chance& TheChance() = 0;
    virtual Pace& ThePace() = 0;
    virtual Speech& TheSpeech() = 0;
};

class SmallContract : public test::ContractOf<SmallPlace> {};

}  // namespace ferry::script::contract

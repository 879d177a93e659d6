// What scripts rely on in the programs that they start. Those of the system and those that are made up are
// held against the same tests.
#pragma once

#include <string>

#include "script/ports.h"
#include "support/contract.h"

namespace ferry::script::contract {

/// Programs under test.
class ProgramPlace {
public:
    virtual ~ProgramPlace() = default;

    virtual Programs& ThePrograms() = 0;

    /// The command line of a program that ends with `exitCode` soon.
    virtual std::wstring Ending(std::uint32_t exitCode) = 0;

    /// The command line of a program that runs for at least a minute, or until this place goes.
    virtual std::wstring Staying() = 0;

    /// The command line of a program that is not there.
    virtual std::wstring Missing() = 0;
};

class ProgramContract : public test::ContractOf<ProgramPlace> {
protected:
    std::unique_ptr<RunningProgram> Start(const std::wstring& commandLine) {
        return AtPlace().ThePrograms().Start(
            {.CommandLine = commandLine, .WorkingFolder = {}, .IsWaitedFor = true});
    }
};

}  // namespace ferry::script::contract

// Where the user and the program are at home on this system.
#pragma once

#include <string>
#include <utility>

#include "script/ports.h"

namespace ferry::script {

class SystemHomes final : public Homes {
public:
    /// `modulePath` is the path of the running executable.
    explicit SystemHomes(std::wstring modulePath) : modulePath_(std::move(modulePath)) {}

    std::optional<std::wstring> LoginName() override;
    std::optional<std::wstring> LocalAppData() override;
    std::wstring ProgramFolder() override;

private:
    std::wstring modulePath_;
};

}  // namespace ferry::script

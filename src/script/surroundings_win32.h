// What Windows knows of this process and its texts.
#pragma once

#include "script/ports.h"

namespace ferry::script {

class SystemSurroundings final : public Surroundings {
public:
    std::wstring ExpandEnvironment(const std::wstring& text) override;
    std::wstring FullPath(const std::wstring& path) override;
    std::wstring CurrentFolder() override;
    std::string Narrow(const std::wstring& text) override;
    int Metric(int index) override;
};

}  // namespace ferry::script

// Stands in for the browser: writes down which page the shell was asked to open.
#pragma once

#include <string>

namespace ferry::e2e {

/// While it exists, the shell opens HTML pages with a command that writes their address to a file.
class BrowserStandIn {
public:
    explicit BrowserStandIn(const std::wstring& file);
    ~BrowserStandIn();
    BrowserStandIn(const BrowserStandIn&) = delete;
    BrowserStandIn& operator=(const BrowserStandIn&) = delete;

    /// Waits for a page; empty when none was opened. The address must be one that ASCII can say.
    std::wstring WaitForPage() const;

private:
    std::wstring file_;
};

}  // namespace ferry::e2e

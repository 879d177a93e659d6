// Where the programs under test are, and the environment that they inherit.
#pragma once

#include <windows.h>

#include <string>

namespace ferry::e2e {

/// The value of an environment variable of this process; empty when it is not set.
std::wstring Variable(const std::wstring& name);

/// Sets a variable that programs started later inherit; an empty value removes it.
void SetVariable(const std::wstring& name, const std::wstring& value);

/// The folder of the running program, without a trailing separator.
std::wstring OwnFolder();

/// The folder of the installed layout, from FERRY_E2E_APP, without a trailing separator.
std::wstring AppFolder();

/// The program under test inside the layout at `appFolder`.
std::wstring FerryPath(const std::wstring& appFolder);

/// The sample host, from FERRY_E2E_HOST.
std::wstring HostPath();

/// The folder in which the tests make their trees: FERRY_E2E_BASE, or C:\ferry-e2e.
std::wstring BaseFolder();

/// A folder on another volume than the base folder's, from FERRY_OTHER_VOLUME; empty when there is none.
std::wstring OtherVolume();

/// Why the tests that read the file-operation service's log, plan its faults or know its windows cannot run
/// here; empty where the service is registered. A real Windows does without it.
std::wstring WhyNoTestService();

/// What is missing for a run, as a sentence; empty when everything is there.
std::wstring MissingSurroundings();

}  // namespace ferry::e2e

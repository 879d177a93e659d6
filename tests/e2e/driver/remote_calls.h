// Functions of the system, called in another process: Wine answers questions about a menu only there.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <span>

namespace ferry::e2e {

/// One call of a function with at most four parameters, none of them a floating-point number.
struct RemoteCall {
    std::uintptr_t Function = 0;  ///< Its address there.
    std::array<std::uintptr_t, 4> Arguments{};
    std::uintptr_t Result = 0;
};

/// Where process `processId` has the function `name` of the system library `library`; 0 when it has not.
std::uintptr_t RemoteFunction(DWORD processId, const wchar_t* library, const char* name);

/// Makes the calls one after the other, on the thread of `window`, which may belong to another process, when
/// it next takes a message, and waits for their results. False when that could not be done.
bool CallRemotely(HWND window, std::span<RemoteCall> calls);

/// The library with the hook that makes the calls, and the message that asks for them: lParam is the first of
/// them, and the last has no function.
inline constexpr wchar_t kCallsLibrary[] = L"e2e_calls.dll";
inline constexpr char kCallsProcedure[] = "MakeCalls";
inline constexpr wchar_t kCallsMessage[] = L"FerryMakeCalls";

}  // namespace ferry::e2e

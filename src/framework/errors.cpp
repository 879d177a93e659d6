#include "framework/errors.h"

#include <windows.h>

#include <exception>
#include <new>

namespace ferry::framework {

namespace {

void Show(const char* text) noexcept {
    // The narrow call keeps this path free of any allocation of ours; all these texts are ASCII.
    MessageBoxA(GetActiveWindow(), text, nullptr, MB_OK | MB_ICONERROR | MB_TASKMODAL);
}

}  // namespace

void ReportCurrentException() noexcept {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        Show("Out of memory.");
    } catch (const std::exception& error) {
        Show(error.what());
    } catch (...) {
        Show("An unknown error occurred.");
    }
}

}  // namespace ferry::framework

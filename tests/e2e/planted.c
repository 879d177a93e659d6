// A library that leaves a mark when somebody loads it.
#include <windows.h>

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved) {
    (void)instance;
    (void)reserved;
    if (reason == DLL_PROCESS_ATTACH) {
        WCHAR path[MAX_PATH];
        if (GetEnvironmentVariableW(L"FERRY_E2E_PLANTED_MARK", path, MAX_PATH) != 0) {
            HANDLE mark = CreateFileW(path, GENERIC_WRITE, 0, NULL, CREATE_ALWAYS, 0, NULL);
            if (mark != INVALID_HANDLE_VALUE)
                CloseHandle(mark);
        }
    }
    return TRUE;
}

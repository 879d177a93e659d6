ferry_adapter(ferry_transfer_win32
    SOURCES file_system_win32.cpp shell_operations_win32.cpp
    LINK ferry_transfer ferry_process_win32 ferry_paths_win32 ferry_base
        shell32 shlwapi ole32 oleaut32 uuid)

ferry_adapter(ferry_completion_win32
    SOURCES folder_lookup_win32.cpp
    LINK ferry_completion ferry_process_win32)

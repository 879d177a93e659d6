ferry_adapter(ferry_naming_win32
    SOURCES clock_win32.cpp
    LINK ferry_naming ferry_process_win32)

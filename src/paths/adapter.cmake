ferry_adapter(ferry_paths_win32
    SOURCES folders_win32.cpp path_helpers_win32.cpp shell_item_win32.cpp
    LINK ferry_paths shell32 ole32 uuid)

ferry_adapter(ferry_settings_win32
    SOURCES registry_store_win32.cpp
    LINK ferry_settings advapi32)

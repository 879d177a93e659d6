ferry_adapter(ferry_lang_win32
    SOURCES dialog_localiser_win32.cpp message_file_win32.cpp text_file_win32.cpp
    LINK ferry_lang ferry_settings ferry_paths_win32 ferry_base user32)

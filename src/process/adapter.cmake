ferry_adapter(ferry_process_win32
    SOURCES
        file_search_win32.cpp
        module_path_win32.cpp
        program_runner_win32.cpp
        shell_open_win32.cpp
        shell_version_win32.cpp
    LINK ferry_process ferry_paths shell32)

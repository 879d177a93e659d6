ferry_adapter(ferry_hostlink_win32
    SOURCES
        host_link_win32.cpp
        host_messages_win32.cpp
        last_error_win32.cpp
        shared_memory_view_win32.cpp
        window_placement_win32.cpp
    LINK ferry_hostlink user32)

# The executable. It stands behind all other rooms, so it is made when they are known.
if(WIN32)
    configure_file(${CMAKE_SOURCE_DIR}/res/version.h.in ${CMAKE_BINARY_DIR}/res/version.h)
    add_executable(Ferry WIN32
        dll_search_path.cpp ferry_app.cpp main.cpp
        ${CMAKE_SOURCE_DIR}/res/app.rc
        ${CMAKE_SOURCE_DIR}/res/busy_dialog.rc
        ${CMAKE_SOURCE_DIR}/res/ferry_dialog.rc
        ${CMAKE_SOURCE_DIR}/res/file_mode_dialog.rc
        ${CMAKE_SOURCE_DIR}/res/input_dialog.rc)
    target_include_directories(Ferry PRIVATE ${CMAKE_SOURCE_DIR}/res ${CMAKE_BINARY_DIR}/res)
    target_link_libraries(Ferry PRIVATE ferry_dialogs ferry_naming_win32 ferry_settings_win32 ferry_command_line)
    if(MINGW)
        target_link_options(Ferry PRIVATE -municode $<$<CONFIG:Release>:-s>)
    else()
        # The manifest comes from the resources.
        target_link_options(Ferry PRIVATE /MANIFEST:NO)
    endif()
    install(TARGETS Ferry RUNTIME DESTINATION Command/Ferry COMPONENT app)
endif()

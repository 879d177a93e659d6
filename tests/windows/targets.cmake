# What every program here has: the manifest of the product, which brings the common controls that the dialogs
# are made for, and somebody who answers message boxes.
set(FERRY_TEST_FRAME
    answer_box_win32.cpp
    dialogs.rc
    support_win32.cpp
    watched_import_win32.cpp)

# ferry_windows_test(NAME SOURCES... LINK LIBS...): a test program of this ring.
function(ferry_windows_test name)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    ferry_test(${name} SOURCES ${FERRY_TEST_FRAME} ${arg_SOURCES} LINK ${arg_LINK} ferry_process_windows comctl32)
    target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/res)
    if(MSVC)
        # The manifest comes from the resources.
        target_link_options(${name} PRIVATE /MANIFEST:NO)
    endif()
endfunction()

# One program for all adapters; it starts itself again where a test needs a second process.
ferry_windows_test(ferry_windows_tests
    SOURCES
        child_process_win32.cpp
        clock_contract_win32_test.cpp
        com_apartment_win32_test.cpp
        drop_win32.cpp
        foreground_win32_test.cpp
        host_objects_win32_test.cpp
        hostlink_win32_test.cpp
        lang_win32_test.cpp
        lookup_contract_win32_test.cpp
        main_win32.cpp
        naming_win32_test.cpp
        paths_win32_test.cpp
        port_contract_win32_test.cpp
        process_calls_win32_test.cpp
        process_win32_test.cpp
        recording_operation_win32.cpp
        resource_counts_win32.cpp
        settings_win32_test.cpp
        shell_operations_win32_test.cpp
        shell_version_child_win32.cpp
        shell_version_win32_test.cpp
        source_contract_win32_test.cpp
        store_contract_win32_test.cpp
        transfer_win32_test.cpp
        watched_import_win32_test.cpp
        window_placement_win32_test.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/completion/lookup_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/lang/source_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/naming/clock_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/settings/store_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/transfer/file_system_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/transfer/shell_contract.cpp
    LINK
        ferry_completion_win32 ferry_hostlink_win32 ferry_lang_win32 ferry_naming_win32 ferry_paths_win32
        ferry_process_win32 ferry_settings_win32 ferry_transfer_win32)

# The dialogs, driven in-process. They look their templates up in the executable.
ferry_windows_test(ferry_dialogs_test
    SOURCES
        dialog_access_win32_test.cpp
        dialog_template_win32.cpp
        dialog_templates_win32_test.cpp
        dialog_texts_win32_test.cpp
        dialog_world_win32.cpp
        drop_win32.cpp
        ferry_dialog_arrival_win32_test.cpp
        ferry_dialog_browse_win32_test.cpp
        ferry_dialog_menu_win32_test.cpp
        ferry_dialog_raise_win32_test.cpp
        ferry_dialog_start_win32_test.cpp
        ferry_dialog_win32_test.cpp
        input_dialog_edits_win32_test.cpp
        input_dialog_layout_win32_test.cpp
        input_dialog_win32_test.cpp
        modal_visitor_win32.cpp
        progress_contract_win32_test.cpp
        recording_operation_win32.cpp
        resource_counts_win32.cpp
        run_dialogs_win32_test.cpp
        run_windows_win32_test.cpp
        watched_messages_win32.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/transfer/progress_contract.cpp
        ${CMAKE_SOURCE_DIR}/res/ferry_dialog.rc
        ${CMAKE_SOURCE_DIR}/res/busy_dialog.rc
        ${CMAKE_SOURCE_DIR}/res/file_mode_dialog.rc
        ${CMAKE_SOURCE_DIR}/res/input_dialog.rc
    LINK ferry_dialogs ferry_naming_win32 ferry_process_win32 ferry_samplehost_writer)
# The dialog texts lie beside the test as they lie beside the program.
add_dependencies(ferry_dialogs_test ferry_texts)
add_custom_command(TARGET ferry_dialogs_test POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_BINARY_DIR}/res/lang/en-US
            $<TARGET_FILE_DIR:ferry_dialogs_test>/.en-US/Ferry
    VERBATIM)

# The controls, driven in-process through the messages that the dialogs give them.
ferry_windows_test(ferry_controls_tests
    SOURCES
        cmd_list_ctrl_win32_test.cpp
        combo_box_fixture_win32.cpp
        complement_combo_box_win32_test.cpp
        completion_win32_test.cpp
        dialog_win32_test.cpp
        drop_win32.cpp
        history_combo_box_win32_test.cpp
        modal_dialog_win32_test.cpp
        path_display_win32_test.cpp
        watched_messages_win32.cpp
        ${CMAKE_SOURCE_DIR}/res/ferry_dialog.rc
    LINK ferry_controls ferry_completion_win32)

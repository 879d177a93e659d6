# One program for all adapters; it starts itself again where a test needs a second process.
ferry_test(ferry_windows_tests
    SOURCES
        child_process_win32.cpp
        clock_contract_win32_test.cpp
        hostlink_win32_test.cpp
        lang_win32_test.cpp
        lookup_contract_win32_test.cpp
        main_win32.cpp
        naming_win32_test.cpp
        paths_win32_test.cpp
        port_contract_win32_test.cpp
        process_win32_test.cpp
        recording_operation_win32.cpp
        settings_win32_test.cpp
        shell_operations_win32_test.cpp
        source_contract_win32_test.cpp
        store_contract_win32_test.cpp
        support_win32.cpp
        transfer_win32_test.cpp
        window_placement_win32_test.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/completion/lookup_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/lang/source_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/naming/clock_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/settings/store_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/transfer/file_system_contract.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/transfer/shell_contract.cpp
    LINK
        ferry_completion_win32 ferry_hostlink_win32 ferry_lang_win32 ferry_naming_win32 ferry_paths_win32
        ferry_process_win32 ferry_process_windows ferry_settings_win32 ferry_transfer_win32 comctl32)

# The dialogs, driven in-process. They look their templates up in the executable.
ferry_test(ferry_dialogs_test
    SOURCES
        dialog_access_win32_test.cpp
        dialog_template_win32.cpp
        dialog_templates_win32_test.cpp
        dialog_world_win32.cpp
        dialogs.rc
        ferry_dialog_menu_win32_test.cpp
        ferry_dialog_raise_win32_test.cpp
        ferry_dialog_win32_test.cpp
        input_dialog_edits_win32_test.cpp
        input_dialog_layout_win32_test.cpp
        input_dialog_win32_test.cpp
        progress_contract_win32_test.cpp
        resource_counts_win32.cpp
        run_dialogs_win32_test.cpp
        support_win32.cpp
        ${CMAKE_SOURCE_DIR}/tests/core/transfer/progress_contract.cpp
        ${CMAKE_SOURCE_DIR}/res/ferry_dialog.rc
        ${CMAKE_SOURCE_DIR}/res/busy_dialog.rc
        ${CMAKE_SOURCE_DIR}/res/file_mode_dialog.rc
        ${CMAKE_SOURCE_DIR}/res/input_dialog.rc
    LINK ferry_dialogs ferry_naming_win32 ferry_process_win32 ferry_process_windows ferry_samplehost_writer)
target_include_directories(ferry_dialogs_test PRIVATE ${CMAKE_SOURCE_DIR}/res)
# The dialog texts lie beside the test as they lie beside the program.
add_dependencies(ferry_dialogs_test ferry_texts)
add_custom_command(TARGET ferry_dialogs_test POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_directory ${CMAKE_BINARY_DIR}/res/lang/en-US
            $<TARGET_FILE_DIR:ferry_dialogs_test>/.en-US/Ferry
    VERBATIM)
if(MSVC)
    # The manifest comes from the resources.
    target_link_options(ferry_dialogs_test PRIVATE /MANIFEST:NO)
endif()

# The controls, driven in-process through the messages that the dialogs give them.
ferry_test(ferry_controls_tests
    SOURCES
        combo_box_fixture_win32.cpp
        complement_combo_box_win32_test.cpp
        completion_win32_test.cpp
        dialog_win32_test.cpp
        history_combo_box_win32_test.cpp
        support_win32.cpp
        ${CMAKE_SOURCE_DIR}/res/ferry_dialog.rc
    LINK ferry_controls ferry_completion_win32 ferry_process_windows comctl32)
target_include_directories(ferry_controls_tests PRIVATE ${CMAKE_SOURCE_DIR}/res)

# End-to-end tests: they need the installed layout, the sample host and, under Wine, the
# file-operation service. FERRY_E2E_APP and FERRY_E2E_HOST say where the first two are.
add_subdirectory(driver)

# Stands beside a copied Ferry.exe under the names of system libraries; must never be loaded.
add_library(e2e_planted MODULE planted.c)
set_target_properties(e2e_planted PROPERTIES PREFIX "")

ferry_test(ferry_e2e
    SOURCES
        arrival_test.cpp
        batch_test.cpp
        command_line_test.cpp
        completion_keys_test.cpp
        completion_test.cpp
        decide_test.cpp
        delivery_test.cpp
        destination_choice_test.cpp
        destination_limit_test.cpp
        destination_typing_test.cpp
        dialog_keyboard_test.cpp
        dialog_test.cpp
        drop_test.cpp
        fault_test.cpp
        fixture.cpp
        history_test.cpp
        hostile_block_test.cpp
        hostile_message_test.cpp
        hostile_settings_test.cpp
        individual_test.cpp
        instance_test.cpp
        interruption_test.cpp
        kind_test.cpp
        language_test.cpp
        planted_test.cpp
        progress_test.cpp
        rename_fault_test.cpp
        rename_keyboard_test.cpp
        rename_test.cpp
        source_list_test.cpp
        start_test.cpp
        window_mode_test.cpp
    LINK e2e_driver)
add_dependencies(ferry_e2e e2e_planted samplehost)
target_compile_definitions(ferry_e2e PRIVATE E2E_PLANTED_NAME="$<TARGET_FILE_NAME:e2e_planted>")
add_custom_command(TARGET ferry_e2e POST_BUILD
    COMMAND ${CMAKE_COMMAND} -E copy_if_different $<TARGET_FILE:e2e_planted> $<TARGET_FILE_DIR:ferry_e2e>
    VERBATIM)

# The sample host and the driver by themselves; needs FERRY_E2E_HOST only.
ferry_test(samplehost_test SOURCES driver_test.cpp samplehost_test.cpp tree_test.cpp LINK e2e_driver)
add_dependencies(samplehost_test samplehost practice_dialog)
set_target_properties(practice_dialog PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR})

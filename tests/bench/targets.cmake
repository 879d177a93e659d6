# Bare console programs that print one line of JSON per comparison; not part of the tests.
if(NOT FERRY_FUZZ)
    find_package(Threads REQUIRED)
    add_library(bench_race STATIC race.cpp ratio.cpp)
    target_link_libraries(bench_race PUBLIC ferry_options)

    add_library(bench_comparison STATIC comparison.cpp this_machine.cpp)
    target_link_libraries(bench_comparison PUBLIC bench_race Threads::Threads)
    # Nobody changes the environment while it is read.
    target_compile_definitions(bench_comparison PRIVATE _CRT_SECURE_NO_WARNINGS)

    add_library(bench_trees STATIC trees.cpp)
    target_link_libraries(bench_trees PUBLIC ferry_options)

    # It makes what the benchmarks for Windows work on, where these run under Wine.
    if(NOT WIN32)
        add_executable(fill_bench_folder fill_bench_folder.cpp)
        target_link_libraries(fill_bench_folder PRIVATE bench_trees)
    endif()

    add_executable(bench_parse parse_bench.cpp)
    target_link_libraries(bench_parse PRIVATE bench_comparison ferry_hostlink)

    add_executable(bench_run_memory run_memory_bench.cpp)
    target_link_libraries(bench_run_memory PRIVATE bench_comparison ferry_transfer)
endif()

if(WIN32)
    add_library(bench_ground STATIC bench_ground_win32.cpp)
    target_link_libraries(bench_ground PUBLIC bench_trees e2e_driver)

    add_library(bench_installed_ferry STATIC
        installed_ferry_win32.cpp ${CMAKE_SOURCE_DIR}/tools/samplehost/shared_block_win32.cpp)
    target_link_libraries(bench_installed_ferry PUBLIC bench_comparison e2e_driver)

    add_executable(bench_batch batch_bench_win32.cpp)
    target_link_libraries(bench_batch PRIVATE bench_comparison bench_ground ferry_transfer_win32)

    add_executable(bench_enumerate enumerate_bench_win32.cpp)
    target_link_libraries(bench_enumerate PRIVATE bench_comparison bench_ground ferry_transfer_win32)

    add_executable(bench_completion completion_bench_win32.cpp)
    target_link_libraries(bench_completion PRIVATE
        bench_comparison bench_ground ferry_controls ferry_completion_win32 comctl32)

    # What Ferry's start is compared with. It is no benchmark, so it is not named like one.
    add_executable(bare_dialog WIN32
        bare_dialog_win32.cpp bare_dialog.rc ${CMAKE_SOURCE_DIR}/res/ferry_dialog.rc)
    target_include_directories(bare_dialog PRIVATE ${CMAKE_SOURCE_DIR}/res)
    target_link_libraries(bare_dialog PRIVATE ferry_options comctl32)

    add_executable(bench_start start_bench_win32.cpp)
    target_link_libraries(bench_start PRIVATE bench_installed_ferry)
    add_dependencies(bench_start bare_dialog Ferry)

    add_executable(bench_individual individual_bench_win32.cpp bare_run_win32.cpp)
    target_link_libraries(bench_individual PRIVATE bench_ground bench_installed_ferry ferry_base)
    add_dependencies(bench_individual Ferry)

    add_executable(bench_list
        list_bench_win32.cpp
        ${CMAKE_SOURCE_DIR}/res/ferry_dialog.rc
        ${CMAKE_SOURCE_DIR}/tests/windows/dialog_world_win32.cpp
        ${CMAKE_SOURCE_DIR}/tests/windows/dialogs.rc
        ${CMAKE_SOURCE_DIR}/tests/windows/support_win32.cpp)
    target_include_directories(bench_list PRIVATE ${CMAKE_SOURCE_DIR}/res)
    target_link_libraries(bench_list PRIVATE bench_installed_ferry ferry_dialogs psapi)
    add_dependencies(bench_list Ferry)

    if(MINGW)
        target_link_options(bare_dialog PRIVATE -municode $<$<CONFIG:Release>:-s>)
    else()
        # The manifest comes from the resources.
        target_link_options(bare_dialog PRIVATE /MANIFEST:NO)
        target_link_options(bench_list PRIVATE /MANIFEST:NO)
    endif()
endif()

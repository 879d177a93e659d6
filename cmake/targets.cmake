# The settings that every target of the project shares, and the functions that make targets.

add_library(ferry_options INTERFACE)
target_include_directories(ferry_options INTERFACE ${CMAKE_SOURCE_DIR}/src)

if(MSVC)
    target_compile_options(ferry_options INTERFACE /W4 /utf-8 /permissive- /Zc:__cplusplus /EHsc /guard:cf)
    if(FERRY_WARNINGS_AS_ERRORS)
        target_compile_options(ferry_options INTERFACE /WX)
    endif()
else()
    target_compile_options(ferry_options INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion
        $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor>
        # GCC 12 sees overlaps in the inlined std::string that are not there (GCC bug 105651).
        $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
    if(FERRY_WARNINGS_AS_ERRORS)
        target_compile_options(ferry_options INTERFACE -Werror)
    endif()
endif()

if(FERRY_SANITIZE)
    target_compile_options(ferry_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(ferry_options INTERFACE -fsanitize=address,undefined)
    target_compile_definitions(ferry_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()
if(FERRY_FUZZ)
    target_compile_options(ferry_options INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all)
    target_link_options(ferry_options INTERFACE -fsanitize=address,undefined)
endif()
if(FERRY_TRAPS)
    target_compile_options(ferry_options INTERFACE
        -fsanitize=undefined -fsanitize-undefined-trap-on-error)
    target_compile_definitions(ferry_options INTERFACE _GLIBCXX_ASSERTIONS)
endif()

if(WIN32)
    target_compile_definitions(ferry_options INTERFACE
        UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT
        WINVER=0x0A00 _WIN32_WINNT=0x0A00 NTDDI_VERSION=0x0A000006)
    if(MINGW)
        # ASLR with high entropy, NX, no import of a compiler's runtime DLL.
        target_link_options(ferry_options INTERFACE
            -static -Wl,--dynamicbase -Wl,--high-entropy-va -Wl,--nxcompat)
        # The same sources give the same bytes, whenever and wherever they are built.
        target_compile_options(ferry_options INTERFACE
            "$<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:C,CXX>>:-ffile-prefix-map=${CMAKE_SOURCE_DIR}=.>"
            "$<$<AND:$<CONFIG:Release>,$<COMPILE_LANGUAGE:C,CXX>>:-ffile-prefix-map=${CMAKE_BINARY_DIR}=build>")
        target_link_options(ferry_options INTERFACE -Wl,--no-insert-timestamp)
    else()
        set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
        target_link_options(ferry_options INTERFACE /DYNAMICBASE /HIGHENTROPYVA /NXCOMPAT /guard:cf)
    endif()
endif()

# The largest headers of the system, read once for all rooms, where FERRY_SHARED_HEADERS asks for it. The build of
# the program that ships does not: there each file has to include what it uses.
function(ferry_shared_headers name)
    file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
    add_library(${name} OBJECT ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
    target_link_libraries(${name} PRIVATE ferry_options)
    target_precompile_headers(${name} PRIVATE ${ARGN} <algorithm> <array> <functional> <memory> <optional> <span>
        <string> <string_view> <vector>)
endfunction()
if(FERRY_SHARED_HEADERS)
    ferry_shared_headers(shared_headers)
    if(WIN32)
        ferry_shared_headers(shared_windows_headers <windows.h>)
    endif()
endif()

# ferry_library(NAME HEADERS SOURCES... [LINK LIBS...]): a room's library, with these shared headers.
function(ferry_library name headers)
    cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${arg_SOURCES})
    target_link_libraries(${name} PUBLIC ferry_options ${arg_LINK})
    if(FERRY_SHARED_HEADERS)
        target_precompile_headers(${name} REUSE_FROM ${headers})
    endif()
endfunction()

# ferry_portable(NAME SOURCES... [LINK LIBS...]): standard C++ only, built for every host.
function(ferry_portable name)
    ferry_library(${name} shared_headers ${ARGN})
endfunction()

# ferry_adapter(NAME SOURCES... [LINK LIBS...]): talks to Windows; nothing elsewhere.
function(ferry_adapter name)
    if(WIN32)
        ferry_library(${name} shared_windows_headers ${ARGN})
    endif()
endfunction()

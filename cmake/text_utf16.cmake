# Turns a UTF-8 text into the form that the program reads: UTF-16LE with a byte-order mark and CR LF.
# cmake -D SOURCE=... -D TARGET=... -P text_utf16.cmake
get_filename_component(folder "${TARGET}" DIRECTORY)
file(MAKE_DIRECTORY "${folder}")

if(CMAKE_HOST_WIN32)
    # .NET's "Unicode" is UTF-16LE and writes the mark by itself.
    set(program [=[
        $text = [IO.File]::ReadAllText($env:FERRY_SOURCE, [Text.Encoding]::UTF8)
        $text = ($text -replace "`r`n", "`n") -replace "`n", "`r`n"
        [IO.File]::WriteAllText($env:FERRY_TARGET, $text, [Text.Encoding]::Unicode)]=])
    set(ENV{FERRY_SOURCE} "${SOURCE}")
    set(ENV{FERRY_TARGET} "${TARGET}")
    execute_process(COMMAND powershell -NoProfile -Command "${program}" RESULT_VARIABLE result)
else()
    string(ASCII 239 187 191 mark)
    file(READ "${SOURCE}" text)
    string(REPLACE "\r\n" "\n" text "${text}")
    string(REPLACE "\n" "\r\n" text "${text}")
    file(WRITE "${TARGET}.utf8" "${mark}${text}")
    execute_process(COMMAND iconv -f UTF-8 -t UTF-16LE "${TARGET}.utf8"
                    OUTPUT_FILE "${TARGET}" RESULT_VARIABLE result)
    file(REMOVE "${TARGET}.utf8")
endif()
if(NOT result EQUAL 0)
    file(REMOVE "${TARGET}")
    message(FATAL_ERROR "cannot convert ${SOURCE} to UTF-16LE: ${result}")
endif()

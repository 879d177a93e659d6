#!/usr/bin/env bash
# executable.sh PROGRAM: shows the hardening flags and the imported DLLs, and fails when a flag is
# missing or a DLL is imported that does not come with Windows.
set -euo pipefail
program=$1
[ -f "$program" ] || { echo "   there is no $program"; exit 1; }

# DLLs of Windows 10 that the program may lean on. A compiler's runtime is not among them: it would
# have to be installed beside the program.
windows_dlls=" advapi32 bcrypt comctl32 comdlg32 dwmapi gdi32 gdiplus imm32 kernel32 mpr msvcrt ntdll ole32
    oleacc oleaut32 propsys rpcrt4 shcore shell32 shlwapi ucrtbase user32 userenv uxtheme version windowscodecs
    winmm winspool.drv "
windows_dlls=${windows_dlls//$'\n'/ }

headers=$(x86_64-w64-mingw32-objdump -p "$program")
bad=0
for flag in DYNAMIC_BASE HIGH_ENTROPY_VA NX_COMPAT; do
    if grep -qw "$flag" <<<"$headers"; then
        echo "   $flag is set"
    else
        echo "   $flag is MISSING"
        bad=1
    fi
done
# Without relocations the loader cannot move the program, whatever the flags say.
if ! x86_64-w64-mingw32-objdump -h "$program" | grep -qw '\.reloc'; then
    echo "   the relocations are MISSING"
    bad=1
fi
while read -r dll; do
    if [[ $windows_dlls == *" ${dll%.dll} "* || $dll == api-ms-win-* ]]; then
        echo "   imports $dll"
    else
        echo "   imports $dll, which does NOT come with Windows"
        bad=1
    fi
done < <(awk '/DLL Name:/ { print tolower($3) }' <<<"$headers" | sort)
exit "$bad"

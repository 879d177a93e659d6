# ./dev wine, and what every other command uses to run Windows programs: a private prefix, a
# virtual display, a server that stays alive during the command, and a clean end.
load setup

# use_wine_dir FOLDER: where the prefix, its home and its locale are; before open_wine.
use_wine_dir() { wine_dir=$1 wine_prefix=$1/prefix wine_is_open=; }
use_wine_dir "$build/wine"

# The virtual display, and the Wine desktop on it.
screen_size=1280x900

# What stands before Wine's programs to keep them on some processors; nothing, as a rule.
wine_pinned=()
fileop_dll=$build/mingw/tools/fileop/ferry_fileop.dll
samplehost=$build/mingw/tools/samplehost/samplehost.exe

# windows_path PATH: a Unix path as Windows programs see it.
windows_path() {
    local path drive=$wine_prefix/drive_c
    path=$(realpath -m -s -- "$1")
    if [[ $path == "$drive"/* ]]; then
        path=${path#"$drive"}
        printf 'C:%s\n' "${path//\//\\}"
        return
    fi
    printf 'Z:%s\n' "${path//\//\\}"
}

# install_on_c NAME: a copy of the layout on C:, where its folder is an ordinary Windows folder.
install_on_c() {
    rm -rf "$wine_prefix/drive_c/$1"
    cp -r "$build/app" "$wine_prefix/drive_c/$1"
}

find_wine() {
    local candidate
    for candidate in /usr/lib/wine/wine64 "$(command -v wine64 || true)" "$(command -v wine || true)"; do
        [ -x "$candidate" ] && wine_loader=$candidate && break
    done
    [ -n "${wine_loader:-}" ] || fail "there is no wine64; run './dev setup'"
    for candidate in "$(dirname "$wine_loader")/wineserver64" "$(command -v wineserver || true)"; do
        [ -x "$candidate" ] && wine_server=$candidate && break
    done
    [ -n "${wine_server:-}" ] || fail "there is no wineserver beside $wine_loader; run './dev setup'"
}

# A home of its own keeps Wine from linking the user's documents into the prefix and from adding
# entries to the user's menus.
wine_environment() {
    export XAUTHORITY=${XAUTHORITY:-$HOME/.Xauthority}
    export HOME=$wine_dir/home
    export WINEPREFIX=$wine_prefix WINEARCH=win64 WINELOADER=$wine_loader WINESERVER=$wine_server
    export WINEDEBUG=${WINEDEBUG:--all}
    export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-mscoree,mshtml=;winemenubuilder.exe=d}
    mkdir -p "$HOME"
    make_locale
}

# make_locale: Wine takes the language of Windows and the coding of Unix names from the locale. Where
# the C library has not generated it, names that are not ASCII arrive garbled, so it is made here.
make_locale() {
    wine_locale=${FERRY_LOCALE:-ja_JP.UTF-8}
    export LOCPATH=$wine_dir/locale
    [ -d "$LOCPATH/$wine_locale" ] && return
    mkdir -p "$LOCPATH"
    localedef -i "${wine_locale%%.*}" -f UTF-8 "$LOCPATH/$wine_locale" >"$wine_dir/locale.log" 2>&1 ||
        [ -d "$LOCPATH/$wine_locale" ] || fail "the locale $wine_locale cannot be made; see build/wine/locale.log"
}

# Two commands must not share a server, since each ends its own. The lock is held by descriptor 9,
# which is closed for everything that may outlive this command.
take_wine_lock() {
    mkdir -p "$wine_dir"
    exec 9>"$wine_dir/lock"
    if ! flock -n 9; then
        say "waiting for another ./dev that uses the Wine prefix"
        flock 9
    fi
}

stop_wine() {
    local prefix=${1:-$wine_prefix}
    [ -d "$prefix" ] || return 0
    WINEPREFIX=$prefix timeout 20 "$wine_server" -k 9>&- 2>/dev/null
    WINEPREFIX=$prefix timeout 20 "$wine_server" -w 9>&- 2>/dev/null
}
# shellcheck disable=SC2031 # the tests' second worker empties it in a process of its own
stop_wine_and_display() {
    stop_wine
    [ -n "${xvfb_pid:-}" ] && kill "$xvfb_pid" 2>/dev/null && wait "$xvfb_pid" 2>/dev/null
    return 0
}

# start_display: a virtual screen on a number that Xvfb finds free.
start_display() {
    local number_file=$wine_dir/display.$$ waited=0
    : >"$number_file"
    Xvfb -displayfd 3 -screen 0 "${screen_size}x24" -nolisten tcp -noreset 3>"$number_file" \
        >"$wine_dir/xvfb.log" 2>&1 9>&- &
    xvfb_pid=$!
    until [ -s "$number_file" ]; do
        kill -0 "$xvfb_pid" 2>/dev/null || fail "Xvfb did not start; see build/wine/xvfb.log"
        [ $((waited += 1)) -le 300 ] || fail "Xvfb gave no display within 30 s; see build/wine/xvfb.log"
        sleep 0.1
    done
    DISPLAY=:$(cat "$number_file")
    export DISPLAY
    unset XAUTHORITY
    rm -f "$number_file"
}

# prefix_fonts LANGUAGE: the faces that stand in for the fonts of Windows, as a part of a registry file. In Japanese a
# proportional Japanese face does for the dialog fonts, as on a Japanese Windows. Wine has a Tahoma of its own, which knows
# no Japanese: a replacement stands in for a missing font only, a substitute for one that is there, too. In English
# that Tahoma does; the fallbacks are those of Han and Kana.
prefix_fonts() {
    local face='"Tahoma"' tahoma=-
    [ "$1" = en-US ] || face='"IPAPGothic"' tahoma='"IPAPGothic"'
    cat <<REG
[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes]
"MS Shell Dlg"=$face
"MS Shell Dlg 2"=$face
"MS UI Gothic"="IPAPGothic"
"Tahoma"=$tahoma

[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]
"Tahoma"=$tahoma
"MS UI Gothic"="IPAPGothic"
"Segoe UI"=$face
"Yu Gothic UI"="IPAPGothic"
"Meiryo UI"="IPAPGothic"

[HKEY_CURRENT_USER\\Software\\Wine\\Uniscribe\\Fallback]
"696e6168"="IPAPGothic"
"616e616b"="IPAPGothic"

REG
}

# prefix_settings DISPLAY_KIND: the settings of the prefix, as a part of a registry file.
prefix_settings() {
    prefix_fonts ja-JP
    cat <<'REG'
[HKEY_CURRENT_USER\Software\Wine\WineDbg]
"ShowCrashDialog"=dword:00000000

REG
    # Without a window manager Wine draws title bars only on its own desktop.
    if [ "$1" = own ]; then
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\n"Desktop"="Ferry"\n\n'
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Explorer\\Desktops]\n"Ferry"="%s"\n' "$screen_size"
    else
        printf '[-HKEY_CURRENT_USER\\Software\\Wine\\Explorer]\n'
    fi
}

create_prefix() {
    say "creating the Wine prefix ${wine_prefix#"$root/"}"
    rm -rf "$wine_prefix" "$wine_prefix.new"
    WINEPREFIX=$wine_prefix.new LC_ALL=$wine_locale timeout 300 "$wine_loader" wineboot.exe --init \
        >"$wine_dir/wineboot.log" 2>&1 9>&- </dev/null ||
        { stop_wine "$wine_prefix.new"; fail "Wine could not make its prefix; see build/wine/wineboot.log"; }
    WINEPREFIX=$wine_prefix.new timeout 60 "$wine_server" -w 9>&- || true
    mv "$wine_prefix.new" "$wine_prefix"
}

# import_settings <PART: writes what a part of a registry file says.
import_settings() {
    { printf 'Windows Registry Editor Version 5.00\n\n'; cat; } | sed 's/$/\r/' | iconv -f UTF-8 -t UTF-16 >"$wine_dir/settings.reg"
    run_wine reg.exe import "$(windows_path "$wine_dir/settings.reg")" >"$wine_dir/reg.log" 2>&1 ||
        fail "the Wine prefix took no settings; see build/wine/reg.log"
}

# use_fonts LANGUAGE: as on a Windows of that language, for programs that start from now on. Until they are Japanese again
# the settings count as not written, so that a command which was cut off leaves nothing to the next one.
use_fonts() {
    local written=$wine_prefix/ferry-settings
    [ "$1" = ja-JP ] || [ ! -f "$written" ] || mv "$written" "$written.kept"
    import_settings < <(prefix_fonts "$1")
    [ "$1" != ja-JP ] || [ ! -f "$written.kept" ] || mv "$written.kept" "$written"
}

# add_fonts: the signs on title bars, and what English dialogs are written in. Debian's Wine does not look where Debian's
# package puts them; the other fonts there would only stand in the way of those above. Before Wine is started.
add_fonts() {
    local folder=$wine_prefix/drive_c/windows/Fonts font
    mkdir -p "$folder"
    for font in marlett tahoma tahomabd; do
        [ -f "$folder/$font.ttf" ] || cp "/usr/share/wine/fonts/$font.ttf" "$folder" 2>/dev/null ||
            say "$font.ttf is not where fonts-wine puts it; windows will look odd"
    done
}

# apply_prefix_settings DISPLAY_KIND: writes the settings unless the same ones were written last.
apply_prefix_settings() {
    prefix_settings "$1" >"$wine_dir/settings.new"
    if cmp -s "$wine_dir/settings.new" "$wine_prefix/ferry-settings"; then
        rm "$wine_dir/settings.new"
        return
    fi
    import_settings <"$wine_dir/settings.new"
    mv "$wine_dir/settings.new" "$wine_prefix/ferry-settings"
    # What runs already has the desktop of before.
    restart_wine
}

# register_fileop: the file-operation service takes the place of Wine's class, once it is built.
register_fileop() {
    local registered=$wine_prefix/ferry-fileop
    [ -f "$fileop_dll" ] || return 0
    [ "$(cat "$registered" 2>/dev/null)" != "$fileop_dll" ] || return 0
    run_wine regsvr32.exe /s "$(windows_path "$fileop_dll")" >"$wine_dir/regsvr32.log" 2>&1 ||
        fail "the file-operation service could not be registered; see build/wine/regsvr32.log"
    printf '%s' "$fileop_dll" >"$registered"
}

# start_wine: a server that stays, and the services of the prefix, which the first program starts and which
# hold its output open as long as they live.
start_wine() {
    "${wine_pinned[@]}" "$wine_server" -p60 9>&- >/dev/null 2>&1 || true
    run_wine cmd.exe /c exit >/dev/null 2>&1 </dev/null || true
}

# restart_wine: ends all that runs in the prefix.
restart_wine() {
    stop_wine || true
    start_wine
}

# open_wine virtual|caller: makes run_wine usable. "virtual" hides every window on a display of
# our own; "caller" uses the caller's display when there is one.
open_wine() {
    [ -n "${wine_is_open:-}" ] && return
    need wine
    find_wine
    take_wine_lock
    wine_environment
    at_end stop_wine_and_display
    local kind=own
    if [ "$1" = caller ] && [ -n "${DISPLAY:-}" ]; then kind=caller; else start_display; fi
    [ -f "$wine_prefix/system.reg" ] || create_prefix
    add_fonts
    start_wine
    apply_prefix_settings "$kind"
    register_fileop
    wine_is_open=1
}

# run_wine PROGRAM ARGS...: a Windows program, by a Unix or a Windows path.
run_wine() { LC_ALL=$wine_locale "${wine_pinned[@]}" "$wine_loader" "$@" 9>&-; }

# run_wine_within SECONDS PROGRAM ARGS...: the same, ended when it takes longer; 124 or 137 tells of that.
run_wine_within() {
    LC_ALL=$wine_locale timeout -k 10 "$1" "${wine_pinned[@]}" "$wine_loader" "${@:2}" 9>&-
}

# add_other_volume: X: is a folder on another file system than C:, so that what is moved between the two
# is copied. FERRY_OTHER_VOLUME says where it is, for the tests as X:.
add_other_volume() {
    local candidate here there
    here=$(stat -c %d "$wine_prefix")
    for candidate in ${FERRY_OTHER_FOLDER:+"$FERRY_OTHER_FOLDER"} /dev/shm /run/shm /tmp /var/tmp /run; do
        there=$(stat -c %d "$candidate" 2>/dev/null) && [ "$there" != "$here" ] && [ -w "$candidate" ] && break
        candidate=
    done
    [ -n "$candidate" ] || fail "there is no folder on another file system; FERRY_OTHER_FOLDER=... names one"
    other_volume=$(mktemp -d "$candidate/ferry-XXXXXX") || fail "$candidate cannot be written"
    at_end remove_other_volume
    ln -sfn "$other_volume" "$wine_prefix/dosdevices/x:"
    export FERRY_OTHER_VOLUME='X:'
}
remove_other_volume() { rm -rf "$other_volume"; }

command_wine() {
    [ $# -gt 0 ] || fail "which program? ./dev wine PROGRAM [ARGS...]"
    open_wine caller
    local status=0
    run_wine "$@" || status=$?
    exit "$status"
}

# ./dev package --check: the packages alone, tried as a new user would, in a prefix made for it.
load build wine tests

uninstall_key='HKCU\Software\Microsoft\Windows\CurrentVersion\Uninstall'
program_key='HKCU\Software\Marrowby\KIV\Command\Ferry'

# unpack_for_new_user: whatever is tried comes from here, the file-operation service included.
unpack_for_new_user() {
    local version
    version=$(package_version)
    new_folder=$wine_dir/new
    rm -rf "$new_folder"
    mkdir -p "$new_folder/zip"
    LC_ALL=C.UTF-8 unzip -q "$package_out/Ferry-$version.zip" -d "$new_folder/zip" || fail "the zip cannot be unpacked"
    tar -C "$new_folder" -xzf "$package_out/Ferry-$version-linux.tar.gz" || fail "the archive cannot be unpacked"
    cp "$package_out/Ferry-$version-setup.exe" "$new_folder/setup.exe"
    linux_folder=$new_folder/Ferry-$version-linux
    fileop_dll=$linux_folder/ferry_fileop.dll
}

# drive_state: every file and folder of C:, but for what Wine and installers leave for the time being.
drive_state() {
    (cd "$wine_prefix/drive_c" && find . -not -path '*/Temp/*' -not -name SendTo -printf '%y %p\n' | LC_ALL=C sort)
}

# expect_state BEFORE WHAT: C: is as it was.
expect_state() {
    drive_state >"$new_folder/now"
    diff "$1" "$new_folder/now" || fail "$2"
}

# registered COUNT: as many installations of Ferry does the system list.
registered() {
    [ "$(run_wine reg.exe query "$uninstall_key" 2>/dev/null | grep -c 'Ferry (')" = "$1" ]
}

install_silently() {
    run_wine_within 300 "$new_folder/setup.exe" /S "$@" || fail "the installer ended with $? ($*)"
}

# uninstall FOLDER: the uninstaller works in a copy of itself, so its end is waited for by what it does.
uninstall() {
    local waited=0
    run_wine_within 60 "$1/Command/Ferry/Uninstall.exe" /S || fail "the uninstaller ended with $?"
    until [ ! -e "$1/Command/Ferry/Installed.txt" ] && [ ! -e "$1/Command/Ferry/Uninstall.exe" ] && registered 0; do
        [ $((waited += 1)) -le 120 ] || fail "the uninstaller did not end; $1 has $(find "$1" | wc -l) entries"
        sleep 0.5
    done
    wait_for_uninstaller
}
# Its copy, which is told the folder by this word, may still work on the last folders.
wait_for_uninstaller() {
    local waited=0
    while running_in "$wine_prefix" '_?='; do
        [ $((waited += 1)) -le 60 ] || fail "the uninstaller does not end"
        sleep 0.5
    done
}

# expect_layout FOLDER: all that the zip has, byte for byte, but for pages that lie elsewhere.
expect_layout() {
    LC_ALL=C diff -r "$new_folder/zip/Command" "$1/Command" | grep -v -e 'Only in .*: \(Uninstall.exe\|Installed.txt\)$' \
        -e 'Only in .*: \(Readme\.[a-z]*\|Licences\)\.txt$' -e "Only in $1/Command: " && fail "$1 is not what the zip has"
    return 0
}

favourites_of_user() { find "$wine_prefix/drive_c" -type d -path '*/Kiv/Bar/Favorite' -print -quit; }

# Into the usual folder and away again.
check_installer_by_itself() {
    local folder
    say "the installer by itself, and away again"
    drive_state >"$new_folder/before"
    run_wine reg.exe add "$program_key" /v Kept /d 1 /f >/dev/null
    install_silently
    folder=$(find "$wine_prefix/drive_c" -type d -path '*/Programs/Ferry' -print -quit)
    [ -n "$folder" ] || fail "nothing was installed"
    expect_layout "$folder"
    diff -r "$new_folder/zip/Lang" "$folder/Lang" || fail "the message texts differ"
    diff -r "$new_folder/zip/Command/Ferry/Samples/Favourites/ja-JP" "$(favourites_of_user)" ||
        fail "the sample favourites are not there"
    registered 1 || fail "the system does not list Ferry"
    uninstall "$folder"
    expect_state "$new_folder/before" "the uninstaller left something behind, or took too much"
    run_wine reg.exe query "$program_key" /v Kept >/dev/null || fail "the settings are gone"
}

# Beside commands and texts of a host, over an older version, with a favourite that was changed.
check_installer_beside_host() {
    local host=$wine_prefix/drive_c/Host favourite
    say "the installer beside a host, over an older version, and away again"
    mkdir -p "$host/Command/Other" "$host/Lang"
    printf 'other\n' >"$host/Command/Other/Other.exe"
    printf 'of the host\n' >"$host/Lang/Msg.ja-JP.txt"
    drive_state >"$new_folder/before"
    install_silently /SENDTO=1 '/D=C:\Host'
    expect_layout "$host"
    [ "$(cat "$host/Lang/Msg.ja-JP.txt")" = 'of the host' ] || fail "a text of the host was replaced"
    [ "$(find "$wine_prefix/drive_c/users" -path '*/SendTo/*.lnk' | wc -l)" = 2 ] || fail "Send to has not two entries"
    printf 'old\n' >"$host/Command/Ferry/gone.txt"
    printf 'file\tCommand\\Ferry\\gone.txt\r\n' | iconv -f UTF-8 -t UTF-16LE >>"$host/Command/Ferry/Installed.txt"
    printf 'own\n' >"$host/Command/Ferry/own.txt"
    install_silently '/D=C:\Host'
    [ ! -e "$host/Command/Ferry/gone.txt" ] || fail "a file of the older version is still there"
    [ -e "$host/Command/Ferry/own.txt" ] || fail "a file of the user is gone"
    rm "$host/Command/Ferry/own.txt"
    expect_layout "$host"
    favourite=$(find "$(favourites_of_user)" -name '*.txt' -print -quit)
    printf 'changed' >>"$favourite"
    uninstall "$host"
    [ -e "$favourite" ] || fail "a favourite that the user had changed is gone"
    rm -r "$(dirname "$(favourites_of_user)")"
    [ "$(cat "$host/Lang/Msg.ja-JP.txt")" = 'of the host' ] || fail "a text of the host was replaced"
    [ "$(find "$wine_prefix/drive_c/users" -path '*/SendTo/*.lnk' | wc -l)" = 0 ] || fail "Send to has entries left"
    expect_state "$new_folder/before" "the uninstaller left something behind, or took too much"
}

# A start by the sample host and by the launcher, in both languages, from the unpacked zip.
check_new_user() {
    local log=$build/logs/new-user.log
    say "a new user with the unpacked zip"
    mkdir -p "$build/logs"
    rm -rf "$wine_prefix/drive_c/New"
    cp -r "$new_folder/zip" "$wine_prefix/drive_c/New"
    filter='*NewUser*'
    export FERRY_E2E_APP='C:\New' FERRY_E2E_PACKAGE=1 FERRY_E2E_HOST
    FERRY_E2E_HOST=$(windows_path "$samplehost")
    run_to_log "$build/mingw-traps/tests/e2e/ferry_e2e.exe" "$log"
    judge_log "a new user" "$log"
    report_program "a new user" "$last_ok" "$last_bad" "$last_skip"
    if [ "$last_bad" != 0 ] || [ "$last_ok" -lt 8 ] || [ "$last_skip" != 0 ]; then fail "see build/logs/new-user.log"; fi
    unset FERRY_E2E_APP FERRY_E2E_PACKAGE FERRY_E2E_HOST
}

# set_person: what starts a command as a person does, who has a home and a display; this command's own Wine is not
# told of.
set_person() {
    as_person=(env -u WINEPREFIX -u WINELOADER -u WINESERVER -u WINEDLLOVERRIDES -u WINEARCH -u XDG_CONFIG_HOME
        -u XDG_DATA_HOME -u FERRY_PREFIX "LC_ALL=$wine_locale")
}

# expect_code CODE COMMAND...: ends with that code, and says something about it.
expect_code() {
    local code=$1 status=0
    "${as_person[@]}" "${@:2}" >"$new_folder/said" 2>&1 </dev/null 9>&- || status=$?
    [ "$status" = "$code" ] || fail "$* ended with $status: $(cat "$new_folder/said")"
    [ -s "$new_folder/said" ] || fail "$* said nothing"
}

# attach [DESTINATION]: a person at the dialog that the command opens.
attach() { WINEPREFIX=$person_prefix run_wine_within 300 "$build/mingw/tools/attach/attach.exe" "$@"; }

make_linux_tree() {
    linux_tree=$new_folder/tree
    rm -rf "$linux_tree"
    mkdir -p "$linux_tree/写真 2024/夏 休み" "$linux_tree/to"
    printf 'sea\n' >"$linux_tree/写真 2024/夏 休み/海.jpg"
    printf 'dash\n' >"$linux_tree/-x.txt"
    printf 'plain\n' >"$linux_tree/plain.txt"
    printf 'listed\n' >"$linux_tree/listed.txt"
}

# The mistakes that people make first; each has its code, and touches nothing.
check_linux_mistakes() {
    expect_code 64 "$linux_folder/ferry"
    expect_code 0 "$linux_folder/ferry" --help
    expect_code 69 "$linux_folder/ferry" "$linux_tree/plain.txt"
    expect_code 64 "$linux_folder/ferry" setup "$HOME/.wine"
    expect_code 64 "$linux_folder/ferry" setup "$linux_tree"
    [ ! -e "$HOME/.wine" ] || fail "$HOME/.wine was made"
}

check_linux_command() {
    local opened item status=0 waited=0
    say "the command for Linux"
    person_prefix=$new_folder/person
    set_person
    make_linux_tree
    check_linux_mistakes
    expect_code 0 "$linux_folder/ferry" setup "$person_prefix"
    at_end stop_person_prefix
    expect_code 66 "$linux_folder/ferry" "$linux_tree/none"
    : >"$linux_tree/a:b"
    expect_code 66 "$linux_folder/ferry" "$linux_tree/a:b"
    say "ferry copies what was named and what was listed"
    (cd "$linux_tree" && printf 'listed.txt\0' |
        "${as_person[@]}" "$linux_folder/ferry" --list - -- '写真 2024' -x.txt 9>&-) &
    opened=$!
    attach "Z:${linux_tree//\//\\}\\to" || fail "Ferry did not copy"
    wait "$opened" || fail "ferry ended with $?"
    for item in '写真 2024' -x.txt listed.txt; do
        diff -r -- "$linux_tree/$item" "$linux_tree/to/$item" || fail "$item was not copied"
    done
    say "ferry ends with a signal, and takes its Ferry along"
    "${as_person[@]}" "$linux_folder/ferry" --move "$linux_tree/plain.txt" 9>&- &
    opened=$!
    attach || fail "no dialog came"
    kill -TERM "$opened"
    wait "$opened" || status=$?
    [ "$status" = 143 ] || fail "ferry ended with $status after SIGTERM"
    [ -e "$linux_tree/plain.txt" ] || fail "a file is gone"
    while running_in "$person_prefix" '\Ferry'; do
        [ $((waited += 1)) -le 100 ] || fail "Ferry stays behind"
        sleep 0.1
    done
    expect_code 0 "$linux_folder/ferry" remove
    [ ! -e "$person_prefix" ] || fail "remove left $person_prefix"
    [ ! -e "$HOME/.wine" ] || fail "$HOME/.wine was made"
}

# running_in PREFIX TEXT: whether a program whose command line has TEXT runs there.
running_in() {
    local environment
    for environment in /proc/[0-9]*/environ; do
        grep -qzxF "WINEPREFIX=$1" "$environment" 2>/dev/null || continue
        tr '\0' ' ' <"${environment%environ}cmdline" 2>/dev/null | grep -qF -- "$2" && return
    done
    return 1
}
stop_person_prefix() { stop_wine "$person_prefix"; }

check_package() {
    need wine
    build_preset mingw ferry-attach
    build_preset mingw-traps ferry_e2e
    # A prefix made for this: it holds the lock, and its home, as the tests' one does.
    use_wine_dir "$build/wine-new"
    take_wine_lock
    stop_wine_before_fresh_prefix
    unpack_for_new_user
    open_wine virtual
    check_new_user
    check_installer_by_itself
    check_installer_beside_host
    check_linux_command
    say "the packages did what a new user wants of them"
}

# What is left of an interrupted check.
stop_wine_before_fresh_prefix() {
    find_wine
    stop_wine || true
    rm -rf "${wine_dir:?}"/{prefix,home,new}
}

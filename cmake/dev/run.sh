# ./dev run: Ferry copies or moves real files under Wine, and the result is compared.
load build wine

rundriver=$build/mingw/tools/rundriver/rundriver.exe

# make_sample FOLDER: nested folders, Japanese names, an empty folder, an empty file, a read-only and
# a hidden file, a name of 200 characters, and one file large enough to take a moment.
make_sample() {
    local top=$1
    rm -rf "$top"
    mkdir -p "$top/写真 2024/夏休み" "$top/deep/er/and/deeper" "$top/空のフォルダー"
    printf 'こんにちは\r\n' >"$top/メモ.txt"
    printf 'plain text\n' >"$top/deep/er/and/deeper/read me.txt"
    head -c 300000 /dev/urandom >"$top/写真 2024/夏休み/海.jpg"
    head -c 12000000 /dev/urandom >"$top/large.bin"
    : >"$top/empty"
    printf 'read-only\n' >"$top/readonly.txt"
    printf 'hidden\n' >"$top/hidden.txt"
    printf 'long\n' >"$top/$(printf 'n%.0s' {1..196}).txt"
    local windows
    windows=$(windows_path "$top")
    run_wine attrib.exe +r "$windows\\readonly.txt" >/dev/null
    run_wine attrib.exe +h "$windows\\hidden.txt" >/dev/null
}

# take_picture FILE: the screen, once two pictures in a row are the same and so all is drawn.
take_picture() {
    local before=$1.before.png
    import -silent -window root "$1" 9>&- || return 0
    for _ in {1..30}; do
        mv "$1" "$before"
        sleep 0.1
        import -silent -window root "$1" 9>&-
        [ "$(convert "$1" rgb:- | cksum)" = "$(convert "$before" rgb:- | cksum)" ] && break
    done
    rm -f "$before"
}

# drive ARGUMENTS...: runs the driver and takes a picture wherever it pauses, as PICTURES-name.png, with the frames of
# the windows beside it. It fails with a Ferry that does not end well, and with whatever else crashes.
drive() {
    local line picture status=0
    mkdir -p "$build/screenshots"
    coproc driver { LC_ALL=$wine_locale "$wine_loader" "$rundriver" --pause "$@" 2>&1 9>&-; }
    # shellcheck disable=SC2154 # coproc sets it
    local process=$driver_PID input=${driver[1]} output=${driver[0]}
    exec 7<&"$output" 8>&"$input"
    while IFS= read -r line <&7; do
        line=${line%$'\r'}
        case $line in
            'PAUSE '*)
                read -r _ picture line <<<"$line"
                picture=$build/screenshots/$pictures-$picture
                take_picture "$picture.png"
                printf '%s\n' "$line" >"$picture.frames"
                echo >&8 ;;
            *'Unhandled exception'*|*'Unhandled page fault'*)
                printf '   %s\n' "$line"
                status=1 ;;
            *$'\t'*) ;; # the sample host's log
            *) printf '   %s\n' "$line" ;;
        esac
    done
    exec 7<&- 8>&-
    wait "$process" || status=1
    return "$status"
}

# remember ITEM...: a copy of the sources as they are before the run, to compare with afterwards.
remember() {
    before=$build/run/before
    rm -rf "$before"
    mkdir -p "$before"
    cp -a -- "$@" "$before/"
}

# compare_item NAME: one item at the destination against what it was at the source.
compare_item() {
    if diff -r --no-dereference -- "$before/$1" "$destination/$1" >"$build/run/differences" 2>&1; then
        return 0
    fi
    say "NOT the same: $1"
    head -n 20 "$build/run/differences"
    return 1
}

# report ITEM...: says what is now where; fails when a byte differs or a moved source is still there.
report() {
    local item name bad=0
    for item in "$@"; do
        name=$(basename -- "$item")
        compare_item "$name" || { bad=1; continue; }
        printf '   %s -> %s (%s files, %s)\n' "$item" "$destination/$name" \
            "$(find "$destination/$name" -type f | wc -l)" "$(du -sh "$destination/$name" | cut -f1)"
        if [ "$operation" = move ] && [ -e "$item" ]; then
            say "the source is still there: $item"
            bad=1
        elif [ "$operation" = copy ] && ! diff -rq --no-dereference -- "$before/$name" "$item" >/dev/null; then
            say "the source changed: $item"
            bad=1
        fi
    done
    [ "$bad" = 0 ]
}

run_usage="usage: ./dev run [--move] [--individual] [--watch] [PATH... DESTINATION]"

# Reads the options, then the paths into `items` and `destination`.
read_run_arguments() {
    operation=copy watch=0 driver_options=() items=()
    while [ $# -gt 0 ]; do
        case $1 in
            --move) operation=move; driver_options+=(--move) ;;
            --individual) driver_options+=(--individual) ;;
            --watch) watch=1 ;;
            --) shift; break ;;
            -*) fail "$run_usage" ;;
            *) break ;;
        esac
        shift
    done
    [ $# -ne 1 ] || fail "$run_usage"
    [ $# -gt 0 ] || return 0
    local item
    for item in "${@:1:$#-1}"; do
        [ -e "$item" ] || fail "there is no $item"
        items+=("$(realpath -- "$item")")
    done
    destination=$(realpath -m -- "${!#}")
}

# Without paths: a tree of our own, on the prefix's C:.
use_sample() {
    local folder=$wine_prefix/drive_c/FerryRun
    make_sample "$folder/source"
    rm -rf "$folder/destination"
    items=("$folder/source") destination=$folder/destination
}

# The person presses the buttons; nothing is typed or pressed by us.
run_watched() {
    local item arguments=()
    for item in "${items[@]}"; do arguments+=(--item "$(windows_path "$item")"); done
    say "the dialog is on display $DISPLAY; choose $(windows_path "$destination") and press 開始"
    run_wine "$samplehost" --ferry 'C:\Ferry\Command\Ferry\Ferry.exe' "${arguments[@]}" \
        --tab "$(windows_path "$destination")" -- "$([ "$operation" = move ] && echo /m || echo /c)" |
        tr -d '\r' | tee "$build/run/host.log"
    # An exit code does not come through whole; what the host writes down does.
    grep -qx $'ENDED\t0' "$build/run/host.log" || { say "Ferry ended badly: $(grep ^ENDED "$build/run/host.log")"; return 1; }
}

run_driven() {
    local item arguments=()
    for item in "${items[@]}"; do arguments+=("$(windows_path "$item")"); done
    pictures=run
    FERRY_E2E_APP='C:\Ferry' FERRY_E2E_HOST=$(windows_path "$samplehost") \
        drive ${driver_options[@]+"${driver_options[@]}"} --log 'C:\FerryRun.log' \
        "$(windows_path "$destination")" "${arguments[@]}"
}

command_run() {
    read_run_arguments "$@"
    [ "$watch" = 0 ] || [ -n "${DISPLAY:-}" ] || fail "--watch needs a display; DISPLAY is not set"
    build_app
    if [ "$watch" = 1 ]; then open_wine caller; else open_wine virtual; fi
    install_on_c Ferry
    [ "${#items[@]}" -gt 0 ] || use_sample
    mkdir -p "$build/run"
    remember "${items[@]}"
    say "Ferry: $operation ${#items[@]} item(s) to $destination"
    if [ "$watch" = 1 ]; then
        run_watched || fail "the sample host or Ferry ended with an error"
    else
        run_driven || fail "Ferry did not finish; the pictures build/screenshots/run-*.png show where it stood"
        say "the dialog as it was started: build/screenshots/run-filled.png"
    fi
    report "${items[@]}" || fail "the $operation went wrong; see above"
    rm -rf "$before"
    say "every file was compared byte for byte: the same"
}

# ./dev screenshots: every dialog in both languages, at 100 % and at 150 %, for somebody to look at.
load run

settings_key='HKCU\Software\Marrowby\Kiv\Main001\Settings'
scaling_key='HKCU\Control Panel\Desktop'

# One run that meets a name which exists, under the collision policy $1.
picture_collision() {
    local folder=$wine_prefix/drive_c/FerryPictures
    rm -rf "$folder"
    mkdir -p "$folder/source" "$folder/destination"
    printf 'new\n' | tee "$folder/source/報告書 - コピー (2).txt" >"$folder/source/other.txt"
    printf 'old\n' >"$folder/destination/報告書 - コピー (2).txt"
    drive --individual --policy "$1" --log 'C:\FerryPictures.log' 'C:\FerryPictures\destination' \
        'C:\FerryPictures\source\報告書 - コピー (2).txt' 'C:\FerryPictures\source\other.txt'
}

other_tabs=(--tab 'C:\FerryRun\destination' --tab 'D:\写真\2024' --tab 'D:\Backup'
    --tab '\\server\share\archive' --tab 'C:\Users\Public\Documents')

# picture_batch OPTION...: a batch run of the sample, the dialog as most users see it.
picture_batch() {
    local folder=$wine_prefix/drive_c/FerryRun
    make_sample "$folder/source"
    rm -rf "$folder/destination"
    drive "$@" --log 'C:\FerryPictures.log' 'C:\FerryRun\destination' 'C:\FerryRun\source'
}

# One run that has to leave some things behind, each for a reason of its own.
picture_report() {
    local folder=$wine_prefix/drive_c/FerryPictures
    rm -rf "$folder"
    mkdir -p "$folder/source/写真 2024/夏休み" "$folder/destination"
    printf 'here\n' | tee "$folder/source/メモ.txt" >"$folder/source/写真 2024/夏休み/海.jpg"
    # A file where the folder would have to be made.
    printf 'old\n' >"$folder/destination/写真 2024"
    drive --individual --policy 2 --log 'C:\FerryPictures.log' 'C:\FerryPictures\destination' \
        'C:\FerryPictures\source\メモ.txt' 'C:\FerryPictures\source\gone.txt' \
        'C:\FerryPictures\source\写真 2024' 'Q:\Backup\2024\報告書 - 第3四半期 (確定版).xlsx' \
        '\\server\share\archive\plan.docx'
}

# Which items of that run take long: the first one, the first of a folder, one among quick ones, two that are
# large, the second of them so large that the shell shows its own progress, the first of a folder below, and
# the one of the last source.
slow_moments=(1 2 15 22 23 24 25)

# items_begun LOG: how many items the file-operation service was given.
items_begun() {
    local count
    count=$(grep -c ^CopyItem "$1" 2>/dev/null) || true
    echo "${count:-0}"
}

# A run of slow, quick and large files, with a picture of each slow moment.
picture_progress() {
    local folder=$wine_prefix/drive_c/FerryPictures log=$wine_prefix/drive_c/FerryFileOps.log
    local moment run number faults=
    rm -rf "$folder" "$log"
    mkdir -p "$folder/source/写真 2024/夏休み" "$folder/destination"
    printf 'small\n' | tee "$folder/source/はじめに.txt" "$folder/source/おわりに.txt" \
        >"$folder/source/写真 2024/夏休み/海.jpg"
    for number in {01..20}; do printf '%s\n' "$number" >"$folder/source/写真 2024/IMG_$number.jpg"; done
    head -c 5000000 /dev/zero >"$folder/source/写真 2024/movie.mp4"
    head -c 12000000 /dev/zero >"$folder/source/写真 2024/video.mov"
    for moment in "${slow_moments[@]}"; do faults+=${faults:+,}slow@$moment:4000; done
    FERRY_FILEOP_LOG='C:\FerryFileOps.log' FERRY_FILEOP_FAULTS=$faults drive --individual --policy 3 \
        --log 'C:\FerryPictures.log' 'C:\FerryPictures\destination' 'C:\FerryPictures\source\はじめに.txt' \
        'C:\FerryPictures\source\写真 2024' 'C:\FerryPictures\source\おわりに.txt' &
    run=$!
    for moment in "${slow_moments[@]}"; do
        until [ "$(items_begun "$log")" -ge "$moment" ] || ! kill -0 "$run" 2>/dev/null; do sleep 0.05; done
        sleep 1
        # The shell's own progress never stands still.
        import -silent -window root "$build/screenshots/$pictures-$(printf '%02d' "$moment").png" 9>&-
    done
    wait "$run"
}

# picture_language LANGUAGE SCALE: the progress window stands beside the questions of the runs.
picture_language() {
    local name=$1-$2
    run_wine reg.exe add "$settings_key" /v NLS /d ".$1" /f >/dev/null
    pictures=$name-batch; picture_batch || fail "the batch run did not end; see build/screenshots/$pictures-*.png"
    pictures=$name-tabs; picture_batch --tab-list "${other_tabs[@]}" || fail "the run with a tab list did not end"
    pictures=$name-decide; picture_collision 7 || fail "the individual run did not end"
    pictures=$name-rename; picture_collision 4 || fail "the renaming run did not end"
    pictures=$name-report; picture_report || fail "the run that leaves something behind did not end"
    pictures=$name-progress; picture_progress || fail "the run with slow files did not end"
}

# scale_to PERCENT: of programs that start from now on.
scale_to() {
    run_wine reg.exe add "$scaling_key" /v LogPixels /t REG_DWORD /d $((96 * $1 / 100)) /f >/dev/null
}

undo_picture_settings() {
    run_wine reg.exe delete "$settings_key" /v NLS /f
    run_wine reg.exe delete "$scaling_key" /v LogPixels /f
} >/dev/null 2>&1

command_screenshots() {
    local language scale
    build_app
    open_wine virtual
    install_on_c Ferry
    FERRY_E2E_HOST=$(windows_path "$samplehost")
    export FERRY_E2E_HOST FERRY_E2E_APP='C:\Ferry'
    rm -f "$build"/screenshots/{ja-JP,en-US}-*.png
    at_end undo_picture_settings
    for scale in 100 150; do
        scale_to "$scale"
        for language in ja-JP en-US; do
            say "$language at $scale %"
            picture_language "$language" "$scale"
        done
    done
    say "pictures:"
    find "$build/screenshots" -name '*.png' -printf '   build/screenshots/%f\n' | sort
}

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

# picture_language LANGUAGE SCALE: the progress window stands beside the questions of the runs.
picture_language() {
    local name=$1-$2
    run_wine reg.exe add "$settings_key" /v NLS /d ".$1" /f >/dev/null
    pictures=$name-batch; picture_batch || fail "the batch run did not end; see build/screenshots/$pictures-*.png"
    pictures=$name-tabs; picture_batch --tab-list "${other_tabs[@]}" || fail "the run with a tab list did not end"
    pictures=$name-decide; picture_collision 7 || fail "the individual run did not end"
    pictures=$name-rename; picture_collision 4 || fail "the renaming run did not end"
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

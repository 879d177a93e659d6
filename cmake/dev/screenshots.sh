# ./dev screenshots: every window in both languages and at several scalings, for somebody to look at, and the pictures
# of the documentation.
load run pictures

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

# make_favourites LANGUAGE: the user's folder with the sample favourites in it, and as the last of them one that runs
# until it is stopped.
make_favourites() {
    local user=$wine_prefix/drive_c/FerryPicturesUser last='Wait for the disk' script name
    [ "$1" != ja-JP ] || last=待機
    rm -rf "$user"
    mkdir -p "$user/Bar/Favorite"
    while IFS= read -r script; do
        name=$user/Bar/Favorite/${script%.script.txt}.txt
        mkdir -p "$(dirname "$name")"
        iconv -f UTF-8 -t UTF-16LE "$root/samples/favourites/$1/$script" >"$name"
    done < <(cd "$root/samples/favourites/$1" && find . -name '*.script.txt')
    printf 'do\r\nwait=100\r\nwhile 1==1\r\n' | iconv -f UTF-8 -t UTF-16LE >"$user/Bar/Favorite/$last.txt"
    run_wine reg.exe add "$settings_key" /v UserDirMode /t REG_DWORD /d 2 /f >/dev/null
    run_wine reg.exe add "$settings_key" /v UserDir /d 'C:\FerryPicturesUser' /f >/dev/null
}

# The menu with a submenu, the sign of a script that runs, and what is said when it was stopped.
picture_favourites() {
    make_favourites "$1"
    picture_batch --favourites --last-favourite
}

# picture_launcher: what the launcher says about itself.
picture_launcher() { drive --show 'C:\Ferry\Command\Ferry\FerryOpen.exe' --help; }

# picture_trace NAME: a script that ran, in the window that watches scripts, which speaks the language of the user. NAME
# is that of a variable.
picture_trace() {
    local folder=$wine_prefix/drive_c/FerryPictures
    rm -rf "$folder"
    mkdir -p "$folder"
    cp "$build/mingw/tools/script/FerryScript.exe" "$build/mingw/tools/tracewindow/FerryTrace.exe" "$folder/"
    sed 's/$/\r/' <<SCRIPT | iconv -f UTF-8 -t UTF-16LE >"$folder/count.txt"
// Counts, and keeps a name for each.
debug
var count
var $1
count=0
do
    count=+1
    $1=Photo ?Year?-count
while count<5
SCRIPT
    drive --show --beside 'C:\FerryPictures\FerryScript.exe run C:\FerryPictures\count.txt' \
        'C:\FerryPictures\FerryTrace.exe'
}

# picture_motion: a copy of a folder from the dialog to its end, with a name that exists. What arrived then is in
# motion_names.
picture_motion() {
    local folder=$wine_prefix/drive_c/FerryPictures number faults=
    rm -rf "$folder"
    mkdir -p "$folder/Photos" "$folder/destination/Photos"
    for number in 1 2 3 4 5 6; do
        printf 'new %s\n' "$number" >"$folder/Photos/IMG_$number.jpg"
        faults+=${faults:+,}slow@$number:1000
    done
    printf 'old\n' | tee "$folder/destination/Photos/IMG_2.jpg" >"$folder/destination/Photos/IMG_5.jpg"
    FERRY_FILEOP_FAULTS=$faults drive --individual --policy 7 --choose 6 --progress --log 'C:\FerryPictures.log' \
        'C:\FerryPictures\destination' 'C:\FerryPictures\Photos' || return
    motion_names=$(cd "$folder/destination/Photos" && find . -name '*.jpg' -printf '%f\n' | sort)
}

# picture LANGUAGE-SCALE WHAT FUNCTION ARGUMENT...: the pictures of one run.
picture() {
    pictures=$1-$2
    "${@:3}" || fail "the run for $pictures did not end; see build/screenshots/$pictures-*.png"
}

# use_language LANGUAGE: the system's own texts and the fonts as on a Windows of that language, for programs that start
# from now on. The first program with windows after a change of the locale writes Wine's own choice of fonts into the
# registry, so one runs before ours is written.
use_language() {
    FERRY_LOCALE=${1/-/_}.UTF-8 make_locale
    run_wine regedit.exe /S 'C:\no-such-file.reg' >/dev/null 2>&1 || true
    use_fonts "$1"
}

# speak LANGUAGE: Ferry, and all that it stands on.
speak() {
    run_wine reg.exe add "$settings_key" /v NLS /d ".$1" /f >/dev/null
    use_language "$1"
}

# picture_language LANGUAGE SCALE: the progress window stands beside the questions of the runs.
picture_language() {
    local name=$1-$2
    # A list of folders is not to show what tests and the other language left.
    rm -rf "$wine_prefix"/drive_c/{ferry-e2e,FerryTest,FerryBench,FerryPictures*}
    speak "$1"
    picture "$name" batch picture_batch
    picture "$name" tabs picture_batch --tab-list "${other_tabs[@]}"
    picture "$name" decide picture_collision 7
    picture "$name" rename picture_collision 4
    picture "$name" report picture_report
    picture "$name" progress picture_progress
    picture "$name" favourites picture_favourites "$1"
    picture "$name" launcher picture_launcher
}

# scale_to PERCENT: of programs that start from now on.
scale_to() {
    run_wine reg.exe add "$scaling_key" /v LogPixels /t REG_DWORD /d $((96 * $1 / 100)) /f >/dev/null
}

undo_picture_settings() {
    run_wine reg.exe delete "$settings_key" /v NLS /f
    run_wine reg.exe delete "$settings_key" /v UserDirMode /f
    run_wine reg.exe delete "$settings_key" /v UserDir /f
    run_wine reg.exe delete "$scaling_key" /v LogPixels /f
    use_language ja-JP
    rm -rf "$wine_prefix"/drive_c/FerryPictures*
} >/dev/null 2>&1

# read_picture_arguments ARGUMENT...: sets `scales` and `publish`.
read_picture_arguments() {
    scales=() publish=0
    local argument
    for argument in "$@"; do
        case $argument in
            --publish) publish=1 ;;
            100|125|150|175|200) scales+=("$argument") ;;
            *) fail "usage: ./dev screenshots [--publish] [100] [125] [150] [175] [200]" ;;
        esac
    done
    [ "${#scales[@]}" -gt 0 ] || scales=(100 125 150 200)
    # The documentation shows what most people see.
    [ "$publish" = 0 ] || [[ " ${scales[*]} " == *' 100 '* ]] || scales=(100 "${scales[@]}")
}

command_screenshots() {
    local language scale
    declare -A variable=([ja-JP]=名前 [en-US]=label)
    read_picture_arguments "$@"
    build_app
    build_preset mingw ferry-script ferry-trace
    # Two windows beside each other at 200 %.
    screen_size=1920x1200
    open_wine virtual
    install_on_c Ferry
    FERRY_E2E_HOST=$(windows_path "$samplehost")
    export FERRY_E2E_HOST FERRY_E2E_APP='C:\Ferry'
    rm -f "$build"/screenshots/*-[12]??-*.{png,frames}
    at_end undo_picture_settings
    for scale in "${scales[@]}"; do
        scale_to "$scale"
        for language in ja-JP en-US; do
            say "$language at $scale %"
            picture_language "$language" "$scale"
        done
    done
    if [ "$publish" = 1 ]; then
        scale_to 100
        for language in ja-JP en-US; do
            speak "$language"
            picture "$language-100" motion picture_motion
            picture "$language-100" trace picture_trace "${variable[$language]}"
        done
        publish_pictures
    fi
    say "pictures:"
    find "$build/screenshots" -name '*.png' -printf '   build/screenshots/%f\n' | sort
}

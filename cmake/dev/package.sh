# ./dev package: a zip, an installer and an archive for Linux, the same bytes from the same commit; with --check
# tried as a new user would.
load build package_check

package_out=$build/package
package_stage=$build/package-stage
largest_program=$((1200 * 1000))

# The moment that everything in a package bears: that of the commit.
package_epoch() {
    printf '%s\n' "${SOURCE_DATE_EPOCH:-$(git -C "$root" log -1 --format=%ct 2>/dev/null || echo 315532800)}"
}

package_version() { sed -n 's/^CMAKE_PROJECT_VERSION:[^=]*=//p' "$build/mingw/CMakeCache.txt"; }

# to_utf16 SOURCE TARGET: as programs on Windows read texts: UTF-16, lower byte first, with a mark and CR LF.
to_utf16() {
    mkdir -p "$(dirname "$2")"
    { printf '\xff\xfe' && sed 's/$/\r/' "$1" | iconv -f UTF-8 -t UTF-16LE; } >"$2" || fail "$1 is not UTF-8"
}

# to_notepad SOURCE TARGET: UTF-8 with a mark and CR LF, so that every editor there shows it.
to_notepad() {
    { printf '\xef\xbb\xbf' && sed -e "s/@VERSION@/$version/" -e 's/$/\r/' "$1"; } >"$2"
}

# stage_scripts FROM TO: scripts as the host runs them, without the lines that only tests read.
stage_scripts() {
    local script name
    while IFS= read -r script; do
        name=${script%.script.txt}
        sed -e '/^\/\/[@>]/d' "$1/$script" | cat -s >"$stage/script"
        to_utf16 "$stage/script" "$2/$name.txt"
        rm "$stage/script"
    done < <(cd "$1" && find . -name '*.script.txt' | sort)
}

# stage_windows BUILD_FOLDER: the layout, and what comes beside it for a person on Windows.
stage_windows() {
    local to=$stage/windows/Command/Ferry
    cmake --install "$1" --component app --prefix "$stage/windows" >/dev/null || fail "installing the layout failed"
    cmake --install "$1" --component script-tools --prefix "$to/Tools" >/dev/null ||
        fail "installing the script tools failed"
    stage_scripts "$root/samples/favourites" "$to/Samples/Favourites"
    stage_scripts "$root/tools/script/examples" "$to/Samples/Scripts"
    stage_texts "$stage/windows" Readme.en Readme.ja Licences
}

# stage_texts FOLDER NAME...
stage_texts() {
    local name
    for name in "${@:2}"; do to_notepad "$root/packaging/texts/$name.txt" "$1/$name.txt"; done
}

# stage_linux BUILD_FOLDER: the same layout, the file-operation service and the command.
stage_linux() {
    local to=$stage/linux/Ferry-$version-linux
    mkdir -p "$to"
    cp -r "$stage/windows" "$to/app"
    rm "$to"/app/Readme.*.txt "$to/app/Licences.txt"
    cp "$1/tools/fileop/ferry_fileop.dll" "$to/ferry_fileop.dll"
    sed "s/@VERSION@/$version/" "$root/packaging/linux/ferry" >"$to/ferry"
    sed "s/@VERSION@/$version/" "$root/packaging/linux/README.md" >"$to/README.md"
    cp "$root/packaging/texts/Licences.txt" "$to/"
    chmod 755 "$to/ferry"
}

# smooth FOLDER: modes and times no longer tell who packed, and when.
smooth() {
    chmod -R u=rwX,go=rX "$1"
    find "$1" -exec touch -h -d "@$epoch" {} +
}

# list_for_installer FOLDER: the files of the layout as the installer's own statements, in the order of names.
list_for_installer() {
    local folder last=
    while IFS= read -r file; do
        folder=$(dirname "$file")
        if [ "$folder" != "$last" ]; then
            printf '!insertmacro IntoFolder "%s"\n' "${folder//\//\\}"
            last=$folder
        fi
        printf '!insertmacro %s "%s" "%s" "%s"\n' "$2" "$1/$file" "${folder//\//\\}" "$(basename "$file")"
    done
}

# installer_lists FOLDER: what goes where, and which section has it.
installer_lists() {
    local from=$stage/windows to=$stage/installer
    mkdir -p "$to"
    (cd "$from" && find Command -type f -not -path '*/Tools/*' | LC_ALL=C sort) |
        list_for_installer "$from" InstallFile >"$to/program.nsh"
    (cd "$from" && find Lang -type f | LC_ALL=C sort) | list_for_installer "$from" InstallIfMissing >"$to/texts.nsh"
    (cd "$from" && find Command/Ferry/Tools -type f | LC_ALL=C sort) |
        list_for_installer "$from" InstallFile >"$to/tools.nsh"
    local language
    for language in ja-JP en-US; do favourites_list "$language" >"$to/favourites-$language.nsh"; done
    printf '!insertmacro IntoFolder "Command\\Ferry"\n' >"$to/readme.nsh"
    for language in Readme.en.txt Readme.ja.txt Licences.txt; do
        printf '!insertmacro InstallFile "%s" "Command\\Ferry" "%s"\n' "$from/$language" "$language"
    done >>"$to/readme.nsh"
}

# favourites_list LANGUAGE: the sample favourites of a language, each with the folder below the user's own.
favourites_list() {
    local file folder
    (cd "$stage/windows/Command/Ferry/Samples/Favourites/$1" && find . -type f | LC_ALL=C sort) |
        while IFS= read -r file; do
            file=${file#./} folder=
            [[ $file != */* ]] || folder=\\${file%/*}
            file=${file//\//\\}
            printf '!insertmacro InstallFavourite "%s" "%s" "%s"\n' \
                "Command\\Ferry\\Samples\\Favourites\\$1\\$file" "${folder//\//\\}" "\\$file"
        done
}

# Half of the names are Japanese, which the compiler of installers reads by the locale.
make_installer() {
    installer_lists
    local kilobytes
    kilobytes=$(find "$stage/windows" -type f -printf '%s\n' | awk '{ sum += $1 } END { print int((sum + 1023) / 1024) }')
    SOURCE_DATE_EPOCH=$epoch TZ=UTC LC_ALL=C.UTF-8 makensis -V2 -WX -INPUTCHARSET UTF8 \
        "-DVERSION=$version" "-DLISTS=$stage/installer" "-DICON=$root/res/ferry.ico" "-DKILOBYTES=$kilobytes" \
        "-DOUT=$out/Ferry-$version-setup.exe" "$root/packaging/windows/ferry.nsi" >"$stage/makensis.log" 2>&1 ||
        { cat "$stage/makensis.log" >&2; fail "the installer could not be made"; }
}

# pack BUILD_FOLDER STAGE OUT: makes the three packages in OUT.
pack() {
    stage=$2 out=$3 epoch=$(package_epoch) version=$(package_version)
    rm -rf "$stage" "$out"
    mkdir -p "$stage" "$out"
    stage_windows "$1"
    stage_linux "$1"
    smooth "$stage"
    python3 "$root/packaging/zip.py" "$out/Ferry-$version.zip" "$stage/windows" "$epoch" || fail "packing the zip failed"
    (cd "$stage/linux" && tar --sort=name --format=gnu --mtime="@$epoch" --owner=0 --group=0 --numeric-owner \
        -cf - "Ferry-$version-linux" | gzip -n -9 >"$out/Ferry-$version-linux.tar.gz") ||
        fail "packing the archive for Linux failed"
    make_installer
    (cd "$out" && sha256sum -- Ferry-* >SHA256SUMS)
}

# judge_programs: small, hardened, and leaning on nothing but Windows.
judge_programs() {
    local program size said
    size=$(stat -c %s "$package_stage/windows/Command/Ferry/Ferry.exe")
    [ "$size" -le "$largest_program" ] || fail "Ferry.exe has $size bytes; $largest_program is the most it may have"
    while IFS= read -r program; do
        said=$(bash "$root/cmake/checks/executable.sh" "$program") ||
            fail "${program#"$package_stage/"}: $(grep -E 'MISSING|NOT' <<<"$said")"
    done < <(find "$package_stage/windows" -name '*.exe' | sort)
}

report_package() {
    local name
    say "the packages of $(git -C "$root" describe --always --dirty 2>/dev/null || echo "this tree"):"
    while read -r sum name; do
        printf '   %9d  %s  %s\n' "$(stat -c %s "$package_out/$name")" "$sum" "build/package/$name"
    done <"$package_out/SHA256SUMS"
    printf '   %9d  Ferry.exe in them; the most it may have is %d\n' \
        "$(stat -c %s "$package_stage/windows/Command/Ferry/Ferry.exe")" "$largest_program"
}

# compare_packages FOLDER WHAT: byte for byte.
compare_packages() {
    diff "$package_out/SHA256SUMS" "$1/SHA256SUMS" || fail "$2 gave other bytes"
    say "$2 gave the same bytes"
    rm -rf "$1"
}

# All programs of the packages.
build_packaged() {
    build_app
    build_preset mingw ferry-script ferry-trace
}

# rebuild_elsewhere: everything once more, from nothing and in another folder.
rebuild_elsewhere() {
    local folder=$build/mingw-again
    rm -rf "$folder"
    say "building once more in ${folder#"$root/"}"
    (cd "$root" && cmake --preset mingw -B "$folder" >"$build/configure-again.log" 2>&1 &&
        ninja -C "$folder" --quiet -j "$(jobs)" Ferry FerryOpen ferry_texts ferry_fileop ferry-script ferry-trace) || fail "the second build failed; see build/configure-again.log"
    pack "$folder" "$build/package-again-stage" "$build/package-again"
    rm -rf "$build/package-again-stage" "$folder"
    compare_packages "$build/package-again" "a build in another folder"
}

command_package() {
    local checks=0 rebuilds=0
    while [ $# -gt 0 ]; do
        case $1 in
            --check) checks=1 ;;
            --rebuild) rebuilds=1 ;;
            *) fail "usage: ./dev package [--check] [--rebuild]" ;;
        esac
        shift
    done
    need build package
    build_packaged
    pack "$build/mingw" "$package_stage" "$package_out"
    judge_programs
    pack_again
    [ "$rebuilds" = 0 ] || rebuild_elsewhere
    [ "$checks" = 0 ] || check_package
    report_package
}

# Packing takes seconds, so it is always done twice.
pack_again() {
    sleep 1 # whatever bears the time of day shall show it
    pack "$build/mingw" "$build/package-again-stage" "$build/package-again"
    rm -rf "$build/package-again-stage"
    compare_packages "$build/package-again" "packing again"
}

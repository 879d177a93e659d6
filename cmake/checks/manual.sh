#!/usr/bin/env bash
# manual.sh [FOLDER]: the manual below FOLDER (res/manual) holds together: its pages are well formed and can be read
# aloud, every link and picture is there, both languages say the same, and nothing is missing that a person sees in
# the dialogs or writes in a script. Run from the project's root; manual_test.sh beside it tries it out.
set -euo pipefail
export LC_ALL=C
manual=${1:-res/manual}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
# A file, since some of the checks run in processes of their own.
complain() { printf '   %s\n' "$*"; touch "$work/bad"; }

declare -A anchors  # every id, as FILE#ID

# Where the English front page finds the others when it is installed.
from_front=../../../../../../Manual/kiv/man5/6.Command/2.DefaultCommand/

# read_page FILE LANGUAGE: FILE is below the manual's folder.
read_page() {
    mkdir -p "$work/$(dirname "$1")"
    awk -v page="$1" -v lang="$2" -v facts="$work/$1.facts" -v text="$work/$1.text" \
        -f cmake/checks/manual.awk "$manual/$1" || touch "$work/bad"
    local kind value
    while IFS=$'\t' read -r kind value; do
        [ "$kind" != id ] || anchors[$1#$value]=1
    done <"$work/$1.facts"
}

pages_of() { (cd "$manual/Ferry/$1" && printf '%s\n' *.html); }

# resolve FILE LINK: sets target to the file that LINK of the page FILE means, with its anchor.
resolve() {
    local folder=${1%/*} link=$2
    [ "$folder" != "$1" ] || folder=
    [ "$1" != Ferry.en-US.html ] || link=${link#"$from_front"}
    case $link in '#'*) target=$1$link; return ;; esac
    while [[ $link == ../* ]]; do
        link=${link#../}
        [[ $folder == */* ]] && folder=${folder%/*} || folder=
    done
    target=${folder:+$folder/}$link
}

# check_links FILE: everything that the page FILE leads to is there.
check_links() {
    local page=$1 kind value target
    while IFS=$'\t' read -r kind value; do
        [ "$kind" != id ] || continue
        case $value in *:*) complain "$page leads out of the manual: $value"; continue ;; esac
        resolve "$page" "$value"
        case $target in
            # The pictures are those of the docs.
            Ferry/images/*) [ -f "docs/images/${target#Ferry/images/}" ] || complain "$page: no picture $value" ;;
            *) [ -f "$manual/${target%%#*}" ] || complain "$page: no page $value" ;;
        esac
        [[ $target != *'#'* ]] || [ -n "${anchors[$target]:-}" ] || complain "$page: nothing is called $value"
    done <"$work/$page.facts"
}

# shape FILE: what a page and its translation have in common.
shape() { grep -v $'^href\t' "$1" | sed -E 's/-(ja|en)\.png$/.png/'; grep -o '#.*' "$1" || true; }

# wanted FILE WHAT: every line of the standard input stands in the text of FILE; blanks and line breaks do not count.
wanted() {
    # A page that is missing was told of.
    [ -f "$1" ] || { cat >/dev/null; return; }
    awk -v what="$2" -v file="${1#"$work/"}" '
        NR == FNR { text = text $0; next }
        { gsub(/[ \t\r]/, "") }
        $0 != "" && !index(text, $0) { printf "   %s does not have the %s: %s\n", file, what, $0; bad = 1 }
        END { exit bad }' "$1" - || touch "$work/bad"
}

# as_read: a text as a person reads it, in pieces where the program puts something in.
as_read() {
    sed -E 's/ *\(&.\)//g; s/&//g; s/\\n//g; s/%[12]/\n/g'
}

# japanese_of TEMPLATE: the texts that the dialog template shows. The undo box is never seen.
japanese_of() {
    grep -E '^ *(CAPTION|LTEXT|CONTROL|GROUPBOX|PUSHBUTTON|DEFPUSHBUTTON) ' "res/$1_dialog.rc" |
        grep -v -e IDC_RENAME_UNDO -e '"xxx"' -e '(9999999999)' | sed -nE 's/^[^"]*"([^"]*)".*/\1/p'
}

# english_of NUMBER: the same of a language file, and the entries of its lists.
english_of() {
    sed -n '1p' "res/lang/en-US/$1.txt"
    awk -F '\t' 'NR > 1 && NF == 3 && $1 != 1032 { print $3 }' "res/lang/en-US/$1.txt"
}

# entries_of ARRAY...: the entries of lists in Japanese, which the dialogs' code holds.
entries_of() {
    local array
    for array; do
        awk -v start=" ${array}[] = {" 'index($0, start) { on = 1 } on { print } /};/ { on = 0 }' src/dialogs/*.h src/dialogs/*.cpp |
            grep -o 'L"[^"]*"'
    done | sed 's/^L"//; s/"$//'
}

# check_dialog PAGE TEMPLATE NUMBER [ARRAY...]: the page has each text of the dialog and of its lists.
check_dialog() {
    {
        japanese_of "$2"
        entries_of "${@:4}"
    } | as_read | wanted "$work/Ferry/ja/$1.html.text" "text of dialog $3"
    english_of "$3" | as_read | wanted "$work/Ferry/en/$1.html.text" "text of dialog $3"
}

# check_messages LANGUAGE SUFFIX: the page of messages has each text that the program fetches, and its number.
check_messages() {
    local page=$work/Ferry/$1/messages.html.text
    # Some numbers are the host's alone.
    grep -rhowE '[0-9]{4,5}' src | sort -u >"$work/numbers"
    awk -F '\t' 'NR == FNR { used[$1] = 1; next } $1 in used' "$work/numbers" "res/lang/Msg.$2.txt" >"$work/fetched"
    cut -f 1 "$work/fetched" | wanted "$page" "message number"
    cut -f 2 "$work/fetched" | as_read | wanted "$page" message
}

# script_words: the words of the script language, in small letters.
script_words() {
    {
        sed -nE 's/^ *\{L"([a-z_0-9]+)".*/\1/p' src/script/words.cpp src/script/source.cpp
        sed -n '/kReserved\[\]/,/};/p' src/script/words.cpp | grep -o '"[a-z]*"' | tr -d '"'
    } | sort -u
}

# placeholders: what is replaced in texts.
placeholders() {
    grep -ohE 'L"(\?[A-Za-z]+\?|%[A-Za-z]+_[Dd]ir%)"' src/paths/placeholders.cpp src/script/*.h src/script/*.cpp |
        sed 's/^L"//; s/"$//' | sort -u
}

# script_messages: what a script may be told, in pieces.
script_messages() {
    grep -oh 'L"[^"]*"' src/script/messages.cpp | sed 's/^L"//; s/"$//' | grep '[a-z][a-z][a-z]' | sed 's/\\n/\n/g'
    echo 'Timeout!'
    echo 'Are you sure you want to kill the process?'
}

check_scripts() {
    local page=Ferry/$1/script-reference.html word
    tr '[:upper:]' '[:lower:]' <"$manual/$page" >"$work/lower"
    while IFS= read -r word; do
        grep -qE "<code>$word([^a-z0-9_]|$)" "$work/lower" || complain "$page does not explain $word"
    done < <(script_words)
    while IFS= read -r word; do
        grep -qF -e "<code>$word</code>" "$manual/$page" || complain "$page does not explain $word"
    done < <(placeholders)
    sed -nE 's/.*\{L"([^"]*)", Operator::.*/\1/p; s/.*\}, \{L"([^"]*)", Operator::.*/\1/p' src/script/conditions.cpp |
        wanted "$work/$page.text" operator
    script_messages | wanted "$work/$page.text" message
}

# check_switches LANGUAGE: the page of the launcher has each of its switches.
check_switches() {
    [ -f tools/launcher/launch_options.cpp ] || return 0
    grep -oE '\{L"[a-z?]+", ' tools/launcher/launch_options.cpp | sed -E 's/.*"(.*)".*/\/\1/' |
        while IFS= read -r word; do
            grep -qE "<code>${word//\?/\\?}( |<)" "$manual/Ferry/$1/launcher.html" ||
                complain "Ferry/$1/launcher.html does not explain $word"
        done
}

# check_help: each page that F1 opens is there.
check_help() {
    local topic count=0
    while IFS= read -r topic; do
        count=$((count + 1))
        for language in ja en; do
            [ -f "$manual/Ferry/$language/$topic.html" ] || complain "F1 opens Ferry/$language/$topic.html, which is missing"
        done
    done < <(grep -oE 'L"[a-z-]+"' src/dialogs/ferry_dialog_help.cpp | tr -d 'L"')
    [ "$count" -ge 5 ] || complain "F1 has lost its pages"
}

[ "$(pages_of ja)" = "$(pages_of en)" ] || complain "the two languages do not have the same pages"
read_page Ferry.html ja
read_page Ferry.en-US.html en
for language in ja en; do
    for name in $(pages_of "$language"); do read_page "Ferry/$language/$name" "$language"; done
done
check_links Ferry.html
check_links Ferry.en-US.html
for language in ja en; do
    for name in $(pages_of "$language"); do check_links "Ferry/$language/$name"; done
done
for name in $(pages_of ja); do
    [ -f "$work/Ferry/en/$name.facts" ] || continue
    diff <(shape "$work/Ferry/ja/$name.facts") <(shape "$work/Ferry/en/$name.facts") >"$work/differences" ||
        complain "$name differs between the languages: $(tr '\n' ' ' <"$work/differences")"
done
check_dialog confirmation ferry 102 kPrecisions
check_dialog progress busy 131
check_dialog rename input 133 kDateFormats kTimeFormats kWeekdayFormats kDateSources
check_dialog collision file_mode 134
check_dialog report report 135
check_messages ja ja-JP
check_messages en en-US
for language in ja en; do
    check_scripts "$language"
    check_switches "$language"
done
check_help
[ ! -e "$work/bad" ] || exit 1
printf '   %d pages in each language\n' "$(pages_of ja | wc -l)"

#!/usr/bin/env bash
# docs.sh [PROGRAM]: reads every page (*.md) and says what is wrong in it. Run from the project's root; docs_test.sh
# beside it tries it out.
#
# Looked at here, in each page:
# - links and pictures: the file is there, the heading is there, a picture is one and not empty
# - `./dev ...`, in a block or in a sentence: the command, its arguments and its options stand in `./dev help`,
#   which is really run; and docs/building.md names every command of it
# - paths of the project, names of its sources, FERRY_... variables: they are there. A word in capitals, as in
#   tests/core/ROOM, stands for any text, and so does a language that is not there yet.
# - presets and components of CMake: they are there, and docs/building.md has every preset
# - options of the project's programs: they stand in the program's source
# - a line of an ```sh block begins with a program that is known here
# - docs/README.md leads to every page of docs, every picture of docs/images is shown by some page or by the
#   manual, and docs/performance.md has every figure of the benchmarks
#
# Run elsewhere: ```script blocks of docs and the example scripts by the test program core_script_files, and what
# `./dev` has that takes long (test, check, build, run) by .ci/run and the tests themselves. With PROGRAM, which is
# ferry-script, also run here: each `./dev script ...` whose arguments are files that are there, and each ```json
# block, which is a world; the next ```json block is its result.
set -euo pipefail
export LC_ALL=C
program=${1:-}
facts=$(mktemp)
helped=$(mktemp)
trap 'rm -f "$facts" "$helped"' EXIT
bad=0 count=0
complain() { bad=1; printf '   %s: %s\n' "$place" "$1"; }

mapfile -t pages < <(find . -name '*.md' -not -path './build/*' -not -path './.git/*' | sed 's|^\./||' | sort)
[ "${#pages[@]}" -gt 0 ] || { echo "   there are no pages here"; exit 1; }

# What a page says, a line each: kind, page, line, text, with TABs between. `link` and `heading` stand in the text,
# `code` in a block or between back quotes, `sh` in an ```sh block, `fence` begins a block.
# shellcheck disable=SC2016 # awk's own $0 and back quotes
awk '
function tell(kind, text) { printf "%s\t%s\t%d\t%s\n", kind, FILENAME, FNR, text }
# slug TITLE: the anchor that the title of a section gets.
function slug(title,   text) {
    gsub(/`/, "", title)
    gsub(/\]\([^)]*\)/, "", title)
    text = tolower(title)
    gsub(/[^a-z0-9 _\200-\377-]/, "", text)
    gsub(/ /, "-", text)
    return text
}
function links(text,   rest) {
    for (rest = text; match(rest, /\]\([^)]*\)/); rest = substr(rest, RSTART + RLENGTH))
        tell("link", substr(rest, RSTART + 2, RLENGTH - 3))
    for (rest = text; match(rest, /(src|href)="[^"]*"/); rest = substr(rest, RSTART + RLENGTH)) {
        part = substr(rest, RSTART, RLENGTH)
        sub(/^[a-z]*="/, "", part)
        sub(/"$/, "", part)
        tell("link", part)
    }
}
# sentence TEXT: what stands between back quotes is code; the rest may hold links.
function sentence(text,   parts, part, i, plain) {
    parts = split(text, part, "`")
    for (i = 1; i <= parts; ++i) {
        if (i % 2) plain = plain part[i]
        else tell("code", part[i])
    }
    links(plain)
}
FNR == 1 { fence = inBlock = isBlank = 0; held = ""; isBlank = 1; split("", seen) }
/^ *```/ {
    if (fence) fence = 0
    else { fence = 1; language = $0; sub(/^ *```/, "", language); tell("fence", language) }
    next
}
fence { if (language == "sh") tell("sh", $0); if (language == "sh" || language == "") tell("code", $0); next }
/^(    |\t)/ && (isBlank || inBlock) && held == "" { inBlock = 1; tell("code", $0); next }
/^[ \t]*$/ { isBlank = 1; if (held != "") { sentence(held); held = "" }; next }
{ isBlank = inBlock = 0 }
/^#+ / {
    title = $0
    sub(/^#+ /, "", title)
    anchor = slug(title)
    tell("heading", anchor (seen[anchor]++ ? "-" seen[anchor] - 1 : ""))
}
{
    # A code span may go on in the next line.
    held = held == "" ? $0 : held " " $0
    copy = held
    if (gsub(/`/, "", copy) % 2 == 0) { sentence(held); held = "" }
}' "${pages[@]}" >"$facts"

# --- what is there, to compare with ---

declare -A anchors=() is_linked=() is_named=() commands=() options=() is_preset=() is_component=() is_source=() \
    is_variable=()
while IFS=$'\t' read -r kind page _ text; do
    [ "$kind" != heading ] || anchors["$page#$text"]=1
done <"$facts"

./dev help >"$helped" || { echo "   ./dev help fails"; exit 1; }
# The forms of a command stand two blanks deep, its options six; what they do comes after two more blanks.
while IFS= read -r line; do
    if [[ $line =~ ^\ \ ([a-z]+)(.*)$ ]]; then
        last=${BASH_REMATCH[1]} form=${BASH_REMATCH[2]}
        form=${form%%  *}
        commands[$last]+=${form# }$'\n'
    elif [[ $line =~ ^\ \ \ \ \ \ (--[a-z-]+) ]]; then
        options[$last]+=" ${BASH_REMATCH[1]} "
    fi
    # Further forms, in the sentences.
    if [[ $line =~ \'\./dev\ ([a-z]+)\ ([a-z]+)\' ]]; then
        commands[${BASH_REMATCH[1]}]+=${BASH_REMATCH[2]}$'\n'
    fi
done <"$helped"
[ "${#commands[@]}" -gt 0 ] || { echo "   ./dev help tells of no command"; exit 1; }

while IFS= read -r name; do is_preset[$name]=1; done < <(grep -oE '"name": "[^"]+"' CMakePresets.json | cut -d '"' -f 4)
for name in base unix; do unset "is_preset[$name]"; done
while IFS= read -r name; do is_component[$name]=1; done < <(
    find . -name CMakeLists.txt -not -path './build/*' -exec grep -ohE 'COMPONENT +[a-z][a-z-]*' {} + | awk '{ print $2 }')
while IFS= read -r name; do is_source[${name##*/}]=1; done < <(
    find . -type f -not -path './build/*' -not -path './.git/*')
while IFS= read -r name; do is_variable[$name]=1; done < <(
    find . -type f \( -name '*.cpp' -o -name '*.h' -o -name '*.sh' -o -name 'CMake*' -o -name '*.cmake' -o -perm -u+x \) \
        -not -path './build/*' -not -path './.git/*' -exec grep -ohE 'FERRY_[A-Z0-9_]+' {} + | sort -u)

# options_of FOLDER...: the options that the files there know, between blanks; those of the launcher stand in a table
# without their dashes.
options_of() {
    find "$@" -type f -exec grep -ohE -e '--[a-z][a-z0-9-]*|\{L"[a-z]+",' {} + 2>/dev/null |
        sed 's/^{L"\(.*\)",$/--\1/' | sort -u | tr '\n' ' ' || true
}
script_options=" $(options_of tools/script)" host_options=" $(options_of tools/samplehost)"
launcher_options=" $(options_of tools/launcher packaging)"
all_options=" $(options_of tools cmake packaging)"
# Programs of others that a page may have typed; what they do is not for us to try.
others=' apt apt-get cd cmake cp export ferry FerryOpen FerryOpen.exe FerryScript FerryTrace git makensis mkdir msiexec
 net powershell regsvr32 samplehost set start sudo tar unzip wine wine64 xdg-open zip '

# --- what the pages say ---

# there PATTERN: whether a file or a folder matches.
there() { compgen -G "$1" >/dev/null; }

# find_pattern PATH: sets `pattern`, in which words in capitals stand for any text, and a language for any other.
find_pattern() {
    pattern=${1%/}
    pattern=${pattern//.../*}
    pattern=${pattern//…/*}
    if [[ $pattern =~ [a-z][a-z]-[A-Z][A-Z] ]] && ! there "$pattern"; then pattern=${pattern//"${BASH_REMATCH[0]}"/*}; fi
    while [[ $pattern =~ [A-Z][A-Z][A-Z]+ ]] && [[ $pattern != *README* ]]; do
        pattern=${pattern/"${BASH_REMATCH[0]}"/*}
    done
}

# check_link TARGET: sets `target` to the file, from the root.
check_link() {
    local anchor='' part parts kept=()
    case $1 in http://*|https://*|mailto:*) return ;; esac
    target=${1%%#*}
    [[ $1 != *'#'* ]] || anchor=${1#*#}
    if [ -z "$target" ]; then target=$page
    elif [[ $page == */* ]]; then target=${page%/*}/$target
    fi
    IFS=/ read -r -a parts <<<"$target"
    for part in "${parts[@]}"; do
        case $part in
            ''|.) ;;
            ..) [ "${#kept[@]}" = 0 ] || unset 'kept[-1]' ;;
            *) kept+=("$part") ;;
        esac
    done
    target=$(IFS=/; echo "${kept[*]}")
    [ -e "${target:-.}" ] || { complain "the link leads nowhere: $1"; return; }
    is_linked["$page $target"]=1 is_named[$target]=1
    [ -z "$anchor" ] || [ -n "${anchors["$target#$anchor"]:-}" ] || complain "there is no such heading: $1"
    case $target in
        *.png) [ "$(head -c 4 "$target" | tail -c 3)" = PNG ] || complain "this is no picture: $1" ;;
        *.gif) [ "$(head -c 4 "$target")" = GIF8 ] || complain "this is no picture: $1" ;;
    esac
}

# fits FORM ARGUMENT...: whether a form of the help takes these arguments. A choice that has to be made is made
# rightly, and there are no more arguments than places.
fits() {
    local form=$1 places=() choice number
    shift
    read -r -a places <<<"$form"
    [ $# = 0 ] || [ "${#places[@]}" -gt 0 ] || return 1
    [[ $form == *...* ]] || [ $# -le "${#places[@]}" ] || return 1
    choice=${places[0]:-}
    if [ $# -gt 0 ] && [[ $choice =~ ^[a-z|]+$ ]]; then
        [[ "|$choice|" == *"|$1|"* ]] || return 1
    fi
    # A single place that is a choice takes nothing else, in brackets neither.
    if [ $# -gt 0 ] && [ "${#places[@]}" = 1 ] && [[ $choice =~ ^\[([a-z|]+)\]$ ]]; then
        [[ "|${BASH_REMATCH[1]}|" == *"|$1|"* ]] || return 1
    fi
    number=0
    for choice in "${places[@]}"; do [[ $choice != [a-z]* ]] || number=$((number + 1)); done
    [ $# -ge "$number" ]
}

# knows OPTIONS WORD...: each option among the words is one of these.
knows() {
    local known=$1 word
    shift
    for word in "$@"; do
        [ "$word" != -- ] || return 0
        word=${word%%=*}
        [[ ! $word =~ ^--[a-z] ]] || [[ $known == *" $word "* ]] || complain "no such option: $word"
    done
}

# check_dev WORD...: a command of the front door, as a person types it or as the pages write it for all.
check_dev() {
    local command=${1:-} word words=() form first alternatives
    [ $# -gt 0 ] || return 0
    shift
    [[ $command =~ ^[a-z]+$ ]] || [[ $command == COMMAND* ]] || { complain "this is no command: ./dev $command"; return; }
    [[ $command != COMMAND* ]] || return 0
    [ -n "${commands[$command]+there}" ] || { complain "./dev help has no command '$command'"; return; }
    [ "$command" != wine ] || return 0
    count=$((count + 1))
    if [ "$command" = script ]; then knows "$script_options" "$@"; else knows "${options[$command]:- }" "$@"; fi
    for word in "$@"; do
        word=${word//[\[\]]/}
        case $word in --*|...|'') ;; *) words+=("$word") ;; esac
    done
    [ "${#words[@]}" -gt 0 ] || return 0
    # A choice in the page is each of its words.
    IFS='|' read -r -a alternatives <<<"${words[0]}"
    for first in "${alternatives[@]}"; do
        while IFS= read -r form; do
            if [ "$command" = script ] && [[ $first =~ ^[a-z]+$ ]]; then
                # What stands behind is for the other program.
                [[ "|${form%% *}|" != *"|$first|"* ]] || continue 2
            elif fits "$form" "$first" "${words[@]:1}"; then
                continue 2
            fi
        done <<<"${commands[$command]%$'\n'}"
        complain "./dev help does not have it so: ./dev $command $*"
        return
    done
    [ "$command" != script ] || run_script "$@"
}

# run_script WORD...: really, when the arguments are files that are there.
run_script() {
    local word
    [ -n "$program" ] && [ $# -gt 1 ] || return 0
    for word in "${@:2}"; do [ -e "$word" ] || return 0; done
    "$program" "$@" >/dev/null || complain "./dev script $* ends with $?"
    count=$((count + 1))
}

check_cmake() {
    local word last=
    for word in "$@"; do
        case $last in
            --preset|--preset=*)
                [[ $word =~ ^[A-Z]+$ ]] || [ -n "${is_preset[$word]:-}" ] || complain "there is no preset $word" ;;
            --component)
                [[ $word =~ ^[A-Z]+$ ]] || [ -n "${is_component[$word]:-}" ] || complain "nothing belongs to the component $word" ;;
        esac
        last=$word
    done
}

# check_command WORD...: whether the first word is a program that is known here.
check_command() {
    while [[ ${1:-} == *=* ]] || [ "${1:-}" = sudo ]; do shift; done
    [ $# -gt 0 ] || return 0
    case $1 in
        \#*|./dev) ;;
        ./*) ;; # whether it is there is looked at elsewhere
        *) [[ $others == *[[:space:]]"$1"[[:space:]]* ]] || complain "nobody knows this command: $*" ;;
    esac
}

# check_words TEXT: paths, sources and variables that are named.
check_words() {
    local word rest pattern
    for word in $1; do
        word=${word#[\"\'(]}
        word=${word%%[\"\',;:)]*}
        word=${word%.}
        [[ $word != *[\<\>=\$]* ]] || continue
        if [[ $word =~ ^(src|tests|tools|cmake|docs|res|packaging|samples|\.ci|\.github)/ ]]; then
            find_pattern "$word"
            count=$((count + 1))
            there "$pattern" || complain "there is no $pattern"
        elif [[ $word =~ ^\./[A-Za-z] ]]; then
            # A README beside a program has it so, too.
            [ -e "$word" ] || [ -e "$(dirname "$page")/$word" ] || complain "there is no $word"
        elif [[ $word =~ ^[a-z][a-z0-9_]*\.(cpp|h|sh|rc|awk|cmake)$ ]] && [[ $word != name*.* ]]; then
            count=$((count + 1))
            [ -n "${is_source[$word]:-}" ] || complain "there is no source $word"
        fi
    done
    rest=$1
    while [[ $rest =~ (FERRY_[A-Z0-9_]*[A-Z0-9])(.*) ]]; do
        word=${BASH_REMATCH[1]} rest=${BASH_REMATCH[2]}
        [ -n "${is_variable[$word]:-}" ] || complain "nothing reads $word"
    done
}

# check_code TEXT: a line of a block, or what stands between back quotes.
check_code() {
    local text=$1 line words
    check_words "$text"
    # What is written behind a command in a block is about it.
    text=${text//\\|/|}
    text=${text%%  #*}
    text=${text%% # *}
    while IFS= read -r line; do
        read -r -a words <<<"$line"
        while [[ ${words[0]:-} == *=* ]] && [[ ${words[0]} != --* ]]; do words=("${words[@]:1}"); done
        case ${words[0]:-} in
            ./dev) check_dev "${words[@]:1}" ;;
            cmake) check_cmake "${words[@]:1}" ;;
            samplehost|%H%) knows "$host_options" "${words[@]:1}" ;;
            ferry-script|FerryScript|FerryScript.exe) knows "$script_options" "${words[@]:1}" ;;
            ferry|FerryOpen|FerryOpen.exe) knows "$launcher_options" "${words[@]:1}" ;;
            --*) knows "$all_options" "${words[@]}" ;;
        esac
    done <<<"${text//&&/$'\n'}"
}

# The words of the pages are no patterns.
set -f
while IFS=$'\t' read -r kind page number text; do
    place=$page:$number
    case $kind in
        link) count=$((count + 1)); check_link "$text" ;;
        code) check_code "$text" ;;
        sh) read -r -a words <<<"$text"; check_command ${words[@]+"${words[@]}"} ;;
        fence)
            case $text in
                ''|sh) ;;
                script) [[ $page == docs/*.md ]] || complain "no test runs scripts of this page" ;;
                json) [[ $page == docs/*.md ]] || complain "nobody runs worlds of this page" ;;
                *) complain "nobody runs a block of the kind '$text'" ;;
            esac ;;
    esac
done <"$facts"
set +f

# --- what has to be named ---

for target in docs/*.md docs/images/*; do
    place=$target
    [ -e "$target" ] || continue
    case $target in
        docs/README.md) ;;
        *.md) [ -n "${is_linked["docs/README.md $target"]:-}" ] || complain "docs/README.md does not lead to it" ;;
        *) [ -n "${is_named[$target]:-}" ] || grep -rqF "images/${target##*/}\"" res/manual 2>/dev/null ||
            complain "no page shows it" ;;
    esac
done
place=docs/building.md
for name in "${!commands[@]}"; do
    [ "$name" = help ] || grep -qE "^\| \`\./dev ${name}[\` ]" docs/building.md || complain "it does not name ./dev $name"
done
for name in "${!is_preset[@]}"; do
    grep -qE "^\| \`$name\` \|" docs/building.md || complain "it does not name the preset $name"
done
place=docs/performance.md
while IFS= read -r name; do
    grep -qF "| $name |" docs/performance.md || complain "it does not name the figure '$name'"
done < <(grep -ohE '\{"[a-z][^"]*, (against|beside) [^"]*"' tests/bench/*.cpp | cut -d '"' -f 2)

# --- worlds and their results ---

# run_worlds PAGE: each world runs, and its result is the one that the page shows.
run_worlds() {
    local folder number=0 world
    folder=$(mktemp -d)
    # shellcheck disable=SC2016 # awk's own $0 and back quotes
    awk -v folder="$folder" '
        /^```json$/ { isJson = 1; file = folder "/" int(block / 2) (block % 2 ? ".shown" : ".json"); block++; next }
        /^```/ { isJson = 0 }
        isJson { print >file }' "$1"
    for world in "$folder"/*.json; do
        [ -e "$world" ] || break
        number=$((number + 1)) count=$((count + 1)) place="$1, world $number"
        if [ ! -e "${world%.json}.shown" ]; then
            complain "its result is missing"
        elif [ -n "$program" ]; then
            if ! "$program" world "$world"; then
                complain "it cannot be run"
            elif ! diff "${world%.json}.shown" "${world%.json}.result.json"; then
                complain "its result is another one"
            fi
        fi
    done
    rm -rf "$folder"
}
for page in docs/*.md; do run_worlds "$page"; done

[ "$bad" = 0 ] && echo "   ${#pages[@]} pages, $count links, commands and names"
exit "$bad"

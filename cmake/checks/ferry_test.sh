#!/usr/bin/env bash
# ferry_test.sh: the command for Linux, with a Wine of pretence that tells what it was given. Run from the project's root.
set -euo pipefail
command=$PWD/packaging/linux/ferry
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
bad=0 count=0

# What Wine would be asked, and the launcher's list; it ends with $CODE, after $SECONDS_TO_END.
cat >"$scratch/wine" <<'WINE'
#!/usr/bin/env bash
printf '%s\n' "$@"
last=${!#}
sed $'1s/^\xef\xbb\xbf/MARK\\\n/' "$(sed -e 's/^Z://' -e 's|\\|/|g' <<<"$last")"
[ -z "${SECONDS_TO_END:-}" ] || exec -a "$1" sleep "$SECONDS_TO_END"
exit "${CODE:-0}"
WINE
chmod +x "$scratch/wine"
prefix=$scratch/prefix
mkdir -p "$prefix/drive_c/Ferry/Command/Ferry" "$prefix/dosdevices" "$scratch/home/.wine" "$scratch/tree/写真 2024"
: >"$prefix/drive_c/Ferry/Command/Ferry/FerryOpen.exe"
ln -s ../drive_c "$prefix/dosdevices/c:"
ln -s / "$prefix/dosdevices/z:"
cd "$scratch/tree"
: >-x.txt
: >'a\b'
: >a:b
: >$'line\nbreak'
ln -s nowhere dangling
export HOME=$scratch/home WINE=$scratch/wine FERRY_PREFIX=$prefix DISPLAY=:0 LC_ALL=C.UTF-8
unset XDG_CONFIG_HOME XDG_DATA_HOME WAYLAND_DISPLAY

complain() { bad=1; printf '   %s\n' "$1"; }

# gives CODE EXPECTED ARGUMENT...: what Wine is asked when the command gets these arguments. The names of folders that
# differ from run to run are replaced.
gives() {
    local code=$1 expected=$2 said status=0
    shift 2
    said=$("$command" "$@" 2>/dev/null | sed -e "s|${scratch//\//\\\\}|HERE|" -e 's|Z:\\.*\\ferry\.......\\list|LIST|') ||
        status=$?
    count=$((count + 1))
    [ "$status" = "$code" ] || complain "ferry $*: code $status instead of $code"
    [ "$said" = "$expected" ] || { complain "ferry $*: not what was expected:"; diff <(echo "$expected") <(echo "$said"); }
}

# refuses CODE WORD ARGUMENT...: says something with WORD in it, and asks Wine nothing.
refuses() {
    local code=$1 word=$2 said status=0
    shift 2
    said=$("$command" "$@" 2>&1 >"$scratch/asked") || status=$?
    count=$((count + 1))
    [ "$status" = "$code" ] || complain "ferry $*: code $status instead of $code"
    [[ $said == *"$word"* ]] || complain "ferry $*: said '$said' instead of something with '$word'"
    [ ! -s "$scratch/asked" ] || complain "ferry $*: asked Wine"
}

opener='C:\Ferry\Command\Ferry\FerryOpen.exe'
gives 0 "$opener"$'\n/c\n/list\nLIST\nMARK\nZ:HERE\\tree\\写真 2024\nC:\\Ferry\nZ:HERE\\tree\nZ:HERE\\tree\\dangling' \
    '写真 2024' "$prefix/drive_c/Ferry" . dangling
gives 0 "$opener"$'\n/m\n/d\nZ:HERE\\to\n/list\nLIST\nMARK\nZ:HERE\\tree\\-x.txt' --move --to "$scratch/to" -- -x.txt
gives 0 "$opener"$'\n/c\n/list\nLIST\nMARK\nZ:HERE\\tree\\-x.txt\nZ:HERE\\tree\\写真 2024' --list - <<<$'-x.txt\n写真 2024'
gives 0 "$opener"$'\n/c\n/list\nLIST\nMARK\nZ:HERE\\tree\\-x.txt\nZ:HERE\\tree\\dangling' -l - < <(printf -- '-x.txt\0dangling\0')
CODE=121 gives 121 "$opener"$'\n/c\n/list\nLIST\nMARK\nZ:HERE\\tree' .

refuses 64 '--help' --no-such-option
refuses 64 '--to' --to
refuses 66 'gone' gone
refuses 66 'a\b' 'a\b'
refuses 66 'a:b' a:b
refuses 66 'break' $'line\nbreak'
refuses 66 'empty' ''
refuses 66 'gone' --list gone
refuses 64 '.wine' setup "$HOME/.wine"
ln -s "$HOME/.wine" "$scratch/link"
refuses 64 '.wine' setup "$scratch/link"
refuses 64 'empty folder' setup "$scratch/tree"
DISPLAY='' refuses 69 'display' .
FERRY_PREFIX=$scratch/none refuses 69 'ferry setup' .
WINE=$scratch/none refuses 69 'Wine is not installed' .
LC_ALL='' LANG=ja_JP.UTF-8 refuses 66 'がありません' gone
[ -z "$(ls -A "$HOME/.wine")" ] || complain "something was put into ~/.wine"

# A signal ends it with the code that tells of it, what it started ends, and the list goes.
mkdir "$scratch/tmp"
TMPDIR=$scratch/tmp SECONDS_TO_END=30 "$command" . >"$scratch/asked" &
running=$!
for ((waited = 0; waited < 100; ++waited)); do
    [ ! -s "$scratch/asked" ] || break
    sleep 0.05
done
kill "$running"
status=0
wait "$running" || status=$?
count=$((count + 1))
[ "$status" = 143 ] || complain "SIGTERM: code $status"
[ -z "$(ls -A "$scratch/tmp")" ] || complain "SIGTERM: the temporary folder stays"
for ((waited = 0; waited < 100; ++waited)); do
    runs=0
    for each in /proc/[0-9]*/environ; do
        if grep -qzxF "FERRY_PREFIX=$prefix" "$each" 2>/dev/null && grep -qaF FerryOpen "${each%environ}cmdline"; then runs=1; fi
    done
    [ "$runs" = 1 ] || break
    sleep 0.05
done
[ "$runs" = 0 ] || complain "SIGTERM: the launcher runs on"

[ "$bad" = 0 ] && echo "   $count calls"
exit "$bad"

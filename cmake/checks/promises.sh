#!/usr/bin/env bash
# promises.sh: every test that docs/promises.md names exists. Run from the project's root.
set -euo pipefail
tests=$(mktemp)
trap 'rm -f "$tests"' EXIT
# The tests as SUITE.NAME; a suite that others derive from or that is instantiated keeps its own name.
find tests tools -name '*.cpp' -exec cat {} + |
    tr '\n' ' ' | grep -oE 'TEST(_F|_P)?\( *[A-Za-z0-9_]+ *, *[A-Za-z0-9_]+ *\)' |
    sed -E 's/TEST(_F|_P)?\( *([A-Za-z0-9_]+) *, *([A-Za-z0-9_]+) *\)/\2.\3/' | sort -u >"$tests"
bad=0 count=0
# shellcheck disable=SC2016 # the back quotes are the document's
names=$(grep -oE '`([A-Za-z0-9]+/)?[A-Z][A-Za-z0-9]+\.([A-Z][A-Za-z0-9]+|\*)(/\*)?`' docs/promises.md | tr -d '`' | sort -u)
while IFS= read -r name; do
    [ -n "$name" ] || continue
    count=$((count + 1))
    # What stands before and behind the slashes is made by the instantiation.
    pattern=${name#*/}
    [[ ${name%%/*} != *.* ]] || pattern=$name
    pattern=${pattern%%/*}
    if [[ $pattern == *'.*' ]]; then
        grep -q "^${pattern%'.*'}\\." "$tests" && continue
    else
        grep -qxF "$pattern" "$tests" && continue
    fi
    echo "   docs/promises.md names $name, which is no test"
    bad=1
done <<<"$names"
[ "$count" -gt 0 ] || { echo "   docs/promises.md names no test"; bad=1; }
[ "$bad" = 0 ] && echo "   $count names"
exit "$bad"

#!/usr/bin/env bash
# scripts.sh: shellcheck over every script, run from the project's root.
set -euo pipefail
mapfile -t own < <(find cmake/checks -name '*.sh' | sort)
mapfile -t parts < <(find cmake/dev -name '*.sh' | sort)
if [ "${#own[@]}" = 0 ] || [ "${#parts[@]}" = 0 ]; then
    echo "   there are no scripts here"
    exit 1
fi
bad=0

shellcheck -x dev .ci/run packaging/linux/ferry "${own[@]}" || bad=1

# The parts of ./dev share their variables. Alone a part is judged by its form only, ...
shellcheck -s bash -e SC2034,SC2154,SC1091 "${parts[@]}" || bad=1

# ... and its variables by reading all parts as the one program that they are.
whole=$(mktemp)
trap 'rm -f "$whole"' EXIT
for part in dev "${parts[@]}"; do
    printf '# shellcheck source=%s\n. "%s"\n' "$part" "$part"
done >"$whole"
shellcheck -s bash -x -a -P "$PWD" -i SC2034,SC2154,SC2030,SC2031 "$whole" || bad=1

[ "$bad" = 0 ] && echo "   $((3 + ${#own[@]} + ${#parts[@]})) scripts"
exit "$bad"

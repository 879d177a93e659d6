#!/usr/bin/env bash
# docs_test.sh: tries docs.sh with a made-up project: pages without a fault, and a page for each fault.
# shellcheck disable=SC2016 # the back quotes are the pages' own
set -euo pipefail
check=$(dirname "$(realpath "$0")")/docs.sh
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"
tried=0
bad=0

mkdir -p docs/images src/base tests/core/base tests/bench tools/script tools/samplehost tools/launcher cmake/checks
cat >dev <<'DEV'
#!/bin/sh
cat <<'HELP'
Usage: ./dev COMMAND [ARGUMENTS]

  build                     compile it
  run [OPTIONS] [PATH... DESTINATION]
                            let it copy
      --move                move instead
  test [core|windows] [FILTER]
                            run the tests
  fuzz [SECONDS]            so long
  script run|check SCRIPT   a script; './dev script help' has it all
  pictures [small|large]    of one size
  help                      this text
HELP
DEV
chmod +x dev
echo '{"configurePresets": [{"name": "base"}, {"name": "unix"}, {"name": "native"}]}' >CMakePresets.json
echo 'install(TARGETS app COMPONENT app)' >CMakeLists.txt
echo 'const char* const kOptions[] = {"--select", "--pretend"};' >tools/script/options.cpp
echo 'const char* const kOptions[] = {"--item"};' >tools/samplehost/options.cpp
echo 'constexpr Option kOptions[] = {{L"wait", 1}};' >tools/launcher/options.cpp
echo 'getenv("FERRY_SEED");' >src/base/text.cpp
mkdir -p res/lang/en-US
touch tests/core/base/text_test.cpp res/lang/en-US/102.txt
echo 'Row{"parse 10 paths, against a pass", 0, 1}' >tests/bench/parse_bench.cpp
echo '| parse 10 paths, against a pass | 0.9 |' >docs/performance.md
printf '\x89PNG rest' >docs/images/window.png
printf 'GIF89a rest' >docs/images/moving.gif
printf 'no picture' >docs/images/torn.png
cat >docs/building.md <<'PAGE'
# Building

| Command | |
|---|---|
| `./dev build` | |
| `./dev run` | |
| `./dev test [core\|windows] [FILTER]` | |
| `./dev fuzz [SECONDS]` | |
| `./dev script run\|check SCRIPT` | |
| `./dev pictures` | |

| Preset | |
|---|---|
| `native` | |

![A window](images/window.png), and one <img src="images/moving.gif" alt="that moves">.

## What is `left` to say, twice

## What is left to say, twice
PAGE
echo '[Building](building.md), [speed](performance.md)' >docs/README.md

# What `docs.sh` would run.
cat >ferry-script <<'PROGRAM'
#!/bin/sh
[ "$1" != world ] || { sed 's/asked/answered/' "$2" >"${2%.json}.result.json"; exit; }
[ "$2" != docs/wrong.txt ]
PROGRAM
chmod +x ferry-script
touch docs/right.txt docs/wrong.txt

# accepts LINE... and refuses REASON LINE... write a page each; all of them are judged together.
reasons=()
write_page() {
    local name=page-$tried.md
    printf '# A page\n\n' >"docs/$name"
    printf '%s\n' "$@" >>"docs/$name"
    echo "[A page]($name)" >>docs/README.md
    tried=$((tried + 1))
}
accepts() { reasons[tried]=; write_page "$@"; }
refuses() { reasons[tried]=$1; write_page "${@:2}"; }

judge() { { bash "$check" ./ferry-script || echo "ended with an error"; } 2>&1; }

refuses 'this is no picture' '![torn](images/torn.png)'
accepts 'Nothing to judge.'

# Links.
accepts 'See [the page](building.md), [a heading](building.md#what-is-left-to-say-twice), [its namesake' \
    'in two lines](building.md#what-is-left-to-say-twice-1), [this](#a-page), [the top](../dev), [it](https://example.org/).'
accepts '`[no link](in code)`'
refuses 'the link leads nowhere: builing.md' 'See [the page](builing.md).'
refuses 'the link leads nowhere: images/none.png' '![A window](images/none.png)'
refuses 'the link leads nowhere: images/none.gif' '<img src="images/none.gif" alt="">'
refuses 'there is no such heading: building.md#nothing' 'See [it](building.md#nothing).'
refuses 'there is no such heading: #nothing' 'See [it](#nothing).'

# The front door.
accepts '`./dev build`, `./dev test core`, `./dev test Some.Filter`, `./dev test [core|windows] [FILTER]`, `./dev fuzz 5`'
accepts '`./dev run --move PATH... DESTINATION`, `./dev run a b c`, `./dev script run\|check ...`, `./dev COMMAND`'
accepts '```sh' './dev build   # compiles it' './dev help && ./dev test core' '```'
accepts '    ./dev fuzz 3       # three seconds of it'
refuses "./dev help has no command 'biuld'" '`./dev biuld`'
refuses "./dev help has no command 'biuld'" '```sh' './dev help && ./dev biuld' '```'
refuses "./dev help has no command 'biuld'" 'It takes' '' '    ./dev biuld'
refuses "./dev help has no command 'biuld'" 'A span may go on: `./dev' 'biuld`.'
refuses './dev help does not have it so: ./dev build it' '`./dev build it`'
refuses './dev help does not have it so: ./dev fuzz 3 4' '`./dev fuzz 3 4`'
refuses './dev help does not have it so: ./dev pictures huge' '`./dev pictures huge`'
refuses './dev help does not have it so: ./dev script watch' '`./dev script watch docs/right.txt`'
refuses 'no such option: --copy' '`./dev run --copy a b`'
refuses 'no such option: --pretned' '`./dev script run docs/right.txt --pretned`'

# Paths, sources, variables.
accepts '`src/base/text.cpp`, `src/base/`, `src/base/*.cpp`, `tests/core/ROOM/NAME_test.cpp`, `text_test.cpp`, `name.cpp`' \
    '`FERRY_SEED=1 program`' '`res/lang/en-US/102.txt`, `res/lang/fr-FR`'
refuses 'there is no src/base/txt.cpp' 'It is in `src/base/txt.cpp`.'
refuses 'there is no tests/windows/*' 'One of `tests/windows/NAME`.'
refuses 'there is no res/lang/*/103.txt' '`res/lang/fr-FR/103.txt`'
refuses 'there is no src/cellar' '```' 'src/cellar/  below' '```'
refuses 'there is no ./run.sh' '`./run.sh`'
refuses 'there is no source txt.cpp' '`txt.cpp`'
refuses 'nothing reads FERRY_SED' '`FERRY_SED=1`'

# Presets, components and options of programs.
accepts '`cmake --preset native && cmake --build --preset native`, `cmake --preset PRESET`' \
    '`cmake --install build/native --component app --prefix WHERE`'
accepts '`samplehost --item a -- --anything`, `ferry-script run s --select a`, `FerryOpen --wait a`'
refuses 'there is no preset natvie' '`cmake --preset native && cmake --build --preset natvie`'
refuses 'nothing belongs to the component ap' '`cmake --install build/native --component ap --prefix WHERE`'
refuses 'no such option: --itm' '`samplehost --itm a`'
refuses 'no such option: --item' '`FerryScript run s --item a`'
refuses 'no such option: --item' '`FerryOpen --item a`'
refuses 'no such option: --nothing' '`--nothing`'

# Blocks.
accepts '```sh' 'sudo apt-get install wine64' 'FERRY_SEED=1 ./dev build' '```'
refuses 'nobody knows this command: frobnicate it' '```sh' 'frobnicate it' '```'
refuses "nobody runs a block of the kind 'python'" '```python' 'print()' '```'
accepts '```script' '// ./dev biuld in a script is none of ours' '```'

# What is really run.
accepts '`./dev script run docs/right.txt`, `./dev script run SCRIPT`'
refuses './dev script run docs/wrong.txt ends with 1' '`./dev script run docs/wrong.txt`'
accepts '```json' '{"asked": 1}' '```' 'gives' '```json' '{"answered": 1}' '```'
refuses 'its result is another one' '```json' '{"asked": 1}' '```' 'gives' '```json' '{"answered": 2}' '```'
refuses 'its result is missing' '```json' '{"asked": 1}' '```'

said=$(judge)
[[ $said == *"ended with an error" ]] || { bad=1; echo '   the faults did not make it fail'; }
for number in "${!reasons[@]}"; do
    about=$(grep -A 20 "^   docs/page-$number\.md[:,]" <<<"$said" | grep "docs/page-$number\.md" || true)
    if [ -z "${reasons[$number]}" ] && [ -n "$about" ]; then
        bad=1
        printf '   should be accepted:\n%s\n   said was:\n%s\n' "$(<"docs/page-$number.md")" "$about"
    elif [[ $about != *"${reasons[$number]}"* ]]; then
        bad=1
        printf '   should be refused for "%s":\n%s\n   said was:\n%s\n' "${reasons[$number]}" "$(<"docs/page-$number.md")" "$about"
    fi
done

# Without the faulty ones all is well.
for number in "${!reasons[@]}"; do
    [ -z "${reasons[$number]}" ] || { rm "docs/page-$number.md"; sed -i "/(page-$number\.md)/d" docs/README.md; }
done
rm docs/images/torn.png
said=$(judge)
[[ $said == "   "*" pages, "*" links, commands and names" && $said != *$'\n'* ]] ||
    { bad=1; printf '   nothing is wrong any more, and this was said:\n%s\n' "$said"; }

# What has to be named, and what stands where nobody runs it.
mkdir -p res/manual tools/page
echo '<img src="../images/manual.png">' >res/manual/page.html
touch docs/images/{unseen,manual}.png docs/hidden.md
sed -i '/dev fuzz/d; /`native`/d' docs/building.md
sed -i 's/10 paths/20 paths/' docs/performance.md
echo '```script' >tools/page/README.md
said=$(judge)
for reason in 'docs/images/unseen.png: no page shows it' 'docs/hidden.md: docs/README.md does not lead to it' \
    'docs/building.md: it does not name ./dev fuzz' 'docs/building.md: it does not name the preset native' \
    "docs/performance.md: it does not name the figure 'parse 10 paths, against a pass'" \
    'tools/page/README.md:1: no test runs scripts of this page'; do
    [[ $said == *"$reason"*"ended with an error" ]] || { bad=1; printf '   missing: %s\n' "$reason"; }
    tried=$((tried + 1))
done
[[ $said != *manual.png* ]] || { bad=1; echo '   a picture of the manual was refused'; }

[ "$bad" = 0 ] && echo "   $tried made-up pages judged as they should be"
exit "$bad"

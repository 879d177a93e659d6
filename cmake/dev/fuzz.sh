# ./dev fuzz: feeds every parser made-up input for a while.
load build

# run_fuzz TARGET SECONDS: starts from the corpus in the repository; new finds stay in build/.
run_fuzz() {
    local name=${1##*/fuzz_} log corpus finds
    corpus=$root/tests/fuzz/corpus/$name
    finds=$build/fuzz/found/$name
    log=$build/logs/fuzz-$name.log
    mkdir -p "$finds" "$build/logs"
    local folders=("$finds")
    [ -d "$corpus" ] && folders+=("$corpus")
    if (cd "$finds" && "$1" -max_total_time="$2" -timeout=30 -rss_limit_mb=2048 -print_final_stats=1 \
            -artifact_prefix="$build/fuzz/found/$name-" "${folders[@]}" >"$log" 2>&1); then
        printf '   %-24s %s runs\n' "$name" "$(awk '/stat::number_of_executed_units/ { print $2 }' "$log")"
    else
        tail -n 60 "$log"
        return 1
    fi
}

# fuzz_one TARGET SECONDS
fuzz_one() {
    run_fuzz "$@" && return
    say "${1##*/} found something; its input is in build/fuzz/found"
    return 1
}

# fuzz_all SECONDS: every target for that long, as many at a time as there are processors; the result
# says whether all held.
fuzz_all() {
    local targets target running=0 bad=0
    need fuzz
    build_preset fuzz
    say "fuzzing, $1 s for each target"
    mapfile -t targets < <(find "$build/fuzz" -type f -name 'fuzz_*' -perm -u+x | sort)
    [ "${#targets[@]}" -gt 0 ] || { say "there is no fuzz target below build/fuzz"; return 1; }
    for target in "${targets[@]}"; do
        if [ "$running" -ge "$(jobs)" ]; then
            wait -n || bad=1
            running=$((running - 1))
        fi
        fuzz_one "$target" "$1" &
        running=$((running + 1))
    done
    for ((; running > 0; --running)); do wait -n || bad=1; done
    [ "$bad" = 0 ]
}

command_fuzz() {
    local seconds=${1:-60}
    [[ $seconds =~ ^[1-9][0-9]*$ ]] || fail "usage: ./dev fuzz [SECONDS]"
    fuzz_all "$seconds" || fail "fuzzing failed; see above"
}

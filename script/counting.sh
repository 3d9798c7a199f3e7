# How script/test counts: stages, and what test programs printed. To be sourced, with `logs` naming a folder.
# A stage does not inherit descriptor 9, by which script/test keeps a second run out.
# shellcheck shell=bash
passed=0
failed=0

# stage TITLE COMMAND...: runs a command whose output ends with a line "N passed, N failed". A command that
# ends otherwise, or badly without having counted a failure, has failed once.
stage() {
    local title=$1 started=$SECONDS status=0 log counts good=0 bad=0
    shift
    # shellcheck disable=SC2154  # logs is the sourcing script's
    log=$logs/$(tr -cs 'a-z0-9\n' '-' <<<"${title,,}").log
    printf '== %s: ' "$title"
    "$@" >"$log" 2>&1 </dev/null 9>&- || status=$?
    counts=$(grep -aE '^[0-9]+ passed, [0-9]+ failed$' "$log" | tail -n 1) || true
    if [ -n "$counts" ]; then
        read -r good _ bad _ <<<"$counts"
    fi
    if [ "$bad" -eq 0 ] && { [ "$status" -ne 0 ] || [ -z "$counts" ]; }; then bad=1; fi
    passed=$((passed + good))
    failed=$((failed + bad))
    printf '%d passed, %d failed (%d s)\n' "$good" "$bad" $((SECONDS - started))
    if [ "$bad" -ne 0 ]; then
        without_successes <"$log" | tail -n 120 | sed 's/^/    /'
        printf '    The whole output is in %s\n' "$log"
    fi
}

# without_successes: takes the tests that passed and the steps that were built out of what was printed.
without_successes() {
    tr -d '\r' | awk '
        /^\[ RUN      \]/ { held = $0 "\n"; next }
        /^\[       OK \]/ { held = ""; next }
        /^\[-----|\.\.\. ok$|^[0-9]+ passed, |^\[[0-9]+\/[0-9]+\] |^: && / { next }
        { printf "%s", held; held = ""; print }
        END { printf "%s", held }'
}

# gtest_counts FILE STATUS: the counts of a GoogleTest run. A run that breaks off, or runs nothing, has failed; the
# test in which it broke off is told.
gtest_counts() {
    local good bad
    tr -d '\r' <"$1" | awk '
        /^\[ RUN      \]/ { running = $0; sub(/^[^]]*\] /, "", running) }
        /^\[       OK \]|^\[  FAILED  \]/ { running = "" }
        END { if (running != "") print "broke off in " running }'
    good=$(tr -d '\r' <"$1" | grep -acE '^\[       OK \] ') || true
    bad=$(tr -d '\r' <"$1" | grep -acE '^\[  FAILED  \] .*\([0-9]+ ms\)$') || true
    if [ "$bad" -eq 0 ] && { [ "$2" -ne 0 ] || [ "$good" -eq 0 ]; }; then bad=1; fi
    printf '%d passed, %d failed\n' "$good" "$bad"
}

# unittest_counts FILE STATUS: the same for Python's unittest. A skipped test has not passed.
unittest_counts() {
    local ran bad skipped
    ran=$(sed -nE 's/^Ran ([0-9]+) tests? in .*/\1/p' "$1" | tail -n 1)
    bad=$(sed -nE '/^FAILED \(/p' "$1" | grep -oE '(failures|errors|unexpected successes)=[0-9]+' |
        awk -F= '{sum += $2} END {print sum + 0}') || true
    skipped=$(sed -nE 's/^(OK|FAILED) \(.*skipped=([0-9]+).*/\2/p' "$1" | tail -n 1)
    ran=${ran:-0}
    if [ "$bad" -eq 0 ] && { [ "$2" -ne 0 ] || [ "$ran" -eq 0 ]; }; then bad=1; fi
    local good=$((ran - bad - ${skipped:-0}))
    [ -z "$skipped" ] || printf '%d skipped\n' "$skipped"
    printf '%d passed, %d failed\n' $((good > 0 ? good : 0)) "$bad"
}

# failed_gtests FILE: the tests that failed in a GoogleTest run, as a filter; nothing if none did.
failed_gtests() {
    tr -d '\r' <"$1" | sed -nE 's/^\[  FAILED  \] ([^ ,]+)(, where .*)? \([0-9]+ ms\)$/\1/p' | paste -sd :
}

# sum_counts FIRST AGAIN: the counts of a run of which the failed tests were run again.
sum_counts() {
    local good more bad
    read -r good _ <<<"$1"
    read -r more _ bad _ <<<"$2"
    printf '%d passed, %d failed\n' $((good + more)) "$bad"
}

# add_counts FILE...: the counts of files that each end with theirs, together.
add_counts() { tail -qn 1 "$@" | awk '{ good += $1; bad += $3 } END { printf "%d passed, %d failed\n", good, bad }'; }

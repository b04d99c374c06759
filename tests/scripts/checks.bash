# shellcheck shell=bash
# To be sourced: checks with a sentence each, and a closing line with their count.

# The exit status that CTest takes as a skipped test.
skipped=77

passed=0
failed=0

# check SENTENCE COMMAND...: passes if COMMAND succeeds.
check() {
    local sentence="$1"
    shift
    if "$@"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED: $sentence: $*"
    fi
}

# check_equal SENTENCE ACTUAL EXPECTED
check_equal() {
    if [[ "$2" == "$3" ]]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAILED: %s\n  actual:   %s\n  expected: %s\n' "$1" "$2" "$3"
    fi
}

# skip_test REASON
skip_test() {
    echo "SKIPPED: $1"
    exit "$skipped"
}

finish_checks() {
    echo "$passed passed, $failed failed"
    ((failed == 0))
}

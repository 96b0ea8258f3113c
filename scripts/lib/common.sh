# Shared by every script: folders, messages, locks.
# shellcheck shell=bash

set -euo pipefail

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
CACHE=${XDG_CACHE_HOME:-$HOME/.cache}/vantix-datacenter
JOBS=${VANTIX_JOBS:-$(nproc 2>/dev/null || echo 2)}
export ROOT CACHE JOBS

die() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# say TEXT: progress goes to standard error, so that standard output has only the results of a script.
say() {
    printf '%s\n' "$*" >&2
}

# show_help: prints the comment block at the head of the calling script.
show_help() {
    awk 'NR == 1 { next } !/^#/ { exit } { sub(/^# ?/, ""); print }' "$0"
}

# quietly LOG TEXT COMMAND...: one progress line with the seconds it took; the log is shown only on failure.
quietly() {
    local log=$1 text=$2 start=$SECONDS status=0
    shift 2
    mkdir -p "$(dirname "$log")"
    printf -- '-- %s ... ' "$text" >&2
    "$@" >"$log" 2>&1 </dev/null || status=$?
    if [ "$status" -eq 0 ]; then
        printf '%d s\n' $((SECONDS - start)) >&2
        return 0
    fi
    printf 'FAILED after %d s (status %d); the end of %s:\n' $((SECONDS - start)) "$status" "$log" >&2
    tail -n 60 "$log" >&2
    return "$status"
}

# locked NAME COMMAND...: runs COMMAND while no other script holds the lock NAME of the cache folder.
locked() {
    local name=$1
    shift
    mkdir -p "$CACHE/locks"
    (
        flock 9
        "$@" 9>&-
    ) 9>"$CACHE/locks/$name"
}

# strictly FUNCTION ARGS...: calls a function of these files in a new shell, where the first failure ends it (bash
# ignores "set -e" in a command that is part of a condition).
strictly() {
    bash -c 'for file in "$ROOT"/scripts/lib/*.sh; do . "$file"; done; "$@"' "$(basename "$0")" "$@"
}

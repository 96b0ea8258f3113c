# Configuring, building and testing a preset in build/PRESET.
# shellcheck shell=bash

export CCACHE_DIR=${CCACHE_DIR:-$CACHE/ccache}
export CCACHE_BASEDIR=$ROOT CCACHE_NOHASHDIR=1 CCACHE_DEPEND=1

# configure_preset PRESET
configure_preset() {
    locked_tree "$1" configure_preset_locked "$1"
}

# build_preset PRESET [TARGET...]: configures and builds; without a target everything.
build_preset() {
    locked_tree "$1" build_preset_locked "$@"
}

# locked_tree PRESET COMMAND...: runs COMMAND while no other script works in the build tree.
locked_tree() {
    local tree=$ROOT/build/$1
    shift
    locked "build-$(printf '%s' "$tree" | sha256sum | cut -c1-16)" "$@"
}

# CMake reads the values of presets and toolchains only into a fresh tree, so a change of those files makes a fresh one.
configure_preset_locked() {
    local tree=$ROOT/build/$1 settings=(-DVANTIX_JSON11_DIR="$CACHE/json11") origin
    origin=$(cat "$ROOT/CMakePresets.json" "$ROOT"/cmake/toolchains/* | sha256sum)
    if [ "$(cat "$tree/.origin" 2>/dev/null)" != "$origin" ]; then
        settings+=(--fresh)
    fi
    command -v ccache >/dev/null && settings+=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    quietly "$tree/log/configure.log" "configuring build/$1" cmake -S "$ROOT" --preset "$1" "${settings[@]}" || return 1
    printf '%s\n' "$origin" >"$tree/.origin"
}

build_preset_locked() {
    local preset=$1 targets=()
    shift
    [ $# -gt 0 ] && targets=(--target "$@")
    configure_preset_locked "$preset" || return 1
    quietly "$ROOT/build/$preset/log/build.log" "building build/$preset" \
        cmake --build "$ROOT/build/$preset" --parallel "$JOBS" "${targets[@]}"
}

# test_preset PRESET [CTEST_ARGUMENTS...]: runs the tests, one more at once than there are cores, since many wait for
# the loopback cloud or for a time-out; CTest prints its summary last.
test_preset() {
    local preset=$1
    shift
    ctest --test-dir "$ROOT/build/$preset" --output-on-failure --no-tests=error --parallel "$((JOBS + 1))" \
        --output-junit tests.xml --test-output-truncation head "$@"
}

# test_whole_preset PRESET TITLE COMMAND [CTEST_ARGUMENTS...]: the same; what all tests have found is kept.
test_whole_preset() {
    local preset=$1 title=$2 command=$3 status=0
    shift 3
    rm -f "$ROOT/build/$preset/tests.xml"
    test_preset "$preset" "$@" || status=$?
    if [ $# -eq 0 ]; then
        python3 "$ROOT/scripts/lib/test-result.py" "$preset" "tests-$preset" "$title" "$command"
    fi
    return "$status"
}

# built_program PRESET NAME: prints the path of a program of that build.
built_program() {
    local found
    found=$(find "$ROOT/build/$1" -type f -executable -name "$2" -not -path '*/CMakeFiles/*' -print -quit)
    [ -n "$found" ] || die "build/$1 has no program '$2'"
    printf '%s\n' "$found"
}

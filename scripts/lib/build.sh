# Configuring, building and testing a preset in build/PRESET.
# shellcheck shell=bash

export CCACHE_DIR=${CCACHE_DIR:-$CACHE/ccache}
export CCACHE_BASEDIR=$ROOT CCACHE_NOHASHDIR=1

# build_preset PRESET [TARGET...]: without a target everything is built.
build_preset() {
    local preset=$1 launcher=()
    local tree=$ROOT/build/$preset
    shift
    command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
    locked "build-$(printf '%s' "$tree" | sha256sum | cut -c1-16)" \
        build_preset_locked "$preset" "$tree" "${launcher[*]}" "$@"
}

build_preset_locked() {
    local preset=$1 tree=$2 launcher=$3 targets=()
    shift 3
    [ $# -gt 0 ] && targets=(--target "$@")
    quietly "$tree/log/configure.log" "configuring build/$preset" \
        cmake -S "$ROOT" --preset "$preset" -DVANTIX_JSON11_DIR="$CACHE/json11" ${launcher:+"$launcher"} || return 1
    quietly "$tree/log/build.log" "building build/$preset" \
        cmake --build "$tree" --parallel "$JOBS" "${targets[@]}" || return 1
}

# test_preset PRESET [CTEST_ARGUMENTS...]: runs the tests; CTest's summary is the last that is printed.
test_preset() {
    local preset=$1
    shift
    ctest --test-dir "$ROOT/build/$preset" --output-on-failure --no-tests=error --parallel "$JOBS" "$@"
}

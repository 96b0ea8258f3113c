# json11 has no Debian package: it is copied, unchanged, from a source package that includes it.
# shellcheck shell=bash

copy_json11() {
    local source=$1 out=$2
    mkdir -p "$out/include" "$out/src"
    cp "$source/ext/json11/json11.hpp" "$out/include/"
    cp "$source/ext/json11/json11.cpp" "$out/src/"
    cp "$source"/ext/json11/LICENSE* "$out/" 2>/dev/null || true
}

# ensure_json11: $CACHE/json11 holds include/json11.hpp and src/json11.cpp; CMake compiles it with each tree's own flags.
ensure_json11() {
    from_source json11 dnsdist copy_json11
}

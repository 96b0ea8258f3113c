# json11 has no Debian package: it is copied from a source package that includes it. One thing is changed: its two
# static objects are never destroyed, since a background task may still parse while the process ends.
# shellcheck shell=bash

copy_json11() {
    local source=$1 out=$2
    mkdir -p "$out/include" "$out/src"
    cp "$source/ext/json11/json11.hpp" "$out/include/"
    sed -e 's/static const Statics s {};/static const Statics\& s = *new Statics {};/' \
        -e 's/static const Json json_null;/static const Json\& json_null = *new Json;/' \
        "$source/ext/json11/json11.cpp" >"$out/src/json11.cpp"
    [ "$(grep -c '= \*new \(Statics\|Json\)' "$out/src/json11.cpp")" -eq 2 ]
    cp "$source"/ext/json11/LICENSE* "$out/" 2>/dev/null || true
}

# ensure_json11: $CACHE/json11 holds include/json11.hpp and src/json11.cpp; CMake compiles it with each tree's own flags.
ensure_json11() {
    from_source json11 dnsdist copy_json11
}

# json11 has no Debian package: it is copied from a source package that includes it. One thing is changed: its static
# objects are never destroyed, since a background task may still parse while the process ends, and take nothing from the
# heap, since a library that is unloaded would leave it behind.
# shellcheck shell=bash

copy_json11() {
    local source=$1 out=$2
    mkdir -p "$out/include" "$out/src"
    cp "$source/ext/json11/json11.hpp" "$out/include/"
    sed -e 's/make_shared<JsonNull>()/lasting_value<JsonNull>()/' \
        -e 's/make_shared<JsonBoolean>(\(true\|false\))/lasting_value<JsonBoolean, \1>(\1)/' \
        -e 's/static const Statics s {};/static const Statics\& s = lasting<Statics>();/' \
        -e 's/static const Json json_null;/static const Json\& json_null = lasting<Json>();/' \
        -e '/^struct Statics {/{
i template <class T, bool which = false, class... Arguments>
i static T\& lasting(Arguments... arguments) {
i \    alignas(T) static unsigned char place[sizeof(T)];
i \    return *new (place) T(arguments...);
i }
i template <class T, bool which = false, class... Arguments>
i static std::shared_ptr<JsonValue> lasting_value(Arguments... arguments) {
i \    return {std::shared_ptr<JsonValue>(), \&lasting<T, which>(arguments...)};
i }
}' "$source/ext/json11/json11.cpp" >"$out/src/json11.cpp"
    [ "$(grep -c '[= ]lasting\(_value\)\?<[JS]' "$out/src/json11.cpp")" -eq 5 ]
    cp "$source"/ext/json11/LICENSE* "$out/" 2>/dev/null || true
}

# ensure_json11: $CACHE/json11 holds include/json11.hpp and src/json11.cpp; CMake compiles it with each tree's own flags.
ensure_json11() {
    from_source json11 dnsdist copy_json11
}

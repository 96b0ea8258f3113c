# Everything for the Windows build: the cross compiler, Wine, and libraries built for Windows from Debian sources.
# shellcheck shell=bash

# build_for_windows SOURCE OUT CMAKE_ARGUMENTS...: a static library, installed into OUT.
build_for_windows() {
    local source=$1 out=$2
    shift 2
    cmake -S "$source" -B "$source/build-windows" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$ROOT/cmake/toolchains/mingw-w64.cmake" \
        -DCMAKE_INSTALL_PREFIX="$out" -DCMAKE_INSTALL_LIBDIR=lib -DBUILD_SHARED_LIBS=OFF -DBUILD_TESTING=OFF "$@"
    cmake --build "$source/build-windows" --parallel "$JOBS"
    cmake --install "$source/build-windows"
}

CURL_SETTINGS=( # HTTP and HTTPS only, TLS by the system, file names in UTF-8
    -DHTTP_ONLY=ON -DCURL_USE_SCHANNEL=ON -DENABLE_UNICODE=ON -DBUILD_CURL_EXE=OFF -DENABLE_MANUAL=OFF
    -DCURL_ZLIB=OFF -DCURL_USE_LIBSSH2=OFF -DCURL_USE_LIBPSL=OFF -DUSE_LIBIDN2=OFF
)
JSONCPP_SETTINGS=(
    -DBUILD_STATIC_LIBS=ON -DBUILD_OBJECT_LIBS=OFF -DJSONCPP_WITH_TESTS=OFF
    -DJSONCPP_WITH_POST_BUILD_UNITTEST=OFF -DJSONCPP_WITH_PKGCONFIG_SUPPORT=OFF
)
GOOGLETEST_SETTINGS=(-DBUILD_GMOCK=ON -DINSTALL_GTEST=ON -Dgtest_disable_pthreads=ON)

# Headers only: those of the native build.
link_nlohmann_json() {
    mkdir -p "$CACHE/windows/nlohmann-json/include"
    ln -sfn /usr/include/nlohmann "$CACHE/windows/nlohmann-json/include/nlohmann"
}

ensure_windows_tools() {
    # shellcheck disable=SC2034
    local RECIPE_INPUTS=("$ROOT/cmake/toolchains/mingw-w64.cmake")
    install_packages "${WINDOWS_PACKAGES[@]}"
    from_source windows/curl curl build_for_windows "${CURL_SETTINGS[@]}"
    from_source windows/jsoncpp libjsoncpp build_for_windows "${JSONCPP_SETTINGS[@]}"
    from_source windows/googletest googletest build_for_windows "${GOOGLETEST_SETTINGS[@]}"
    [ -e "$CACHE/windows/nlohmann-json/include/nlohmann/json.hpp" ] || link_nlohmann_json
    [ -e "$CACHE/windows/wine-home/.ready" ] ||
        quietly "$CACHE/logs/wine.log" "making a Wine prefix" "$ROOT/scripts/lib/wine-run" --prepare
}

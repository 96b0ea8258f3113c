# Debian packages: the list for each task, and the installation of those that are missing.
# shellcheck shell=bash

BUILD_PACKAGES=(
    git g++ cmake ninja-build pkg-config binutils ccache python3 dpkg-dev
    libcurl4-openssl-dev libjsoncpp-dev nlohmann-json3-dev libmicrohttpd-dev libgnutls28-dev libssl-dev
    libgtest-dev libgmock-dev libbenchmark-dev
)
LINT_PACKAGES=(clang clang-format clang-tidy)
CLANG_PACKAGES=(clang libclang-rt-14-dev)
MEMCHECK_PACKAGES=(valgrind)
COVERAGE_PACKAGES=(gcovr)
WINDOWS_PACKAGES=(g++-mingw-w64-x86-64-posix wine64 patch)
PLOT_PACKAGES=(python3-matplotlib)
# The guard needs the first list; the second has what a user would pick instead, and what draws.
BENCH_GUARD_PACKAGES=(valgrind nginx-light openssl)
BENCH_PACKAGES=(
    "${BENCH_GUARD_PACKAGES[@]}" "${PLOT_PACKAGES[@]}"
    libcpprest-dev libcpp-httplib-dev rapidjson-dev libsimdjson-dev python3-requests
)
export BUILD_PACKAGES LINT_PACKAGES CLANG_PACKAGES MEMCHECK_PACKAGES COVERAGE_PACKAGES WINDOWS_PACKAGES PLOT_PACKAGES BENCH_GUARD_PACKAGES BENCH_PACKAGES

# missing_packages NAME...: prints those that are not installed.
missing_packages() {
    local installed
    installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "$@" 2>/dev/null | sed -n 's/^installed //p') || true
    printf '%s\n' "$@" | sort -u | grep -vxF -e "$installed" || true
}

# as_root COMMAND...
as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo -- "$@"
    else
        return 126
    fi
}

apt_get() {
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=600 -o Acquire::Retries=3 "$@"
}

# Fetches the package lists only when the installation fails with the present ones.
install_or_update() {
    apt_get install --no-install-recommends "$@" && return 0
    apt_get update || true
    apt_get install --no-install-recommends "$@"
}

install_packages_locked() {
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -eq 0 ] && return 0
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        die "not root and no sudo; please install these Debian packages: ${missing[*]}"
    fi
    quietly "$CACHE/logs/packages.log" "installing ${#missing[@]} Debian packages" install_or_update "${missing[@]}" ||
        die "could not install: ${missing[*]}"
}

# install_packages NAME...
install_packages() {
    [ -z "$(missing_packages "$@")" ] && return 0
    command -v apt-get >/dev/null || die "this script installs Debian packages and needs apt-get: $(missing_packages "$@" | xargs)"
    locked packages install_packages_locked "$@"
}

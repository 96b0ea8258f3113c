# Debian source packages, fetched without changing the system: its apt configuration and lists are only read.
# shellcheck shell=bash

SOURCE_APT=$CACHE/apt

# Prints the addresses of Debian's packages from apt's configuration.
debian_places() {
    # shellcheck disable=SC2016
    apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Origin: Debian' 2>/dev/null |
        sed 's|/*$||' | sort -u
}

# derive_source_entries PLACES OUT_FOLDER: turns every entry of the system for one of PLACES into one for source packages.
# In both formats all other fields stay, such as Signed-By.
derive_source_entries() {
    local places=$1 out=$2 etc=${VANTIX_APT_ETC:-/etc/apt}
    mkdir -p "$out"
    { cat "$etc/sources.list" "$etc"/sources.list.d/*.list 2>/dev/null || true; } |
        awk -v places="$places" -f "$ROOT/scripts/lib/source-lines.awk" >"$out/derived.list"
    { for file in "$etc"/sources.list.d/*.sources; do
        if [ -e "$file" ]; then
            cat "$file"
            echo
        fi
    done; } | awk -v places="$places" -f "$ROOT/scripts/lib/source-stanzas.awk" >"$out/derived.sources"
}

# apt-get with private lists, sources and caches; needs no root.
source_apt() {
    apt-get -q -y -o Dir::State::Lists="$SOURCE_APT/lists" -o Dir::Cache="$SOURCE_APT/cache" \
        -o Dir::Etc::SourceList=/dev/null -o Dir::Etc::SourceParts="$SOURCE_APT/sources.list.d" \
        -o APT::Sandbox::User=root -o Acquire::Languages=none -o Acquire::Retries=3 "$@"
}

refresh_source_lists() {
    local places
    places=$(debian_places)
    if [ -z "$places" ]; then
        apt_get update || true
        places=$(debian_places)
    fi
    if [ -z "$places" ]; then
        echo "apt has no address of Debian packages (apt-get indextargets lists none)"
        return 1
    fi
    mkdir -p "$SOURCE_APT/lists/partial" "$SOURCE_APT/cache/archives/partial"
    derive_source_entries "$places" "$SOURCE_APT/sources.list.d"
    source_apt update
    touch "$SOURCE_APT/lists-are-fresh"
}

# Lists are used for one day; older ones may name files that no longer exist.
ensure_source_lists() {
    if [ -n "$(find "$SOURCE_APT/lists-are-fresh" -mtime -1 2>/dev/null)" ]; then
        return 0
    fi
    quietly "$CACHE/logs/source-lists.log" "reading the lists of Debian source packages" strictly refresh_source_lists
}

# verify_dsc FILE.dsc: checks that every file in it exists and has the stated SHA-256 sum.
verify_dsc() {
    local folder sums
    folder=$(dirname "$1")
    sums=$(awk '/^[^ ]/ { inside = ($1 == "Checksums-Sha256:"); next } inside && NF == 3 { print $1 "  " $3 }' "$1")
    [ -n "$sums" ] || return 1
    (cd "$folder" && printf '%s\n' "$sums" | sha256sum --check --strict --quiet -)
}

dsc_version() {
    awk '$1 == "Version:" { print $2; exit }' "$1"
}

download_and_unpack() {
    local package=$1 work=$2 dsc
    (cd "$work" && source_apt source --download-only --only-source "$package")
    dsc=$(find "$work" -maxdepth 1 -name '*.dsc')
    [ -f "$dsc" ] || return 1
    verify_dsc "$dsc"
    dpkg-source -x "$dsc" "$work/source"
    dsc_version "$dsc" >"$work/version"
}

# fetch_source PACKAGE WORK_FOLDER: leaves the unpacked, patched source in WORK_FOLDER/source and its version in
# WORK_FOLDER/version.
fetch_source() {
    ensure_source_lists &&
        quietly "$CACHE/logs/source-$1.log" "fetching the Debian source package $1" strictly download_and_unpack "$@"
}

# from_source NAME PACKAGE BUILDER [ARGS]: makes $CACHE/NAME-VERSION from a Debian source package, once for each version
# and recipe (the text of BUILDER, ARGS, the files in RECIPE_INPUTS), and points the link $CACHE/NAME at it. BUILDER
# SOURCE_FOLDER OUT_FOLDER [ARGS] fills the folder; the result of an interrupted run is never used.
from_source() {
    is_made "$CACHE/$1" "${@:3}" || locked "source-$(basename "$1")" from_source_locked "$@"
}

recipe_of() {
    {
        declare -f "$1"
        printf '%s\n' "$@"
        [ -z "${RECIPE_INPUTS+set}" ] || cat "${RECIPE_INPUTS[@]}"
    } | sha256sum | cut -d' ' -f1
}

# is_made FOLDER BUILDER [ARGS]
is_made() {
    [ "$(cat "$1/.complete" 2>/dev/null)" = "$(recipe_of "${@:2}")" ]
}

from_source_locked() {
    local name=$1 package=$2 builder=$3 work target
    shift 3
    is_made "$CACHE/$name" "$builder" "$@" && return 0
    mkdir -p "$(dirname "$CACHE/$name")"
    find "$CACHE" -maxdepth 1 -name '.work-*' -mtime +0 -exec rm -rf {} +
    work=$(mktemp -d "$CACHE/.work-XXXXXX")
    # shellcheck disable=SC2064
    trap "rm -rf '$work'" EXIT
    fetch_source "$package" "$work" || die "could not fetch the Debian source package $package"
    target=$CACHE/$name-$(cat "$work/version")
    if ! is_made "$target" "$builder" "$@"; then
        mkdir "$work/out"
        quietly "$CACHE/logs/build-$(basename "$name").log" "making $name $(cat "$work/version")" \
            strictly "$builder" "$work/source" "$work/out" "$@" || die "could not make $name"
        recipe_of "$builder" "$@" >"$work/out/.complete"
        rm -rf "$target"
        mv "$work/out" "$target"
    fi
    ln -sfn "$(basename "$target")" "$CACHE/$name"
}

# Makes the next from_source of each package look for the newest version.
forget_sources() {
    [ -d "$CACHE" ] || return 0
    rm -f "$CACHE/apt/lists-are-fresh"
    find "$CACHE" -maxdepth 2 -type l -not -path "$CACHE/apt/*" -delete
}

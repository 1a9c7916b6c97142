# Sourced by the commands beside it: installs the packages of packages.txt that are missing.

# install_packages [test] [bench]
install_packages() {
    local wanted missing=() package privileged=()
    wanted=$(awk -v scopes=" $* " '/^#/ || NF == 0 { next }
        NF == 1 { print $1 } NF == 2 && index(scopes, " " $1 " ") { print $2 }' scripts/packages.txt)
    for package in $wanted; do
        dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
    done
    [ ${#missing[@]} -eq 0 ] && return
    echo "== Installing from Debian: ${missing[*]}"
    [ "$(id -u)" -eq 0 ] || privileged=(sudo)
    "${privileged[@]}" apt-get update -qq
    "${privileged[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
        "${missing[@]}" >/dev/null
}

# build PRESET [TARGET ...]
build() {
    local preset=$1
    shift
    cmake --preset "$preset" >"build-$preset.log" 2>&1 &&
        cmake --build --preset "$preset" ${1:+--target "$@"} >>"build-$preset.log" 2>&1 ||
        { cat "build-$preset.log"; rm -f "build-$preset.log"; return 1; }
    rm -f "build-$preset.log"
}

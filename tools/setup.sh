# Read by ./run and ./test: installs what is missing of the named package lists and nothing else.

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif command -v sudo >/dev/null; then
        sudo "$@"
    else
        echo "These packages are missing and cannot be installed without root or sudo: $missing" >&2
        exit 2
    fi
}

# ensure_packages LIST...: every package named in the files, one a line, "#" beginning a comment.
ensure_packages() {
    local wanted installed
    wanted=$(sed 's/#.*//' "$@" | tr -s ' \t' '\n' | sed '/^$/d' | sort -u)
    installed=$(dpkg-query -W -f='${db:Status-Abbrev} ${Package}\n' 2>/dev/null | sed -n 's/^ii *//p' | sort -u)
    missing=$(comm -23 <(echo "$wanted") <(echo "$installed") | tr '\n' ' ')
    [ -z "${missing// /}" ] && return 0
    echo "Installing packages: $missing"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q
    # shellcheck disable=SC2086 # one word a package
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends $missing
}

# build PRESET: configures once, then builds with every core.
build() {
    [ -e "build/$1/build.ninja" ] || cmake --preset "$1"
    cmake --build --preset "$1" -- -j "$(nproc)"
}

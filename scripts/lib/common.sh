# What every script here starts from. Source it; it sets:
#   repository   the checkout
#   build        the folder below which everything lies that a run makes
# Only what Debian's packages installed is used, whatever else the caller's PATH would find first.
export PATH=/usr/sbin:/usr/bin:/sbin:/bin

repository=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd -P)
build=$repository/build

# Programs started from here keep their settings and caches in the checkout instead of the user's home.
keepHomeInside() {
    export HOME=$build/home
    export XDG_CONFIG_HOME=$HOME/.config XDG_CACHE_HOME=$HOME/.cache XDG_DATA_HOME=$HOME/.local/share
    export XDG_RUNTIME_DIR=$HOME/run
    mkdir -p "$XDG_RUNTIME_DIR"
    chmod 700 "$XDG_RUNTIME_DIR"
}

die() {
    printf '%s: %s\n' "$(basename "$0")" "$1" >&2
    exit "${2:-1}"
}

# What ./run and ./test share; to be sourced. Leaves the shell in the root of the tree.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

run_packages=(
    g++ cmake ninja-build pkg-config
    libsqlite3-dev unixodbc-dev libfmt-dev libcli11-dev nlohmann-json3-dev libutf8proc-dev libbenchmark-dev
)
test_packages=(
    clang libclang-rt-14-dev llvm clang-format libgtest-dev libgmock-dev
    odbcinst libsqliteodbc odbc-postgresql postgresql
)

log_dir=build/log
mkdir -p "$log_dir"

die() {
    printf '\n%s: %s\n' "$(basename "$0")" "$1" >&2
    exit 1
}

# step NAME TEXT COMMAND...: says what is done, keeps the output in build/log/NAME.log, and on failure ends the script
# with the last lines of it.
step() {
    local log=$log_dir/$1.log text=$2 started=$SECONDS watcher=
    shift 2
    printf '%-64s' "$text ..."
    if [ -t 1 ]; then
        show_progress "$text" "$log" &
        watcher=$!
    fi
    local result=0
    "$@" >"$log" 2>&1 </dev/null || result=$?
    if [ -n "$watcher" ]; then
        kill "$watcher" 2>/dev/null || true
        wait "$watcher" 2>/dev/null || true
        printf '\r%-64s' "$text ..."
    fi
    if [ "$result" != 0 ]; then
        printf 'failed\n\n'
        tail -n 100 "$log"
        die "Failed: $text. The whole output is in $log."
    fi
    printf 'done (%d s)\n' "$((SECONDS - started))"
}

# Shows ninja's "[12/80]" from the log until it is ended.
show_progress() {
    while sleep 1; do
        local count
        count=$(tail -c 4000 "$2" 2>/dev/null | grep -o '^\[[0-9]*/[0-9]*\]' | tail -n 1) || true
        printf '\r%-64s%s ' "$1 ..." "$count"
    done
}

# Installs those of the packages that are missing. Asks nothing of apt when none is.
need_packages() {
    if ! command -v dpkg-query >/dev/null; then
        echo "This is no Debian system: taking it that these packages, or what they hold, are installed: $*"
        return
    fi
    local missing=() package
    for package; do
        [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" = installed ] || missing+=("$package")
    done
    [ ${#missing[@]} != 0 ] || return 0

    local as_root=()
    if [ "$(id -u)" != 0 ]; then
        as_root=(sudo)
        # Without a terminal nobody can type a password.
        [ -t 0 ] || as_root=(sudo -n)
        if ! command -v sudo >/dev/null || ! "${as_root[@]}" true; then
            die "These packages are missing, and only root may install them: ${missing[*]}
Run as root:  apt-get install --no-install-recommends ${missing[*]}"
        fi
    fi
    echo "Packages to install: ${missing[*]}"
    step apt-update "Reading the lists of packages" "${as_root[@]}" apt-get update
    step apt-install "Installing packages" "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install --yes --no-install-recommends "${missing[@]}"
}

# build PRESET TEXT TARGET...
build() {
    local preset=$1 text=$2
    shift 2
    if [ ! -e "build/$preset/build.ninja" ] || [ CMakePresets.json -nt "build/$preset/build.ninja" ]; then
        step "$preset-configure" "Configuring build/$preset" cmake --preset "$preset" --fresh
    fi
    step "$preset-build" "$text" cmake --build "build/$preset" --target "$@"
}

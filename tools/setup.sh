# shellcheck shell=bash
# shellcheck disable=SC2034
# What ./run and ./test share; to be sourced. Leaves the shell in the root of the tree, and in called_from the folder in
# which the script was called. What is told goes to descriptor 3.

set -euo pipefail
called_from=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# What the libraries and the front end need.
run_packages=(
    g++ cmake ninja-build pkg-config
    libsqlite3-dev unixodbc-dev libfmt-dev libcli11-dev nlohmann-json3-dev libutf8proc-dev libedit-dev
)

log_dir=build/log
step_texts=()
step_seconds=()
# With a value, a step that takes less than a second is not told at all.
quiet=
exec 3>&1

die() {
    printf '\n%s: %s\n' "$(basename "$0")" "$1" >&2
    exit 1
}

# step NAME TEXT COMMAND...: says what is done, keeps the output in build/log/NAME.log, and on failure ends the script
# with the last lines of it.
step() {
    local log=$log_dir/$1.log text=$2 started=$SECONDS
    shift 2
    mkdir -p "$log_dir"
    rm -f "$log.told"
    [ -n "$quiet" ] || tell_begin "$text" "$log"
    watch_step "$text" "$log" &
    local watcher=$! result=0
    "$@" >"$log" 2>&1 </dev/null 3>&- || result=$?
    kill "$watcher" 2>/dev/null || true
    wait "$watcher" 2>/dev/null || true
    step_texts+=("$text")
    step_seconds+=($((SECONDS - started)))
    if [ "$result" != 0 ]; then
        tell_end "$text" "$log" "failed"
        printf '\n' >&3
        tail -n 100 "$log" >&3
        die "Failed: $text. The whole output is in $log.${on_failure:+
$on_failure}"
    fi
    [ ! -e "$log.told" ] || tell_end "$text" "$log" "done ($((SECONDS - started)) s)"
    rm -f "$log.told"
}

# The line of a step is begun at once or, quiet, once it takes a second; .told beside the log tells that it is.
tell_begin() {
    printf '%-64s' "$1 ..." >&3
    : >"$2.told"
}

tell_end() {
    if [ -t 3 ] || [ ! -e "$2.told" ]; then printf '\r%-64s' "$1 ..." >&3; fi
    printf '%s\n' "$3" >&3
}

# Shows on a terminal, until it is ended, how much of a step is done: ninja counts "[12/80]", ctest " 3/21 Test".
watch_step() {
    trap 'kill $! 2>/dev/null; exit' TERM
    local count
    while sleep 1 & wait $!; do
        [ -e "$2.told" ] || tell_begin "$1" "$2"
        [ -t 3 ] || continue
        count=$(tail -c 4000 "$2" 2>/dev/null |
            sed -n -E 's,^\[([0-9]+)/([1-9][0-9]*)\] .*,\1 * 100 / \2,p; s,^ *([0-9]+)/([1-9][0-9]*) Test .*,\1 * 100 / \2,p' |
            tail -n 1) || true
        [ -z "$count" ] || printf '\r%-64s%3d %% ' "$1 ..." $((count)) >&3
    done
}

# A table of the steps so far.
tell_times() {
    [ ${#step_texts[@]} != 0 ] || return 0
    local at
    printf '\nWhat took how long:\n' >&3
    for at in "${!step_texts[@]}"; do printf '%8d s  %s\n' "${step_seconds[at]}" "${step_texts[at]}" >&3; done
    printf '%8d s  in all\n' "$SECONDS" >&3
}

# find_missing PACKAGE...: leaves in `missing` those that are not installed.
find_missing() {
    missing=()
    if ! command -v dpkg-query >/dev/null; then
        [ -d "$log_dir" ] ||
            echo "This is no Debian system: taking it that these packages, or what they hold, are installed: $*" >&3
        return
    fi
    local installed package
    installed=$(dpkg-query -W -f='${db:Status-Status} ${Package}\n' "$@" 2>/dev/null) || true
    for package; do
        [[ $'\n'$installed$'\n' == *$'\n'"installed $package"$'\n'* ]] || missing+=("$package")
    done
}

# announce PROGRAM SECONDS: says what the first time is going to cost where PROGRAM is not built yet. SECONDS of one core.
announce() {
    local cost=() cores minutes
    [ ${#missing[@]} = 0 ] || cost+=("installs ${#missing[@]} packages with what they need")
    if [ ! -e "$1" ]; then
        cores=$(nproc)
        minutes=$((($2 / cores + 59) / 60))
        cost+=("compiles for about $minutes minute$([ "$minutes" = 1 ] || echo s) on $cores core$([ "$cores" = 1 ] || echo s)")
    fi
    case ${#cost[@]} in
        1) echo "The first time this ${cost[0]}." >&3 ;;
        2) echo "The first time this ${cost[0]} and ${cost[1]}." >&3 ;;
    esac
}

# Installs the packages of `missing`. Asks nothing of apt when there is none.
install_missing() {
    [ ${#missing[@]} != 0 ] || return 0

    local as_root=() by_hand="apt-get install --no-install-recommends ${missing[*]}"
    if [ "$(id -u)" != 0 ]; then
        as_root=(sudo)
        # Without a terminal nobody can type a password.
        [ -t 0 ] || as_root=(sudo -n)
        if ! command -v sudo >/dev/null || ! "${as_root[@]}" true; then
            die "These packages are missing, and only root may install them: ${missing[*]}
Run as root:  $by_hand"
        fi
    fi
    echo "Packages to install: ${missing[*]}" >&3
    local on_failure="Is there a network? By hand, as root:  apt-get update && $by_hand"
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

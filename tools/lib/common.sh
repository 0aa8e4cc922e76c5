# Sourced first by every tool: strict mode, the project's root as working directory, and a few words to print.
set -euo pipefail
export LC_ALL=C.UTF-8

cd "$(dirname "${BASH_SOURCE[0]}")/../.."
root=$PWD

say() { printf "%s\n" "$@"; }
die() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# The comment at the top of a tool is its help.
help() {
    awk 'NR > 1 && !/^#/ { exit } NR > 1 { sub(/^# ?/, ""); print }' "$root/tools/${0##*/}"
    exit 0
}

# at_exit COMMAND...: runs at the end, however it comes, the latest first.
at_exit_commands=()
at_exit() { at_exit_commands=("$(printf '%q ' "$@")" "${at_exit_commands[@]}"); }
run_at_exit() {
    local status=$? command
    trap - EXIT
    for command in "${at_exit_commands[@]}"; do
        eval "$command" || true
    done
    exit "$status"
}
trap run_at_exit EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

# wait_for SECONDS COMMAND...: tries until the command succeeds; fails when the time is over.
wait_for() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS < end)) || return 1
        sleep 0.1
    done
}

# configure_and_build PRESET [TARGET...]: configures only once; later changes, but those of the presets, CMake notices itself.
configure_and_build() {
    local preset=$1 folder=$root/build/$1
    shift
    if [[ ! -e $folder/build.ninja || CMakePresets.json -nt $folder/build.ninja ]]; then
        timeout 300 cmake --preset "$preset" >"$folder.log" 2>&1 || {
            cat "$folder.log"
            return 1
        }
    fi
    timeout 1800 cmake --build "$folder" ${1:+--target "$@"}
}
mkdir -p "$root/build"

# Configuring and building with the presets of CMakePresets.json.
# shellcheck shell=bash

# build_preset NAME [TARGET...]: silent but for its one line; what went wrong is shown from the log.
build_preset() {
    local preset=$1 log=$build/$1.log
    shift
    configure_preset "$preset" || return 1
    say "building $preset"
    # timeout also puts the build into its own process group, all of which ends when we are signalled.
    if ! run_child timeout -k 10 3600 env -C "$root" cmake --build --preset "$preset" ${1:+--target "$@"} \
        </dev/null >"$log" 2>&1; then
        show_errors "$log"
        return 1
    fi
}

configure_preset() {
    local log=$build/$1.configure.log
    mkdir -p "$build"
    if ! run_child timeout -k 10 300 env -C "$root" cmake --preset "$1" </dev/null >"$log" 2>&1; then
        show_errors "$log"
        return 1
    fi
}

show_errors() {
    grep -E -A12 'error:|Error |^FAILED|undefined reference|^ninja: ' "$1" | head -100 >&2 || tail -50 "$1" >&2
    say "that failed; the whole log is $1"
}

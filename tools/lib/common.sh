# Shared by ./run and ./test: where we are, how we speak, one run at a time.
# shellcheck shell=bash
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$root/build

say() { printf '%s\n' "$*" >&2; }
die() { say "$*"; exit 1; }

# Two runs in one checkout would overwrite each other's build. The lock ends with the process, however it ends.
take_lock() {
    mkdir -p "$build"
    exec 9>"$build/.lock"
    flock -n 9 || { say "waiting for another run in this folder to end"; flock 9; }
}

# Runs one program and waits for it. A signal to us ends the program first, and it ends what it started; bash alone
# would wait for the program or leave it running. The program does not inherit the lock.
child=
run_child() {
    local status=0
    "$@" 9>&- &
    child=$!
    wait "$child" || status=$?
    child=
    return "$status"
}

stop() {
    trap '' INT TERM HUP
    if [ -n "$child" ]; then
        kill -TERM "$child" 2>/dev/null || true
        wait "$child" || true
    fi
    exit $((128 + $1))
}
trap 'stop 2' INT
trap 'stop 15' TERM
trap 'stop 1' HUP

# With randomised addresses one Wine start in a few thousand dies at once, and so do programs under the sanitizers. Some
# containers do not let us switch that off.
steady=(setarch -R)
setarch -R true 2>/dev/null || steady=()

# garm_python MODULE ARGUMENTS...: one of our own Python programs; it leaves no compiled files in the source tree. It
# runs on the Python of the package, whatever else comes first on the path.
garm_python() {
    run_child env PYTHONPATH="$root:$root/tools" PYTHONDONTWRITEBYTECODE=1 /usr/bin/python3 -m "$@"
}

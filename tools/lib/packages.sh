# Debian packages, by what they are for. Only what is missing is installed.
# shellcheck shell=bash

packages_common=(cmake python3 python3-pytest util-linux)
packages_native=(cmake ninja-build g++ googletest zlib1g-dev libcli11-dev nlohmann-json3-dev)
packages_windows=(cmake ninja-build g++ googletest g++-mingw-w64-x86-64-posix mingw-w64-x86-64-dev libz-mingw-w64-dev
    libcli11-dev nlohmann-json3-dev)
# The Japanese font is for measuring and showing the Japanese dialogs.
packages_wine=(wine64 fonts-wine fonts-ipafont-gothic)
# Pictures of windows are taken on a display of our own.
packages_display=(xvfb python3-pil)
# The fuzzer's engine is part of the compiler's run-time library; llvm names the functions in its stack traces.
packages_fuzz=(cmake ninja-build clang libclang-rt-14-dev llvm googletest zlib1g-dev)
# A mutant is linked in no time by this linker.
packages_mutants=(lld python3-clang-14)
# The tests of the tools make mutants, too.
packages_checks=(clang-format clang-tidy cppcheck git python3-clang-14)
packages_coverage=(gcovr)
packages_memory=(valgrind)
packages_threads=()
# libcups2 is what Wine reaches a CUPS server through; the server itself is started by us, never the system's.
packages_printing=(cups cups-client cups-daemon cups-filters libcups2 openprinting-ppds)

# need_packages GROUP...: installs what is missing of the named groups.
need_packages() {
    local group missing=() package
    for group in common "$@"; do
        local -n list=packages_$group
        for package in "${list[@]}"; do
            dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
                [[ " ${missing[*]} " == *" $package "* ]] || missing+=("$package")
        done
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    command -v apt-get >/dev/null || die "These Debian packages are missing and there is no apt-get: ${missing[*]}"
    mkdir -p "$build"
    say "installing: ${missing[*]}"
    apt update
    apt install "${missing[@]}"
}

# apt never asks, waits its turn when another apt is at work, and speaks only when it fails.
apt() {
    local as_root=() log=$build/apt.log words=(-o DPkg::Lock::Timeout=600 -q)
    [ "$(id -u)" -eq 0 ] || as_root=(sudo)
    [ "$1" = update ] || words+=(-y --no-install-recommends)
    if ! "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get "${words[@]}" "$@" \
        </dev/null >"$log" 2>&1 9>&-; then
        cat "$log" >&2
        die "apt-get $* failed"
    fi
}

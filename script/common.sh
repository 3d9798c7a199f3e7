# What the scripts share: strict mode, the project's root as working folder, one line for each stage.
# To be sourced, never run.
# shellcheck shell=bash
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$root"
jobs=$(nproc 2>/dev/null || echo 2)

say() { printf '== %s\n' "$*"; }

fail() {
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# configure_and_build PRESET [TARGET ...]: makes a preset's build folder and builds everything that can be
# built, so that one failure doesn't hide the next.
configure_and_build() {
    local preset=$1 target
    shift
    local -a targets=()
    for target in "$@"; do targets+=(--target "$target"); done
    cmake --preset "$preset" >"build/$preset.configure.log" 2>&1 || {
        cat "build/$preset.configure.log"
        return 1
    }
    cmake --build --preset "$preset" --parallel "$jobs" "${targets[@]}" -- -k 0
}

mkdir -p build
export PYTHONDONTWRITEBYTECODE=1  # no byte code beside the sources

# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
# shellcheck shell=bash
#
# What the commands of this folder share; sourced, never run. It leaves the caller in the project's folder.

set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '==> %s\n' "$*"; }

fail()
{
    printf '%s: %s\n' "$(basename "$0")" "$*" >&2
    exit 1
}

# build_preset <preset> [<target>...]: configures build/<preset> the first time, and builds what has changed.
build_preset()
{
    local preset=$1
    shift
    if [ ! -f "build/$preset/build.ninja" ]; then
        say "Configuring build/$preset"
        cmake --preset "$preset"
    fi
    say "Building build/$preset"
    cmake --build --preset "$preset" --parallel "$(nproc 2>/dev/null || echo 2)" ${1:+--target "$@"}
}

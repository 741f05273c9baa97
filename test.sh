#!/usr/bin/env bash
# Installs what is missing, builds, and runs all tests: optimised, then under the address and
# undefined-behaviour sanitizers. Arguments name other presets to test instead.
#
#   ./test.sh
#   ./test.sh debug
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$root/scripts/setup.sh"

need_build_tools
need libgtest-dev minizinc flatzinc
cd "$root"
[ $# -gt 0 ] || set -- release asan
for preset in "$@"; do
  cmake --preset "$preset" -DKIV_TESTS=ON
  cmake --build --preset "$preset"
done
for preset in "$@"; do
  ctest --preset "$preset" -j "$(nproc)"
done

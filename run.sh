#!/usr/bin/env bash
# Installs what is missing, builds, and runs `kiv` with the given arguments; without any it solves
# examples/send_more_money.kiv. With a first argument fzn-kiv it runs that command instead. Only the
# command writes to standard output.
#
#   ./run.sh
#   ./run.sh solve --all examples/queens.kiv
#   ./run.sh fzn-kiv -a model.fzn
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
source "$root/scripts/setup.sh"

build() {
  need_build_tools
  cd "$root"
  # A tree that test.sh configured is used as it stands.
  [ -f build/release/build.ninja ] || cmake --preset release -DKIV_TESTS=OFF
  cmake --build --preset release --target kiv fzn-kiv
}
(build) >&2

[ $# -gt 0 ] || set -- solve "$root/examples/send_more_money.kiv"
command=kiv
if [ "$1" = fzn-kiv ]; then
  command=$1
  shift
fi
exec "$root/build/release/bin/$command" "$@"

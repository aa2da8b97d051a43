#!/bin/bash
# Instructions per call under callgrind for the four number formats the
# number benchmark times, in de_DE under a UTF-8 session:
#   cmake --preset bench && cmake --build --preset bench --target nlnum_bench
#   bench/nlnum/ir_per_call.sh [build/bench]
set -euo pipefail
here=$(dirname "$0")
build=${1:-build/bench}
# Every call walks the environment for ORB_LOCALE, which the benchmark sets
# last, so each entry adds about five instructions to every figure.
echo "environment: $(env | wc -l) entries (valgrind adds its own)"
for format in NLNUM12.2 NLMNY12.2 NLPCT8.1 NLMNIEUR14.2; do
  "$here/../ir_per_call.sh" "$build/bench/nlnum/nlnum_bench" "$format/de_DE/corvinel"
done

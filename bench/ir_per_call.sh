#!/bin/bash
# Instructions per call under callgrind, the figure machine noise does not
# move.
#
# With no argument or a build directory (default build/bench): the standard
# set, the four number formats in de_DE and NLDATE20. in en_US and de_DE,
# under a UTF-8 session:
#   cmake --preset bench && cmake --build --preset bench --target nlnum_bench nldate_bench
#   bench/ir_per_call.sh [build/bench]
#
# With a benchmark binary: BENCH FILTER [LOOP [CALLEE]].  FILTER picks one
# benchmark; LOOP names the function whose timed loop is counted (default
# corvinel_format) and CALLEE the routine called once per iteration
# (default: the format routine the loop calls through its pointer, a name
# starting "nl").
#   bench/ir_per_call.sh build/bench/bench/nldate/nldate_bench 'NLDATE20./en_US/corvinel'
#   bench/ir_per_call.sh build/bench/bench/nldate/nldate_bench 'NLDATE20./en_US/strftime' strftime_format strftime
#   bench/ir_per_call.sh build/bench/bench/nldate/expand_bench 'de_DE/long-date/expand$' expand_case 'corvinel::nldate::expand'
set -euo pipefail

if [[ $# -eq 0 || -d ${1:-} ]]; then
  build=${1:-build/bench}
  # Every call walks the environment for ORB_LOCALE, which the benchmarks
  # set last, so each entry adds about five instructions to every figure.
  echo "environment: $(env | wc -l) entries (valgrind adds its own)"
  for format in NLNUM12.2 NLMNY12.2 NLPCT8.1 NLMNIEUR14.2; do
    "$0" "$build/bench/nlnum/nlnum_bench" "$format/de_DE/corvinel"
  done
  for locale in en_US de_DE; do
    "$0" "$build/bench/nldate/nldate_bench" "NLDATE20./$locale/corvinel\$"
  done
  exit 0
fi

bench=$1
filter=$2
loop=${3:-corvinel_format}
callee=${4:-'nl[a-z]+'}
out=$(mktemp)
trap 'rm -f "$out"' EXIT
valgrind --tool=callgrind --toggle-collect="*${loop}*" --callgrind-out-file="$out" \
  "$bench" --benchmark_filter="$filter" --benchmark_min_time=0.02 >/dev/null 2>&1
total=$(callgrind_annotate "$out" | awk '/PROGRAM TOTALS/ {gsub(",", "", $1); print $1}')
calls=$(callgrind_annotate --tree=calling "$out" |
  sed -nE "s/.*>   [^ ]*:(${callee})(\\(| ).*\\(([0-9,]+)x\\).*/\\3/p" | tr -d , | sort -n | tail -1)
echo "$filter: $((total / calls)) instructions per call ($calls calls)"

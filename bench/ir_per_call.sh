#!/bin/bash
# Instructions per call under callgrind, the figure machine noise does not
# move.  BENCH is a benchmark binary, FILTER picks one benchmark; LOOP names
# the function whose timed loop is counted (default corvinel_format) and
# CALLEE the routine called once per iteration (default: the format routine
# the loop calls through its pointer, a name starting "nl").
#   bench/ir_per_call.sh build/bench/bench/nldate/nldate_bench 'NLDATE20./en_US/corvinel'
#   bench/ir_per_call.sh build/bench/bench/nldate/nldate_bench 'NLDATE20./en_US/strftime' strftime_format strftime
#   bench/ir_per_call.sh build/bench/bench/nldate/expand_bench 'de_DE/long-date/expand$' expand_case 'corvinel::nldate::expand'
set -euo pipefail
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

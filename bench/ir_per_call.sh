#!/bin/bash
# Instructions per format call under callgrind, the figure machine noise
# does not move.  BENCH is a benchmark binary whose timed loop is a function
# named corvinel_format; FILTER picks one benchmark.
#   bench/ir_per_call.sh build/bench/bench/nldate/nldate_bench 'NLDATE20./en_US/corvinel'
set -euo pipefail
bench=$1
filter=$2
out=$(mktemp)
trap 'rm -f "$out"' EXIT
valgrind --tool=callgrind --toggle-collect='*corvinel_format*' --callgrind-out-file="$out" \
  "$bench" --benchmark_filter="$filter" --benchmark_min_time=0.02 >/dev/null 2>&1
total=$(callgrind_annotate "$out" | awk '/PROGRAM TOTALS/ {gsub(",", "", $1); print $1}')
# The format routine the loop calls through its pointer, and how often.
calls=$(callgrind_annotate --tree=calling "$out" |
  sed -nE 's/.*>   [^ ]*:(nl[a-z]+) \(([0-9,]+)x\).*/\2/p' | tr -d , | sort -n | tail -1)
echo "$filter: $((total / calls)) instructions per call ($calls calls)"

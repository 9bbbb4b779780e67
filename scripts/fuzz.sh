#!/usr/bin/env bash
# Runs the fuzzer of each parser of untrusted data for a while and reports the results: fuzz.sh SECONDS
#
# The corpus is kept in build/fuzz/corpus for the next run. Exit status: 1 if an input crashed a parser, violated one of
# its invariants or took too long; the input is named, and should be added to the seeds once the bug is fixed.
set -euo pipefail

cd "$(dirname "$0")/.."
# shellcheck source=scripts/packages.sh
source scripts/packages.sh
# shellcheck source=scripts/build.sh
source scripts/build.sh

seconds=${1:-}
if [[ $# -ne 1 || ! $seconds =~ ^[1-9][0-9]*$ ]]; then
    echo "fuzz: say for how many seconds each parser is to be fed: ./dev fuzz SECONDS" >&2
    exit 2
fi
require_packages build ui fuzz

if [[ $(uname -s) == Darwin ]]; then
    # Apple's compiler does not include the fuzzer.
    CXX=$(brew --prefix llvm)/bin/clang++
    export CXX OBJCXX=$CXX
else
    export CXX=clang++-$clang_llvm
fi
build fuzz fuzzers

export ASAN_OPTIONS=detect_leaks=1:allocator_may_return_null=1
export LSAN_OPTIONS=print_suppressions=0
failed=
summary=()
for program in build/fuzz/bin/fuzz_*; do
    target=${program##*/fuzz_}
    corpus=build/fuzz/corpus/$target
    findings=build/fuzz/findings/$target
    log=build/fuzz/$target.log
    mkdir -p "$corpus" "$findings"
    options=(-max_total_time="$seconds" -max_len=16384 -timeout=10 -rss_limit_mb=2048 -print_final_stats=1
        -artifact_prefix="$findings/")
    if [[ -e tests/fuzz/$target.dict ]]; then
        options+=(-dict="tests/fuzz/$target.dict")
    fi
    echo "fuzz: feeding $target for $seconds seconds"
    verdict="nothing found"
    if ! "$program" "${options[@]}" "$corpus" "tests/fuzz/$target" >"$log" 2>&1; then
        tail -n 40 "$log"
        verdict="FAILED: see $log and $findings"
        failed=yes
    fi
    executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    rate=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log")
    inputs=$(find "$corpus" -type f | wc -l)
    summary+=("$(printf '%-18s %12s executions %10s per second %8s inputs kept   %s' \
        "$target" "${executions:-?}" "${rate:-?}" "$inputs" "$verdict")")
done
printf '%s\n' "${summary[@]}"
[[ ! $failed ]]

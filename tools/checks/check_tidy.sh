#!/usr/bin/env bash
# clang-tidy, with the checks of .clang-tidy (every finding an error), over the
# sources of the libraries, the applications and the tools of one build.
# Usage: check_tidy.sh SOURCE_DIR BUILD_DIR [JOBS] [RUN_CLANG_TIDY]
# BUILD_DIR must hold compile_commands.json and a finished build (the Qt sources
# include generated files). Prints each finding; exit status 1 if any.
set -euo pipefail
source_dir=$(cd "${1:?usage: check_tidy.sh SOURCE_DIR BUILD_DIR [JOBS] [RUN_CLANG_TIDY]}" && pwd)
build_dir=$(cd "${2:?usage: check_tidy.sh SOURCE_DIR BUILD_DIR [JOBS] [RUN_CLANG_TIDY]}" && pwd)
jobs=${3:-1}
run_clang_tidy=${4:-run-clang-tidy}
[ -f "$build_dir/compile_commands.json" ] || {
    echo "no compile_commands.json in $build_dir" >&2
    exit 1
}

log=$(mktemp)
trap 'rm -f "$log"' EXIT
# The compile commands are g++'s: clang must not stop at the warning options it lacks.
status=0
"$run_clang_tidy" -p "$build_dir" -j "$jobs" -quiet -extra-arg=-Wno-unknown-warning-option \
    "^$source_dir/(src|apps|tools)/" >"$log" 2>&1 || status=$?
# run-clang-tidy colours its output whatever it writes to.
sed 's/\x1b\[[0-9;]*m//g' "$log" | grep -E '(warning|error):' | sort -u || true
files=$(grep -c '^clang-tidy' "$log" || true)
if [ "$status" -ne 0 ] || [ "$files" -eq 0 ]; then
    echo "clang-tidy found problems in the $files files it read" >&2
    exit 1
fi
echo "$files files checked"

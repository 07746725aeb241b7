#!/usr/bin/env bash
# Every C++ file of the tree is laid out as .clang-format says. Prints the first lines
# clang-format would change in each offending file; exit status 1 if any.
# Usage: check_format.sh ROOT [CLANG_FORMAT]
set -euo pipefail
root=${1:?usage: check_format.sh ROOT [CLANG_FORMAT]}
clang_format=${2:-clang-format}
cd "$root"

mapfile -d '' files < <(find apps bench designer examples fuzz src tests tools \
    -type f \( -name '*.cpp' -o -name '*.h' \) -print0 | sort -z)
[ ${#files[@]} -gt 0 ] || { echo "no C++ files under $root" >&2; exit 1; }

log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! "$clang_format" --dry-run -Werror "${files[@]}" 2>"$log"; then
    grep 'error:' "$log" | head -n 40
    echo "$(grep 'error:' "$log" | cut -d: -f1 | sort -u | wc -l) file(s) need" \
         "'$clang_format -i'" >&2
    exit 1
fi
echo "${#files[@]} files formatted"

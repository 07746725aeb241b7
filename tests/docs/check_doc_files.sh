#!/usr/bin/env bash
# Checks that every file a documentation page shows is shown as it is in the
# repository, so a page cannot drift from the code that is built and tested.
#
#   check_doc_files.sh SOURCE_DIR [REQUIRED_PATH...]
#
# A page marks a shown file with an HTML comment on the line before its fenced block:
#
#   <!-- file: examples/minimal-host/main.cpp -->
#   ```cpp
#   ...the file's lines...
#   ```
#
# Every marked block of README.md and docs/*.md must equal its file byte for byte,
# and every REQUIRED_PATH must be shown somewhere.
set -uo pipefail

if [ $# -lt 1 ]; then
    echo "usage: check_doc_files.sh SOURCE_DIR [REQUIRED_PATH...]" >&2
    exit 2
fi
cd "$1" || exit 2
shift

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

failures=0
shown=()
for page in README.md docs/*.md; do
    # Writes each marked block to $work/N and lists "N<TAB>PATH<TAB>LINE".
    awk -v out="$work" '
        match($0, /^<!-- file: [^ ]+ -->$/) {
            path = substr($0, 12, length($0) - 15); marked = FNR; next
        }
        marked && /^```/ && !inBlock {
            if (FNR != marked + 1) { marked = 0; next }
            inBlock = 1; n++; file = out "/" n; printf "" > file
            printf "%d\t%s\t%d\n", n, path, marked
            next
        }
        inBlock && /^```[[:space:]]*$/ { inBlock = 0; marked = 0; close(file); next }
        inBlock { print > file }
        { marked = 0 }
    ' "$page" >"$work/list" || exit 2
    while IFS=$'\t' read -r n path line; do
        shown+=("$path")
        if [ ! -f "$path" ]; then
            echo "$page:$line: shows $path, which does not exist"
            failures=$((failures + 1))
        elif ! cmp -s "$work/$n" "$path"; then
            echo "$page:$line: the block differs from $path:"
            diff -u "$path" "$work/$n" | sed 's/^/  /'
            failures=$((failures + 1))
        fi
        rm -f "$work/$n"
    done <"$work/list"
done

# Not printf piped into grep -q: under pipefail, grep leaving at the first match can
# end printf with SIGPIPE now and then, and the path would count as not shown.
for required in "$@"; do
    found=0
    for path in "${shown[@]}"; do
        [ "$path" = "$required" ] && found=1
    done
    if [ "$found" -eq 0 ]; then
        echo "no page shows $required"
        failures=$((failures + 1))
    fi
done

echo "${#shown[@]} shown files checked, $failures failed"
[ "$failures" -eq 0 ]

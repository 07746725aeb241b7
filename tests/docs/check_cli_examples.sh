#!/usr/bin/env bash
# Runs every command a documentation page shows and checks that it prints what the
# page shows and ends with the exit status the page gives.
#
#   check_cli_examples.sh TABULON SOURCE_DIR PAGE...
#
# In a page, only fenced blocks with the info string "console" are read:
#
#   $ tabulon validate samples/english.xml     a command, run by bash with TABULON
#                                             first on the PATH as `tabulon`
#   $ tabulon validate x.xml   # exit status 1  the status it must end with (default 0)
#   tree 6 nodes; ...                         what it prints, stdout and stderr
#                                             together, CR dropped; a line "..." stands
#                                             for any number of lines, a line ending in
#                                             "..." for any line starting with the text
#                                             before the dots
#
# Commands run in a scratch copy of the repository's samples/ and docs/examples/, so
# paths read as from the repository root and commands may write files.
set -uo pipefail

if [ $# -lt 3 ]; then
    echo "usage: check_cli_examples.sh TABULON SOURCE_DIR PAGE..." >&2
    exit 2
fi
tool=$(realpath "$1")
source_dir=$(realpath "$2")
shift 2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$work/bin" "$work/root/docs"
ln -s "$tool" "$work/bin/tabulon"
cp -r "$source_dir/samples" "$work/root/"
cp -r "$source_dir/docs/examples" "$work/root/docs/"
export PATH="$work/bin:$PATH"

# Prints "C<TAB>LINE<TAB>COMMAND" for each command and "O<TAB>TEXT" for each line of
# output shown after it.
read_examples() {
    awk '
        /^```/ {
            if (inBlock) { inBlock = 0; next }
            inBlock = ($0 ~ /^```console[[:space:]]*$/); next
        }
        !inBlock { next }
        /^\$ / { printf "C\t%d\t%s\n", FNR, substr($0, 3); next }
        { printf "O\t%s\n", $0 }
    ' "$1"
}

# Whether the actual output (file 2) matches the expected one (file 1).
matches() {
    awk '
        FNR == NR { want[++nw] = $0; next }
        { sub(/\r$/, ""); got[++ng] = $0 }
        function lineMatches(w, g) {
            if (w != "..." && w ~ /\.\.\.$/) return index(g, substr(w, 1, length(w) - 3)) == 1
            return w == g
        }
        function from(i, j,    k) {
            if (i > nw) return j > ng
            if (want[i] == "...") {
                for (k = j; k <= ng + 1; k++) if (from(i + 1, k)) return 1
                return 0
            }
            return j <= ng && lineMatches(want[i], got[j]) && from(i + 1, j + 1)
        }
        END { exit from(1, 1) ? 0 : 1 }
    ' "$1" "$2"
}

failures=0
commands=0
page=""
line=""
command=""

check() {
    [ -n "$command" ] || return 0
    commands=$((commands + 1))
    local want=0
    if [[ $command =~ \#\ exit\ status\ ([0-9]+)[[:space:]]*$ ]]; then
        want=${BASH_REMATCH[1]}
    fi
    (cd "$work/root" && timeout 60 bash -c "$command" >"$work/actual" 2>&1 </dev/null)
    local status=$?
    if [ "$status" -ne "$want" ] || ! matches "$work/expected" "$work/actual"; then
        failures=$((failures + 1))
        echo "$page:$line: $command"
        echo "  exit status $status, the page says $want"
        echo "  --- shown"
        sed 's/^/  /' "$work/expected"
        echo "  --- printed"
        tr -d '\r' <"$work/actual" | sed 's/^/  /'
    fi
    command=""
}

for page in "$@"; do
    path="$source_dir/$page"
    found=0
    while IFS=$'\t' read -r kind first rest; do
        if [ "$kind" = C ]; then
            check
            line=$first
            command=$rest
            : >"$work/expected"
            found=1
        else
            printf '%s\n' "$first" >>"$work/expected"
        fi
    done < <(read_examples "$path")
    check
    if [ "$found" -eq 0 ]; then
        echo "$page: no console examples found"
        failures=$((failures + 1))
    fi
done

echo "$commands commands checked, $failures failed"
[ "$failures" -eq 0 ]

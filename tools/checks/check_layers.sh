#!/usr/bin/env bash
# The layering rule of src/, checked on every include line:
#   - a module includes only its own headers and those of the modules below it, in
#     the order of LAYERS (the order of src/CMakeLists.txt);
#   - nothing below src/qt includes a Qt header;
#   - nothing in src/ includes the tools' or the applications' headers.
# Usage: check_layers.sh SRC_DIR. Prints every offending line; exit status 1 if any.
set -euo pipefail
src=${1:?usage: check_layers.sh SRC_DIR}

# Lowest first. platform/xml sits below the rest of platform.
LAYERS=(support platform/xml platform unitinput units subcontrols document view control
        propertypages testing qt)

rank_of() {
    local i
    for i in "${!LAYERS[@]}"; do
        [ "${LAYERS[$i]}" = "$1" ] && { echo "$i"; return; }
    done
    echo -1
}

# The module a path inside src/ belongs to ("platform/xml/x.h" -> platform/xml).
module_of() {
    case "$1" in
        platform/xml/*) echo platform/xml ;;
        */*) echo "${1%%/*}" ;;
        *) echo "" ;;
    esac
}

failed=0
qt_rank=$(rank_of qt)
while IFS= read -r file; do
    relative=${file#"$src"/}
    own=$(module_of "$relative")
    own_rank=$(rank_of "$own")
    if [ "$own_rank" -lt 0 ]; then
        echo "$relative: folder '$own' is not a layer (add it to LAYERS)"
        failed=1
        continue
    fi
    line_number=0
    while IFS= read -r line; do
        line_number=$((line_number + 1))
        [[ $line =~ ^[[:space:]]*#[[:space:]]*include[[:space:]]*([<\"])([^>\"]+) ]] || continue
        target=${BASH_REMATCH[2]}
        if [ "${BASH_REMATCH[1]}" = "<" ]; then
            if [[ $target =~ ^Q[A-Za-z]*(/|$) ]] && [ "$own_rank" -lt "$qt_rank" ]; then
                echo "$relative:$line_number: $own includes Qt <$target>"
                failed=1
            fi
            continue
        fi
        module=$(module_of "$target")
        rank=$(rank_of "$module")
        if [ "$rank" -lt 0 ]; then
            echo "$relative:$line_number: $own includes \"$target\", which is not in src/"
            failed=1
        elif [ "$rank" -gt "$own_rank" ]; then
            echo "$relative:$line_number: $own includes \"$target\" from the higher layer $module"
            failed=1
        fi
    done <"$file"
done < <(find "$src" -name '*.h' -o -name '*.cpp' | sort)

exit "$failed"

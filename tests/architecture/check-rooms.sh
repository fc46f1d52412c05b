#!/usr/bin/env bash
# Proves that the rooms depend on each other in one direction, and never on a window system.
#   check-rooms.sh FOLDER [NINJA_FILE]    exit 1 with one line for each forbidden include, and for each forbidden
#                                         library on the link lines of a build
set -euo pipefail

folder=$1
ninja_file=${2:-}
findings=0

declare -A allowed=(
    [platform]='platform'
    [core]='core|platform'
    [hosting]='hosting|platform'
    [widgets]='widgets|hosting|core|platform'
    [cli]='cli|widgets|hosting|core|platform'
)

report() {
    printf '%s\n' "$1"
    findings=1
}

includes_of() {
    grep --recursive --include='*.h' --include='*.cpp' --no-messages -HE '^[[:space:]]*#[[:space:]]*include' "$folder/$1" || true
}

for room in "${!allowed[@]}"; do
    while IFS= read -r line; do
        report "$room may not include this: $line"
    done < <(includes_of "$room" | grep -E 'include[[:space:]]*"' | grep -vE "include[[:space:]]*\"(${allowed[$room]})/" || true)
    while IFS= read -r line; do
        report "$room knows a window system: $line"
    done < <(includes_of "$room" | grep -E '<(Q[A-Z]|Qt|gtk|X11|wayland)' || true)
done

if [ -n "$ninja_file" ]; then
    while IFS= read -r line; do
        report "a program links a window system: $line"
    done < <(grep -E '^  LINK_LIBRARIES = ' "$ninja_file" | grep -oE '[^ ]*lib(Qt|gtk|X11|wayland)[^ ]*' || true)
fi

exit "$findings"

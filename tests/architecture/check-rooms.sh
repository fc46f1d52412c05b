#!/usr/bin/env bash
# Proves that the rooms depend on each other in one direction, and that only the host knows a window system.
#   check-rooms.sh FOLDER [LINKS]    exit 1 with one line for each include that a room may not have; with LINKS (the
#                                    build's folder of ROOM/TARGET.links files), for each link too
set -euo pipefail

folder=$1
links=${2:-}
findings=0

declare -A allowed=(
    [platform]='platform'
    [core]='core|platform'
    [hosting]='hosting|platform'
    [widgets]='widgets|hosting|core|platform'
    [cli]='cli|widgets|hosting|core|platform'
    [host]='host|host_tasks|widgets|hosting|core|platform'
)
window_system='(Qt?[A-Z0-9]|KF[0-9]|gtk|gdk|X11|xcb|wayland)'

report() {
    printf '%s\n' "$1"
    findings=1
}

# report_all TEXT: reports each line of standard input after TEXT.
report_all() {
    local line
    while IFS= read -r line; do
        report "$1: $line"
    done
}

includes_of() {
    grep --recursive --include='*.h' --include='*.cpp' --no-messages -HE '^[[:space:]]*#[[:space:]]*include' "$folder/$1" || true
}

links_of() {
    grep --recursive --include='*.links' --no-messages --no-filename -E . "$links/$1" || true
}

check_includes() {
    report_all "$1 may not include this" \
        < <(includes_of "$1" | grep -E 'include[[:space:]]*"' | grep -vE "include[[:space:]]*\"(${allowed[$1]})/" || true)
    [ "$1" = host ] || report_all "$1 knows a window system" \
        < <(includes_of "$1" | grep -E "include[[:space:]]*<$window_system" || true)
}

check_links() {
    [ -n "$(links_of "$1")" ] || report "$1: its targets have no list of links"
    report_all "$1 may not link this" \
        < <(links_of "$1" | grep -oE 'vantel_[a-zA-Z0-9_]+' | sort -u | grep -vxE "vantel_(options|${allowed[$1]})" || true)
    [ "$1" = host ] || report_all "$1 links a window system" \
        < <(links_of "$1" | grep -E "^(.*[^a-zA-Z])?(lib)?$window_system" || true)
}

for room in "${!allowed[@]}"; do
    [ -d "$folder/$room" ] || continue
    check_includes "$room"
    [ -z "$links" ] || check_links "$room"
done

exit "$findings"

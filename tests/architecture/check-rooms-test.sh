#!/usr/bin/env bash
# Shows that check-rooms.sh finds what it is there for: each seeded violation fails, its near miss does not.
set -euo pipefail

check=$(dirname "${BASH_SOURCE[0]}")/check-rooms.sh
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
rooms=(platform core hosting widgets cli host)

# A tree of empty rooms, each with a target that links nothing of ours.
plant() {
    local room
    rm -rf "${scratch:?}/"{tree,links}
    for room in "${rooms[@]}"; do
        mkdir -p "$scratch/tree/$room" "$scratch/links/$room"
        printf 'vantel_options\nCctz::cctz\n\n' >"$scratch/links/$room/vantel_$room.links"
    done
}

# judge WANTED WHAT: runs the check over the tree.
judge() {
    local status=0
    "$check" "$scratch/tree" "$scratch/links" >/dev/null || status=$?
    [ "$status" = "$1" ] || {
        echo "$2: exit $status, not $1"
        exit 1
    }
}

including() {
    plant
    printf '#include %s\n' "$3" >"$scratch/tree/$2/Seed.cpp"
    judge "$1" "#include $3 in $2"
}

linking() {
    plant
    printf '%s\n' "$3" >>"$scratch/links/$2/vantel_$2.links"
    judge "$1" "$2 linking $3"
}

including 0 platform '"platform/Url.h"'
including 0 core '"platform/Url.h"'
including 0 cli '"widgets/WTokens.h"'
including 0 host '"hosting/Color.h"'
including 0 host '<QString>'
including 0 widgets '<vector>'
including 0 platform '<queue>'
including 1 platform '"core/WidgetTask.h"'
including 1 core '"hosting/Color.h"'
including 1 core '"widgets/WTokens.h"'
including 1 hosting '"core/WidgetTask.h"'
including 1 hosting '"widgets/WTokens.h"'
including 1 widgets '"cli/Command.h"'
including 1 widgets '"host/desk/Desk.h"'
including 1 widgets '"Color.h"'
including 1 host '"cli/Command.h"'
including 1 core '<QString>'
including 1 cli '<QtCore/QString>'
including 1 hosting '<gtk/gtk.h>'

linking 0 core vantel_platform
linking 0 widgets vantel_hosting
linking 0 cli vantel_widgets
linking 0 host vantel_widgets
linking 0 host Qt6::Widgets
linking 0 platform simdjson::simdjson
linking 0 platform /usr/lib/libqhull.so
linking 1 platform vantel_core
linking 1 core vantel_hosting
linking 1 hosting vantel_core
linking 1 hosting vantel_widgets
linking 1 widgets vantel_cli
linking 1 widgets vantel_host
linking 1 cli vantel_host
linking 1 host vantel_cli
linking 1 core vantel_platformer
linking 1 core '$<BUILD_INTERFACE:vantel_widgets>'
linking 1 cli Qt6::Core
linking 1 widgets /usr/lib/libQt6Core.so.6
linking 1 hosting PkgConfig::xcb
linking 1 platform wayland-client

plant
rm -r "$scratch/tree/host" "$scratch/links/host"
judge 0 'a tree that has no host yet'
plant
rm "$scratch/links/core/"*.links
judge 1 'a room whose links are not listed'

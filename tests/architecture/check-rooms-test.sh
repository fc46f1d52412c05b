#!/usr/bin/env bash
# Shows that check-rooms.sh finds what it is there for: each seeded violation fails, the clean tree does not.
set -euo pipefail

check=$(dirname "${BASH_SOURCE[0]}")/check-rooms.sh
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

expect() {
    local wanted=$1 room=$2 include=$3 status=0
    rm -rf "${scratch:?}/tree"
    mkdir -p "$scratch/tree/"{platform,core,hosting,widgets,cli}
    printf '#include %s\n' "$include" >"$scratch/tree/$room/Seed.cpp"
    "$check" "$scratch/tree" >/dev/null || status=$?
    [ "$status" = "$wanted" ] || {
        echo "#include $include in $room: exit $status, not $wanted"
        exit 1
    }
}

expect 0 platform '"platform/Url.h"'
expect 0 core '"platform/Url.h"'
expect 0 cli '"widgets/WTokens.h"'
expect 0 widgets '<vector>'
expect 1 platform '"core/WidgetTask.h"'
expect 1 core '"hosting/Color.h"'
expect 1 core '"widgets/WTokens.h"'
expect 1 hosting '"core/WidgetTask.h"'
expect 1 hosting '"widgets/WTokens.h"'
expect 1 widgets '"cli/Command.h"'
expect 1 widgets '"Color.h"'
expect 1 core '<QString>'
expect 1 cli '<QtCore/QString>'

ninja=$scratch/build.ninja
mkdir -p "$scratch/clean/platform"
printf '  LINK_LIBRARIES = /usr/lib/libcctz.so\n' >"$ninja"
"$check" "$scratch/clean" "$ninja"
printf '  LINK_LIBRARIES = /usr/lib/libQt6Core.so.6\n' >"$ninja"
if "$check" "$scratch/clean" "$ninja" >/dev/null; then
    echo 'a linked window system was not found'
    exit 1
fi

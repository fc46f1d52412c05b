#!/usr/bin/env bash
# test-on-debian.sh RELEASE: builds what is committed, and runs all its tests, inside another release of Debian. Its
# system lies in a folder of the user's cache, where the next run finds it with its packages and its compiler cache.
# Exit status 77 when this machine does not let it.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

readonly release=${1:?the number of a release, like 13}
readonly folder=${XDG_CACHE_HOME:-~/.cache}/vantel-widgets/debian-$release
readonly root=$folder/root
readonly cannot=77

say() {
    printf 'debian %s: %s\n' "$release" "$1" >&2
}

refuse() {
    say "$1"
    exit "$cannot"
}

code_name() {
    case $release in
    12) echo bookworm ;;
    13) echo trixie ;;
    *) refuse 'only releases 12 and 13 are known' ;;
    esac
}

# What apt takes this machine's own packages from.
mirror() {
    local here
    here=$(sed -n 's/^VERSION_CODENAME=//p' /etc/os-release)
    # The format is apt's to expand.
    # shellcheck disable=SC2016
    apt-get indextargets --format '$(REPO_URI)' 'Created-By: Packages' 'Component: main' "Release: $here" | head -n 1
}

# The commands run among mounts and processes of their own: whatever happens, the kernel ends and unmounts them all.
apart() {
    unshare --mount --pid --fork --kill-child --propagation private -- "$@"
}

check_machine() {
    [ "$(id -u)" = 0 ] || refuse 'only root can run a system inside this one'
    command -v apt-get debootstrap >/dev/null || refuse 'apt-get and debootstrap are needed'
    apart mount -t tmpfs tmpfs /mnt 2>/dev/null || refuse 'this machine does not let root mount anything'
}

# Two runs at once would pull the ground from under each other.
be_alone() {
    mkdir -p "$folder"
    exec 9>"$folder/lock"
    flock --nonblock 9 || refuse 'another run uses its system'
}

# Only a system that was made whole takes its place.
make_root() {
    local begun=$root.begun from name
    [ ! -d "$root" ] || return 0
    name=$(code_name)
    from=$(mirror)
    [ -n "$from" ] || refuse "apt's sources name no mirror of Debian"
    say "making its system in $folder"
    rm -rf "$begun"
    debootstrap --variant=minbase "$name" "$begun" "$from" >"$folder/debootstrap.log" 2>&1 ||
        { tail -n 5 "$folder/debootstrap.log" >&2; refuse "debootstrap failed; see $folder/debootstrap.log"; }
    spare_time_and_room "$begun"
    mv "$begun" "$root"
}

# Nobody reads manuals in there, and whatever is lost in a power cut is made anew.
spare_time_and_room() {
    echo force-unsafe-io >"$1/etc/dpkg/dpkg.cfg.d/vantel"
    printf 'path-exclude=/usr/share/%s/*\n' doc man info >>"$1/etc/dpkg/dpkg.cfg.d/vantel"
    echo 'APT::Keep-Downloaded-Packages "false";' >"$1/etc/apt/apt.conf.d/vantel"
    rm -f "$1"/var/cache/apt/archives/*.deb
}

# The compiler cache makes building anew quick, so nothing that an earlier commit left is trusted.
copy_sources() {
    [ -z "$(git status --porcelain)" ] || say 'changes that are not committed are not in this'
    rm -rf "$root/source"
    mkdir "$root/source"
    git archive HEAD | tar -x -C "$root/source"
    cp /etc/resolv.conf "$root/etc/resolv.conf"
}

# run_inside COMMAND…: the part that runs among mounts of its own.
run_inside() {
    mount -t proc proc "$root/proc"
    mount --rbind /sys "$root/sys"
    mount --rbind /dev "$root/dev"
    mount -t devpts -o newinstance,ptmxmode=0666 devpts "$root/dev/pts"
    mount -t tmpfs -o mode=1777 tmpfs "$root/dev/shm"
    mount -t tmpfs -o mode=1777 tmpfs "$root/tmp"
    mount -t tmpfs -o mode=0755 tmpfs "$root/run"
    exec chroot "$root" /usr/bin/env -i HOME=/root LANG=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin \
        ${CI:+CI="$CI"} ${http_proxy:+http_proxy="$http_proxy"} "$@"
}

main() {
    if [ "${2:-}" = inside ]; then
        run_inside "${@:3}"
    fi
    check_machine
    be_alone
    make_root
    copy_sources
    # An earlier run may have been ended in the midst of installing packages.
    apart packaging/test-on-debian.sh "$release" inside sh -c 'dpkg --configure -a && exec /source/dev test'
}

# One line, read whole: the script may be edited while a build runs.
main "$@"; exit

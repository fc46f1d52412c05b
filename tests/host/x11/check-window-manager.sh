#!/usr/bin/env bash
# Shows a card's window under a real window manager and checks by pixels and properties that it behaves like a
# part of the desktop.
#   check-window-manager.sh MANAGER PROGRAM    exit 77 with a reason when the window manager is not installed
set -euo pipefail

manager=$1
program=$2

skip() {
    printf 'skipped: %s\n' "$1"
    exit 77
}

fail() {
    printf '%s: %s\n' "$manager" "$1" >&2
    exit 1
}

command -v "$manager" >/dev/null || skip "$manager is not installed"

scratch=$(mktemp -d)
started=()
cleanup() {
    local process
    for process in "${started[@]}"; do
        kill "$process" 2>/dev/null || true
    done
    wait 2>/dev/null || true
    rm -rf "$scratch"
}
trap cleanup EXIT

# ---- a desktop of its own

export HOME=$scratch XDG_RUNTIME_DIR=$scratch XDG_CONFIG_HOME=$scratch GSETTINGS_BACKEND=memory NO_AT_BRIDGE=1
export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
unset SESSION_MANAGER WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS

# waits_for COMMAND…: until it succeeds; ten seconds are for ever.
waits_for() {
    local tries
    for ((tries = 0; tries < 200; ++tries)); do
        ! "$@" >/dev/null 2>&1 || return 0
        sleep 0.05
    done
    return 1
}

start() {
    "$@" >"$scratch/$(basename "$1").log" 2>&1 &
    started=("$!" "${started[@]}")
}

Xvfb -displayfd 3 -screen 0 1000x700x24 -nolisten tcp -noreset 3>"$scratch/display" 2>"$scratch/Xvfb.log" &
started+=("$!")
waits_for test -s "$scratch/display" || fail "Xvfb did not start"
DISPLAY=:$(cat "$scratch/display")
export DISPLAY

printf 'font pango:monospace 8\nfocus_follows_mouse no\n' >"$scratch/i3.conf"
case $manager in
metacity) start dbus-run-session metacity --no-composite ;;
xfwm4) start dbus-run-session xfwm4 --compositor=off ;;
i3) start i3 -c "$scratch/i3.conf" ;;
*) start "$manager" ;;
esac
manages() {
    xprop -root _NET_SUPPORTING_WM_CHECK | grep -q 'window id'
}
waits_for manages || fail "the window manager did not start"

# ---- windows

# opens ROLE: starts a window, sets ROLE to its identifier, and leaves its input and output open.
opens() {
    local role=$1
    mkfifo "$scratch/$role.in"
    "$program" "$role" <"$scratch/$role.in" >"$scratch/$role.out" 2>"$scratch/$role.err" &
    started=("$!" "${started[@]}")
    exec {input}>"$scratch/$role.in"
    printf -v "${role}_input" '%s' "$input"
    waits_for grep -q '^ready' "$scratch/$role.out" || fail "the $role window did not come: $(cat "$scratch/$role.err")"
    printf -v "$role" '%s' "$(sed -n 's/^ready //p' "$scratch/$role.out")"
}

color_at() {
    import -silent -window root -crop "1x1+$1+$2" +repage -depth 8 txt:- | grep -oE '#[0-9A-F]{6}' | head -n 1
}

shows() {
    [ "$(color_at "$1" "$2")" = "$3" ]
}

sees() {
    waits_for shows "$1" "$2" "$3" || fail "$4: $(color_at "$1" "$2") at $1,$2 instead of $3"
}

# still_sees: after everything that was asked for has been done.
still_sees() {
    xdotool sync 2>/dev/null || true
    sleep 0.3
    shows "$1" "$2" "$3" || fail "$4: $(color_at "$1" "$2") at $1,$2 instead of $3"
}

click() {
    xdotool mousemove "$1" "$2" click 1
}

has() {
    xprop -id "$1" "$2" | grep -q -- "$3"
}

states() {
    waits_for has "$card" "$1" "$2" || fail "$1 lacks $2: $(xprop -id "$card" "$1")"
}

card='' normal='' card_input='' normal_input=''
red='#FF0000' blue='#0000FF' green='#00FF00'

# A window manager says early that it is there, and may miss a plain window that comes too soon.
sleep 1
[ "$manager" = i3 ] || {
    opens desktop
    sees 900 600 $green "the desktop"
}
opens card
sees 80 200 $red "the card"

place=$(xwininfo -id "$card" | sed -n 's/.*Absolute upper-left [XY]: *//p' | tr '\n' ' ')
[ "$place" = "36 16 " ] || fail "the window is at $place"
shows 61 41 $red && fail "the corner is not cut off"
shows 50 120 $red && fail "the card is wider than it should be"

states WM_CLASS '"vantel-widgets", "org.vantel.Widgets"'
case $manager in
metacity | icewm) states _NET_WM_WINDOW_TYPE _NET_WM_WINDOW_TYPE_DOCK ;;
*) states _NET_WM_WINDOW_TYPE _NET_WM_WINDOW_TYPE_NORMAL ;;
esac
# stands_below_soon WHEN: before the card, a second after it was shown, asks for what is missing.
stands_below_soon() {
    local state
    for state in BELOW SKIP_TASKBAR SKIP_PAGER; do
        for _ in 1 2 3 4 5; do
            has "$card" _NET_WM_STATE "_NET_WM_STATE_$state" && continue 2
            sleep 0.1
        done
        fail "$1 lacks $state: $(xprop -id "$card" _NET_WM_STATE)"
    done
}

# A card that somebody closes comes back as it was, as another window.
if [ "$manager" != i3 ]; then
    stands_below_soon 'the card'
    states _NET_WM_DESKTOP 4294967295
    printf 'close\n' >&"$card_input"
    is_another() {
        local found
        found=$(xdotool search --onlyvisible --class org.vantel.Widgets | tail -n 1)
        [ -n "$found" ] && [ "$found" != "$card" ] && card=$found
    }
    waits_for is_another || fail 'the card that was closed does not come back'
    sees 80 200 $red 'the card that was closed'
    stands_below_soon 'the card that was closed'
fi

# A click on the desktop covers nothing.
[ "$manager" = i3 ] || {
    click 900 600
    still_sees 80 200 $red "the card after a click on the desktop"
}

# A normal window stays above, whatever is clicked, and keeps the keyboard.
opens normal
sees 200 150 $blue "a normal window over the card"
xdotool windowactivate "$normal" 2>/dev/null || true
is_active() {
    [ "$(xdotool getactivewindow 2>/dev/null)" = "$1" ]
}
waits_for is_active "$normal" || fail "the normal window is not active"
if [ "$manager" != i3 ]; then
    click 80 100
    still_sees 200 150 $blue "the normal window after a click on the card"
    is_active "$normal" || fail "the click took the keyboard"
fi

# Asked in, the card comes to the front with the keyboard; Escape sends it back.
has_focus() {
    [ "$(xdotool getwindowfocus 2>/dev/null)" = "$1" ]
}
printf 'focus\n' >&"$card_input"
sees 200 150 $red "the card that was asked in"
waits_for has_focus "$card" || fail "the card did not get the keyboard"
xdotool key x
waits_for grep -q '^typed x' "$scratch/card.out" || fail "the card did not hear a key"
xdotool key Escape
sees 200 150 $blue "the normal window after Escape"
waits_for is_active "$normal" || fail "the keyboard did not go back"

# Every workspace shows it.
if [ "$manager" = i3 ]; then
    i3-msg workspace 2 >/dev/null
else
    xdotool set_num_desktops 2 set_desktop 1
fi
sees 200 150 $red "the card on the second workspace"

# A drag moves it.
xdotool mousemove 80 100 mousedown 1 mousemove 90 110 mousemove 180 150 mouseup 1
waits_for grep -q '^dropped' "$scratch/card.out" || fail "the drag did not end"
sees 500 200 $red "the card after the drag"
shows 80 100 $red && fail "the card is still where it was"

# It follows a compositor that starts and stops.
is_cut() {
    xwininfo -id "$card" -shape | grep -q 'Window shape extents'
}
is_whole() {
    ! is_cut
}
waits_for is_cut || fail "the window has no shape without a compositor"
printf 'own compositing\n' >&"$normal_input"
waits_for is_whole || fail "the window keeps its shape with a compositor"
printf 'quit\n' >&"$normal_input"
waits_for is_cut || fail "the window has no shape after the compositor stopped"

printf '%s: all as it should be\n' "$manager"

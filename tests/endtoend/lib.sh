# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# What the end-to-end tests share: an X server of their own with a window manager, a person of their own with an
# empty home, and the means to press keys and to wait for what comes of it. Source it with the program's path as $1.
# Nothing sleeps for a fixed time; everything is waited for, at most $patience seconds.

set -euo pipefail
export LC_ALL=C.UTF-8 # titles and texts have accents
program=$1
patience=20

require() {
    local tool
    for tool in "$@"; do
        command -v "$tool" >/dev/null && continue
        echo "FAIL: $tool is missing; script/setup --test installs what the tests need" >&2
        exit 1
    done
}

# until_true WHAT COMMAND...: repeats the command until it succeeds; the test fails when it does not.
until_true() {
    local what=$1 deadline=$((SECONDS + patience))
    shift
    until "$@" >/dev/null 2>&1; do
        ((SECONDS < deadline)) || fail "waited $patience seconds for: $what"
        sleep 0.05
    done
}

fail() {
    echo "FAIL: $*" >&2
    exit 1
}

# The X server answers on a free display number that it finds itself. It repeats no key: on a busy machine, a key is
# held for longer than was meant.
start_display() {
    require Xvfb xdotool openbox setxkbmap import
    Xvfb -r -displayfd 3 -screen 0 1400x900x24 -noreset -nolisten tcp 3>"$work/display" 2>"$work/xvfb.log" &
    display_pid=$!
    until_true "the X server" test -s "$work/display"
    DISPLAY=:$(<"$work/display")
    export DISPLAY
    setxkbmap fr
    # It is up when it runs what it is to run then; a window that comes just before would never be shown.
    openbox --sm-disable --startup "touch $work/managed" >/dev/null 2>&1 &
    manager_pid=$!
    until_true "the window manager" test -e "$work/managed"
}

take_screenshot() {
    local folder=${AQUILANE_SCREENSHOTS:-${TMPDIR:-/tmp}}
    local file="$folder/aquilane-$(basename "$0" .sh)-$$.png"
    mkdir -p "$folder" && import -window root "$file" && echo "the screen as it was: $file" >&2
}

finish() {
    local status=$?
    trap - EXIT
    set +e
    if ((status != 0)); then
        sed 's/^/the program said: /' "$work/stderr" >&2
        echo "the active window: $(active_title)" >&2
        take_screenshot
    fi
    local process
    for process in ${pid:-} ${manager_pid:-} ${display_pid:-}; do
        kill -KILL "$process" 2>/dev/null
        wait "$process" 2>/dev/null
    done
    rm -rf "$work"
    exit "$status"
}

# become_writer COMMAND...: this process becomes the command, with nothing of the environment of whoever runs the
# tests.
become_writer() {
    exec env -i PATH="$PATH" HOME="$work/home" DISPLAY="$DISPLAY" XDG_RUNTIME_DIR="$work/run" \
        XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" LC_CTYPE=C.UTF-8 \
        LANG="${writer_lang:-fr_FR.UTF-8}" LANGUAGE="${writer_language-fr}" \
        ${LSAN_OPTIONS:+LSAN_OPTIONS="$LSAN_OPTIONS"} ${ASAN_OPTIONS:+ASAN_OPTIONS="$ASAN_OPTIONS"} \
        ${QTWEBENGINE_DISABLE_SANDBOX:+QTWEBENGINE_DISABLE_SANDBOX="$QTWEBENGINE_DISABLE_SANDBOX"} "$@"
}

as_writer() { (become_writer "$@"); }

# start PATHS...: starts the program; its process is $pid.
start() {
    become_writer "$program" "$@" 2>>"$work/stderr" &
    pid=$!
}

is_gone() { ! kill -0 "$1" 2>/dev/null; }

# ends_with STATUS: the program ends by itself with this exit status.
ends_with() {
    local status=0
    until_true "the end of the program" is_gone "$pid"
    wait "$pid" || status=$?
    pid=
    ((status == $1)) || fail "the program ended with $status instead of $1"
}

press() { xdotool key --delay 20 "$@"; }
write() { xdotool type --delay 12 -- "$1"; }

# The window that gets the keys. The window manager calls a window active a moment before.
active_title() { xdotool getwindowfocus getwindowname 2>/dev/null || true; }
active_window() { xdotool getwindowfocus 2>/dev/null || true; }
has_title() { [[ $(active_title) == "$1" ]]; }
expect_title() { until_true "a window \"$1\"" has_title "$1"; }

# has_window PATTERN: a window on the screen has such a title. xdotool sees its ASCII letters only.
has_window() { [[ -n $(xdotool search --onlyvisible --name "$1") ]]; }
has_no_window() { ! has_window "$1"; }

# An alert has the program's name for its title; a new one is another window than the last.
last_alert=
is_new_alert() {
    local window
    window=$(active_window)
    [[ $window && $window != "$last_alert" && $(xdotool getwindowname "$window") == Aquilane ]] || return 1
    last_alert=$window
}
expect_alert() { until_true "an alert: $1" is_new_alert; }

# expect_bytes FILE EXPECTED_FILE: the file has these bytes, now or soon.
expect_bytes() {
    until_true "the text of $(basename "$1")" cmp -s "$1" "$2"
}

# What goes wrong is told to the writer, never to a terminal nobody sees.
said_nothing() {
    [[ ! -s $work/stderr ]] || fail "the program wrote to its standard error"
}

# A notebook as a writer has it: a header with keys that are not ours, a page with "\r\n", one in Latin-1, one
# with every odd space. $notebook is the folder, $kept an untouched copy.
make_notebook() {
    notebook="$work/Le phare"
    kept="$work/kept"
    mkdir -p "$notebook"/{Livre,Personnages,Lieux,Fiches,Notes}
    printf -- '---\ntitre: Le phare\nauteur: Anne\ncreation: 2024-03-01\nformat: aquilane-1\n---\n' >"$notebook/projet.md"
    printf -- '---\ntype: chapitre\nhumeur: "grise: ou noire"\ntags: Paris, mer\n---\n\nLe train part\xc2\xa0!\n' \
        >"$notebook/Livre/01 - Le départ.md"
    printf 'Une ligne.\r\nUne autre.\r\n' >"$notebook/Livre/02 - La traversée.md"
    printf 'D\xe9j\xe0 vu, \x93dit-il\x94.\n' >"$notebook/Livre/03 - L'arrivée.md"
    printf '\xef\xbb\xbf# Marie\n\nUn\xe2\x80\xafmot\xe2\x80\xa8et\xc2\xa0l\xe2\x80\x99autre, sans fin de ligne' \
        >"$notebook/Personnages/Marie.md"
    cp -a "$notebook" "$kept"
}

is_untouched() {
    cmp "$kept/$1" "$notebook/$1" || fail "$1 was changed"
}

# remember_preview true|false: as the writer has left it. The preview's engine takes its time to start, so the tests
# that do not look at it leave it hidden.
remember_preview() {
    mkdir -p "$work/config/aquilane"
    printf '[General]\nPLPreviewVisible=%s\n' "$1" >"$work/config/aquilane/aquilane.ini"
}

work=$(mktemp -d)
mkdir -m 700 "$work/run"
mkdir "$work/home" "$work/config" "$work/data"
remember_preview false
: >"$work/stderr"
trap finish EXIT
start_display

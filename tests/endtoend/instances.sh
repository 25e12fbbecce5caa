# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# A second start hands over to the first, whatever it is given; a start after a crash is a first one.

source "$(dirname "$0")/lib.sh"
require xev xprop

# second PATHS...: a start that must hand over and end well at once.
second() {
    as_writer timeout 10 "$program" "$@" 2>>"$work/stderr" || fail "the second start ended with $?"
}

paths_are_handed_over() {
    cp -a "$notebook" "$work/Été \"\$(touch canary)\" à deux"
    sed -i 's/^titre: .*/titre: Deux/' "$work"/Été*/projet.md
    (cd "$work" && second Été*/projet.md) # a relative path is the second start's own
    expect_title "Deux — Le départ"
    has_window "^Le phare" || fail "the first notebook has gone"
    [[ ! -e $work/canary ]] || fail "a name was run as a command"
}

an_open_notebook_comes_to_the_front() {
    second "$notebook"
    expect_title "Le phare — Le départ"
    [[ $(xdotool search --onlyvisible --name "^Le phare" | wc -l) == 1 ]] || fail "there are two windows of one notebook"
}

a_start_without_paths_brings_the_program_up() {
    local window
    for window in $(xdotool search --onlyvisible --name "part$"); do
        xdotool windowminimize "$window"
    done
    until_true "no window" has_no_window "part$"
    second
    until_true "the windows" has_window "part$"
}

hears() { xprop -root -f AQUILANE_TEST 8s -set AQUILANE_TEST "$RANDOM" && grep -q AQUILANE_TEST "$work/events"; }

# The pointer that a desktop shows while a program starts is for a window; a second start has none.
the_desktop_hears_that_the_start_is_over() {
    stdbuf -oL xev -root -event property >"$work/events" &
    local listener=$!
    until_true "a listener" hears
    as_writer DESKTOP_STARTUP_ID=panel-1-aquilane-0_TIME1 timeout 10 "$program" "$notebook" 2>>"$work/stderr"
    until_true "the end of the start" grep -q '_NET_STARTUP_INFO_BEGIN), format 8' "$work/events"
    until_true "the rest of the message" grep -q '_NET_STARTUP_INFO), format 8' "$work/events"
    kill "$listener"
}

a_notebook_has_the_focus() { [[ $(active_title) == *" — Le départ" ]]; }

a_missing_notebook_is_told_by_the_first() {
    second "$work/nowhere"
    expect_alert "can't be found"
    press Return
    until_true "a notebook" a_notebook_has_the_focus
}

quitting_ends_everything() {
    press ctrl+q
    ends_with 0
    is_untouched "Livre/01 - Le départ.md"
}

a_killed_program_does_not_stop_the_next() {
    start "$notebook"
    expect_title "Le phare — Le départ"
    kill -KILL "$pid"
    wait "$pid" 2>/dev/null || true
    until_true "no window" has_no_window "Le phare"
    start "$notebook"
    expect_title "Le phare — Le départ"
    press ctrl+q
    ends_with 0
}

# The second start says why it does nothing, and ends; it has no window of the notebook, and writes nothing.
a_stopped_program_is_not_edited_beside() {
    local first second status=0
    start "$notebook"
    expect_title "Le phare — Le départ"
    first=$pid
    kill -STOP "$first"
    start "$notebook"
    second=$pid
    pid=$first # which is killed whatever happens
    expect_alert "does not answer"
    [[ $(xdotool search --onlyvisible --name "^Le phare" | wc -l) == 1 ]] || fail "there are two windows of one notebook"
    press Return
    until_true "the end of the second start" is_gone "$second"
    wait "$second" || status=$?
    ((status == 1)) || fail "the second start ended with $status"
    kill -CONT "$first"
    until_true "the first program" second "$notebook"
    expect_title "Le phare — Le départ"
    [[ $(xdotool search --onlyvisible --name "^Le phare" | wc -l) == 1 ]] || fail "there are two windows of one notebook"
    press ctrl+q
    ends_with 0
    is_untouched "Livre/01 - Le départ.md"
}

make_notebook
start "$notebook"
expect_title "Le phare — Le départ"
paths_are_handed_over
an_open_notebook_comes_to_the_front
a_start_without_paths_brings_the_program_up
the_desktop_hears_that_the_start_is_over
a_missing_notebook_is_told_by_the_first
quitting_ends_everything
a_killed_program_does_not_stop_the_next
a_stopped_program_is_not_edited_beside
said_nothing

# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The preview in the built program: it appears while the writer types, and not one letter goes astray.

source "$(dirname "$0")/lib.sh"

page="Livre/01 - Le départ.md"

# A line divides the window below the text, and there is ink on the right of it, below the bars. The picture is taken of
# the whole screen: taking one of a window holds up every other client until that window is drawn again.
shows_preview() {
    local X Y WIDTH='' HEIGHT SCREEN WINDOW
    eval "$(xdotool getwindowgeometry --shell "$(active_window)")"
    [[ $WIDTH ]] || return 1 # no window is active at this moment
    timeout 5 import -window root -crop "${WIDTH}x${HEIGHT}+$X+$Y" +repage -colorspace Gray "$work/window.png" ||
        return 1
    holds $((WIDTH * 30 / 100))x1+$((WIDTH * 45 / 100))+$((HEIGHT - 100)) 'maxima-minima>0.05' &&
        holds $((WIDTH * 35 / 100))x200+$((WIDTH * 63 / 100))+100 'minima<0.5'
}
holds() { [[ $(convert "$work/window.png" -crop "$1" -format "%[fx:$2]" info:) == 1 ]]; }

# expect_text TEXT: the page on the disk ends in this.
expect_text() {
    { cat "$kept/$page" && printf %s "$1"; } >"$work/expected"
    expect_bytes "$notebook/$page" "$work/expected"
}

letters=$(printf 'abcdefghij%.0s' {1..20})

the_window_stays_when_the_preview_is_there_from_the_start() {
    remember_preview true
    start "$notebook"
    expect_title "Le phare — Le départ"
    local window
    window=$(active_window)
    press F6 ctrl+End
    write "$letters"
    until_true "the preview" shows_preview
    expect_text "$letters"
    [[ $(active_window) == "$window" ]] || fail "the window was made anew"
    press ctrl+q
    ends_with 0
}

no_letter_is_lost_when_the_preview_is_first_shown() {
    cp "$kept/$page" "$notebook/$page"
    remember_preview false
    start "$notebook"
    expect_title "Le phare — Le départ"
    press F6 ctrl+End ctrl+alt+p
    write "$letters"
    until_true "the preview" shows_preview
    expect_text "$letters"
    press ctrl+q
    ends_with 0
}

# The window is made anew in a pause of the writer's, which may be over right then; $1 is its length in seconds.
no_letter_is_lost_after_a_pause() {
    local letter
    cp "$kept/$page" "$notebook/$page"
    remember_preview false
    start "$notebook"
    expect_title "Le phare — Le départ"
    press F6 ctrl+End ctrl+alt+p
    for letter in a b c d e f g h; do
        sleep "$1"
        write "$letter"
    done
    until_true "the preview" shows_preview
    expect_text abcdefgh
    press ctrl+q
    ends_with 0
}

# The engine's own processes speak for themselves, as "[pid:thread:date:ERROR:file]", of a machine without a graphics card.
said_nothing_of_the_engine() {
    sed -i -E '/^Sandboxing disabled by user/d; /^\[[0-9]+:[0-9]+:[0-9/.]+:ERROR:/d' "$work/stderr"
    said_nothing
}

make_notebook
the_window_stays_when_the_preview_is_there_from_the_start
for _ in 1 2 3; do
    no_letter_is_lost_when_the_preview_is_first_shown
done
for pause in 0.27 0.29 0.31 0.33; do
    no_letter_is_lost_after_a_pause $pause
done
said_nothing_of_the_engine

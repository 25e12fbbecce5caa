# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The keys of the menu bar, on a French keyboard, and what the window manager is told of the windows.

source "$(dirname "$0")/lib.sh"
require xprop

state_of() { xprop -id "$1" _NET_WM_STATE WM_STATE; }
is_full_screen() { [[ $(state_of "$1") == *FULLSCREEN* ]]; }
is_not_full_screen() { ! is_full_screen "$1"; }
is_iconic() { [[ $(state_of "$1") == *Iconic* ]]; }
is_normal() { [[ $(state_of "$1") == *"window state: Normal"* ]]; }
has_headings() { grep -qx "$1" "$page"; }

the_keys_of_digits_make_headings() {
    page="$notebook/Livre/02 - La traversée.md"
    press Down
    expect_title "Le phare — La traversée"
    press F6 ctrl+Home
    press ctrl+ampersand
    until_true "a heading of level 1" has_headings "# Une ligne."
    press ctrl+shift+eacute # the digit itself
    until_true "a heading of level 2" has_headings "## Une ligne."
    press ctrl+quotedbl
    until_true "a heading of level 3" has_headings "### Une ligne."
}

a_window_fills_the_screen_and_back() {
    press F11
    until_true "full screen" is_full_screen "$window"
    press F11
    until_true "the window again" is_not_full_screen "$window"
    press ctrl+super+f
    until_true "full screen" is_full_screen "$window"
    press ctrl+super+f
    until_true "the window again" is_not_full_screen "$window"
}

# A second start brings back what was put away.
windows_are_put_away_and_come_back() {
    press ctrl+m
    until_true "the window in the task bar" is_iconic "$window"
    as_writer "$program"
    until_true "the window again" is_normal "$window"
    expect_title "$1"
    press ctrl+h
    until_true "all windows in the task bar" is_iconic "$window"
    as_writer "$program"
    until_true "the window again" is_normal "$window"
    expect_title "$1"
}

a_key_makes_a_chapter_with_shift_a_notebook() {
    press ctrl+n
    expect_title "Le phare — Chapitre 4"
    press Return
    press ctrl+shift+n
    expect_title "Nouveau carnet"
    press Escape
    expect_title "Le phare — Chapitre 4"
}

# The desktop's entry is found by the class of the window.
the_window_manager_knows_the_program() {
    local class icon
    class=$(sed -n 's/^StartupWMClass=//p' "$(dirname "$0")/../../packaging/io.github.aquilane.desktop")
    [[ $(xprop -id "$window" WM_CLASS) == "WM_CLASS(STRING) = \"$class\", "* ]] || fail "another class than $class"
    icon=$(xprop -id "$window" -f _NET_WM_ICON 32c -notype _NET_WM_ICON)
    [[ $icon == "_NET_WM_ICON = 16, 16, "* ]] || fail "the window has no icon: ${icon:0:40}"
}

make_notebook
start "$notebook"
expect_title "Le phare — Le départ"
window=$(active_window)
the_window_manager_knows_the_program
the_keys_of_digits_make_headings
a_window_fills_the_screen_and_back
windows_are_put_away_and_come_back "Le phare — La traversée"
a_key_makes_a_chapter_with_shift_a_notebook
press ctrl+q
ends_with 0
said_nothing

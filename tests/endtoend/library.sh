# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The library: shown when nothing else is, opens, covers and forgets notebooks, makes new ones.
# $2 is the program that pictures are dragged from.

source "$(dirname "$0")/lib.sh"
require xwininfo base64
drag_source=$2
first_book="150 190" # the place of its cover in the window
beside_books="30 500"

knows() { grep -F "$1" "$work/config/aquilane/aquilane.ini"; }
knows_not() { ! knows "$1"; }

the_last_window_closed_shows_the_library() {
    start "$notebook"
    expect_title "Le phare — Le départ"
    press ctrl+w
    expect_title "Bibliothèque"
}

return_opens_the_selected_notebook() {
    press Return
    expect_title "Le phare — Le départ"
    until_true "the library to hide" has_no_window "^Biblioth"
    press ctrl+w
    expect_title "Bibliothèque"
}

a_notebook_is_made_by_keyboard() {
    press ctrl+shift+n
    expect_title "Nouveau carnet"
    write "Deuxième été" # over the proposed name
    press Return
    expect_title "Deuxième été — Chapitre 1"
    [[ -f "$work/home/Deuxième été/projet.md" ]] || fail "there is no notebook"
    printf '# Chapitre 1\n\n' >"$work/expected"
    expect_bytes "$work/home/Deuxième été/Livre/01 - Chapitre 1.md" "$work/expected"
    press ctrl+w
    expect_title "Bibliothèque"
}

a_plain_folder_becomes_a_notebook_when_asked() {
    mkdir "$work/plain"
    as_writer "$program" "$work/plain" 2>>"$work/stderr"
    expect_alert "make it a notebook?"
    press Escape
    expect_title "Bibliothèque"
    [[ -z $(ls -A "$work/plain") ]] || fail "the folder was changed"
    as_writer "$program" "$work/plain" 2>>"$work/stderr"
    expect_alert "make it a notebook?"
    press Return
    expect_title "plain — Chapitre 1"
    press ctrl+w
    expect_title "Bibliothèque"
}

# point WINDOW PLACE: the pointer goes to this place in the window.
point() { xdotool mousemove --sync --window "$1" $2; }

# choose_in_menu KEYS...: these keys in the context menu of the selected book.
choose_in_menu() {
    press shift+F10
    until_true "the menu" has_menu
    press "$@"
}
has_menu() { [[ $(xwininfo -root -tree | grep -c '"aquilane"' || true) -gt $windows_without_menu ]]; }
count_windows() { windows_without_menu=$(xwininfo -root -tree | grep -c '"aquilane"' || true); }

a_double_click_opens_a_notebook() {
    point "$(active_window)" "$first_book"
    xdotool click --repeat 2 --delay 60 1
    expect_title "plain — Chapitre 1"
    press ctrl+w
    expect_title "Bibliothèque"
}

a_click_beside_the_books_selects_none() {
    point "$(active_window)" "$beside_books"
    xdotool click 1
    press Return # opens nothing
    press Left   # selects the first book
    has_title "Bibliothèque" || fail "a notebook was opened"
}

# Two pictures of one pixel.
make_pictures() {
    base64 -d >"$work/home/Photo.PNG" <<<iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAIAAACQd1PeAAAADElEQVR4nGP4z8AAAAMBAQDJ/pLvAAAAAElFTkSuQmCC
    base64 -d >"$work/home/dropped.gif" <<<R0lGODlhAQABAIAAAAUEBAAAACwAAAAAAQABAAACAkQBADs=
}

a_cover_is_chosen_in_the_panel() {
    choose_in_menu Down Down Return
    expect_title "Image de couverture"
    write "$work/home/Photo.PNG"
    press Return
    expect_title "Bibliothèque"
    expect_bytes "$work/plain/couverture.png" "$work/home/Photo.PNG"
}

a_cover_is_dropped_on_a_book() {
    local library
    library=$(active_window)
    become_writer "$drag_source" "$work/home/dropped.gif" "$work/drag" 2>>"$work/stderr" &
    drag_pid=$!
    until_true "the picture to drag" has_window "^drag source$"
    point "$(xdotool search --onlyvisible --name "^drag source$" | tail -1)" "20 20"
    xdotool mousedown 1
    xdotool mousemove_relative --sync 12 0
    point "$library" "140 170" # the ring comes while the pointer moves
    point "$library" "$first_book"
    until_true "the drag to be accepted" grep -qx accepted "$work/drag"
    xdotool mouseup 1
    expect_bytes "$work/plain/couverture.gif" "$work/home/dropped.gif"
    until_true "the old cover to go" test ! -e "$work/plain/couverture.png"
    kill -KILL "$drag_pid"
    xdotool windowfocus --sync "$library"
    expect_title "Bibliothèque"
}

a_cover_is_removed() {
    choose_in_menu Down Down Down Return
    until_true "the cover to be deleted" test ! -e "$work/plain/couverture.gif"
    [[ -e "$work/home/dropped.gif" ]] || fail "the picture itself is gone"
}

a_missing_notebook_is_told_and_forgotten_when_asked() {
    mv "$work/plain" "$work/elsewhere"
    press Return
    expect_alert "the notebook is missing"
    press Escape
    expect_title "Bibliothèque"
    knows "/plain" || fail "the notebook was forgotten unasked"
    press Return
    expect_alert "the notebook is missing"
    press Tab space # the second button
    until_true "the notebook to be forgotten" knows_not "/plain"
    mv "$work/elsewhere" "$work/plain"
    expect_title "Bibliothèque"
}

the_menu_forgets_the_selected_notebook() {
    until_true "the notebook to be known" knows "Le phare"
    press Right Right Right
    choose_in_menu Up Return
    until_true "the notebook to be forgotten" knows_not "Le phare"
    is_untouched projet.md
}

closing_the_library_quits() {
    press ctrl+w
    ends_with 0
}

a_start_without_paths_shows_the_library() {
    start
    expect_title "Bibliothèque"
    press Return
    expect_title "Deuxième été — Chapitre 1" # the last one shown comes first
    press ctrl+shift+l
    expect_title "Bibliothèque"
    press ctrl+q
    ends_with 0
}

make_notebook
the_last_window_closed_shows_the_library
return_opens_the_selected_notebook
a_notebook_is_made_by_keyboard
a_plain_folder_becomes_a_notebook_when_asked
a_double_click_opens_a_notebook
a_click_beside_the_books_selects_none
make_pictures
count_windows
a_cover_is_chosen_in_the_panel
a_cover_is_dropped_on_a_book
a_cover_is_removed
a_missing_notebook_is_told_and_forgotten_when_asked
the_menu_forgets_the_selected_notebook
closing_the_library_quits
a_start_without_paths_shows_the_library
said_nothing

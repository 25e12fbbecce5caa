# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The library: shown when nothing else is, opens and forgets notebooks, makes new ones.

source "$(dirname "$0")/lib.sh"

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

delete_forgets_the_selected_notebook() {
    until_true "the notebook to be known" knows "Le phare"
    press End Delete
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
    expect_title "plain — Chapitre 1" # the last one shown comes first
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
delete_forgets_the_selected_notebook
closing_the_library_quits
a_start_without_paths_shows_the_library
said_nothing

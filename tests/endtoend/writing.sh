# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# A notebook named at the start; a page chosen, written in and saved by itself; pages renamed, made, thrown away.

source "$(dirname "$0")/lib.sh"

first="Livre/01 - Le départ.md"

writing_is_saved_by_itself() {
    press F6 ctrl+End
    write "Déjà l'été, 2 fois."
    expect_title "Le phare — Le départ*"
    is_untouched "$first"
    { cat "$kept/$first" && printf %s "Déjà l'été, 2 fois."; } >"$work/expected"
    expect_bytes "$notebook/$first" "$work/expected"
    expect_title "Le phare — Le départ"
}

carriage_returns_become_line_ends() {
    press F6 Down
    expect_title "Le phare — La traversée"
    press F6 ctrl+End Return
    write "fin"
    printf 'Une ligne.\nUne autre.\n\nfin' >"$work/expected"
    expect_bytes "$notebook/Livre/02 - La traversée.md" "$work/expected"
}

latin_1_becomes_utf_8() {
    press F6 Down
    expect_title "Le phare — L'arrivée"
    press F6
    write "à "
    printf 'à Déjà vu, “dit-il”.\n' >"$work/expected"
    expect_bytes "$notebook/Livre/03 - L'arrivée.md" "$work/expected"
}

odd_characters_stay() {
    press F6 Down Down
    expect_title "Le phare — Marie"
    press F6 ctrl+End
    write "ç"
    { cat "$kept/Personnages/Marie.md" && printf ç; } >"$work/expected"
    expect_bytes "$notebook/Personnages/Marie.md" "$work/expected"
}

renaming_keeps_the_number() {
    press F6 Home Down
    expect_title "Le phare — Le départ"
    press F2
    write "Le retour"
    press Return
    expect_title "Le phare — Le retour"
    [[ -f "$notebook/Livre/01 - Le retour.md" && ! -e "$notebook/$first" ]] || fail "the page has not moved"
    # The text has the focus again.
    press ctrl+End
    write "!"
    { cat "$kept/$first" && printf %s "Déjà l'été, 2 fois.!"; } >"$work/expected"
    expect_bytes "$notebook/Livre/01 - Le retour.md" "$work/expected"
}

# expect_next_letter_in FILE: what is typed now goes into the text of this page, where the focus is again.
expect_next_letter_in() {
    local page="$notebook/Livre/$1"
    { printf z && cat "$page"; } >"$work/expected"
    write z
    expect_bytes "$page" "$work/expected"
}

escape_keeps_the_title() {
    press F6 Down
    expect_title "Le phare — La traversée"
    press Return
    write "Autre chose"
    press Escape
    expect_next_letter_in "02 - La traversée.md"
    expect_title "Le phare — La traversée"
}

a_title_left_as_it_was_renames_nothing() {
    press F6 Return Return
    expect_next_letter_in "02 - La traversée.md"
}

tab_ends_a_title_too() {
    press F6 F2
    write "La mer"
    press F6
    expect_title "Le phare — La mer"
    [[ -f "$notebook/Livre/02 - La mer.md" ]] || fail "the page has not moved"
    expect_next_letter_in "02 - La mer.md"
}

a_new_chapter_is_titled_then_written() {
    press ctrl+n
    expect_title "Le phare — Chapitre 4"
    write "Le phare"
    press Return
    expect_title "Le phare — Le phare"
    write "Nuit. "
    printf '# Chapitre 4\n\n' >"$work/template"
    { printf 'Nuit. ' && cat "$work/template"; } >"$work/expected"
    expect_bytes "$notebook/Livre/04 - Le phare.md" "$work/expected"
}

# The window manager takes its time to give a window the keyboard; nobody who types waits for it.
the_find_panel_takes_all_that_is_typed_behind_its_key() {
    press shift+End
    xdotool key --delay 0 ctrl+f c h a p
    expect_title "Rechercher"
    press Return
    xdotool key --delay 0 Escape z u t
    expect_title "Le phare — Le phare*"
    printf 'Nuit. # zutitre 4\n\n' >"$work/expected"
    expect_bytes "$notebook/Livre/04 - Le phare.md" "$work/expected"
}

a_page_goes_to_the_trash() {
    local page="$notebook/Livre/04 - Le phare.md" info="$work/data/Trash/info/04 - Le phare.md.trashinfo"
    press F6 Delete
    expect_alert "throw the page away?"
    press Escape
    expect_title "Le phare — Le phare"
    [[ -f $page ]] || fail "Escape has thrown the page away"
    press Delete
    expect_alert "throw the page away?"
    press Return
    expect_title "Le phare"
    [[ ! -e $page ]] || fail "the page is still there"
    cmp "$work/expected" "$work/data/Trash/files/04 - Le phare.md" || fail "the page is not in the trash"
    grep -qx 'Path=.*/Le%20phare/Livre/04%20-%20Le%20phare\.md' "$info" || fail "the trash does not know whence"
    grep -qxE 'DeletionDate=[0-9]{4}(-[0-9]{2}){2}T[0-9]{2}(:[0-9]{2}){2}' "$info" || fail "nor when"
}

quitting_ends_well() {
    press ctrl+q
    ends_with 0
    is_untouched projet.md
    [[ $(find "$notebook" -name '.*' ! -name . | wc -l) == 0 ]] || fail "hidden files were left"
}

make_notebook
start "$notebook"
expect_title "Le phare — Le départ"
writing_is_saved_by_itself
carriage_returns_become_line_ends
latin_1_becomes_utf_8
odd_characters_stay
renaming_keeps_the_number
escape_keeps_the_title
a_title_left_as_it_was_renames_nothing
tab_ends_a_title_too
a_new_chapter_is_titled_then_written
the_find_panel_takes_all_that_is_typed_behind_its_key
a_page_goes_to_the_trash
quitting_ends_well
said_nothing

# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# A page that cannot be saved: its folder is gone, or a file has taken its place. (Permissions would not do: the
# tests may run as root.) The text stays on the screen, and is saved when the folder is back.

source "$(dirname "$0")/lib.sh"

page="Livre/01 - Le départ.md"

take_folder_away() { mv "$notebook/Livre" "$work/Livre"; }
put_folder_back() {
    rm -f "$notebook/Livre"
    mv "$work/Livre" "$notebook/Livre"
}

# write_unsaveable TEXT: writes into the open page, whose folder goes before the page saves itself.
write_unsaveable() {
    write "$1"
    expect_title "Le phare — Le départ*"
    take_folder_away
}

closing_asks_twice_and_stays() {
    write_unsaveable "un "
    press ctrl+w
    expect_alert "couldn't save"
    press Return
    expect_alert "close without saving?"
    press Return # the default does not close
    expect_title "Le phare — Le départ*"
}

the_text_is_saved_when_the_folder_is_back() {
    put_folder_back
    write "deux "
    { head -6 "$kept/$page" && printf 'un deux ' && tail -n +7 "$kept/$page"; } >"$work/expected"
    expect_bytes "$notebook/$page" "$work/expected"
    expect_title "Le phare — Le départ"
}

a_file_in_the_place_of_the_folder_is_no_different() {
    write_unsaveable "trois "
    echo "not a folder" >"$notebook/Livre"
    press ctrl+w
    expect_alert "couldn't save"
    press Escape
    expect_alert "close without saving?"
    press Escape
    expect_title "Le phare — Le départ*"
    [[ $(<"$notebook/Livre") == "not a folder" ]] || fail "the file was touched"
    put_folder_back
    press ctrl+s
    { head -6 "$kept/$page" && printf 'un deux trois ' && tail -n +7 "$kept/$page"; } >"$work/expected"
    expect_bytes "$notebook/$page" "$work/expected"
}

saving_by_itself_tells_once() {
    write_unsaveable "quatre "
    expect_alert "couldn't save"
    write "et plus " # who is typing does not answer it
    press Escape
    expect_title "Le phare — Le départ*"
    put_folder_back
    press ctrl+s
    { head -6 "$kept/$page" && printf 'un deux trois quatre et plus ' && tail -n +7 "$kept/$page"; } >"$work/expected"
    expect_bytes "$notebook/$page" "$work/expected"
}

quitting_asks_twice_and_stays() {
    write_unsaveable "cinq "
    press ctrl+q
    expect_alert "couldn't save"
    press Return
    expect_alert "quit without saving?"
    press Return # the default does not quit
    expect_title "Le phare — Le départ*"
    put_folder_back
    press ctrl+s
    { head -6 "$kept/$page" && printf 'un deux trois quatre et plus cinq ' && tail -n +7 "$kept/$page"; } >"$work/expected"
    expect_bytes "$notebook/$page" "$work/expected"
}

closing_anyway_drops_the_change() {
    write_unsaveable "six "
    press ctrl+w
    expect_alert "couldn't save"
    press Return
    expect_alert "close without saving?"
    press Tab space
    expect_title "Bibliothèque"
    put_folder_back
    cmp "$notebook/$page" "$work/expected" || fail "the page was changed"
    press ctrl+q
    ends_with 0
}

# One alert, however often the window gets the keyboard back; the other pages are there.
a_page_too_large_is_told_once() {
    press F6 Down
    expect_alert "too large"
    press Return
    expect_title "Le phare"
    press Up
    expect_title "Le phare — Le départ"
    press F6
}

make_notebook
truncate -s 300M "$notebook/Livre/02 - La traversée.md"
start "$notebook"
expect_title "Le phare — Le départ"
press F6
a_page_too_large_is_told_once
closing_asks_twice_and_stays
the_text_is_saved_when_the_folder_is_back
a_file_in_the_place_of_the_folder_is_no_different
saving_by_itself_tells_once
quitting_asks_twice_and_stays
closing_anyway_drops_the_change
said_nothing

# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# A long day in two notebooks: pages made with the mouse in every section, titled, tagged, found through a tag,
# thrown away by a menu; the list following what others do to the folder. After each step the whole folder is
# compared with what it should hold.

source "$(dirname "$0")/lib.sh"
require convert xdotool

sections=(Livre Personnages Lieux Fiches Notes)
section_height=30
row_height=24
sidebar_width=240

# The sidebar begins below the menu bar, whose height is the font's: at the first pixel of the cover's colour.
sees_sidebar() {
    local pixel
    eval "$(xdotool getwindowgeometry --shell "$(active_window)")"
    window_x=$X
    import -window root -crop "1x200+$((X + 150))+$Y" +repage "$work/column.png"
    pixel=$(convert "$work/column.png" -depth 8 txt:- | grep -m1 '#E8DEC7') || return 1
    pixel=${pixel%%:*}
    sidebar_top=$((Y + ${pixel#*,}))
}

pages_in() { find "$1" -name '*.md' | wc -l; }

# row_at SECTION ROW: the middle of a row, counted from the section's own, which is 0. The list is what the disk has.
row_at() {
    local section y=$sidebar_top
    for ((section = 0; section < $1; section++)); do
        ((y += section_height + row_height * $(pages_in "$notebook/${sections[section]}")))
    done
    (($2 == 0)) && echo $((y + section_height / 2)) || echo $((y + section_height + row_height * $2 - row_height / 2))
}

click_row() { xdotool mousemove $((window_x + 120)) "$(row_at "$1" "$2")" click "${3:-1}"; }
click_add() { xdotool mousemove $((window_x + sidebar_width - 14)) "$(row_at "$1" 0)" click 1; }
click_tag_field() { xdotool mousemove $((window_x + sidebar_width + 400)) $((sidebar_top + 52)) click 1; }

bring() {
    xdotool search --onlyvisible --name "$1" windowactivate 2>/dev/null || true # what comes of it is what counts
    until_true "the window $1" starts_with "$1"
}
starts_with() { [[ $(active_title) == "$1"* ]]; }

# The folder as it should be is kept beside the real one, and changed by the test as the program should.
same_folders() { diff -r "$kept" "$notebook"; }
expect_folder() {
    until_true "the folder after: $1" same_folders
}

# make_page SECTION DEFAULT_TITLE TITLE FILE
make_page() {
    local file="$kept/${sections[$1]}/$4" made="$notebook/${sections[$1]}/$4"
    click_add "$1"
    expect_title "Le phare — $2"
    write "$3"
    press Return
    expect_title "Le phare — $3"
    [[ -f $made ]] || fail "there is no $4"
    cp "$made" "$file"
    expect_folder "making $3"
    press ctrl+End
    write "Un mot sur $3."
    press ctrl+s
    printf %s "Un mot sur $3." >>"$file"
    expect_folder "writing in $3"
}

pages_are_made_in_every_section() {
    make_page 0 "Chapitre 4" "Le port" "04 - Le port.md"
    make_page 1 "Nouveau personnage" "Hélène" "Hélène.md"
    make_page 2 "Nouveau lieu" "Ouessant" "Ouessant.md"
    make_page 3 "Nouvelle fiche" "Les feux" "Les feux.md"
    make_page 4 "Nouvelle note" "à relire" "à relire.md"
}

a_title_left_as_proposed_is_kept() {
    click_add 2
    expect_title "Le phare — Nouveau lieu"
    press Return
    write "x"
    press ctrl+s
    until_true "the text of the new place" grep -q x "$notebook/Lieux/Nouveau lieu.md"
    cp "$notebook/Lieux/Nouveau lieu.md" "$kept/Lieux/"
    expect_folder "keeping the proposed title"
}

return_renames() {
    click_row 0 2
    expect_title "Le phare — La traversée"
    press Return
    write "La mer"
    press Return
    expect_title "Le phare — La mer"
    mv "$kept/Livre/02 - La traversée.md" "$kept/Livre/02 - La mer.md"
    expect_folder "renaming"
}

# The case of a known tag is not the writer's to remember, and a proposal is taken from the list.
tags_are_respelled_and_completed() {
    click_row 3 1
    expect_title "Le phare — Les feux"
    click_tag_field
    write "PARIS,m"
    press Down Return Return
    sed -i 's/^tags:$/tags: Paris, mer/' "$kept/Fiches/Les feux.md"
    expect_folder "tagging"
}

# Reading through a tag writes nothing; what is then typed goes into the page's own file.
a_page_is_found_through_its_tag() {
    click_row 5 1
    expect_title "Le phare"
    press Down
    expect_title "Le phare — Le départ"
    press Down
    expect_title "Le phare — Les feux"
    expect_folder "reading through a tag"
    press F6 ctrl+End
    write " Encore."
    press ctrl+s
    printf " Encore." >>"$kept/Fiches/Les feux.md"
    expect_folder "writing through a tag"
}

goes_to_trash() {
    expect_alert "throw $1 away?"
    press Return
    expect_title "Le phare"
    rm "$kept/$1"
    expect_folder "throwing $1 away"
    [[ -f "$work/data/Trash/files/$(basename "$1")" ]] || fail "$1 is not in the trash"
}

is_menu_open() { (($(xdotool search --onlyvisible --pid "$pid" 2>/dev/null | wc -l) > windows)); }
choose_last_in_menu() {
    until_true "the menu of $1" is_menu_open
    press Up Return
}

# The menu of a row is for that row, whatever is selected; a key opens the one of the selection.
menus_throw_pages_away() {
    windows=$(xdotool search --onlyvisible --pid "$pid" | wc -l)
    click_row 0 4 3
    choose_last_in_menu "a right click"
    goes_to_trash "Livre/04 - Le port.md"
    click_row 4 1
    expect_title "Le phare — à relire"
    press Menu
    choose_last_in_menu "the menu key"
    expect_alert "throw the note away?"
    press Escape
    expect_title "Le phare — à relire"
    expect_folder "thinking better of it"
    press shift+F10
    choose_last_in_menu "Shift+F10"
    goes_to_trash "Notes/à relire.md"
}

make_second_notebook() {
    second="$work/Le bal"
    mkdir -p "$second"/{Livre,Personnages,Lieux,Fiches,Notes}
    printf -- '---\ntitre: Le bal\n---\n' >"$second/projet.md"
    printf 'Un.\n' >"$second/Livre/01 - Premier.md"
    cp -a "$second" "$work/second"
}

# before_autosave COMMAND...: the command succeeds within a second and a half; the timer would take two.
before_autosave() {
    local try
    for ((try = 0; try < 30; try++)); do
        "$@" && return
        sleep 0.05
    done
    return 1
}

# Whoever leaves a window leaves its page on the disk, long before two seconds are over; whoever comes back finds
# the list as the disk has it, the page and the text as they were left.
two_notebooks_are_written_by_turns() {
    make_second_notebook
    as_writer "$program" "$second" 2>>"$work/stderr"
    expect_title "Le bal — Premier"
    press F6
    write "abc"
    bring "Le phare"
    printf 'abcUn.\n' >"$work/second/Livre/01 - Premier.md"
    before_autosave cmp -s "$work/second/Livre/01 - Premier.md" "$second/Livre/01 - Premier.md" \
        || fail "leaving has not saved"
    click_row 1 2
    expect_title "Le phare — Marie"
    press F6 ctrl+End
    write "abc"
    expect_title "Le phare — Marie*"
    bring "Le bal"
    printf 'Venue du dehors.' | tee "$notebook/Personnages/Anne.md" >"$kept/Personnages/Anne.md"
    bring "Le phare"
    expect_title "Le phare — Marie"
    write "def"
    press ctrl+s
    printf abcdef >>"$kept/Personnages/Marie.md"
    expect_folder "coming back"
    click_row 1 1
    expect_title "Le phare — Anne"
}

a_title_waits_for_who_looks_something_up() {
    click_row 0 1
    expect_title "Le phare — Le départ"
    press F2
    write "Le d"
    bring "Le bal"
    bring "Le phare"
    write "ernier jour"
    press Return
    expect_title "Le phare — Le dernier jour"
    mv "$kept/Livre/01 - Le départ.md" "$kept/Livre/01 - Le dernier jour.md"
    expect_folder "coming back to a title"
}

# Another program writes into the page that is being written: its text becomes a page beside.
both_texts_are_kept() {
    click_row 1 2
    expect_title "Le phare — Hélène"
    press F6
    write "Moi. "
    printf 'Un autre.' >"$notebook/Personnages/Hélène.md"
    press ctrl+s
    printf 'Un autre.' >"$kept/Personnages/Hélène 2.md"
    sed -i '0,/^# /s//Moi. # /' "$kept/Personnages/Hélène.md"
    expect_folder "a change from outside"
    click_row 1 3
    expect_title "Le phare — Hélène 2"
}

a_double_click_goes_to_the_text() {
    xdotool mousemove $((window_x + 120)) "$(row_at 2 2)" click --repeat 2 --delay 60 1
    expect_title "Le phare — Ouessant"
    press ctrl+End
    write "!"
    press ctrl+s
    printf ! >>"$kept/Lieux/Ouessant.md"
    expect_folder "a double click"
}

quitting_leaves_nothing_behind() {
    press ctrl+q
    ends_with 0
    same_folders || fail "the folder was changed at the end"
    diff -r "$work/second" "$second" || fail "the second folder is not as it should be"
}

make_notebook
start "$notebook"
expect_title "Le phare — Le départ"
until_true "the sidebar to be drawn" sees_sidebar
pages_are_made_in_every_section
a_title_left_as_proposed_is_kept
return_renames
tags_are_respelled_and_completed
a_page_is_found_through_its_tag
menus_throw_pages_away
two_notebooks_are_written_by_turns
a_title_waits_for_who_looks_something_up
both_texts_are_kept
a_double_click_goes_to_the_text
quitting_leaves_nothing_behind
said_nothing

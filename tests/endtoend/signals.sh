# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# Asked from outside to end, the program saves without a question and ends well, whatever it is showing.

source "$(dirname "$0")/lib.sh"

page="Livre/01 - Le départ.md"

# expect_saved_beginning TEXT: the page's text begins with this, its header is as it was.
expect_saved_beginning() {
    { head -6 "$kept/$page" && printf %s "$1" && tail -n +7 "$kept/$page"; } >"$work/expected"
    cmp "$notebook/$page" "$work/expected" || fail "the page was not saved as it should be"
}

# One letter: the title tells that it has arrived, but not how many have.
saves_a_dirty_page_on() {
    local signal=$1
    cp -a "$kept/$page" "$notebook/$page"
    start "$notebook"
    expect_title "Le phare — Le départ"
    press F6
    write é
    expect_title "Le phare — Le départ*"
    kill -"$signal" "$pid"
    ends_with 0
    expect_saved_beginning é
}

# What cannot be saved holds nothing up: nobody is there to answer.
ends_without_a_question() {
    cp -a "$kept/$page" "$notebook/$page"
    start "$notebook"
    expect_title "Le phare — Le départ"
    press F6
    write é
    expect_title "Le phare — Le départ*"
    mv "$notebook/Livre" "$work/Livre"
    kill -TERM "$pid"
    ends_with 0
    mv "$work/Livre" "$notebook/Livre"
}

ends_behind_an_alert() {
    start "$notebook"
    expect_title "Le phare — Le départ"
    press F6
    write é
    expect_title "Le phare — Le départ*"
    mv "$notebook/Livre" "$work/Livre"
    press ctrl+w
    expect_alert "couldn't save"
    mv "$work/Livre" "$notebook/Livre"
    kill -TERM "$pid"
    ends_with 0
    expect_saved_beginning é
}

ends_behind_the_first_alert() {
    start "$work/nowhere"
    expect_alert "can't be found"
    kill -TERM "$pid"
    ends_with 0
}

make_notebook
saves_a_dirty_page_on TERM
saves_a_dirty_page_on HUP
saves_a_dirty_page_on INT
ends_without_a_question
ends_behind_an_alert
ends_behind_the_first_alert
said_nothing

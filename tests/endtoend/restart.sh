# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# Another language is chosen in the preferences, and the program restarts: the same notebooks stand open in the other
# language, with what was being written in them, and the toolkit's own dialogs speak it too.

source "$(dirname "$0")/lib.sh"

is_running_anew() { focused=$(xdotool getwindowfocus getwindowpid) && [[ $focused != "$1" ]]; }
has_toolkit_in_french() { grep -q '/qtbase_fr\.qm$' "/proc/$pid/maps"; }
speaks_english_only() { ! has_toolkit_in_french; }
is_stored() { grep -qx "PLInterfaceLanguage=$1" "$work/config/aquilane/aquilane.ini"; }

# choose_other_language KEY: opens the preferences and goes to the next or the last item of the pop-up.
choose_other_language() {
    press ctrl+comma
    expect_title "$1"
    press "$2"
    expect_alert "the question whether to restart"
}

# restarts TITLES...: the alert's first button. Another process comes up; $pid is then that.
restarts() {
    local old=$pid title
    press Return
    until_true "the end of the old process" is_gone "$old"
    for title in "$@"; do
        until_true "a window \"$title\"" has_window "$title"
    done
    until_true "another process" is_running_anew "$old"
    pid=$focused
}

make_notebook
second="$work/Second"
mkdir -p "$second/Livre"
printf -- '---\ntitre: Second\n---\n' >"$second/projet.md"
printf 'Fin.\n' >"$second/Livre/01 - Fin.md"

writer_lang=fr_FR.UTF-8 writer_language=
start "$notebook" "$second"
expect_title "Second — Fin"
until_true "the French of the toolkit" has_toolkit_in_french
press F6
write "Avant. "
expect_title "Second — Fin*"

choose_other_language "Préférences" Down
is_stored en || fail "the language was not stored before the question"
press Escape # later
expect_title "Préférences"
press Up     # back to French: nothing is asked
until_true "French to be stored again" is_stored fr
press Down
expect_alert "the question again"
restarts "Le phare" "Second"
printf 'Avant. Fin.\n' >"$work/expected"
expect_bytes "$second/Livre/01 - Fin.md" "$work/expected"
speaks_english_only || fail "the toolkit still speaks French"
press ctrl+comma
expect_title "Preferences" # the window that was in front is French no more
press Up
expect_alert "the question whether to go back"
restarts "Le phare" "Second"
until_true "the French of the toolkit" has_toolkit_in_french
press ctrl+comma
expect_title "Préférences"
press ctrl+q
until_true "the end of the program" is_gone "$pid"
pid=
grep -q PLReopenProjects "$work/config/aquilane/aquilane.ini" && fail "the list of notebooks to reopen was kept"
is_untouched "Livre/01 - Le départ.md"
said_nothing

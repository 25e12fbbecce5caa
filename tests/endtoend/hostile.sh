# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# A notebook that somebody has sent: its name is a command, and it holds libraries of the names that the program and its
# toolkit look for. The program is started in it. $2 is a library that tells when it is loaded.

source "$(dirname "$0")/lib.sh"
planted_library=$2

name='-c $(touch canary) `touch canary`; "touch canary" '"'"' %f %U'

start_in_the_notebook() {
    cd "$notebook"
    become_writer AQUILANE_PLANTED="$work/loaded" "$program" . 2>>"$work/stderr" &
    pid=$!
    cd - >/dev/null
}

the_planted_library_tells() {
    AQUILANE_PLANTED="$work/loaded" LD_PRELOAD="$planted_library" /bin/true
    [[ -e $work/loaded ]] || fail "it says nothing"
    rm "$work/loaded"
}

plant() {
    local file
    for file in libQt6{Core,Gui,Widgets,XcbQpa,DBus}.so.6 libicui18n.so.72 libenchant-2.so.2 enchant_hunspell.so \
        enchant-2/enchant_hunspell.so libaquilane_preview.so aquilane_preview.so aquilane_preview_surface.so \
        libaquilane_preview_surface.so aquilane/plugins/libaquilane_preview.so {,plugins/}platforms/libqxcb.so \
        {,plugins/}imageformats/libq{png,jpeg,svg,gif}.so {,plugins/}styles/libqstyle.so \
        {,plugins/}platformthemes/libqgtk3.so {,plugins/}iconengines/libqsvgicon.so \
        {,plugins/}platforminputcontexts/libibusplatforminputcontextplugin.so {,plugins/}generic/libqevdev.so; do
        mkdir -p "$notebook/$(dirname "$file")"
        cp "$planted_library" "$notebook/$file"
    done
    printf '[Paths]\nPrefix=.\nPlugins=.\nLibraries=.\nTranslations=.\n' >"$notebook/qt.conf"
    base64 -d >"$notebook/couverture.png" <<<"iVBORw0KGgoAAAANSUhEUgAAAAMAAAACCAIAAAASFvFNAAAAEElEQVR4nGM4uXMKBDHAWQB+egyFzcFVCwAAAABJRU5ErkJggg=="
}

nothing_is_loaded_from_the_current_folder() {
    start_in_the_notebook
    expect_title "Le phare — Le départ"
    press F6 ctrl+End
    write "un mott" # is looked up in a dictionary
    press ctrl+shift+l
    expect_title "Bibliothèque" # with a cover
    press Return
    expect_title "Le phare — Le départ"
    [[ ! -e $work/loaded ]] || fail "a library of the notebook was loaded"
}

# Without a session bus the folder is opened. The opener is a program of the desktop.
the_opener_is_given_one_argument() {
    press ctrl+shift+r
    until_true "the opener" test -s "$work/arguments"
    printf '1\nfile://%s/Livre\n' "$(printf %s "$notebook" |
        sed 's/ /%20/g; s/"/%22/g; s/`/%60/g; s/%f/%25f/; s/%U/%25U/')" >"$work/expected"
    expect_bytes "$work/arguments" "$work/expected"
}

nothing_was_run() {
    press ctrl+q
    ends_with 0
    [[ -z $(find "$work" -name 'canary*') ]] || fail "a name was run as a command"
    [[ ! -e $work/loaded ]] || fail "a library of the notebook was loaded"
}

make_notebook
mv "$notebook" "$work/$name"
notebook="$work/$name"
mkdir "$work/bin"
printf '#!/bin/sh\n{ echo $#; printf "%%s\\n" "$@"; } >"%s"\n' "$work/arguments" >"$work/bin/xdg-open"
chmod +x "$work/bin/xdg-open"
PATH="$work/bin:$PATH"

the_planted_library_tells
plant
nothing_is_loaded_from_the_current_folder
the_opener_is_given_one_argument
nothing_was_run
said_nothing

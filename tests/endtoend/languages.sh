# SPDX-FileCopyrightText: 2026 the Aquilane authors
# SPDX-License-Identifier: MIT
#
# The interface speaks the writer's language: the system's, unless another one was chosen.

source "$(dirname "$0")/lib.sh"

# speaks LIBRARY NEW_NOTEBOOK_PANEL CHAPTER: the titles of the library, of a panel, of a new notebook's window.
speaks() {
    start
    expect_title "$1"
    press ctrl+shift+n
    expect_title "$2"
    press Return
    expect_title "$3"
    press ctrl+q
    ends_with 0
    rm -rf "$work/home" "$work/config"
    mkdir "$work/home"
    remember_preview false
}

choose_language() {
    remember_preview false
    echo "PLInterfaceLanguage=$1" >>"$work/config/aquilane/aquilane.ini"
}

french=("Bibliothèque" "Nouveau carnet" "Mon roman — Chapitre 1")
english=("Library" "New Notebook" "My Novel — Chapter 1")

writer_lang=fr_FR.UTF-8 writer_language=
speaks "${french[@]}"
writer_lang=en_GB.UTF-8 writer_language=
speaks "${english[@]}"
writer_lang=fr_FR.UTF-8 writer_language=en
speaks "${english[@]}"
writer_lang=de_DE.UTF-8 writer_language=de:fr:en # the first that the program knows
speaks "${french[@]}"
writer_lang=C writer_language=
speaks "${english[@]}"
choose_language fr
writer_lang=en_US.UTF-8
speaks "${french[@]}"
choose_language en
writer_lang=fr_FR.UTF-8
speaks "${english[@]}"
said_nothing

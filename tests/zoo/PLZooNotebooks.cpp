// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// The notebook itself: its `projet.md`, its section folders, how much is in it and where it is.

#include "zoo/PLZoo.h"

namespace {

constexpr int tame = 2;
constexpr int megabyte = 1'000'000;

void makePages(const PLZooCage &cage)
{
    cage.file("Livre/01 - Paisible.md", "Rien à signaler.\n");
    cage.file("Notes/Paisible.md", "Rien à signaler non plus.\n");
}

/// A notebook whose `projet.md` is made like this.
PLZooNotebook metadata(const char *name, bool opens, std::function<void(const PLZooCage &)> make)
{
    const auto makeAll = [make](const PLZooCage &cage) {
        makePages(cage);
        make(cage);
    };
    return {name, makeAll, opens, tame};
}

PLZooNotebook metadataText(const char *name, bool opens, const QByteArray &text)
{
    return metadata(name, opens, [text](const PLZooCage &cage) { cage.file("projet.md", text); });
}

/// A notebook whose "Fiches" are made like this.
PLZooNotebook section(const char *name, bool opens, std::optional<int> pages,
                      std::function<void(const PLZooCage &)> make)
{
    const auto makeAll = [make](const PLZooCage &cage) {
        makePages(cage);
        PLMakeOutside(cage);
        cage.file("projet.md", PLZooMetadataText);
        make(cage);
    };
    return {name, makeAll, opens, pages};
}

PLZooNotebook withDevices(PLZooNotebook notebook)
{
    notebook.needsDevices = true;
    return notebook;
}

void makeManyPages(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    for (int page = 0; page < cage.number(1'500, 10'000); ++page) {
        const QByteArray number = QByteArray::number(page + 2);
        cage.file("Livre/" + number + " - Chapitre.md", "Le chapitre " + number + ".\n");
    }
}

void makeManyNames(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    for (int page = 0; page < cage.number(300, 3'000); ++page)
        cage.file("Notes/Nouvelle note " + QByteArray::number(page + 2) + ".md", "x");
    cage.file("Notes/Nouvelle note.md", "x");
}

void makeDeepSection(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.depth("Lieux/profond", 1'000);
    cage.depth("profond", 1'000);
}

} // namespace

void PLMakeTameNotebook(const PLZooCage &cage)
{
    cage.file("projet.md", PLZooMetadataText);
    makePages(cage);
    for (const char *name : {"Livre", "Personnages", "Lieux", "Fiches", "Notes"})
        cage.folder(name);
}

void PLMakeOutside(const PLZooCage &cage)
{
    const PLZooCage outside(cage.outside(), cage.outside(), false);
    outside.file("page.md", "Une page de dehors.\n");
    outside.file("chaîne.md", "Au bout de la chaîne.\n");
    outside.file("précieux.txt", "N'y touchez pas.\n");
}

std::vector<PLZooNotebook> PLZooMetadata()
{
    const QByteArray large(megabyte, 'T');
    return {
        metadataText("empty", true, QByteArray()),
        metadataText("binary", false, QByteArray("\0\xFF\xFE\x80", 4)),
        metadataText("NUL", true, QByteArray(1000, '\0')),
        metadataText("UTF-16", false, "\xFF\xFEt"),
        metadataText("not closed", true, "---\ntitre: A\n"),
        metadataText("long title", true, "---\ntitre: " + large + "\nauteur: " + large + "\n---\n"),
        metadataText("combining title", true,
                     "---\ntitre: e" + QByteArray("\u0301").repeated(20'000) + "\n---\n"),
        metadataText("disturbing title", true,
                     "---\ntitre: \u202E[*]&%@%n<b>\x01\nauteur: \u2028\uFDD0\n---\n"),
        metadataText("CRLF", true, "\xEF\xBB\xBF---\r\ntitre: A\r\n---\r\n"),
        metadata("folder", false, [](const PLZooCage &cage) { cage.folder("projet.md"); }),
        metadata("absent", false, [](const PLZooCage &) {}),
        metadata("FIFO", false, [](const PLZooCage &cage) { cage.fifo("projet.md"); }),
        metadata("socket", false, [](const PLZooCage &cage) { cage.socket("projet.md"); }),
        withDevices(
            metadata("device", false, [](const PLZooCage &cage) { cage.endlessDevice("projet.md"); })),
        metadata("loop", false, [](const PLZooCage &cage) { cage.link("projet.md", "projet.md"); }),
        metadata("dangling", false, [](const PLZooCage &cage) { cage.link("projet.md", "absent"); }),
        metadata("link outside", true,
                 [](const PLZooCage &cage) {
                     PLMakeOutside(cage);
                     cage.link("projet.md", cage.outside() + "/page.md");
                 }),
        metadata("huge", true,
                 [](const PLZooCage &cage) {
                     const int size = cage.number(10, 100) * megabyte;
                     cage.filled("projet.md", "clé: valeur\n", size, "---\ntitre: A\n");
                 }),
        metadata("beyond all", false,
                 [](const PLZooCage &cage) { cage.hollow("projet.md", 300LL * megabyte); }),
    };
}

std::vector<PLZooNotebook> PLZooSections()
{
    return {
        section("file", false, {}, [](const PLZooCage &cage) { cage.file("Fiches", "x"); }),
        section("FIFO", false, {}, [](const PLZooCage &cage) { cage.fifo("Fiches"); }),
        withDevices(
            section("device", false, {}, [](const PLZooCage &cage) { cage.endlessDevice("Fiches"); })),
        section("missing", true, tame, [](const PLZooCage &) {}),
        section("loop", false, {}, [](const PLZooCage &cage) { cage.link("Fiches", "Fiches"); }),
        section("dangling", false, {},
                [](const PLZooCage &cage) { cage.link("Fiches", cage.outside() + "/absent"); }),
        section("outside", true, tame + 2,
                [](const PLZooCage &cage) { cage.link("Fiches", cage.outside()); }),
        section("another section", true, tame + 1,
                [](const PLZooCage &cage) { cage.link("Fiches", "Notes"); }),
        section("the notebook", true, tame + 1, [](const PLZooCage &cage) { cage.link("Fiches", "."); }),
        section("the root", true, tame, [](const PLZooCage &cage) { cage.link("Fiches", "/proc/self/fd"); }),
        section("empty name", false, {}, [](const PLZooCage &cage) { cage.link("Fiches", "projet.md/x"); }),
    };
}

std::vector<PLZooNotebook> PLZooMultitudes()
{
    const auto deep = [](int levels) { return "profond" + QByteArray("/d").repeated(levels); };
    return {
        {"many pages", makeManyPages, true},
        {"many names", makeManyNames, true},
        {"deep in a section", makeDeepSection, true, tame},
        {deep(1'000), PLMakeTameNotebook, true, tame},
    };
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What is in the pages: no text, too much text, no file at all.

#include "zoo/PLZoo.h"

#include <QStringConverter>

namespace {

constexpr int tame = 2;
constexpr int kilobyte = 1'000;

QByteArray allBytes()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes.append(char(byte));
    return bytes;
}

QByteArray utf16(bool isBigEndian)
{
    QStringEncoder encoder(isBigEndian ? QStringEncoder::Utf16BE : QStringEncoder::Utf16LE,
                           QStringEncoder::Flag::WriteBom);
    return encoder(QString::fromUtf8("---\ntags: été\n---\n\nSeize bits 😀\n"));
}

void makeContents(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.file("Livre/vide.md", QByteArray());
    cage.file("Livre/nul.md", QByteArray(10'000, '\0'));
    cage.file("Livre/tous.md", allBytes());
    cage.file("Livre/tous encore.md", allBytes().repeated(100));
    cage.file("Livre/utf-16 le.md", utf16(false));
    cage.file("Livre/utf-16 be.md", utf16(true));
    cage.file("Livre/demi-paires.md", "\xED\xA0\x80 \xED\xB0\x80 \xED\xA0\xBD\xED\xB8\x80\n");
    cage.file("Livre/coupé.md", "fin \xE2\x82");
    cage.file("Livre/latin-1.md", "\xE9t\xE9 \x9C\x85\n");
    cage.file("Notes/marque.md", "\xEF\xBB\xBF");
    cage.file("Notes/marques.md", "\xEF\xBB\xBF\xEF\xBB\xBF---\ntags: a\n---\n");
    cage.file("Notes/retours.md", "un\rdeux\rtrois\r");
    cage.file("Notes/mêlés.md", "un\r\ndeux\n\rtrois\r\r\nquatre\n");
    cage.file("Notes/séparateurs.md", "un\u2028deux\u2029trois\u0085quatre\v\f\x1C");
    cage.file("Notes/non-caractères.md", "\uFDD0\uFDD1\uFFFE\uFFFF\uFFFC\U0001FFFE");
    cage.file("Notes/lignes vides.md", QByteArray(20'000, '\n'));
    cage.file("Notes/accents.md", 'e' + QByteArray("\u0301").repeated(5'000));
    cage.file("Notes/jointures.md", "👩" + QByteArray("\u200D👩").repeated(1'000));
    cage.file("Notes/directions.md", QByteArray("\u202Eא1\u202Da\u2067").repeated(500));
    cage.file("Notes/citations.md", QByteArray(20'000, '>'));
    cage.file("Notes/crochets.md", QByteArray("[![[").repeated(3'000));
    cage.file("Notes/accents graves.md", QByteArray("`*_**~~").repeated(3'000));
}

void makeBroken(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.file("Livre/moitié.md", "\xFF\xFEx");
    cage.file("Livre/demi-paire.md", QByteArray("\xFF\xFE\x00\xD8\x0A\x00", 6));
    cage.file("Livre/demi-paire be.md", QByteArray("\xFE\xFF\xDC\x00\x00\x0A", 6));
}

/// A notebook with one page of this pattern, as large as said in thousands of bytes.
PLZooNotebook huge(const char *name, const QByteArray &pattern, int usual, int full)
{
    const auto make = [pattern, usual, full](const PLZooCage &cage) {
        PLMakeTameNotebook(cage);
        cage.filled("Livre/02 - Énorme.md", pattern, qint64(kilobyte) * cage.number(usual, full));
    };
    return {name, make, true, tame + 1};
}

/// The same with a page that is too large to be opened.
PLZooNotebook tooHuge(const char *name, const QByteArray &pattern, int usual, int full)
{
    PLZooNotebook notebook = huge(name, pattern, usual, full);
    notebook.opened = tame;
    return notebook;
}

void makeBeyondAll(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.hollow("Livre/02 - Trop.md", 300'000LL * kilobyte);
}

void makeNoFiles(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.fifo("Livre/02 - tube.md");
    cage.socket("Livre/03 - prise.md");
    cage.link("Livre/04 - vers tube.md", "02 - tube.md");
    cage.link("Livre/05 - boucle.md", "05 - boucle.md");
    cage.link("Livre/06 - une.md", "07 - autre.md");
    cage.link("Livre/07 - autre.md", "06 - une.md");
    cage.link("Livre/08 - pendant.md", "nulle part.md");
    cage.link("Livre/09 - pendant dehors.md", cage.outside() + "/absent.md");
    cage.link("Livre/10 - dossier.md", "..");
    cage.folder("Livre/11 - dossier.md");
    cage.link("Livre/12 - trop long.md", QByteArray("x/").repeated(300) + "y.md");
    cage.link("Livre/13 - processus.md", "/proc/self/mem");
    cage.fifo("Notes/.caché.md");
}

void makeDevices(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.endlessDevice("Livre/02 - sans fin.md");
    cage.link("Livre/03 - vers sans fin.md", "02 - sans fin.md");
}

void makeLinks(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    PLMakeOutside(cage);
    cage.link("Livre/02 - dehors.md", cage.outside() + "/page.md");
    cage.link("Livre/03 - relatif.md", "../Notes/Paisible.md");
    cage.link("Livre/04 - lien de lien.md", "02 - dehors.md");
    QByteArray target = cage.outside() + "/chaîne.md";
    for (int link = 0; link < 30; ++link) { // Linux follows 40
        const QByteArray name = "chaîne " + QByteArray::number(link);
        cage.link("Livre/" + name, target);
        target = name;
    }
    cage.link("Livre/05 - longue chaîne.md", target);
    cage.link("Livre/06 - métadonnées.md", "../projet.md");
}

void makeUnreadable(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.file("Livre/02 - interdite.md", "secret");
    cage.permissions("Livre/02 - interdite.md", 0);
    cage.file("Livre/03 - écriture seule.md", "secret");
    cage.permissions("Livre/03 - écriture seule.md", 0222);
}

void makeUnreadableMetadata(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.permissions("projet.md", 0);
}

void makeUnreadableSection(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.permissions("Notes", 0);
}

void makeReadOnly(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.permissions("Livre/01 - Paisible.md", 0444);
    for (const char *section : {"Livre", "Notes", "Fiches", "Lieux", "Personnages"})
        cage.permissions(section, 0555);
}

} // namespace

std::vector<PLZooNotebook> PLZooPageContents()
{
    return {
        {"contents", makeContents, true, tame + 22},
        {"broken UTF-16", makeBroken, true, tame + 3, tame},
    };
}

std::vector<PLZooNotebook> PLZooHugePages()
{
    const QByteArray prose = "Il était une fois, dans un « pays » lointain, une *aventure* sans fin.\n";
    PLZooNotebook noGlyphs = huge("nothing but NUL", QByteArray(1, '\0'), 200, 3'000);
    noGlyphs.longestStep = 4; // the toolkit asks every font for each character that none has
    return {
        huge("prose", prose, 2'000, 50'000),
        huge("one line of words", "mot sans fin, ", 400, 3'000),
        huge("one word", "a", 400, 3'000),
        noGlyphs,
        huge("binary", allBytes(), 400, 40'000),
        huge("line feeds", "\n", 200, 1'000),
        tooHuge("too much prose", prose, 55'000, 100'000),
        tooHuge("too long a line", "mot sans fin, ", 10'000, 100'000),
        tooHuge("too much NUL", QByteArray(1, '\0'), 5'000, 100'000),
        tooHuge("too many line feeds", "\n", 2'000, 100'000),
        {"beyond all", makeBeyondAll, true, tame + 1, tame},
    };
}

std::vector<PLZooNotebook> PLZooPagesThatAreNoFiles()
{
    return {
        {"no files", makeNoFiles, true, tame + 10, tame},
        {"devices", makeDevices, true, tame + 2, tame, {}, false, true},
        {"links", makeLinks, true, tame + 5},
    };
}

std::vector<PLZooNotebook> PLZooPermissions()
{
    return {
        {"unreadable", makeUnreadable, true, tame + 2, tame, {}, true},
        {"unreadable metadata", makeUnreadableMetadata, false, {}, {}, {}, true},
        {"unreadable section", makeUnreadableSection, true, tame - 1, {}, {}, true},
        {"read-only", makeReadOnly, true, tame, tame, {}, true},
    };
}

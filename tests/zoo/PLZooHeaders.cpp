// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Headers of pages: never closed, too large, too many keys and tags.

#include "zoo/PLZoo.h"

namespace {

constexpr int tame = 2;
constexpr int megabyte = 1'000'000;

QByteArray lines(const QByteArray &prefix, const QByteArray &suffix, int count)
{
    QByteArray text;
    for (int line = 0; line < count; ++line)
        text += prefix + QByteArray::number(line) + suffix;
    return text;
}

void makeOpen(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    cage.file("Livre/jamais.md", "---\ntags: a\nclé: valeur\n\nLe texte.\n");
    cage.file("Livre/presque.md", "---\ntags: a\n----\n---x\n --- \nLe texte.\n");
    cage.file("Livre/seule.md", "---");
    cage.file("Livre/seule ligne.md", "---\n");
    cage.file("Livre/vide.md", "---\n---");
    cage.file("Livre/sans clé.md", "---\n: a\n:\n\n::::\nrien\n---\n");
    cage.file("Livre/nul.md", QByteArray("---\nta\0gs: a\0b\ntags: \0,\0\n---\n\nLe texte.\n", 39));
    cage.file("Livre/crlf.md", "---\r\ntags: a, b\r\n---\r\n\r\nLe texte.\r\n");
    cage.file("Livre/répétée.md", "---\ntags: a\nTAGS: b\nTags : c\n---\nLe texte.\n");
    cage.file("Livre/séparateurs.md", "---\ntags: a\u2028b\rc\u0085d\n---\nLe texte.\n");
    cage.filled("Notes/jamais, un mégaoctet.md", "clé: valeur\n", megabyte, "---\n");
    cage.filled("Notes/presque, un mégaoctet.md", "\n----", megabyte, "---\n");
    cage.filled("Notes/sans ligne.md", "x", megabyte, "---\ntags: ");
}

void makeLarge(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    const QByteArray value(cage.number(megabyte, 10 * megabyte), 'v');
    cage.file("Notes/valeur.md", "---\ntags: a\nclé: " + value + "\n---\n\nLe texte.\n");
    cage.file("Notes/clé.md", "---\n" + value + ": v\ntags: b\n---\n\nLe texte.\n");
    cage.file("Notes/clés.md", "---\n" + lines("clé ", ": v\n", 10'000) + "tags: c\n---\n\nLe texte.\n");
    cage.file("Notes/même clé.md",
              "---\n" + QByteArray("tags: d\n").repeated(100'000) + "---\n\nLe texte.\n");
}

void makeManyTags(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    const QByteArray tags = lines("étiquette ", ", ", cage.number(2'000, 10'000));
    cage.file("Notes/tags.md", "---\ntags: " + tags + "\n---\n\nLe texte.\n");
}

void makeLongTag(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    const int size = cage.number(megabyte / 10, megabyte);
    cage.file("Notes/tag.md", "---\ntags: " + QByteArray(size, 't') + ", fin\n---\n\nLe texte.\n");
    cage.file("Notes/virgules.md", "---\ntags: " + QByteArray(size, ',') + "\n---\n\nLe texte.\n");
}

void makeTaggedPages(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    for (int page = 0; page < cage.number(300, 3'000); ++page) {
        const QByteArray number = QByteArray::number(page);
        cage.file("Fiches/" + number + ".md", "---\ntags: tous, à moi " + number + "\n---\n\nLe texte.\n");
    }
}

} // namespace

std::vector<PLZooNotebook> PLZooHeaders()
{
    return {
        {"not closed", makeOpen, true, tame + 13},   {"large", makeLarge, true, tame + 4},
        {"many tags", makeManyTags, true, tame + 1}, {"long tags", makeLongTag, true, tame + 2},
        {"tagged pages", makeTaggedPages, true},
    };
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Names of pages and of notebooks: every script, every length, every byte.

#include "zoo/PLZoo.h"

#include <iterator>

namespace {

constexpr const char *scripts[] = {
    "Ἰλιάς ᾄδω",
    "Война и мир",
    "ألف ليلة وليلة",
    "שיר השירים",
    "สี่แผ่นดิน",
    "महाभारत क्षि",
    "紅樓夢",
    "源氏物語 がぎぐ",
    "춘향전 각",
    "Հայոց ԵՒ",
    "ქართული",
    "አማርኛ",
    "தமிழ் ௧",
    "မြန်မာ",
    "ខ្មែរ",
    "བོད་ཡིག",
    "ᠮᠣᠩᠭᠣᠯ",
    "𝔉𝔯𝔞𝔨𝔱𝔲𝔯 𒀀 𐍈",
    "👩‍👩‍👧‍👦 🏳️‍🌈 👍🏽",
    "🇫🇷🇬🇷",
    "Amélie",       // in one character
    "Ame\u0301lie", // in two
    "ﬁn ﬀ ﬃ",
    "STRASSE straße ẞ",
    "İstanbul ıssız",
    "\u202Egnirts\u202C droite",
    "\u2066isolé\u2069",
    "zéro\u200Bchasse\u200Dsans\u200Cliant\u2060",
    "\uFEFFmarque",
    "Z͑ͫ̓ͪ̂ͫ̽͏̴̙̤̞͉͚̯̞̠͍A̴̵̜̰͔ͫ͗͢L̠ͨͧͩ͘G̴̻͈͍͔̹̑͗̎̅͛́Ǫ̵̹̻̝̳͂"
    "̌"
    "̌"
    "͘",
    "espace\u00A0insécable\u202F!",
    "ligne\u2028para\u2029graphe",
    "\uFDD0\uFFFE\uFFFF\U0010FFFF",
    "\uE000 privé",
    "1 ١ १ ๑ 一",
    "١٢ - كتاب",
    "99999999999999999999 - Trop",
    "-0 - moins",
};

const QByteArray disturbing[] = {
    "deux\nlignes",
    "retour\rchariot",
    "\ttab",
    " espace",
    "espace ",
    "'simple'",
    "\"double\"",
    "`inverse`",
    "$(touch ..)",
    "; rm x",
    "&amp;",
    "<b>gras",
    "%00",
    "%2e%2e%2f",
    "%20%",
    "a#b?c=d",
    "\\antislash\\",
    "C:\\nul",
    "con",
    "-rf",
    "--help",
    "--",
    "~",
    "*",
    "?",
    "[*]",
    "[x]",
    "\x01\x1B[31m\x7F",
    "a..",
    "..a\xE2\x80\xA6",
    "file:",
    "http:",
    "....",
    "%@ %ld %lu %n",
    "&Fichier",
};

const QByteArray hidden[] = {".caché", ".", "..b", "...", ".aquilane-0123456z.tmp"};

const QByteArray invalid[] = {
    "\xFF",
    "latin \xE9t\xE9",
    "\xC3",
    "\xED\xA0\x80 demi",
    "\xC0\xAF",
    "\xF8\x88\x80\x80\x80",
    "\xF4\x90\x80\x80",
    "fin \xE2\x82",
};

QByteArray longName(const QByteArray &piece, qsizetype bytes)
{
    QByteArray name = piece.repeated(bytes / piece.size());
    return name + QByteArray(bytes - name.size(), 'x');
}

void makePage(const PLZooCage &cage, const QByteArray &path)
{
    cage.file(path, "Le texte de " + path.toPercentEncoding() + ".\n");
}

void makeScripts(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    for (const char *name : scripts) {
        makePage(cage, QByteArray("Livre/") + name + ".md");
        makePage(cage, QByteArray("Notes/") + name + ".MD");
    }
}

void makeLong(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    for (const char *piece : {"a", "字", "😀", "e\u0301", "7"}) {
        makePage(cage, "Livre/" + longName(piece, 252) + ".md");
        makePage(cage, "Lieux/" + longName(piece, 252) + ".md");
        makePage(cage, "Fiches/" + longName(piece, 249) + ".md");
    }
}

void makeDisturbing(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    for (const QByteArray &name : disturbing) {
        // What begins with a stop is hidden.
        const QByteArray visible = name.startsWith('.') ? 'x' + name : name;
        makePage(cage, "Livre/" + visible + ".md");
        makePage(cage, "Personnages/" + visible + ".md");
    }
}

void makeHidden(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    for (const QByteArray &name : hidden)
        makePage(cage, "Notes/" + name + ".md");
    makePage(cage, "Notes/.md");
    makePage(cage, "Notes/md");
    makePage(cage, "Notes/.aquilane-0123456g.tmp");
    makePage(cage, "Notes/aquilane-x.y.tmp");
    cage.folder("Notes/dossier.md");
}

void makeInvalid(const PLZooCage &cage)
{
    PLMakeTameNotebook(cage);
    for (const QByteArray &name : invalid) {
        makePage(cage, "Livre/" + name + ".md");
        makePage(cage, "Notes/" + name + "/" + name + ".md");
    }
    makePage(cage, "couverture.\xFF");
    makePage(cage, "\xFF\xFE/x.md");
}

} // namespace

std::vector<PLZooNotebook> PLZooPageNames()
{
    constexpr int tame = 2;
    return {
        {"scripts", makeScripts, true, tame + 2 * int(std::size(scripts))},
        {"long", makeLong, true, tame + 15},
        {"disturbing", makeDisturbing, true, tame + 2 * int(std::size(disturbing))},
        {"hidden", makeHidden, true, tame},
        {"invalid", makeInvalid, true, tame},
    };
}

std::vector<PLZooNotebook> PLZooFolderNames()
{
    constexpr int tame = 2;
    std::vector<PLZooNotebook> notebooks;
    const QByteArray names[] = {
        "deux\nlignes",
        "-rf",
        "\u202Egnirts",
        "%2e%2e",
        "a#b?c",
        "\"$(x)'`",
        "Ame\u0301lie",
        "[*] *",
        "\\antislash",
        "👩‍👩‍👧‍👦",
        "\x01\x1B",
        " ",
        "projet.md",
        "~",
        "%",
        "a:b;c",
        longName("字", 255),
    };
    for (const QByteArray &name : names)
        notebooks.push_back({name, PLMakeTameNotebook, true, tame});
    return notebooks;
}

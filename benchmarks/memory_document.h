// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>
#include <QFile>
#include <QSocketNotifier>
#include <QString>

#include <cstdio>

// What the programs that memory_bench weighs have in common.

inline QString PLMemoryParagraph()
{
    return QStringLiteral(
        "La pluie avait cessé vers le soir ; Éléonore regardait par la fenêtre les toits mouillés de "
        "l’île où personne n’était venu depuis que sa sœur était partie, sans un mot, un matin "
        "d’automne.");
}

/// A chapter of some 8,000 words.
inline QString PLMemoryText()
{
    return (PLMemoryParagraph() + QStringLiteral("\n\n")).repeated(240);
}

/// The same as the preview shows it.
inline QString PLMemoryDocument()
{
    return QStringLiteral(
               "<!DOCTYPE html>\n<html lang=\"fr\"><head><meta charset=\"utf-8\"><style>body { background: "
               "#faf6ea; font: 17px/1.6 Georgia, serif; } p { text-align: justify; hyphens: auto; }</style>"
               "</head><body><div id=\"contenu\"><h1>Chapitre</h1>") +
           QStringLiteral("<p>%1</p>\n").arg(PLMemoryParagraph()).repeated(240) +
           QStringLiteral("</div></body></html>");
}

/// Tells memory_bench that the document is shown; the program then lives until its standard input is closed.
inline void PLMemoryReady()
{
    std::puts("ready");
    std::fflush(stdout);
    auto *input = new QSocketNotifier(0, QSocketNotifier::Read, qApp);
    QObject::connect(input, &QSocketNotifier::activated, qApp, &QCoreApplication::quit);
}

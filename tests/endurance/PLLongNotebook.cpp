// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "endurance/PLLongNotebook.h"

#include "support/PLTestFiles.h"
#include "support/PLTestNotebook.h"

#include <QDirIterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int paragraphsOfChapter = 12;
constexpr int wordsOfParagraph = 70;
constexpr int longestWord = 3; // syllables

const QStringList syllables = {u"ma"_s, u"ri"_s,  u"vé"_s, u"lon"_s, u"pe"_s,  u"tou"_s,
                               u"sa"_s, u"fin"_s, u"jo"_s, u"clé"_s, u"mer"_s, u"qui"_s};

QString madeParagraph(QRandomGenerator &random)
{
    QString paragraph;
    for (int word = 0; word < wordsOfParagraph; ++word) {
        const bool isStrong = random.bounded(30) == 0;
        const QString written = PLMadeWord(random);
        paragraph += (isStrong ? u"**"_s + written + u"**"_s : written) + u' ';
    }
    return paragraph + u"fin\u00A0!\n\n"_s;
}

QString madeChapter(QRandomGenerator &random)
{
    QString text = u"---\ntags: mer, Paris\n---\n\n# Un jour\n\n"_s;
    for (int paragraph = 0; paragraph < paragraphsOfChapter; ++paragraph)
        text += madeParagraph(random);
    return text;
}

QStringList textsBelow(const QString &folder)
{
    QStringList texts;
    QDirIterator files(folder, {u"*.md"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        texts.append(QString::fromUtf8(PLBytesOf(files.next())));
    return texts;
}

} // namespace

QString PLMadeWord(QRandomGenerator &random)
{
    QString word;
    const int count = 1 + random.bounded(longestWord);
    for (int syllable = 0; syllable < count; ++syllable)
        word += syllables[random.bounded(int(syllables.size()))];
    return word;
}

PLLongNotebook::PLLongNotebook(const PLTestNotebook &notebook) : m_notebook(notebook)
{
    QRandomGenerator random(365);
    const QStringList found = textsBelow(qEnvironmentVariable("AQUILANE_CORPUS", notebook.path()));
    for (int chapter = 0; chapter < ChapterCount; ++chapter) {
        m_paths.append(u"Livre/%1 - Jour %1.md"_s.arg(chapter + 1, 3, 10, QChar(u'0')));
        m_texts.append(found.size() > 1 ? found[chapter % found.size()] : madeChapter(random));
    }
    restore();
}

void PLLongNotebook::restore() const
{
    for (qsizetype chapter = 0; chapter < m_paths.size(); ++chapter)
        m_notebook.write(m_paths[chapter], m_texts[chapter]);
}

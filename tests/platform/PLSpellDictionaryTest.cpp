// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSpellDictionary.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

class PLSpellDictionaryTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void wordsOfTheLanguageAreKnown_data();
    void wordsOfTheLanguageAreKnown();
    void aMistakeGetsTheRightWordSuggested();
    void aLanguageThatIsNotThereGivesNoDictionary();
    void anotherRegionIsNoAnswer();
    void aLearnedWordIsKnownAtTheNextStart();
    void anIgnoredWordIsForgottenAtTheNextStart();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
};

void PLSpellDictionaryTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("ENCHANT_CONFIG_DIR", QFile::encodeName(m_folder->path()));
}

void PLSpellDictionaryTest::cleanup()
{
    m_folder.reset();
}

void PLSpellDictionaryTest::wordsOfTheLanguageAreKnown_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("known");

    QTest::newRow("French") << u"fr_FR"_s << u"bibliothèque"_s << true;
    QTest::newRow("French mistake") << u"fr_FR"_s << u"biblioteque"_s << false;
    QTest::newRow("ligature") << u"fr_FR"_s << u"cœur"_s << true;
    QTest::newRow("at the start of a sentence") << u"fr_FR"_s << u"Élan"_s << true;
    QTest::newRow("English") << u"en_US"_s << u"color"_s << true;
    QTest::newRow("English mistake") << u"en_US"_s << u"teh"_s << false;
    QTest::newRow("contraction") << u"en_US"_s << u"don't"_s << true;
}

void PLSpellDictionaryTest::wordsOfTheLanguageAreKnown()
{
    QFETCH(QString, language);
    QFETCH(QString, word);
    const auto dictionary = PLLoadSpellDictionary(language);
    QVERIFY(dictionary);

    QTEST(dictionary->contains(word), "known");
}

void PLSpellDictionaryTest::aMistakeGetsTheRightWordSuggested()
{
    QVERIFY(PLLoadSpellDictionary(u"fr_FR"_s)->suggestions(u"biblioteque"_s).contains(u"bibliothèque"_s));
    QVERIFY(PLLoadSpellDictionary(u"en_US"_s)->suggestions(u"teh"_s).contains(u"the"_s));
}

void PLSpellDictionaryTest::aLanguageThatIsNotThereGivesNoDictionary()
{
    QVERIFY(!PLLoadSpellDictionary(u"tlh_AQ"_s));
    QVERIFY(!PLLoadSpellDictionary(QString()));
}

/// Enchant itself answers with the American one here.
void PLSpellDictionaryTest::anotherRegionIsNoAnswer()
{
    if (QFile::exists(u"/usr/share/hunspell/en_GB.dic"_s))
        QSKIP("a British dictionary is installed");
    QVERIFY(!PLLoadSpellDictionary(u"en_GB"_s));
}

void PLSpellDictionaryTest::aLearnedWordIsKnownAtTheNextStart()
{
    auto dictionary = PLLoadSpellDictionary(u"fr_FR"_s);
    dictionary->learn(u"zorglubité"_s);
    QVERIFY(dictionary->contains(u"zorglubité"_s));

    dictionary = PLLoadSpellDictionary(u"fr_FR"_s);

    QVERIFY(dictionary->contains(u"zorglubité"_s));
    QVERIFY(QFile::exists(m_folder->filePath(u"fr_FR.dic"_s)));
}

void PLSpellDictionaryTest::anIgnoredWordIsForgottenAtTheNextStart()
{
    auto dictionary = PLLoadSpellDictionary(u"fr_FR"_s);
    dictionary->ignore(u"zorglubité"_s);
    QVERIFY(dictionary->contains(u"zorglubité"_s));

    dictionary = PLLoadSpellDictionary(u"fr_FR"_s);

    QVERIFY(!dictionary->contains(u"zorglubité"_s));
}

QTEST_APPLESS_MAIN(PLSpellDictionaryTest)
#include "PLSpellDictionaryTest.moc"

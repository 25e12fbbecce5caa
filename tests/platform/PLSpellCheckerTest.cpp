// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSpellChecker.h"

#include "PLSpellTestDictionary.h"
#include "support/PLTestEnvironment.h"

#include <QSignalSpy>
#include <QTest>

#include <map>

using namespace Qt::StringLiterals;

class PLSpellCheckerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void onlyWhatIsWrongIsFound_data();
    void onlyWhatIsWrongIsFound();
    void theDictionaryIsLoadedWhenFirstNeeded();
    void withoutADictionaryNothingIsWrong();
    void theInterfaceLanguageIsTheLanguage();
    void aWordIsAskedOnceAndNeverEmpty();
    void theCacheHasALimit();
    void learningAndIgnoringForgetWhatWasFound();
    void theNextMistakeIsFoundAcrossLines_data();
    void theNextMistakeIsFoundAcrossLines();
    void theMistakeAtAPositionIsFoundFromItsEdges();
    void suggestionsKeepTheApostrophe();
    void theWindowsShareOneAsLongAsTheyLive();
    void theChoiceIsRemembered();

private:
    PLSpellChecker::Loader testLoader()
    {
        return [this](const QString &language) {
            m_language = language;
            return std::make_unique<PLSpellTestDictionary>(m_notes);
        };
    }

    PLTestEnvironment m_environment;
    QTemporaryDir m_enchantFolder;
    PLSpellTestDictionary::Notes m_notes;
    QString m_language;
};

void PLSpellCheckerTest::initTestCase()
{
    qputenv("ENCHANT_CONFIG_DIR", QFile::encodeName(m_enchantFolder.path()));
}

void PLSpellCheckerTest::onlyWhatIsWrongIsFound_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("wrong"); // separated by "|"

    QTest::newRow("right") << u"fr_FR"_s << u"Le chat dort sur l'aperçu d’aujourd’hui."_s << u""_s;
    QTest::newRow("wrong") << u"fr_FR"_s << u"Le chatt dorrt."_s << u"chatt|dorrt"_s;
    QTest::newRow("behind an elision") << u"fr_FR"_s << u"l'apercu, qu’ille, jusqu’a"_s << u"apercu|ille"_s;
    QTest::newRow("elision before a name") << u"fr_FR"_s << u"d'Aquilane"_s << u"Aquilane"_s;
    QTest::newRow("no elision") << u"fr_FR"_s << u"prud'hommme"_s << u"prud'hommme"_s;
    QTest::newRow("compounds") << u"fr_FR"_s << u"week-end, arc-en-ciel, vas-y, a-t-il, dit-elle"_s << u""_s;
    QTest::newRow("part of a compound") << u"fr_FR"_s << u"dit-ellle l'arc-en-ciell"_s << u"ellle|ciell"_s;
    QTest::newRow("centuries") << u"fr_FR"_s << u"le XIXe siècle"_s << u""_s;
    QTest::newRow("of two code points")
        << u"fr_FR"_s << u"e\u0301te\u0301 ete\u0301e\u0301"_s << u"ete\u0301e\u0301"_s;
    QTest::newRow("ligatures") << u"fr_FR"_s << u"cœur sœur œuvre"_s << u""_s;
    QTest::newRow("soft hyphen") << u"fr_FR"_s << u"mai\u00adson"_s << u""_s;
    QTest::newRow("English") << u"en_US"_s << u"Don’t, it's teh well-known cat's colour."_s
                             << u"teh|colour"_s;
    QTest::newRow("possessive") << u"en_US"_s << u"Aquilane's"_s << u"Aquilane"_s;
}

void PLSpellCheckerTest::onlyWhatIsWrongIsFound()
{
    QFETCH(QString, language);
    QFETCH(QString, line);
    static std::map<QString, std::unique_ptr<PLSpellChecker>> checkers; // loading takes its time
    if (!checkers[language])
        checkers[language] = std::make_unique<PLSpellChecker>(language);
    QStringList wrong;
    const QList<PLTextRange> ranges = checkers[language]->misspellings(line);
    for (const PLTextRange &range : ranges)
        wrong.append(line.sliced(range.position, range.length));

    QTEST(wrong.join(u'|'), "wrong");
}

void PLSpellCheckerTest::theDictionaryIsLoadedWhenFirstNeeded()
{
    m_notes = {};
    PLSpellChecker checker(u"fr_FR"_s, testLoader());
    QVERIFY(!checker.isLoaded());
    QCOMPARE(m_notes.loads, 0);

    QVERIFY(!checker.misspellings(u"mot"_s).isEmpty());
    checker.misspellings(u"autre"_s);

    QVERIFY(checker.isLoaded());
    QCOMPARE(m_notes.loads, 1);
}

void PLSpellCheckerTest::withoutADictionaryNothingIsWrong()
{
    int loads = 0;
    PLSpellChecker checker(u"fr_FR"_s, [&loads](const QString &) {
        ++loads;
        return std::unique_ptr<PLSpellDictionary>();
    });

    QVERIFY(!checker.isAvailable());
    QVERIFY(checker.misspellings(u"qsdfgh"_s).isEmpty());
    QVERIFY(!checker.nextMisspelling(u"qsdfgh"_s, 0));
    QVERIFY(checker.suggestions(u"qsdfgh"_s).isEmpty());
    checker.learn(u"qsdfgh"_s);
    checker.ignore(u"qsdfgh"_s);
    QCOMPARE(loads, 1);
    QCOMPARE(checker.packageName(), u"hunspell-fr"_s);
    QCOMPARE(PLSpellChecker(u"en_US"_s).packageName(), u"hunspell-en-us"_s);
}

void PLSpellCheckerTest::theInterfaceLanguageIsTheLanguage()
{
    m_environment.setLanguage(u"en"_s);
    PLSpellChecker english(QString(), testLoader());
    QVERIFY(english.isAvailable());
    QCOMPARE(m_language, u"en_US"_s);

    m_environment.setLanguage(u"fr"_s);
    PLSpellChecker french(QString(), testLoader());
    QVERIFY(french.isAvailable());
    QCOMPARE(m_language, u"fr_FR"_s);
}

void PLSpellCheckerTest::aWordIsAskedOnceAndNeverEmpty()
{
    m_notes = {};
    m_notes.words = {u"chat"_s, u"l'été"_s};
    PLSpellChecker checker(u"fr_FR"_s, testLoader());

    for (int round = 0; round < 3; ++round)
        QVERIFY(
            checker.misspellings(u"chat l'été l’été l’e\u0301te\u0301 --- ' - '' \u00ad\u00ad"_s).isEmpty());
    QVERIFY(checker.suggestions(QString()).isEmpty());

    QCOMPARE(m_notes.checked, (QStringList{u"chat"_s, u"l'été"_s}));
    QCOMPARE(m_notes.suggestionRequests, 0);
}

void PLSpellCheckerTest::theCacheHasALimit()
{
    m_notes = {};
    PLSpellChecker checker(u"fr_FR"_s, testLoader());
    const auto wordOf = [](int number) {
        QString word = u"xx"_s;
        for (; number > 0; number /= 26)
            word += QChar(u'a' + number % 26);
        return word;
    };
    for (int number = 0; number < PLSpellChecker::CacheLimit + 100; ++number) {
        checker.misspellings(wordOf(number));
        QVERIFY(checker.cachedWordCount() <= PLSpellChecker::CacheLimit);
    }
    QVERIFY(checker.cachedWordCount() > 0);
}

void PLSpellCheckerTest::learningAndIgnoringForgetWhatWasFound()
{
    m_notes = {};
    PLSpellChecker checker(u"fr_FR"_s, testLoader());
    QSignalSpy changes(&checker, &PLSpellChecker::wordsDidChange);
    QCOMPARE(checker.misspellings(u"zorg l’ubu"_s).size(), 2);

    checker.learn(u"zorg"_s);
    checker.ignore(u"l’ubu"_s);

    QCOMPARE(changes.count(), 2);
    QVERIFY(checker.misspellings(u"zorg l’ubu"_s).isEmpty());
    QCOMPARE(m_notes.learned, QStringList{u"zorg"_s});
    QCOMPARE(m_notes.ignored, QStringList{u"l'ubu"_s});
}

void PLSpellCheckerTest::theNextMistakeIsFoundAcrossLines_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("position"); // -1 for none

    QTest::newRow("start") << 0 << 3;
    QTest::newRow("at the mistake") << 3 << 3;
    QTest::newRow("in the mistake") << 4 << 12;
    QTest::newRow("at a line end") << 7 << 12;
    QTest::newRow("behind the last") << 13 << -1;
    QTest::newRow("end") << 19 << -1;
}

void PLSpellCheckerTest::theNextMistakeIsFoundAcrossLines()
{
    QFETCH(int, from);
    m_notes = {};
    m_notes.words = {u"un"_s, u"deux"_s, u"ab"_s};
    PLSpellChecker checker(u"fr_FR"_s, testLoader());

    const auto found = checker.nextMisspelling(u"un xyzt\n\nab zz deux"_s, from);

    QTEST(int(found ? found->position : -1), "position");
}

void PLSpellCheckerTest::theMistakeAtAPositionIsFoundFromItsEdges()
{
    m_notes = {};
    m_notes.words = {u"un"_s};
    PLSpellChecker checker(u"fr_FR"_s, testLoader());
    const QString text = u"un\nun xyzt un"_s;

    QVERIFY(!checker.misspellingAt(text, 5));
    for (int position = 6; position <= 10; ++position)
        QCOMPARE(checker.misspellingAt(text, position), std::optional(PLTextRange{6, 4}));
    QVERIFY(!checker.misspellingAt(text, 11));
    QVERIFY(!checker.misspellingAt(text, 0));
    QVERIFY(!checker.misspellingAt(text, int(text.size())));
}

void PLSpellCheckerTest::suggestionsKeepTheApostrophe()
{
    PLSpellChecker checker(u"fr_FR"_s, testLoader());

    QCOMPARE(checker.suggestions(u"l'ubu"_s), (QStringList{u"l'ubu1"_s, u"l'l'ubu"_s}));
    QCOMPARE(checker.suggestions(u"l’ubu"_s), (QStringList{u"l’ubu1"_s, u"l’l’ubu"_s}));
}

void PLSpellCheckerTest::theWindowsShareOneAsLongAsTheyLive()
{
    auto first = PLSpellChecker::shared();
    const std::weak_ptr<PLSpellChecker> watched = first;
    auto second = PLSpellChecker::shared();
    QCOMPARE(first, second);
    QVERIFY(!first->isLoaded());

    first.reset();
    second.reset();
    QVERIFY(watched.expired());
}

void PLSpellCheckerTest::theChoiceIsRemembered()
{
    m_environment.forgetPreferences();
    PLSpellChecker checker(u"fr_FR"_s, testLoader());
    QSignalSpy changes(&checker, &PLSpellChecker::continuousDidChange);
    QVERIFY(checker.isContinuous());

    checker.setContinuous(true);
    QCOMPARE(changes.count(), 0);
    checker.setContinuous(false);

    QCOMPARE(changes.count(), 1);
    QVERIFY(!PLSpellChecker(u"fr_FR"_s, testLoader()).isContinuous());
    QCOMPARE(PLPreferences::store().value(u"PLContinuousSpellChecking"_s), QVariant(false));
}

QTEST_GUILESS_MAIN(PLSpellCheckerTest)
#include "PLSpellCheckerTest.moc"

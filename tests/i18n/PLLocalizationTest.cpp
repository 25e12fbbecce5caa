// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "i18n/PLLocalization.h"

#include "i18n/PLStringTable.h"
#include "support/PLTestEnvironment.h"

#include <QTest>

using namespace Qt::StringLiterals;

class PLLocalizationTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void languagesAreFrenchAndEnglish();
    void theSystemsLanguageIsTheFirstAvailable_data();
    void theSystemsLanguageIsTheFirstAvailable();
    void theChosenLanguageIsPreferred_data();
    void theChosenLanguageIsPreferred();
    void choosingALanguageChangesTheNextRunOnly();
    void choosingAnUnknownLanguageIsIgnored();
    void everyTextStaysInFrench();
    void textsAreTranslatedIntoEnglish();
    void aMissingTextStaysMissing();
    void theLocaleFollowsTheLanguage();
    void countsArePlural_data();
    void countsArePlural();

private:
    PLTestEnvironment m_environment;
};

void PLLocalizationTest::init()
{
    m_environment.forgetPreferences();
}

void PLLocalizationTest::languagesAreFrenchAndEnglish()
{
    QCOMPARE(PLLocalization::availableLanguages(), (QStringList{u"fr"_s, u"en"_s}));
    QCOMPARE(PLLocalization::nameOfLanguage(u"en"_s), u"English"_s);
    QCOMPARE(PLLocalization::nameOfLanguage(u"fr"_s), u"Français"_s);
    QCOMPARE(PLLocalization::nameOfLanguage(u"de"_s), u"Français"_s);
}

void PLLocalizationTest::theSystemsLanguageIsTheFirstAvailable_data()
{
    QTest::addColumn<QStringList>("languages");
    QTest::addColumn<QString>("language");
    QTest::newRow("French") << QStringList{u"fr"_s} << u"fr"_s;
    QTest::newRow("French of Canada") << QStringList{u"fr-CA"_s, u"en"_s} << u"fr"_s;
    QTest::newRow("English with a low line") << QStringList{u"en_GB"_s, u"fr"_s} << u"en"_s;
    QTest::newRow("German, then French") << QStringList{u"de"_s, u"fr"_s} << u"fr"_s;
    QTest::newRow("German alone") << QStringList{u"de"_s} << u"en"_s;
    QTest::newRow("none") << QStringList{} << u"en"_s;
    QTest::newRow("a code that only begins so") << QStringList{u"fry"_s, u"enx-GB"_s, u"fr-FR"_s} << u"fr"_s;
    QTest::newRow("a script in between") << QStringList{u"fr-Latn-FR"_s} << u"fr"_s;
    QTest::newRow("capitals are another code") << QStringList{u"FR"_s} << u"en"_s;
}

void PLLocalizationTest::theSystemsLanguageIsTheFirstAvailable()
{
    QFETCH(QStringList, languages);
    QTEST(PLLocalization::systemLanguage(languages), "language");
}

void PLLocalizationTest::theChosenLanguageIsPreferred_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("preferred");
    const QString system = PLLocalization::systemLanguage();
    QTest::newRow("French") << u"fr"_s << u"fr"_s;
    QTest::newRow("English") << u"en"_s << u"en"_s;
    QTest::newRow("one that is not available") << u"de"_s << system;
    QTest::newRow("a variety") << u"fr-CA"_s << system;
    QTest::newRow("an empty one") << u""_s << system;
    QTest::newRow("none") << QString() << system;
}

void PLLocalizationTest::theChosenLanguageIsPreferred()
{
    QFETCH(QString, stored);
    if (!stored.isNull())
        PLPreferences::store().setValue(u"PLInterfaceLanguage"_s, stored);
    QTEST(PLLocalization::preferredLanguage(), "preferred");
    QTEST(PLLocalization::currentLanguage(), "preferred");
}

void PLLocalizationTest::choosingALanguageChangesTheNextRunOnly()
{
    m_environment.setLanguage(u"fr"_s);
    QCOMPARE(PLLocalization::currentLanguage(), u"fr"_s);
    PLLocalization::setPreferredLanguage(u"en"_s);
    QCOMPARE(PLLocalization::currentLanguage(), u"fr"_s);
    QVERIFY(!PLLocalization::isEnglish());
    QCOMPARE(PLLocalizedString(u"Fichier"_s), u"Fichier"_s);
    QCOMPARE(PLLocalization::preferredLanguage(), u"en"_s);

    const QSettings onDisk(m_environment.preferencesFile(), QSettings::IniFormat);
    QCOMPARE(onDisk.value(u"PLInterfaceLanguage"_s).toString(), u"en"_s);
    QCOMPARE(onDisk.value(u"AppleLanguages"_s).toStringList(), QStringList{u"en"_s});

    PLLocalization::forgetCurrentLanguage(); // as the next start of the program does
    QCOMPARE(PLLocalization::currentLanguage(), u"en"_s);
}

void PLLocalizationTest::choosingAnUnknownLanguageIsIgnored()
{
    PLLocalization::setPreferredLanguage(u"de"_s);
    QVERIFY(!PLPreferences::store().contains(u"PLInterfaceLanguage"_s));
    QVERIFY(!PLPreferences::store().contains(u"AppleLanguages"_s));
    PLLocalization::setPreferredLanguage(u"fr"_s);
    PLLocalization::setPreferredLanguage(u"de"_s);
    QCOMPARE(PLLocalization::preferredLanguage(), u"fr"_s);
}

void PLLocalizationTest::everyTextStaysInFrench()
{
    m_environment.setLanguage(u"fr"_s);
    for (const PLStringPair &pair : PLStringTable()) {
        const QString french = QString::fromUtf16(pair.french);
        QCOMPARE(PLLocalizedString(french), french);
        QCOMPARE(PLLocalization::string(french, u"de"_s), french);
    }
    QCOMPARE(PLLocalizedString(u"Pas dans la table"_s), u"Pas dans la table"_s);
}

void PLLocalizationTest::textsAreTranslatedIntoEnglish()
{
    m_environment.setLanguage(u"en"_s);
    QCOMPARE(PLLocalizedString(u"Fichier"_s), u"File"_s);
    QCOMPARE(PLLocalizedString(u"Pas dans la table"_s), u"Pas dans la table"_s);
    QCOMPARE(PLLocalization::string(u"Fichier"_s, u"fr"_s), u"Fichier"_s);
}

void PLLocalizationTest::aMissingTextStaysMissing()
{
    QVERIFY(PLLocalization::string(QString(), u"en"_s).isNull());
    QVERIFY(PLLocalization::string(QString(), u"fr"_s).isNull());
}

void PLLocalizationTest::theLocaleFollowsTheLanguage()
{
    m_environment.setLanguage(u"fr"_s);
    QCOMPARE(PLLocalization::localeIdentifier(), u"fr_FR"_s);
    m_environment.setLanguage(u"en"_s);
    QCOMPARE(PLLocalization::localeIdentifier(), u"en_US"_s);
    QVERIFY(PLLocalization::isEnglish());
}

void PLLocalizationTest::countsArePlural_data()
{
    QTest::addColumn<qint64>("count");
    QTest::addColumn<bool>("inFrench");
    QTest::addColumn<bool>("inEnglish");
    QTest::newRow("0") << qint64(0) << false << true;
    QTest::newRow("1") << qint64(1) << false << false;
    QTest::newRow("2") << qint64(2) << true << true;
    QTest::newRow("5 thousand millions") << qint64(5'000'000'000) << true << true;
    QTest::newRow("-1") << qint64(-1) << false << true;
}

void PLLocalizationTest::countsArePlural()
{
    QFETCH(qint64, count);
    m_environment.setLanguage(u"fr"_s);
    QTEST(PLLocalization::isPlural(count), "inFrench");
    m_environment.setLanguage(u"en"_s);
    QTEST(PLLocalization::isPlural(count), "inEnglish");
}

QTEST_GUILESS_MAIN(PLLocalizationTest)
#include "PLLocalizationTest.moc"

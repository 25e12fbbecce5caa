// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "i18n/PLDesktopStrings.h"

#include "support/PLTestEnvironment.h"

#include <QTest>

#include <cerrno>

using namespace Qt::StringLiterals;

class PLDesktopStringsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void fileErrorsAreSentencesInBothLanguages_data();
    void fileErrorsAreSentencesInBothLanguages();
    void everyFileErrorIsTranslated();
    void anUnknownErrorNamesItsNumber();
    void aTextThatIsNotInTheTableStays();

private:
    PLTestEnvironment m_environment;
};

void PLDesktopStringsTest::fileErrorsAreSentencesInBothLanguages_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("french");
    QTest::addColumn<QString>("english");
    QTest::newRow("no space") << ENOSPC << u"Il n'y a plus de place sur le disque."_s
                              << u"There is no space left on the disk."_s;
    QTest::newRow("not there") << ENOENT << u"Le fichier ou le dossier n'existe pas ou plus."_s
                               << u"The file or folder doesn't exist, or no longer exists."_s;
    QTest::newRow("not allowed") << EACCES
                                 << u"Vous n'avez pas le droit d'accéder à ce fichier ou à ce dossier."_s
                                 << u"You don't have permission to access this file or folder."_s;
    QTest::newRow("taken") << EEXIST << u"Un fichier de ce nom existe déjà."_s
                           << u"A file of this name already exists."_s;
}

void PLDesktopStringsTest::fileErrorsAreSentencesInBothLanguages()
{
    QFETCH(int, number);
    m_environment.setLanguage(u"fr"_s);
    QTEST(PLFileErrorMessage(number), "french");
    m_environment.setLanguage(u"en"_s);
    QTEST(PLFileErrorMessage(number), "english");
}

void PLDesktopStringsTest::everyFileErrorIsTranslated()
{
    for (const int number :
         {ENOSPC, EDQUOT, EROFS,   EACCES, EPERM, ENOENT, ENODEV, EEXIST, ENAMETOOLONG, EFBIG, EIO,
          EINVAL, ELOOP,  ENOTDIR, EISDIR, EBUSY, EXDEV,  EMFILE, ENFILE, EILSEQ,       EPROTO}) {
        m_environment.setLanguage(u"fr"_s);
        const QString french = PLFileErrorMessage(number);
        m_environment.setLanguage(u"en"_s);
        const QString english = PLFileErrorMessage(number);
        QVERIFY2(!french.isEmpty() && !english.isEmpty() && french != english, qPrintable(french));
        QVERIFY(!french.contains(u'%') && french.endsWith(u'.') && english.endsWith(u'.'));
    }
}

void PLDesktopStringsTest::anUnknownErrorNamesItsNumber()
{
    m_environment.setLanguage(u"fr"_s);
    QVERIFY(PLFileErrorMessage(98765).contains(u"98765"_s));
    m_environment.setLanguage(u"en"_s);
    QVERIFY(PLFileErrorMessage(98765).contains(u"98765"_s));
}

void PLDesktopStringsTest::aTextThatIsNotInTheTableStays()
{
    m_environment.setLanguage(u"en"_s);
    QCOMPARE(PLDesktopString(u"Pas dans la table"_s), u"Pas dans la table"_s);
}

QTEST_GUILESS_MAIN(PLDesktopStringsTest)
#include "PLDesktopStringsTest.moc"

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLTagCompletion.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class PLTagCompletionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsTypedProposesTags_data();
    void whatIsTypedProposesTags();
    void addedTagsAreSpelledAsTheNotebookHasThem_data();
    void addedTagsAreSpelledAsTheNotebookHasThem();
    void theAddingIsToldAfterwards();

private:
    PLTagCompletion m_completion{[] { return QStringList{u"Paris"_s, u"Pékin"_s, u"port"_s}; }};
};

void PLTagCompletionTest::whatIsTypedProposesTags_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("proposed");

    QTest::newRow("without the accent") << u"pe"_s << QStringList() << QStringList{u"Pékin"_s};
    QTest::newRow("one letter") << u"P"_s << QStringList() << QStringList{u"Paris"_s, u"Pékin"_s, u"port"_s};
    QTest::newRow("nothing but spaces")
        << u"  "_s << QStringList() << QStringList{u"Paris"_s, u"Pékin"_s, u"port"_s};
    QTest::newRow("spaces around") << u" po\t"_s << QStringList() << QStringList{u"port"_s};
    QTest::newRow("one is there") << u"p"_s << QStringList{u"Paris"_s} << QStringList{u"Pékin"_s, u"port"_s};
    QTest::newRow("there in another case")
        << u"p"_s << QStringList{u"PARIS"_s} << QStringList{u"Pékin"_s, u"port"_s};
    QTest::newRow("there with another accent")
        << u"pa"_s << QStringList{u"Páris"_s} << QStringList{u"Paris"_s};
    QTest::newRow("the middle of a tag") << u"ris"_s << QStringList() << QStringList();
}

void PLTagCompletionTest::whatIsTypedProposesTags()
{
    QFETCH(QString, typed);
    QFETCH(QStringList, present);
    QFETCH(QStringList, proposed);

    QCOMPARE(m_completion.completionsForSubstring(typed, present), proposed);
}

void PLTagCompletionTest::addedTagsAreSpelledAsTheNotebookHasThem_data()
{
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QStringList>("added");

    QTest::newRow("without the accent") << QStringList{u"pekin"_s} << QStringList{u"Pékin"_s};
    QTest::newRow("unknown") << QStringList{u"Lyon"_s} << QStringList{u"Lyon"_s};
    QTest::newRow("spaces and empty ones") << QStringList{u" PORT "_s, u""_s} << QStringList{u"port"_s};
    QTest::newRow("a longer tag") << QStringList{u"Parisien"_s} << QStringList{u"Parisien"_s};
    QTest::newRow("two that are the same")
        << QStringList{u"pékin"_s, u"pekin"_s} << QStringList{u"Pékin"_s, u"Pékin"_s};
}

void PLTagCompletionTest::addedTagsAreSpelledAsTheNotebookHasThem()
{
    QFETCH(QStringList, typed);
    QFETCH(QStringList, added);

    QCOMPARE(m_completion.shouldAddObjects(typed, 0), added);
}

void PLTagCompletionTest::theAddingIsToldAfterwards()
{
    PLTagCompletion completion([] { return QStringList(); });
    QSignalSpy added(&completion, &PLTagCompletion::tagsAdded);

    completion.shouldAddObjects({u"Lyon"_s}, 0);
    QCOMPARE(added.count(), 0);
    QTRY_COMPARE(added.count(), 1);
}

QTEST_GUILESS_MAIN(PLTagCompletionTest)
#include "PLTagCompletionTest.moc"

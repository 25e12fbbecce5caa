// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "zoo/PLZooWalk.h"

#include <QTest>

/// Hostile notebooks, in the real windows: nothing crashes, nothing waits, nothing is changed that was not
/// edited.
class PLZooNotebooksTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void notebooksWithAnyName_data();
    void notebooksWithAnyName();
    void notebooksWithAnyMetadata_data();
    void notebooksWithAnyMetadata();
    void notebooksWithAnySections_data();
    void notebooksWithAnySections();
    void multitudesAndDepths_data();
    void multitudesAndDepths();
    void notebooksWithAnyCover_data();
    void notebooksWithAnyCover();

private:
    PLZooWalk m_walk;
};

void PLZooNotebooksTest::notebooksWithAnyName_data()
{
    PLZooWalk::addRows(PLZooFolderNames());
}

void PLZooNotebooksTest::notebooksWithAnyName()
{
    const QString wrong = m_walk.visit(PLZooFolderNames());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PLZooNotebooksTest::notebooksWithAnyMetadata_data()
{
    PLZooWalk::addRows(PLZooMetadata());
}

void PLZooNotebooksTest::notebooksWithAnyMetadata()
{
    const QString wrong = m_walk.visit(PLZooMetadata());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PLZooNotebooksTest::notebooksWithAnySections_data()
{
    PLZooWalk::addRows(PLZooSections());
}

void PLZooNotebooksTest::notebooksWithAnySections()
{
    const QString wrong = m_walk.visit(PLZooSections());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PLZooNotebooksTest::multitudesAndDepths_data()
{
    PLZooWalk::addRows(PLZooMultitudes());
}

void PLZooNotebooksTest::multitudesAndDepths()
{
    const QString wrong = m_walk.visit(PLZooMultitudes());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PLZooNotebooksTest::notebooksWithAnyCover_data()
{
    PLZooWalk::addRows(PLZooCovers());
}

void PLZooNotebooksTest::notebooksWithAnyCover()
{
    const QString wrong = m_walk.visit(PLZooCovers());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

QTEST_MAIN(PLZooNotebooksTest)
#include "PLZooNotebooksTest.moc"

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "zoo/PLZooWalk.h"

#include <QTest>

/// Hostile pages, in the real windows: nothing crashes, nothing waits, nothing is changed that was not
/// edited.
class PLZooPagesTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pagesWithAnyName_data();
    void pagesWithAnyName();
    void pagesWithAnyText_data();
    void pagesWithAnyText();
    void hugePages_data();
    void hugePages();
    void pagesThatAreNoFiles_data();
    void pagesThatAreNoFiles();
    void pagesThatMayNotBeReadOrWritten_data();
    void pagesThatMayNotBeReadOrWritten();
    void pagesWithAnyHeader_data();
    void pagesWithAnyHeader();

private:
    PLZooWalk m_walk;
};

void PLZooPagesTest::pagesWithAnyName_data()
{
    PLZooWalk::addRows(PLZooPageNames());
}

void PLZooPagesTest::pagesWithAnyName()
{
    const QString wrong = m_walk.visit(PLZooPageNames());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PLZooPagesTest::pagesWithAnyText_data()
{
    PLZooWalk::addRows(PLZooPageContents());
}

void PLZooPagesTest::pagesWithAnyText()
{
    const QString wrong = m_walk.visit(PLZooPageContents());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PLZooPagesTest::hugePages_data()
{
    PLZooWalk::addRows(PLZooHugePages());
}

void PLZooPagesTest::hugePages()
{
    const QString wrong = m_walk.visit(PLZooHugePages());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PLZooPagesTest::pagesThatAreNoFiles_data()
{
    PLZooWalk::addRows(PLZooPagesThatAreNoFiles());
}

void PLZooPagesTest::pagesThatAreNoFiles()
{
    const QString wrong = m_walk.visit(PLZooPagesThatAreNoFiles());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PLZooPagesTest::pagesThatMayNotBeReadOrWritten_data()
{
    PLZooWalk::addRows(PLZooPermissions());
}

void PLZooPagesTest::pagesThatMayNotBeReadOrWritten()
{
    const QString wrong = m_walk.visit(PLZooPermissions());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

void PLZooPagesTest::pagesWithAnyHeader_data()
{
    PLZooWalk::addRows(PLZooHeaders());
}

void PLZooPagesTest::pagesWithAnyHeader()
{
    const QString wrong = m_walk.visit(PLZooHeaders());
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
}

QTEST_MAIN(PLZooPagesTest)
#include "PLZooPagesTest.moc"

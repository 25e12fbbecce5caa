// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLKeyHandover.h"

#include <QLineEdit>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

/// Keys that go on to another window, which never gets the keyboard here.
class PLKeyHandoverTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itEndsByItself();
    void theNextOneEndsIt();
    void itEndsWithTheOtherWindow();
};

void PLKeyHandoverTest::itEndsByItself()
{
    QLineEdit first;
    QLineEdit other;
    PLKeyHandover::begin(&first, &other);
    QTest::keyClicks(&first, u"a"_s);
    QCOMPARE(other.text(), u"a"_s);

    QTRY_COMPARE(PLKeyHandover::target(), nullptr);

    QTest::keyClicks(&first, u"b"_s);
    QCOMPARE(first.text(), u"b"_s);
    QCOMPARE(other.text(), u"a"_s);
}

void PLKeyHandoverTest::theNextOneEndsIt()
{
    QLineEdit first;
    QLineEdit other;
    PLKeyHandover::begin(&first, &other);
    PLKeyHandover::begin(&other, &first);
    QCOMPARE(PLKeyHandover::target(), &first);

    QTest::keyClicks(&first, u"a"_s);
    QTest::keyClicks(&other, u"b"_s);

    QCOMPARE(first.text(), u"ab"_s);
    QCOMPARE(other.text(), QString());
}

void PLKeyHandoverTest::itEndsWithTheOtherWindow()
{
    QLineEdit first;
    auto other = std::make_unique<QLineEdit>();
    PLKeyHandover::begin(&first, other.get());
    other.reset();
    QCOMPARE(PLKeyHandover::target(), nullptr);

    QTest::keyClicks(&first, u"a"_s);

    QCOMPARE(first.text(), u"a"_s);
}

QTEST_MAIN(PLKeyHandoverTest)
#include "PLKeyHandoverTest.moc"

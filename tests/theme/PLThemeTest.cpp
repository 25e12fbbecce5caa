// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "theme/PLTheme.h"

#include <QFontDatabase>
#include <QTest>

using namespace Qt::StringLiterals;

class PLThemeTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coloursAreThoseOfPaperAndInk_data();
    void coloursAreThoseOfPaperAndInk();
    void aNumberThatIsNoSectionHasTheFaintInk();
    void fontsFallBackToTheSystemsOneALittleSmaller();
    void coloursBlendTowardsWhiteAndBlack();
};

void PLThemeTest::coloursAreThoseOfPaperAndInk_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("expected");

    QTest::newRow("paper") << PLTheme::paperColor() << u"#fffaf6ea"_s;
    QTest::newRow("ink") << PLTheme::inkColor() << u"#ff2b2621"_s;
    QTest::newRow("faint ink") << PLTheme::faintInkColor() << u"#ff8c8070"_s;
    QTest::newRow("cover") << PLTheme::coverColor() << u"#ffe8dec7"_s;
    QTest::newRow("margin line") << PLTheme::marginLineColor() << u"#73cc5959"_s;
    QTest::newRow("tags") << PLTheme::tagsColor() << u"#ff307880"_s;
    QTest::newRow("book") << PLTheme::colorForSection(PLSection::Book) << u"#ff9e3434"_s;
    QTest::newRow("characters") << PLTheme::colorForSection(PLSection::Characters) << u"#ff386299"_s;
    QTest::newRow("places") << PLTheme::colorForSection(PLSection::Places) << u"#ff4d8552"_s;
    QTest::newRow("sheets") << PLTheme::colorForSection(PLSection::Sheets) << u"#ffcc9933"_s;
    QTest::newRow("notes") << PLTheme::colorForSection(PLSection::Notes) << u"#ff7a5794"_s;
}

void PLThemeTest::coloursAreThoseOfPaperAndInk()
{
    QFETCH(QColor, color);
    QFETCH(QString, expected);

    QCOMPARE(color.name(QColor::HexArgb), expected);
}

void PLThemeTest::aNumberThatIsNoSectionHasTheFaintInk()
{
    QCOMPARE(PLTheme::colorForSection(PLSection(5)), PLTheme::faintInkColor());
    QCOMPARE(PLTheme::colorForSection(PLSection::None), PLTheme::faintInkColor());
}

void PLThemeTest::fontsFallBackToTheSystemsOneALittleSmaller()
{
    const bool hasGeorgia = QFontDatabase::hasFamily(u"Georgia"_s);

    QCOMPARE(PLTheme::editorFont().pixelSize(), hasGeorgia ? 17 : 16);
    QCOMPARE(PLTheme::titleFont().pixelSize(), hasGeorgia ? 22 : 20);
    QVERIFY(PLTheme::titleFont().bold());
    QCOMPARE(PLTheme::sidebarFont().pixelSize(), 13);
    QCOMPARE(PLTheme::sectionFont().pixelSize(), 11);
    QVERIFY(PLTheme::sectionFont().bold());
}

void PLThemeTest::coloursBlendTowardsWhiteAndBlack()
{
    QCOMPARE(PLTheme::highlighted(Qt::black, 0.25).name(), u"#404040"_s);
    QCOMPARE(PLTheme::shadowed(Qt::white, 0.2).name(), u"#cccccc"_s);
}

QTEST_MAIN(PLThemeTest)
#include "PLThemeTest.moc"

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarRowDelegate.h"

#include "notebook_window/PLSidebarModel.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestNotebook.h"
#include "theme/PLTheme.h"

#include <QImage>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

/// The pixels of the sidebar's rows, each drawn alone on white.
class PLSidebarRowDelegateTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aMarkIsWhereItBelongs_data();
    void aMarkIsWhereItBelongs();
    void theSixMarksHaveTheirColours();
    void aTextBeginsAfterItsInset_data();
    void aTextBeginsAfterItsInset();
    void aLongTitleEndsBeforeTheEdge();
    void onlyPageSectionsShowAnAddButton_data();
    void onlyPageSectionsShowAnAddButton();
    void aSelectedRowIsFilledToItsEdges();

private:
    enum Row { Section, Tags, Page, Tag, Reference };

    const PLSidebarNode *node(Row row) const;
    QImage drawn(const PLSidebarNode *node, bool isSelected = false) const;
    /// The smallest rectangle that holds all pixels of this image part that are not white.
    static QRect inkOf(const QImage &image, const QRect &part);

    static constexpr int width = 220;
    static constexpr int halfSpacing = 1;

    PLTestEnvironment m_environment;
    PLTestNotebook m_notebook;
    PLSidebarModel m_model;
    PLSidebarRowDelegate m_delegate;
};

void PLSidebarRowDelegateTest::init()
{
    m_notebook.write(u"Livre/01 - HHHH.md"_s, u"---\ntags: HHHH\n---\n"_s);
    m_notebook.write(u"Lieux/%1.md"_s.arg(QString(100, u'H')), u""_s);
    m_model.readProject(*m_notebook.open());
}

const PLSidebarNode *PLSidebarRowDelegateTest::node(Row row) const
{
    const PLSidebarTree &tree = m_model.tree();
    switch (row) {
    case Section:
        return tree.section(PLSection::Book);
    case Tags:
        return tree.tagSection();
    case Page:
        return tree.section(PLSection::Book)->children()[0];
    case Tag:
        return tree.tagSection()->children()[0];
    case Reference:
        break;
    }
    return tree.tagSection()->children()[0]->children()[0];
}

QImage PLSidebarRowDelegateTest::drawn(const PLSidebarNode *node, bool isSelected) const
{
    const QModelIndex index = m_model.indexForNode(node);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, width, m_delegate.sizeHint(option, index).height());
    option.state = QStyle::State_Enabled | QStyle::State_Active;
    option.state.setFlag(QStyle::State_Selected, isSelected);
    option.palette.setColor(QPalette::Active, QPalette::Highlight, Qt::blue);
    QImage image(option.rect.size(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    m_delegate.paint(&painter, option, index);
    return image;
}

QRect PLSidebarRowDelegateTest::inkOf(const QImage &image, const QRect &part)
{
    QRect ink;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            if (image.pixelColor(x, y) != QColor(Qt::white))
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

void PLSidebarRowDelegateTest::aMarkIsWhereItBelongs_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QRect>("bounds"); // the colour is one point less high at both ends

    QTest::newRow("section") << int(Section) << QRect(0, 7, 6, 15);
    QTest::newRow("tag section") << int(Tags) << QRect(0, 7, 6, 15);
    QTest::newRow("page under a tag") << int(Reference) << QRect(2, 5, 4, 12);
    QTest::newRow("page") << int(Page) << QRect();
    QTest::newRow("tag") << int(Tag) << QRect();
}

void PLSidebarRowDelegateTest::aMarkIsWhereItBelongs()
{
    QFETCH(int, row);
    QFETCH(QRect, bounds);
    const QImage image = drawn(node(Row(row)));
    const QRect left(0, 0, bounds.isNull() ? 2 : 11, image.height());

    const QRect expected =
        bounds.isNull() ? QRect() : bounds.adjusted(0, 1, 0, -1).translated(0, halfSpacing);
    QCOMPARE(inkOf(image, left), expected);
}

void PLSidebarRowDelegateTest::theSixMarksHaveTheirColours()
{
    constexpr QPoint middle(3, halfSpacing + 14);
    for (const PLSection section : PLAllSections) {
        const QImage image = drawn(m_model.tree().section(section));
        QCOMPARE(image.pixelColor(middle).name(), PLTheme::colorForSection(section).name());
    }
    QCOMPARE(drawn(node(Tags)).pixelColor(middle).name(), PLTheme::tagsColor().name());
    QCOMPARE(drawn(node(Reference)).pixelColor(4, halfSpacing + 11).name(),
             PLTheme::colorForSection(PLSection::Book).name());
}

void PLSidebarRowDelegateTest::aTextBeginsAfterItsInset_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("inset");

    QTest::newRow("section") << int(Section) << 11;
    QTest::newRow("page") << int(Page) << 2;
    QTest::newRow("tag") << int(Tag) << 2;
    QTest::newRow("page under a tag") << int(Reference) << 11;
}

void PLSidebarRowDelegateTest::aTextBeginsAfterItsInset()
{
    QFETCH(int, row);
    QFETCH(int, inset);
    const QImage image = drawn(node(Row(row)));
    const int start = inset > 6 ? 7 : 0; // after the mark

    const QRect ink = inkOf(image, QRect(start, 0, width - 24 - start, image.height()));
    QVERIFY2(ink.left() >= inset && ink.left() <= inset + 2, qPrintable(QString::number(ink.left())));
    const int middle = image.height() / 2;
    QVERIFY2(qAbs(ink.center().y() - middle) <= 2, qPrintable(QString::number(ink.center().y())));
}

void PLSidebarRowDelegateTest::aLongTitleEndsBeforeTheEdge()
{
    const QImage image = drawn(m_model.tree().section(PLSection::Places)->children()[0]);

    const QRect ink = inkOf(image, image.rect());
    QVERIFY(ink.right() < width - 2);
    QVERIFY(ink.right() > width - 24);
}

void PLSidebarRowDelegateTest::onlyPageSectionsShowAnAddButton_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("isShown");

    QTest::newRow("section") << int(Section) << true;
    QTest::newRow("tag section") << int(Tags) << false;
    QTest::newRow("page") << int(Page) << false;
    QTest::newRow("tag") << int(Tag) << false;
}

void PLSidebarRowDelegateTest::onlyPageSectionsShowAnAddButton()
{
    QFETCH(int, row);
    QFETCH(bool, isShown);
    const QImage image = drawn(node(Row(row)));
    const QRect right(width - 26, 0, 26, image.height());
    const QRect button(width - 24, halfSpacing + 5, 20, 18);

    const QRect ink = inkOf(image, right);
    QCOMPARE(!ink.isNull(), isShown);
    QVERIFY(!isShown || button.contains(ink));
    QVERIFY(!isShown || PLSidebarRowDelegate::addButtonRect(image.rect()) == button);
    QVERIFY(!isShown || qAbs(ink.center().y() - button.center().y()) <= 1);
}

void PLSidebarRowDelegateTest::aSelectedRowIsFilledToItsEdges()
{
    const QImage image = drawn(node(Page), true);

    for (const QPoint corner : {image.rect().topLeft(), image.rect().topRight(), image.rect().bottomLeft(),
                                image.rect().bottomRight()})
        QCOMPARE(image.pixelColor(corner).name(), QColor(Qt::blue).name());
}

QTEST_MAIN(PLSidebarRowDelegateTest)
#include "PLSidebarRowDelegateTest.moc"

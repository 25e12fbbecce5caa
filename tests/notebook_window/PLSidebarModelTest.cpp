// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLSidebarModel.h"

#include "support/PLTestEnvironment.h"
#include "support/PLTestNotebook.h"

#include <QAbstractItemModelTester>
#include <QTest>

using namespace Qt::StringLiterals;

class PLSidebarModelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theModelKeepsTheRulesOfModels();
    void rowsSayWhatTheyAre_data();
    void rowsSayWhatTheyAre();
    void onlyPagesInTheirSectionCanBeRenamed();
    void nodesAndIndexesLeadToEachOther();

private:
    /// The index of the row that shows this text, looked for in the whole tree.
    static QModelIndex find(const QAbstractItemModel &model, const QString &text,
                            const QModelIndex &parent = {});

    PLTestEnvironment m_environment;
};

QModelIndex PLSidebarModelTest::find(const QAbstractItemModel &model, const QString &text,
                                     const QModelIndex &parent)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (index.data().toString() == text)
            return index;
        const QModelIndex below = find(model, text, index);
        if (below.isValid())
            return below;
    }
    return {};
}

void PLSidebarModelTest::theModelKeepsTheRulesOfModels()
{
    PLTestNotebook notebook;
    notebook.write(u"Livre/1 - A.md"_s, u"---\ntags: x, y\n---\n"_s);
    PLSidebarModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    QCOMPARE(model.rowCount(), 0);

    model.readProject(*notebook.open());
    QCOMPARE(model.rowCount(), 6);
    notebook.write(u"Livre/2 - B.md"_s, u""_s);
    model.readProject(*notebook.open());
    QCOMPARE(model.rowCount(model.index(0, 0)), 2);
    QVERIFY(QDir(notebook.path(u"Livre"_s)).removeRecursively());
    model.readProject(*notebook.open());
    QCOMPARE(model.rowCount(), 6);
    QCOMPARE(model.rowCount(model.index(0, 0)), 0);
}

void PLSidebarModelTest::rowsSayWhatTheyAre_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("toolTip");
    QTest::addColumn<QString>("heard"); // by who uses a screen reader

    QTest::newRow("full section") << u"fr"_s << u"LE LIVRE  ·  3"_s << QString() << u"Le livre, 3"_s;
    QTest::newRow("empty section") << u"fr"_s << u"LIEUX"_s << QString() << u"Lieux"_s;
    QTest::newRow("tag section") << u"fr"_s << u"TAGS  ·  1"_s << QString() << u"TAGS, 1"_s;
    QTest::newRow("tag") << u"fr"_s << u"# bal  (2)"_s << QString() << u"bal, 2"_s;
    QTest::newRow("chapter") << u"fr"_s << u"Le bal"_s << u"Chapitre 4"_s << u"Le bal"_s;
    QTest::newRow("chapter without number") << u"fr"_s << u"Prologue"_s << QString() << u"Prologue"_s;
    QTest::newRow("sheet") << u"fr"_s << u"Emma"_s << QString() << u"Emma"_s;
    QTest::newRow("full section, English") << u"en"_s << u"BOOK  ·  3"_s << QString() << u"Book, 3"_s;
    QTest::newRow("empty section, English") << u"en"_s << u"PLACES"_s << QString() << u"Places"_s;
    QTest::newRow("chapter, English") << u"en"_s << u"Le bal"_s << u"Chapter 4"_s << u"Le bal"_s;
}

void PLSidebarModelTest::rowsSayWhatTheyAre()
{
    QFETCH(QString, language);
    QFETCH(QString, text);
    QFETCH(QString, toolTip);
    QFETCH(QString, heard);
    m_environment.setLanguage(language);
    PLTestNotebook notebook;
    notebook.write(u"Livre/4 - Le bal.md"_s, u"---\ntags: bal\n---\n"_s);
    notebook.write(u"Livre/5 - Après.md"_s, u""_s);
    notebook.write(u"Livre/Prologue.md"_s, u""_s);
    notebook.write(u"Personnages/Emma.md"_s, u"---\ntags: Bal\n---\n"_s);
    PLSidebarModel model;
    model.readProject(*notebook.open());

    const QModelIndex index = find(model, text);
    QVERIFY2(index.isValid(), qPrintable(text));
    QCOMPARE(index.data(Qt::ToolTipRole).toString(), toolTip);
    QCOMPARE(index.data(Qt::AccessibleTextRole).toString(), heard);
    QCOMPARE(index.data(Qt::AccessibleDescriptionRole).toString(), toolTip);

    const QModelIndex reference = model.index(0, 0, find(model, u"# bal  (2)"_s));
    QCOMPARE(reference.data(Qt::ToolTipRole).toString(), language == u"en" ? u"Book"_s : u"Le livre"_s);
}

void PLSidebarModelTest::onlyPagesInTheirSectionCanBeRenamed()
{
    PLTestNotebook notebook;
    notebook.write(u"Livre/4 - Le bal.md"_s, u"---\ntags: bal\n---\n"_s);
    PLSidebarModel model;
    model.readProject(*notebook.open());
    const auto isEditable = [](const QModelIndex &index) {
        return index.flags().testFlag(Qt::ItemIsEditable);
    };

    const QModelIndex book = model.index(0, 0);
    const QModelIndex tag = model.index(0, 0, model.index(5, 0));
    QVERIFY(!isEditable(book));
    QVERIFY(isEditable(model.index(0, 0, book)));
    QVERIFY(!isEditable(tag));
    QVERIFY(!isEditable(model.index(0, 0, tag)));
}

void PLSidebarModelTest::nodesAndIndexesLeadToEachOther()
{
    PLTestNotebook notebook;
    notebook.write(u"Livre/4 - Le bal.md"_s, u"---\ntags: bal\n---\n"_s);
    PLSidebarModel model;
    model.readProject(*notebook.open());

    const PLSidebarNode *reference = model.tree().sidebarTagNamed(u"bal"_s)->children()[0];
    const QModelIndex index = model.indexForNode(reference);
    QCOMPARE(model.nodeForIndex(index), reference);
    QCOMPARE(index.parent().data().toString(), u"# bal  (1)"_s);
    QVERIFY(!model.indexForNode(nullptr).isValid());
    QVERIFY(!model.nodeForIndex(QModelIndex()));
}

QTEST_GUILESS_MAIN(PLSidebarModelTest)
#include "PLSidebarModelTest.moc"

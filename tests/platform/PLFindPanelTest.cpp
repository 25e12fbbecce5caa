// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLFindPanel.h"

#include "PLTextTestTarget.h"
#include "support/PLTestEnvironment.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class PLFindPanelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void returnFindsTheNextAndShiftReturnThePrevious();
    void whereOneIsIsSaid_data();
    void whereOneIsIsSaid();
    void typingShowsTheMatchesAndMovesNothing();
    void theOptionsCountAtOnce();
    void everythingIsReachedByTheKeyboard();
    void replacingIsShownOnlyIfAskedFor();
    void replaceAllSaysHowMany();
    void replaceAndFindGoesOn();
    void escapeClosesAndGivesTheTextTheKeyboard();
    void aSelectionIsProposed();
    void theOtherWindowsPanelLooksForTheSame();
    void aChangeOfTheTextIsFollowed();
    void withNothingToLookForNoButtonWorks();
    void everyControlHasANameForScreenReaders();
    void theShortcutsOfTheTextsWindowWorkInThePanel();
    void closeClosesThePanelAlone();
    void closeClosesThePanelAloneThoughItHasNoKeyboardYet();

private:
    QLineEdit *field(PLFindPanel &panel, const QString &name) const;
    QPushButton *button(PLFindPanel &panel, const QString &title) const;
    QString status(const PLFindPanel &panel) const;

    PLTestEnvironment m_environment;
};

void PLFindPanelTest::init()
{
    m_environment.setLanguage(u"fr"_s);
    PLFindTerms::shared() = {};
}

QLineEdit *PLFindPanelTest::field(PLFindPanel &panel, const QString &name) const
{
    const QList<QLineEdit *> fields = panel.findChildren<QLineEdit *>();
    for (QLineEdit *edit : fields) {
        if (edit->accessibleName() == name)
            return edit;
    }
    return nullptr;
}

QPushButton *PLFindPanelTest::button(PLFindPanel &panel, const QString &title) const
{
    const QList<QPushButton *> buttons = panel.findChildren<QPushButton *>();
    for (QPushButton *candidate : buttons) {
        if (candidate->text() == title)
            return candidate;
    }
    return nullptr;
}

QString PLFindPanelTest::status(const PLFindPanel &panel) const
{
    const QList<QLabel *> labels = panel.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (!label->buddy())
            return label->text();
    }
    return QString();
}

void PLFindPanelTest::returnFindsTheNextAndShiftReturnThePrevious()
{
    QWidget view;
    PLTextTestTarget target(u"un deux un trois un"_s);
    PLFindPanel panel(&target, &view);
    panel.showFind(false);
    QTest::keyClicks(field(panel, u"Rechercher :"_s), u"UN"_s);

    QTest::keyClick(panel.focusWidget(), Qt::Key_Return);
    QCOMPARE(target.selected.position, 0);
    QCOMPARE(status(panel), u"1 sur 3"_s);
    QTest::keyClick(panel.focusWidget(), Qt::Key_Return);
    QCOMPARE(target.selected.position, 8);
    QTest::keyClick(panel.focusWidget(), Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(target.selected.position, 0);
    QTest::keyClick(panel.focusWidget(), Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(target.selected.position, 17);
    QCOMPARE(status(panel), u"3 sur 3 (retour à la fin)"_s);
    QTest::keyClick(panel.focusWidget(), Qt::Key_Enter, Qt::KeypadModifier);
    QCOMPARE(target.selected.position, 0);
    QCOMPARE(status(panel), u"1 sur 3 (retour au début)"_s);
    QCOMPARE(panel.focusWidget(), field(panel, u"Rechercher :"_s));
}

void PLFindPanelTest::whereOneIsIsSaid_data()
{
    using Wrap = PLFindSearch::Place::Wrap;
    QTest::addColumn<QString>("language");
    QTest::addColumn<PLFindSearch::Place>("place");
    QTest::addColumn<QString>("text");

    QTest::newRow("nowhere") << u"fr"_s << PLFindSearch::Place{} << u"Introuvable"_s;
    QTest::newRow("nowhere, English") << u"en"_s << PLFindSearch::Place{} << u"Not found"_s;
    QTest::newRow("one, not selected") << u"fr"_s << PLFindSearch::Place{0, 1} << u"1 occurrence"_s;
    QTest::newRow("some, not selected") << u"en"_s << PLFindSearch::Place{0, 17} << u"17 matches"_s;
    QTest::newRow("one") << u"fr"_s << PLFindSearch::Place{3, 17} << u"3 sur 17"_s;
    QTest::newRow("thousands") << u"en"_s << PLFindSearch::Place{1234, 5678} << u"1,234 of 5,678"_s;
    QTest::newRow("round") << u"en"_s << PLFindSearch::Place{1, 2, Wrap::ToStart}
                           << u"1 of 2 (back at the start)"_s;
    QTest::newRow("back round") << u"en"_s << PLFindSearch::Place{2, 2, Wrap::ToEnd}
                                << u"2 of 2 (back at the end)"_s;
}

void PLFindPanelTest::whereOneIsIsSaid()
{
    QFETCH(QString, language);
    QFETCH(PLFindSearch::Place, place);
    m_environment.setLanguage(language);
    QVERIFY(PLFindPanel::describe(place).isEmpty());
    PLFindTerms::shared().needle = u"un"_s;

    QTEST(PLFindPanel::describe(place), "text");
}

void PLFindPanelTest::typingShowsTheMatchesAndMovesNothing()
{
    QWidget view;
    PLTextTestTarget target(u"un deux un"_s, 5);
    PLFindPanel panel(&target, &view);
    panel.showFind(false);

    QTest::keyClicks(panel.focusWidget(), u"un"_s);
    QCOMPARE(target.marks.size(), 2);
    QCOMPARE(target.selected, (PLTextRange{5, 0}));
    QCOMPARE(status(panel), u"2 occurrences"_s);

    QTest::keyClicks(panel.focusWidget(), u"e"_s);
    QVERIFY(target.marks.isEmpty());
    QCOMPARE(status(panel), u"Introuvable"_s);

    panel.close();
    QVERIFY(target.marks.isEmpty());
}

void PLFindPanelTest::theOptionsCountAtOnce()
{
    QWidget view;
    PLTextTestTarget target(u"un Un une"_s);
    PLFindTerms::shared().needle = u"un"_s;
    PLFindPanel panel(&target, &view);
    panel.showFind(false);
    const QList<QCheckBox *> boxes = panel.findChildren<QCheckBox *>();
    QVERIFY(boxes[0]->isChecked() && !boxes[1]->isChecked());
    QCOMPARE(target.marks.size(), 3);

    QTest::keyClick(boxes[0], Qt::Key_Space);
    QCOMPARE(target.marks.size(), 2);
    QTest::keyClick(boxes[1], Qt::Key_Space);
    QCOMPARE(target.marks.size(), 1);
    QCOMPARE(PLFindTerms::shared().options, (PLFindOptions{false, true}));
}

void PLFindPanelTest::everythingIsReachedByTheKeyboard()
{
    QWidget view;
    PLTextTestTarget target(u"un"_s);
    PLFindTerms::shared().needle = u"un"_s;
    PLFindPanel panel(&target, &view);
    panel.showFind(true);
    QSet<QWidget *> reached;
    for (int tab = 0; tab < 12; ++tab) {
        reached.insert(panel.focusWidget());
        QTest::keyClick(panel.focusWidget(), Qt::Key_Tab);
    }

    QCOMPARE(reached.size(), 9); // two fields, two options, five buttons
    field(panel, u"Rechercher :"_s)->setFocus();
    QTest::keyClick(panel.focusWidget(), Qt::Key_Tab);
    QCOMPARE(panel.focusWidget(), field(panel, u"Remplacer par :"_s));
    QTest::keyClicks(panel.focusWidget(), u"deux"_s);
    button(panel, u"Tout remplacer"_s)->setFocus();
    QTest::keyClick(panel.focusWidget(), Qt::Key_Return);
    QCOMPARE(target.content, u"deux"_s);
}

void PLFindPanelTest::replacingIsShownOnlyIfAskedFor()
{
    QWidget view;
    PLTextTestTarget target(u"un"_s);
    PLFindPanel panel(&target, &view);

    panel.showFind(false);
    QVERIFY(!field(panel, u"Remplacer par :"_s)->isVisible());
    QVERIFY(!button(panel, u"Tout remplacer"_s)->isVisible());
    const int height = panel.height();
    panel.showFind(true);
    QVERIFY(field(panel, u"Remplacer par :"_s)->isVisible());
    QVERIFY(button(panel, u"Tout remplacer"_s)->isVisible());
    QVERIFY(panel.height() > height);
    panel.showFind(false);
    QVERIFY(!button(panel, u"Remplacer"_s)->isVisible());
    QCOMPARE(panel.height(), height);
}

void PLFindPanelTest::replaceAllSaysHowMany()
{
    QWidget view;
    PLTextTestTarget target(u"un deux un"_s);
    PLFindTerms::shared() = {u"un"_s, u"trois"_s, {}};
    PLFindPanel panel(&target, &view);
    panel.showFind(true);

    QTest::mouseClick(button(panel, u"Tout remplacer"_s), Qt::LeftButton);
    QCOMPARE(target.content, u"trois deux trois"_s);
    QCOMPARE(target.steps, 1);
    QCOMPARE(status(panel), u"2 occurrences remplacées"_s);
    QTest::mouseClick(button(panel, u"Tout remplacer"_s), Qt::LeftButton);
    QCOMPARE(status(panel), u"Introuvable"_s);
}

void PLFindPanelTest::replaceAndFindGoesOn()
{
    QWidget view;
    PLTextTestTarget target(u"un deux un"_s);
    PLFindTerms::shared() = {u"un"_s, u"1"_s, {}};
    PLFindPanel panel(&target, &view);
    panel.showFind(true);

    button(panel, u"Remplacer"_s)->click(); // the first is only found: nothing unseen is replaced
    QCOMPARE(target.content, u"un deux un"_s);
    button(panel, u"Remplacer et rechercher"_s)->click();
    QCOMPARE(target.content, u"1 deux un"_s);
    QCOMPARE(target.selectedText(), u"un"_s);
    button(panel, u"Remplacer"_s)->click();
    QCOMPARE(target.content, u"1 deux 1"_s);
    QCOMPARE(target.steps, 2);
}

void PLFindPanelTest::escapeClosesAndGivesTheTextTheKeyboard()
{
    QWidget view;
    PLTextTestTarget target(u"un"_s);
    PLFindPanel panel(&target, &view);
    panel.showFind(false);
    QTest::keyClicks(panel.focusWidget(), u"un"_s);
    QCOMPARE(target.marks.size(), 1);

    QTest::keyClick(panel.focusWidget(), Qt::Key_Escape);

    QVERIFY(!panel.isVisible());
    QCOMPARE(target.focusTaken, 1);
    QVERIFY(target.marks.isEmpty());
}

void PLFindPanelTest::aSelectionIsProposed()
{
    QWidget view;
    PLTextTestTarget target(u"un deux\ntrois"_s);
    PLFindTerms::shared().needle = u"avant"_s;
    PLFindPanel panel(&target, &view);

    panel.showFind(false);
    QCOMPARE(field(panel, u"Rechercher :"_s)->text(), u"avant"_s);
    panel.close();
    target.selected = {3, 6}; // across lines
    panel.showFind(false);
    QCOMPARE(field(panel, u"Rechercher :"_s)->text(), u"avant"_s);
    panel.close();
    target.selected = {3, 4};
    panel.showFind(false);
    QCOMPARE(field(panel, u"Rechercher :"_s)->text(), u"deux"_s);
    QCOMPARE(field(panel, u"Rechercher :"_s)->selectedText(), u"deux"_s);
}

void PLFindPanelTest::theOtherWindowsPanelLooksForTheSame()
{
    QWidget firstView;
    QWidget secondView;
    PLTextTestTarget first(u"un"_s);
    PLTextTestTarget second(u"un un"_s);
    PLFindPanel firstPanel(&first, &firstView);
    PLFindPanel secondPanel(&second, &secondView);
    secondPanel.showFind(false);
    firstPanel.showFind(false);
    QTest::keyClicks(firstPanel.focusWidget(), u"un"_s);

    secondPanel.activateWindow();
    QTRY_COMPARE(field(secondPanel, u"Rechercher :"_s)->text(), u"un"_s);
    QCOMPARE(second.marks.size(), 2);
}

void PLFindPanelTest::aChangeOfTheTextIsFollowed()
{
    QWidget view;
    PLTextTestTarget target(u"un"_s);
    PLFindTerms::shared().needle = u"un"_s;
    PLFindPanel panel(&target, &view);
    panel.showFind(false);
    QCOMPARE(status(panel), u"1 occurrence"_s);

    target.content = u"un un"_s;
    panel.textDidChange();

    QTRY_COMPARE(status(panel), u"2 occurrences"_s);
    QCOMPARE(target.marks.size(), 2);
}

void PLFindPanelTest::withNothingToLookForNoButtonWorks()
{
    QWidget view;
    PLTextTestTarget target(u"un"_s);
    PLFindPanel panel(&target, &view);
    panel.showFind(true);
    const QList<QPushButton *> buttons = panel.findChildren<QPushButton *>();
    for (const QPushButton *candidate : buttons)
        QVERIFY(!candidate->isEnabled());
    QCOMPARE(status(panel), QString());

    QTest::keyClicks(panel.focusWidget(), u"u"_s);
    for (const QPushButton *candidate : buttons)
        QVERIFY(candidate->isEnabled());
}

void PLFindPanelTest::everyControlHasANameForScreenReaders()
{
    for (const QString &language : {u"fr"_s, u"en"_s}) {
        m_environment.setLanguage(language);
        QWidget view;
        PLTextTestTarget target(u"un"_s);
        PLFindPanel panel(&target, &view);
        panel.showFind(true);
        QStringList names;
        const QList<QWidget *> widgets = panel.findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            if (widget->focusPolicy() != Qt::NoFocus)
                names.append(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name));
        }
        QCOMPARE(names.size(), 9);
        QVERIFY(!names.contains(QString()));
        names.removeDuplicates();
        QCOMPARE(names.size(), 9);
        QCOMPARE(names.contains(u"Replace with:"_s), language == u"en"_s);
    }
}

void PLFindPanelTest::theShortcutsOfTheTextsWindowWorkInThePanel()
{
    QMainWindow window;
    auto *view = new QWidget;
    window.setCentralWidget(view);
    QAction *next = window.menuBar()->addMenu(u"Rechercher"_s)->addAction(u"Suivant"_s);
    next->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_G));
    QSignalSpy triggered(next, &QAction::triggered);
    window.show();
    PLTextTestTarget target(u"un"_s);
    PLFindPanel panel(&target, view);
    panel.showFind(false);
    QTRY_COMPARE(QApplication::activeWindow(), &panel);

    QTest::keyClick(panel.focusWidget(), Qt::Key_G, Qt::ControlModifier);

    QCOMPARE(triggered.count(), 1);
}

void PLFindPanelTest::closeClosesThePanelAlone()
{
    QWidget view;
    view.show();
    PLTextTestTarget target(u"un"_s);
    PLFindPanel panel(&target, &view);
    panel.showFind(false);
    QTRY_COMPARE(QApplication::activeWindow(), &panel);

    PLCommandChain::perform(PLCommand::PerformClose);

    QTRY_VERIFY(!panel.isVisible());
    QVERIFY(view.isVisible());
}

void PLFindPanelTest::closeClosesThePanelAloneThoughItHasNoKeyboardYet()
{
    QWidget view;
    view.show();
    QTRY_COMPARE(QApplication::activeWindow(), &view);
    PLTextTestTarget target(u"un"_s);
    PLFindPanel panel(&target, &view);
    panel.showFind(false);
    QCOMPARE(QApplication::activeWindow(), &view);

    PLCommandChain::perform(PLCommand::PerformClose);

    QTRY_VERIFY(!panel.isVisible());
    QVERIFY(view.isVisible());
}

QTEST_MAIN(PLFindPanelTest)
#include "PLFindPanelTest.moc"

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLSpellingPanel.h"

#include "PLSpellTestDictionary.h"
#include "PLTextTestTarget.h"
#include "support/PLTestEnvironment.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

struct Fixture
{
    explicit Fixture(const QString &text, int caret = 0)
        : target(text, caret)
        , checker(std::make_shared<PLSpellChecker>(
              u"fr_FR"_s, [this](const QString &) { return std::make_unique<PLSpellTestDictionary>(notes); }))
        , panel(&target, checker, &view)
    {
        notes.words = {u"un"_s, u"deux"_s};
        word = panel.findChildren<QLineEdit *>().at(0);
        replacement = panel.findChildren<QLineEdit *>().at(1);
        list = panel.findChild<QListWidget *>();
    }

    QPushButton *button(const QString &title)
    {
        const QList<QPushButton *> buttons = panel.findChildren<QPushButton *>();
        for (QPushButton *candidate : buttons) {
            if (candidate->text() == title)
                return candidate;
        }
        return nullptr;
    }

    QString status()
    {
        const QList<QLabel *> labels = panel.findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->wordWrap())
                return label->text();
        }
        return QString();
    }

    QStringList suggestions()
    {
        QStringList texts;
        for (int row = 0; row < list->count(); ++row)
            texts.append(list->item(row)->text());
        return texts;
    }

    PLSpellTestDictionary::Notes notes;
    QWidget view;
    PLTextTestTarget target;
    std::shared_ptr<PLSpellChecker> checker;
    PLSpellingPanel panel;
    QLineEdit *word;
    QLineEdit *replacement;
    QListWidget *list;
};

} // namespace

class PLSpellingPanelTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_environment.setLanguage(u"fr"_s); }

    void theWordAtTheCaretIsShownWithItsSuggestions();
    void withoutOneAtTheCaretTheNextIsShown();
    void changeReplacesAndGoesOn();
    void aDoubleClickReplaces();
    void theSuggestionsAreReachedByTheKeyboard();
    void ignoredAndLearnedWordsDoNotComeBack();
    void checkingGoesRoundAndSaysSo();
    void checkingOpensThePanelOnlyToSaySomething();
    void suggestionsAreAskedForOnlyIfSeen();
    void anOutdatedWordIsNotReplaced();
    void anEmptyReplacementIsNone();
    void aMissingDictionaryIsSaidWithItsPackage_data();
    void aMissingDictionaryIsSaidWithItsPackage();
    void everyControlHasANameForScreenReaders();
    void escapeGivesTheTextTheKeyboard();

private:
    PLTestEnvironment m_environment;
};

void PLSpellingPanelTest::theWordAtTheCaretIsShownWithItsSuggestions()
{
    Fixture fixture(u"un xyz un abc"_s, 5);

    fixture.panel.showGuesses();

    QVERIFY(fixture.panel.isVisible());
    QCOMPARE(fixture.word->text(), u"xyz"_s);
    QCOMPARE(fixture.suggestions(), (QStringList{u"xyz1"_s, u"l'xyz"_s}));
    QCOMPARE(fixture.replacement->text(), u"xyz1"_s);
    QCOMPARE(fixture.target.selectedText(), u"xyz"_s);
}

void PLSpellingPanelTest::withoutOneAtTheCaretTheNextIsShown()
{
    Fixture fixture(u"un deux xyz"_s);

    fixture.panel.showGuesses();

    QCOMPARE(fixture.word->text(), u"xyz"_s);
}

void PLSpellingPanelTest::changeReplacesAndGoesOn()
{
    Fixture fixture(u"xyz un abc"_s);
    fixture.panel.showGuesses();

    fixture.replacement->setText(u"deux"_s);
    fixture.button(u"Corriger"_s)->click();

    QCOMPARE(fixture.target.content, u"deux un abc"_s);
    QCOMPARE(fixture.target.steps, 1);
    QCOMPARE(fixture.word->text(), u"abc"_s);
    QCOMPARE(fixture.target.selectedText(), u"abc"_s);
}

void PLSpellingPanelTest::aDoubleClickReplaces()
{
    Fixture fixture(u"xyz un"_s);
    fixture.panel.showGuesses();
    const QPoint second = fixture.list->visualItemRect(fixture.list->item(1)).center();

    QTest::mouseClick(fixture.list->viewport(), Qt::LeftButton, {}, second);
    QCOMPARE(fixture.replacement->text(), u"l'xyz"_s);
    QTest::mouseDClick(fixture.list->viewport(), Qt::LeftButton, {}, second);

    QCOMPARE(fixture.target.content, u"l'xyz un"_s);
}

void PLSpellingPanelTest::theSuggestionsAreReachedByTheKeyboard()
{
    Fixture fixture(u"xyz un abc"_s);
    fixture.panel.showGuesses();
    QCOMPARE(fixture.panel.focusWidget(), fixture.replacement);

    QTest::keyClick(fixture.panel.focusWidget(), Qt::Key_Tab);
    QCOMPARE(fixture.panel.focusWidget(), fixture.list);
    QTest::keyClick(fixture.panel.focusWidget(), Qt::Key_Down);
    QTest::keyClick(fixture.panel.focusWidget(), Qt::Key_Return);
    QCOMPARE(fixture.target.content, u"l'xyz un abc"_s);

    QSet<QWidget *> reached;
    for (int tab = 0; tab < 10; ++tab) {
        reached.insert(fixture.panel.focusWidget());
        QTest::keyClick(fixture.panel.focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(reached.size(), 7); // two fields, the list, four buttons
}

void PLSpellingPanelTest::ignoredAndLearnedWordsDoNotComeBack()
{
    Fixture fixture(u"xyz abc xyz abc def"_s);
    fixture.panel.showGuesses();

    fixture.button(u"Ignorer"_s)->click();
    QCOMPARE(fixture.word->text(), u"abc"_s);
    fixture.button(u"Apprendre"_s)->click();

    QCOMPARE(fixture.word->text(), u"def"_s);
    QCOMPARE(fixture.notes.ignored, QStringList{u"xyz"_s});
    QCOMPARE(fixture.notes.learned, QStringList{u"abc"_s});
    QCOMPARE(fixture.target.steps, 0);
    fixture.button(u"Ignorer"_s)->click();
    QCOMPARE(fixture.status(), u"Aucun mot inconnu."_s);
    QVERIFY(!fixture.button(u"Corriger"_s)->isEnabled());
}

void PLSpellingPanelTest::checkingGoesRoundAndSaysSo()
{
    Fixture fixture(u"xyz un abc un"_s, 6);
    fixture.panel.showGuesses();
    QCOMPARE(fixture.word->text(), u"abc"_s);
    QCOMPARE(fixture.status(), QString());

    fixture.panel.checkNext();

    QCOMPARE(fixture.word->text(), u"xyz"_s);
    QCOMPARE(fixture.status(), u"La vérification a repris au début du texte."_s);
    fixture.button(u"Mot suivant"_s)->click();
    QCOMPARE(fixture.word->text(), u"abc"_s);
    QCOMPARE(fixture.status(), QString());
}

void PLSpellingPanelTest::checkingOpensThePanelOnlyToSaySomething()
{
    Fixture fixture(u"un xyz"_s);

    fixture.panel.checkNext();
    QVERIFY(!fixture.panel.isVisible());
    QCOMPARE(fixture.target.selectedText(), u"xyz"_s);

    fixture.checker->ignore(u"xyz"_s);
    fixture.panel.checkNext();
    QVERIFY(fixture.panel.isVisible());
    QCOMPARE(fixture.status(), u"Aucun mot inconnu."_s);
}

void PLSpellingPanelTest::suggestionsAreAskedForOnlyIfSeen()
{
    Fixture fixture(u"xyz abc"_s);
    fixture.panel.checkNext();
    fixture.panel.checkNext();
    QCOMPARE(fixture.notes.suggestionRequests, 0);

    fixture.panel.showGuesses();
    QCOMPARE(fixture.notes.suggestionRequests, 1);
}

void PLSpellingPanelTest::anOutdatedWordIsNotReplaced()
{
    Fixture fixture(u"un xyz"_s);
    fixture.panel.showGuesses();
    fixture.target.content = u"un autre abc"_s;
    fixture.target.selected = {0, 0};

    fixture.button(u"Corriger"_s)->click();

    QCOMPARE(fixture.target.content, u"un autre abc"_s);
    QCOMPARE(fixture.word->text(), u"autre"_s);
}

void PLSpellingPanelTest::anEmptyReplacementIsNone()
{
    Fixture fixture(u"xyz"_s);
    fixture.panel.showGuesses();

    fixture.replacement->clear();
    fixture.button(u"Corriger"_s)->click();

    QCOMPARE(fixture.target.content, u"xyz"_s);
}

void PLSpellingPanelTest::aMissingDictionaryIsSaidWithItsPackage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QString>("text");

    QTest::newRow("French")
        << u"fr"_s << u"fr_FR"_s
        << u"Le dictionnaire de cette langue n'est pas installé. Installez le paquet « hunspell-fr », puis rouvrez Aquilane."_s;
    QTest::newRow("English")
        << u"en"_s << u"en_US"_s
        << u"The dictionary of this language is not installed. Install the package “hunspell-en-us”, then reopen Aquilane."_s;
}

void PLSpellingPanelTest::aMissingDictionaryIsSaidWithItsPackage()
{
    QFETCH(QString, language);
    QFETCH(QString, locale);
    m_environment.setLanguage(language);
    Fixture fixture(u"xyz"_s);
    const auto checker = std::make_shared<PLSpellChecker>(
        locale, [](const QString &) { return std::unique_ptr<PLSpellDictionary>(); });
    PLSpellingPanel panel(&fixture.target, checker, &fixture.view);

    panel.checkNext();

    QVERIFY(panel.isVisible());
    QCOMPARE(fixture.target.selected, (PLTextRange{0, 0}));
    QStringList texts;
    const QList<QLabel *> labels = panel.findChildren<QLabel *>();
    for (const QLabel *label : labels)
        texts.append(label->text());
    QTEST(texts.filter(u"hunspell"_s).value(0), "text");
    panel.showGuesses();
    QVERIFY(panel.isVisible());
}

void PLSpellingPanelTest::everyControlHasANameForScreenReaders()
{
    Fixture fixture(u"xyz"_s);
    fixture.panel.showGuesses();
    QStringList names;
    const QList<QWidget *> widgets =
        fixture.panel.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *widget : widgets) {
        if (widget->focusPolicy() != Qt::NoFocus)
            names.append(QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name));
    }

    QCOMPARE(names.size(), 7);
    QVERIFY(!names.contains(QString()));
    QCOMPARE(names.removeDuplicates(), 0);
}

void PLSpellingPanelTest::escapeGivesTheTextTheKeyboard()
{
    Fixture fixture(u"xyz"_s);
    fixture.panel.showGuesses();

    QTest::keyClick(fixture.list, Qt::Key_Escape);

    QVERIFY(!fixture.panel.isVisible());
    QCOMPARE(fixture.target.focusTaken, 1);
}

QTEST_MAIN(PLSpellingPanelTest)
#include "PLSpellingPanelTest.moc"

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLTypingOn.h"

#include "platform/PLAlert.h"
#include "support/PLTestEnvironment.h"

#include <QApplication>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextEdit>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Shows the widget with the keyboard in it.
bool focus(QWidget &widget)
{
    widget.show();
    widget.activateWindow();
    widget.setFocus();
    return QTest::qWaitFor(
        [&widget] { return widget.isActiveWindow() && QApplication::focusWidget() == &widget; });
}

/// Calls `act` once, as soon as a message box has got the keyboard.
class AtABox final : public QObject
{
public:
    explicit AtABox(std::function<void(QMessageBox &)> act) : m_act(std::move(act))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *box = qobject_cast<QMessageBox *>(watched);
        if (box && event->type() == QEvent::WindowActivate && m_act)
            std::exchange(m_act, {})(*box);
        return false;
    }

private:
    std::function<void(QMessageBox &)> m_act;
};

} // namespace

class PLTypingOnTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void whatIsTypedGoesToTheText();
    void whatIsComposedGoesToTheText();
    void aPauseEndsIt();
    void itBeginsWhenTheWindowHasTheKeyboard();
    void escapeAndCommandsAreForTheWindow();
    void aKeyOfAnotherWindowIsItsOwn();
    void onlyATextIsTypedIn();
    void theTextMayGo();
    void anAlertThatComesByItselfIsNotAnswered();
    void anAlertThatWasAskedForIs();

private:
    PLTestEnvironment m_environment;
    std::unique_ptr<QTextEdit> m_text;
    std::unique_ptr<QPushButton> m_button; ///< the other window
};

void PLTypingOnTest::init()
{
    m_text = std::make_unique<QTextEdit>();
    m_button = std::make_unique<QPushButton>(u"OK"_s);
    QVERIFY(focus(*m_text));
}

void PLTypingOnTest::cleanup()
{
    m_button.reset();
    m_text.reset();
}

void PLTypingOnTest::whatIsTypedGoesToTheText()
{
    QSignalSpy clicks(m_button.get(), &QPushButton::clicked);
    const PLTypingOn typingOn(*m_button, 1h);
    QVERIFY(focus(*m_button));
    QTest::keyClicks(m_button.get(), u"Il y avait une "_s);
    QTest::keyClick(m_button.get(), Qt::Key_Return);
    QTest::keyClicks(m_button.get(), u"fou"_s);
    QTest::keyClick(m_button.get(), Qt::Key_Backspace);
    QTest::keyClicks(m_button.get(), u"is"_s);
    QCOMPARE(m_text->toPlainText(), u"Il y avait une \nfois"_s);
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(QApplication::focusWidget(), m_button.get());
}

/// As with a dead key, "^" and "e".
void PLTypingOnTest::whatIsComposedGoesToTheText()
{
    const PLTypingOn typingOn(*m_button, 1h);
    QVERIFY(focus(*m_button));
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QCoreApplication::sendEvent(m_button.get(), &query);
    QVERIFY(query.value(Qt::ImEnabled).toBool()); // else nothing is composed
    QInputMethodEvent event;
    event.setCommitString(u"ê"_s);
    QCoreApplication::sendEvent(m_button.get(), &event);
    QCOMPARE(m_text->toPlainText(), u"ê"_s);
}

void PLTypingOnTest::aPauseEndsIt()
{
    QSignalSpy clicks(m_button.get(), &QPushButton::clicked);
    const PLTypingOn typingOn(*m_button, 0ms);
    QVERIFY(focus(*m_button));
    QTest::keyClicks(m_button.get(), u"x "_s);
    QCOMPARE(m_text->toPlainText(), QString());
    QCOMPARE(clicks.count(), 1); // Space presses it
}

void PLTypingOnTest::itBeginsWhenTheWindowHasTheKeyboard()
{
    const PLTypingOn typingOn(*m_button, 1s);
    QTest::qWait(1100);
    m_button->show();
    m_button->activateWindow();
    QEvent active(QEvent::WindowActivate);
    QCoreApplication::sendEvent(m_button.get(), &active);
    QTest::keyClicks(m_button.get(), u"x"_s);
    QCOMPARE(m_text->toPlainText(), u"x"_s);
}

void PLTypingOnTest::escapeAndCommandsAreForTheWindow()
{
    const PLTypingOn typingOn(*m_button, 1h);
    QVERIFY(focus(*m_button));
    QTest::keyClicks(m_button.get(), u"ab"_s);
    QTest::keyClick(m_button.get(), Qt::Key_A, Qt::ControlModifier); // would select it all
    QTest::keyClick(m_button.get(), Qt::Key_Escape);
    QTest::keyClicks(m_button.get(), u"c"_s);
    QTest::keyClick(m_button.get(), Qt::Key_E, Qt::ControlModifier | Qt::AltModifier); // AltGr
    QCOMPARE(m_text->toPlainText(), u"abce"_s);
}

void PLTypingOnTest::aKeyOfAnotherWindowIsItsOwn()
{
    const PLTypingOn typingOn(*m_button, 1h);
    QTextEdit other;
    QVERIFY(focus(other));
    QTest::keyClicks(&other, u"x"_s);
    QCOMPARE(other.toPlainText(), u"x"_s);
    QCOMPARE(m_text->toPlainText(), QString());
}

void PLTypingOnTest::onlyATextIsTypedIn()
{
    QListWidget list;
    list.addItems({u"A"_s, u"B"_s});
    list.item(0)->setFlags(list.item(0)->flags() | Qt::ItemIsEditable);
    list.setCurrentRow(0);
    QVERIFY(focus(list));
    QSignalSpy clicks(m_button.get(), &QPushButton::clicked);
    const PLTypingOn typingOn(*m_button, 1h);
    QVERIFY(focus(*m_button));
    QTest::keyClick(m_button.get(), Qt::Key_Space);
    QCOMPARE(clicks.count(), 1);
}

void PLTypingOnTest::theTextMayGo()
{
    QSignalSpy clicks(m_button.get(), &QPushButton::clicked);
    const PLTypingOn typingOn(*m_button, 1h);
    QVERIFY(focus(*m_button));
    QTest::keyClicks(m_button.get(), u"a"_s);
    m_text.reset();
    QTest::keyClick(m_button.get(), Qt::Key_Space);
    QCOMPARE(clicks.count(), 1);
}

void PLTypingOnTest::anAlertThatComesByItselfIsNotAnswered()
{
    bool staysOpen = false;
    AtABox typist([&](QMessageBox &box) {
        QTest::keyClicks(&box, u"mot "_s);
        QTest::keyClick(&box, Qt::Key_Return);
        staysOpen = box.isVisible();
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    PLAlert alert;
    alert.message = u"Impossible d'enregistrer"_s;
    alert.letsTypingGoOn = true;
    alert.runModal();
    QVERIFY(staysOpen);
    QCOMPARE(m_text->toPlainText(), u"mot \n"_s);
}

void PLTypingOnTest::anAlertThatWasAskedForIs()
{
    AtABox typist([](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Return); });
    PLAlert alert;
    alert.message = u"Supprimer ?"_s;
    QCOMPARE(alert.runModal(), PLAlert::FirstButton);
    QCOMPARE(m_text->toPlainText(), QString());
}

QTEST_MAIN(PLTypingOnTest)
#include "PLTypingOnTest.moc"

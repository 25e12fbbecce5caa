// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLPreferencesWindowController.h"

#include "app/PLAlertScript.h"
#include "foundation/PLPreferences.h"
#include "i18n/PLLocalization.h"
#include "support/PLTestEnvironment.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QScopeGuard>
#include <QTest>

using namespace Qt::StringLiterals;

class PLPreferencesWindowControllerTest final : public QObject
{
    Q_OBJECT

private:
    /// As a writer does: the item of this language is chosen in the pop-up.
    static void choose(const PLPreferencesWindowController &controller, const QString &code);
    static QString storedLanguage();
    static QLabel *labelWithText(const PLPreferencesWindowController &controller, const QString &text);

    std::unique_ptr<PLTestEnvironment> m_environment;

private Q_SLOTS:
    void init() { m_environment = std::make_unique<PLTestEnvironment>(); }

    void theWindowSpeaksTheInterfaceLanguage_data();
    void theWindowSpeaksTheInterfaceLanguage();
    void theLanguagesAreThereInOrderEachInItsOwn();
    void thePreferredLanguageIsSelected();
    void theExplanationIsSmallAndFaint();
    void noLabelCanBeEditedOrSelected();
    void everyTextFitsItsPlace_data();
    void everyTextFitsItsPlace();
    void nothingIsPendingAtFirst();
    void aChangeThatWaitsIsToldInTheNewLanguage();
    void aChangeIsStoredBeforeTheQuestion();
    void theQuestionIsAskedInTheNewLanguage_data();
    void theQuestionIsAskedInTheNewLanguage();
    void restartNowCallsTheHandlerOnce();
    void restartNowWithoutAHandlerWaitsForTheNextStart();
    void laterLeavesThePendingLabelInTheNewLanguage();
    void escapeIsLater();
    void goingBackAsksNothing();
    void choosingTheSameLanguageAsksNothing();
    void choosingTheLanguageThatWaitsAsksNothingAgain();
    void anItemWithoutALanguageDoesNothing();
    void theWindowIsKeptAndShowsWhatIsPreferredThen();
};

void PLPreferencesWindowControllerTest::choose(const PLPreferencesWindowController &controller,
                                               const QString &code)
{
    QComboBox *popUp = controller.languagePopUp();
    popUp->setCurrentIndex(popUp->findData(code));
    Q_EMIT popUp->activated(popUp->currentIndex());
}

QString PLPreferencesWindowControllerTest::storedLanguage()
{
    return PLPreferences::store().value(u"PLInterfaceLanguage"_s).toString();
}

QLabel *PLPreferencesWindowControllerTest::labelWithText(const PLPreferencesWindowController &controller,
                                                         const QString &text)
{
    const QList<QLabel *> labels = controller.window()->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (label->text() == text)
            return label;
    }
    return nullptr;
}

void PLPreferencesWindowControllerTest::theWindowSpeaksTheInterfaceLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("explanation");
    QTest::newRow("fr")
        << u"fr"_s << u"Préférences"_s << u"Langue de l'interface :"_s
        << u"Les dossiers d'un carnet (Livre, Personnages, Lieux…) gardent leur nom quelle que soit la langue, pour que tous les carnets restent compatibles."_s;
    QTest::newRow("en")
        << u"en"_s << u"Preferences"_s << u"Interface language:"_s
        << u"A notebook's folders (Livre, Personnages, Lieux…) keep their names whatever the language, so every notebook stays compatible."_s;
}

void PLPreferencesWindowControllerTest::theWindowSpeaksTheInterfaceLanguage()
{
    QFETCH(const QString, language);
    QFETCH(const QString, title);
    QFETCH(const QString, label);
    QFETCH(const QString, explanation);
    m_environment->setLanguage(language);
    const PLPreferencesWindowController controller;
    QCOMPARE(controller.window()->windowTitle(), title);
    QLabel *beside = labelWithText(controller, label);
    QVERIFY(beside);
    QCOMPARE(beside->buddy(), controller.languagePopUp());
    QVERIFY(labelWithText(controller, explanation));
}

void PLPreferencesWindowControllerTest::theLanguagesAreThereInOrderEachInItsOwn()
{
    const PLPreferencesWindowController controller;
    const QComboBox &popUp = *controller.languagePopUp();
    QCOMPARE(popUp.count(), 2);
    QCOMPARE(popUp.itemText(0), u"Français"_s);
    QCOMPARE(popUp.itemData(0).toString(), u"fr"_s);
    QCOMPARE(popUp.itemText(1), u"English"_s);
    QCOMPARE(popUp.itemData(1).toString(), u"en"_s);
    QVERIFY(!popUp.isEditable());
}

void PLPreferencesWindowControllerTest::thePreferredLanguageIsSelected()
{
    QCOMPARE(PLPreferencesWindowController().languagePopUp()->currentData().toString(), u"fr"_s);
    m_environment->setLanguage(u"en"_s);
    QCOMPARE(PLPreferencesWindowController().languagePopUp()->currentData().toString(), u"en"_s);
}

void PLPreferencesWindowControllerTest::theExplanationIsSmallAndFaint()
{
    const PLPreferencesWindowController controller;
    const QList<QLabel *> labels = controller.window()->findChildren<QLabel *>();
    const QLabel *explanation = nullptr;
    for (const QLabel *label : labels) {
        if (label->text().startsWith(u"Les dossiers"_s))
            explanation = label;
    }
    QVERIFY(explanation);
    QCOMPARE(explanation->foregroundRole(), QPalette::PlaceholderText);
    QVERIFY(explanation->font().pixelSize() > 0);
    QVERIFY(explanation->fontInfo().pixelSize() < controller.pendingLabel()->fontInfo().pixelSize());
    QVERIFY(explanation->wordWrap());
    QVERIFY(controller.pendingLabel()->wordWrap());
}

void PLPreferencesWindowControllerTest::noLabelCanBeEditedOrSelected()
{
    const PLPreferencesWindowController controller;
    const QList<QLabel *> labels = controller.window()->findChildren<QLabel *>();
    QVERIFY(labels.size() >= 3);
    for (const QLabel *label : labels) {
        QCOMPARE(label->textInteractionFlags() & (Qt::TextSelectableByMouse | Qt::TextEditable),
                 Qt::TextInteractionFlags());
        QCOMPARE(label->frameShape(), QFrame::NoFrame);
    }
}

void PLPreferencesWindowControllerTest::everyTextFitsItsPlace_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<int>("fontSize");
    QTest::newRow("fr") << u"fr"_s << u"en"_s << 12;
    QTest::newRow("en") << u"en"_s << u"fr"_s << 12;
    QTest::newRow("fr, large") << u"fr"_s << u"en"_s << 24;
    QTest::newRow("en, large") << u"en"_s << u"fr"_s << 24;
}

/// The longest the window ever has to show: with the label of a change that waits.
void PLPreferencesWindowControllerTest::everyTextFitsItsPlace()
{
    QFETCH(const QString, language);
    QFETCH(const QString, chosen);
    QFETCH(const int, fontSize);
    m_environment->setLanguage(language);
    const QFont usual = QApplication::font();
    QFont font = usual;
    font.setPixelSize(fontSize);
    QApplication::setFont(font);
    const auto restore = qScopeGuard([&usual] { QApplication::setFont(usual); });
    PLAlertScript alerts({PLAlert::SecondButton});
    PLPreferencesWindowController controller;
    controller.showWindow();
    choose(controller, chosen);
    QCoreApplication::processEvents();
    const QList<QLabel *> labels = controller.window()->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        const int needed =
            label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
        QVERIFY2(label->height() >= needed, qPrintable(label->text()));
        QVERIFY2(label->wordWrap() || label->width() >= label->sizeHint().width(), qPrintable(label->text()));
    }
}

void PLPreferencesWindowControllerTest::nothingIsPendingAtFirst()
{
    QCOMPARE(PLPreferencesWindowController().pendingLabel()->text(), QString());
}

void PLPreferencesWindowControllerTest::aChangeThatWaitsIsToldInTheNewLanguage()
{
    QVERIFY(!PLLocalization::isEnglish()); // the run's language is now fixed
    PLLocalization::setPreferredLanguage(u"en"_s);
    const PLPreferencesWindowController controller;
    QCOMPARE(controller.languagePopUp()->currentData().toString(), u"en"_s);
    QCOMPARE(controller.pendingLabel()->text(),
             u"The new language will be used the next time Aquilane starts."_s);
}

void PLPreferencesWindowControllerTest::aChangeIsStoredBeforeTheQuestion()
{
    PLPreferencesWindowController controller;
    QString stored;
    QString pending;
    PLAlert::setResponder([&](const PLAlert &) {
        stored = storedLanguage();
        pending = controller.pendingLabel()->text();
        return PLAlert::SecondButton;
    });
    choose(controller, u"en"_s);
    PLAlert::setResponder({});
    QCOMPARE(stored, u"en"_s);
    QVERIFY(!pending.isEmpty());
}

void PLPreferencesWindowControllerTest::theQuestionIsAskedInTheNewLanguage_data()
{
    QTest::addColumn<QString>("running");
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("explanation");
    QTest::addColumn<QStringList>("buttons");
    QTest::newRow("English in a French run")
        << u"fr"_s << u"en"_s << u"Aquilane needs to restart to switch to English."_s
        << u"Your open notebooks will be saved and reopened."_s << QStringList{u"Restart Now"_s, u"Later"_s};
    QTest::newRow("French in an English run")
        << u"en"_s << u"fr"_s << u"Aquilane doit redémarrer pour passer en français."_s
        << u"Vos carnets ouverts seront enregistrés puis rouverts."_s
        << QStringList{u"Redémarrer maintenant"_s, u"Plus tard"_s};
}

void PLPreferencesWindowControllerTest::theQuestionIsAskedInTheNewLanguage()
{
    QFETCH(const QString, running);
    QFETCH(const QString, chosen);
    QFETCH(const QString, message);
    QFETCH(const QString, explanation);
    QFETCH(const QStringList, buttons);
    m_environment->setLanguage(running);
    PLAlertScript alerts({PLAlert::SecondButton});
    const PLPreferencesWindowController controller;
    choose(controller, chosen);
    QCOMPARE(alerts.count(), 1);
    QCOMPARE(alerts.shown(0).message, message);
    QCOMPARE(alerts.shown(0).informativeText, explanation);
    QCOMPARE(alerts.shown(0).buttons, buttons);
}

void PLPreferencesWindowControllerTest::restartNowCallsTheHandlerOnce()
{
    PLAlertScript alerts({PLAlert::FirstButton});
    PLPreferencesWindowController controller;
    int restarts = 0;
    controller.setRestartHandler([&restarts] { ++restarts; });
    choose(controller, u"en"_s);
    QCOMPARE(restarts, 1);
    QCOMPARE(storedLanguage(), u"en"_s);
}

void PLPreferencesWindowControllerTest::restartNowWithoutAHandlerWaitsForTheNextStart()
{
    PLAlertScript alerts({PLAlert::FirstButton});
    const PLPreferencesWindowController controller;
    choose(controller, u"en"_s);
    QCOMPARE(alerts.count(), 1);
    QCOMPARE(storedLanguage(), u"en"_s);
    QVERIFY(!controller.pendingLabel()->text().isEmpty());
}

void PLPreferencesWindowControllerTest::laterLeavesThePendingLabelInTheNewLanguage()
{
    PLAlertScript alerts({PLAlert::SecondButton});
    PLPreferencesWindowController controller;
    int restarts = 0;
    controller.setRestartHandler([&restarts] { ++restarts; });
    choose(controller, u"en"_s);
    QCOMPARE(restarts, 0);
    QCOMPARE(controller.pendingLabel()->text(),
             u"The new language will be used the next time Aquilane starts."_s);
}

void PLPreferencesWindowControllerTest::escapeIsLater()
{
    PLAlertScript alerts; // answers as Escape does
    PLPreferencesWindowController controller;
    int restarts = 0;
    controller.setRestartHandler([&restarts] { ++restarts; });
    choose(controller, u"en"_s);
    QCOMPARE(alerts.count(), 1);
    QCOMPARE(restarts, 0);
}

void PLPreferencesWindowControllerTest::goingBackAsksNothing()
{
    PLAlertScript alerts({PLAlert::SecondButton});
    const PLPreferencesWindowController controller;
    choose(controller, u"en"_s);
    choose(controller, u"fr"_s);
    QCOMPARE(alerts.count(), 1); // that of the first choice
    QCOMPARE(storedLanguage(), u"fr"_s);
    QCOMPARE(controller.pendingLabel()->text(), QString());
}

void PLPreferencesWindowControllerTest::choosingTheSameLanguageAsksNothing()
{
    PLAlertScript alerts;
    m_environment->forgetPreferences();
    PLPreferences::store().remove(u"PLInterfaceLanguage"_s);
    const QString preferred = PLLocalization::preferredLanguage();
    const PLPreferencesWindowController controller;
    choose(controller, preferred);
    QCOMPARE(alerts.count(), 0);
    QVERIFY(!PLPreferences::store().contains(u"PLInterfaceLanguage"_s)); // still the system's
}

void PLPreferencesWindowControllerTest::choosingTheLanguageThatWaitsAsksNothingAgain()
{
    PLAlertScript alerts({PLAlert::SecondButton, PLAlert::FirstButton});
    const PLPreferencesWindowController controller;
    choose(controller, u"en"_s);
    choose(controller, u"en"_s);
    QCOMPARE(alerts.count(), 1);
}

void PLPreferencesWindowControllerTest::anItemWithoutALanguageDoesNothing()
{
    PLAlertScript alerts;
    const PLPreferencesWindowController controller;
    controller.languagePopUp()->addItem(u"Klingon"_s);
    controller.languagePopUp()->setCurrentIndex(2);
    Q_EMIT controller.languagePopUp()->activated(2);
    QCOMPARE(alerts.count(), 0);
    QCOMPARE(storedLanguage(), u"fr"_s);
}

void PLPreferencesWindowControllerTest::theWindowIsKeptAndShowsWhatIsPreferredThen()
{
    PLPreferencesWindowController controller;
    controller.showWindow();
    const PLWindow *window = controller.window();
    QVERIFY(controller.window()->close());
    QVERIFY(!window->isVisible());
    PLLocalization::setPreferredLanguage(u"en"_s);
    controller.showWindow();
    QCOMPARE(controller.window(), window);
    QVERIFY(window->isVisible());
    QCOMPARE(controller.languagePopUp()->currentData().toString(), u"en"_s);
    QVERIFY(!controller.pendingLabel()->text().isEmpty());
}

QTEST_MAIN(PLPreferencesWindowControllerTest)
#include "PLPreferencesWindowControllerTest.moc"

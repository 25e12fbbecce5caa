// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "app/PLTranslations.h"

#include "support/PLTestEnvironment.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

/// What the toolkit says by itself, in the interface language whatever the system's is.
class PLTranslationsTest final : public QObject
{
    Q_OBJECT

private:
    PLTestEnvironment m_environment;

private Q_SLOTS:
    void cleanup();

    void theToolkitsDialogsSpeakTheInterfaceLanguage_data();
    void theToolkitsDialogsSpeakTheInterfaceLanguage();
    void theMenuOfALineOfTextSpeaksTheInterfaceLanguage_data();
    void theMenuOfALineOfTextSpeaksTheInterfaceLanguage();
    void numbersAreThoseOfTheInterfaceLanguage();
};

void PLTranslationsTest::cleanup()
{
    qDeleteAll(qApp->findChildren<QTranslator *>());
}

void PLTranslationsTest::theToolkitsDialogsSpeakTheInterfaceLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("cancel");
    QTest::newRow("fr") << u"fr"_s << u"Voir dans :"_s << u"Annuler"_s;
    QTest::newRow("en") << u"en"_s << u"Look in:"_s << u"Cancel"_s;
}

void PLTranslationsTest::theToolkitsDialogsSpeakTheInterfaceLanguage()
{
    QFETCH(const QString, language);
    QFETCH(const QString, folder);
    QFETCH(const QString, cancel);
    m_environment.setLanguage(language);
    PLInstallTranslations(*qApp);
    QFileDialog dialog;
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    const auto *label = dialog.findChild<QLabel *>(u"lookInLabel"_s);
    QVERIFY(label);
    QCOMPARE(label->text().remove(u'&'), folder);
    const QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>();
    QVERIFY(std::any_of(buttons.begin(), buttons.end(), [&cancel](const QPushButton *button) {
        return button->text().remove(u'&') == cancel;
    }));
}

void PLTranslationsTest::theMenuOfALineOfTextSpeaksTheInterfaceLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("first");
    QTest::newRow("fr") << u"fr"_s << u"Annuler"_s;
    QTest::newRow("en") << u"en"_s << u"Undo"_s;
}

void PLTranslationsTest::theMenuOfALineOfTextSpeaksTheInterfaceLanguage()
{
    QFETCH(const QString, language);
    QFETCH(const QString, first);
    m_environment.setLanguage(language);
    PLInstallTranslations(*qApp);
    QLineEdit line;
    const std::unique_ptr<QMenu> menu(line.createStandardContextMenu());
    const QString title = menu->actions().constFirst()->text();
    QCOMPARE(title.section(u'\t', 0, 0).remove(u'&'), first);
}

void PLTranslationsTest::numbersAreThoseOfTheInterfaceLanguage()
{
    m_environment.setLanguage(u"fr"_s);
    PLInstallTranslations(*qApp);
    QCOMPARE(QLocale().decimalPoint(), u","_s);
    m_environment.setLanguage(u"en"_s);
    PLInstallTranslations(*qApp);
    QCOMPARE(QLocale().decimalPoint(), u"."_s);
}

QTEST_MAIN(PLTranslationsTest)
#include "PLTranslationsTest.moc"

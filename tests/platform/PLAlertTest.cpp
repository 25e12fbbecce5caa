// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLAlert.h"

#include "support/PLTestEnvironment.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

PLAlert question()
{
    PLAlert alert;
    alert.message = u"Fermer ?"_s;
    alert.informativeText = u"Rien n'est enregistré."_s;
    alert.buttons = {u"Ne pas fermer"_s, u"Fermer"_s};
    return alert;
}

/// Shows the alert, and calls `look` with its box once it is on the screen. What `look` leaves open is
/// closed.
int runAndLook(const PLAlert &alert, const std::function<void(QMessageBox &)> &look,
               QWidget *parent = nullptr)
{
    bool wasSeen = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box || !box->isActiveWindow())
            return;
        poll.stop();
        wasSeen = true;
        look(*box);
        if (box->isVisible())
            box->close();
    });
    poll.start(1);
    const int answer = alert.runModal(parent);
    return wasSeen ? answer : -1;
}

QAbstractButton *buttonOf(const QMessageBox &box, int index)
{
    return box.buttons().value(index);
}

} // namespace

class PLAlertTest final : public QObject
{
    Q_OBJECT

private:
    PLTestEnvironment m_environment;

private Q_SLOTS:
    void aButtonAnswersItsNumber_data();
    void aButtonAnswersItsNumber();
    void returnIsTheFirstButton();
    void escapeChangesNothing_data();
    void escapeChangesNothing();
    void theTextsAreShownAsTheyAre();
    void aThirdButtonKeepsItsPlace();
    void withoutButtonsThereIsAnOK_data();
    void withoutButtonsThereIsAnOK();
    void withAParentItIsASheet();
    void withoutAParentItHoldsTheWholeProgram();
    void anErrorShowsItsMessage();
    void aResponderAnswersInItsPlace();
};

void PLAlertTest::aButtonAnswersItsNumber_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("title");
    QTest::addColumn<int>("answer");
    QTest::newRow("the first") << 0 << u"Ne pas fermer"_s << 1000;
    QTest::newRow("the second") << 1 << u"Fermer"_s << 1001;
}

void PLAlertTest::aButtonAnswersItsNumber()
{
    QFETCH(const int, index);
    QFETCH(const QString, title);
    QFETCH(const int, answer);
    QString shownTitle;
    const int given = runAndLook(question(), [&](QMessageBox &box) {
        shownTitle = buttonOf(box, index)->text();
        buttonOf(box, index)->click();
    });
    QCOMPARE(shownTitle, title);
    QCOMPARE(given, answer);
}

void PLAlertTest::returnIsTheFirstButton()
{
    QCOMPARE(runAndLook(question(), [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Return); }),
             PLAlert::FirstButton);
}

void PLAlertTest::escapeChangesNothing_data()
{
    QTest::addColumn<int>("escapeButton");
    QTest::newRow("by default the second") << PLAlert().escapeButton;
    QTest::newRow("the first") << PLAlert::FirstButton;
    QTest::newRow("the second") << PLAlert::SecondButton;
}

void PLAlertTest::escapeChangesNothing()
{
    QFETCH(const int, escapeButton);
    PLAlert alert = question();
    alert.escapeButton = escapeButton;
    QCOMPARE(runAndLook(alert, [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Escape); }),
             escapeButton);
    QCOMPARE(runAndLook(alert, [](QMessageBox &box) { box.close(); }), escapeButton);
}

void PLAlertTest::theTextsAreShownAsTheyAre()
{
    PLAlert alert = question();
    alert.message = u"<b>« Roman »</b> & Cie"_s;
    alert.informativeText = u"<a href='file:///etc'>/home/<i>x</i></a>\nLigne 2"_s;
    runAndLook(alert, [&](QMessageBox &box) {
        QCOMPARE(box.text(), alert.message);
        QCOMPARE(box.informativeText(), alert.informativeText);
        const QList<QLabel *> labels = box.findChildren<QLabel *>();
        int texts = 0;
        for (const QLabel *label : labels) {
            if (label->text().isEmpty())
                continue;
            ++texts;
            QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->text()));
        }
        QCOMPARE(texts, 2);
    });
}

void PLAlertTest::aThirdButtonKeepsItsPlace()
{
    PLAlert alert = question();
    alert.buttons.append(u"Plus tard"_s);
    QCOMPARE(runAndLook(alert, [](QMessageBox &box) { buttonOf(box, 2)->click(); }), 1002);
}

void PLAlertTest::withoutButtonsThereIsAnOK_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("fr") << u"fr"_s;
    QTest::newRow("en") << u"en"_s;
}

void PLAlertTest::withoutButtonsThereIsAnOK()
{
    QFETCH(const QString, language);
    m_environment.setLanguage(language);
    PLAlert alert = question();
    alert.buttons.clear();
    QString title;
    const auto escape = [&](QMessageBox &box) {
        title = box.buttons().size() == 1 ? buttonOf(box, 0)->text() : QString();
        QTest::keyClick(&box, Qt::Key_Escape);
    };
    QCOMPARE(runAndLook(alert, escape), PLAlert::FirstButton);
    QCOMPARE(title, u"OK"_s);
    QCOMPARE(runAndLook(alert, [](QMessageBox &box) { QTest::keyClick(&box, Qt::Key_Return); }),
             PLAlert::FirstButton);
}

void PLAlertTest::withAParentItIsASheet()
{
    QWidget parent;
    parent.show();
    Qt::WindowModality modality = Qt::NonModal;
    const QWidget *owner = nullptr;
    runAndLook(
        question(),
        [&](QMessageBox &box) {
            modality = box.windowModality();
            owner = box.parentWidget();
        },
        &parent);
    QCOMPARE(modality, Qt::WindowModal);
    QCOMPARE(owner, &parent);
}

void PLAlertTest::withoutAParentItHoldsTheWholeProgram()
{
    Qt::WindowModality modality = Qt::NonModal;
    runAndLook(question(), [&](QMessageBox &box) { modality = box.windowModality(); });
    QCOMPARE(modality, Qt::ApplicationModal);
}

void PLAlertTest::anErrorShowsItsMessage()
{
    QString message;
    QTimer::singleShot(0, this, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        message = box ? box->text() : QString();
        if (box)
            box->close();
    });
    PLAlert::presentError({PLApplicationErrorDomain, 1, u"Le disque est plein."_s});
    QCOMPARE(message, u"Le disque est plein."_s);
}

void PLAlertTest::aResponderAnswersInItsPlace()
{
    QString asked;
    PLAlert::setResponder([&](const PLAlert &alert) {
        asked = alert.message;
        return 1001;
    });
    QCOMPARE(question().runModal(), 1001);
    PLAlert::setResponder({});
    QCOMPARE(asked, u"Fermer ?"_s);
}

QTEST_MAIN(PLAlertTest)
#include "PLAlertTest.moc"

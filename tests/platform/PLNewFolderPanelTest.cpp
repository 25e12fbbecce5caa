// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLNewFolderPanel.h"

#include "support/PLTestEnvironment.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class PLNewFolderPanelTest final : public QObject
{
    Q_OBJECT

private:
    PLTestEnvironment m_environment;
    std::unique_ptr<PLNewFolderPanel> m_panel;
    QLineEdit *m_field = nullptr;

    QPushButton *button(const QString &title) const;

private Q_SLOTS:
    void init();

    void theProposedNameIsSelected();
    void returnCreates();
    void escapeCancels();
    void aNameThatIsNoneIsRefused_data();
    void aNameThatIsNoneIsRefused();
    void theNameIsTrimmed();
};

QPushButton *PLNewFolderPanelTest::button(const QString &title) const
{
    const QList<QPushButton *> buttons = m_panel->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->text() == title)
            return button;
    }
    return nullptr;
}

void PLNewFolderPanelTest::init()
{
    const PLPanelTexts texts{u"Nouveau carnet"_s, u"Créer"_s, u"Un dossier sera créé."_s};
    m_panel = std::make_unique<PLNewFolderPanel>(texts, u"Nom :"_s, u"Mon roman"_s, nullptr);
    m_field = m_panel->findChild<QLineEdit *>();
    QVERIFY(m_field);
    m_panel->show();
    QVERIFY(QTest::qWaitForWindowActive(m_panel.get()));
}

void PLNewFolderPanelTest::theProposedNameIsSelected()
{
    QCOMPARE(m_panel->windowTitle(), u"Nouveau carnet"_s);
    QCOMPARE(m_field->selectedText(), u"Mon roman"_s);
    QVERIFY(m_field->hasFocus());
}

void PLNewFolderPanelTest::returnCreates()
{
    QTest::keyClicks(m_field, u"Deux"_s);
    QTest::keyClick(m_field, Qt::Key_Return);
    QCOMPARE(m_panel->result(), int(QDialog::Accepted));
    QVERIFY(!m_panel->isVisible());
    QVERIFY(m_panel->path().endsWith(u"/Deux"_s));
}

void PLNewFolderPanelTest::escapeCancels()
{
    QTest::keyClick(m_field, Qt::Key_Escape);
    QCOMPARE(m_panel->result(), int(QDialog::Rejected));
    QVERIFY(!m_panel->isVisible());
}

void PLNewFolderPanelTest::aNameThatIsNoneIsRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("nothing") << u""_s;
    QTest::newRow("spaces") << u"   "_s;
    QTest::newRow("this folder") << u"."_s;
    QTest::newRow("the folder above") << u".."_s;
    QTest::newRow("a path") << u"a/b"_s;
    QTest::newRow("an absolute path") << u"/tmp"_s;
}

void PLNewFolderPanelTest::aNameThatIsNoneIsRefused()
{
    QFETCH(const QString, name);
    m_field->setText(name);
    QVERIFY(!button(u"Créer"_s)->isEnabled());
    QTest::keyClick(m_field, Qt::Key_Return);
    QVERIFY(m_panel->isVisible());
    m_field->setText(u"un nom"_s);
    QVERIFY(button(u"Créer"_s)->isEnabled());
}

void PLNewFolderPanelTest::theNameIsTrimmed()
{
    m_field->setText(u"  Un été  "_s);
    QVERIFY(m_panel->path().endsWith(u"/Un été"_s));
}

QTEST_MAIN(PLNewFolderPanelTest)
#include "PLNewFolderPanelTest.moc"

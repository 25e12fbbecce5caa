// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "notebook_window/PLPageSession.h"

#include "editor/PLEditorView.h"
#include "editor/PLPageTextView.h"
#include "platform/PLAlert.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestNotebook.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

/// A page of a notebook, open in an editor, without a window.
class PLPageSessionTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aPageIsWrittenTwoSecondsAfterTheLastKeyAndNotBefore();
    void openingAPageIsNoChange();
    void aFileIsWrittenBackWithItsHeader_data();
    void aFileIsWrittenBackWithItsHeader();
    void tagsGoIntoTheHeader_data();
    void tagsGoIntoTheHeader();
    void theSameTagsAgainWriteNothing();
    void theSaveCommandWritesAnUnchangedPage();
    void withoutAPageNothingIsWritten();
    void anUnreadablePageIsNotOpened();
    void aPageThatNoEditorHoldsIsNotOpened();
    void aPageWithALargeHeaderIsOpened();
    void proseBetweenSceneBreaksStaysProse();
    void aFailedSaveKeepsTheTextAndIsTriedAgain();
    void aFailedSaveCanBeQuiet();
    void aSaveDuringTheAlertOfAFailedOneDoesNothing();
    void typingGoesOnBehindTheAlertOfASaveThatCameByItself_data();
    void typingGoesOnBehindTheAlertOfASaveThatCameByItself();
    void whatIsTypedWhileTheAlertIsUpIsSaved();
    void aPageInLatin1BecomesUTF8WhenItIsSaved();

private:
    bool open(const QString &relative);
    void type(const QString &text);

    PLTestEnvironment m_environment;
    std::unique_ptr<PLTestNotebook> m_notebook;
    std::unique_ptr<PLEditorView> m_editor;
    std::unique_ptr<PLPageSession> m_session;
    QList<PLAlert> m_alerts;
};

void PLPageSessionTest::init()
{
    m_notebook = std::make_unique<PLTestNotebook>();
    m_editor = std::make_unique<PLEditorView>();
    m_session = std::make_unique<PLPageSession>(*m_editor);
    m_alerts.clear();
    PLAlert::setResponder([this](const PLAlert &alert) {
        m_alerts.append(alert);
        return PLAlert::FirstButton;
    });
}

void PLPageSessionTest::cleanup()
{
    m_session.reset();
    m_editor.reset();
    PLAlert::setResponder({});
}

bool PLPageSessionTest::open(const QString &relative)
{
    return m_session->openItem(PLProjectItem::itemWithURL(m_notebook->url(relative), PLSection::Book),
                               nullptr);
}

void PLPageSessionTest::type(const QString &text)
{
    QTest::keyClicks(m_editor->textView(), text);
}

void PLPageSessionTest::aPageIsWrittenTwoSecondsAfterTheLastKeyAndNotBefore()
{
    m_notebook->write(u"Livre/A.md"_s, u"fin"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    const auto *timer = m_session->findChild<QTimer *>();
    QCOMPARE(timer->interval(), 2000);
    QVERIFY(timer->isSingleShot());
    QVERIFY(!timer->isActive());

    type(u"a"_s);
    QTRY_VERIFY(timer->remainingTime() < 1000);
    const int remaining = timer->remainingTime();
    type(u"b"_s);
    QVERIFY(timer->remainingTime() > remaining);
    QCOMPARE(m_notebook->read(u"Livre/A.md"_s), u"fin"_s);
    QTRY_COMPARE(m_notebook->read(u"Livre/A.md"_s), u"abfin"_s);

    QVERIFY(!m_session->isDirty());
    QVERIFY(!timer->isActive());
}

void PLPageSessionTest::openingAPageIsNoChange()
{
    QSignalSpy changes(m_session.get(), &PLPageSession::dirtyChanged);
    m_notebook->write(u"Livre/A.md"_s, u"---\ntags: a\n---\n\ntexte"_s);
    QVERIFY(open(u"Livre/A.md"_s));

    QVERIFY(!m_session->isDirty());
    QCOMPARE(changes.count(), 0);
    QCOMPARE(m_editor->text(), u"texte"_s);
    QCOMPARE(m_editor->tags(), QStringList{u"a"_s});
}

void PLPageSessionTest::aFileIsWrittenBackWithItsHeader_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");

    QTest::newRow("no header") << u"texte"_s << u"xtexte"_s;
    QTest::newRow("empty") << u""_s << u"x"_s;
    QTest::newRow("other keys in their order")
        << u"---\ntype: lieu\nhumeur: gaie\ntags: a, b\n---\n\ntexte"_s
        << u"---\ntype: lieu\nhumeur: gaie\ntags: a, b\n---\n\nxtexte"_s;
    QTest::newRow("tags first") << u"---\ntags: a\ntype: lieu\n---\n\ntexte"_s
                                << u"---\ntags: a\ntype: lieu\n---\n\nxtexte"_s;
    QTest::newRow("empty tags line") << u"---\ntype: lieu\ntags:\n---\n\ntexte"_s
                                     << u"---\ntype: lieu\ntags:\n---\n\nxtexte"_s;
    QTest::newRow("byte-order mark before a header")
        << u"\ufeff---\ntags: a\n---\n\ntexte"_s << u"\ufeff---\ntags: a\n---\n\nxtexte"_s;
    QTest::newRow("byte-order mark alone") << u"\ufefftexte"_s << u"\ufeffxtexte"_s;
    QTest::newRow("Windows line ends") << u"un\r\ndeux\r\n"_s << u"xun\ndeux\n"_s;
    QTest::newRow("lone carriage return") << u"un\rdeux"_s << u"xun\rdeux"_s;
    QTest::newRow("header never closed") << u"---\ntags: a\n"_s << u"x---\ntags: a\n"_s;
    QTest::newRow("NUL") << u"a\0b"_s << u"xa\0b"_s;
}

void PLPageSessionTest::aFileIsWrittenBackWithItsHeader()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    m_notebook->write(u"Livre/A.md"_s, before);
    QVERIFY(open(u"Livre/A.md"_s));

    type(u"x"_s);
    QVERIFY(m_session->saveCurrentItem());

    QFile file(m_notebook->path(u"Livre/A.md"_s));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), after.toUtf8());
}

void PLPageSessionTest::tagsGoIntoTheHeader_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QStringList>("tags");
    QTest::addColumn<QString>("after");

    QTest::newRow("after the other keys")
        << u"---\ntitle: T\ntype: fiche\n---\n\ntexte"_s << QStringList{u"bal"_s}
        << u"---\ntitle: T\ntype: fiche\ntags: bal\n---\n\ntexte"_s;
    QTest::newRow("a new header") << u"texte"_s << QStringList{u"bal"_s, u"été"_s}
                                  << u"---\ntags: bal, été\n---\n\ntexte"_s;
    QTest::newRow("none left") << u"---\ntags: bal\ntype: fiche\n---\n\ntexte"_s << QStringList()
                               << u"---\ntags:\ntype: fiche\n---\n\ntexte"_s;
}

void PLPageSessionTest::tagsGoIntoTheHeader()
{
    QFETCH(QString, before);
    QFETCH(QStringList, tags);
    QFETCH(QString, after);
    m_notebook->write(u"Livre/A.md"_s, before);
    QVERIFY(open(u"Livre/A.md"_s));

    m_editor->setTags(tags);
    QVERIFY(m_session->saveChangedTags());

    QCOMPARE(m_notebook->read(u"Livre/A.md"_s), after);
    QVERIFY(!m_session->haveTagsChanged());
}

void PLPageSessionTest::theSameTagsAgainWriteNothing()
{
    m_notebook->write(u"Livre/A.md"_s, u"---\ntags: a,b\n---\n\ntexte"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    m_editor->setTags({u"a"_s, u" b "_s});

    QVERIFY(!m_session->saveChangedTags());
    QCOMPARE(m_notebook->read(u"Livre/A.md"_s), u"---\ntags: a,b\n---\n\ntexte"_s);
}

void PLPageSessionTest::theSaveCommandWritesAnUnchangedPage()
{
    m_notebook->write(u"Livre/A.md"_s, u"texte"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    QVERIFY(QFile::remove(m_notebook->path(u"Livre/A.md"_s)));

    m_session->saveDocument();

    QCOMPARE(m_notebook->read(u"Livre/A.md"_s), u"texte"_s);
    QVERIFY(!m_session->isDirty());
}

void PLPageSessionTest::withoutAPageNothingIsWritten()
{
    m_session->contentDidChange();
    m_session->saveDocument();

    QVERIFY(!m_session->isDirty());
    QVERIFY(m_session->saveCurrentItem());
    QVERIFY(!m_session->saveChangedTags());
    QVERIFY(m_alerts.isEmpty());
}

void PLPageSessionTest::anUnreadablePageIsNotOpened()
{
    m_notebook->write(u"Livre/A.md"_s, u"texte"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    PLError error;
    const auto missing = PLProjectItem::itemWithURL(m_notebook->url(u"Livre/Rien.md"_s), PLSection::Book);

    QVERIFY(!m_session->openItem(missing, &error));
    QCOMPARE(m_session->currentItem(), nullptr);
    QCOMPARE(error.message, u"Le fichier ou le dossier n'existe pas ou plus."_s);
}

void PLPageSessionTest::aPageThatNoEditorHoldsIsNotOpened()
{
    const QString text(4'000'001, u'x');
    m_notebook->write(u"Livre/A.md"_s, u"texte"_s);
    m_notebook->write(u"Livre/B.md"_s, text);
    QVERIFY(open(u"Livre/A.md"_s));
    PLError error;
    const auto item = PLProjectItem::itemWithURL(m_notebook->url(u"Livre/B.md"_s), PLSection::Book);

    QVERIFY(!m_session->openItem(item, &error));
    QCOMPARE(error.message, u"Le fichier est trop gros."_s);
    QCOMPARE(m_session->currentItem(), nullptr);
    QVERIFY(m_session->saveCurrentItem());
    QVERIFY(m_notebook->read(u"Livre/B.md"_s) == text);
}

void PLPageSessionTest::aPageWithALargeHeaderIsOpened()
{
    const QString header = u"---\ncle: "_s + QString(4'000'001, u'x') + u"\n---\n"_s;
    m_notebook->write(u"Livre/A.md"_s, header + u"texte"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    QCOMPARE(m_editor->textView()->pageText(), u"texte"_s);
    m_editor->textView()->insertPlainText(u"Un "_s);
    QVERIFY(m_session->saveCurrentItem());
    QVERIFY(m_notebook->read(u"Livre/A.md"_s) == header + u"\nUn texte"_s);
}

void PLPageSessionTest::proseBetweenSceneBreaksStaysProse()
{
    const QString text = u"---\nIl pleut.\n---\nFin."_s;
    m_notebook->write(u"Livre/A.md"_s, u""_s);
    QVERIFY(open(u"Livre/A.md"_s));
    m_editor->textView()->insertPlainText(text);
    QVERIFY(m_session->saveCurrentItem());
    m_session->closeItem();

    QVERIFY(open(u"Livre/A.md"_s));

    QCOMPARE(m_editor->text(), text);
    QCOMPARE(m_notebook->read(u"Livre/A.md"_s), u"---\n---\n\n"_s + text);
    m_session->saveDocument();
    QCOMPARE(m_notebook->read(u"Livre/A.md"_s), u"---\n---\n\n"_s + text);
}

void PLPageSessionTest::aFailedSaveKeepsTheTextAndIsTriedAgain()
{
    m_notebook->write(u"Livre/A.md"_s, u"texte"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    type(u"x"_s);
    m_notebook->hideSection(u"Livre"_s);

    QVERIFY(!m_session->saveCurrentItem());
    QCOMPARE(m_alerts.size(), 1);
    QCOMPARE(m_alerts[0].message, u"Impossible d'enregistrer « A »"_s);
    QVERIFY(m_alerts[0].informativeText.startsWith(
        u"Le fichier ou le dossier n'existe pas ou plus.\n\nSi le carnet"_s));
    QVERIFY(m_session->isDirty());
    QCOMPARE(m_editor->text(), u"xtexte"_s);

    m_notebook->showSection(u"Livre"_s);
    QCOMPARE(m_notebook->read(u"Livre/A.md"_s), u"texte"_s);
    QVERIFY(m_session->saveCurrentItem());
    QCOMPARE(m_notebook->read(u"Livre/A.md"_s), u"xtexte"_s);
    QCOMPARE(m_alerts.size(), 1);
}

void PLPageSessionTest::aFailedSaveCanBeQuiet()
{
    m_notebook->write(u"Livre/A.md"_s, u"texte"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    type(u"x"_s);
    m_notebook->hideSection(u"Livre"_s);

    QVERIFY(!m_session->saveCurrentItem(PLPageSession::SaveFailure::KeepQuiet));
    QVERIFY(m_alerts.isEmpty());
    QVERIFY(m_session->isDirty());
}

void PLPageSessionTest::aSaveDuringTheAlertOfAFailedOneDoesNothing()
{
    m_notebook->write(u"Livre/A.md"_s, u"texte"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    type(u"x"_s);
    m_notebook->hideSection(u"Livre"_s);
    int alerts = 0;
    bool answer = true;
    PLAlert::setResponder([&](const PLAlert &) {
        ++alerts;
        answer = m_session->saveCurrentItem();
        return PLAlert::FirstButton;
    });

    QVERIFY(!m_session->saveCurrentItem());
    QCOMPARE(alerts, 1);
    QVERIFY(!answer);
    QVERIFY(!m_session->isSaving());
}

void PLPageSessionTest::typingGoesOnBehindTheAlertOfASaveThatCameByItself_data()
{
    QTest::addColumn<std::function<void(PLPageSession &)>>("save");
    QTest::addColumn<bool>("goesOn");
    using Save = std::function<void(PLPageSession &)>;
    QTest::newRow("two seconds after the last key")
        << Save([](PLPageSession &session) { Q_EMIT session.findChild<QTimer *>()->timeout({}); }) << true;
    QTest::newRow("the Save command") << Save([](PLPageSession &session) { session.saveDocument(); }) << true;
    QTest::newRow("before another page, or the end")
        << Save([](PLPageSession &session) { session.saveCurrentItem(); }) << false;
}

void PLPageSessionTest::typingGoesOnBehindTheAlertOfASaveThatCameByItself()
{
    QFETCH(const std::function<void(PLPageSession &)>, save);
    QFETCH(const bool, goesOn);
    m_notebook->write(u"Livre/A.md"_s, u"texte"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    type(u"x"_s);
    m_notebook->hideSection(u"Livre"_s);
    save(*m_session);
    QCOMPARE(m_alerts.size(), 1);
    QCOMPARE(m_alerts.first().letsTypingGoOn, goesOn);
}

void PLPageSessionTest::whatIsTypedWhileTheAlertIsUpIsSaved()
{
    m_notebook->write(u"Livre/A.md"_s, u"texte"_s);
    QVERIFY(open(u"Livre/A.md"_s));
    type(u"x"_s);
    m_notebook->hideSection(u"Livre"_s);
    bool hasTriedMeanwhile = false;
    PLAlert::setResponder([&](const PLAlert &) {
        type(u"y"_s);
        QSignalSpy tries(m_session->findChild<QTimer *>(), &QTimer::timeout);
        hasTriedMeanwhile = tries.wait();
        m_notebook->showSection(u"Livre"_s);
        return PLAlert::FirstButton;
    });

    QVERIFY(!m_session->saveCurrentItem());
    QVERIFY(hasTriedMeanwhile);
    QTRY_COMPARE(m_notebook->read(u"Livre/A.md"_s), u"xytexte"_s);
    QVERIFY(!m_session->isDirty());
}

void PLPageSessionTest::aPageInLatin1BecomesUTF8WhenItIsSaved()
{
    m_notebook->write(u"Livre/A.md"_s, QString());
    QFile file(m_notebook->path(u"Livre/A.md"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("---\ntags: \xe9t\xe9\n---\n\nd\xe9j\xe0 \x93vu\x94");
    file.close();

    QVERIFY(open(u"Livre/A.md"_s));
    QCOMPARE(m_editor->text(), u"déjà “vu”"_s);
    type(u"x"_s);
    QVERIFY(m_session->saveCurrentItem());
    QCOMPARE(m_notebook->read(u"Livre/A.md"_s), u"---\ntags: été\n---\n\nxdéjà “vu”"_s);
}

QTEST_MAIN(PLPageSessionTest)
#include "PLPageSessionTest.moc"

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfStage.h"
#include "support/PLTestEnvironment.h"
#include "support/PLTestFiles.h"

#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QPoint emptySpace(5, 300);

void sendClick(PLShelfView &shelf, QEvent::Type type, const QPoint &point, quint64 time)
{
    QMouseEvent event(type, point, shelf.mapToGlobal(point), Qt::LeftButton, Qt::LeftButton, {});
    event.setTimestamp(time);
    QApplication::sendEvent(&shelf, &event);
}

/// Asks for the context menu as the mouse does, and answers whether it was shown.
bool asksForMenu(PLShelfView &shelf, const QPoint &point,
                 QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse)
{
    QContextMenuEvent event(reason, point, shelf.mapToGlobal(point));
    QApplication::sendEvent(&shelf, &event);
    const bool isShown = shelf.menu()->isVisible();
    shelf.menu()->hide();
    return isShown;
}

/// Files over a shelf.
class Drag final
{
public:
    Drag(PLShelfView &shelf, const QStringList &paths) : m_shelf(shelf)
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls.append(QUrl::fromLocalFile(path));
        mime.setUrls(urls);
    }

    bool enter(const QPoint &point)
    {
        QDragEnterEvent event(point, actions, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(&m_shelf, &event);
        return event.isAccepted();
    }
    Qt::DropAction move(const QPoint &point)
    {
        QDragMoveEvent event(point, actions, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(&m_shelf, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    }
    void leave()
    {
        QDragLeaveEvent event;
        QApplication::sendEvent(&m_shelf, &event);
    }
    bool drop(const QPoint &point)
    {
        QDropEvent event(point, actions, &mime, Qt::LeftButton, {});
        QApplication::sendEvent(&m_shelf, &event);
        return event.isAccepted();
    }

    QMimeData mime;
    Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;

private:
    PLShelfView &m_shelf;
};

} // namespace

class PLShelfViewInputTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aClickSelectsABookAndTakesTheFocus();
    void aClickOnEmptySpaceSelectsNone();
    void otherButtonsSelectNothing();
    void aDoubleClickOpensABook();
    void fourQuickClicksOpenOnce();
    void aDoubleClickBesideAnEarlierClickOpens();
    void theArrowsGoThroughTheBooks();
    void theArrowsBeginWithTheFirstBook_data();
    void theArrowsBeginWithTheFirstBook();
    void anEmptyShelfSwallowsTheArrows();
    void returnAndEnterOpenTheSelectedBook();
    void returnHeldDownOpensOnce();
    void otherKeysArePassedOn_data();
    void otherKeysArePassedOn();
    void theDelegateMayReplaceTheBooks();
    void theMenuIsForTheBookUnderThePointer();
    void emptySpaceHasNoMenuAndKeepsTheSelection();
    void theMenuKeysAreForTheSelectedBook();
    void theFirstPictureOfADragCounts_data();
    void theFirstPictureOfADragCounts();
    void aFolderNamedAsAPictureIsNone();
    void aPictureOverABookOffersACopyAndSelectsNothing();
    void aMissingNotebookTakesNoPicture();
    void otherFilesOfferNothing();
    void aDragThatCannotBeCopiedOffersNothing();
    void aDroppedPictureIsHandedOver();
    void aDropCountsThoughTheLastMoveHadNoAnswer();
    void aDropBesideTheBooksIsRefused();

private:
    PLTestEnvironment m_environment;
};

void PLShelfViewInputTest::aClickSelectsABookAndTakesTheFocus()
{
    const PLShelfStage stage(7);
    stage.shelf->clearFocus();
    stage.click(stage.centerOf(6));
    QCOMPARE(stage.shelf->selectedIndex(), 6);
    QVERIFY(stage.shelf->hasFocus());
    stage.click(stage.shelf->rectForBookAtIndex(2).topLeft() - QPoint(3, 3));
    QCOMPARE(stage.delegate.selections, QList<int>({6, 2}));
    QVERIFY(stage.delegate.opened.isEmpty());
}

void PLShelfViewInputTest::aClickOnEmptySpaceSelectsNone()
{
    const PLShelfStage stage(3);
    stage.shelf->setSelectedIndex(1);
    stage.click(emptySpace);
    QCOMPARE(stage.delegate.selections, QList<int>({1, -1}));
}

void PLShelfViewInputTest::otherButtonsSelectNothing()
{
    const PLShelfStage stage(3);
    stage.shelf->setSelectedIndex(1);
    QTest::mouseClick(stage.shelf, Qt::RightButton, {}, emptySpace);
    QTest::mouseClick(stage.shelf, Qt::MiddleButton, {}, stage.centerOf(0));
    QTest::mouseDClick(stage.shelf, Qt::MiddleButton, {}, stage.centerOf(0));
    QCOMPARE(stage.delegate.selections, QList<int>({1}));
    QVERIFY(stage.delegate.opened.isEmpty());
}

void PLShelfViewInputTest::aDoubleClickOpensABook()
{
    const PLShelfStage stage(3);
    QTest::mouseDClick(stage.shelf, Qt::LeftButton, {}, stage.centerOf(2));
    QCOMPARE(stage.shelf->selectedIndex(), 2);
    QCOMPARE(stage.delegate.opened, QStringList{u"Carnet 2"_s});
    QTest::mouseDClick(stage.shelf, Qt::LeftButton, {}, emptySpace);
    QCOMPARE(stage.shelf->selectedIndex(), -1);
    QCOMPARE(stage.delegate.opened.size(), 1);
}

void PLShelfViewInputTest::fourQuickClicksOpenOnce()
{
    const PLShelfStage stage(3);
    const QPoint book = stage.centerOf(2);
    sendClick(*stage.shelf, QEvent::MouseButtonPress, book, 1000);
    sendClick(*stage.shelf, QEvent::MouseButtonDblClick, book, 1100);
    sendClick(*stage.shelf, QEvent::MouseButtonPress, book, 1200);
    sendClick(*stage.shelf, QEvent::MouseButtonDblClick, book, 1300);
    QCOMPARE(stage.delegate.opened.size(), 1);
    sendClick(*stage.shelf, QEvent::MouseButtonPress, book, 9000);
    sendClick(*stage.shelf, QEvent::MouseButtonDblClick, book, 9100);
    QCOMPARE(stage.delegate.opened.size(), 2);
}

void PLShelfViewInputTest::aDoubleClickBesideAnEarlierClickOpens()
{
    const PLShelfStage stage(3);
    sendClick(*stage.shelf, QEvent::MouseButtonPress, stage.centerOf(0), 1000);
    sendClick(*stage.shelf, QEvent::MouseButtonPress, stage.centerOf(1), 1100);
    sendClick(*stage.shelf, QEvent::MouseButtonDblClick, stage.centerOf(1), 1200);
    sendClick(*stage.shelf, QEvent::MouseButtonPress, stage.centerOf(2), 1300);
    sendClick(*stage.shelf, QEvent::MouseButtonDblClick, stage.centerOf(2), 1400);
    QCOMPARE(stage.delegate.opened, QStringList({u"Carnet 1"_s, u"Carnet 2"_s}));
}

void PLShelfViewInputTest::theArrowsGoThroughTheBooks()
{
    const PLShelfStage stage(7); // in rows of five
    stage.shelf->setSelectedIndex(4);
    for (const int key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Left})
        stage.press(key);
    QCOMPARE(stage.delegate.selections, QList<int>({4, 5, 6, 5}));
    stage.shelf->setSelectedIndex(0);
    stage.press(Qt::Key_Left);
    QCOMPARE(stage.shelf->selectedIndex(), 0);
}

void PLShelfViewInputTest::theArrowsBeginWithTheFirstBook_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("right") << int(Qt::Key_Right);
    QTest::newRow("left") << int(Qt::Key_Left);
}

void PLShelfViewInputTest::theArrowsBeginWithTheFirstBook()
{
    QFETCH(int, key);
    const PLShelfStage stage(3);
    stage.press(key);
    QCOMPARE(stage.shelf->selectedIndex(), 0);
}

void PLShelfViewInputTest::anEmptyShelfSwallowsTheArrows()
{
    const PLShelfStage stage(0);
    for (const int key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Return, Qt::Key_Enter}) {
        QKeyEvent event(QEvent::KeyPress, key, {});
        QApplication::sendEvent(stage.shelf, &event);
        QVERIFY(event.isAccepted());
    }
    QVERIFY(stage.delegate.selections.isEmpty() && stage.delegate.opened.isEmpty());
}

void PLShelfViewInputTest::returnAndEnterOpenTheSelectedBook()
{
    const PLShelfStage stage(3);
    stage.press(Qt::Key_Return);
    QVERIFY(stage.delegate.opened.isEmpty());
    stage.shelf->setSelectedIndex(1);
    stage.press(Qt::Key_Return);
    stage.press(Qt::Key_Enter);
    QCOMPARE(stage.delegate.opened, QStringList({u"Carnet 1"_s, u"Carnet 1"_s}));
}

void PLShelfViewInputTest::returnHeldDownOpensOnce()
{
    const PLShelfStage stage(3);
    stage.shelf->setSelectedIndex(1);
    for (const bool isRepeat : {false, true, true}) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_s, isRepeat);
        QApplication::sendEvent(stage.shelf, &event);
        QVERIFY(event.isAccepted());
    }
    QCOMPARE(stage.delegate.opened.size(), 1);
}

void PLShelfViewInputTest::otherKeysArePassedOn_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("up") << int(Qt::Key_Up);
    QTest::newRow("down") << int(Qt::Key_Down);
    QTest::newRow("delete") << int(Qt::Key_Delete);
    QTest::newRow("backspace") << int(Qt::Key_Backspace);
    QTest::newRow("space") << int(Qt::Key_Space);
    QTest::newRow("letter") << int(Qt::Key_A);
}

void PLShelfViewInputTest::otherKeysArePassedOn()
{
    QFETCH(int, key);
    const PLShelfStage stage(30);
    stage.shelf->setSelectedIndex(7);
    QKeyEvent event(QEvent::KeyPress, key, {});
    event.accept();
    static_cast<QObject *>(stage.shelf)->event(&event);
    QVERIFY(!event.isAccepted());
    QCOMPARE(stage.shelf->selectedIndex(), 7);
    QCOMPARE(stage.shelf->books().size(), size_t(30));
    QVERIFY(stage.delegate.opened.isEmpty());
}

/// Run with the address sanitizer, this looks at a book that its shelf no longer has.
void PLShelfViewInputTest::theDelegateMayReplaceTheBooks()
{
    PLShelfStage stage(3);
    stage.delegate.whenTold = [&stage] { stage.shelf->setBooks({}); };
    QTest::mouseDClick(stage.shelf, Qt::LeftButton, {}, stage.centerOf(2));
    QCOMPARE(stage.delegate.opened, QStringList{u"Carnet 2"_s});
    QCOMPARE(stage.shelf->selectedIndex(), -1);

    stage.shelf->setBooks(PLTestBooks(2));
    Drag drag(*stage.shelf, {u"/i/a.png"_s});
    drag.enter(stage.centerOf(1));
    QVERIFY(drag.drop(stage.centerOf(1)));
    QCOMPARE(stage.delegate.dropped, QStringList{u"a.png on Carnet 1"_s});
}

void PLShelfViewInputTest::theMenuIsForTheBookUnderThePointer()
{
    const PLShelfStage stage(3);
    QMenu menu;
    menu.addAction(u"Ouvrir"_s);
    stage.shelf->setMenu(&menu);
    QCOMPARE(stage.shelf->menuForPoint(stage.centerOf(1)), &menu);
    QCOMPARE(stage.shelf->selectedIndex(), 1);
    QVERIFY(asksForMenu(*stage.shelf, stage.centerOf(2)));
    QCOMPARE(stage.delegate.selections, QList<int>({1, 2}));
}

void PLShelfViewInputTest::emptySpaceHasNoMenuAndKeepsTheSelection()
{
    const PLShelfStage stage(3);
    QMenu menu;
    menu.addAction(u"Ouvrir"_s);
    stage.shelf->setMenu(&menu);
    stage.shelf->setSelectedIndex(1);
    QVERIFY(!asksForMenu(*stage.shelf, emptySpace));
    QVERIFY(!stage.shelf->menuForPoint(emptySpace));
    QCOMPARE(stage.shelf->selectedIndex(), 1);
}

void PLShelfViewInputTest::theMenuKeysAreForTheSelectedBook()
{
    const PLShelfStage stage(3);
    QMenu menu;
    menu.addAction(u"Ouvrir"_s);
    stage.shelf->setMenu(&menu);
    QVERIFY(!asksForMenu(*stage.shelf, stage.centerOf(0), QContextMenuEvent::Keyboard));
    QTest::keyClick(stage.shelf, Qt::Key_F10, Qt::ShiftModifier);
    QVERIFY(!menu.isVisible());

    stage.shelf->setSelectedIndex(2);
    QVERIFY(asksForMenu(*stage.shelf, stage.centerOf(0), QContextMenuEvent::Keyboard));
    QCOMPARE(stage.shelf->selectedIndex(), 2);
    QTest::keyClick(stage.shelf, Qt::Key_F10, Qt::ShiftModifier);
    QVERIFY(menu.isVisible());
    QVERIFY(stage.shelf->rectForBookAtIndex(2).contains(stage.shelf->mapFromGlobal(menu.pos())));
}

void PLShelfViewInputTest::theFirstPictureOfADragCounts_data()
{
    QTest::addColumn<QStringList>("urls");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nothing") << QStringList() << QString();
    QTest::newRow("a picture") << QStringList{u"file:///i/a.png"_s} << u"a.png"_s;
    QTest::newRow("capitals") << QStringList{u"file:///i/A.JPeG"_s} << u"A.JPeG"_s;
    QTest::newRow("every kind has its turn")
        << QStringList{u"file:///i/a.webp"_s, u"file:///i/a.tiff"_s, u"file:///i/b.bmp"_s} << u"a.tiff"_s;
    QTest::newRow("after a notebook")
        << QStringList{u"file:///i/carnet"_s, u"file:///i/a.gif"_s} << u"a.gif"_s;
    QTest::newRow("a text") << QStringList{u"file:///i/a.txt"_s} << QString();
    QTest::newRow("only a full stop in the folder") << QStringList{u"file:///i.png/a"_s} << QString();
    QTest::newRow("nothing before the extension") << QStringList{u"file:///i/.png"_s} << QString();
    QTest::newRow("elsewhere") << QStringList{u"https://example.org/a.png"_s} << QString();
}

void PLShelfViewInputTest::theFirstPictureOfADragCounts()
{
    QFETCH(QStringList, urls);
    QFETCH(QString, expected);
    QMimeData mime;
    mime.setUrls(QUrl::fromStringList(urls));
    QCOMPARE(PLShelfView::imageURLFromDrag(mime).fileName(), expected);
}

void PLShelfViewInputTest::aFolderNamedAsAPictureIsNone()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(u"a.png"_s));
    QVERIFY(PLMakeFile(folder.filePath(u"b.png"_s)));
    QMimeData mime;
    mime.setUrls(
        {QUrl::fromLocalFile(folder.filePath(u"a.png"_s)), QUrl::fromLocalFile(folder.filePath(u"b.png"_s))});
    QCOMPARE(PLShelfView::imageURLFromDrag(mime).fileName(), u"b.png"_s);
}

void PLShelfViewInputTest::aPictureOverABookOffersACopyAndSelectsNothing()
{
    const PLShelfStage stage(3);
    stage.shelf->setSelectedIndex(0);
    Drag drag(*stage.shelf, {u"/i/a.png"_s});
    QVERIFY(drag.enter(stage.centerOf(1)));
    QCOMPARE(stage.shelf->dropIndex(), 1);
    QCOMPARE(drag.move(stage.centerOf(2)), Qt::CopyAction);
    QCOMPARE(stage.shelf->dropIndex(), 2);
    QCOMPARE(drag.move(emptySpace), Qt::IgnoreAction);
    QCOMPARE(stage.shelf->dropIndex(), -1);
    QCOMPARE(drag.move(stage.centerOf(0)), Qt::CopyAction);
    drag.leave();
    QCOMPARE(stage.shelf->dropIndex(), -1);
    QCOMPARE(stage.delegate.selections, QList<int>({0}));
}

void PLShelfViewInputTest::aMissingNotebookTakesNoPicture()
{
    const PLShelfStage stage(0);
    std::vector<PLShelfBook> books = PLTestBooks(2);
    books[1].available = false;
    stage.shelf->setBooks(books);
    Drag drag(*stage.shelf, {u"/i/a.png"_s});
    drag.enter(stage.centerOf(1));
    QCOMPARE(stage.shelf->dropIndex(), -1);
    QCOMPARE(drag.move(stage.centerOf(1)), Qt::IgnoreAction);
    QCOMPARE(drag.move(stage.centerOf(0)), Qt::CopyAction);
    QCOMPARE(drag.move(stage.centerOf(1)), Qt::IgnoreAction);
    QVERIFY(!drag.drop(stage.centerOf(1)));
    QVERIFY(stage.delegate.dropped.isEmpty());
}

void PLShelfViewInputTest::otherFilesOfferNothing()
{
    const PLShelfStage stage(2);
    Drag drag(*stage.shelf, {u"/i/a.txt"_s});
    drag.enter(stage.centerOf(1));
    QCOMPARE(drag.move(stage.centerOf(1)), Qt::IgnoreAction);
    QCOMPARE(stage.shelf->dropIndex(), -1);
    QVERIFY(!drag.drop(stage.centerOf(1)));
    QVERIFY(stage.delegate.dropped.isEmpty());
}

void PLShelfViewInputTest::aDragThatCannotBeCopiedOffersNothing()
{
    const PLShelfStage stage(2);
    Drag drag(*stage.shelf, {u"/i/a.png"_s});
    drag.actions = Qt::LinkAction;
    drag.enter(stage.centerOf(1));
    QCOMPARE(drag.move(stage.centerOf(1)), Qt::IgnoreAction);
    QCOMPARE(stage.shelf->dropIndex(), -1);
}

void PLShelfViewInputTest::aDroppedPictureIsHandedOver()
{
    const PLShelfStage stage(3);
    stage.shelf->setSelectedIndex(0);
    Drag drag(*stage.shelf, {u"/i/notes.txt"_s, u"/i/a.png"_s});
    drag.enter(stage.centerOf(2));
    drag.move(stage.centerOf(2));
    QVERIFY(drag.drop(stage.centerOf(2)));
    QCOMPARE(stage.delegate.dropped, QStringList{u"a.png on Carnet 2"_s});
    QCOMPARE(stage.shelf->dropIndex(), -1);
    QCOMPARE(stage.shelf->selectedIndex(), 0);
}

// Under X11 the data is asked of the other program each time; one whose button was just released no longer
// answers for the move before.
void PLShelfViewInputTest::aDropCountsThoughTheLastMoveHadNoAnswer()
{
    const PLShelfStage stage(3);
    Drag drag(*stage.shelf, {u"/i/a.png"_s});
    drag.enter(stage.centerOf(2));
    drag.mime.clear();
    drag.move(stage.centerOf(2));
    QCOMPARE(stage.shelf->dropIndex(), -1);
    drag.mime.setUrls({QUrl::fromLocalFile(u"/i/a.png"_s)});
    QVERIFY(drag.drop(stage.centerOf(2)));
    QCOMPARE(stage.delegate.dropped, QStringList{u"a.png on Carnet 2"_s});
}

void PLShelfViewInputTest::aDropBesideTheBooksIsRefused()
{
    const PLShelfStage stage(3);
    Drag drag(*stage.shelf, {u"/i/a.png"_s});
    drag.enter(stage.centerOf(2));
    drag.move(emptySpace);
    QVERIFY(!drag.drop(emptySpace));
    QVERIFY(stage.delegate.dropped.isEmpty());
}

QTEST_MAIN(PLShelfViewInputTest)
#include "PLShelfViewInputTest.moc"

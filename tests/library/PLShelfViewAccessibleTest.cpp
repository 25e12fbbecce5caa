// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfViewAccessible.h"

#include "library/PLShelfStage.h"
#include "support/PLTestEnvironment.h"

#include <QAccessible>

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface *interfaceOf(const PLShelfStage &stage)
{
    return QAccessible::queryAccessibleInterface(stage.shelf);
}

/// Whether what is told can be heard here: off-screen there is nothing that listens.
bool canListen()
{
    return QGuiApplication::platformName() != u"offscreen"_s &&
           QTest::qWaitFor([] { return QAccessible::isActive(); });
}

QStringList told; // the events for a screen reader, as "type child"

void note(QAccessibleEvent *event)
{
    if (qobject_cast<PLShelfView *>(event->object()))
        told.append(u"%1 %2"_s.arg(int(event->type())).arg(event->child()));
}

} // namespace

class PLShelfViewAccessibleTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theShelfIsAListWithAName();
    void anEmptyShelfSaysSo();
    void eachBookIsAnItem();
    void aBookIsNamedByTitleAndAuthor();
    void aMissingBookSaysSoInTheInterfaceLanguage();
    void theSelectedBookSaysSo();
    void aBookHasAPlaceOnTheScreen();
    void aBookOutOfSightSaysSo();
    void aBookThatIsGoneIsNotValid();
    void aBookOfAShelfThatIsGoingIsNotValid();
    void pressingABookOpensIt();
    void focusingABookSelectsIt();
    void aBookShowsItsMenu();
    void movingTheSelectionIsTold();
    void newBooksAreTold();

private:
    PLTestEnvironment m_environment;
};

void PLShelfViewAccessibleTest::theShelfIsAListWithAName()
{
    const PLShelfStage stage(2);
    const QAccessibleInterface *shelf = interfaceOf(stage);
    QVERIFY(shelf);
    QCOMPARE(shelf->role(), QAccessible::List);
    QCOMPARE(shelf->text(QAccessible::Name), u"Ma bibliothèque"_s);
    QVERIFY(shelf->state().focusable && shelf->state().focused);
}

void PLShelfViewAccessibleTest::anEmptyShelfSaysSo()
{
    const PLShelfStage stage(0);
    stage.shelf->setEmptyMessage(u"Rien"_s);
    QCOMPARE(interfaceOf(stage)->childCount(), 0);
    QCOMPARE(interfaceOf(stage)->text(QAccessible::Description), u"Rien"_s);
    stage.shelf->setBooks(PLTestBooks(1));
    QCOMPARE(interfaceOf(stage)->text(QAccessible::Description), QString());
}

void PLShelfViewAccessibleTest::eachBookIsAnItem()
{
    const PLShelfStage stage(2);
    QAccessibleInterface *shelf = interfaceOf(stage);
    QCOMPARE(shelf->childCount(), 2);
    QCOMPARE(shelf->child(1)->role(), QAccessible::ListItem);
    QCOMPARE(shelf->child(1)->parent(), shelf);
    QCOMPARE(shelf->indexOfChild(shelf->child(1)), 1);
    QCOMPARE(shelf->indexOfChild(shelf), -1);
    QCOMPARE(shelf->child(1), shelf->child(1)); // one object, however often it is asked for
    QVERIFY(!shelf->child(2) && !shelf->child(-1));
}

void PLShelfViewAccessibleTest::aBookIsNamedByTitleAndAuthor()
{
    const PLShelfStage stage(0);
    std::vector<PLShelfBook> books = PLTestBooks(2);
    books[1].author = u"Anne Duval"_s;
    stage.shelf->setBooks(books);
    QCOMPARE(interfaceOf(stage)->child(0)->text(QAccessible::Name), u"Carnet 0"_s);
    QCOMPARE(interfaceOf(stage)->child(1)->text(QAccessible::Name), u"Carnet 1, Anne Duval"_s);
}

void PLShelfViewAccessibleTest::aMissingBookSaysSoInTheInterfaceLanguage()
{
    const PLShelfStage stage(0);
    std::vector<PLShelfBook> books = PLTestBooks(1);
    books[0].available = false;
    stage.shelf->setBooks(books);
    QCOMPARE(interfaceOf(stage)->child(0)->text(QAccessible::Name), u"Carnet 0 (introuvable)"_s);
    m_environment.setLanguage(u"en"_s);
    QCOMPARE(interfaceOf(stage)->child(0)->text(QAccessible::Name), u"Carnet 0 (missing)"_s);
    m_environment.setLanguage(u"fr"_s);
}

void PLShelfViewAccessibleTest::theSelectedBookSaysSo()
{
    const PLShelfStage stage(2);
    stage.shelf->setSelectedIndex(1);
    const QAccessibleInterface *shelf = interfaceOf(stage);
    QVERIFY(!shelf->child(0)->state().selected && shelf->child(0)->state().selectable);
    QVERIFY(shelf->child(1)->state().selected && shelf->child(1)->state().focused);
    QCOMPARE(shelf->focusChild(), shelf->child(1));
    stage.shelf->clearFocus();
    QVERIFY(shelf->child(1)->state().selected && !shelf->child(1)->state().focused);
}

void PLShelfViewAccessibleTest::aBookHasAPlaceOnTheScreen()
{
    const PLShelfStage stage(20);
    stage.area.verticalScrollBar()->setValue(100);
    const QAccessibleInterface *book = interfaceOf(stage)->child(6);
    const QPoint onScreen = stage.shelf->mapToGlobal(stage.centerOf(6));
    QVERIFY(book->rect().contains(onScreen));
    QCOMPARE(book->rect().size(), QSize(116, 166));
    QCOMPARE(interfaceOf(stage)->childAt(onScreen.x(), onScreen.y()), book);
    QVERIFY(!interfaceOf(stage)->childAt(onScreen.x(), onScreen.y() + 2000));
}

void PLShelfViewAccessibleTest::aBookOutOfSightSaysSo()
{
    const PLShelfStage stage(20);
    QVERIFY(!interfaceOf(stage)->child(0)->state().offscreen);
    QVERIFY(interfaceOf(stage)->child(19)->state().offscreen);
}

void PLShelfViewAccessibleTest::aBookThatIsGoneIsNotValid()
{
    const PLShelfStage stage(2);
    QAccessibleInterface *book = interfaceOf(stage)->child(1);
    stage.shelf->setBooks(PLTestBooks(1));
    QVERIFY(!book->isValid() && book->state().invalid);
    QCOMPARE(book->text(QAccessible::Name), QString());
    QVERIFY(book->rect().isNull());
    book->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(stage.shelf->selectedIndex(), -1);
}

/// A screen reader may ask at the very last moment.
void PLShelfViewAccessibleTest::aBookOfAShelfThatIsGoingIsNotValid()
{
    auto shelf = std::make_unique<PLShelfView>();
    shelf->setBooks(PLTestBooks(1));
    const PLShelfBookAccessible book(shelf.get(), 0);
    QVERIFY(book.isValid());
    QStringList names{book.text(QAccessible::Name)};
    connect(shelf.get(), &QObject::destroyed, this, [&] { names.append(book.text(QAccessible::Name)); });
    shelf.reset();
    QCOMPARE(names, QStringList({u"Carnet 0"_s, QString()}));
    QVERIFY(!book.isValid() && !book.parent());
}

void PLShelfViewAccessibleTest::pressingABookOpensIt()
{
    const PLShelfStage stage(2);
    QAccessibleActionInterface *actions = interfaceOf(stage)->child(1)->actionInterface();
    QCOMPARE(actions->actionNames().first(), QAccessibleActionInterface::pressAction());
    QCOMPARE(actions->localizedActionName(QAccessibleActionInterface::pressAction()), u"Ouvrir"_s);
    actions->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(stage.delegate.opened, QStringList{u"Carnet 1"_s});
    QCOMPARE(stage.shelf->selectedIndex(), 1);
}

void PLShelfViewAccessibleTest::focusingABookSelectsIt()
{
    const PLShelfStage stage(20);
    stage.shelf->clearFocus();
    interfaceOf(stage)->child(17)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(stage.shelf->hasFocus());
    QCOMPARE(stage.shelf->selectedIndex(), 17);
    QVERIFY(!interfaceOf(stage)->child(17)->state().offscreen);
    QVERIFY(stage.delegate.opened.isEmpty());
}

void PLShelfViewAccessibleTest::aBookShowsItsMenu()
{
    const PLShelfStage stage(2);
    QMenu menu;
    menu.addAction(u"Ouvrir"_s);
    stage.shelf->setMenu(&menu);
    interfaceOf(stage)->child(1)->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QTRY_VERIFY(menu.isVisible());
    QCOMPARE(stage.shelf->selectedIndex(), 1);
}

void PLShelfViewAccessibleTest::movingTheSelectionIsTold()
{
    const PLShelfStage stage(3);
    if (!canListen())
        QSKIP(
            "needs a desktop with a screen reader (QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1)");
    QAccessible::installUpdateHandler(note);
    told.clear();
    stage.press(Qt::Key_Right);
    stage.press(Qt::Key_Right);
    const QString selection = QString::number(int(QAccessible::Selection));
    const QString focus = QString::number(int(QAccessible::Focus));
    QCOMPARE(told, QStringList({selection + u" 0"_s, focus + u" 0"_s, selection + u" 1"_s, focus + u" 1"_s}));
    told.clear();
    stage.shelf->clearFocus();
    stage.shelf->setFocus(); // the reader is led to the book, not left at the list
    QTRY_COMPARE(told.last(), focus + u" 1"_s);
    QAccessible::installUpdateHandler(nullptr);
}

void PLShelfViewAccessibleTest::newBooksAreTold()
{
    const PLShelfStage stage(3);
    if (!canListen())
        QSKIP(
            "needs a desktop with a screen reader (QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1)");
    QAccessible::installUpdateHandler(note);
    told.clear();
    std::vector<PLShelfBook> books = PLTestBooks(3);
    books[1].cover = QImage(1, 1, QImage::Format_RGB32);
    stage.shelf->setBooks(books); // that is for the eyes alone
    stage.shelf->setBooks(PLTestBooks(2));
    QAccessible::installUpdateHandler(nullptr);
    QCOMPARE(told, QStringList{QString::number(int(QAccessible::ObjectReorder)) + u" -1"_s});
}

QTEST_MAIN(PLShelfViewAccessibleTest)
#include "PLShelfViewAccessibleTest.moc"

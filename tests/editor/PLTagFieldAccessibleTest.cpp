// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldAccessible.h"

#include "editor/PLTagFieldStage.h"
#include "support/PLTestEnvironment.h"

#include <QAccessible>
#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface *interfaceOf(const PLTagFieldStage &stage)
{
    return QAccessible::queryAccessibleInterface(stage.field);
}

} // namespace

class PLTagFieldAccessibleTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFieldHasANameAValueAndAText();
    void eachTokenIsAListItem();
    void aTokenSaysThatItIsSelected();
    void aTokenIsDeletedAndOpenedByItsActions();
    void aTokenThatIsGoneIsNotValid();
    void aTokenOfAFieldThatIsGoingIsNotValid();
    void aTokenHasAPlaceOnTheScreen();
    void theTypedTextIsReadAndWritten();
    void theProposalsAreAListWithAName();

private:
    PLTestEnvironment m_environment;
};

void PLTagFieldAccessibleTest::theFieldHasANameAValueAndAText()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    stage.field->setPlaceholderText(u"Ajoutez"_s);
    stage.type(u"c"_s);
    const QAccessibleInterface *field = interfaceOf(stage);
    QVERIFY(field);
    QCOMPARE(field->role(), QAccessible::EditableText);
    QCOMPARE(field->text(QAccessible::Name), u"Tags"_s);
    QCOMPARE(field->text(QAccessible::Value), u"a, b, c"_s);
    QCOMPARE(field->text(QAccessible::Description), u"Ajoutez"_s);
    QVERIFY(field->state().focused && field->state().editable);
}

void PLTagFieldAccessibleTest::eachTokenIsAListItem()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    QAccessibleInterface *field = interfaceOf(stage);
    QCOMPARE(field->childCount(), 2);
    QCOMPARE(field->child(1)->text(QAccessible::Name), u"b"_s);
    QCOMPARE(field->child(1)->role(), QAccessible::ListItem);
    QCOMPARE(field->child(1)->parent(), field);
    QCOMPARE(field->indexOfChild(field->child(1)), 1);
    QCOMPARE(field->child(1), field->child(1)); // one object, however often it is asked for
    QVERIFY(!field->child(2) && !field->child(-1));
}

void PLTagFieldAccessibleTest::aTokenSaysThatItIsSelected()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    stage.press(Qt::Key_Backspace);
    const QAccessibleInterface *field = interfaceOf(stage);
    QVERIFY(!field->child(0)->state().selected);
    QVERIFY(field->child(1)->state().selected && field->child(1)->state().focused);
    QCOMPARE(field->focusChild(), field->child(1));
}

void PLTagFieldAccessibleTest::aTokenIsDeletedAndOpenedByItsActions()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s, u"c"_s});
    QSignalSpy changed(stage.field, &PLTagField::textDidChange);
    const QAccessibleInterface *field = interfaceOf(stage);
    QAccessibleActionInterface *actions = field->child(0)->actionInterface();
    QVERIFY(actions && actions->actionNames().contains(PLTagTokenAccessible::deleteAction()));
    QCOMPARE(actions->localizedActionName(PLTagTokenAccessible::deleteAction()), u"Supprimer le tag"_s);
    actions->doAction(PLTagTokenAccessible::deleteAction());
    QCOMPARE(stage.tokens(), u"b|c"_s);
    QCOMPARE(changed.size(), 1);
    field->child(1)->actionInterface()->doAction(PLTagTokenAccessible::editAction());
    QCOMPARE(stage.typed(), u"c"_s);
    field->child(0)->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    QCOMPARE(stage.field->model().selectedToken(), std::optional(0));
}

void PLTagFieldAccessibleTest::aTokenThatIsGoneIsNotValid()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    QAccessibleInterface *token = interfaceOf(stage)->child(1);
    stage.field->setTags({u"a"_s});
    QVERIFY(!token->isValid() && token->state().invalid);
    QCOMPARE(token->text(QAccessible::Name), QString());
    token->actionInterface()->doAction(PLTagTokenAccessible::deleteAction());
    QCOMPARE(stage.tokens(), u"a"_s);
}

/// A screen reader may ask at the very last moment.
void PLTagFieldAccessibleTest::aTokenOfAFieldThatIsGoingIsNotValid()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    const QAccessibleInterface *token = interfaceOf(stage)->child(1);
    QVERIFY(token->isValid());
    QVERIFY(stage.field->hasFocus());
    bool isAsked = false;
    bool isValid = true;
    // The field gives up the focus when it is no more than a widget.
    const auto ask = connect(qApp, &QApplication::focusChanged, this, [&] {
        isAsked = true;
        isValid = token->isValid() || !token->text(QAccessible::Name).isNull() || token->parent();
    });
    delete stage.field;
    disconnect(ask);
    QVERIFY(isAsked);
    QVERIFY(!isValid);
}

void PLTagFieldAccessibleTest::aTokenHasAPlaceOnTheScreen()
{
    const PLTagFieldStage stage({u"aaa"_s, u"bbb"_s});
    const QAccessibleInterface *field = interfaceOf(stage);
    const QRect rect = field->child(1)->rect();
    QCOMPARE(rect, stage.field->rectOfToken(1).translated(stage.field->mapToGlobal(QPoint())));
    QCOMPARE(field->childAt(rect.center().x(), rect.center().y()), field->child(1));
}

void PLTagFieldAccessibleTest::theTypedTextIsReadAndWritten()
{
    const PLTagFieldStage stage({u"a"_s});
    stage.type(u"Lyon"_s);
    QAccessibleTextInterface *text = interfaceOf(stage)->textInterface();
    QCOMPARE(text->characterCount(), 4);
    QCOMPARE(text->cursorPosition(), 4);
    QCOMPARE(text->text(0, 2), u"Ly"_s);
    text->setSelection(0, 0, 2);
    QCOMPARE(stage.field->model().selectedText(), u"Ly"_s);
    interfaceOf(stage)->editableTextInterface()->replaceText(0, 2, u"Li"_s);
    QCOMPARE(stage.typed(), u"Lion"_s);
    const QRect letter = text->characterRect(1);
    QCOMPARE(text->offsetAtPoint(letter.center() - QPoint(letter.width() / 4 + 1, 0)), 1);
}

void PLTagFieldAccessibleTest::theProposalsAreAListWithAName()
{
    PLTagFieldStage stage;
    stage.delegate.known = QStringList{u"Paris"_s, u"port"_s};
    stage.type(u"p"_s);
    const QAccessibleInterface *list = QAccessible::queryAccessibleInterface(stage.field->shownCompletion());
    QVERIFY(list);
    QCOMPARE(list->role(), QAccessible::List);
    QCOMPARE(list->text(QAccessible::Name), u"Tags proposés"_s);
    QCOMPARE(list->child(1)->text(QAccessible::Name), u"port"_s);
}

QTEST_MAIN(PLTagFieldAccessibleTest)
#include "PLTagFieldAccessibleTest.moc"

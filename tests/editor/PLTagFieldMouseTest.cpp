// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldStage.h"
#include "support/PLTestEnvironment.h"

#include <QAction>
#include <QApplication>
#include <QDrag>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace {

void click(const PLTagFieldStage &stage, const QPoint &point, Qt::KeyboardModifiers modifiers = {})
{
    QTest::mouseClick(stage.field, Qt::LeftButton, modifiers, point);
}

QPoint centre(const PLTagFieldStage &stage, int token)
{
    return stage.field->rectOfToken(token).center();
}

void moveMouse(QWidget *widget, const QPoint &point)
{
    QMouseEvent event(QEvent::MouseMove, point, widget->mapToGlobal(point), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(widget, &event);
}

/// Carries data over the field and lets it go there; the action that the field took, nothing if it refused.
std::optional<Qt::DropAction> dropAt(const PLTagFieldStage &stage, const QPoint &point, const QMimeData &data,
                                     Qt::DropAction action)
{
    QDragEnterEvent enter(point, Qt::CopyAction | action, &data, Qt::LeftButton, {});
    enter.setDropAction(action);
    enter.ignore();
    QCoreApplication::sendEvent(stage.field, &enter);
    if (!enter.isAccepted())
        return std::nullopt;
    QDropEvent drop(point, Qt::CopyAction | action, &data, Qt::LeftButton, {});
    drop.setDropAction(action);
    QCoreApplication::sendEvent(stage.field, &drop);
    return drop.dropAction();
}

} // namespace

class PLTagFieldMouseTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aClickSelectsAToken();
    void aClickBesideATokenPlacesTheCaret();
    void aClickWithShiftExtendsTheSelection();
    void draggingOverEmptyGroundSelects();
    void aDoubleClickOpensAToken();
    void aDoubleClickSelectsAWordOfTheTypedText();
    void aClickKeepsTheTypedText();
    void aTokenIsDraggedToAnotherPlace();
    void aDroppedListBecomesTokens();
    void droppedTokensStayInTheFieldTheyComeFrom();
    void whatHasNoTextIsNotTaken();
    void theWheelScrollsALongRowAndNoOther();
    void theMenuSpeaksTheInterfaceLanguage();

private:
    PLTestEnvironment m_environment;
};

void PLTagFieldMouseTest::aClickSelectsAToken()
{
    const PLTagFieldStage stage({u"a"_s, u"bbb"_s, u"c"_s});
    click(stage, centre(stage, 1));
    QCOMPARE(stage.field->model().selectedToken(), std::optional(1));
    stage.press(Qt::Key_Delete);
    QCOMPARE(stage.tokens(), u"a|c"_s);
}

void PLTagFieldMouseTest::aClickBesideATokenPlacesTheCaret()
{
    const PLTagFieldStage stage({u"a"_s, u"b"_s});
    click(stage, QPoint(stage.field->rectOfToken(0).right() + 2, 12));
    QCOMPARE(stage.field->model().caret(), 1);
    click(stage, QPoint(stage.field->width() - 5, 12));
    QCOMPARE(stage.field->model().caret(), 2);
    click(stage, QPoint(1, 12));
    QCOMPARE(stage.field->model().caret(), 0);
    stage.type(u"xyz"_s);
    const QRect text = stage.field->rectOfText();
    click(stage, QPoint(text.left() + 1, 12));
    QCOMPARE(stage.field->model().caret(), 0);
    click(stage, QPoint(text.right(), 12));
    QCOMPARE(stage.field->model().caret(), 3);
}

void PLTagFieldMouseTest::aClickWithShiftExtendsTheSelection()
{
    const PLTagFieldStage stage({u"aaa"_s, u"bbb"_s, u"ccc"_s});
    click(stage, centre(stage, 0));
    click(stage, QPoint(stage.field->rectOfToken(2).right() - 2, 12), Qt::ShiftModifier);
    QCOMPARE(stage.field->model().selectedText(), u"aaa, bbb, ccc"_s);
}

void PLTagFieldMouseTest::draggingOverEmptyGroundSelects()
{
    const PLTagFieldStage stage({u"aaa"_s, u"bbb"_s, u"ccc"_s});
    QTest::mousePress(stage.field, Qt::LeftButton, {}, QPoint(stage.field->width() - 5, 12));
    moveMouse(stage.field, QPoint(stage.field->rectOfToken(1).left(), 12));
    QTest::mouseRelease(stage.field, Qt::LeftButton, {}, QPoint(stage.field->rectOfToken(1).left(), 12));
    QCOMPARE(stage.field->model().selectedText(), u"bbb, ccc"_s);
}

void PLTagFieldMouseTest::aDoubleClickOpensAToken()
{
    const PLTagFieldStage stage({u"a"_s, u"bbb"_s, u"c"_s});
    QTest::mouseDClick(stage.field, Qt::LeftButton, {}, centre(stage, 1));
    QCOMPARE(stage.typed(), u"bbb"_s);
    QCOMPARE(stage.field->model().selectedText(), u"bbb"_s);
}

void PLTagFieldMouseTest::aDoubleClickSelectsAWordOfTheTypedText()
{
    const PLTagFieldStage stage({u"a"_s});
    stage.type(u"grande ville"_s);
    const QPoint place = stage.field->rectOfText().topRight() + QPoint(-8, 8);
    QTest::mouseDClick(stage.field, Qt::LeftButton, {}, place);
    QCOMPARE(stage.field->model().selectedText(), u"ville"_s);
}

void PLTagFieldMouseTest::aClickKeepsTheTypedText()
{
    const PLTagFieldStage stage({u"aaa"_s});
    stage.type(u"Lyon"_s);
    click(stage, centre(stage, 0));
    QCOMPARE(stage.list(), u"aaa|Lyon"_s);
}

void PLTagFieldMouseTest::aTokenIsDraggedToAnotherPlace()
{
    const PLTagFieldStage stage({u"aaa"_s, u"bbb"_s, u"ccc"_s});
    QSignalSpy changed(stage.field, &PLTagField::textDidChange);
    const QPoint target(stage.field->width() - 5, 12);
    QString dragged;
    stage.field->setDragRunner([&](QDrag *drag) { // no desktop here to carry it
        dragged = drag->mimeData()->text();
        dropAt(stage, target, *drag->mimeData(), Qt::MoveAction);
        drag->deleteLater();
    });
    QTest::mousePress(stage.field, Qt::LeftButton, {}, centre(stage, 0));
    moveMouse(stage.field, centre(stage, 0) + QPoint(QApplication::startDragDistance() + 1, 0));
    QCOMPARE(dragged, u"aaa"_s);
    QCOMPARE(stage.tokens(), u"bbb|ccc|aaa"_s);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(stage.field->model().selectedText(), u"aaa"_s);
    stage.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(stage.tokens(), u"aaa|bbb|ccc"_s);
}

void PLTagFieldMouseTest::aDroppedListBecomesTokens()
{
    const PLTagFieldStage stage({u"aaa"_s, u"bbb"_s});
    stage.other->setFocus();
    QMimeData data;
    data.setText(u"x, y"_s);
    const QPoint target(stage.field->rectOfToken(0).right() + 2, 12);
    QVERIFY(dropAt(stage, target, data, Qt::CopyAction));
    QCOMPARE(stage.tokens(), u"aaa|x|y|bbb"_s);
    QVERIFY(stage.field->hasFocus());
}

void PLTagFieldMouseTest::droppedTokensStayInTheFieldTheyComeFrom()
{
    const PLTagFieldStage stage;
    QMimeData data;
    data.setText(u"x"_s);
    QCOMPARE(dropAt(stage, QPoint(10, 12), data, Qt::MoveAction), std::optional(Qt::CopyAction));
    QCOMPARE(stage.typed(), u"x"_s);
}

void PLTagFieldMouseTest::whatHasNoTextIsNotTaken()
{
    const PLTagFieldStage stage;
    QMimeData data;
    data.setData(u"image/png"_s, "x");
    QVERIFY(!dropAt(stage, QPoint(10, 12), data, Qt::CopyAction));
}

void PLTagFieldMouseTest::theWheelScrollsALongRowAndNoOther()
{
    const auto turn = [](PLTagField *field, int angle) {
        QWheelEvent event(QPointF(10, 10), field->mapToGlobal(QPointF(10, 10)), {}, QPoint(0, angle), {}, {},
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(field, &event);
        return event.isAccepted();
    };
    const PLTagFieldStage brief({u"a"_s});
    QVERIFY(!turn(brief.field, -120));
    const PLTagFieldStage stage({u"un long tag"_s, u"un autre tag"_s, u"un tag encore"_s}, 150);
    stage.press(Qt::Key_Home);
    const int left = stage.field->rectOfToken(0).left();
    QVERIFY(turn(stage.field, -120));
    QVERIFY(stage.field->rectOfToken(0).left() < left);
    QVERIFY(turn(stage.field, 240));
    QCOMPARE(stage.field->rectOfToken(0).left(), 6);
    QVERIFY(!turn(stage.field, 120));
}

void PLTagFieldMouseTest::theMenuSpeaksTheInterfaceLanguage()
{
    for (const auto &[language, title] : {std::pair(u"fr"_s, u"Couper"_s), std::pair(u"en"_s, u"Cut"_s)}) {
        m_environment.setLanguage(language);
        const PLTagFieldStage stage({u"a"_s});
        stage.field->select(0, 1);
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 12),
                                stage.field->mapToGlobal(QPoint(20, 12)));
        QCoreApplication::sendEvent(stage.field, &event);
        auto *menu = stage.field->findChild<QMenu *>();
        QVERIFY(menu);
        QCOMPARE(menu->actions().first()->text(), title);
        menu->actions().first()->trigger();
        QCOMPARE(stage.tokens(), QString());
        menu->close();
    }
}

QTEST_MAIN(PLTagFieldMouseTest)
#include "PLTagFieldMouseTest.moc"

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagField.h"
#include "editor/PLTagToken.h"
#include "i18n/PLLocalization.h"
#include "platform/PLToolTip.h"

#include <QApplication>
#include <QClipboard>
#include <QDrag>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

/// Beside the plain text of copied tokens, so that they are pasted as tokens: one tag on each line.
QString tagsFormat()
{
    return u"application/x-aquilane-tags"_s;
}

struct MenuEntry
{
    const char16_t *title; ///< null for a separator
    PLCommand command;
};

constexpr MenuEntry menuEntries[] = {
    {u"Couper", PLCommand::Cut},
    {u"Copier", PLCommand::Copy},
    {u"Coller", PLCommand::Paste},
    {nullptr, PLCommand::None},
    {u"Tout sélectionner", PLCommand::SelectAll},
};

} // namespace

void PLTagField::performCommand(PLCommand command, int)
{
    endComposing();
    switch (command) {
    case PLCommand::Undo:
        return apply([this] { m_model.undo(); });
    case PLCommand::Redo:
        return apply([this] { m_model.redo(); });
    case PLCommand::Cut:
        copySelection();
        return apply([this] { m_model.removeSelection(); });
    case PLCommand::Copy:
        return copySelection();
    case PLCommand::Paste:
        if (const QMimeData *source = QGuiApplication::clipboard()->mimeData())
            insertMimeData(*source);
        return;
    case PLCommand::SelectAll:
        return apply([this] { m_model.selectAll(); });
    default:
        return;
    }
}

/// The selection as a list for everybody, and as tags for another field if it holds a token.
QMimeData *PLTagField::mimeDataOfSelection() const
{
    auto *mimeData = new QMimeData;
    mimeData->setText(m_model.selectedText());
    const bool isTypedText =
        m_model.selectionStart() >= m_model.textIndex() && m_model.selectionEnd() <= m_model.textEnd();
    if (!isTypedText)
        mimeData->setData(tagsFormat(), m_model.selectedTags().join(u'\n').toUtf8());
    return mimeData;
}

void PLTagField::copySelection() const
{
    if (m_model.hasSelection())
        QGuiApplication::clipboard()->setMimeData(mimeDataOfSelection());
}

void PLTagField::insertMimeData(const QMimeData &source)
{
    if (source.hasFormat(tagsFormat())) {
        const QString tags = QString::fromUtf8(source.data(tagsFormat()));
        apply([&] { m_model.insertTags(tags.split(u'\n')); });
    } else if (source.hasText()) {
        apply([&] { m_model.insertPasted(source.text()); });
    }
}

void PLTagField::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    endComposing();
    m_pressPoint = event->position().toPoint();
    const std::optional<int> token = tokenAt(m_pressPoint);
    const bool extend = event->modifiers() & Qt::ShiftModifier;
    m_press = token && !extend ? Press::MaybeDragging : Press::Selecting;
    if (m_press == Press::Selecting)
        return apply([&] { m_model.moveCaret(positionAt(m_pressPoint), extend); });
    const int position = m_model.positionOfToken(*token);
    if (!m_model.isTokenSelected(*token))
        apply([&] { m_model.setSelection(position, position + 1); });
}

void PLTagField::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint point = event->position().toPoint();
    if (m_press == Press::None)
        setCursor(tokenAt(point) ? Qt::ArrowCursor : Qt::IBeamCursor);
    else if (m_press == Press::Selecting)
        apply([&] { m_model.moveCaret(positionAt(point), true); });
    else if ((point - m_pressPoint).manhattanLength() >= QApplication::startDragDistance())
        startDrag();
}

void PLTagField::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const std::optional<int> token = tokenAt(m_pressPoint);
    const bool wasClick = std::exchange(m_press, Press::None) == Press::MaybeDragging;
    if (!wasClick || !token)
        return;
    const int position = m_model.positionOfToken(*token);
    apply([&] { m_model.setSelection(position, position + 1); });
}

void PLTagField::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_press = Press::None;
    if (const std::optional<int> token = tokenAt(event->position().toPoint()))
        return editToken(*token);
    if (!rectOfText().contains(event->position().toPoint()))
        return mousePressEvent(event);
    apply([this] {
        const int end = m_model.positionAfterWord(qMin(m_model.caret(), m_model.textEnd() - 1));
        m_model.setSelection(m_model.positionBeforeWord(end), end);
    });
}

/// What is dropped elsewhere is a copy: a tag must not leave the page by a slip of the hand.
void PLTagField::startDrag()
{
    m_press = Press::None;
    const std::optional<int> token = tokenAt(m_pressPoint);
    if (!token)
        return;
    const PLTagFieldLayout::Token &shown = m_layout.tokens()[size_t(*token)];
    QPixmap picture(shown.rect.size().toSize() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    PLTagToken::draw(painter, QRectF(QPointF(), shown.rect.size()), shown.shownText,
                     PLTagToken::State::Selected);
    painter.end();
    auto *drag = new QDrag(this);
    drag->setMimeData(mimeDataOfSelection());
    drag->setPixmap(picture);
    drag->setHotSpot(m_pressPoint - rectOfToken(*token).topLeft());
    const QPointer<PLTagField> self = this; // the window may close under a drag
    m_isDragging = true;
    m_runDrag(drag);
    if (self)
        m_isDragging = false;
}

void PLTagField::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasText() || event->mimeData()->hasFormat(tagsFormat()))
        event->acceptProposedAction();
}

void PLTagField::dragMoveEvent(QDragMoveEvent *event)
{
    m_dropPosition = positionAt(event->position().toPoint());
    event->acceptProposedAction();
    update();
}

void PLTagField::dragLeaveEvent(QDragLeaveEvent *)
{
    m_dropPosition.reset();
    update();
}

void PLTagField::dropEvent(QDropEvent *event)
{
    m_dropPosition.reset();
    endComposing();
    const int position = positionAt(event->position().toPoint());
    event->acceptProposedAction();
    if (m_isDragging)
        return apply([&] { m_model.moveSelection(position); });
    event->setDropAction(Qt::CopyAction); // the text stays where it came from
    setFocus(Qt::MouseFocusReason);
    apply([&] { m_model.moveCaret(position); });
    insertMimeData(*event->mimeData());
}

void PLTagField::wheelEvent(QWheelEvent *event)
{
    const double before = m_scroll;
    const QPoint steps = event->pixelDelta().isNull() ? event->angleDelta() / 3 : event->pixelDelta();
    const int sideways = isRightToLeft() ? -steps.x() : steps.x();
    scrollBy(-(steps.x() != 0 ? sideways : steps.y()));
    event->setAccepted(m_scroll != before);
}

void PLTagField::contextMenuEvent(QContextMenuEvent *event)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const MenuEntry &entry : menuEntries) {
        if (!entry.title) {
            menu->addSeparator();
            continue;
        }
        QAction *action = menu->addAction(PLLocalizedString(QString::fromUtf16(entry.title)));
        action->setEnabled(stateOfCommand(entry.command, 0)->enabled);
        connect(action, &QAction::triggered, this,
                [this, command = entry.command] { performCommand(command, 0); });
    }
    menu->popup(event->reason() == QContextMenuEvent::Keyboard ? mapToGlobal(caretRect().bottomLeft())
                                                               : event->globalPos());
}

/// The whole of a tag that is shown cut.
QString PLTagField::toolTipAt(const QPoint &point) const
{
    const std::optional<int> token = tokenAt(point);
    if (!token || m_layout.tokens()[size_t(*token)].shownText == m_model.tokens()[*token])
        return QString();
    return PLPlainToolTip(m_model.tokens()[*token].left(1000));
}

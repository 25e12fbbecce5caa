// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagField.h"

#include "editor/PLTagFieldAccessible.h"
#include "editor/PLTagFieldCompletion.h"
#include "editor/PLTagToken.h"

#include <QDrag>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QStyleHints>
#include <QTimerEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int margin = 6;         // between the field's ends and the row
constexpr double caretMargin = 8; // the least distance of the caret from the field's ends

} // namespace

PLTagField::PLTagField(QWidget *parent) : QWidget(parent)
{
    PLTagFieldAccessible::install();
    setAttribute(Qt::WA_InputMethodEnabled);
    setFocusPolicy(Qt::StrongFocus);
    setAcceptDrops(true);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setCursor(Qt::IBeamCursor);
    setAccessibleName(u"Tags"_s);
    m_model.setFilter([this](const QStringList &tags, int index) {
        return m_delegate ? m_delegate->shouldAddObjects(tags, index) : tags;
    });
    m_runDrag = [](QDrag *drag) { drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction); };
    updateLayout();
}

PLTagField::~PLTagField()
{
    delete m_completion; // it belongs to the window
}

void PLTagField::setTags(const QStringList &tags)
{
    if (isComposing())
        QGuiApplication::inputMethod()->reset();
    m_composed = {};
    const QStringList tokens = m_model.tokens();
    const QString text = m_model.text();
    m_model.setTags(tags);
    m_scroll = 0;
    updateLayout();
    if (hasFocus())
        showCaret();
    updateCompletion();
    announce(tokens, text);
}

void PLTagField::setPlaceholderText(const QString &text)
{
    m_placeholder = text;
    update();
}

void PLTagField::select(int anchor, int caret)
{
    apply([&] { m_model.setSelection(anchor, caret); });
}

void PLTagField::removeToken(int token)
{
    apply([&] { m_model.removeToken(token); });
}

void PLTagField::editToken(int token)
{
    endComposing();
    apply([&] { m_model.editToken(token); });
}

void PLTagField::replaceText(int offset, int length, const QString &text)
{
    apply([&] {
        m_model.removeText(offset, length);
        m_model.moveCaret(m_model.textIndex() + offset);
        m_model.insertText(text);
    });
}

PLTagFieldCompletion *PLTagField::shownCompletion() const
{
    return m_completion && m_completion->isVisible() ? m_completion.data() : nullptr;
}

QRect PLTagField::rectOfToken(int token) const
{
    if (token < 0 || token >= int(m_layout.tokens().size()))
        return {};
    return m_layout.tokens()[size_t(token)].rect.translated(rowOrigin()).toRect();
}

QRect PLTagField::rectOfText() const
{
    return m_layout.textRect().translated(rowOrigin()).toRect();
}

QRect PLTagField::rectOfCaret(int position) const
{
    const QPointF origin = rowOrigin();
    return QRect(qRound(origin.x() + m_layout.xOfPosition(position)), int(origin.y()) + 1, 1,
                 PLTagToken::height - 2);
}

int PLTagField::positionAt(const QPoint &point) const
{
    return m_layout.positionAt(point.x() - rowOrigin().x());
}

std::optional<int> PLTagField::tokenAt(const QPoint &point) const
{
    return m_layout.tokenAt(point.x() - rowOrigin().x());
}

std::optional<PLCommandState> PLTagField::stateOfCommand(PLCommand command, int) const
{
    switch (command) {
    case PLCommand::Undo:
        return PLCommandState{m_model.canUndo() && !isComposing()};
    case PLCommand::Redo:
        return PLCommandState{m_model.canRedo() && !isComposing()};
    case PLCommand::Cut:
    case PLCommand::Copy:
        return PLCommandState{m_model.hasSelection()};
    case PLCommand::Paste:
    case PLCommand::SelectAll:
        return PLCommandState{};
    default:
        return std::nullopt;
    }
}

/// Makes a change of the model and sees to all that follows from it.
void PLTagField::apply(const std::function<void()> &change)
{
    const QStringList tags = m_model.tags();
    const QStringList tokens = m_model.tokens();
    const QString text = m_model.text();
    change();
    updateLayout();
    showCaret();
    restartBlinking();
    updateMicroFocus();
    if (text != m_model.text() || tokens != m_model.tokens())
        updateCompletion();
    else if (shownCompletion() && !m_model.isCaretInText())
        shownCompletion()->hide();
    announce(tokens, text);
    if (tags != m_model.tags())
        Q_EMIT textDidChange();
}

/// Tells the screen reader what is new.
void PLTagField::announce(const QStringList &tokensBefore, const QString &textBefore)
{
    if (tokensBefore != m_model.tokens()) {
        QAccessibleEvent event(this, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&event);
    }
    if (textBefore != m_model.text()) {
        QAccessibleTextUpdateEvent event(this, 0, textBefore, m_model.text());
        QAccessible::updateAccessibility(&event);
    }
    if (m_model.isCaretInText()) {
        QAccessibleTextCursorEvent event(this, m_model.caret() - m_model.textIndex());
        QAccessible::updateAccessibility(&event);
    }
    if (const std::optional<int> token = m_model.selectedToken()) {
        QAccessibleEvent event(this, QAccessible::Focus);
        event.setChild(*token);
        QAccessible::updateAccessibility(&event);
    }
}

void PLTagField::updateLayout()
{
    m_layout.update(m_model, m_composed, layoutDirection());
    scrollBy(0);
    update();
}

void PLTagField::scrollBy(double distance)
{
    const double most = qMax(0.0, m_layout.length() - (width() - 2 * margin));
    m_scroll = qBound(0.0, m_scroll + distance, most);
    update();
}

void PLTagField::showCaret()
{
    const double x = m_layout.xOfPosition(m_model.caret());
    const double inRow = layoutDirection() == Qt::LeftToRight ? x : -x;
    const double seen = width() - 2 * margin - caretMargin;
    if (inRow - m_scroll > seen)
        scrollBy(inRow - m_scroll - seen);
    else if (inRow - m_scroll < caretMargin)
        scrollBy(inRow - m_scroll - caretMargin);
}

void PLTagField::restartBlinking()
{
    const int period = QGuiApplication::styleHints()->cursorFlashTime() / 2;
    m_isCaretShown = hasFocus();
    if (hasFocus() && period > 0)
        m_blinkTimer.start(period, this);
    else
        m_blinkTimer.stop();
    update();
}

/// Where the row's x = 0 is seen.
QPointF PLTagField::rowOrigin() const
{
    const double x = layoutDirection() == Qt::LeftToRight ? margin - m_scroll : width() - margin + m_scroll;
    return QPointF(x, (height() - PLTagToken::height) / 2.0);
}

void PLTagField::focusInEvent(QFocusEvent *event)
{
    const bool isByTab = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (isByTab)
        m_model.moveCaret(m_model.length());
    showCaret();
    restartBlinking();
    QWidget::focusInEvent(event);
}

void PLTagField::focusOutEvent(QFocusEvent *event)
{
    if (shownCompletion())
        shownCompletion()->hide();
    restartBlinking();
    const Qt::FocusReason reason = event->reason();
    const bool comesBack = reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
                           reason == Qt::MenuBarFocusReason;
    if (comesBack)
        return;
    endComposing();
    apply([this] {
        m_model.commitText();
        m_model.moveCaret(m_model.caret());
    });
    Q_EMIT didEndEditing();
}

void PLTagField::resizeEvent(QResizeEvent *)
{
    if (shownCompletion())
        shownCompletion()->hide();
    scrollBy(0);
    if (hasFocus())
        showCaret();
}

void PLTagField::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LayoutDirectionChange)
        updateLayout();
    QWidget::changeEvent(event);
}

void PLTagField::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_blinkTimer.timerId())
        return QWidget::timerEvent(event);
    m_isCaretShown = !m_isCaretShown;
    update(caretRect().adjusted(-1, 0, 1, 0));
}

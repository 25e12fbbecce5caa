// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagField.h"
#include "editor/PLTagFieldCompletion.h"
#include "editor/PLTyping.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

struct CommandKey
{
    QKeySequence::StandardKey key;
    PLCommand command;
};

constexpr CommandKey commandKeys[] = {
    {QKeySequence::Undo, PLCommand::Undo},   {QKeySequence::Redo, PLCommand::Redo},
    {QKeySequence::Cut, PLCommand::Cut},     {QKeySequence::Copy, PLCommand::Copy},
    {QKeySequence::Paste, PLCommand::Paste}, {QKeySequence::SelectAll, PLCommand::SelectAll},
};

using Deletion = void (PLTagFieldModel::*)();

struct DeletionKey
{
    QKeySequence::StandardKey key;
    Deletion deletion;
};

constexpr DeletionKey deletionKeys[] = {
    {QKeySequence::Backspace, &PLTagFieldModel::deleteBackward},
    {QKeySequence::Delete, &PLTagFieldModel::deleteForward},
    {QKeySequence::DeleteStartOfWord, &PLTagFieldModel::deleteWordBackward},
    {QKeySequence::DeleteEndOfWord, &PLTagFieldModel::deleteWordForward},
};

PLCommand commandOfKey(const QKeyEvent &event)
{
    if (event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier)
        return PLCommand::Redo; // the second habit of many desktops
    for (const CommandKey &entry : commandKeys) {
        if (event.matches(entry.key))
            return entry.command;
    }
    return PLCommand::None;
}

/// The standard key of this name is empty on all desktops but one.
bool isBackspaceKey(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Backspace &&
           !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
}

/// Null for a key that deletes nothing.
Deletion deletionOfKey(const QKeyEvent &event)
{
    if (isBackspaceKey(event))
        return &PLTagFieldModel::deleteBackward;
    for (const DeletionKey &entry : deletionKeys) {
        if (event.matches(entry.key))
            return entry.deletion;
    }
    return nullptr;
}

/// The keys a field takes before the shortcuts of the menus.
bool isEditingKey(const QKeyEvent &event)
{
    if (PLIsTyping(event) || deletionOfKey(event) || commandOfKey(event) != PLCommand::None)
        return true;
    for (const auto key : {QKeySequence::MoveToNextWord, QKeySequence::MoveToPreviousWord,
                           QKeySequence::SelectNextWord, QKeySequence::SelectPreviousWord}) {
        if (event.matches(key))
            return true;
    }
    return false;
}

bool isTab(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Tab && event.modifiers() == Qt::NoModifier;
}

} // namespace

bool PLTagField::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && isEditingKey(static_cast<QKeyEvent &>(*event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress && isTab(static_cast<QKeyEvent &>(*event)) && takeTab())
        return true;
    if (event->type() == QEvent::ToolTip) {
        const auto &help = static_cast<QHelpEvent &>(*event);
        QToolTip::showText(help.globalPos(), toolTipAt(help.pos()), this);
        return true;
    }
    return QWidget::event(event);
}

/// Makes a token of the typed text, or of the proposal that is chosen; false if there is neither, so that the
/// focus moves on.
bool PLTagField::takeTab()
{
    if (isComposing())
        return true;
    const QString chosen = m_completion ? m_completion->chosenTag() : QString();
    if (!chosen.isEmpty())
        acceptCompletion(chosen);
    else if (!m_model.text().isEmpty())
        apply([this] { m_model.commitText(); });
    else
        return false;
    return true;
}

void PLTagField::keyPressEvent(QKeyEvent *event)
{
    // While an input method composes, what it leaves to us is not meant as text.
    const bool isTaken = isComposing() || performCompletionKey(*event) || performStandardKey(*event) ||
                         performMovement(*event) || performKey(*event);
    event->setAccepted(isTaken);
}

bool PLTagField::performCompletionKey(const QKeyEvent &event)
{
    PLTagFieldCompletion *list = shownCompletion();
    const bool hasModifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (!list || hasModifiers)
        return false;
    switch (event.key()) {
    case Qt::Key_Down:
        list->moveChoice(1);
        return true;
    case Qt::Key_Up:
        list->moveChoice(-1);
        return true;
    case Qt::Key_PageDown:
        list->moveChoice(8);
        return true;
    case Qt::Key_PageUp:
        list->moveChoice(-8);
        return true;
    case Qt::Key_Escape:
        list->hide();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (list->chosenTag().isEmpty())
            return false;
        acceptCompletion(list->chosenTag());
        return true;
    default:
        return false;
    }
}

bool PLTagField::performStandardKey(const QKeyEvent &event)
{
    if (const PLCommand command = commandOfKey(event); command != PLCommand::None) {
        performCommand(command, 0);
        return true;
    }
    const Deletion deletion = deletionOfKey(event);
    if (!deletion)
        return false;
    apply([&] { (m_model.*deletion)(); });
    return true;
}

bool PLTagField::performMovement(const QKeyEvent &event)
{
    const bool extend = event.modifiers() & Qt::ShiftModifier;
    const auto is = [&](QKeySequence::StandardKey move, QKeySequence::StandardKey select) {
        return event.matches(move) || event.matches(select);
    };
    const auto moveTo = [&](int position) { apply([&] { m_model.moveCaret(position, extend); }); };
    if (is(QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar))
        moveBeside(true, extend);
    else if (is(QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar))
        moveBeside(false, extend);
    else if (is(QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord))
        moveTo(isRightToLeft() ? m_model.positionBeforeWord(m_model.caret())
                               : m_model.positionAfterWord(m_model.caret()));
    else if (is(QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord))
        moveTo(isRightToLeft() ? m_model.positionAfterWord(m_model.caret())
                               : m_model.positionBeforeWord(m_model.caret()));
    else if (is(QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine) ||
             is(QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument))
        moveTo(0);
    else if (is(QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine) ||
             is(QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument))
        moveTo(m_model.length());
    else
        return false;
    return true;
}

void PLTagField::moveBeside(bool isRightwards, bool extend)
{
    int position = m_layout.positionBeside(m_model.caret(), isRightwards);
    if (!extend && m_model.hasSelection())
        position = isRightwards != isRightToLeft() ? m_model.selectionEnd() : m_model.selectionStart();
    apply([&] { m_model.moveCaret(position, extend); });
}

bool PLTagField::performKey(const QKeyEvent &event)
{
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        pressReturn();
        return true;
    case Qt::Key_F2:
        if (!m_model.selectedToken())
            return false;
        editToken(*m_model.selectedToken());
        return true;
    case Qt::Key_Down:
        showCompletion();
        return true;
    case Qt::Key_Up:
        return true;
    default:
        break;
    }
    if (!PLIsTyping(event))
        return false;
    apply([&] { m_model.insertText(event.text()); });
    return true;
}

void PLTagField::pressReturn()
{
    if (const std::optional<int> token = m_model.selectedToken())
        return editToken(*token);
    if (!m_model.text().isEmpty())
        return apply([this] { m_model.commitText(); });
    Q_EMIT didEndEditing();
}

void PLTagField::updateCompletion()
{
    if (hasFocus() && !isComposing() && m_model.isCaretInText() && !m_model.hasSelection())
        showCompletion();
    else if (shownCompletion())
        shownCompletion()->hide();
}

/// With nothing typed, all tags that the field does not hold are proposed.
void PLTagField::showCompletion()
{
    if (!m_delegate)
        return;
    if (!m_completion || m_completion->parent() != window()) {
        delete m_completion;
        m_completion = new PLTagFieldCompletion(this);
        connect(m_completion, &PLTagFieldCompletion::tagClicked, this, &PLTagField::acceptCompletion);
    }
    QRect around = rectOfText().isNull() ? caretRect() : rectOfText();
    around.setLeft(qMax(0, around.left()));
    around.setTop(0);
    around.setBottom(height());
    m_completion->propose(m_delegate->completionsForSubstring(m_model.text(), m_model.tokens()), around);
}

void PLTagField::acceptCompletion(const QString &tag)
{
    apply([&] { m_model.completeText(tag); });
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLCommand.h"

#include "platform/PLKeyHandover.h"
#include "platform/PLWindow.h"

#include <QApplication>
#include <QLineEdit>

namespace {

PLCommandHandler *&applicationHandler()
{
    static PLCommandHandler *handler = nullptr;
    return handler;
}

/// Any line of text handles the editing commands, without being a class of ours.
class PLLineEditHandler final : public PLCommandHandler
{
public:
    explicit PLLineEditHandler(QLineEdit *edit) : m_edit(edit) {}

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int) const override
    {
        switch (command) {
        case PLCommand::Undo:
            return PLCommandState{m_edit->isUndoAvailable()};
        case PLCommand::Redo:
            return PLCommandState{m_edit->isRedoAvailable()};
        case PLCommand::Cut:
        case PLCommand::Copy:
            return PLCommandState{m_edit->hasSelectedText()};
        case PLCommand::Paste:
        case PLCommand::SelectAll:
            return PLCommandState{};
        default:
            return std::nullopt;
        }
    }

    void performCommand(PLCommand command, int) override
    {
        switch (command) {
        case PLCommand::Undo:
            return m_edit->undo();
        case PLCommand::Redo:
            return m_edit->redo();
        case PLCommand::Cut:
            return m_edit->cut();
        case PLCommand::Copy:
            return m_edit->copy();
        case PLCommand::Paste:
            return m_edit->paste();
        default:
            return m_edit->selectAll();
        }
    }

private:
    QLineEdit *m_edit;
};

QWidget *commandWindow()
{
    if (QWidget *next = PLKeyHandover::target())
        return next;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->isVisible() && qobject_cast<PLWindow *>(window))
            return window;
    }
    return nullptr;
}

/// Calls `visit` with each handler of the chain until it answers true.
template <typename Visitor>
void walkChain(Visitor visit)
{
    QWidget *window = commandWindow();
    QWidget *first = window && window->focusWidget() ? window->focusWidget() : window;
    for (QWidget *widget = first; widget; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        if (auto *edit = qobject_cast<QLineEdit *>(widget)) {
            PLLineEditHandler handler(edit);
            if (visit(handler))
                return;
        }
        if (auto *handler = dynamic_cast<PLCommandHandler *>(widget); handler && visit(*handler))
            return;
    }
    auto *ownWindow = qobject_cast<PLWindow *>(window);
    if (ownWindow && ownWindow->controller() && visit(*ownWindow->controller()))
        return;
    if (applicationHandler())
        visit(*applicationHandler());
}

} // namespace

void PLCommandChain::setApplicationHandler(PLCommandHandler *handler)
{
    applicationHandler() = handler;
}

PLCommandState PLCommandChain::state(PLCommand command, int tag)
{
    PLCommandState result{false, false};
    walkChain([&](PLCommandHandler &handler) {
        const auto state = handler.stateOfCommand(command, tag);
        if (state)
            result = *state;
        return state.has_value();
    });
    return result;
}

void PLCommandChain::perform(PLCommand command, int tag)
{
    walkChain([&](PLCommandHandler &handler) {
        const auto state = handler.stateOfCommand(command, tag);
        if (state && state->enabled)
            handler.performCommand(command, tag);
        return state.has_value();
    });
}

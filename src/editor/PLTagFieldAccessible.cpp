// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLTagFieldAccessible.h"

#include "i18n/PLDesktopStrings.h"

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *field = qobject_cast<PLTagField *>(object);
    return field ? new PLTagFieldAccessible(field) : nullptr;
}

} // namespace

PLTagFieldAccessible::PLTagFieldAccessible(PLTagField *field)
    : QAccessibleWidget(field, QAccessible::EditableText)
{
}

PLTagFieldAccessible::~PLTagFieldAccessible()
{
    for (const QAccessible::Id id : std::as_const(m_children))
        QAccessible::deleteAccessibleInterface(id);
}

void PLTagFieldAccessible::install()
{
    static const bool once = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(once);
}

void *PLTagFieldAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface *>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString PLTagFieldAccessible::text(QAccessible::Text type) const
{
    if (type == QAccessible::Value)
        return field()->tags().join(u", "_s);
    if (type == QAccessible::Description)
        return field()->placeholderText();
    return QAccessibleWidget::text(type);
}

QAccessible::State PLTagFieldAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.selectableText = true;
    state.supportsAutoCompletion = true;
    return state;
}

int PLTagFieldAccessible::childCount() const
{
    return int(field()->model().tokens().size());
}

QAccessibleInterface *PLTagFieldAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (!m_children.contains(index))
        m_children.insert(index,
                          QAccessible::registerAccessibleInterface(new PLTagTokenAccessible(field(), index)));
    return QAccessible::accessibleInterface(m_children.value(index));
}

QAccessibleInterface *PLTagFieldAccessible::childAt(int x, int y) const
{
    const QPoint point = field()->mapFromGlobal(QPoint(x, y));
    for (int index = 0; index < childCount(); ++index) {
        if (field()->rect().contains(point) && field()->rectOfToken(index).contains(point))
            return child(index);
    }
    return nullptr;
}

QAccessibleInterface *PLTagFieldAccessible::focusChild() const
{
    const std::optional<int> token = field()->model().selectedToken();
    return field()->hasFocus() && token ? child(*token) : QAccessibleWidget::focusChild();
}

int PLTagFieldAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const bool isOurs = child && child->role() == QAccessible::ListItem && child->parent() == this;
    return isOurs ? static_cast<const PLTagTokenAccessible *>(child)->index() : -1;
}

void PLTagFieldAccessible::selection(int, int *start, int *end) const
{
    const PLTagFieldModel &model = field()->model();
    *start = qBound(0, model.selectionStart() - model.textIndex(), characterCount());
    *end = qBound(0, model.selectionEnd() - model.textIndex(), characterCount());
}

int PLTagFieldAccessible::selectionCount() const
{
    int start = 0;
    int end = 0;
    selection(0, &start, &end);
    return end > start ? 1 : 0;
}

void PLTagFieldAccessible::addSelection(int start, int end)
{
    const int index = field()->model().textIndex();
    field()->select(index + start, index + end);
}

void PLTagFieldAccessible::removeSelection(int)
{
    setCursorPosition(cursorPosition());
}

void PLTagFieldAccessible::setSelection(int, int start, int end)
{
    addSelection(start, end);
}

int PLTagFieldAccessible::cursorPosition() const
{
    const PLTagFieldModel &model = field()->model();
    return qBound(0, model.caret() - model.textIndex(), characterCount());
}

void PLTagFieldAccessible::setCursorPosition(int position)
{
    addSelection(position, position);
}

QString PLTagFieldAccessible::text(int start, int end) const
{
    return field()->model().text().mid(start, end < 0 ? -1 : end - start);
}

int PLTagFieldAccessible::characterCount() const
{
    return int(field()->model().text().size());
}

QRect PLTagFieldAccessible::characterRect(int offset) const
{
    const int position = field()->model().textIndex() + qBound(0, offset, characterCount());
    QRect rect = field()->rectOfCaret(position);
    if (offset >= 0 && offset < characterCount())
        rect = rect.united(field()->rectOfCaret(position + 1));
    return rect.translated(field()->mapToGlobal(QPoint()));
}

int PLTagFieldAccessible::offsetAtPoint(const QPoint &point) const
{
    const QPoint local = field()->mapFromGlobal(point);
    if (!field()->rectOfText().contains(local))
        return -1;
    return qBound(0, field()->positionAt(local) - field()->model().textIndex(), characterCount());
}

QString PLTagFieldAccessible::attributes(int, int *start, int *end) const
{
    *start = 0;
    *end = characterCount();
    return QString();
}

void PLTagFieldAccessible::deleteText(int start, int end)
{
    field()->replaceText(start, end - start, QString());
}

void PLTagFieldAccessible::insertText(int offset, const QString &text)
{
    field()->replaceText(offset, 0, text);
}

void PLTagFieldAccessible::replaceText(int start, int end, const QString &text)
{
    field()->replaceText(start, end - start, text);
}

QString PLTagTokenAccessible::deleteAction()
{
    return u"delete"_s;
}

QString PLTagTokenAccessible::editAction()
{
    return u"edit"_s;
}

bool PLTagTokenAccessible::isValid() const
{
    return field() && m_index < field()->model().tokens().size();
}

QAccessibleInterface *PLTagTokenAccessible::parent() const
{
    return field() ? QAccessible::queryAccessibleInterface(field()) : nullptr;
}

QString PLTagTokenAccessible::text(QAccessible::Text type) const
{
    return isValid() && type == QAccessible::Name ? field()->model().tokens()[m_index] : QString();
}

QRect PLTagTokenAccessible::rect() const
{
    return isValid() ? field()->rectOfToken(m_index).translated(field()->mapToGlobal(QPoint())) : QRect();
}

QAccessible::State PLTagTokenAccessible::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    state.selectable = true;
    state.focusable = true;
    state.selected = field()->model().isTokenSelected(m_index);
    state.focused = field()->hasFocus() && field()->model().selectedToken() == m_index;
    state.offscreen = !field()->rect().intersects(field()->rectOfToken(m_index));
    return state;
}

void *PLTagTokenAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList PLTagTokenAccessible::actionNames() const
{
    return {editAction(), deleteAction(), setFocusAction()};
}

QString PLTagTokenAccessible::localizedActionName(const QString &name) const
{
    if (name == deleteAction())
        return PLDesktopString(u"Supprimer le tag"_s);
    return name == editAction() ? PLDesktopString(u"Modifier le tag"_s)
                                : QAccessibleActionInterface::localizedActionName(name);
}

void PLTagTokenAccessible::doAction(const QString &name)
{
    if (!isValid())
        return;
    const int position = field()->model().positionOfToken(m_index);
    if (name == deleteAction())
        return field()->removeToken(m_index);
    field()->setFocus(Qt::OtherFocusReason);
    if (name == editAction())
        field()->editToken(m_index);
    else
        field()->select(position, position + 1);
}

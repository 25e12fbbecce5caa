// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLShelfViewAccessible.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface *makeInterface(const QString &, QObject *object)
{
    auto *view = qobject_cast<PLShelfView *>(object);
    return view ? new PLShelfViewAccessible(view) : nullptr;
}

QString nameOfBook(const PLShelfBook &book)
{
    if (!book.available)
        return PLFormat(PLLocalizedString(u"%@ (introuvable)"_s), {book.title});
    return book.author.isEmpty() ? book.title : PLFormat(u"%@, %@"_s, {book.title, book.author});
}

} // namespace

PLShelfViewAccessible::PLShelfViewAccessible(PLShelfView *view) : QAccessibleWidget(view, QAccessible::List)
{
}

PLShelfViewAccessible::~PLShelfViewAccessible()
{
    for (const QAccessible::Id id : std::as_const(m_children))
        QAccessible::deleteAccessibleInterface(id);
}

void PLShelfViewAccessible::install()
{
    static const bool once = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(once);
}

QString PLShelfViewAccessible::text(QAccessible::Text type) const
{
    if (type == QAccessible::Description && view()->books().empty())
        return view()->emptyMessage();
    return QAccessibleWidget::text(type);
}

int PLShelfViewAccessible::childCount() const
{
    return int(view()->books().size());
}

QAccessibleInterface *PLShelfViewAccessible::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    if (!m_children.contains(index))
        m_children.insert(index,
                          QAccessible::registerAccessibleInterface(new PLShelfBookAccessible(view(), index)));
    return QAccessible::accessibleInterface(m_children.value(index));
}

QAccessibleInterface *PLShelfViewAccessible::childAt(int x, int y) const
{
    const QPoint point = view()->mapFromGlobal(QPoint(x, y));
    return view()->visibleRect().contains(point) ? child(view()->indexOfBookAtPoint(point)) : nullptr;
}

QAccessibleInterface *PLShelfViewAccessible::focusChild() const
{
    QAccessibleInterface *selected = view()->hasFocus() ? child(view()->selectedIndex()) : nullptr;
    return selected ? selected : QAccessibleWidget::focusChild();
}

int PLShelfViewAccessible::indexOfChild(const QAccessibleInterface *child) const
{
    const bool isOurs = child && child->role() == QAccessible::ListItem && child->parent() == this;
    return isOurs ? static_cast<const PLShelfBookAccessible *>(child)->index() : -1;
}

bool PLShelfBookAccessible::isValid() const
{
    return m_view && m_index < int(m_view->books().size());
}

QAccessibleInterface *PLShelfBookAccessible::parent() const
{
    return m_view ? QAccessible::queryAccessibleInterface(m_view) : nullptr;
}

QString PLShelfBookAccessible::text(QAccessible::Text type) const
{
    return isValid() && type == QAccessible::Name ? nameOfBook(m_view->books()[size_t(m_index)]) : QString();
}

QRect PLShelfBookAccessible::rect() const
{
    return isValid() ? m_view->rectForBookAtIndex(m_index).translated(m_view->mapToGlobal(QPoint()))
                     : QRect();
}

QAccessible::State PLShelfBookAccessible::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    state.selectable = true;
    state.focusable = true;
    state.selected = m_view->selectedIndex() == m_index;
    state.focused = state.selected && m_view->hasFocus();
    state.offscreen = !m_view->visibleRect().intersects(m_view->rectForBookAtIndex(m_index));
    return state;
}

void *PLShelfBookAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList PLShelfBookAccessible::actionNames() const
{
    return {pressAction(), showMenuAction(), setFocusAction()};
}

QString PLShelfBookAccessible::localizedActionName(const QString &name) const
{
    if (name == pressAction())
        return PLLocalizedString(u"Ouvrir"_s);
    return name == showMenuAction() ? PLLocalizedString(u"Carnet"_s)
                                    : QAccessibleActionInterface::localizedActionName(name);
}

/// What takes long, or asks the writer, begins when the screen reader has its answer.
void PLShelfBookAccessible::doAction(const QString &name)
{
    if (!isValid() || !actionNames().contains(name))
        return;
    m_view->setFocus(Qt::OtherFocusReason);
    m_view->setSelectedIndex(m_index);
    PLShelfView *view = m_view;
    if (name == pressAction())
        QMetaObject::invokeMethod(
            view, [view, index = m_index] { view->openBookAtIndex(index); }, Qt::QueuedConnection);
    else if (name == showMenuAction())
        QMetaObject::invokeMethod(
            view, [view] { view->showMenuOfSelectedBook(); }, Qt::QueuedConnection);
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLShelfView.h"

#include <QAccessibleWidget>
#include <QHash>

/// What a screen reader finds in a shelf: a list, with one item for each book.
class PLShelfViewAccessible final : public QAccessibleWidget
{
public:
    explicit PLShelfViewAccessible(PLShelfView *view);
    ~PLShelfViewAccessible() override;

    /// Makes shelves readable, once for the whole program.
    static void install();

    QString text(QAccessible::Text type) const override;
    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

private:
    PLShelfView *view() const { return static_cast<PLShelfView *>(object()); }

    mutable QHash<int, QAccessible::Id> m_children;
};

/// One book, by its place on the shelf: it lives as long as the shelf and is not valid while there are fewer.
class PLShelfBookAccessible final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    PLShelfBookAccessible(PLShelfView *view, int index) : m_view(view), m_index(index) {}

    int index() const { return m_index; }

    bool isValid() const override;
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *parent() const override;
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QString text(QAccessible::Text type) const override;
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override;
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QAccessible::State state() const override;
    void *interface_cast(QAccessible::InterfaceType type) override;

    QStringList actionNames() const override;
    QString localizedActionName(const QString &name) const override;
    void doAction(const QString &name) override;
    QStringList keyBindingsForAction(const QString &) const override { return {}; }

private:
    QPointer<PLShelfView> m_view;
    int m_index;
};

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "editor/PLTagField.h"

#include <QAccessibleWidget>
#include <QHash>

/// What a screen reader finds in a tag field: a text, the one being typed, and one list item for each token.
class PLTagFieldAccessible final : public QAccessibleWidget,
                                   public QAccessibleTextInterface,
                                   public QAccessibleEditableTextInterface
{
public:
    explicit PLTagFieldAccessible(PLTagField *field);
    ~PLTagFieldAccessible() override;

    /// Makes tag fields readable, once for the whole program.
    static void install();

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text type) const override;
    QAccessible::State state() const override;

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *childAt(int x, int y) const override;
    QAccessibleInterface *focusChild() const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    void selection(int index, int *start, int *end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint &point) const override;
    void scrollToSubstring(int, int) override {}
    QString attributes(int offset, int *start, int *end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString &text) override;
    void replaceText(int start, int end, const QString &text) override;

private:
    PLTagField *field() const { return static_cast<PLTagField *>(object()); }

    mutable QHash<int, QAccessible::Id> m_children;
};

/// One token, by its place in the field: it lives as long as the field and is no more valid while there are
/// fewer.
class PLTagTokenAccessible final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    PLTagTokenAccessible(PLTagField *field, int index) : m_field(field), m_index(index) {}

    static QString deleteAction();
    static QString editAction();
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
    /// Null also while the field is going: what it held is gone then, though it still is a widget.
    PLTagField *field() const { return qobject_cast<PLTagField *>(m_field.data()); }

    QPointer<QWidget> m_field;
    int m_index;
};

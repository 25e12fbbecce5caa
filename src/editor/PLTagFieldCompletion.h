// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>

class QStringListModel;

/// The list of proposed tags below a tag field. It lies over the field's window, takes neither the focus nor
/// the mouse from it, and proposes nothing by itself: no row is chosen until the writer chooses one.
class PLTagFieldCompletion final : public QListView
{
    Q_OBJECT

public:
    explicit PLTagFieldCompletion(QWidget *field);

    /// Shows the list below a rectangle of the field, above it where there is more room; hides it if it is
    /// empty.
    void propose(const QStringList &tags, const QRect &around);
    /// The chosen row's tag, null if none is.
    QString chosenTag() const;
    /// Chooses another row; going past an end leaves none chosen.
    void moveChoice(int rows);

Q_SIGNALS:
    void tagClicked(const QString &tag);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void applyLook();
    QRect frameAround(const QRect &around) const;

    QWidget *m_field;
    QStringListModel *m_tags;
};

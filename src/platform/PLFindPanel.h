// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLFindSearch.h"
#include "platform/PLTextPanel.h"

#include <QTimer>

class QCheckBox;
class QGridLayout;
class QLineEdit;

/// The panel that finds and replaces in a text. While it is open the matches are shown in the text.
class PLFindPanel final : public PLTextPanel
{
    Q_OBJECT

public:
    PLFindPanel(PLFindTarget *target, QWidget *view);

    /// With the row and the buttons for replacing, or without.
    void showFind(bool replaces);

    void findNext();
    void findPrevious();

    /// Shows what is looked for now, by whatever window.
    void takeTerms();
    /// To be called when the text has changed: what is shown follows a moment later.
    void textDidChange();

    /// "3 sur 17", "Introuvable", with what a writer should know about going round; empty with nothing to
    /// look for.
    static QString describe(const PLFindSearch::Place &place);

protected:
    void performDefault(bool withShift) override;
    QWidget *firstField() const override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void layOutButtons(QGridLayout *grid);
    QPushButton *makeButton(const QString &title, void (PLFindPanel::*action)());
    void connectFields();
    void replaceMatch();
    void replaceAndFind();
    void replaceAll();
    void refresh();
    void updateButtons();
    void tell(const PLFindSearch::Place &place);

    PLFindSearch m_search;
    QTimer m_refreshTimer;
    QLineEdit *m_findField;
    QLineEdit *m_replaceField;
    QLabel *m_replaceLabel;
    QCheckBox *m_ignoreCase;
    QCheckBox *m_wholeWords;
    QLabel *m_status;
    QList<QPushButton *> m_buttons; ///< enabled with something to look for
    QList<QPushButton *> m_replaceButtons;
};

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLCommand.h"
#include "platform/PLTextTarget.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;

/// A small window that floats above a text and works on it, such as the find panel. Escape closes it and
/// gives the keyboard back to the text; Return is its first button. The commands of the menu bar go on to the
/// text's window.
class PLTextPanel : public QWidget, public PLCommandHandler
{
    Q_OBJECT

public:
    /// The panel belongs to the view that shows the text, and goes with it.
    PLTextPanel(PLTextTarget *target, QWidget *view);

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

    /// Shows the panel, in the upper right corner of the text's window at first. With the keyboard unless it
    /// only has something to say.
    void present(bool takesFocus = true);

Q_SIGNALS:
    void didClose();

protected:
    /// What Return does, with or without the shift key.
    virtual void performDefault(bool withShift) = 0;
    virtual QWidget *firstField() const = 0;

    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

    PLTextTarget *target() const { return m_target; }

private:
    void leave();
    void giveKeyboardBack();
    PLCommandHandler *nextHandler(PLCommand command, int tag) const;
    void place();

    PLTextTarget *m_target;
    bool m_isPlaced = false;
    QTimer m_leaveTimer; ///< runs until the text's window has the keyboard
};

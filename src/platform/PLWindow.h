// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/PLCommand.h"

#include <QMainWindow>

/// What a window asks and tells its controller.
class PLWindowDelegate
{
public:
    virtual ~PLWindowDelegate() = default;

    virtual bool windowShouldClose() { return true; }
    virtual void windowWillClose() {}
    virtual void windowDidBecomeKey() {}
    virtual void windowDidResignKey() {}
};

/// A window of the program: it hands what happens to it over to its delegate, carries out the commands of the
/// Window menu, and remembers its frame under a name.
class PLWindow final : public QMainWindow, public PLCommandHandler
{
    Q_OBJECT

public:
    explicit PLWindow(PLWindowDelegate *delegate);
    ~PLWindow() override;

    /// Who handles the commands that the views have left.
    PLCommandHandler *controller() const { return m_controller; }
    void setController(PLCommandHandler *controller) { m_controller = controller; }

    /// Called when the window's owner goes first.
    void forgetDelegate();

    /// The name its size and place are remembered under; a frame saved under it is applied at once.
    void setFrameAutosaveName(const QString &name);
    /// Puts the window in the middle of its screen.
    void center();
    /// Shows the window, out of the Dock or task bar if need be, before the others and with the focus.
    void makeKeyAndOrderFront();

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void saveFrame();
    void toggleFullScreen();

    PLWindowDelegate *m_delegate;
    PLCommandHandler *m_controller = nullptr;
    QString m_frameName;
    bool m_isKey = false;
};

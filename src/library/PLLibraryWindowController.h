// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLShelfBook.h"
#include "platform/PLCommand.h"
#include "platform/PLWindow.h"

#include <QObject>

#include <memory>

class QLabel;
class QListWidget;
class QPushButton;

/// What the library leaves to the application.
class PLLibraryDelegate
{
public:
    virtual ~PLLibraryDelegate() = default;

    virtual bool openProjectAtURL(const QUrl &folder) = 0;
    virtual void newProject() = 0;
    virtual void openProject() = 0;
};

/// The library: the window of all known notebooks, to open, to make, to forget.
class PLLibraryWindowController final : public QObject, public PLWindowDelegate, public PLCommandHandler
{
    Q_OBJECT

public:
    explicit PLLibraryWindowController(PLLibraryDelegate &delegate);
    ~PLLibraryWindowController() override;

    PLWindow *window() const { return m_window.get(); }
    QListWidget *listView() const { return m_listView; }
    void showWindow();

    /// Lists the known notebooks again; the selection stays on the same folder, else goes to the first.
    void reload();
    /// Null when no notebook is selected.
    const PLShelfBook *selectedBook() const;

    void openSelected();
    /// Shows the notebook's folder in the file manager; a beep for a missing one.
    void revealSelected();
    /// Forgets the notebook. Its folder is never touched.
    void removeSelected();

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

Q_SIGNALS:
    /// The library has been closed.
    void windowClosed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void windowWillClose() override;
    void buildContent();
    void buildList();
    QWidget *buildButtons();
    QPushButton *buttonWithTitle(const QString &title, void (PLLibraryWindowController::*action)());
    void newProject();
    void openOther();
    void showContextMenu(const QPoint &position);
    void updateButtons();

    PLLibraryDelegate &m_delegate;
    std::unique_ptr<PLWindow> m_window;
    std::vector<PLShelfBook> m_books;
    QListWidget *m_listView = nullptr;
    QLabel *m_emptyLabel = nullptr;
    QPushButton *m_openButton = nullptr;
};

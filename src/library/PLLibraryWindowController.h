// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "library/PLLibraryContent.h"
#include "library/PLShelfCovers.h"
#include "platform/PLCommand.h"
#include "platform/PLWindow.h"

#include <QMenu>
#include <QObject>

#include <memory>

struct PLError;

/// What the library leaves to the application.
class PLLibraryDelegate
{
public:
    virtual ~PLLibraryDelegate() = default;

    virtual bool openProjectAtURL(const QUrl &folder) = 0;
    virtual void newProject() = 0;
    virtual void openProject() = 0;
};

/// The library: the window of all known notebooks, to open, to make, to give covers, to forget. It decides
/// nothing about opening and making: that is its delegate's.
class PLLibraryWindowController final : public QObject,
                                        public PLWindowDelegate,
                                        public PLCommandHandler,
                                        public PLShelfViewDelegate
{
    Q_OBJECT

public:
    explicit PLLibraryWindowController(PLLibraryDelegate &delegate);
    ~PLLibraryWindowController() override;

    PLWindow *window() const { return m_window.get(); }
    PLLibraryContent *content() const { return m_content; }
    PLShelfView *shelfView() const { return m_content->shelfView(); }
    QMenu *contextMenu() const { return m_contextMenu.get(); }
    void showWindow();

    /// Lists the known notebooks again; the selection stays on the same folder, else goes to the first.
    void reload();
    /// True while thumbnails of covers are still being read.
    bool isLoadingCovers() const { return m_covers->isLoading(); }
    /// The thumbnail of a cover; null for a picture that cannot be read.
    QImage thumbnailForImageAtURL(const QUrl &image);

    void openSelected();
    /// Asks for a picture and makes it the cover of the selected book, if that is available.
    void chooseCover();
    void removeCover();
    /// Shows the notebook's folder in the file manager; a beep for a missing one.
    void revealSelected();
    /// Forgets the notebook. Its folder is never touched.
    void removeSelected();
    void setCoverImage(const QUrl &image, const PLShelfBook &book);

    std::optional<PLCommandState> stateOfCommand(PLCommand command, int tag) const override;
    void performCommand(PLCommand command, int tag) override;

    void shelfViewSelectionDidChange(PLShelfView &shelfView) override;
    void openBook(const PLShelfBook &book) override;
    void didDropImageAtURL(const QUrl &image, const PLShelfBook &book) override;

Q_SIGNALS:
    /// The library has been closed.
    void windowClosed();

private:
    void windowWillClose() override;
    void buildContent();
    void buildContextMenu();
    void validateContextMenu();
    void changeMode(int segment);
    void updateButtons();
    /// Shows the error once whatever is going on has been done with: a drop, for one.
    void presentError(const PLError &error);

    PLLibraryDelegate &m_delegate;
    std::unique_ptr<PLWindow> m_window;
    PLLibraryContent *m_content;
    std::unique_ptr<PLShelfCovers> m_covers;
    std::unique_ptr<QMenu> m_contextMenu;
};

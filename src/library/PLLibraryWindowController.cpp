// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLLibraryWindowController.h"

#include "foundation/PLPreferences.h"
#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "platform/PLAlert.h"
#include "platform/PLPanels.h"
#include "platform/PLReveal.h"
#include "storage/PLProject.h"
#include "storage/PLRecentProjects.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize contentSize(900, 640);
constexpr QSize smallestSize(560, 440);
const QString spineModeKey = u"PLShelfSpineMode"_s;

struct MenuEntry
{
    const char16_t *title = nullptr; ///< null for a separator
    PLCommand command = PLCommand::None;
};

constexpr MenuEntry menuEntries[] = {
    {u"Ouvrir", PLCommand::OpenSelected},
    {},
    {u"Choisir une image de couverture…", PLCommand::ChooseCover},
    {u"Retirer l'image de couverture", PLCommand::RemoveCover},
    {},
    {u"Afficher dans le Finder", PLCommand::RevealInFinder},
    {u"Retirer de la bibliothèque", PLCommand::RemoveSelected},
};

QUrl chooseCoverImage(const QString &title, QWidget *parent)
{
    const PLPanelTexts texts{
        PLLocalizedString(u"Image de couverture"_s), PLLocalizedString(u"Choisir"_s),
        PLFormat(
            PLLocalizedString(
                u"Choisissez une image pour la couverture de « %@ ». Elle sera copiée dans le dossier du carnet."_s),
            {title})};
    return PLChooseFile(texts, PLProject::coverImageExtensions(), parent);
}

} // namespace

PLLibraryWindowController::PLLibraryWindowController(PLLibraryDelegate &delegate)
    : m_delegate(delegate)
    , m_window(std::make_unique<PLWindow>(this))
    , m_content(new PLLibraryContent)
    , m_covers(std::make_unique<PLShelfCovers>(*m_content->shelfView()))
{
    m_window->setController(this);
    m_window->setWindowTitle(PLLocalizedString(u"Bibliothèque"_s));
    m_window->setMinimumSize(smallestSize);
    m_window->resize(contentSize);
    m_window->center();
    m_window->setFrameAutosaveName(u"PLLibrary"_s);
    buildContent();
    reload();
}

PLLibraryWindowController::~PLLibraryWindowController()
{
    shelfView()->setDelegate(nullptr);
    m_window->forgetDelegate();
}

void PLLibraryWindowController::showWindow()
{
    m_window->makeKeyAndOrderFront();
    shelfView()->setFocus();
}

void PLLibraryWindowController::buildContent()
{
    m_window->setCentralWidget(m_content);
    buildContextMenu();
    shelfView()->setDelegate(this);
    shelfView()->setMenu(m_contextMenu.get());
    const bool spineMode = PLPreferences::store().value(spineModeKey).toBool();
    m_content->modeControl()->setSelectedSegment(spineMode ? 1 : 0);
    shelfView()->setSpineMode(spineMode);
    shelfView()->setFocus();
    connect(m_content->modeControl(), &PLModeControl::segmentSelected, this,
            &PLLibraryWindowController::changeMode);
    connect(m_content->newButton(), &QPushButton::clicked, this, [this] { m_delegate.newProject(); });
    connect(m_content->otherButton(), &QPushButton::clicked, this, [this] { m_delegate.openProject(); });
    connect(m_content->openButton(), &QPushButton::clicked, this, &PLLibraryWindowController::openSelected);
}

void PLLibraryWindowController::buildContextMenu()
{
    m_contextMenu = std::make_unique<QMenu>(PLLocalizedString(u"Carnet"_s));
    for (const MenuEntry &entry : menuEntries) {
        if (!entry.title) {
            m_contextMenu->addSeparator();
            continue;
        }
        QAction *action = m_contextMenu->addAction(PLLocalizedString(QString::fromUtf16(entry.title)));
        action->setData(int(entry.command));
        connect(action, &QAction::triggered, this,
                [this, command = entry.command] { performCommand(command, 0); });
    }
    connect(m_contextMenu.get(), &QMenu::aboutToShow, this, &PLLibraryWindowController::validateContextMenu);
}

void PLLibraryWindowController::validateContextMenu()
{
    const QList<QAction *> actions = m_contextMenu->actions();
    for (QAction *action : actions) {
        if (!action->isSeparator())
            action->setEnabled(stateOfCommand(PLCommand(action->data().toInt()), 0)->enabled);
    }
}

void PLLibraryWindowController::reload()
{
    const PLShelfBook *selected = shelfView()->selectedBook();
    const QString selectedPath = selected ? selected->url.path() : QString();
    std::vector<PLShelfBook> books = PLKnownShelfBooks();
    int index = books.empty() ? -1 : 0;
    for (size_t book = 0; book < books.size(); ++book) {
        if (books[book].url.path() == selectedPath)
            index = int(book);
    }
    m_covers->setBooks(std::move(books));
    shelfView()->setSelectedIndex(index);
    updateButtons();
}

QImage PLLibraryWindowController::thumbnailForImageAtURL(const QUrl &image)
{
    return m_covers->thumbnails().thumbnailForImageAtURL(image);
}

void PLLibraryWindowController::changeMode(int segment)
{
    shelfView()->setSpineMode(segment == 1);
    PLPreferences::store().setValue(spineModeKey, segment == 1);
}

void PLLibraryWindowController::updateButtons()
{
    m_content->openButton()->setEnabled(shelfView()->selectedBook() != nullptr);
}

void PLLibraryWindowController::openSelected()
{
    if (const PLShelfBook *book = shelfView()->selectedBook())
        m_delegate.openProjectAtURL(QUrl(book->url));
}

void PLLibraryWindowController::chooseCover()
{
    const PLShelfBook *selected = shelfView()->selectedBook();
    if (!selected || !selected->available)
        return;
    const PLShelfBook book = *selected; // the library may be reloaded while the panel is open
    const QUrl image = chooseCoverImage(book.title, m_window.get());
    if (!image.isEmpty())
        setCoverImage(image, book);
}

void PLLibraryWindowController::removeCover()
{
    const PLShelfBook *book = shelfView()->selectedBook();
    if (!book || !book->available)
        return;
    PLError error;
    if (!PLProject::removeCoverImageForProjectAtURL(book->url, &error))
        presentError(error);
    reload();
}

void PLLibraryWindowController::revealSelected()
{
    const PLShelfBook *book = shelfView()->selectedBook();
    if (book && book->available)
        PLRevealInFileManager(book->url);
    else
        QApplication::beep();
}

void PLLibraryWindowController::removeSelected()
{
    const PLShelfBook *book = shelfView()->selectedBook();
    if (!book)
        return;
    PLRecentProjects::removeURL(book->url);
    reload();
}

void PLLibraryWindowController::setCoverImage(const QUrl &image, const PLShelfBook &book)
{
    PLError error;
    if (!PLProject::setCoverImageFromURL(image, book.url, &error))
        return presentError(error);
    // Read now, or the book would be seen without a picture for a moment.
    (void)thumbnailForImageAtURL(PLProject::coverImageURLForProjectAtURL(book.url));
    reload();
}

void PLLibraryWindowController::presentError(const PLError &error)
{
    QMetaObject::invokeMethod(
        this, [this, error] { PLAlert::presentError(error, m_window.get()); }, Qt::QueuedConnection);
}

std::optional<PLCommandState> PLLibraryWindowController::stateOfCommand(PLCommand command, int) const
{
    const PLShelfBook *book = shelfView()->selectedBook();
    switch (command) {
    case PLCommand::OpenSelected:
    case PLCommand::RemoveSelected:
        return PLCommandState{book != nullptr};
    case PLCommand::ChooseCover:
    case PLCommand::RevealInFinder:
        return PLCommandState{book && book->available};
    case PLCommand::RemoveCover:
        return PLCommandState{book && book->available && !book->cover.isNull()};
    default:
        return std::nullopt;
    }
}

void PLLibraryWindowController::performCommand(PLCommand command, int)
{
    switch (command) {
    case PLCommand::OpenSelected:
        return openSelected();
    case PLCommand::ChooseCover:
        return chooseCover();
    case PLCommand::RemoveCover:
        return removeCover();
    case PLCommand::RevealInFinder:
        return revealSelected();
    case PLCommand::RemoveSelected:
        return removeSelected();
    default:
        return;
    }
}

void PLLibraryWindowController::shelfViewSelectionDidChange(PLShelfView &)
{
    updateButtons();
}

void PLLibraryWindowController::openBook(const PLShelfBook &book)
{
    m_delegate.openProjectAtURL(book.url);
}

void PLLibraryWindowController::didDropImageAtURL(const QUrl &image, const PLShelfBook &book)
{
    setCoverImage(image, book);
}

void PLLibraryWindowController::windowWillClose()
{
    Q_EMIT windowClosed();
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLLibraryWindowController.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "platform/PLReveal.h"
#include "storage/PLFiles.h"
#include "storage/PLRecentProjects.h"
#include "theme/PLTheme.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize contentSize(900, 640);
constexpr QSize smallestSize(560, 440);
constexpr int rowHeight = 52;
constexpr int buttonWidth = 150;

QString textOfBook(const PLShelfBook &book)
{
    if (!book.available)
        return PLFormat(PLLocalizedString(u"%@ (introuvable)"_s), {book.title});
    return book.author.isEmpty() ? book.title : PLFormat(u"%@\n%@"_s, {book.title, book.author});
}

QListWidgetItem *itemForBook(const PLShelfBook &book)
{
    auto *item = new QListWidgetItem(textOfBook(book));
    item->setToolTip(PLStandardizedPath(book.url));
    item->setSizeHint(QSize(0, rowHeight));
    item->setTextAlignment(Qt::AlignVCenter | Qt::AlignLeft);
    if (!book.available)
        item->setForeground(PLTheme::faintInkColor());
    return item;
}

} // namespace

PLLibraryWindowController::PLLibraryWindowController(PLLibraryDelegate &delegate)
    : m_delegate(delegate), m_window(std::make_unique<PLWindow>(this))
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
    m_window->forgetDelegate();
}

void PLLibraryWindowController::showWindow()
{
    m_window->makeKeyAndOrderFront();
    m_listView->setFocus();
}

void PLLibraryWindowController::reload()
{
    const PLShelfBook *selected = selectedBook();
    const QUrl selectedURL = selected ? selected->url : QUrl();
    m_books = PLKnownShelfBooks();
    int row = m_books.empty() ? -1 : 0;
    m_listView->clear();
    for (size_t index = 0; index < m_books.size(); ++index) {
        m_listView->addItem(itemForBook(m_books[index]));
        if (m_books[index].url.path() == selectedURL.path())
            row = int(index);
    }
    m_listView->setCurrentRow(row);
    m_emptyLabel->setVisible(m_books.empty());
    updateButtons();
}

const PLShelfBook *PLLibraryWindowController::selectedBook() const
{
    const int row = m_listView->currentRow();
    return row >= 0 && size_t(row) < m_books.size() ? &m_books[size_t(row)] : nullptr;
}

void PLLibraryWindowController::openSelected()
{
    if (const PLShelfBook *book = selectedBook())
        m_delegate.openProjectAtURL(QUrl(book->url));
}

void PLLibraryWindowController::revealSelected()
{
    const PLShelfBook *book = selectedBook();
    if (book && book->available)
        PLRevealInFileManager(book->url);
    else
        QApplication::beep();
}

void PLLibraryWindowController::removeSelected()
{
    const PLShelfBook *book = selectedBook();
    if (!book)
        return;
    PLRecentProjects::removeURL(book->url);
    reload();
}

std::optional<PLCommandState> PLLibraryWindowController::stateOfCommand(PLCommand command, int) const
{
    const PLShelfBook *book = selectedBook();
    switch (command) {
    case PLCommand::OpenSelected:
    case PLCommand::RemoveSelected:
        return PLCommandState{book != nullptr};
    case PLCommand::RevealInFinder:
        return PLCommandState{book && book->available};
    default:
        return std::nullopt;
    }
}

void PLLibraryWindowController::performCommand(PLCommand command, int)
{
    if (command == PLCommand::OpenSelected)
        openSelected();
    else if (command == PLCommand::RemoveSelected)
        removeSelected();
    else if (command == PLCommand::RevealInFinder)
        revealSelected();
}

/// Delete on a book forgets it, as the context menu does.
bool PLLibraryWindowController::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Delete) {
        removeSelected();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

void PLLibraryWindowController::windowWillClose()
{
    Q_EMIT windowClosed();
}

void PLLibraryWindowController::buildContent()
{
    buildList();
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_listView);
    layout->addWidget(buildButtons());
    m_window->setCentralWidget(content);
}

void PLLibraryWindowController::buildList()
{
    m_listView = new QListWidget;
    m_listView->setAccessibleName(PLLocalizedString(u"Ma bibliothèque"_s));
    m_listView->setFrameShape(QFrame::NoFrame);
    m_listView->setFont(PLTheme::sidebarFont());
    m_listView->setContentsMargins(16, 8, 16, 8);
    m_listView->setContextMenuPolicy(Qt::CustomContextMenu);
    m_listView->installEventFilter(this);
    QPalette colors = m_listView->palette();
    colors.setColor(QPalette::Base, PLTheme::paperColor());
    colors.setColor(QPalette::Text, PLTheme::inkColor());
    colors.setColor(QPalette::Highlight, PLTheme::coverColor());
    colors.setColor(QPalette::HighlightedText, PLTheme::inkColor());
    colors.setColor(QPalette::WindowText, PLTheme::faintInkColor());
    m_listView->setPalette(colors);
    m_emptyLabel = new QLabel(PLLocalizedString(
        u"Votre bibliothèque est vide.\nCréez un premier carnet pour commencer à écrire."_s));
    m_emptyLabel->setAlignment(Qt::AlignCenter);
    auto *overlay = new QVBoxLayout(m_listView->viewport());
    overlay->addWidget(m_emptyLabel);
    connect(m_listView, &QListWidget::itemActivated, this, &PLLibraryWindowController::openSelected);
    connect(m_listView, &QListWidget::currentRowChanged, this, &PLLibraryWindowController::updateButtons);
    connect(m_listView, &QWidget::customContextMenuRequested, this,
            &PLLibraryWindowController::showContextMenu);
}

QWidget *PLLibraryWindowController::buildButtons()
{
    auto *bar = new QWidget;
    QPalette colors = bar->palette();
    colors.setColor(QPalette::Window, PLTheme::coverColor());
    bar->setPalette(colors);
    bar->setAutoFillBackground(true);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(16, 10, 16, 10);
    layout->addWidget(
        buttonWithTitle(PLLocalizedString(u"Nouveau carnet…"_s), &PLLibraryWindowController::newProject));
    layout->addWidget(
        buttonWithTitle(PLLocalizedString(u"Ouvrir un autre…"_s), &PLLibraryWindowController::openOther));
    layout->addStretch();
    m_openButton = buttonWithTitle(PLLocalizedString(u"Ouvrir"_s), &PLLibraryWindowController::openSelected);
    layout->addWidget(m_openButton);
    return bar;
}

QPushButton *PLLibraryWindowController::buttonWithTitle(const QString &title,
                                                        void (PLLibraryWindowController::*action)())
{
    auto *button = new QPushButton(title);
    button->setMinimumWidth(buttonWidth);
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

void PLLibraryWindowController::newProject()
{
    m_delegate.newProject();
}

void PLLibraryWindowController::openOther()
{
    m_delegate.openProject();
}

void PLLibraryWindowController::showContextMenu(const QPoint &position)
{
    QMenu menu(m_listView);
    const auto add = [this, &menu](const QString &title, PLCommand command) {
        QAction *action = menu.addAction(title, this, [this, command] { performCommand(command, 0); });
        action->setEnabled(stateOfCommand(command, 0)->enabled);
    };
    add(PLLocalizedString(u"Ouvrir"_s), PLCommand::OpenSelected);
    menu.addSeparator();
    add(PLLocalizedString(u"Afficher dans le Finder"_s), PLCommand::RevealInFinder);
    add(PLLocalizedString(u"Retirer de la bibliothèque"_s), PLCommand::RemoveSelected);
    menu.exec(m_listView->viewport()->mapToGlobal(position));
}

void PLLibraryWindowController::updateButtons()
{
    if (m_openButton)
        m_openButton->setEnabled(selectedBook() != nullptr);
}

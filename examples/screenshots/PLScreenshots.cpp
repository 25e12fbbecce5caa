// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "PLScreenshots.h"

#include "PLExampleShelf.h"
#include "editor/PLEditorView.h"
#include "editor/PLLivePreview.h"
#include "editor/PLPreviewView.h"
#include "notebook_window/PLProjectWindowController.h"
#include "notebook_window/PLSidebarController.h"
#include "platform/PLWindow.h"
#include "storage/PLRecentProjects.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDirIterator>
#include <QPixmap>
#include <QTextStream>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Copies a folder with all that is in it.
bool copyFolder(const QDir &from, const QDir &to)
{
    QDirIterator files(from.absolutePath(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = files.next();
        const QString copy = to.filePath(from.relativeFilePath(file));
        if (!QDir().mkpath(QFileInfo(copy).path()) || !QFile::copy(file, copy))
            return false;
    }
    return to.exists();
}

/// Until nothing is left to lay out or to draw.
void settle()
{
    for (int turn = 0; turn < 10; ++turn) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
}

/// Until the engine has drawn the page, if it is allowed to.
void waitForPreview(const PLLivePreview &preview)
{
    settle();
    if (!preview.previewView())
        return;
    const QDeadlineTimer patience(30s);
    while (!patience.hasExpired() && !(preview.isLoaded() && preview.previewView()->widget()->isVisible()))
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    for (const QDeadlineTimer drawing(1s); !drawing.hasExpired();)
        QApplication::processEvents();
}

} // namespace

PLScreenshots::PLScreenshots(const QString &language, const QString &suffix, const QDir &examples,
                             const QDir &pictures)
    : m_language(language)
    , m_suffix(suffix)
    , m_examples(examples.absolutePath())
    , m_pictures(pictures.absolutePath())
{
}

bool PLScreenshots::drawAll()
{
    if (!copyExamples() || !drawLibrary(u"library-empty"_s))
        return false;
    const QStringList notebooks = QDir(m_copies.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &notebook : notebooks)
        PLRecentProjects::addURL(QUrl::fromLocalFile(m_copies.filePath(notebook)));
    const QString notebook = m_language == u"fr" ? u"Le phare d'Ouessant"_s : u"The Lamp Room"_s;
    return drawNotebook(m_copies.filePath(notebook)) && drawFullLibrary(m_copies.filePath(notebook));
}

bool PLScreenshots::copyExamples()
{
    const QFileInfoList folders = m_examples.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    for (const QFileInfo &folder : folders) {
        const bool isNotebook = QFile::exists(folder.filePath() + u"/projet.md"_s);
        if (isNotebook && !copyFolder(folder.filePath(), m_copies.filePath(folder.fileName())))
            return false;
    }
    return true;
}

/// Pictures of its window: a chapter, a page with tags, and a section, where no page is open.
bool PLScreenshots::drawNotebook(const QString &folder)
{
    if (!m_delegate.openFile(folder))
        return false;
    PLProjectWindowController &controller = *m_delegate.projectWindows().back();
    waitForPreview(*controller.editorView()->livePreview());
    if (!draw(*controller.window(), u"notebook"_s) || !drawSizes(controller))
        return false;
    // Asked for anew each time: coming to the front rebuilds the sidebar, and every row with it.
    PLSidebarController &sidebar = controller.sidebar();
    const auto characters = [&sidebar] { return sidebar.tree().section(PLSection::Characters); };
    if (characters()->childCount() == 0)
        return false;
    sidebar.selectSidebarObject(characters()->children().front());
    if (!draw(*controller.window(), u"notebook-character"_s))
        return false;
    sidebar.selectSidebarObject(characters());
    return draw(*controller.window(), u"notebook-placeholder"_s);
}

/// The page without its preview, in windows of several sizes.
bool PLScreenshots::drawSizes(PLProjectWindowController &controller) const
{
    PLWindow *window = controller.window();
    const QSize size = window->size();
    controller.editorView()->setPreviewVisible(false);
    bool areDrawn = true;
    for (const auto &[name, drawnSize] :
         {std::pair(u"notebook-page"_s, size), std::pair(u"notebook-narrow"_s, window->minimumSize()),
          std::pair(u"notebook-wide"_s, QSize(1580, 860))}) {
        window->resize(drawnSize);
        areDrawn = areDrawn && draw(*window, name);
    }
    window->resize(size);
    controller.editorView()->setPreviewVisible(true);
    return areDrawn;
}

bool PLScreenshots::drawLibrary(const QString &what)
{
    m_delegate.showLibrary();
    while (m_delegate.library()->isLoadingCovers())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return draw(*m_delegate.library()->window(), what);
}

/// By covers and by spines; one notebook is missing.
bool PLScreenshots::drawFullLibrary(const QString &notebook)
{
    PLRecentProjects::removeURL(QUrl::fromLocalFile(notebook));
    if (!PLMakeExampleShelf(m_shelf.path(), m_language) || !PLPaintExampleCover(notebook, 0))
        return false;
    PLRecentProjects::addURL(QUrl::fromLocalFile(notebook));
    if (!drawLibrary(u"library"_s))
        return false;
    PLModeControl *mode = m_delegate.library()->content()->modeControl();
    mode->segment(1)->click();
    const bool isDrawn = drawLibrary(u"library-spines"_s);
    mode->segment(0)->click();
    return isDrawn;
}

bool PLScreenshots::draw(QWidget &window, const QString &what) const
{
    settle();
    const QString path = m_pictures.absoluteFilePath(u"%1-%2.png"_s.arg(what, m_suffix));
    if (!window.grab().save(path))
        return false;
    QTextStream(stdout) << path << Qt::endl;
    return true;
}

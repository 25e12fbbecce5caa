// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What it costs to bring the sidebar up to date with the disk, as each time its window gets the focus: the
// sections listed, the tags of every page read, the rows laid out and drawn, the selection put back. Beside
// it a bare loop over the same files, by turns in one run, with the files in the system's cache. Then one
// frame of scrolling through all the rows, every tag open.

#include "foundation/PLPreferences.h"
#include "made_notebook.h"
#include "notebook_window/PLSidebarController.h"
#include "notebook_window/PLSidebarView.h"
#include "storage/PLProject.h"

#include <QApplication>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 15;
constexpr int tags = 500;
constexpr int frames = 1000;
constexpr int limitedPages = 5'000;    // of the notebook that the limits are for
constexpr double largestRebuild = 250; // milliseconds
constexpr double largestRatio = 2.0;   // times the bare loop
constexpr double largestGrowth = 1.5;  // of that ratio, from the smallest notebook to the largest
constexpr double frame = 16.7;         // milliseconds

struct Figures
{
    double bare = 0;     // milliseconds
    double rebuild = 0;  // milliseconds
    double openTags = 0; // milliseconds, a rebuild with the rows under all tags
    double frameHalf = 0;
    double frameMost = 0; // 99 in 100 are faster
    int rows = 0;         // with every tag open
    bool isWhole = false;
};

class Sidebar final
{
public:
    explicit Sidebar(const QString &path)
        : m_project(PLProject::openProjectAtURL(QUrl::fromLocalFile(path))), m_controller(*m_project)
    {
        m_view.reset(m_controller.view());
        m_view->resize(240, 720);
        m_view->show();
        m_controller.reloadSidebarData();
        // The last page is the one that takes longest to be found again.
        m_controller.selectSidebarObject(m_controller.tree().section(PLSection::Notes)->children().back());
        QApplication::processEvents();
    }

    /// From the disk to the last pixel.
    double rebuild()
    {
        return PLMilliseconds([this] {
            m_controller.refreshSidebar(QUrl());
            m_view->viewport()->repaint();
        });
    }

    void openTags()
    {
        for (const PLSidebarNode *tag : m_controller.tree().tagSection()->children())
            m_controller.expandNode(tag);
    }

    /// The times of the frames from the first row to the last.
    std::vector<double> scroll()
    {
        std::vector<double> times;
        QScrollBar *bar = m_view->verticalScrollBar();
        for (int step = 0; step <= frames; ++step) {
            times.push_back(PLMilliseconds([&] {
                bar->setValue(int(qint64(bar->maximum()) * step / frames));
                m_view->viewport()->repaint();
            }));
        }
        return times;
    }

    /// Whether the pages and the tags are there, and a page still chosen.
    bool isWhole(int pages) const
    {
        int listed = 0;
        for (const PLSection section : PLAllSections)
            listed += m_controller.tree().section(section)->childCount();
        return listed == pages && m_controller.allTags().size() > tags / 2 &&
               PLItemOfNode(m_controller.selectedNode());
    }

    int rowCount() const
    {
        int count = 0;
        for (QModelIndex row = m_view->model()->index(0, 0); row.isValid(); row = m_view->indexBelow(row))
            ++count;
        return count;
    }

private:
    std::unique_ptr<PLProject> m_project;
    std::unique_ptr<PLSidebarView> m_view; // outlives the controller, as in a window
    PLSidebarController m_controller;
};

Figures measure(const QString &path, int pages)
{
    Sidebar sidebar(path);
    Figures figures;
    std::vector<double> bare;
    std::vector<double> rebuilds;
    for (int round = 0; round < rounds; ++round) {
        bare.push_back(PLMilliseconds([&] { PLReadBarely(path); }));
        rebuilds.push_back(sidebar.rebuild());
    }
    figures.bare = PLPercentile(bare, 0.5);
    figures.rebuild = PLPercentile(rebuilds, 0.5);
    sidebar.openTags();
    figures.openTags = sidebar.rebuild();
    const std::vector<double> scrolling = sidebar.scroll();
    figures.frameHalf = PLPercentile(scrolling, 0.5);
    figures.frameMost = PLPercentile(scrolling, 0.99);
    figures.rows = sidebar.rowCount();
    figures.isWhole = sidebar.isWhole(pages);
    return figures;
}

bool holds(int pages, const Figures &figures)
{
    if (pages != limitedPages)
        return figures.isWhole;
    return figures.isWhole && figures.rebuild <= largestRebuild &&
           figures.rebuild / figures.bare <= largestRatio && figures.frameMost <= frame;
}

void report(int pages, const Figures &figures)
{
    std::printf("%6d %8.2f %10.2f %6.2f %9.2f %11.2f %7d %7.2f %7.2f   %s\n", pages, figures.bare,
                figures.rebuild, figures.rebuild / figures.bare, 1000 * figures.rebuild / pages,
                figures.openTags, figures.rows, figures.frameHalf, figures.frameMost,
                holds(pages, figures) ? "held" : "NOT HELD");
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    PLPreferences::useFile(folder.filePath(u"preferences.ini"_s));
    PLPreferences::store().setValue(u"PLInterfaceLanguage"_s, u"fr"_s);
    std::printf("Rebuilding the sidebar, %d tags; medians of %d in ms, files in cache. Limits with %d pages: "
                "%.0f ms, %.1f times the bare loop, frame p99 %.1f ms\n",
                tags, rounds, limitedPages, largestRebuild, largestRatio, frame);
    std::puts(" pages     bare   Aquilane  ratio   us/page   tags open    rows  frame  p99");
    bool isHeld = true;
    std::vector<double> ratios;
    for (const int pages : {1'000, 2'500, limitedPages, 10'000}) {
        const QString path = folder.filePath(QString::number(pages));
        if (!PLMakeNotebook(path, {pages, tags})) {
            std::fprintf(stderr, "The notebook could not be made in %s\n", qPrintable(path));
            return 2;
        }
        const Figures figures = measure(path, pages);
        report(pages, figures);
        isHeld = holds(pages, figures) && isHeld;
        ratios.push_back(figures.rebuild / figures.bare);
    }
    const double growth = ratios.back() / ratios.front();
    std::printf("the ratio, 10,000 pages against 1,000: %.2f (limit %.1f)\n", growth, largestGrowth);
    return isHeld && growth <= largestGrowth ? 0 : 1;
}

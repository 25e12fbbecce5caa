// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What a notebook costs to list with its tags, against a bare loop over the same files: list the folders,
// open each file, read its first 4 KiB. Both in one run, by turns, with the files in the system's cache.

#include "foundation/PLPreferences.h"
#include "made_notebook.h"
#include "storage/PLProject.h"

#include <QTemporaryDir>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 15;
constexpr double largestRatio = 3.0; // times the bare loop

struct Figures
{
    double bare = 0;    // milliseconds
    double listing = 0; // milliseconds
    qsizetype tags = 0; // found by the listing, so that it is known to have worked
};

/// What the sidebar does: every section sorted, the tags of every page.
qsizetype listWithTags(const PLProject &project)
{
    qsizetype tags = 0;
    for (const PLSection section : PLAllSections) {
        for (const PLProjectItemPointer &item : project.itemsInSection(section))
            tags += item->readTags().size();
    }
    return tags;
}

Figures measure(const QString &path)
{
    const PLProject project(QUrl::fromLocalFile(path));
    Figures figures;
    std::vector<double> bare;
    std::vector<double> listing;
    PLReadBarely(path); // fills the cache
    for (int round = 0; round < rounds; ++round) {
        bare.push_back(PLMilliseconds([&] { PLReadBarely(path); }));
        listing.push_back(PLMilliseconds([&] { figures.tags = listWithTags(project); }));
    }
    figures.bare = PLPercentile(bare, 0.5);
    figures.listing = PLPercentile(listing, 0.5);
    return figures;
}

/// Prints one notebook's line; false if the limit is not held.
bool report(int pages, const Figures &figures)
{
    const double ratio = figures.listing / figures.bare;
    const bool isHeld = ratio <= largestRatio && figures.tags > pages / 2;
    std::printf("%8d %12.2f %12.2f %14.2f %8.2f   %s\n", pages, figures.bare, figures.listing,
                1000 * figures.listing / pages, ratio, isHeld ? "held" : "NOT HELD");
    return isHeld;
}

} // namespace

int main()
{
    const QTemporaryDir folder;
    PLPreferences::useFile(folder.filePath(u"preferences.ini"_s));
    PLPreferences::store().setValue(u"PLInterfaceLanguage"_s, u"fr"_s);
    std::printf("Listing five sections with the tags of every page; medians of %d, files in cache\n", rounds);
    std::printf("%8s %12s %12s %14s %8s   limit %.1f\n", "pages", "bare ms", "Aquilane ms", "us per page",
                "ratio", largestRatio);
    bool isHeld = true;
    std::vector<double> costs;
    for (const int pages : {1'000, 10'000}) {
        const QString path = folder.filePath(QString::number(pages));
        if (!PLMakeNotebook(path, {pages})) {
            std::fprintf(stderr, "The notebook could not be made in %s\n", qPrintable(path));
            return 2;
        }
        const Figures figures = measure(path);
        isHeld = report(pages, figures) && isHeld;
        costs.push_back(figures.listing / pages);
    }
    std::printf("cost of a page, 10,000 against 1,000: %.2f\n", costs[1] / costs[0]);
    return isHeld ? 0 : 1;
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// What a notebook costs to list with its tags, against a bare loop over the same files: list the folders,
// open each file, read its first 4 KiB. Both in one run, by turns, with the files in the system's cache.

#include "foundation/PLPreferences.h"
#include "i18n/PLLocalization.h"
#include "storage/PLProject.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

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

QString words(QRandomGenerator &random, int count)
{
    static const QStringList vocabulary =
        u"la pluie avait cessé vers le soir et Éléonore regardait par la fenêtre les toits mouillés de l’île "
        u"où "
        u"personne n’était venu depuis que sa sœur Cécile était partie sans laisser de lettre à côté du piano"_s
            .split(u' ');
    QStringList text;
    for (int index = 0; index < count; ++index)
        text.append(vocabulary[random.bounded(int(vocabulary.size()))]);
    return text.join(u' ');
}

/// A page of 100 to 2,000 words in paragraphs; every second one has a header with tags.
QByteArray page(QRandomGenerator &random, int number)
{
    QString text;
    if (number % 2 == 0)
        text += u"---\ntype: fiche\ntags: "_s + words(random, 3).replace(u' ', u", "_s) + u"\n---\n\n"_s;
    text += u"# "_s + words(random, 4) + u"\n\n"_s;
    for (int paragraph = random.bounded(1, 20); paragraph > 0; --paragraph)
        text += words(random, 100) + u".\n\n"_s;
    return text.toUtf8();
}

/// A notebook of so many pages, two in five of them chapters. False if the disk will not have it.
bool makeNotebook(const QString &path, int pages)
{
    QRandomGenerator random(1789);
    QFile metadata(path + u"/projet.md"_s);
    if (!QDir().mkpath(path) || !metadata.open(QIODevice::WriteOnly))
        return false;
    const auto project = PLProject::openProjectAtURL(QUrl::fromLocalFile(path));
    for (int number = 1; project && number <= pages; ++number) {
        const PLSection section = number % 5 < 2 ? PLSection::Book : PLAllSections[number % 5];
        const QString title = words(random, random.bounded(1, 5)) + u' ' + QString::number(number);
        const QString name = PLProjectItem::fileNameForTitle(title, number, section);
        QFile file(project->URLForSection(section).toLocalFile() + name);
        const QByteArray text = page(random, number);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            return false;
    }
    return project != nullptr;
}

void readStart(int folder, const char *name)
{
    char start[4096];
    const int file = ::openat(folder, name, O_RDONLY | O_CLOEXEC);
    if (file < 0 || ::read(file, start, sizeof start) < 0)
        std::perror(name);
    ::close(file);
}

/// The least that any program must do.
void listBarely(const QString &path)
{
    for (const PLSection section : PLAllSections) {
        const QByteArray folder = QFile::encodeName(path + u'/' + PLProject::folderNameForSection(section));
        DIR *reader = ::opendir(folder.constData());
        while (const dirent *entry = ::readdir(reader)) {
            if (entry->d_name[0] != '.')
                readStart(::dirfd(reader), entry->d_name);
        }
        ::closedir(reader);
    }
}

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

double milliseconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

Figures measure(const QString &path)
{
    const PLProject project(QUrl::fromLocalFile(path));
    Figures figures;
    std::vector<double> bare;
    std::vector<double> listing;
    listBarely(path); // fills the cache
    for (int round = 0; round < rounds; ++round) {
        bare.push_back(milliseconds([&] { listBarely(path); }));
        listing.push_back(milliseconds([&] { figures.tags = listWithTags(project); }));
    }
    figures.bare = median(bare);
    figures.listing = median(listing);
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
        if (!makeNotebook(path, pages)) {
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

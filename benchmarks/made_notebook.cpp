// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "made_notebook.h"

#include "storage/PLProject.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

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

/// Three tags; those of a given number are named by it: "été 17", "mer 204".
QString tags(QRandomGenerator &random, int different)
{
    if (different == 0)
        return words(random, 3).replace(u' ', u", "_s);
    static const QStringList names = u"été mer Paris île Noël"_s.split(u' ');
    QStringList chosen;
    for (int index = 0; index < 3; ++index) {
        const int number = random.bounded(different);
        chosen.append(names[number % names.size()] + u' ' + QString::number(number));
    }
    return chosen.join(u", "_s);
}

QByteArray page(QRandomGenerator &random, int number, int differentTags)
{
    QString text;
    if (number % 2 == 0)
        text += u"---\ntype: fiche\ntags: "_s + tags(random, differentTags) + u"\n---\n\n"_s;
    text += u"# "_s + words(random, 4) + u"\n\n"_s;
    for (int paragraph = random.bounded(1, 20); paragraph > 0; --paragraph)
        text += words(random, 100) + u".\n\n"_s;
    return text.toUtf8();
}

void readStart(int folder, const char *name)
{
    char start[4096];
    const int file = ::openat(folder, name, O_RDONLY | O_CLOEXEC);
    if (file < 0 || ::read(file, start, sizeof start) < 0)
        std::perror(name);
    ::close(file);
}

} // namespace

bool PLMakeNotebook(const QString &path, const PLMadeNotebook &size)
{
    QRandomGenerator random(1789);
    QFile metadata(path + u"/projet.md"_s);
    if (!QDir().mkpath(path) || !metadata.open(QIODevice::WriteOnly))
        return false;
    const auto project = PLProject::openProjectAtURL(QUrl::fromLocalFile(path));
    for (int number = 1; project && number <= size.pages; ++number) {
        const PLSection section = number % 5 < 2 ? PLSection::Book : PLAllSections[number % 5];
        const QString title = words(random, random.bounded(1, 5)) + u' ' + QString::number(number);
        const QString name = PLProjectItem::fileNameForTitle(title, number, section);
        QFile file(project->URLForSection(section).toLocalFile() + name);
        const QByteArray text = page(random, number, size.tags);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            return false;
    }
    return project != nullptr;
}

void PLReadBarely(const QString &path)
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

double PLMilliseconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

double PLPercentile(std::vector<double> values, double part)
{
    std::sort(values.begin(), values.end());
    return values[size_t(std::floor(part * double(values.size() - 1)))];
}

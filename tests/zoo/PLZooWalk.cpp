// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "zoo/PLZooWalk.h"

#include "support/PLTestDisk.h"
#include "zoo/PLZooVisit.h"

#include <QTest>

#include <filesystem>
#include <optional>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool canMakeDevices(const QByteArray &folder)
{
    const QByteArray path = folder + "/device";
    return ::mknod(path.constData(), S_IFCHR | 0666, PLZooCage::endlessDeviceNumber()) == 0 &&
           ::unlink(path.constData()) == 0;
}

/// The toolkit's removal stops at names that are no text, and any at a folder that may not be written.
void remove(const QByteArray &root, const QByteArray &notebook)
{
    for (const char *section : {"/Livre", "/Personnages", "/Lieux", "/Fiches", "/Notes"}) {
        struct stat status;
        const QByteArray path = notebook + section;
        if (::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode))
            ::chmod(path.constData(), 0755);
    }
    std::error_code ignored;
    std::filesystem::remove_all(root.toStdString(), ignored);
}

} // namespace

PLZooWalk::PLZooWalk()
{
    // A thousand folders in each other are compared through as many descriptors.
    rlimit files{};
    ::getrlimit(RLIMIT_NOFILE, &files);
    files.rlim_cur = qMin<rlim_t>(files.rlim_max, 4096);
    ::setrlimit(RLIMIT_NOFILE, &files);
}

void PLZooWalk::addRows(const std::vector<PLZooNotebook> &notebooks)
{
    QTest::addColumn<int>("index");
    int index = 0;
    for (const PLZooNotebook &notebook : notebooks) {
        const QByteArray name = notebook.name.toPercentEncoding(" -").left(60);
        QTest::addRow("%d: %s", index, name.constData()) << index;
        ++index;
    }
}

QString PLZooWalk::visit(const std::vector<PLZooNotebook> &notebooks) const
{
    QFETCH(int, index);
    const PLZooNotebook &notebook = notebooks.at(size_t(index));
    QTemporaryDir place;
    place.setAutoRemove(false);
    const QByteArray root = place.path().toUtf8();
    const bool isFullSize = qEnvironmentVariable("AQUILANE_ZOO") == u"full";
    qputenv("XDG_DATA_HOME", root + "/data");
    const QByteArray folder = root + "/zoo/" + notebook.name;
    const QByteArray outside = root + "/outside";
    if (notebook.needsDevices && !canMakeDevices(root)) {
        remove(root, folder);
        QTest::qSkip("To make a device takes the superuser.", __FILE__, __LINE__);
        return QString();
    }
    notebook.make(PLZooCage(folder, outside, isFullSize));
    std::optional<PLOrdinaryUser> user;
    if (notebook.needsOrdinaryUser)
        user.emplace(place.path());
    PLZooVisit visit(notebook, folder, outside, isFullSize);
    const QStringList complaints = visit.run();
    user.reset();
    remove(root, folder);
    qInfo().noquote() << visit.summary();
    return complaints.join(u'\n');
}

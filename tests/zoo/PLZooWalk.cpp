// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "zoo/PLZooWalk.h"

#include "support/PLTestDisk.h"
#include "zoo/PLZooVisit.h"

#include <QTest>

#include <filesystem>
#include <optional>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

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
    notebook.make(PLZooCage(folder, outside, isFullSize));
    std::optional<PLOrdinaryUser> user;
    if (notebook.needsOrdinaryUser)
        user.emplace(place.path());
    PLZooVisit visit(notebook, folder, outside, isFullSize);
    const QStringList complaints = visit.run();
    user.reset();
    std::filesystem::remove_all(root.toStdString()); // the toolkit's removal stops at names that are no text
    qInfo().noquote() << visit.summary();
    return complaints.join(u'\n');
}

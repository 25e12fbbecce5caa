// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QMap>
#include <QSet>
#include <QStringList>

/// What one name on the disk is: enough to tell whether it has been touched.
struct PLZooEntry
{
    unsigned mode = 0;
    qint64 changed = 0;  ///< nanoseconds of the last change of a file's bytes; 0 for a folder
    QByteArray contents; ///< a file's SHA-1, a link's target, else empty

    bool operator==(const PLZooEntry &other) const = default;
};

/// Everything below some folders, no link followed, by its path.
using PLZooSnapshot = QMap<QByteArray, PLZooEntry>;

PLZooSnapshot PLTakeZooSnapshot(const QList<QByteArray> &folders);

/// What differs, in words, but for these paths and those below them.
QStringList PLZooChanges(const PLZooSnapshot &before, const PLZooSnapshot &after,
                         const QSet<QByteArray> &allowed);

/// What the files, links, FIFOs… hold, whatever they are called: to see that none is lost.
QList<QByteArray> PLZooHoldings(const PLZooSnapshot &snapshot);

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "faults/PLDiskState.h"
#include "faults/PLFileCall.h"

#include <QHash>
#include <QList>

#include <map>
#include <utility>

/// One change of a file's bytes that may not be on the disk yet.
struct PLDataStep
{
    bool isTruncation = false;
    qint64 offset = 0; ///< of a truncation the new size
    QByteArray bytes;
};

/// A file or folder as the disk knows it, whatever its names.
struct PLDiskNode
{
    bool isFolder = false;
    QByteArray flushed; ///< the bytes that no power cut can take
    QList<PLDataStep> steps;
    QList<unsigned> modes = {0644}; ///< the first is safe, the others are not flushed

    QByteArray liveBytes() const;
    /// Every content that a power cut may leave; none at all if there are more than `most`.
    QList<QByteArray> possibleBytes(qsizetype most) const;
    void flush();
};

/// Names in folders, each leading to a node; -1 for a name that is taken away.
using PLNames = std::map<std::pair<int, QByteArray>, int>;

/// One change of names, which is on the disk as a whole or not at all.
struct PLNameStep
{
    PLNames names;
    bool isFlushed = false;
};

/// A disk in memory on which a recording is replayed: what is safe on it, and what is not yet.
class PLCrashDisk final
{
public:
    explicit PLCrashDisk(const PLDiskState &initial);

    void replay(const PLFileCall &call);

    const QList<PLDiskNode> &nodes() const { return m_nodes; }
    const PLNames &liveNames() const { return m_live; }
    /// The indices of the changes of names that may be lost.
    QList<qsizetype> unflushedSteps() const;
    /// The names that are on the disk if of the unflushed changes only these have reached it.
    PLNames namesWith(const QList<qsizetype> &chosen) const;

private:
    int addNode(bool isFolder, const QByteArray &bytes, unsigned mode);
    int nodeAt(const QByteArray &path) const;
    std::pair<int, QByteArray> placeOf(const QByteArray &path) const;
    void changeNames(const PLNames &names);
    void flush(int node);

    QList<PLDiskNode> m_nodes;
    PLNames m_initial;
    PLNames m_live;
    QList<PLNameStep> m_steps;
    QHash<int, int> m_handles;
};

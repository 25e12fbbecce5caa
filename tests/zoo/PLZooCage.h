// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

#include <sys/types.h>

/// Where one notebook of the zoo is made, by bare system calls: names are bytes, and what no toolkit would
/// make can be made. Every name is relative to the notebook's folder; the folders above it are made too.
class PLZooCage final
{
public:
    /// `outside` is a folder beside the notebook that its links lead to, and that nothing may happen to.
    PLZooCage(const QByteArray &notebook, const QByteArray &outside, bool isFullSize);

    const QByteArray &notebook() const { return m_notebook; }
    const QByteArray &outside() const { return m_outside; }
    /// A number that is large only where there is time for it.
    int number(int usual, int full) const { return m_isFullSize ? full : usual; }

    void folder(const QByteArray &name) const;
    void file(const QByteArray &name, const QByteArray &bytes) const;
    /// A file of so many bytes, the pattern over and over between what it begins and ends with.
    void filled(const QByteArray &name, const QByteArray &pattern, qint64 size,
                const QByteArray &start = QByteArray()) const;
    /// A file of nothing, of which the disk only knows the size.
    void hollow(const QByteArray &name, qint64 size) const;
    void fifo(const QByteArray &name) const;
    void socket(const QByteArray &name) const;
    /// The device that never ends, as a node of the zoo's own. Without the right to make one there is none,
    /// which is said.
    void endlessDevice(const QByteArray &name) const;
    static dev_t endlessDeviceNumber();
    /// A link to a path that is taken as it is.
    void link(const QByteArray &name, const QByteArray &target) const;
    void permissions(const QByteArray &name, unsigned mode) const;
    /// So many folders in each other.
    void depth(const QByteArray &name, int levels) const;

private:
    QByteArray pathOf(const QByteArray &name) const;

    QByteArray m_notebook;
    QByteArray m_outside;
    bool m_isFullSize;
};

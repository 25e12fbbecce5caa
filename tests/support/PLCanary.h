// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/PLTestFiles.h"

#include <QDirIterator>
#include <QFileInfo>

#include <sys/inotify.h>
#include <unistd.h>

/// A picture that nobody has a reason to look at. The kernel tells when somebody opens it (Linux).
class PLCanary final
{
public:
    explicit PLCanary(const QString &path) : m_descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        const QByteArray name = QFile::encodeName(path);
        if (!PLMakeFile(path, PLPictureBytes()) ||
            ::inotify_add_watch(m_descriptor, name.constData(), IN_OPEN) < 0)
            qFatal("cannot watch %s", name.constData());
    }
    ~PLCanary() { ::close(m_descriptor); }

    PLCanary(const PLCanary &) = delete;
    PLCanary &operator=(const PLCanary &) = delete;

    /// True if it was opened since the last question.
    bool wasOpened() const
    {
        bool isHeard = false;
        char events[4096];
        while (::read(m_descriptor, events, sizeof events) > 0)
            isHeard = true;
        return isHeard;
    }

private:
    int m_descriptor;
};

/// Everything in a folder, a line each: name, kind, permissions, and a link's target or a file's bytes.
inline QStringList PLTreeOf(const QString &folder)
{
    QStringList tree;
    QDirIterator files(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QFileInfo file = files.nextFileInfo();
        QString content = file.isSymLink() ? QStringLiteral(" -> ") + file.symLinkTarget() : QString();
        if (file.isFile() && !file.isSymLink())
            content = u' ' + QString::fromLatin1(PLBytesOf(file.filePath()).toHex());
        tree.append(file.filePath() + (file.isDir() ? u'/' : u' ') +
                    QString::number(int(file.permissions()), 16) + content);
    }
    tree.sort();
    return tree;
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "storage/PLProject.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// A notebook in a temporary folder, with the pages a test gives it.
class PLTestNotebook final
{
public:
    explicit PLTestNotebook(const QString &title = QStringLiteral("Roman"))
    {
        QDir().mkpath(path());
        write(QStringLiteral("projet.md"),
              QStringLiteral("---\ntitre: %1\nformat: aquilane-1\n---\n\n").arg(title));
    }

    QString path(const QString &relative = QString()) const
    {
        const QString folder = m_folder.filePath(QStringLiteral("Roman"));
        return relative.isEmpty() ? folder : folder + u'/' + relative;
    }
    QUrl url(const QString &relative = QString()) const { return QUrl::fromLocalFile(path(relative)); }

    void write(const QString &relative, const QString &text) const
    {
        QDir().mkpath(QFileInfo(path(relative)).path());
        QFile file(path(relative));
        if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }

    /// The text on the disk, null if there is no such file.
    QString read(const QString &relative) const
    {
        QFile file(path(relative));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    bool exists(const QString &relative) const { return QFileInfo::exists(path(relative)); }

    std::unique_ptr<PLProject> open() const { return PLProject::openProjectAtURL(url()); }

    /// Takes a section's folder away, so that no page in it can be written: permissions would not stop root.
    void hideSection(const QString &name) const { QDir(path()).rename(name, u'.' + name); }
    void showSection(const QString &name) const { QDir(path()).rename(u'.' + name, name); }

private:
    QTemporaryDir m_folder;
};

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

#include <optional>

/// A page as a writer thinks of it: header lines, tags, text. Reads and writes the same files as the program,
/// by the same rules, in the plainest way.
struct PLModelPage
{
    static PLModelPage fromBytes(const QByteArray &bytes);
    QByteArray bytes() const;

    QString mark;                          ///< U+FEFF or nothing
    QList<QPair<QString, QString>> header; ///< keys and values; without "tags" if there never were any
    QStringList tags;
    QString text;
};

/// What must be on the disk and on the screen.
struct PLWriterModel
{
    QMap<QString, QByteArray> disk; ///< by the page's path in the notebook

    QString current; ///< the path of the page that is open, null for none
    PLModelPage page;
    QByteArray known; ///< what the open page's file held when it was last read or written here
    bool dirty = false;
    QSet<QString> texts; ///< every text of this page since it was opened

    void load(const QString &path);
    void close() { *this = {disk, QString(), {}, {}, false, {}}; }
    void textBecame(const QString &text);
};

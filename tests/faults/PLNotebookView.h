// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <map>

class PLDiskState;

/// A page as the program shows it.
struct PLPageView
{
    QString text;
    unsigned mode = 0;

    bool operator==(const PLPageView &other) const = default;
};

/// All that the program shows of the notebook "Roman" in a folder, and of the trash in "home" beside it, once
/// it has opened it.
struct PLNotebookView
{
    bool isNotebook = false;
    QString failure; ///< why it could not be opened or a page not be read
    QString title;
    QString notes;
    std::map<QByteArray, PLPageView> pages;   ///< by path
    QByteArray cover;                         ///< name and bytes
    std::map<QByteArray, QByteArray> trashed; ///< bytes with where they came from, by name in the trash
    std::map<QByteArray, QByteArray> others;  ///< all other files, by path: strays, unless somebody made them

    bool operator==(const PLNotebookView &other) const = default;

    /// Opens the notebook, which may mend what a crash left, and looks at everything. `left` becomes what is
    /// on the disk afterwards.
    static PLNotebookView open(const QString &folder, PLDiskState *left = nullptr);

    /// For a message: what there is, texts by their length.
    QString description() const;

private:
    void lookAtPages(const QString &folder);
    void lookAtFiles(const PLDiskState &state);
};

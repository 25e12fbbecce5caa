// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

class QWidget;

/// What a panel says: its title, its button, and the sentence above the list.
struct PLPanelTexts
{
    QString title;
    QString prompt;
    QString message;
};

/// Asks for a folder or one of its Markdown files; an empty URL when cancelled.
QUrl PLChooseFolderOrMarkdownFile(const PLPanelTexts &texts, QWidget *parent = nullptr);

/// Asks for a file with one of these extensions, in small or capital letters; an empty URL when cancelled.
QUrl PLChooseFile(const PLPanelTexts &texts, const QStringList &extensions, QWidget *parent = nullptr);

/// Asks for the place and the name of a new folder; an empty URL when cancelled. `nameLabel` stands before
/// the field of the name, which holds `proposedName`.
QUrl PLChooseNewFolder(const PLPanelTexts &texts, const QString &nameLabel, const QString &proposedName,
                       QWidget *parent = nullptr);

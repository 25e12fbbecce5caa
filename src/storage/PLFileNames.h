// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "storage/PLSection.h"

#include <QString>
#include <QUrl>

/// Makes a title safe as a file name: no character that a common file system refuses, no leading full stop,
/// at most 120 UTF-16 units, never empty.
QString PLSanitizedFileName(const QString &title);

/// A file URL in `folder` that is free: the sanitised title, then "title 2", "title 3"… The title is
/// shortened at a grapheme so that the whole name fits 240 bytes of UTF-8, as Linux file systems take 255. A
/// page may keep its own name (`ignoredURL`) or change only the case of it.
QUrl PLAvailableURL(const QUrl &folder, const QString &title, qint64 number, PLSection section,
                    const QUrl &ignoredURL);

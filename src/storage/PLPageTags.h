// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArrayView>
#include <QStringList>

#include <optional>

/// Trims each tag, makes commas spaces, drops the empty ones and those already met in another case.
QStringList PLNormalizedTags(const QStringList &tags);

/// The tags in a text of tags with commas between them, normalised.
QStringList PLTagsFromString(QStringView text);

/// The tags in the header of a page, told from its first bytes; nothing if it takes more of them to tell.
std::optional<QStringList> PLTagsInPageStart(QByteArrayView start, bool isWholePage);

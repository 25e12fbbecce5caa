// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <span>

/// One line of the string table: a French source text and its English translation.
struct PLStringPair
{
    const char16_t *french;
    const char16_t *english;
};

/// The string table, in the order of use: application menu, File, Edit, Format, editor, Window, preferences,
/// sections and templates, library, sidebar, alerts, errors.
std::span<const PLStringPair> PLStringTable();

/// The English text of a French one, or the text itself if the table has none.
QString PLEnglishString(const QString &french);

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

/// Splits a page into its header of "key: value" lines fenced by "---" and its body, and puts them together.
/// Simpler than YAML on purpose: one value a line, no quoting, no nesting. Neither operation fails: a text
/// that breaks a rule of the header is all body.
class PLFrontMatter final
{
public:
    PLFrontMatter() = delete;

    using Fields = QHash<QString, QString>;

    /// The fields by lower-case key. `body` receives the text after the header with "\r\n" made "\n" (nothing
    /// else is changed), `keys` the keys in order of first appearance.
    static Fields fieldsFromString(const QString &text, QString *body = nullptr, QStringList *keys = nullptr);

    /// The value of one field, empty without it: what fieldsFromString has under this key, which is in ASCII
    /// and lower case.
    static QString fieldInString(const QString &text, QStringView key);

    /// True if a text, read as a page, would lose a line that is not blank: one between two lines of "---"
    /// that is no field, or a field that is there twice.
    static bool losesLinesOfString(const QString &text);

    /// The file text: one line for each of `keys` (line ends in a value become spaces), a blank line, the
    /// body.
    static QString stringWithKeys(const QStringList &keys, const Fields &values, const QString &body);
};

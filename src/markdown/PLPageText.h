// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// A page split by PLFrontMatter: its tags and its body. Splitting copies the page twice, which takes longer than
/// rendering it; so where the body is a stretch of the page as it stands, only the header is handed over.
class PLPageText final
{
public:
    explicit PLPageText(const QString &text);

    /// The value of the field "tags"; null if there is none.
    const QString &tags() const { return m_tags; }
    /// Lives as long as this object.
    QStringView body() const { return QStringView(m_text).sliced(m_bodyStart); }

private:
    void split(const QString &text);

    QString m_text;
    QString m_tags;
    qsizetype m_bodyStart = 0;
};

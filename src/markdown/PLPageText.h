// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// A page split by PLFrontMatter: its tags and its body. Splitting copies the page twice, which takes longer
/// than rendering it; so only the header is handed over where it can be told from the body at a glance.
class PLPageText final
{
public:
    explicit PLPageText(const QString &text);

    /// The value of the field "tags"; null if there is none.
    const QString &tags() const { return m_tags; }
    /// Lives as long as this object.
    QStringView body() const { return QStringView(m_text).sliced(m_bodyStart); }
    /// Whether "\r\n" in the body still stands for a line feed.
    bool hasCarriageReturns() const { return m_hasCarriageReturns; }

private:
    QString m_text;
    QString m_tags;
    qsizetype m_bodyStart = 0;
    bool m_hasCarriageReturns = true;
};

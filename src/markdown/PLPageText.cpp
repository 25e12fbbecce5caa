// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLPageText.h"

#include "storage/PLFrontMatter.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype dashes = 3;
constexpr QStringView closingFence = u"\n---\n";
constexpr qsizetype longestGap = 2; ///< line feeds between a header and its body that are not the body's

} // namespace

PLPageText::PLPageText(const QString &text) : m_text(text)
{
    if (!text.startsWith(u"---\n") && !text.startsWith(u"---\r\n"))
        return;
    const qsizetype fence = text.indexOf(closingFence, dashes);
    const qsizetype bodyEnd = fence + closingFence.size() - 1 + longestGap;
    const QString header = fence < 0 ? text : text.first(qMin(text.size(), bodyEnd));
    if (fence < 0 || header.contains(u'\r')) {
        m_tags = PLFrontMatter::fieldsFromString(text, &m_text).value(u"tags"_s);
        m_hasCarriageReturns = false;
        return;
    }
    QString rest;
    m_tags = PLFrontMatter::fieldsFromString(header, &rest).value(u"tags"_s);
    m_bodyStart = header.size() - rest.size();
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLPageText.h"

#include "storage/PLFrontMatter.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QStringView openingFence = u"---\n";
constexpr QStringView closingFence = u"\n---\n";
constexpr qsizetype longestGap = 2; ///< line feeds between a header and its body that are not the body's

} // namespace

PLPageText::PLPageText(const QString &text) : m_text(text)
{
    if (text.contains(u'\r')) {
        split(text);
        return;
    }
    if (!text.startsWith(openingFence))
        return;
    const qsizetype fence = text.indexOf(closingFence, openingFence.size() - 1);
    if (fence < 0) {
        split(text);
        return;
    }
    const QString header = text.first(qMin(text.size(), fence + closingFence.size() - 1 + longestGap));
    QString rest;
    m_tags = PLFrontMatter::fieldsFromString(header, &rest).value(u"tags"_s);
    m_bodyStart = header.size() - rest.size();
}

void PLPageText::split(const QString &text)
{
    m_tags = PLFrontMatter::fieldsFromString(text, &m_text).value(u"tags"_s);
}

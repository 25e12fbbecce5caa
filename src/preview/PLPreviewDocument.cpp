// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLPreviewDocument.h"

using namespace Qt::StringLiterals;

PLPreviewDocument PLPreviewDocument::fromHTML(const QString &html)
{
    static const QString opening = u"<div id=\"contenu\">"_s;
    static const QString closing = u"</div></body></html>"_s;

    const qsizetype found = html.indexOf(opening);
    const qsizetype start = found + opening.size();
    const qsizetype end = html.lastIndexOf(closing);
    if (found < 0 || end < start)
        return {html, QString()};
    const QString content = html.mid(start, end - start);
    return {html.left(start) + html.mid(end), content.isNull() ? u""_s : content};
}

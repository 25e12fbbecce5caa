// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLMarkdown.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "markdown/PLBlockWalker.h"
#include "markdown/PLPageText.h"
#include "markdown/PLWordCounter.h"

using namespace Qt::StringLiterals;

namespace {

/// Adds a line for each stretch of the body between line feeds.
void addBody(PLBlockWalker &walker, const PLPageText &page)
{
    QStringView body = page.body();
    for (;;) {
        const qsizetype lineFeed = walker.addFirstLine(body, page.hasCarriageReturns());
        if (lineFeed == body.size())
            return;
        body = body.sliced(lineFeed + 1);
    }
}

void appendTags(PLHTMLWriter &html, QStringView tags)
{
    html.append(u"<p class=\"tags\">");
    for (const QStringView piece : tags.split(u',')) {
        const QStringView tag = PLTrimmedSpaces(piece);
        if (tag.isEmpty())
            continue;
        html.append(u"<span class=\"tag\">");
        html.appendEscaped(tag);
        html.append(u"</span>");
    }
    html.append(u"</p>\n");
}

} // namespace

QString PLMarkdown::HTMLFromMarkdown(const QString &text)
{
    const PLPageText page(text);
    PLHTMLWriter html;
    html.reserve(text.size() + text.size() / 8 + 256);
    if (!page.tags().isEmpty())
        appendTags(html, page.tags());
    PLBlockWalker walker(&html);
    addBody(walker, page);
    walker.finish();
    if (html.size() > 0)
        return html.take();
    return u"<p class=\"vide\">"_s + PLLocalizedString(u"L'aperçu de votre texte apparaîtra ici."_s) +
           u"</p>"_s;
}

qsizetype PLMarkdown::wordCountOfMarkdown(const QString &text)
{
    return PLWordCount(PLPageText(text).body());
}

QString PLMarkdown::blocksHTMLFromLines(const QStringList &lines)
{
    PLHTMLWriter html;
    PLBlockWalker walker(&html);
    for (const QString &line : lines)
        walker.addLine(line);
    walker.finish();
    return html.take();
}

QString PLMarkdown::inlineHTML(const QString &line)
{
    PLHTMLWriter html;
    PLInlineRenderer(&html).appendLine(line);
    return html.take();
}

QString PLMarkdown::formattedSpan(const QString &span)
{
    PLHTMLWriter html;
    PLInlineRenderer(&html).appendSpan(span);
    return html.take();
}

QString PLEscapeHTML(const QString &text)
{
    if (text.isNull())
        return QString();
    PLHTMLWriter html;
    html.reserve(text.size());
    html.appendEscaped(text);
    return html.take();
}

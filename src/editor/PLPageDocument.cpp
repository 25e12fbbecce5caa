// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "editor/PLPageDocument.h"

#include "editor/PLPageLayout.h"
#include "theme/PLTheme.h"

#include <QRegularExpression>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

/// A document that reads no file. Qt's own reads the style sheets and backgrounds that its HTML names, from
/// any place on the disk, and would wait for a pipe for ever.
class PLDocumentOfText final : public QTextDocument
{
protected:
    QVariant loadResource(int, const QUrl &) override { return {}; }
};

constexpr qsizetype mostCharacters = 50'000'000;
constexpr qsizetype longestParagraph = 4'000'000;
constexpr qsizetype mostParagraphs = 1'500'000;

} // namespace

bool PLIsTooLargeForPage(QStringView text)
{
    if (text.size() < qMin(longestParagraph, mostParagraphs))
        return false;
    if (text.size() > mostCharacters)
        return true;
    qsizetype paragraphs = 1;
    qsizetype start = 0;
    for (qsizetype end = text.indexOf(u'\n'); end >= 0; end = text.indexOf(u'\n', start)) {
        if (end - start > longestParagraph || ++paragraphs > mostParagraphs)
            return true;
        start = end + 1;
    }
    return text.size() - start > longestParagraph;
}

std::unique_ptr<QTextDocument> PLMakePageDocument(const QString &encodedText)
{
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false); // a long text is taken in twice as fast
    document->setDefaultFont(PLTheme::editorFont());
    QTextCursor(document.get()).insertText(encodedText);
    document->setDocumentLayout(new PLPageLayout(document.get()));
    document->setUndoRedoEnabled(true);
    document->setModified(false);
    return document;
}

QString PLTextOfDocument(const QTextDocument &document)
{
    QString text = document.toRawText();
    text.replace(QChar::ParagraphSeparator, u'\n');
    return text;
}

/// Qt makes a plain space of U+202F, which French has before "!" and "?" (6.4): it goes through as another
/// one. And it takes all that follows a link to a style sheet for hidden.
QString PLTextOfHTML(const QString &html)
{
    static const QRegularExpression narrowSpace(u"\u202f|&#(8239|[xX]202[fF]);"_s);
    static const QRegularExpression styleSheet(u"<link\\b[^<>]*>"_s,
                                               QRegularExpression::CaseInsensitiveOption);
    constexpr QChar standIn = u'\ufdd2';
    PLDocumentOfText document;
    QTextCursor(&document).insertFragment(QTextDocumentFragment::fromHtml(
        QString(html).remove(styleSheet).replace(narrowSpace, standIn), &document));
    QString text = PLTextOfDocument(document);
    text.replace(standIn, u'\u202f');
    text.remove(QChar::ObjectReplacementCharacter);                    // pictures
    for (const char16_t separator : {u'\u2028', u'\ufdd0', u'\ufdd1'}) // lines, and the cells of tables
        text.replace(QChar(separator), u'\n');
    const auto isLineFeed = [](QChar character) { return character == u'\n'; };
    const auto start = std::find_if_not(text.cbegin(), text.cend(), isLineFeed);
    const auto end = std::find_if_not(text.crbegin(), std::make_reverse_iterator(start), isLineFeed).base();
    return QStringView(start, end).toString();
}

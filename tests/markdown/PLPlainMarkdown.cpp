// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "markdown/PLPlainMarkdown.h"

#include "foundation/PLText.h"
#include "i18n/PLLocalization.h"
#include "markdown/PLRegex.h"
#include "storage/PLFrontMatter.h"

#include <unicode/ubrk.h>

using namespace Qt::StringLiterals;

namespace {

QString element(const QString &name, const QString &content)
{
    return u'<' + name + u'>' + content + u"</"_s + name + u'>';
}

class Walk final
{
public:
    QString htmlFromLines(const QStringList &lines)
    {
        for (const QString &line : lines)
            addLine(line);
        if (m_inCode)
            closeCode();
        flushAll();
        return m_output;
    }

private:
    void addLine(const QString &line)
    {
        const QString trimmed = PLTrimmedSpaces(line).toString();
        if (m_inCode) {
            if (trimmed.startsWith(u"```"_s))
                closeCode();
            else
                m_codeLines.append(line);
        } else if (trimmed.startsWith(u"```"_s)) {
            flushAll();
            m_inCode = true;
        } else if (trimmed.isEmpty()) {
            flushAll();
        } else if (trimmed.startsWith(u'>')) {
            flushParagraph();
            closeList();
            const QString rest = trimmed.sliced(1);
            m_quoteLines.append(rest.startsWith(u' ') ? rest.sliced(1) : rest);
        } else {
            flushQuote();
            addTextLine(trimmed);
        }
    }

    void addTextLine(const QString &trimmed)
    {
        if (const auto heading = PLMatch(trimmed, u"^(#{1,6})\\s+(.*?)\\s*#*$"_s)) {
            flushParagraph();
            closeList();
            const QString name = u'h' + QString::number(heading->at(1).size());
            m_output += element(name, PLPlainMarkdown::inlineHTML(heading->at(2))) + u'\n';
        } else if (PLMatch(trimmed, u"^([-*_])(?:\\s*\\1){2,}$"_s)) {
            flushParagraph();
            closeList();
            m_output += u"<hr>\n"_s;
        } else if (const auto bullet = PLMatch(trimmed, u"^[-*+]\\s+(.*)$"_s)) {
            addItem(u"ul"_s, bullet->at(1));
        } else if (const auto number = PLMatch(trimmed, u"^\\d+[.)]\\s+(.*)$"_s)) {
            addItem(u"ol"_s, number->at(1));
        } else {
            closeList();
            m_paragraphLines.append(trimmed);
        }
    }

    void addItem(const QString &list, const QString &text)
    {
        flushParagraph();
        if (m_openList != list) {
            closeList();
            m_openList = list;
            m_output += u'<' + list + u">\n"_s;
        }
        m_output += element(u"li"_s, PLPlainMarkdown::inlineHTML(text)) + u'\n';
    }

    void flushAll()
    {
        flushParagraph();
        flushQuote();
        closeList();
    }

    void flushParagraph()
    {
        if (m_paragraphLines.isEmpty())
            return;
        QStringList rendered;
        for (const QString &line : std::as_const(m_paragraphLines))
            rendered.append(PLPlainMarkdown::inlineHTML(line));
        m_output += element(u"p"_s, rendered.join(u"<br>\n"_s)) + u'\n';
        m_paragraphLines.clear();
    }

    void flushQuote()
    {
        if (m_quoteLines.isEmpty())
            return;
        m_output +=
            element(u"blockquote"_s, u'\n' + PLPlainMarkdown::blocksHTMLFromLines(m_quoteLines)) + u'\n';
        m_quoteLines.clear();
    }

    void closeList()
    {
        if (!m_openList.isEmpty())
            m_output += u"</"_s + m_openList + u">\n"_s;
        m_openList.clear();
    }

    void closeCode()
    {
        const QString code = PLPlainMarkdown::escapeHTML(m_codeLines.join(u'\n'));
        m_output += u"<pre><code>"_s + code + u"</code></pre>\n"_s;
        m_inCode = false;
        m_codeLines.clear();
    }

    QString m_output;
    QStringList m_paragraphLines;
    QStringList m_quoteLines;
    QStringList m_codeLines;
    QString m_openList;
    bool m_inCode = false;
};

} // namespace

QString PLPlainMarkdown::HTMLFromMarkdown(const QString &text)
{
    QString body;
    const QString tags = PLFrontMatter::fieldsFromString(text, &body).value(u"tags"_s);
    QString result;
    if (!tags.isEmpty()) {
        result += u"<p class=\"tags\">"_s;
        for (const QString &piece : tags.split(u',')) {
            const QString tag = PLTrimmedSpaces(piece).toString();
            if (!tag.isEmpty())
                result += u"<span class=\"tag\">"_s + escapeHTML(tag) + u"</span>"_s;
        }
        result += u"</p>\n"_s;
    }
    result += blocksHTMLFromLines(body.split(u'\n'));
    if (!result.isEmpty())
        return result;
    return u"<p class=\"vide\">"_s + PLLocalizedString(u"L'aperçu de votre texte apparaîtra ici."_s) +
           u"</p>"_s;
}

QString PLPlainMarkdown::blocksHTMLFromLines(const QStringList &lines)
{
    return Walk().htmlFromLines(lines);
}

QString PLPlainMarkdown::inlineHTML(const QString &line)
{
    const QStringList segments = line.split(u'`');
    QString result;
    for (qsizetype index = 0; index < segments.size(); ++index) {
        const QString &segment = segments.at(index);
        if (index % 2 == 1 && index != segments.size() - 1)
            result += element(u"code"_s, escapeHTML(segment));
        else if (index % 2 == 1)
            result += u'`' + formattedSpan(segment);
        else
            result += formattedSpan(segment);
    }
    return result;
}

QString PLPlainMarkdown::formattedSpan(const QString &span)
{
    static const struct
    {
        QString pattern;
        QString replacement;
    } rules[] = {
        {u"!\\[([^\\]]*)\\]\\(([^)\\s]+)\\)"_s, u"<img src=\"$2\" alt=\"$1\">"_s},
        {u"\\[\\[([^\\]]+)\\]\\]"_s, u"<span class=\"lien\">$1</span>"_s},
        {u"\\[([^\\]]+)\\]\\(([^)\\s]+)\\)"_s, u"<a href=\"$2\">$1</a>"_s},
        {u"\\*\\*\\*(?=\\S)(.+?)(?<=\\S)\\*\\*\\*"_s, u"<strong><em>$1</em></strong>"_s},
        {u"\\*\\*(?=\\S)(.+?)(?<=\\S)\\*\\*"_s, u"<strong>$1</strong>"_s},
        {u"__(?=\\S)(.+?)(?<=\\S)__"_s, u"<strong>$1</strong>"_s},
        {u"(?<![\\*\\w])\\*(?=\\S)(.+?)(?<=\\S)\\*(?![\\*\\w])"_s, u"<em>$1</em>"_s},
        {u"(?<![_\\w])_(?=\\S)(.+?)(?<=\\S)_(?![_\\w])"_s, u"<em>$1</em>"_s},
        {u"~~(?=\\S)(.+?)(?<=\\S)~~"_s, u"<del>$1</del>"_s},
    };
    QString html = escapeHTML(span);
    for (const auto &rule : rules)
        html = PLReplace(html, rule.pattern, rule.replacement);
    return html;
}

QString PLPlainMarkdown::escapeHTML(QString text)
{
    text.replace(u"&"_s, u"&amp;"_s);
    text.replace(u"<"_s, u"&lt;"_s);
    text.replace(u">"_s, u"&gt;"_s);
    text.replace(u"\""_s, u"&quot;"_s);
    return text;
}

qsizetype PLPlainMarkdown::wordCount(const QString &text)
{
    UErrorCode status = U_ZERO_ERROR;
    static UBreakIterator *const unused = ubrk_open(UBRK_WORD, "", nullptr, 0, &status);
    UBreakIterator *iterator = ubrk_clone(unused, &status); // as good as new, and much cheaper
    ubrk_setText(iterator, reinterpret_cast<const UChar *>(text.utf16()), int32_t(text.size()), &status);
    qsizetype words = 0;
    while (U_SUCCESS(status) && ubrk_next(iterator) != UBRK_DONE)
        words += ubrk_getRuleStatus(iterator) >= UBRK_WORD_NONE_LIMIT ? 1 : 0;
    ubrk_close(iterator);
    return words;
}

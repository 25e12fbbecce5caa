// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

// Headers of any text, beside a reader of them that goes line by line; then the page is put together again,
// with other tags, as the editor does.

#include "PLFuzzInput.h"
#include "foundation/PLText.h"
#include "storage/PLFrontMatter.h"
#include "storage/PLProjectItem.h"

using namespace Qt::StringLiterals;

namespace {

struct Page
{
    PLFrontMatter::Fields fields;
    QStringList keys;
    QString body;

    bool operator==(const Page &) const = default;
};

Page pageOf(const QString &text)
{
    Page page;
    page.fields = PLFrontMatter::fieldsFromString(text, &page.body, &page.keys);
    return page;
}

QString textOf(const Page &page)
{
    return page.keys.isEmpty() ? page.body : PLFrontMatter::stringWithKeys(page.keys, page.fields, page.body);
}

void addPlainField(const QString &line, Page &page)
{
    if (!line.contains(u':'))
        return;
    const QString key = PLTrimmedSpaces(line.section(u':', 0, 0)).toString().toLower();
    if (key.isEmpty())
        return;
    if (!page.keys.contains(key))
        page.keys.append(key);
    page.fields[key] = PLTrimmedSpaces(line.section(u':', 1)).toString();
}

/// The fence of a header closes it if the line holds nothing else.
Page plainPageOf(QString text)
{
    text.replace(u"\r\n"_s, u"\n"_s);
    QStringList lines = text.split(u'\n');
    const qsizetype fence = lines.indexOf(u"---"_s, 1);
    if (lines.first() != u"---" || fence < 0)
        return {{}, {}, text};
    Page page;
    for (const QString &line : lines.sliced(1, fence - 1))
        addPlainField(line, page);
    lines.remove(0, fence + 1);
    if (lines.size() > 1 && lines.first().isEmpty()) // the blank line
        lines.removeFirst();
    page.body = lines.join(u'\n');
    return page;
}

/// A value as it comes back: in one line, without the spaces at its ends.
QString keptValue(const QString &value)
{
    return PLTrimmedSpaces(PLSplitAtNewlines(value).join(u' ')).toString();
}

/// "\r\r\n" reads as "\r\n", which the next reading makes "\n": a line end in every case.
QString keptBody(QString body)
{
    return body.replace(u"\r\n"_s, u"\n"_s);
}

Page keptPage(Page page)
{
    for (QString &value : page.fields)
        value = keptValue(value);
    page.body = keptBody(page.body);
    return page;
}

void checkReading(const QString &text, const Page &page)
{
    PLRequire(page == plainPageOf(text), "a page reads as line by line");
    PLRequire(keptBody(text).endsWith(page.body) || page.body.contains(u"\r\n"),
              "the body is the page's end");
    PLRequire(!page.keys.isEmpty() || page.fields.isEmpty(), "every field has a key");
    PLRequire(PLFrontMatter::fieldsFromString(text) == page.fields, "the fields alone are the same");
}

void checkWritingBack(const Page &page)
{
    const QString once = textOf(page);
    PLRequire(once.endsWith(page.body), "the body is written as it is");
    const Page again = pageOf(once);
    if (!page.keys.isEmpty())
        PLRequire(again == keptPage(page), "a page that is written back reads the same");
    const bool isSettled = !page.keys.isEmpty() && !again.body.contains(u"\r\n");
    if (isSettled) // of "\r\r\r\n" each reading takes one away
        PLRequire(textOf(pageOf(textOf(again))) == textOf(again), "writing again changes nothing more");
}

/// As the editor puts a page together.
void checkTags(Page page, const QStringList &tags)
{
    const QString line = PLProjectItem::stringFromTags(tags);
    if (!page.keys.contains(u"tags"_s))
        page.keys.append(u"tags"_s);
    page.fields[u"tags"_s] = line;
    const Page again = pageOf(textOf(page));
    PLRequire(again == keptPage(page), "other keys and the text stay when the tags change");
    PLRequire(PLProjectItem::tagsFromString(again.fields[u"tags"_s]) ==
                  PLProjectItem::tagsFromString(keptValue(line)),
              "tags are read as they were written");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    PLFuzzInput input(data, size);
    const QStringList tags = input.texts();
    const QString text = PLFuzzInput::textOf(input.rest());
    const Page page = pageOf(text);
    checkReading(text, page);
    checkWritingBack(page);
    checkTags(page, tags);
    return 0;
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "model/PLWriterModel.h"

#include "storage/PLProjectItem.h"

using namespace Qt::StringLiterals;

namespace {

const QString tagsKey = u"tags"_s;

/// Where the closing fence begins, at its line feed; -1 if there is no header.
qsizetype endOfHeader(const QString &text)
{
    if (!text.startsWith(u"---\n"))
        return -1;
    qsizetype found = text.indexOf(u"\n---"_s, 3);
    while (found >= 0 && found + 4 < text.size() && text[found + 4] != u'\n')
        found = text.indexOf(u"\n---"_s, found + 4);
    return found;
}

qsizetype indexOfKey(const PLModelPage &page, const QString &key)
{
    for (qsizetype index = 0; index < page.header.size(); ++index) {
        if (page.header[index].first == key)
            return index;
    }
    return -1;
}

void addLine(PLModelPage &page, const QString &line)
{
    const qsizetype colon = line.indexOf(u':');
    const QString key = line.left(colon).trimmed().toLower();
    if (colon < 0 || key.isEmpty())
        return;
    const QString value = line.mid(colon + 1).trimmed();
    const qsizetype index = indexOfKey(page, key);
    if (index < 0)
        page.header.append({key, value});
    else
        page.header[index].second = value;
}

/// Words between two scene breaks at the top of a page are kept words by an empty header before them.
bool losesLines(const QString &text)
{
    PLModelPage page;
    qsizetype count = 0;
    const qsizetype end = endOfHeader(text);
    const QStringList lines = end < 0 ? QStringList() : text.mid(4, end - 4).split(u'\n');
    for (const QString &line : lines) {
        addLine(page, line);
        count += line.trimmed().isEmpty() ? 0 : 1;
    }
    return page.header.size() < count;
}

} // namespace

PLModelPage PLModelPage::fromBytes(const QByteArray &bytes)
{
    PLModelPage page;
    QString text = QString::fromUtf8(bytes);
    if (bytes.startsWith("\xef\xbb\xbf")) {
        page.mark = QChar(0xFEFF);
        text = QString::fromUtf8(bytes.mid(3));
    }
    text.replace(u"\r\n"_s, u"\n"_s);
    const qsizetype end = endOfHeader(text);
    if (end < 0) {
        page.text = text;
        return page;
    }
    const QStringList lines = text.mid(4, end - 4).split(u'\n');
    for (const QString &line : lines)
        addLine(page, line);
    qsizetype body = end + 4;
    for (int feeds = 0; feeds < 2 && body < text.size() && text[body] == u'\n'; ++feeds)
        ++body;
    page.text = text.mid(body);
    const qsizetype index = indexOfKey(page, tagsKey);
    if (index >= 0)
        page.tags = PLProjectItem::tagsFromString(page.header[index].second);
    return page;
}

QByteArray PLModelPage::bytes() const
{
    PLModelPage copy = *this;
    if (!tags.isEmpty() && indexOfKey(*this, tagsKey) < 0)
        copy.header.append({tagsKey, QString()});
    QString result = mark;
    if (!copy.header.isEmpty() || losesLines(text)) {
        result += u"---\n"_s;
        for (const auto &[key, value] : copy.header) {
            const QString shown = key == tagsKey ? tags.join(u", "_s) : value;
            result += shown.isEmpty() ? key + u":\n"_s : key + u": "_s + shown + u'\n';
        }
        result += u"---\n\n"_s;
    }
    return (result + text).toUtf8();
}

void PLWriterModel::load(const QString &path)
{
    current = path;
    known = disk.value(path);
    page = PLModelPage::fromBytes(known);
    dirty = false;
    texts = {page.text};
}

void PLWriterModel::textBecame(const QString &text)
{
    dirty = dirty || text != page.text;
    page.text = text;
    texts.insert(text);
}

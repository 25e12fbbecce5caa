// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLText.h"

#include <QLocale>

namespace {

bool isSpace(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

template <typename Predicate>
QStringView trimmed(QStringView text, Predicate isTrimmed)
{
    qsizetype first = 0;
    qsizetype end = text.size();
    while (first < end && isTrimmed(text[first]))
        ++first;
    while (end > first && isTrimmed(text[end - 1]))
        --end;
    return text.sliced(first, end - first);
}

/// The length of the placeholder that starts at `position`, 0 if there is none.
qsizetype placeholderLength(QStringView format, qsizetype position)
{
    const QStringView rest = format.sliced(position);
    if (rest.startsWith(u"%@"))
        return 2;
    return rest.startsWith(u"%ld") || rest.startsWith(u"%lu") ? 3 : 0;
}

} // namespace

QStringView PLTrimmedSpaces(QStringView text)
{
    return trimmed(text, isSpace);
}

QStringView PLTrimmedSpacesAndNewlines(QStringView text)
{
    return trimmed(text, [](QChar character) { return isSpace(character) || PLIsNewline(character); });
}

bool PLIsNewline(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= 0x0A && code <= 0x0D) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

bool PLSplitsPair(QStringView text, qsizetype position)
{
    return position > 0 && position < text.size() && text[position - 1].isHighSurrogate() &&
           text[position].isLowSurrogate();
}

QStringList PLSplitAtNewlines(const QString &text)
{
    QStringList pieces;
    qsizetype start = 0;
    for (qsizetype position = 0; position < text.size(); ++position) {
        if (!PLIsNewline(text[position]))
            continue;
        pieces.append(text.sliced(start, position - start));
        start = position + 1;
    }
    pieces.append(text.sliced(start));
    return pieces;
}

QString PLFormat(const QString &format, std::initializer_list<QString> values)
{
    QString result;
    qsizetype copied = 0;
    qsizetype position = format.indexOf(u'%');
    for (auto value = values.begin(); position >= 0 && value != values.end();) {
        const qsizetype length = placeholderLength(format, position);
        if (length > 0) {
            result += QStringView(format).sliced(copied, position - copied);
            result += *value++;
            copied = position + length;
        }
        position = format.indexOf(u'%', position + qMax<qsizetype>(1, length));
    }
    result += QStringView(format).sliced(copied);
    return result;
}

PLTitleComparer::PLTitleComparer(const QString &localeIdentifier) : m_collator(QLocale(localeIdentifier))
{
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

QCollatorSortKey PLTitleComparer::sortKey(const QString &title) const
{
    return m_collator.sortKey(title);
}

int PLTitleComparer::compare(const QString &left, const QString &right) const
{
    return m_collator.compare(left, right);
}

QString PLFoldedCaseAndDiacritics(const QString &text)
{
    QString folded;
    const QString decomposed = text.normalized(QString::NormalizationForm_D);
    for (const QChar character : decomposed) {
        if (character.category() != QChar::Mark_NonSpacing)
            folded.append(character);
    }
    return folded.toCaseFolded();
}

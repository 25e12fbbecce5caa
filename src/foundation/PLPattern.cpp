// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "foundation/PLPattern.h"

namespace {

const UChar *units(const QString &text)
{
    return reinterpret_cast<const UChar *>(text.utf16());
}

QString group(URegularExpression *expression, const QString &text, int index)
{
    UErrorCode status = U_ZERO_ERROR;
    const int start = uregex_start(expression, index, &status);
    const int end = uregex_end(expression, index, &status);
    return start < 0 ? QStringLiteral("") : text.sliced(start, end - start);
}

} // namespace

PLPattern::PLPattern(URegularExpression *expression) : m_expression(expression) {}

std::optional<PLPattern> PLPattern::compiled(const QString &pattern)
{
    UErrorCode status = U_ZERO_ERROR;
    URegularExpression *expression = uregex_open(units(pattern), int(pattern.size()), 0, nullptr, &status);
    if (U_FAILURE(status))
        return std::nullopt;
    return PLPattern(expression);
}

std::optional<QStringList> PLPattern::firstMatch(const QString &text) const
{
    UErrorCode status = U_ZERO_ERROR;
    URegularExpression *expression = m_expression.get();
    uregex_setText(expression, units(text), int(text.size()), &status);
    if (!uregex_find(expression, 0, &status) || U_FAILURE(status))
        return std::nullopt;
    QStringList groups;
    const int count = uregex_groupCount(expression, &status);
    for (int index = 0; index <= count; ++index)
        groups.append(group(expression, text, index));
    return groups;
}

QString PLPattern::replaced(const QString &text, const QString &replacement) const
{
    UErrorCode status = U_ZERO_ERROR;
    URegularExpression *expression = m_expression.get();
    uregex_setText(expression, units(text), int(text.size()), &status);
    const auto replaceInto = [&](UChar *destination, int capacity) {
        status = U_ZERO_ERROR;
        uregex_reset(expression, 0, &status);
        return uregex_replaceAll(expression, units(replacement), int(replacement.size()), destination,
                                 capacity, &status);
    };
    QString result(text.size() + text.size() / 4 + 16, Qt::Uninitialized);
    int length = replaceInto(reinterpret_cast<UChar *>(result.data()), int(result.size()));
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        result.resize(length);
        length = replaceInto(reinterpret_cast<UChar *>(result.data()), int(result.size()));
    }
    if (U_FAILURE(status))
        return text;
    result.truncate(length);
    return result;
}

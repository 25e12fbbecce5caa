// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLToolTip.h"

#include <QTextDocument>

using namespace Qt::StringLiterals;

QString PLPlainToolTip(const QString &text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    return u"<span style=\"white-space: pre-wrap\">"_s + text.toHtmlEscaped() + u"</span>"_s;
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "preview/PLPreviewScripts.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// True for what may not stand in a literal as it is: quotes, controls, line separators, and what could be
/// read as the end of a script or is half a character.
bool mustBeEscaped(QChar character)
{
    const char16_t unit = character.unicode();
    return unit < 0x20 || unit == u'"' || unit == u'\\' || unit == u'<' || unit == u'\u2028' ||
           unit == u'\u2029' || character.isSurrogate();
}

QString escaped(QChar character)
{
    return u"\\u"_s + QString::number(character.unicode(), 16).rightJustified(4, u'0');
}

} // namespace

QString PLScriptLiteral(const QString &text)
{
    QString literal;
    literal.reserve(text.size() + text.size() / 8 + 2);
    literal += u'"';
    for (const QChar character : text) {
        if (mustBeEscaped(character))
            literal += escaped(character);
        else
            literal += character;
    }
    literal += u'"';
    return literal;
}

QString PLReplaceContentScript(const QString &fragment)
{
    static const QString head = u"(function(html) {"
                                "    const content = document.getElementById('contenu');"
                                "    if (!(content instanceof HTMLElement)) return false;"
                                "    const x = window.scrollX, y = window.scrollY;"
                                "    content.innerHTML = html;"
                                "    window.scrollTo(x, y);"
                                "    return true;"
                                "})("_s;
    return head + PLScriptLiteral(fragment) + u");"_s;
}

QString PLScrollScript(double ratio)
{
    // std::max takes its first argument if the second is not a number.
    const double part = std::min(std::max(0.0, ratio), 1.0);
    return u"window.scrollTo(0, %1 * (document.body.scrollHeight - window.innerHeight));"_s.arg(
        QString::number(part, 'f', 4));
}

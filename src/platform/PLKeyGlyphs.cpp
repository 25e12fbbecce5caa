// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "platform/PLKeyGlyphs.h"

using namespace Qt::StringLiterals;

namespace {

struct PLModifierName
{
    char16_t glyph;
    const char16_t *name;
};

/// In the order in which the modifiers of one shortcut are written.
constexpr PLModifierName modifierNames[] = {
    {u'⌃', u"Meta+"},
    {u'⌘', u"Ctrl+"},
    {u'⌥', u"Alt+"},
    {u'⇧', u"Shift+"},
};

bool isModifier(QChar character)
{
    return u"⌃⌘⌥⇧"_s.contains(character);
}

QString namesOfModifiers(QStringView glyphs)
{
    QString names;
    for (const PLModifierName &modifier : modifierNames) {
        if (glyphs.contains(modifier.glyph))
            names += QStringView(modifier.name);
    }
    return names;
}

} // namespace

QString PLTextWithPlatformKeys(const QString &text)
{
#ifdef Q_OS_MACOS
    return text;
#else
    QString named;
    for (qsizetype start = 0; start < text.size();) {
        qsizetype end = start;
        while (end < text.size() && isModifier(text[end]))
            ++end;
        named += namesOfModifiers(QStringView(text).mid(start, end - start));
        if (end < text.size())
            named += text[end];
        start = end + 1;
    }
    return named;
#endif
}

QString PLTextWithoutKeys(const QString &text)
{
    const qsizetype open = text.lastIndexOf(u" ("_s);
    const bool hasKeys = open >= 0 && text.endsWith(u')') && isModifier(text[open + 2]);
    return hasKeys ? text.left(open) : text;
}

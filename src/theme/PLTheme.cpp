// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "theme/PLTheme.h"

#include <QFontDatabase>

using namespace Qt::StringLiterals;

namespace {

QColor fromBytes(double red, double green, double blue)
{
    return QColor::fromRgbF(float(red / 255), float(green / 255), float(blue / 255));
}

QColor blended(const QColor &color, const QColor &other, double fraction)
{
    const auto mix = [fraction](float from, float to) { return float(from + (to - from) * fraction); };
    return QColor::fromRgbF(mix(color.redF(), other.redF()), mix(color.greenF(), other.greenF()),
                            mix(color.blueF(), other.blueF()), color.alphaF());
}

bool hasGeorgia()
{
    static const bool has = QFontDatabase::hasFamily(u"Georgia"_s);
    return has;
}

} // namespace

QColor PLTheme::paperColor()
{
    return fromBytes(250, 246, 234);
}

QColor PLTheme::inkColor()
{
    return fromBytes(43, 38, 33);
}

QColor PLTheme::faintInkColor()
{
    return fromBytes(140, 128, 112);
}

QColor PLTheme::coverColor()
{
    return fromBytes(232, 222, 199);
}

QColor PLTheme::marginLineColor()
{
    return QColor::fromRgbF(0.8F, 0.35F, 0.35F, 0.45F);
}

QColor PLTheme::tagsColor()
{
    return fromBytes(48, 120, 128);
}

QColor PLTheme::colorForSection(PLSection section)
{
    switch (section) {
    case PLSection::Book:
        return fromBytes(158, 52, 52);
    case PLSection::Characters:
        return fromBytes(56, 98, 153);
    case PLSection::Places:
        return fromBytes(77, 133, 82);
    case PLSection::Sheets:
        return QColor::fromRgbF(0.8F, 0.6F, 0.2F);
    case PLSection::Notes:
        return fromBytes(122, 87, 148);
    case PLSection::None:
        break;
    }
    return faintInkColor();
}

QFont PLTheme::editorFont()
{
    return serifFont(17, QFont::Normal, 16);
}

QFont PLTheme::titleFont()
{
    return serifFont(22, QFont::Bold, 20);
}

QFont PLTheme::sectionFont()
{
    return systemFont(11, QFont::Bold);
}

QFont PLTheme::sidebarFont()
{
    return serifFont(13, QFont::Normal, 13);
}

QFont PLTheme::serifFont(int size, QFont::Weight weight, int fallbackSize)
{
    if (!hasGeorgia())
        return systemFont(fallbackSize, weight);
    QFont font(u"Georgia"_s);
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

QFont PLTheme::systemFont(int size, QFont::Weight weight)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

QColor PLTheme::highlighted(const QColor &color, double fraction)
{
    return blended(color, Qt::white, fraction);
}

QColor PLTheme::shadowed(const QColor &color, double fraction)
{
    return blended(color, Qt::black, fraction);
}

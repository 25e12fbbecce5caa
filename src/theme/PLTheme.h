// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include "storage/PLSection.h"

#include <QColor>
#include <QFont>

/// The colours and fonts of the notebook window and the editor. Font sizes are in points of the interface,
/// that is device-independent pixels.
class PLTheme final
{
public:
    PLTheme() = delete;

    static QColor paperColor();
    static QColor inkColor();
    static QColor faintInkColor();
    static QColor coverColor();
    static QColor marginLineColor();
    static QColor tagsColor();
    /// The faint ink for a number that is no section.
    static QColor colorForSection(PLSection section);

    /// Georgia if the system has it, else the system's font, a little smaller.
    static QFont editorFont();
    static QFont titleFont();
    static QFont sectionFont();
    static QFont sidebarFont();

    /// Georgia in a size and weight; without it the system's font, in a size that looks alike.
    static QFont serifFont(int size, QFont::Weight weight, int fallbackSize);
    /// The system's own font in another size and weight.
    static QFont systemFont(int size, QFont::Weight weight = QFont::Normal);

    /// The colour blended towards white (black) by a fraction from 0 to 1.
    static QColor highlighted(const QColor &color, double fraction);
    static QColor shadowed(const QColor &color, double fraction);
};

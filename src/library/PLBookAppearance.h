// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QSize>

struct PLShelfBook;

/// The hash of the path of a book's folder, of its title if it has none: 33 h + c over the UTF-16 units, from
/// 5381, in 64 bits that wrap. A notebook keeps its look between runs, and when its title changes.
quint64 PLBookHash(const PLShelfBook &book);

/// What a book looks like, by its hash alone.
class PLBookAppearance final
{
public:
    PLBookAppearance() = delete;

    /// One of eight bindings.
    static QColor colorForBook(const PLShelfBook &book);
    /// 30 to 46 points wide, 150 to 190 high.
    static QSize spineSizeForBook(const PLShelfBook &book);
};

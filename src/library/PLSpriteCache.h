// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QCache>
#include <QImage>

#include <functional>

/// What a drawn piece of a shelf depends on; equal keys, equal pictures.
struct PLSpriteKey
{
    /// Depth and shadow are the same for all covers of a size.
    enum class Kind { Cover, CoverDepth, CoverShadow, Spine, Text };

    Kind kind;
    int style = 0;      ///< of a text
    QRgb color = 0;     ///< of the book or of the text
    qint64 picture = 0; ///< of a cover, 0 for none
    QString text = {};
    QSize size = {};  ///< device pixels
    double scale = 1; ///< device pixels to a point

    bool operator==(const PLSpriteKey &) const = default;
};

size_t qHash(const PLSpriteKey &key, size_t seed = 0);

/// The pieces of a shelf that are slow to draw, kept as pictures while there is room for them.
class PLSpriteCache final
{
public:
    static constexpr int kilobytes = 48 * 1024; ///< a 4K screen full of spines at scale 2 takes about 35 MB

    /// The picture of this key, drawn now if it isn't kept.
    QImage sprite(const PLSpriteKey &key, const std::function<QImage()> &draw);
    void clear() { m_sprites.clear(); }
    int count() const { return int(m_sprites.size()); }

private:
    QCache<PLSpriteKey, QImage> m_sprites{kilobytes};
};

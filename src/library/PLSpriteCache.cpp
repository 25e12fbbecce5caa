// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT

#include "library/PLSpriteCache.h"

size_t qHash(const PLSpriteKey &key, size_t seed)
{
    return qHashMulti(seed, int(key.kind), key.style, key.color, key.picture, key.text, key.size.width(),
                      key.size.height(), key.scale);
}

QImage PLSpriteCache::sprite(const PLSpriteKey &key, const std::function<QImage()> &draw)
{
    if (const QImage *kept = m_sprites.object(key))
        return *kept;
    const QImage drawn = draw();
    m_sprites.insert(key, new QImage(drawn), qMax(1, int(drawn.sizeInBytes() / 1024)));
    return drawn;
}

// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Usage: aquilane_icon_pixels <picture> <file>: writes the bare pixels of a square picture, for PLWindowIcon.
// Runs while the program is built.

#include <QFile>
#include <QImage>

#include <cstdio>

int main(int argc, char *argv[])
{
    const QImage picture =
        argc == 3 ? QImage(QFile::decodeName(argv[1])).convertToFormat(QImage::Format_ARGB32_Premultiplied)
                  : QImage();
    QFile file(argc == 3 ? QFile::decodeName(argv[2]) : QString());
    const bool isWritten =
        !picture.isNull() && picture.width() == picture.height() && file.open(QIODevice::WriteOnly) &&
        file.write(reinterpret_cast<const char *>(picture.constBits()), picture.sizeInBytes()) ==
            picture.sizeInBytes() &&
        file.flush();
    if (!isWritten)
        std::fputs("aquilane_icon_pixels: the picture could not be read or its pixels not be written\n",
                   stderr);
    return isWritten ? 0 : 1;
}

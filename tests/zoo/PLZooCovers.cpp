// SPDX-FileCopyrightText: 2026 the Aquilane authors
// SPDX-License-Identifier: MIT
//
// Covers: pictures that are too large, that lie, that are none, that are no file.

#include "library/PLTestPicture.h"
#include "zoo/PLZoo.h"

#include <iterator>

namespace {

using PLTestPicture::drawn;
using PLTestPicture::encoded;

quint32 checksum(const QByteArray &bytes)
{
    quint32 sum = ~0U;
    for (const char byte : bytes) {
        sum ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum & 1) ? (sum >> 1) ^ 0xEDB88320U : sum >> 1;
    }
    return ~sum;
}

QByteArray number(quint32 value)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(value, bytes.data());
    return bytes;
}

QByteArray chunk(const QByteArray &typeAndData)
{
    return number(quint32(typeAndData.size() - 4)) + typeAndData + number(checksum(typeAndData));
}

/// The compressed form that PNG has: Qt puts four bytes before it.
QByteArray deflated(const QByteArray &bytes)
{
    return qCompress(bytes, 9).sliced(4);
}

/// A PNG of one bit for each pixel that says it is so large, before whatever is in it.
QByteArray png(quint32 width, quint32 height, const QByteArray &chunks)
{
    return "\x89PNG\r\n\x1A\n" +
           chunk("IHDR" + number(width) + number(height) + QByteArray("\1\0\0\0\0", 5)) + chunks +
           chunk("IEND");
}

QByteArray blackPixels(quint32 width, quint32 height)
{
    return chunk("IDAT" + deflated(QByteArray(qsizetype(height) * (1 + (width + 7) / 8), '\0')));
}

QByteArray blackPNG(quint32 width, quint32 height)
{
    return png(width, height, blackPixels(width, height));
}

const QByteArray entityBomb = R"(<?xml version="1.0"?><!DOCTYPE svg [<!ENTITY a "aaaaaaaaaaaaaaaaaaaa">
<!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;"><!ENTITY c "&b;&b;&b;&b;&b;&b;&b;&b;&b;&b;">
<!ENTITY d "&c;&c;&c;&c;&c;&c;&c;&c;&c;&c;"><!ENTITY e "&d;&d;&d;&d;&d;&d;&d;&d;&d;&d;">
<!ENTITY f "&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;"><!ENTITY g "&f;&f;&f;&f;&f;&f;&f;&f;&f;&f;">]>
<svg xmlns="http://www.w3.org/2000/svg" width="100" height="100"><text>&g;&g;&g;</text></svg>)";

const QByteArray externalReference =
    R"(<?xml version="1.0"?><!DOCTYPE svg [<!ENTITY x SYSTEM "file:///etc/passwd">]>
<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" width="100" height="100">
<image xlink:href="../outside/image.png" width="100" height="100"/><text>&x;</text></svg>)";

/// A notebook with these things beside it that are named as covers.
PLZooNotebook cover(const char *name, bool isShown, std::function<void(const PLZooCage &)> make)
{
    const auto makeAll = [make](const PLZooCage &cage) {
        PLMakeTameNotebook(cage);
        make(cage);
    };
    PLZooNotebook notebook{name, makeAll};
    notebook.cover = isShown;
    return notebook;
}

PLZooNotebook coverFile(const char *name, bool isShown, const QByteArray &fileName, QByteArray (*bytes)())
{
    return cover(name, isShown, [=](const PLZooCage &cage) { cage.file(fileName, bytes()); });
}

std::vector<PLZooNotebook> coversThatAreFiles()
{
    return {
        coverFile("30000 squared", false, "couverture.png", [] { return blackPNG(30'000, 30'000); }),
        coverFile("one wide", false, "couverture.png", [] { return blackPNG(1, 1'000'000); }),
        coverFile("one high", false, "couverture.png", [] { return blackPNG(1'000'000, 1); }),
        coverFile("5000 squared", true, "couverture.png", [] { return blackPNG(5'000, 5'000); }),
        coverFile("7000 squared", false, "couverture.png", [] { return blackPNG(7'000, 7'000); }),
        coverFile("no width", false, "couverture.png", [] { return png(0, 10, blackPixels(8, 10)); }),
        coverFile("below zero", false, "couverture.png", [] { return png(~0U, ~0U, blackPixels(8, 8)); }),
        coverFile("larger than said", true, "couverture.png",
                  [] { return png(8, 8, blackPixels(9'000, 9'000)); }),
        coverFile("smaller than said", false, "couverture.png",
                  [] { return png(7'000, 7'000, blackPixels(8, 8)); }),
        coverFile("text bomb", true, "couverture.png",
                  [] {
                      const QByteArray text = deflated(QByteArray(100'000'000, 'x'));
                      return png(8, 8, chunk("zTXtbombe" + QByteArray(2, '\0') + text) + blackPixels(8, 8));
                  }),
        coverFile("truncated JPEG", false, "couverture.jpg",
                  [] {
                      return encoded(PLTestPicture::noise({300, 300}), "jpeg").first(20'000);
                  }),
        coverFile("truncated PNG", false, "couverture.png",
                  [] {
                      return encoded(PLTestPicture::noise({300, 300}), "png").first(20'000);
                  }),
        // It ends properly, only too early: its reader fills the rest with grey and says nothing.
        coverFile("JPEG that lies", true, "couverture.jpg",
                  [] {
                      return PLTestPicture::withJPEGSize(encoded(drawn({80, 80}), "jpeg"), 6'000);
                  }),
        coverFile("BMP that lies", false, "couverture.bmp", [] { return PLTestPicture::hugeBMP(5'000); }),
        coverFile("another extension", true, "couverture.jpg",
                  [] {
                      return encoded(drawn({80, 80}), "png");
                  }),
        coverFile("text", false, "couverture.png", [] { return QByteArray("Bonjour.\n"); }),
        coverFile("entity bomb", false, "couverture.png", [] { return entityBomb; }),
        coverFile("external reference", false, "couverture.jpg", [] { return externalReference; }),
        coverFile("animation", true, "couverture.gif", [] { return PLTestPicture::animation(); }),
        coverFile("huge animation", false, "couverture.gif",
                  [] { return PLTestPicture::hugeAnimation(65'535); }),
        coverFile("large animation", false, "couverture.gif",
                  [] { return PLTestPicture::hugeAnimation(7'000); }),
        coverFile("nothing", false, "couverture.jpeg", [] { return QByteArray(); }),
        coverFile("TIFF in circles", false, "couverture.tif",
                  [] { return QByteArray("II*\0\x08\0\0\0\0\0\x08\0\0\0", 14); }),
    };
}

} // namespace

std::vector<PLZooNotebook> PLZooCovers()
{
    std::vector<PLZooNotebook> covers = coversThatAreFiles();
    const PLZooNotebook others[] = {
        cover("FIFO", false, [](const PLZooCage &cage) { cage.fifo("couverture.png"); }),
        cover("socket", false, [](const PLZooCage &cage) { cage.socket("couverture.jpg"); }),
        cover("device", false, [](const PLZooCage &cage) { cage.endlessDevice("couverture.jpg"); }),
        cover("link to a device", false,
              [](const PLZooCage &cage) {
                  cage.endlessDevice("sans fin");
                  cage.link("couverture.jpg", "sans fin");
              }),
        cover("loop", false, [](const PLZooCage &cage) { cage.link("couverture.png", "couverture.png"); }),
        cover("dangling", false, [](const PLZooCage &cage) { cage.link("couverture.png", "absente"); }),
        cover("folder", false, [](const PLZooCage &cage) { cage.folder("couverture.png"); }),
        cover("outside", true,
              [](const PLZooCage &cage) {
                  const PLZooCage outside(cage.outside(), cage.outside(), false);
                  outside.file("image.png", encoded(drawn({80, 80}), "png"));
                  cage.link("couverture.png", cage.outside() + "/image.png");
              }),
        cover("100 MB of nothing", false,
              [](const PLZooCage &cage) {
                  const int size = cage.number(10'000'000, 100'000'000);
                  cage.filled("couverture.png", QByteArray(1, '\0'), size, png(100, 100, {}).first(33));
              }),
        cover("100 MB behind it", true,
              [](const PLZooCage &cage) {
                  const int size = cage.number(10'000'000, 100'000'000);
                  cage.filled("couverture.gif", "x", size, PLTestPicture::animation());
              }),
        cover("all of them", true,
              [](const PLZooCage &cage) {
                  for (const char *extension : {"jpg", "jpeg", "png", "gif", "tif", "tiff", "bmp"})
                      cage.file(QByteArray("couverture.") + extension, encoded(drawn({80, 80}), "png"));
              }),
    };
    covers.insert(covers.end(), std::begin(others), std::end(others));
    return covers;
}

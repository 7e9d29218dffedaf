// SPDX-License-Identifier: MIT
#include "samples/DrawingWriter.h"
#include "tests/fuzz/Seeds.h"
#include "tests/support/PngBytes.h"
#include "tests/support/PreviewBytes.h"

#include <array>

using namespace testbytes;

namespace fuzz {

namespace {

class Seeds
{
public:
    void add(const QString &name, const QByteArray &bytes) { seeds.push_back({name, bytes}); }
    //! A drawing that begins close to its picture and ends behind it, since every byte costs time.
    void add(const QString &name, DrawingBytes drawing)
    {
        drawing.sectionAt = 24;
        drawing.bytesBehind = 0;
        add(name, drawing.bytes());
    }
    void addBitmap(const QString &name, const BitmapBytes &bitmap)
    {
        add(name, drawingWith(bitmapEntry(bitmap.bytes())));
    }
    void addPng(const QString &name, const QByteArray &png) { add(name, drawingWith(pngEntry(png))); }

    std::vector<Seed> seeds;
};

constexpr int width = 13; // odd, so that rows are padded
constexpr int height = 7;

void addWrittenDrawings(Seeds &to)
{
    using namespace fxsamples;
    const QImage picture = patternPicture(24, width, height);
    for (const Version version : allVersions) {
        const QString tag = QString::fromLatin1(versionTag(version));
        to.add(QStringLiteral("written-8-bits-") + tag, drawingFile(picture, {version, Picture::Bitmap8}));
        if (carriesPng(version))
            to.add(QStringLiteral("written-png-") + tag, drawingFile(picture, {version, Picture::Png}));
    }
    const Version version = Version::AC1018;
    to.add(QStringLiteral("written-24-bits"), drawingFile(picture, {version, Picture::Bitmap24}));
    to.add(QStringLiteral("written-32-bits"), drawingFile(picture, {version, Picture::Bitmap32}));
    to.add(QStringLiteral("written-after-filling"),
           drawingFile(picture, {version, Picture::Bitmap24, Placement::AfterFilling}));
}

void addBitmaps(Seeds &to)
{
    for (const int bits : {1, 4, 8, 16, 24, 32}) {
        const BitmapBytes bitmap = patternBitmap(bits, width, height);
        to.addBitmap(QStringLiteral("bitmap-%1").arg(bits), bitmap);
        to.addBitmap(QStringLiteral("bitmap-%1-top-down").arg(bits), topDown(bitmap));
    }
    BitmapBytes fewColors = patternBitmap(8, width, height);
    constexpr int colors = 5;
    fewColors.colorsUsed = colors;
    fewColors.palette.truncate(4 * colors);
    to.addBitmap(QStringLiteral("bitmap-8-few-colors"), fewColors);
    for (const quint32 headerSize : {52U, 56U, 64U, 108U, 124U}) {
        BitmapBytes bitmap = patternBitmap(4, width, height);
        bitmap.headerSize = headerSize;
        to.addBitmap(QStringLiteral("bitmap-header-%1").arg(headerSize), bitmap);
    }
}

void addRunsAndMasks(Seeds &to)
{
    BitmapBytes runs = patternBitmap(8, width, height);
    runs.palette.truncate(4 * 16);
    runs.colorsUsed = 16;
    to.addBitmap(QStringLiteral("bitmap-8-runs"), inRuns(runs));

    // Run, pixels as they are, jump, row's end, picture's end.
    runs.compression = 1;
    runs.pixels = QByteArray::fromHex("0503"
                                      "00030102030000"
                                      "00020101"
                                      "0000"
                                      "0D01"
                                      "0000"
                                      "0001")
                      .repeated(2);
    to.addBitmap(QStringLiteral("bitmap-8-mixed-runs"), runs);
    runs.bits = 4;
    runs.compression = 2;
    runs.pixels = QByteArray::fromHex("0534"
                                      "0005123450"
                                      "00020101"
                                      "0000"
                                      "0D01"
                                      "0000"
                                      "0001");
    to.addBitmap(QStringLiteral("bitmap-4-mixed-runs"), runs);

    for (const int bits : {16, 32}) {
        BitmapBytes masked = patternBitmap(bits, width, height);
        masked.compression = 3;
        masked.masks = bits == 16 ? std::array<quint32, 3>{0xF800, 0x07E0, 0x001F}
                                  : std::array<quint32, 3>{0xFF000000, 0x00FF0000, 0x0000FF00};
        to.addBitmap(QStringLiteral("bitmap-%1-masks").arg(bits), masked);
        masked.headerSize = 108;
        to.addBitmap(QStringLiteral("bitmap-%1-masks-inside").arg(bits), masked);
    }
}

void addPngs(Seeds &to)
{
    to.addPng(QStringLiteral("png-colors"), pngOf(patternPicture(24, width, height)));
    to.addPng(QStringLiteral("png-palette"),
              pngOf(patternPicture(4, width, height).convertToFormat(QImage::Format_Indexed8)));
    to.addPng(QStringLiteral("png-two-colors"),
              pngOf(patternPicture(1, width, height).convertToFormat(QImage::Format_Mono)));
    constexpr std::array<std::pair<int, int>, 15> kinds = {{{0, 1},
                                                            {0, 2},
                                                            {0, 4},
                                                            {0, 8},
                                                            {0, 16},
                                                            {2, 8},
                                                            {2, 16},
                                                            {3, 1},
                                                            {3, 2},
                                                            {3, 4},
                                                            {3, 8},
                                                            {4, 8},
                                                            {4, 16},
                                                            {6, 8},
                                                            {6, 16}}};
    for (const auto &[colorType, depth] : kinds) {
        constexpr int withPalette = 3;
        const QByteArray palette =
            colorType == withPalette ? pngChunk("PLTE", "redgrnblu") + pngChunk("tRNS", "\x20\x80") : "";
        for (const bool isInterlaced : {false, true}) {
            to.addPng(QStringLiteral("png-%1-%2%3")
                          .arg(colorType)
                          .arg(depth)
                          .arg(isInterlaced ? QStringLiteral("-interlaced") : QString()),
                      blankPng({width, height, depth, colorType, isInterlaced}, palette));
        }
    }
    to.addPng(QStringLiteral("png-transparent-color"),
              blankPng({width, height, 8, 2}, pngChunk("tRNS", QByteArray(6, '\0'))));
    to.addPng(
        QStringLiteral("png-ancillary"),
        blankPng({width, height, 8, 2}, pngChunk("gAMA", QByteArray::fromHex("0000B18F")) +
                                            pngChunk("sRGB", QByteArray(1, '\0')) +
                                            pngChunk("pHYs", QByteArray::fromHex("00000EC400000EC401")) +
                                            pngChunk("tEXt", QByteArray("Title\0a drawing", 15))));
}

//! Small files whose pictures are as large as can be.
void addLargest(Seeds &to)
{
    constexpr int side = 2560;
    BitmapBytes runs = inRuns(patternBitmap(8, width, height));
    runs.width = runs.height = side;
    to.addBitmap(QStringLiteral("largest-bitmap-8-runs"), runs);
    to.addPng(QStringLiteral("largest-png-two-colors"), blankPng({side, side, 1, 0}));
    to.addPng(QStringLiteral("largest-png-two-colors-interlaced"), blankPng({side, side, 1, 0, true}));
    constexpr int longest = 32767;
    to.addPng(QStringLiteral("longest-png"), blankPng({1, longest, 1, 0}));
    to.addPng(QStringLiteral("longest-png-interlaced"), blankPng({2, longest, 1, 0, true}));
    runs.width = 1;
    runs.height = longest;
    to.addBitmap(QStringLiteral("longest-bitmap-8-runs"), runs);
    // What these claim does not follow; there are more of them than the reader tries.
    const StoredEntry claimed = pngEntry(withHeader(blankPng({width, height}), {side, side}));
    const StoredEntry interlaced = pngEntry(withHeader(blankPng({width, height}), {side, side, 8, 6, true}));
    DrawingBytes drawing;
    drawing.entries = {claimed, interlaced, claimed, interlaced};
    to.add(QStringLiteral("largest-png-claimed"), drawing);
}

void addLists(Seeds &to)
{
    const StoredEntry bitmap = bitmapEntry(patternBitmap(24, width, height).bytes());
    const StoredEntry png = pngEntry(pngOf(patternPicture(24, width, height)));
    StoredEntry broken = bitmap;
    broken.data.chop(1);
    DrawingBytes drawing;
    to.add(QStringLiteral("list-empty"), drawing);
    drawing.entries = {zerosEntry(), metafileEntry()};
    to.add(QStringLiteral("list-without-picture"), drawing);
    drawing.entries = {zerosEntry(), broken, bitmap};
    to.add(QStringLiteral("list-second-bitmap"), drawing);
    drawing.entries = {zerosEntry(), bitmap, png};
    to.add(QStringLiteral("list-bitmap-and-png"), drawing);
    drawing.entries = {bitmapEntry(png.data), pngEntry(bitmap.data)};
    to.add(QStringLiteral("list-confused"), drawing);
    drawing.version = "AC1009";
    to.add(QStringLiteral("version-without-preview"), drawing);
    to.add(QStringLiteral("version-alone"), QByteArray("AC2.10"));
}

} // namespace

std::vector<Seed> previewSeeds()
{
    Seeds to;
    addWrittenDrawings(to);
    addBitmaps(to);
    addRunsAndMasks(to);
    addPngs(to);
    addLists(to);

    Seeds largest;
    addLargest(largest);
    for (Seed &seed : largest.seeds) {
        seed.isCostly = true;
        to.seeds.push_back(seed);
    }
    return to.seeds;
}

} // namespace fuzz

// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include "tests/support/PngBytes.h"
#include "tests/support/PreviewBytes.h"
#include "tests/support/TestCase.h"

#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <thread>
#include <vector>

using namespace testbytes;

//! Pictures that are there and must be found.
class tst_PreviewReader : public TestCase
{
    Q_OBJECT

private slots:
    void everyVersionWithAnAddressIsRead_data();
    void everyVersionWithAnAddressIsRead();
    void everyKindOfBitmapIsRead_data();
    void everyKindOfBitmapIsRead();
    void aBitmapIsOpaque_data();
    void aBitmapIsOpaque();
    void pixelsThatRunsLeaveOutHaveThePalettesFirstColour();
    void sixteenBitsKeepTheHighBitsOfEachChannel_data();
    void sixteenBitsKeepTheHighBitsOfEachChannel();
    void theSectionMayStandAnywhere_data();
    void theSectionMayStandAnywhere();
    void theRightEntryIsTaken_data();
    void theRightEntryIsTaken();
    void everyKindOfPngIsRead_data();
    void everyKindOfPngIsRead();
    void aLinkLeadsToThePicture();
    void threadsReadTheSame();

private:
    QImage read(const QByteArray &drawing) const
    {
        return fxhost::readPreview(writeFile(m_dir.filePath(QStringLiteral("drawing.dwg")), drawing));
    }

    QTemporaryDir m_dir;
};

namespace {

// An odd width leaves padding at the rows' ends, whatever the depth.
constexpr int width = 13;
constexpr int height = 7;

QByteArray goodBitmap()
{
    return patternBitmap(8, width, height).bytes();
}

QImage goodPicture()
{
    return patternPicture(8, width, height);
}

QImage otherPicture()
{
    return patternPicture(24, 20, 5);
}

QByteArray otherPng()
{
    return pngOf(otherPicture());
}

} // namespace

void tst_PreviewReader::everyVersionWithAnAddressIsRead_data()
{
    QTest::addColumn<QByteArray>("version");
    for (const char *version :
         {"AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"})
        QTest::newRow(version) << QByteArray(version);
}

void tst_PreviewReader::everyVersionWithAnAddressIsRead()
{
    QFETCH(QByteArray, version);
    DrawingBytes drawing = drawingWith(bitmapEntry(goodBitmap()));
    drawing.version = version;
    QCOMPARE(read(drawing.bytes()).convertToFormat(QImage::Format_RGB32), goodPicture());
}

void tst_PreviewReader::everyKindOfBitmapIsRead_data()
{
    QTest::addColumn<BitmapBytes>("bitmap");
    for (const int bits : {1, 4, 8, 24, 32}) {
        const BitmapBytes bitmap = patternBitmap(bits, width, height);
        QTest::addRow("%d bit", bits) << bitmap;
        QTest::addRow("%d bit, top row first", bits) << topDown(bitmap);

        BitmapBytes odd = bitmap;
        odd.imageSize = 0xFFFFFFFF;
        QTest::addRow("%d bit, with a wrong image size", bits) << odd;
        if (bits <= 8) {
            odd = bitmap;
            odd.colorsUsed = 0;
            QTest::addRow("%d bit, with all colours unless told", bits) << odd;
        } else {
            odd = bitmap;
            odd.colorsUsed = 5;
            odd.palette = QByteArray(5 * 4, '\x33');
            QTest::addRow("%d bit, with a palette as a mere hint", bits) << odd;
        }
        for (const quint32 headerSize : {52U, 56U, 64U, 108U, 124U}) {
            odd = bitmap;
            odd.headerSize = headerSize;
            QTest::addRow("%d bit, with a header of %u bytes", bits, headerSize) << odd;
        }
    }

    BitmapBytes masked = patternBitmap(32, width, height);
    masked.compression = 3;
    masked.masks = {0xFF0000, 0xFF00, 0xFF};
    QTest::newRow("32 bit, with masks behind the header") << masked;
    QTest::newRow("32 bit, with masks, top row first") << topDown(masked);
    for (const quint32 headerSize : {52U, 56U, 108U, 124U}) {
        masked.headerSize = headerSize;
        QTest::addRow("32 bit, with masks in a header of %u bytes", headerSize) << masked;
    }

    QTest::newRow("8 bit, in runs") << inRuns(patternBitmap(8, width, height));
    QTest::newRow("one pixel") << patternBitmap(32, 1, 1);
    QTest::newRow("one column") << patternBitmap(1, 1, height);
}

void tst_PreviewReader::everyKindOfBitmapIsRead()
{
    QFETCH(BitmapBytes, bitmap);
    const QImage picture = read(drawingWith(bitmapEntry(bitmap.bytes())).bytes());
    QCOMPARE(picture.convertToFormat(QImage::Format_RGB32),
             patternPicture(static_cast<int>(bitmap.bits), bitmap.width, qAbs(bitmap.height)));
}

void tst_PreviewReader::aBitmapIsOpaque_data()
{
    QTest::addColumn<BitmapBytes>("bitmap");
    for (const int bits : {1, 4, 8, 24, 32})
        QTest::addRow("%d bit", bits) << patternBitmap(bits, width, height);
    QTest::newRow("8 bit, in runs") << inRuns(patternBitmap(8, width, height));

    BitmapBytes sparse = patternBitmap(4, width, height);
    sparse.compression = 2;
    sparse.pixels = QByteArray("\0\1", 2);
    QTest::newRow("4 bit, in runs") << sparse;

    BitmapBytes fewColors = patternBitmap(8, width, height);
    fewColors.colorsUsed = 3;
    fewColors.palette.truncate(3 * 4);
    QTest::newRow("8 bit, with fewer colours than the pixels use") << fewColors;

    BitmapBytes alphaMask = patternBitmap(32, width, height);
    alphaMask.headerSize = 108;
    alphaMask.compression = 3;
    alphaMask.masks = {0xFF0000, 0xFF00, 0xFF};
    alphaMask.palette.clear();
    QTest::newRow("32 bit, with masks") << alphaMask;
}

void tst_PreviewReader::aBitmapIsOpaque()
{
    QFETCH(BitmapBytes, bitmap);
    const QImage picture = read(drawingWith(bitmapEntry(bitmap.bytes())).bytes());
    QCOMPARE(picture.size(), QSize(width, height));
    QVERIFY(!picture.hasAlphaChannel());
    const QVector<QRgb> colors = picture.colorTable();
    for (const QRgb color : colors)
        QCOMPARE(qAlpha(color), 255);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            QCOMPARE(qAlpha(picture.pixel(x, y)), 255);
    }
}

void tst_PreviewReader::pixelsThatRunsLeaveOutHaveThePalettesFirstColour()
{
    BitmapBytes bitmap = patternBitmap(8, width, height);
    bitmap.compression = 1;
    bitmap.pixels = QByteArray("\3\7\0\1", 4); // three pixels of colour 7, then the picture's end
    const QImage picture = read(drawingWith(bitmapEntry(bitmap.bytes())).bytes());

    const QRgb first = QRgb(0xFF000000) | QRgb(uchar(bitmap.palette[2])) << 16 |
                       QRgb(uchar(bitmap.palette[1])) << 8 | QRgb(uchar(bitmap.palette[0]));
    QCOMPARE(picture.size(), QSize(width, height));
    QCOMPARE(picture.pixelIndex(2, height - 1), 7);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            if (y < height - 1 || x > 2)
                QCOMPARE(picture.pixel(x, y), first);
        }
    }
}

void tst_PreviewReader::sixteenBitsKeepTheHighBitsOfEachChannel_data()
{
    QTest::addColumn<BitmapBytes>("bitmap");
    const BitmapBytes plain = patternBitmap(16, width, height);
    QTest::newRow("five bits each") << plain;
    QTest::newRow("top row first") << topDown(plain);
    BitmapBytes masked = plain;
    masked.compression = 3;
    masked.masks = {0x7C00, 0x3E0, 0x1F};
    QTest::newRow("with masks") << masked;

    // Ten bits each in 32: what a pixel of five bits would be, five bits further up.
    BitmapBytes wide = patternBitmap(32, width, height);
    wide.compression = 3;
    wide.masks = {0x3FF00000, 0xFFC00, 0x3FF};
    wide.pixels.clear();
    for (int y = height - 1; y >= 0; --y) {
        for (int x = 0; x < width; ++x) {
            const QRgb color = patternColor(32, x, y);
            wide.pixels +=
                number32(static_cast<quint32>(qRed(color) << 22 | qGreen(color) << 12 | qBlue(color) << 2));
        }
    }
    QTest::newRow("with masks of ten bits") << wide;
}

void tst_PreviewReader::sixteenBitsKeepTheHighBitsOfEachChannel()
{
    QFETCH(BitmapBytes, bitmap);
    const QImage picture = read(drawingWith(bitmapEntry(bitmap.bytes())).bytes());
    QCOMPARE(picture.size(), QSize(width, height));
    constexpr QRgb highBits = 0xFFF8F8F8;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            QCOMPARE(picture.pixel(x, y) & highBits, patternColor(16, x, y) & highBits);
    }
}

void tst_PreviewReader::theSectionMayStandAnywhere_data()
{
    QTest::addColumn<DrawingBytes>("drawing");
    DrawingBytes drawing = drawingWith(bitmapEntry(goodBitmap()));
    drawing.sectionAt = 17;
    QTest::newRow("right behind the start") << drawing;
    drawing.sectionAt = 300000;
    QTest::newRow("far behind") << drawing;
    drawing.bytesBehind = 0;
    QTest::newRow("at the very end") << drawing;
    drawing.endSentinel = QByteArray(16, '\0');
    QTest::newRow("with a wrong end sentinel") << drawing;
    drawing.endSentinel = QByteArray();
    QTest::newRow("without an end sentinel") << drawing;

    // The picture apart from the section, at the file's end.
    const QByteArray bitmap = goodBitmap();
    StoredEntry apart = bitmapEntry({});
    apart.address = static_cast<quint32>(drawingWith(apart).bytes().size());
    apart.size = static_cast<quint32>(bitmap.size());
    drawing = drawingWith(apart);
    drawing.endSentinel = drawing.bytes().right(16 + drawing.bytesBehind) + bitmap;
    drawing.bytesBehind = 0;
    QTest::newRow("apart from its picture") << drawing;
}

void tst_PreviewReader::theSectionMayStandAnywhere()
{
    QFETCH(DrawingBytes, drawing);
    QCOMPARE(read(drawing.bytes()).convertToFormat(QImage::Format_RGB32), goodPicture());
}

void tst_PreviewReader::theRightEntryIsTaken_data()
{
    QTest::addColumn<QVector<StoredEntry>>("entries");
    QTest::addColumn<QImage>("picture");
    const StoredEntry bitmap = bitmapEntry(goodBitmap());
    const StoredEntry broken = bitmapEntry(goodBitmap().chopped(1));
    const StoredEntry brokenPng = pngEntry(otherPng().replace("IDAT", "IDOT"));
    const StoredEntry png = pngEntry(otherPng());
    using List = QVector<StoredEntry>;
    QTest::newRow("a bitmap alone") << List{bitmap} << goodPicture();
    QTest::newRow("zeros, a bitmap") << List{zerosEntry(), bitmap} << goodPicture();
    QTest::newRow("zeros, a PNG") << List{zerosEntry(), png} << otherPicture();
    QTest::newRow("two bitmaps, the first broken") << List{zerosEntry(), broken, bitmap} << goodPicture();
    QTest::newRow("two bitmaps") << List{bitmap, bitmapEntry(patternBitmap(24, 20, 5).bytes())}
                                 << goodPicture();
    QTest::newRow("a bitmap, a PNG") << List{bitmap, png} << otherPicture();
    QTest::newRow("a PNG, a bitmap") << List{png, bitmap} << otherPicture();
    QTest::newRow("a broken PNG, a bitmap") << List{zerosEntry(), brokenPng, bitmap} << goodPicture();
    QTest::newRow("a metafile, an unknown, a bitmap")
        << List{metafileEntry(), {77, "?"}, bitmap} << goodPicture();
    QTest::newRow("as many as can be") << List(254, broken) + List{bitmap} << goodPicture();
}

void tst_PreviewReader::theRightEntryIsTaken()
{
    QFETCH(QVector<StoredEntry>, entries);
    QFETCH(QImage, picture);
    DrawingBytes drawing;
    drawing.entries = entries;
    QCOMPARE(read(drawing.bytes()).convertToFormat(QImage::Format_RGB32), picture);
}

void tst_PreviewReader::everyKindOfPngIsRead_data()
{
    QTest::addColumn<QByteArray>("png");
    const QImage picture = patternPicture(24, width, height);
    for (const auto &[name, format] : std::initializer_list<std::pair<const char *, QImage::Format>>{
             {"black and white", QImage::Format_Mono},
             {"palette", QImage::Format_Indexed8},
             {"grey", QImage::Format_Grayscale8},
             {"deep grey", QImage::Format_Grayscale16},
             {"colour", QImage::Format_RGB32},
             {"colour with alpha", QImage::Format_ARGB32},
             {"deep colour", QImage::Format_RGBX64},
             {"deep colour with alpha", QImage::Format_RGBA64}})
        QTest::newRow(name) << pngOf(picture.convertToFormat(format));

    QImage glass(width, height, QImage::Format_ARGB32);
    glass.fill(qRgba(10, 20, 30, 40));
    QTest::newRow("glass") << pngOf(glass);
    QTest::newRow("palette of glass") << pngOf(glass.convertToFormat(QImage::Format_Indexed8));
    QTest::newRow("interlaced") << blankPng({40, 30, 8, 2, true});
    QTest::newRow("with text") << blankPng({40, 30}, pngChunk("tEXt", QByteArray("Title\0House", 11)));
}

void tst_PreviewReader::everyKindOfPngIsRead()
{
    QFETCH(QByteArray, png);
    const QImage whole = QImage::fromData(png, "PNG");
    QVERIFY(!whole.isNull());
    QCOMPARE(read(drawingWith(pngEntry(png)).bytes()), whole);
}

void tst_PreviewReader::aLinkLeadsToThePicture()
{
    const QString drawing = writeFile(m_dir.filePath(QStringLiteral("linked.dwg")),
                                      drawingWith(bitmapEntry(goodBitmap())).bytes());
    const QString link = m_dir.filePath(QStringLiteral("link.dwg"));
    QVERIFY(QFile::link(drawing, link));
    QCOMPARE(fxhost::readPreview(link).convertToFormat(QImage::Format_RGB32), goodPicture());
}

void tst_PreviewReader::threadsReadTheSame()
{
    const QImage picture = patternPicture(32, 160, 100);
    const std::array<QString, 2> drawings = {
        writeFile(m_dir.filePath(QStringLiteral("bitmap.dwg")),
                  drawingWith(bitmapEntry(patternBitmap(32, 160, 100).bytes())).bytes()),
        writeFile(m_dir.filePath(QStringLiteral("png.dwg")), drawingWith(pngEntry(pngOf(picture))).bytes())};

    std::atomic<int> same = 0;
    std::vector<std::thread> threads;
    constexpr int threadCount = 8;
    constexpr int readsOfEach = 25;
    threads.reserve(threadCount);
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            for (int reads = 0; reads < readsOfEach; ++reads) {
                for (const QString &drawing : drawings)
                    same += fxhost::readPreview(drawing) == picture ? 1 : 0;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    QCOMPARE(same.load(), threadCount * readsOfEach * 2);
}

QTEST_GUILESS_MAIN(tst_PreviewReader)
#include "tst_previewreader.moc"

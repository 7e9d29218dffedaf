// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPng.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QTemporaryDir>

#include <array>

using namespace testbytes;

namespace {

QImage otherPicture()
{
    return patternPicture(24, 20, 5);
}

void addVersions()
{
    DrawingBytes drawing = drawingWith();
    for (const char *version :
         {"AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"}) {
        drawing.version = version;
        QTest::newRow(version) << drawing << patternPicture();
    }
}

//! \param name of the row, after the number of bits
void addBitmap(const char *name, const BitmapBytes &bitmap, const QImage &picture)
{
    QTest::addRow("%u bit%s", bitmap.bits, name) << drawingWith(bitmapEntry(bitmap.bytes())) << picture;
}

void addBitmap(const char *name, const BitmapBytes &bitmap)
{
    QImage picture = patternPicture(static_cast<int>(bitmap.bits), bitmap.width, qAbs(bitmap.height));
    if (bitmap.bits == 16) // without the channels' low bits
        picture = picture.convertToFormat(QImage::Format_RGB555);
    addBitmap(name, bitmap, picture);
}

void addPlainBitmaps()
{
    for (const int bits : {1, 4, 8, 16, 24, 32}) {
        const BitmapBytes bitmap = patternBitmap(bits);
        addBitmap("", bitmap);
        addBitmap(", top row first", topDown(bitmap));

        addBitmap(", with a wrong image size", with(bitmap, &BitmapBytes::imageSize, 0xFFFFFFFF));
        if (bits <= 8) {
            addBitmap(", with all colours by default", with(bitmap, &BitmapBytes::colorsUsed, 0U));
        } else {
            const BitmapBytes hinted = with(bitmap, &BitmapBytes::colorsUsed, 5U);
            addBitmap(", with a palette as a hint",
                      with(hinted, &BitmapBytes::palette, QByteArray(5 * 4, '\x33')));
        }
        for (const quint32 size : {52U, 56U, 64U, 108U, 124U})
            addBitmap(qPrintable(QStringLiteral(", with a header of %1 bytes").arg(size)),
                      with(bitmap, &BitmapBytes::headerSize, size));
    }
    addBitmap(", one pixel", patternBitmap(32, 1, 1));
    addBitmap(", one column", patternBitmap(1, 1, 7));

    BitmapBytes fewColors = patternBitmap();
    fewColors.colorsUsed = 3;
    fewColors.palette.truncate(3 * 4);
    QImage picture = patternPicture();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (3 * x + 5 * y >= 3)
                picture.setPixel(x, y, qRgb(0, 0, 0));
        }
    }
    addBitmap(", with fewer colours than the pixels use", fewColors, picture);
}

void addMaskedBitmaps()
{
    BitmapBytes masked = with(patternBitmap(16), &BitmapBytes::compression, 3U);
    masked.masks = {0x7C00, 0x3E0, 0x1F};
    addBitmap(", with masks", masked);

    masked = with(patternBitmap(32), &BitmapBytes::compression, 3U);
    masked.masks = {0xFF0000, 0xFF00, 0xFF};
    addBitmap(", with masks after the header", masked);
    addBitmap(", with masks, top row first", topDown(masked));
    for (const quint32 size : {52U, 56U, 108U, 124U})
        addBitmap(qPrintable(QStringLiteral(", with masks in a header of %1 bytes").arg(size)),
                  with(masked, &BitmapBytes::headerSize, size));

    // Ten bits each: a channel of five bits, shifted by five.
    masked.masks = {0x3FF00000, 0xFFC00, 0x3FF};
    masked.pixels.clear();
    for (int y = patternSize.height() - 1; y >= 0; --y) {
        for (int x = 0; x < patternSize.width(); ++x) {
            const QRgb color = patternColor(32, x, y);
            masked.pixels +=
                number32(static_cast<quint32>(qRed(color) << 22 | qGreen(color) << 12 | qBlue(color) << 2));
        }
    }
    addBitmap(", with masks of ten bits", masked, patternPicture(32).convertToFormat(QImage::Format_RGB555));
}

void addBitmapsInRuns()
{
    addBitmap(", in runs", inRuns(patternBitmap()));

    // Pixels that runs leave out have the palette's first colour.
    for (const int bits : {4, 8}) {
        BitmapBytes runs = patternBitmap(bits);
        runs.compression = bits == 4 ? 2 : 1;
        runs.pixels = QByteArray("\2\3\0\1", 4); // two pixels, then the picture's end
        if (bits == 4)
            runs.pixels[1] = '\x33';
        QImage picture(patternSize, QImage::Format_RGB32);
        picture.fill(patternColor(bits, 0, 0));
        for (const int x : {0, 1})
            picture.setPixel(x, picture.height() - 1, patternColor(bits, 1, 0)); // the colour of index 3
        addBitmap(", in runs that leave pixels out", runs, picture);
    }
}

//! A PNG whose rows all have this filter, and arbitrary bytes. \param chunks are placed before the data
QByteArray filteredPng(int colorType, int filter, const QByteArray &chunks, int colors = 256)
{
    constexpr std::array<int, 7> channels = {1, 0, 3, 1, 2, 0, 4};
    constexpr int width = 37;
    constexpr int height = 11;
    QByteArray raw;
    for (int y = 0; y < height; ++y) {
        raw += static_cast<char>(filter);
        for (int i = 0; i < width * channels.at(static_cast<std::size_t>(colorType)); ++i)
            raw += static_cast<char>((i * i + 7 * y * i + 31 * y) % 251);
    }
    QByteArray palette;
    for (int i = 0; i < 3 * colors; ++i)
        palette += static_cast<char>(i * 5);
    constexpr int qtsOwnPrefix = 4; // bytes before the zlib stream
    return QByteArray("\x89PNG\r\n\x1a\n") + PngHeader{width, height, 8, colorType}.bytes() +
           (colorType == 3 ? pngChunk("PLTE", palette) : QByteArray()) + chunks +
           pngChunk("IDAT", qCompress(raw).mid(qtsOwnPrefix)) + pngChunk("IEND", {});
}

void addPlaces()
{
    DrawingBytes drawing = drawingWith();
    const auto add = [&drawing](const char *name) { QTest::newRow(name) << drawing << patternPicture(); };
    drawing.sectionAt = 17;
    add("right after the start");
    drawing.sectionAt = 300000;
    add("far from the start");
    drawing.bytesAfter = 0;
    add("at the very end");
    drawing.endSentinel = QByteArray(16, '\0');
    add("with a wrong end sentinel");
    drawing.endSentinel = QByteArray();
    add("without an end sentinel");

    // The picture apart from the section, at the file's end.
    const QByteArray bitmap = patternBitmap().bytes();
    StoredEntry apart = bitmapEntry({});
    apart.address = static_cast<quint32>(drawingWith(apart).bytes().size());
    apart.size = static_cast<quint32>(bitmap.size());
    drawing = drawingWith(apart);
    drawing.endSentinel = drawing.bytes().right(16 + drawing.bytesAfter) + bitmap;
    drawing.bytesAfter = 0;
    add("apart from its picture");
}

void addLists()
{
    const auto add = [](const char *name, const QVector<StoredEntry> &entries, const QImage &picture) {
        QTest::newRow(name) << drawingOf(entries) << picture;
    };
    const StoredEntry bitmap = bitmapEntry(patternBitmap().bytes());
    const StoredEntry broken = bitmapEntry(patternBitmap().bytes().chopped(1));
    const StoredEntry otherBitmap = bitmapEntry(patternBitmap(24, 20, 5).bytes());
    const StoredEntry png = pngEntry(pngOf(otherPicture()));
    const StoredEntry brokenPng = pngEntry(pngOf(otherPicture()).replace("IDAT", "IDOT"));
    add("a bitmap alone", {bitmap}, patternPicture());
    add("zeros, a PNG", {zerosEntry(), png}, otherPicture());
    add("two bitmaps, the first broken", {zerosEntry(), broken, bitmap}, patternPicture());
    add("two bitmaps", {bitmap, otherBitmap}, patternPicture());
    add("a bitmap, a PNG", {bitmap, png}, otherPicture());
    add("a PNG, a bitmap", {png, bitmap}, otherPicture());
    add("a broken PNG, a bitmap", {zerosEntry(), brokenPng, bitmap}, patternPicture());
    add("a metafile, an unknown, a bitmap", {metafileEntry(), {77, "?"}, bitmap}, patternPicture());
    add("as many as possible", QVector<StoredEntry>(254, zerosEntry()) + QVector<StoredEntry>{bitmap},
        patternPicture());
    add("four bitmaps, the last sound", QVector<StoredEntry>(3, broken) + QVector<StoredEntry>{bitmap},
        patternPicture());
    add("more bitmaps than are tried", QVector<StoredEntry>(4, broken) + QVector<StoredEntry>{bitmap},
        QImage());
}

} // namespace

//! Pictures that must be found.
class tst_PreviewReader : public TestCase
{
    Q_OBJECT

private slots:
    void aStoredPictureIsRead_data()
    {
        QTest::addColumn<DrawingBytes>("drawing");
        QTest::addColumn<QImage>("picture");
        addVersions();
        addPlainBitmaps();
        addMaskedBitmaps();
        addBitmapsInRuns();
        addPlaces();
        addLists();
    }

    void aStoredPictureIsRead()
    {
        QFETCH(DrawingBytes, drawing);
        QFETCH(QImage, picture);
        const QImage image = read(drawing.bytes());
        QVERIFY(!image.hasAlphaChannel());
        // A format with alpha also shows whether single colours are opaque.
        const bool isExact = picture.format() == QImage::Format_RGB32;
        const QImage::Format format = isExact ? QImage::Format_ARGB32 : picture.format();
        QCOMPARE(image.convertToFormat(format), picture.convertToFormat(format));
    }

    void everyKindOfPngIsRead_data()
    {
        QTest::addColumn<QByteArray>("png");
        for (const QImage::Format format :
             {QImage::Format_Mono, QImage::Format_Indexed8, QImage::Format_Grayscale8,
              QImage::Format_Grayscale16, QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_RGBX64,
              QImage::Format_RGBA64})
            QTest::addRow("of format %d", format) << pngOf(patternPicture(24).convertToFormat(format));

        QImage glass(patternSize, QImage::Format_ARGB32);
        glass.fill(qRgba(10, 20, 30, 40));
        QTest::newRow("glass") << pngOf(glass);
        QTest::newRow("palette of glass") << pngOf(glass.convertToFormat(QImage::Format_Indexed8));
        QTest::newRow("interlaced") << blankPng({40, 30, 8, 2, true});
        // Each row's filter, with every kind of pixel. The data may be any bytes.
        for (const int colorType : {0, 2, 3, 4, 6}) {
            for (int filter = 0; filter < 5; ++filter)
                QTest::addRow("type %d, filter %d", colorType, filter) << filteredPng(colorType, filter, {});
        }
        const QByteArray transparency = pngChunk("tRNS", QByteArray(100, '\x40'));
        QTest::newRow("palette with transparency") << filteredPng(3, 0, transparency);
        QTest::newRow("palette of fewer colours than the pixels use") << filteredPng(3, 0, {}, 100);
        QTest::newRow("one transparent colour")
            << filteredPng(2, 0, pngChunk("tRNS", QByteArray("\0\1\0\2\0\3", 6)));
        QTest::newRow("with text") << blankPng({40, 30}, pngChunk("tEXt", QByteArray("Title\0House", 11)));
    }

    void everyKindOfPngIsRead()
    {
        allowWarning("palette index"); // Qt's decoder reports it
        QFETCH(QByteArray, png);
        const QImage whole = QImage::fromData(png, "PNG");
        QVERIFY(!whole.isNull());
        QCOMPARE(read(drawingWith(pngEntry(png)).bytes()),
                 whole.convertToFormat(whole.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied
                                                               : QImage::Format_RGB32));
    }

    void linksAreFollowed()
    {
        const QString link = m_dir.filePath("link.dwg");
        QVERIFY(QFile::link(m_dir.filePath("drawing.dwg"), link));
        const QImage picture = read(drawingWith().bytes());
        QCOMPARE(picture.size(), patternSize);
        QCOMPARE(fxhost::readPreview(link), picture);
    }

private:
    QImage read(const QByteArray &drawing) const
    {
        return fxhost::readPreview(writeFile(m_dir.filePath("drawing.dwg"), drawing));
    }

    QTemporaryDir m_dir;
};

CORE_TEST_CLASS(tst_PreviewReader);
#include "tst_previewreader.moc"

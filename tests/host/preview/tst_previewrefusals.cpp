// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPng.h"
#include "tests/support/bytes/BytesOfPreview.h"
#include "tests/support/process/ThumbnailRun.h"

#include <QTemporaryDir>

using namespace testbytes;

namespace {

constexpr int width = patternSize.width();
constexpr int height = patternSize.height();

QByteArray soundPng()
{
    return pngOf(patternPicture(24));
}

void addFile(const char *name, const QByteArray &file)
{
    QTest::newRow(name) << file;
}

//! Adds a row for each value of a field. \param name with a placeholder for the value
template<typename T, typename Field, typename Value>
void addWrong(const char *name, void (*add)(const char *, const T &), const T &whole, Field T::*field,
              std::initializer_list<Value> values)
{
    for (const Value value : values)
        add(qPrintable(QString::asprintf(name, value)), with(whole, field, value));
}

void addDrawing(const char *name, const DrawingBytes &drawing)
{
    addFile(name, drawing.bytes());
}

//! At the file's end, so that a reader that reads too much reads past it.
void addBadBitmap(const char *name, const BitmapBytes &bitmap)
{
    DrawingBytes drawing = drawingWith(bitmapEntry(bitmap.bytes()));
    drawing.endSentinel = QByteArray();
    drawing.bytesAfter = 0;
    addDrawing(name, drawing);
}

void addPng(const char *name, const QByteArray &png)
{
    addDrawing(name, drawingWith(pngEntry(png)));
}

void addFilesWithoutAPicture()
{
    addFile("an empty file", {});
    addFile("a version and no more", "AC1018");
    addFile("XML", "<?xml version=\"1.0\"?><drawing><preview/></drawing>");
    addFile("a PNG with the name of a drawing", soundPng());
    for (const char *version : {"AC1.2", "AC2.10", "AC1009", "AC1016", "AC1033", "ac1032", "AD1032"})
        addDrawing(version, with(drawingWith(), &DrawingBytes::version, version));
    addDrawing("no entries", drawingOf({}));
    addDrawing("zeros alone", drawingOf({zerosEntry()}));
    addDrawing("a metafile alone", drawingOf({zerosEntry(), metafileEntry()}));
    addDrawing("an unknown code", drawingOf({{4, patternBitmap().bytes()}}));
}

void addWrongSections()
{
    const DrawingBytes good = drawingWith();
    const auto fileSize = static_cast<quint32>(good.bytes().size());
    addWrong("an address of %u", addDrawing, good, &DrawingBytes::address,
             {0U, 1U, 6U, 13U, 16U, 447U, 449U, fileSize - 1, fileSize, fileSize + 1, 0x7FFFFFFFU,
              0x80000000U, 0xFFFFFFF0U, 0xFFFFFFFFU});
    addDrawing("no begin sentinel", with(good, &DrawingBytes::beginSentinel, QByteArray(16, '\0')));
    QByteArray almost = good.bytes().mid(good.sectionAt, 16);
    almost[15] = '\0';
    addDrawing("a begin sentinel with a wrong last byte", with(good, &DrawingBytes::beginSentinel, almost));

    addWrong("an overall size of %u", addDrawing, good, &DrawingBytes::overallSize,
             {0U, 1U, 18U, fileSize, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFF0U, 0xFFFFFFFFU});
    DrawingBytes manyEntries = with(good, &DrawingBytes::count, quint8(255));
    addDrawing("more entries than the overall size has room for", manyEntries);
    manyEntries.overallSize = 1 + 255 * 9;
    addDrawing("more entries than the file has room for", manyEntries);
    addDrawing("an entry less than there are", with(good, &DrawingBytes::count, quint8(1)));
    // A sound picture whose first bytes are the table's end too.
    addDrawing("a picture that the table runs into",
               with(drawingOf({bitmapEntry(patternBitmap().bytes())}), &DrawingBytes::count, quint8(2)));

    const auto add = [](const char *name, quint32 number, quint32 address, std::optional<quint32> size) {
        addDrawing(qPrintable(QString::asprintf(name, number)),
                   drawingWith({2, patternBitmap().bytes(), address, size}));
    };
    const auto dataSize = static_cast<quint32>(patternBitmap().bytes().size());
    const auto dataAt = static_cast<quint32>(good.dataAt() + 80);
    const auto tableAt = static_cast<quint32>(good.tableAt());
    for (const quint32 address : {0U, 13U, 448U, tableAt, dataAt - 1, dataAt + 1, fileSize - dataSize + 1,
                                  fileSize - 1, fileSize, 0x80000000U, 0xFFFFFFFFU})
        add("a picture at %u", address, address, std::nullopt);
    for (const quint32 size :
         {0U, 1U, 39U, 40U, 51U, dataSize - 1, fileSize - dataAt + 1, 0x80000000U, 0xFFFFFFFFU})
        add("a picture of %u bytes", size, dataAt, size);
    add("a picture at %u whose end wraps to its begin", dataAt, dataAt, 0xFFFFFFFFU - dataAt + 1 + dataAt);
    add("a picture at %u whose end wraps into the file", 0xFFFFFF00U, 0xFFFFFF00U,
        0x100U + dataAt + dataSize);
}

void addWrongBitmapHeaders()
{
    constexpr qint32 most = std::numeric_limits<qint32>::max();
    constexpr qint32 least = std::numeric_limits<qint32>::min();
    const BitmapBytes good = patternBitmap();
    addWrong("a width of %d", addBadBitmap, good, &BitmapBytes::width,
             {0, -1, -width, most, least, 0x10000, 32768});
    addWrong("a height of %d", addBadBitmap, good, &BitmapBytes::height,
             {0, height + 1, -height - 1, most, least, -most, 0x10000, 32768});
    for (const auto &[w, h] : std::initializer_list<std::pair<qint32, qint32>>{
             {0x10000, 0x10000}, {0x8000, 0x20000}, {most, most}, {2561, 2560}, {32767, 32767}})
        addWrong("a large width, and a height of %d", addBadBitmap, with(good, &BitmapBytes::width, w),
                 &BitmapBytes::height, {h});
    addWrong("a header of %u bytes", addBadBitmap, good, &BitmapBytes::headerSize,
             {0U, 1U, 12U, 16U, 39U, 41U, 44U, 60U, 112U, 123U, 125U, 65536U, 0x80000000U, 0xFFFFFFFFU});
    addWrong("%u planes", addBadBitmap, good, &BitmapBytes::planes, {0U, 2U, 65535U});
    addWrong("%u bits", addBadBitmap, good, &BitmapBytes::bits,
             {0U, 2U, 3U, 5U, 7U, 9U, 12U, 48U, 64U, 65535U});
    addWrong("8 bits in compression %u", addBadBitmap, good, &BitmapBytes::compression,
             {2U, 3U, 4U, 5U, 6U, 11U, 0xFFFFFFFFU});
    for (const int bits : {1, 4, 16, 24, 32})
        addWrong("other bits in compression %u", addBadBitmap, patternBitmap(bits), &BitmapBytes::compression,
                 {1U});
    addWrong("%u colours for 8 bits", addBadBitmap, good, &BitmapBytes::colorsUsed,
             {257U, 65536U, 0x40000000U, 0x80000000U, 0xFFFFFFFFU});
    BitmapBytes manyColors = patternBitmap(4);
    manyColors.palette += QByteArray(4, '\0');
    addWrong("%u colours for 4 bits", addBadBitmap, manyColors, &BitmapBytes::colorsUsed, {17U});
    addWrong("%u colours for 24 bits", addBadBitmap, patternBitmap(24), &BitmapBytes::colorsUsed, {257U});
    addWrong("%u colours for 32 bits", addBadBitmap, patternBitmap(32), &BitmapBytes::colorsUsed,
             {0xFFFFFFFFU});
}

void addWrongBitmapData()
{
    for (const int bits : {1, 4, 8, 16, 24, 32}) {
        BitmapBytes shortened = patternBitmap(bits);
        shortened.pixels.chop(1);
        addBadBitmap("a byte short", shortened);
        addBadBitmap("top row first, a byte short",
                     with(topDown(patternBitmap(bits)), &BitmapBytes::pixels, shortened.pixels));
        shortened.pixels.clear();
        addBadBitmap("without pixels", shortened);
        shortened.palette.clear();
        addBadBitmap("a header alone", shortened);
    }

    BitmapBytes masked = patternBitmap(32);
    masked.compression = 3;
    addBadBitmap("masks missing", with(masked, &BitmapBytes::pixels, QByteArray()));
    for (const auto &[name, masks] : std::initializer_list<std::pair<const char *, std::array<quint32, 3>>>{
             {"no red", {0, 0xFF00, 0xFF}},
             {"no green", {0xFF0000, 0, 0xFF}},
             {"no blue", {0xFF0000, 0xFF00, 0}},
             {"no masks", {0, 0, 0}},
             {"a mask with a gap", {0xF10000, 0xFF00, 0xFF}}}) {
        masked.masks = masks;
        for (const quint32 headerSize : {40U, 108U})
            addBadBitmap(name, with(masked, &BitmapBytes::headerSize, headerSize));
    }
    masked.masks = {0xFF0000, 0xFF00, 0xFF};
    addBadBitmap("masks in a header that has none", with(masked, &BitmapBytes::headerSize, 64U));
    masked = with(patternBitmap(16), &BitmapBytes::compression, 3U);
    masked.masks = {0xF80000, 0x7E0, 0x1F};
    addBadBitmap("a mask above the pixel", masked);

    const BitmapBytes runs = inRuns(patternBitmap());
    BitmapBytes smallRuns = with(patternBitmap(4), &BitmapBytes::compression, 2U);
    smallRuns.pixels = QByteArray("\0\1", 2);
    for (const BitmapBytes &bitmap : {runs, smallRuns}) {
        addBadBitmap("runs, top row first", with(bitmap, &BitmapBytes::height, -height));
        addBadBitmap("a literal run that ends early",
                     with(bitmap, &BitmapBytes::pixels, QByteArray("\0\xFF\x12\x34", 4)));
        addBadBitmap("runs without an end", with(bitmap, &BitmapBytes::pixels, QByteArray("\x05\x12", 2)));
    }
    addBadBitmap("a jump that ends early", with(runs, &BitmapBytes::pixels, QByteArray("\0\2\1", 3)));
    addBadBitmap("runs, without data", with(runs, &BitmapBytes::pixels, QByteArray()));
}

void addWrongPngs()
{
    const QByteArray good = soundPng();
    addDrawing("a PNG stored as a bitmap", drawingWith(bitmapEntry(good)));
    addPng("a bitmap stored as a PNG", patternBitmap().bytes());
    addPng("a BMP file stored as a PNG", "BM" + patternBitmap().bytes());
    addPng("a signature alone", good.left(8));
    addPng("a signature and zeros", good.left(8) + QByteArray(100, '\0'));
    addPng("a wrong signature", QByteArray(good).replace(1, 3, "MNG"));
    addPng("no end", good.chopped(12));
    addPng("a byte short", good.chopped(1));
    addDrawing("a byte less than there are",
               drawingWith({6, good, std::nullopt, static_cast<quint32>(good.size() - 1)}));
    addPng("half of it", good.left(good.size() / 2));

    for (const PngHeader &header : std::initializer_list<PngHeader>{{0, height, 8, 2},
                                                                    {width, 0, 8, 2},
                                                                    {width, height + 1, 8, 2},
                                                                    {0x80000000U, 1, 8, 2},
                                                                    {0xFFFFFFFFU, 0xFFFFFFFFU, 8, 2},
                                                                    {16000, 16000, 8, 2},
                                                                    {2561, 2560, 8, 2},
                                                                    {1, 32768, 8, 2},
                                                                    {width, height, 7, 2},    // unknown
                                                                    {width, height, 16, 3},   // invalid
                                                                    {width, height, 8, 3}}) { // no palette
        addPng(qPrintable(QString::asprintf("%u by %u pixels, depth %d, colours %d", header.width,
                                            header.height, header.bitDepth, header.colorType)),
               withHeader(good, header));
    }
    addPng("deep and larger than its memory limit", blankPng({2560, 1281, 16, 0}));

    const auto damaged = [&good](const char *chunk, int offset) {
        QByteArray png = good;
        const int at = png.indexOf(chunk) + offset;
        png[at] = static_cast<char>(png.at(at) ^ 1);
        return png;
    };
    addPng("a wrong checksum of the header", damaged("IHDR", 4 + 13));
    addPng("a wrong byte in the data", damaged("IDAT", 4 + 10));
    addPng("a wrong byte in the last checksum of the data", damaged("IEND", -5));
    addPng("a chunk longer than the file", damaged("IDAT", -4));
    addPng("a chunk longer than allowed",
           QByteArray(good).replace(good.indexOf("IDAT") - 4, 4, QByteArray(4, '\xFF')));
    constexpr int qtsOwnPrefix = 4; // bytes before the zlib stream
    const QByteArray stream = qCompress(QByteArray((width + 1) * height, '\0')).mid(qtsOwnPrefix);
    const auto addStream = [](const char *name, const QByteArray &bytes) {
        addPng(name, soundPng().left(8) + PngHeader{width, height, 8, 0}.bytes() + pngChunk("IDAT", bytes) +
                         pngChunk("IEND", {}));
    };
    addStream("a wrong sum in the stream of the data", stream.chopped(1) + '\xFF');
    addStream("a stream with a window larger than allowed", QByteArray(stream).replace(0, 2, "\x88\x1C"));
    addPng("no data", QByteArray(good).replace("IDAT", "itXt"));
    addPng("an unknown critical chunk", QByteArray(good).insert(33, pngChunk("ABCD", "?")));
}

} // namespace

//! Files without a picture, or with one that must be refused.
class tst_PreviewRefusals : public TestCase
{
    Q_OBJECT

private slots:
    void noPictureIsRead_data()
    {
        QTest::addColumn<QByteArray>("file");
        addFilesWithoutAPicture();
        addWrongSections();
        addWrongBitmapHeaders();
        addWrongBitmapData();
        addWrongPngs();
    }

    void noPictureIsRead()
    {
        allowWarning("libpng warning"); // the decoder reports errors
        QFETCH(QByteArray, file);
        QVERIFY(read(file).isNull());
        const QString output = m_dir.filePath("drawing.png");
        QVERIFY(ThumbnailRun({m_dir.filePath("drawing.dwg"), output}).isRefusal(1));
        QVERIFY(!QFile::exists(output));
    }

    void aFileCutAnywhereGivesThePictureOrNone_data()
    {
        QTest::addColumn<StoredEntry>("entry");
        QTest::newRow("4 bit") << bitmapEntry(patternBitmap(4).bytes());
        QTest::newRow("24 bit") << bitmapEntry(patternBitmap(24).bytes());
        QTest::newRow("PNG") << pngEntry(soundPng());
    }

    void aFileCutAnywhereGivesThePictureOrNone()
    {
        QFETCH(StoredEntry, entry);
        DrawingBytes drawing = drawingOf({entry});
        drawing.sectionAt = 17;
        drawing.bytesAfter = 0;
        const QByteArray whole = drawing.bytes();
        const QImage picture = read(whole);
        QVERIFY(!picture.isNull());

        const int dataEnd = drawing.dataAt() + entry.data.size();
        for (int size = 0; size < whole.size(); ++size)
            QCOMPARE(read(whole.left(size)), size < dataEnd ? QImage() : picture);
    }

private:
    QImage read(const QByteArray &drawing) const
    {
        return fxhost::readPreview(writeFile(m_dir.filePath("drawing.dwg"), drawing));
    }

    QTemporaryDir m_dir;
};

CORE_TEST_CLASS(tst_PreviewRefusals);
#include "tst_previewrefusals.moc"

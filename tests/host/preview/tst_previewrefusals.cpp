// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include "tests/support/PngBytes.h"
#include "tests/support/PreviewBytes.h"
#include "tests/support/TestCase.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace testbytes;

//! Files that hold no picture, or claim one that must not be believed.
class tst_PreviewRefusals : public TestCase
{
    Q_OBJECT

private slots:
    void aFileWithoutAPictureGivesNone_data();
    void aFileWithoutAPictureGivesNone();
    void aWrongSectionGivesNone_data();
    void aWrongSectionGivesNone();
    void aWrongBitmapGivesNone_data();
    void aWrongBitmapGivesNone();
    void aWrongPngGivesNone_data();
    void aWrongPngGivesNone();
    void aFileCutAnywhereGivesThePictureOrNone_data();
    void aFileCutAnywhereGivesThePictureOrNone();
    void anyByteMayBeWrong_data();
    void anyByteMayBeWrong();

private:
    QImage read(const QByteArray &drawing) const
    {
        return fxhost::readPreview(writeFile(m_dir.filePath(QStringLiteral("drawing.dwg")), drawing));
    }

    QTemporaryDir m_dir;
};

namespace {

constexpr int width = 13; // an odd width leaves padding at the rows' ends
constexpr int height = 7;

BitmapBytes goodBitmap(int bits = 8)
{
    return patternBitmap(bits, width, height);
}

QByteArray goodPng()
{
    return pngOf(patternPicture(24, width, height));
}

DrawingBytes goodDrawing()
{
    return drawingWith(bitmapEntry(goodBitmap().bytes()));
}

DrawingBytes drawingOf(const QVector<StoredEntry> &entries)
{
    DrawingBytes drawing;
    drawing.entries = entries;
    return drawing;
}

//! One wrong thing in an else good value: rows are made of these.
template<typename T, typename Field, typename Value>
T with(T whole, Field T::*field, const Value &value)
{
    whole.*field = value;
    return whole;
}

} // namespace

void tst_PreviewRefusals::aFileWithoutAPictureGivesNone_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("a version and no more") << QByteArray("AC1018");
    QTest::newRow("XML") << QByteArray("<?xml version=\"1.0\"?><drawing><preview/></drawing>");
    QTest::newRow("a pointer to a file kept elsewhere")
        << QByteArray("version 1\noid 8c1bdf4c1d75\nsize 174558\n");
    QTest::newRow("a PNG named as a drawing") << goodPng();
    for (const char *version : {"AC1.2", "AC2.10", "AC1009", "AC1016", "AC1033", "ac1032", "AD1032"})
        QTest::newRow(version) << with(goodDrawing(), &DrawingBytes::version, version).bytes();
    QTest::newRow("an address of 0") << with(goodDrawing(), &DrawingBytes::address, 0U).bytes();
    QTest::newRow("no entries") << drawingOf({}).bytes();
    QTest::newRow("zeros alone") << drawingOf({zerosEntry()}).bytes();
    QTest::newRow("a metafile alone") << drawingOf({zerosEntry(), metafileEntry()}).bytes();
    QTest::newRow("an unknown code") << drawingOf({{4, goodBitmap().bytes()}}).bytes();
}

void tst_PreviewRefusals::aFileWithoutAPictureGivesNone()
{
    QFETCH(QByteArray, file);
    QVERIFY(read(file).isNull());
}

void tst_PreviewRefusals::aWrongSectionGivesNone_data()
{
    QTest::addColumn<DrawingBytes>("drawing");
    const DrawingBytes good = goodDrawing();
    const auto fileSize = static_cast<quint32>(good.bytes().size());
    for (const quint32 address : {1U, 6U, 13U, 16U, 447U, 449U, fileSize - 1, fileSize, fileSize + 1,
                                  0x7FFFFFFFU, 0x80000000U, 0xFFFFFFF0U, 0xFFFFFFFFU})
        QTest::addRow("an address of %u", address) << with(good, &DrawingBytes::address, address);
    QTest::newRow("no begin sentinel") << with(good, &DrawingBytes::beginSentinel, QByteArray(16, '\0'));
    QByteArray almost = good.bytes().mid(good.sectionAt, 16);
    almost[15] = '\0';
    QTest::newRow("a begin sentinel with a wrong last byte")
        << with(good, &DrawingBytes::beginSentinel, almost);

    for (const quint32 size : {0U, 1U, 18U, fileSize, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFF0U, 0xFFFFFFFFU})
        QTest::addRow("an overall size of %u", size) << with(good, &DrawingBytes::overallSize, size);
    QTest::newRow("more entries than the overall size has room for")
        << with(good, &DrawingBytes::count, quint8(255));
    DrawingBytes atEnd = with(good, &DrawingBytes::count, quint8(255));
    atEnd.overallSize = 1 + 255 * 9;
    QTest::newRow("more entries than the file has room for") << atEnd;
    QTest::newRow("an entry less than there are") << with(good, &DrawingBytes::count, quint8(1));

    const auto withEntry = [](quint32 address, std::optional<quint32> size) {
        return drawingWith({2, goodBitmap().bytes(), address, size});
    };
    const auto dataSize = static_cast<quint32>(goodBitmap().bytes().size());
    const auto dataAt = static_cast<quint32>(good.dataAt() + 80);
    for (const quint32 address : {0U, 13U, dataAt - 1, dataAt + 1, fileSize - dataSize + 1, fileSize - 1,
                                  fileSize, 0x80000000U, 0xFFFFFFFFU})
        QTest::addRow("a picture at %u", address) << withEntry(address, std::nullopt);
    QTest::newRow("a picture at the section's begin") << withEntry(448, std::nullopt);
    QTest::newRow("a picture in the table") << withEntry(static_cast<quint32>(good.tableAt()), std::nullopt);
    for (const quint32 size :
         {0U, 1U, 39U, 40U, 51U, dataSize - 1, fileSize - dataAt + 1, 0x80000000U, 0xFFFFFFFFU})
        QTest::addRow("a picture of %u bytes", size) << withEntry(dataAt, size);
    QTest::newRow("a picture whose end wraps to its begin")
        << withEntry(dataAt, 0xFFFFFFFFU - dataAt + 1 + dataAt);
    QTest::newRow("a picture whose end wraps into the file")
        << withEntry(0xFFFFFF00U, 0x100U + dataAt + dataSize);

    // A sound picture whose first bytes double as the table's end.
    DrawingBytes entwined = drawingOf({bitmapEntry(goodBitmap().bytes())});
    entwined.count = 2;
    QTest::newRow("a picture that the table runs into") << entwined;
}

void tst_PreviewRefusals::aWrongSectionGivesNone()
{
    QFETCH(DrawingBytes, drawing);
    QVERIFY(read(drawing.bytes()).isNull());
}

void tst_PreviewRefusals::aWrongBitmapGivesNone_data()
{
    QTest::addColumn<BitmapBytes>("bitmap");
    constexpr qint32 most = std::numeric_limits<qint32>::max();
    constexpr qint32 least = std::numeric_limits<qint32>::min();
    const BitmapBytes good = goodBitmap();
    for (const qint32 side : {0, -1, -width, most, least, 0x10000, 32768})
        QTest::addRow("a width of %d", side) << with(good, &BitmapBytes::width, side);
    for (const qint32 side : {0, height + 1, -height - 1, most, least, -most, 0x10000, 32768})
        QTest::addRow("a height of %d", side) << with(good, &BitmapBytes::height, side);
    for (const auto &[w, h] : std::initializer_list<std::pair<qint32, qint32>>{
             {0x10000, 0x10000}, {0x8000, 0x20000}, {most, most}, {2561, 2560}, {32767, 32767}})
        QTest::addRow("%d by %d pixels", w, h)
            << with(with(good, &BitmapBytes::width, w), &BitmapBytes::height, h);
    for (const quint32 size :
         {0U, 1U, 12U, 16U, 39U, 41U, 44U, 60U, 112U, 123U, 125U, 65536U, 0x80000000U, 0xFFFFFFFFU})
        QTest::addRow("a header of %u bytes", size) << with(good, &BitmapBytes::headerSize, size);
    for (const quint32 planes : {0U, 2U, 65535U})
        QTest::addRow("%u planes", planes) << with(good, &BitmapBytes::planes, planes);
    for (const quint32 bits : {0U, 2U, 3U, 5U, 7U, 9U, 12U, 48U, 64U, 65535U})
        QTest::addRow("%u bits", bits) << with(good, &BitmapBytes::bits, bits);
    for (const quint32 compression : {2U, 3U, 4U, 5U, 6U, 11U, 0xFFFFFFFFU})
        QTest::addRow("8 bits in compression %u", compression)
            << with(good, &BitmapBytes::compression, compression);
    for (const int bits : {1, 4, 16, 24, 32})
        QTest::addRow("%d bits in runs of 8", bits) << with(goodBitmap(bits), &BitmapBytes::compression, 1U);
    for (const quint32 colors : {257U, 65536U, 0x40000000U, 0x80000000U, 0xFFFFFFFFU})
        QTest::addRow("%u colours", colors) << with(good, &BitmapBytes::colorsUsed, colors);
    BitmapBytes manyColors = with(goodBitmap(4), &BitmapBytes::colorsUsed, 17U);
    manyColors.palette += QByteArray(4, '\0');
    QTest::newRow("17 colours for 4 bits") << manyColors;
    QTest::newRow("257 colours for 24 bits") << with(goodBitmap(24), &BitmapBytes::colorsUsed, 257U);
    QTest::newRow("2^32-1 colours for 32 bits")
        << with(goodBitmap(32), &BitmapBytes::colorsUsed, 0xFFFFFFFFU);

    for (const int bits : {1, 4, 8, 16, 24, 32}) {
        BitmapBytes shortened = goodBitmap(bits);
        shortened.pixels.chop(1);
        QTest::addRow("%d bits, a byte short", bits) << shortened;
        QTest::addRow("%d bits, top row first, a byte short", bits)
            << with(topDown(goodBitmap(bits)), &BitmapBytes::pixels, shortened.pixels);
        shortened.pixels.clear();
        QTest::addRow("%d bits, without pixels", bits) << shortened;
        shortened.palette.clear();
        QTest::addRow("%d bits, a header alone", bits) << shortened;
    }

    BitmapBytes masked = goodBitmap(32);
    masked.compression = 3;
    QTest::newRow("masks missing") << with(masked, &BitmapBytes::pixels, QByteArray());
    for (const auto &[name, masks] : std::initializer_list<std::pair<const char *, std::array<quint32, 3>>>{
             {"no red", {0, 0xFF00, 0xFF}},
             {"no green", {0xFF0000, 0, 0xFF}},
             {"no blue", {0xFF0000, 0xFF00, 0}},
             {"no masks", {0, 0, 0}},
             {"a mask with a gap", {0xF10000, 0xFF00, 0xFF}}}) {
        masked.masks = masks;
        masked.headerSize = 40;
        QTest::addRow("%s behind the header", name) << masked;
        masked.headerSize = 108;
        QTest::addRow("%s in the header", name) << masked;
    }
    masked.masks = {0xFF0000, 0xFF00, 0xFF};
    masked.headerSize = 64;
    QTest::newRow("masks in a header that knows none") << masked;
    masked = goodBitmap(16);
    masked.compression = 3;
    masked.masks = {0xF80000, 0x7E0, 0x1F};
    QTest::newRow("a mask above the pixel") << masked;

    BitmapBytes runs = inRuns(good);
    QTest::newRow("runs, top row first") << with(runs, &BitmapBytes::height, -height);
    BitmapBytes smallRuns = goodBitmap(4);
    smallRuns.compression = 2;
    smallRuns.pixels = QByteArray("\0\1", 2);
    QTest::newRow("runs of 4 bits, top row first") << with(smallRuns, &BitmapBytes::height, -height);
    smallRuns.pixels = QByteArray("\0\xFF\x12\x34", 4);
    QTest::newRow("a literal run of 4 bits that ends early") << smallRuns;
    smallRuns.pixels = QByteArray("\x05\x12", 2);
    QTest::newRow("runs of 4 bits without an end") << smallRuns;
    QTest::newRow("a literal run of 8 bits that ends early")
        << with(runs, &BitmapBytes::pixels, QByteArray("\0\xFF\x12\x34", 4));
    QTest::newRow("runs of 8 bits without an end")
        << with(runs, &BitmapBytes::pixels, QByteArray("\x05\x12", 2));
    QTest::newRow("a jump that ends early") << with(runs, &BitmapBytes::pixels, QByteArray("\0\2\1", 3));
    QTest::newRow("runs, none there") << with(runs, &BitmapBytes::pixels, QByteArray());
}

void tst_PreviewRefusals::aWrongBitmapGivesNone()
{
    QFETCH(BitmapBytes, bitmap);
    // At the file's end: what a reader takes too much must come from behind it.
    DrawingBytes drawing = drawingWith(bitmapEntry(bitmap.bytes()));
    drawing.endSentinel = QByteArray();
    drawing.bytesBehind = 0;
    QVERIFY(read(drawing.bytes()).isNull());
}

void tst_PreviewRefusals::aWrongPngGivesNone_data()
{
    QTest::addColumn<StoredEntry>("entry");
    const QByteArray good = goodPng();
    const auto add = [](const char *name, const QByteArray &png) { QTest::newRow(name) << pngEntry(png); };
    QTest::newRow("a PNG stored as a bitmap") << bitmapEntry(good);
    add("a bitmap stored as a PNG", goodBitmap().bytes());
    add("a BMP file stored as a PNG", "BM" + goodBitmap().bytes());
    add("a signature alone", good.left(8));
    add("a signature and zeros", good.left(8) + QByteArray(100, '\0'));
    add("a wrong signature", QByteArray(good).replace(1, 3, "MNG"));
    add("no end", good.chopped(12));
    add("a byte short", good.chopped(1));
    QTest::newRow("a byte less than there are")
        << StoredEntry{6, good, std::nullopt, static_cast<quint32>(good.size() - 1)};
    add("half of it", good.left(good.size() / 2));

    for (const auto &[w, h] : std::initializer_list<std::pair<quint32, quint32>>{{0, height},
                                                                                 {width, 0},
                                                                                 {width, height + 1},
                                                                                 {0x80000000U, 1},
                                                                                 {0xFFFFFFFFU, 0xFFFFFFFFU},
                                                                                 {16000, 16000},
                                                                                 {2561, 2560},
                                                                                 {1, 32768}})
        QTest::addRow("a claim of %u by %u pixels", w, h) << pngEntry(withHeader(good, {w, h, 8, 2}));
    add("an unknown depth", withHeader(good, {width, height, 7, 2}));
    add("a depth that the colours cannot have", withHeader(good, {width, height, 16, 3}));
    add("a palette missing", withHeader(good, {width, height, 8, 3}));
    add("deep and larger than its share of memory", blankPng({2560, 1281, 16, 0}));

    const auto damaged = [&good](const char *chunk, int behind) {
        QByteArray png = good;
        const int at = png.indexOf(chunk) + behind;
        png[at] = static_cast<char>(png.at(at) ^ 1);
        return png;
    };
    add("a wrong checksum of the header", damaged("IHDR", 4 + 13));
    add("a wrong byte in the data", damaged("IDAT", 4 + 10));
    add("a wrong byte in the last checksum of the data", damaged("IEND", -5));
    add("a chunk longer than the file", damaged("IDAT", -4));
    add("a chunk longer than a chunk can be",
        QByteArray(good).replace(good.indexOf("IDAT") - 4, 4, QByteArray(4, '\xFF')));
    add("no data", QByteArray(good).replace("IDAT", "itXt"));
    add("an unknown chunk that matters", QByteArray(good).insert(33, pngChunk("ABCD", "?")));
}

void tst_PreviewRefusals::aWrongPngGivesNone()
{
    allowWarning(QStringLiteral("libpng warning")); // the decoder tells what is wrong
    QFETCH(StoredEntry, entry);
    QVERIFY(read(drawingWith(entry).bytes()).isNull());
}

void tst_PreviewRefusals::aFileCutAnywhereGivesThePictureOrNone_data()
{
    QTest::addColumn<StoredEntry>("entry");
    QTest::newRow("4 bit") << bitmapEntry(goodBitmap(4).bytes());
    QTest::newRow("24 bit") << bitmapEntry(goodBitmap(24).bytes());
    QTest::newRow("PNG") << pngEntry(goodPng());
}

void tst_PreviewRefusals::aFileCutAnywhereGivesThePictureOrNone()
{
    QFETCH(StoredEntry, entry);
    DrawingBytes drawing = drawingOf({entry});
    drawing.sectionAt = 17;
    drawing.bytesBehind = 0;
    const QByteArray whole = drawing.bytes();
    const QImage picture = read(whole);
    QVERIFY(!picture.isNull());

    const int dataEnd = drawing.dataAt() + entry.data.size();
    for (int size = 0; size < whole.size(); ++size)
        QCOMPARE(read(whole.left(size)), size < dataEnd ? QImage() : picture);
}

void tst_PreviewRefusals::anyByteMayBeWrong_data()
{
    QTest::addColumn<DrawingBytes>("drawing");
    for (const int bits : {4, 16, 32})
        QTest::addRow("%d bit", bits) << drawingOf({bitmapEntry(goodBitmap(bits).bytes())});
    QTest::newRow("in runs") << drawingOf({bitmapEntry(inRuns(goodBitmap()).bytes())});
    QTest::newRow("PNG") << drawingOf({pngEntry(goodPng())});
}

void tst_PreviewRefusals::anyByteMayBeWrong()
{
    allowWarning(QStringLiteral("libpng warning")); // the decoder tells what is wrong
    QFETCH(DrawingBytes, drawing);
    drawing.sectionAt = 17;
    drawing.bytesBehind = 0;
    const QByteArray whole = drawing.bytes();
    for (int at = 0; at < whole.size(); ++at) {
        for (const char value : {'\0', '\1', '\x7F', '\x80', '\xFF'}) {
            QByteArray file = whole;
            file[at] = value;
            const QImage picture = read(file);
            QVERIFY(qint64(picture.width()) * picture.height() <= qint64(2560) * 2560);
            QVERIFY(!picture.hasAlphaChannel());
        }
    }
}

QTEST_GUILESS_MAIN(tst_PreviewRefusals)
#include "tst_previewrefusals.moc"

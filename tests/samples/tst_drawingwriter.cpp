// SPDX-License-Identifier: MIT
#include "samples/DrawingWriter.h"

#include "samples/PreviewBitmap.h"
#include "tests/support/TestCase.h"

#include <QtEndian>
#include <QtTest>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <stdexcept>

using namespace fxsamples;

Q_DECLARE_METATYPE(fxsamples::DrawingForm)

namespace {

//! \return 0 behind the end, which no field tested here may be
template<class T>
T field(const QByteArray &bytes, quint32 offset)
{
    if (offset + sizeof(T) > static_cast<quint32>(bytes.size()))
        return 0;
    return qFromLittleEndian<T>(bytes.constData() + offset);
}

struct PictureBytes
{
    quint8 code = 0;
    QByteArray data;
};

//! The second entry of the preview's table: the first is the empty one.
PictureBytes pictureOf(const QByteArray &file)
{
    const quint32 entry = field<quint32>(file, 0x0D) + 21 + 9;
    const auto offset = static_cast<int>(field<quint32>(file, entry + 1));
    const auto size = static_cast<int>(field<quint32>(file, entry + 5));
    return {field<quint8>(file, entry), file.mid(offset, size)};
}

//! Puts the bitmap's file header back and has Qt read it.
QImage decodedBitmap(const QByteArray &bitmap)
{
    const quint32 palette = field<quint16>(bitmap, 14) == 8 ? 256 * 4 : 0;
    QByteArray header("BM");
    for (const quint32 value : {14 + static_cast<quint32>(bitmap.size()), 0U, 14 + 40 + palette}) {
        char bytes[4];
        qToLittleEndian(value, bytes);
        header.append(bytes, 4);
    }
    return QImage::fromData(header + bitmap, "BMP").convertToFormat(QImage::Format_RGB32);
}

//! A picture of exactly \p colours colours, in uneven numbers.
QImage colourful(const QSize &size, int colours)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0, i = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x, ++i) {
            const int colour = i % colours;
            picture.setPixel(x, y, qRgb(colour % 251, colour / 251 * 40, 255 - colour % 7));
        }
    }
    return picture;
}

int distance(QRgb a, QRgb b)
{
    return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
}

} // namespace

class tst_DrawingWriter : public TestCase
{
    Q_OBJECT

private slots:
    void everyFieldIsInItsPlace_data();
    void everyFieldIsInItsPlace();
    void aBitmapIsAPlainOne_data();
    void aBitmapIsAPlainOne();
    void aPngKeepsEveryPixel();
    void fewColoursStayAsTheyAre();
    void manyColoursBecomeTheNearest();
    void aPngIsRefusedWhereItCannotBeCarried_data();
    void aPngIsRefusedWhereItCannotBeCarried();
    void anImpossibleBitmapIsRefused();
};

void tst_DrawingWriter::everyFieldIsInItsPlace_data()
{
    QTest::addColumn<DrawingForm>("form");
    QTest::addColumn<QByteArray>("tag");
    QTest::addColumn<quint8>("code");
    const char *tags[] = {"AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"};
    const auto add = [](const char *tag, const char *kind, const DrawingForm &form, quint8 code) {
        QTest::addRow("%s, %s, %s", tag, kind,
                      form.placement == Placement::BehindHeader ? "behind the header" : "after filling")
            << form << QByteArray(tag) << code;
    };
    for (std::size_t i = 0; i < std::size(tags); ++i) {
        const auto version = static_cast<Version>(i);
        for (const Placement placement : {Placement::BehindHeader, Placement::AfterFilling}) {
            add(tags[i], "8 bits", {version, Picture::Bitmap8, placement}, 2);
            add(tags[i], "24 bits", {version, Picture::Bitmap24, placement}, 2);
            add(tags[i], "32 bits", {version, Picture::Bitmap32, placement}, 2);
            if (version == Version::AC1027 || version == Version::AC1032)
                add(tags[i], "PNG", {version, Picture::Png, placement}, 6);
        }
    }
}

void tst_DrawingWriter::everyFieldIsInItsPlace()
{
    QFETCH(DrawingForm, form);
    QFETCH(QByteArray, tag);
    QFETCH(quint8, code);
    const QByteArray file = drawingFile(colourful({23, 9}, 200), form);

    QCOMPARE(file.left(6), tag);
    const auto address = field<quint32>(file, 0x0D);
    const QByteArray before = file.mid(6, 7) + file.mid(17, static_cast<int>(address) - 17);
    QCOMPARE(before, QByteArray(before.size(), '\0'));
    QVERIFY(address >= 17);

    const QByteArray begin = QByteArray::fromHex("1F256D07D43628289D57CA3F9D44102B");
    const QByteArray end = QByteArray::fromHex("E0DA92F82BC9D7D762A835C062BBEFD4");
    QCOMPARE(file.mid(static_cast<int>(address), 16), begin);
    const auto overall = field<quint32>(file, address + 16);
    QCOMPARE(file.mid(static_cast<int>(address + 20 + overall)), end); // and nothing behind it

    QCOMPARE(field<quint8>(file, address + 20), quint8(2));
    const quint32 first = address + 21;
    QCOMPARE(field<quint8>(file, first), quint8(1));
    const auto empty = field<quint32>(file, first + 1);
    QCOMPARE(empty, first + 2 * 9);
    QCOMPARE(field<quint32>(file, first + 5), 80U);
    QCOMPARE(file.mid(static_cast<int>(empty), 80), QByteArray(80, '\0'));
    const quint32 second = first + 9;
    QCOMPARE(field<quint8>(file, second), code);
    QCOMPARE(field<quint32>(file, second + 1), empty + 80);
    QCOMPARE(field<quint32>(file, second + 1) + field<quint32>(file, second + 5), address + 20 + overall);

    const QByteArray picture = pictureOf(file).data;
    if (code == 6)
        QVERIFY(picture.startsWith("\x89PNG\r\n"));
    else
        QCOMPARE(field<quint32>(picture, 0), 40U);
}

void tst_DrawingWriter::aBitmapIsAPlainOne_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("bits");
    for (const int bits : {8, 24, 32}) {
        for (const int width : {1, 2, 3, 4, 5, 180})
            QTest::addRow("%d bits, %d wide", bits, width) << width << bits;
    }
}

void tst_DrawingWriter::aBitmapIsAPlainOne()
{
    QFETCH(int, width);
    QFETCH(int, bits);
    const QImage picture = colourful({width, 112}, 200);
    const QByteArray bitmap = deviceIndependentBitmap(picture, bits);
    const int rowLength = (width * bits + 31) / 32 * 4;
    const int paletteBytes = bits == 8 ? 1024 : 0;

    QCOMPARE(field<quint32>(bitmap, 0), 40U);
    QCOMPARE(field<qint32>(bitmap, 4), width);
    QCOMPARE(field<qint32>(bitmap, 8), 112); // positive: bottom-up
    QCOMPARE(field<quint16>(bitmap, 12), quint16(1));
    QCOMPARE(field<quint16>(bitmap, 14), quint16(bits));
    QCOMPARE(field<quint32>(bitmap, 16), 0U); // uncompressed
    QCOMPARE(field<quint32>(bitmap, 20), quint32(rowLength * 112));
    QCOMPARE(field<quint32>(bitmap, 32), bits == 8 ? 256U : 0U);
    QCOMPARE(bitmap.size(), 40 + paletteBytes + rowLength * 112);
    QCOMPARE(decodedBitmap(bitmap), picture);
}

void tst_DrawingWriter::aPngKeepsEveryPixel()
{
    QImage picture = colourful({256, 149}, 5000);
    picture.setDotsPerMeterX(1); // of a machine's screen: the file must not depend on it
    const QByteArray file = drawingFile(picture, {Version::AC1027, Picture::Png, {}});
    const QImage decoded = QImage::fromData(pictureOf(file).data, "PNG");
    QVERIFY(!decoded.hasAlphaChannel());
    QCOMPARE(decoded.convertToFormat(QImage::Format_RGB32), picture);
    picture.setDotsPerMeterX(9999);
    QCOMPARE(drawingFile(picture, {Version::AC1027, Picture::Png, {}}), file);
}

void tst_DrawingWriter::fewColoursStayAsTheyAre()
{
    for (const int colours : {1, 2, 255, 256}) {
        const QImage picture = colourful({64, 64}, colours);
        QCOMPARE(indexed(picture).convertToFormat(QImage::Format_RGB32), picture);
    }
    QVERIFY(indexed(QImage()).isNull());
}

void tst_DrawingWriter::manyColoursBecomeTheNearest()
{
    const QImage picture = colourful({64, 64}, 400);
    const QImage reduced = indexed(picture);
    const QVector<QRgb> palette = reduced.colorTable();
    QCOMPARE(palette.size(), 256);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            int nearest = std::numeric_limits<int>::max();
            for (const QRgb colour : palette)
                nearest = std::min(nearest, distance(colour, picture.pixel(x, y)));
            QCOMPARE(distance(reduced.pixel(x, y), picture.pixel(x, y)), nearest);
        }
    }
}

void tst_DrawingWriter::aPngIsRefusedWhereItCannotBeCarried_data()
{
    QTest::addColumn<DrawingForm>("form");
    for (const Version version : {Version::AC1012, Version::AC1014, Version::AC1015, Version::AC1018,
                                  Version::AC1021, Version::AC1024})
        QTest::newRow(versionTag(version)) << DrawingForm{version, Picture::Png, {}};
}

void tst_DrawingWriter::aPngIsRefusedWhereItCannotBeCarried()
{
    QFETCH(DrawingForm, form);
    QVERIFY(!carriesPng(form.version));
    QVERIFY_EXCEPTION_THROWN(drawingFile(colourful({8, 8}, 3), form), std::invalid_argument);
}

void tst_DrawingWriter::anImpossibleBitmapIsRefused()
{
    QVERIFY_EXCEPTION_THROWN(drawingFile(QImage(), {}), std::invalid_argument);
    QVERIFY_EXCEPTION_THROWN(deviceIndependentBitmap(QImage(), 8), std::invalid_argument);
    for (const int bits : {0, 1, 4, 16, 64})
        QVERIFY_EXCEPTION_THROWN(deviceIndependentBitmap(colourful({8, 8}, 3), bits), std::invalid_argument);
}

QTEST_GUILESS_MAIN(tst_DrawingWriter)
#include "tst_drawingwriter.moc"

// SPDX-License-Identifier: MIT
#include "samples/DrawingWriter.h"

#include "samples/PreviewBitmap.h"
#include "tests/support/TestCase.h"

#include <QtEndian>
#include <QtTest>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <stdexcept>

using namespace fxsamples;

Q_DECLARE_METATYPE(fxsamples::DrawingForm)

namespace {

//! \return 0 past the end, which no field tested here may be
template<class T>
T field(const QByteArray &bytes, quint32 offset)
{
    if (offset + sizeof(T) > static_cast<quint32>(bytes.size()))
        return 0;
    return qFromLittleEndian<T>(bytes.constData() + offset);
}

//! The second entry of the preview's table: the first is the empty one.
QByteArray pictureOf(const QByteArray &file)
{
    const quint32 entry = field<quint32>(file, 0x0D) + 21 + 9;
    return file.mid(field<qint32>(file, entry + 1), field<qint32>(file, entry + 5));
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
    void aBitmapIsAPlainOne();
    void aPngKeepsEveryPixel();
    void fewColoursStayAsTheyAre();
    void manyColoursBecomeTheNearest();
    void anImpossibleBitmapIsRefused();
};

void tst_DrawingWriter::everyFieldIsInItsPlace_data()
{
    QTest::addColumn<DrawingForm>("form");
    QTest::addColumn<QByteArray>("tag");
    const char *tags[] = {"AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"};
    for (const Version version : allVersions) {
        const char *tag = tags[static_cast<int>(version)];
        for (const Picture picture : {Picture::Bitmap8, Picture::Bitmap24, Picture::Bitmap32, Picture::Png}) {
            for (const Placement placement : {Placement::BehindHeader, Placement::AfterFilling})
                QTest::addRow("%s, picture %d, place %d", tag, static_cast<int>(picture),
                              static_cast<int>(placement))
                    << DrawingForm{version, picture, placement} << QByteArray(tag);
        }
    }
}

void tst_DrawingWriter::everyFieldIsInItsPlace()
{
    QFETCH(DrawingForm, form);
    QFETCH(QByteArray, tag);
    const QImage image = colourful({23, 9}, 200);
    const bool isPng = form.picture == Picture::Png;
    QCOMPARE(carriesPng(form.version), tag >= "AC1027");
    if (isPng && tag < "AC1027") {
        QVERIFY_EXCEPTION_THROWN(drawingFile(image, form), std::invalid_argument);
        return;
    }
    const QByteArray file = drawingFile(image, form);

    QCOMPARE(file.left(6), tag);
    const auto address = field<quint32>(file, 0x0D);
    const QByteArray before = file.mid(6, 7) + file.mid(17, static_cast<int>(address) - 17);
    QCOMPARE(before, QByteArray(before.size(), '\0'));
    QVERIFY(address >= 17);

    const QByteArray begin = QByteArray::fromHex("1F256D07D43628289D57CA3F9D44102B");
    const QByteArray end = QByteArray::fromHex("E0DA92F82BC9D7D762A835C062BBEFD4");
    QCOMPARE(file.mid(static_cast<int>(address), 16), begin);
    const auto overall = field<quint32>(file, address + 16);
    QCOMPARE(file.mid(static_cast<int>(address + 20 + overall)), end); // and nothing after it

    QCOMPARE(field<quint8>(file, address + 20), quint8(2));
    const quint32 first = address + 21;
    QCOMPARE(field<quint8>(file, first), quint8(1));
    const auto empty = field<quint32>(file, first + 1);
    QCOMPARE(empty, first + 2 * 9);
    QCOMPARE(field<quint32>(file, first + 5), 80U);
    QCOMPARE(file.mid(static_cast<int>(empty), 80), QByteArray(80, '\0'));
    const quint32 second = first + 9;
    QCOMPARE(field<quint8>(file, second), quint8(isPng ? 6 : 2));
    QCOMPARE(field<quint32>(file, second + 1), empty + 80);
    QCOMPARE(field<quint32>(file, second + 1) + field<quint32>(file, second + 5), address + 20 + overall);
    if (isPng)
        QVERIFY(pictureOf(file).startsWith("\x89PNG\r\n"));
    else
        QCOMPARE(field<quint32>(pictureOf(file), 0), 40U);
}

void tst_DrawingWriter::aBitmapIsAPlainOne()
{
    for (const int bits : {8, 24, 32}) {
        for (const int width : {1, 2, 3, 4, 5, 180}) {
            const QImage picture = colourful({width, 112}, 200);
            const QByteArray bitmap = deviceIndependentBitmap(picture, bits);
            const int rowLength = (width * bits + 31) / 32 * 4;
            QCOMPARE(field<quint32>(bitmap, 0), 40U);
            QCOMPARE(field<qint32>(bitmap, 4), width);
            QCOMPARE(field<qint32>(bitmap, 8), 112); // positive: bottom-up
            QCOMPARE(field<quint16>(bitmap, 12), quint16(1));
            QCOMPARE(field<quint16>(bitmap, 14), quint16(bits));
            QCOMPARE(field<quint32>(bitmap, 16), 0U); // uncompressed
            QCOMPARE(field<quint32>(bitmap, 20), quint32(rowLength * 112));
            QCOMPARE(field<quint32>(bitmap, 32), bits == 8 ? 256U : 0U);
            QCOMPARE(bitmap.size(), 40 + (bits == 8 ? 1024 : 0) + rowLength * 112);
            QCOMPARE(decodedBitmap(bitmap), picture);
        }
    }
}

void tst_DrawingWriter::aPngKeepsEveryPixel()
{
    QImage picture = colourful({256, 149}, 5000);
    picture.setDotsPerMeterX(1); // of a machine's screen: the file must not depend on it
    const QByteArray file = drawingFile(picture, {Version::AC1027, Picture::Png, {}});
    const QImage decoded = QImage::fromData(pictureOf(file), "PNG");
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

void tst_DrawingWriter::anImpossibleBitmapIsRefused()
{
    QVERIFY_EXCEPTION_THROWN(drawingFile(QImage(), {}), std::invalid_argument);
    QVERIFY_EXCEPTION_THROWN(deviceIndependentBitmap(QImage(), 8), std::invalid_argument);
    for (const int bits : {0, 1, 4, 16, 64})
        QVERIFY_EXCEPTION_THROWN(deviceIndependentBitmap(colourful({8, 8}, 3), bits), std::invalid_argument);
}

QTEST_GUILESS_MAIN(tst_DrawingWriter)
#include "tst_drawingwriter.moc"

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

//! \return 0 past the end, which no tested field may be
int numberAt(const QByteArray &bytes, int offset)
{
    return qFromLittleEndian<int>(bytes.mid(offset, 4).leftJustified(4, '\0').constData());
}

QByteArray littleEndian(int value)
{
    QByteArray bytes(4, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

//! The second entry of the preview's table: the first is the empty one.
QByteArray pictureOf(const QByteArray &file)
{
    const int entry = numberAt(file, 0x0D) + 21 + 9;
    return file.mid(numberAt(file, entry + 1), numberAt(file, entry + 5));
}

//! A picture with this number of colours, unevenly distributed.
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
    void everyFieldIsAtItsOffset_data()
    {
        QTest::addColumn<DrawingForm>("form");
        QTest::addColumn<QByteArray>("tag");
        const char *tags[] = {"AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"};
        for (const Version version : allVersions) {
            const char *tag = tags[static_cast<int>(version)];
            for (const Picture picture :
                 {Picture::Bitmap8, Picture::Bitmap24, Picture::Bitmap32, Picture::Png}) {
                for (const Placement placement : {Placement::BehindHeader, Placement::AfterFilling})
                    QTest::addRow("%s, picture %d, place %d", tag, static_cast<int>(picture),
                                  static_cast<int>(placement))
                        << DrawingForm{version, picture, placement} << QByteArray(tag);
            }
        }
    }

    void everyFieldIsAtItsOffset()
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
        const int address = numberAt(file, 0x0D);
        const QByteArray picture = pictureOf(file);
        QByteArray expected = tag + QByteArray(7, '\0') + littleEndian(address);
        expected += QByteArray(address - expected.size(), '\0');
        expected += QByteArray::fromHex("1F256D07D43628289D57CA3F9D44102B");
        const int empty = address + 20 + 1 + 2 * 9;
        expected += littleEndian(1 + 2 * 9 + 80 + picture.size()) + '\2';
        expected += '\1' + littleEndian(empty) + littleEndian(80);
        expected += (isPng ? '\6' : '\2') + littleEndian(empty + 80) + littleEndian(picture.size());
        expected += QByteArray(80, '\0') + picture + QByteArray::fromHex("E0DA92F82BC9D7D762A835C062BBEFD4");
        QCOMPARE(file, expected);
        if (isPng)
            QVERIFY(picture.startsWith("\x89PNG\r\n"));
        else
            QCOMPARE(numberAt(picture, 0), 40);
    }

    void bitmapsAreUncompressed()
    {
        for (const int bits : {8, 24, 32}) {
            for (const int width : {1, 2, 3, 4, 5, 180}) {
                const QImage picture = colourful({width, 112}, 200);
                const QByteArray bitmap = deviceIndependentBitmap(picture, bits);
                const int pixels = (width * bits + 31) / 32 * 4 * 112; // bytes
                const int palette = bits == 8 ? 256 : 0;
                QCOMPARE(bitmap.size(), 40 + palette * 4 + pixels);
                QCOMPARE(bitmap.left(16), littleEndian(40) + littleEndian(width) +
                                              littleEndian(112)                      // bottom-up
                                              + littleEndian(bits << 16 | 1));       // planes
                QCOMPARE(bitmap.mid(16, 8), littleEndian(0) + littleEndian(pixels)); // uncompressed
                QCOMPARE(numberAt(bitmap, 32), palette);
                // Qt reads it after the file header is added.
                const QByteArray header = "BM" + littleEndian(14 + bitmap.size()) + littleEndian(0) +
                                          littleEndian(14 + 40 + palette * 4);
                QCOMPARE(QImage::fromData(header + bitmap, "BMP").convertToFormat(QImage::Format_RGB32),
                         picture);
            }
        }
    }

    void aPngKeepsEveryPixel()
    {
        QImage picture = colourful({256, 149}, 5000);
        picture.setDotsPerMeterX(1); // the file must not depend on the screen
        const QByteArray file = drawingFile(picture, {Version::AC1027, Picture::Png, {}});
        const QImage decoded = QImage::fromData(pictureOf(file), "PNG");
        QVERIFY(!decoded.hasAlphaChannel());
        QCOMPARE(decoded.convertToFormat(QImage::Format_RGB32), picture);
        picture.setDotsPerMeterX(9999);
        QCOMPARE(drawingFile(picture, {Version::AC1027, Picture::Png, {}}), file);
    }

    void fewColoursStayAsTheyAre()
    {
        for (const int colours : {1, 2, 255, 256}) {
            const QImage picture = colourful({64, 64}, colours);
            QCOMPARE(indexed(picture).convertToFormat(QImage::Format_RGB32), picture);
        }
        QVERIFY(indexed(QImage()).isNull());
    }

    void manyColoursBecomeTheNearest()
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

    void anImpossibleBitmapIsRefused()
    {
        QVERIFY_EXCEPTION_THROWN(drawingFile(QImage(), {}), std::invalid_argument);
        QVERIFY_EXCEPTION_THROWN(deviceIndependentBitmap(QImage(), 8), std::invalid_argument);
        for (const int bits : {0, 1, 4, 16, 64})
            QVERIFY_EXCEPTION_THROWN(deviceIndependentBitmap(colourful({8, 8}, 3), bits),
                                     std::invalid_argument);
    }
};

CORE_TEST_CLASS(tst_DrawingWriter);
#include "tst_drawingwriter.moc"

// SPDX-License-Identifier: MIT
#include "samples/SampleSet.h"

#include "host/runtime/preview/PreviewReader.h"
#include "samples/PreviewBitmap.h"
#include "tests/support/TestCase.h"

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

struct Run
{
    int exitCode;
    QByteArray out;
    QByteArray err;
};

//! Runs the program as on a bare build machine: without a display, a platform, a locale and fonts.
Run makeSamples(const QStringList &arguments)
{
    QProcessEnvironment bare;
    bare.insert("LC_ALL", "C");
    bare.insert("FONTCONFIG_FILE", "/dev/null");
    QProcess process;
    process.setProcessEnvironment(bare);
    process.start(MAKE_SAMPLES_PROGRAM, arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, process.errorString().toUtf8()};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

class tst_Samples : public TestCase
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
                for (const Placement placement : {Placement::AfterHeader, Placement::AfterFilling})
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
        QCOMPARE(supportsPng(form.version), tag >= "AC1027");
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

    void aPictureCoversItsAreaUndistorted_data()
    {
        QTest::addColumn<QString>("name");
        for (const Sample &sample : sampleSet())
            QTest::newRow(qPrintable(sample.picture.toString())) << sample.picture.toString();
    }

    void aPictureCoversItsAreaUndistorted()
    {
        QFETCH(QString, name);
        const QImage picture = paintPreview({{}, name, {}});
        QSet<QRgb> colours;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                QCOMPARE(qAlpha(picture.pixel(x, y)), 255);
                colours.insert(picture.pixel(x, y));
            }
        }
        QVERIFY(colours.size() > 20); // antialiased lines in several colours, not a filled rectangle

        QFile file(QString(":/samples/%1.svg").arg(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&file);
        QVERIFY(xml.readNextStartElement());
        const QXmlStreamAttributes svg = xml.attributes();
        QCOMPARE(picture.width(), svg.value("width").toInt());
        QCOMPARE(picture.height(), svg.value("height").toInt());
        QVERIFY(picture.width() >= 180); // the smallest that drawing programs store
        // Qt stretches the drawing to this size.
        const QVector<QStringRef> viewBox = svg.value("viewBox").split(' ');
        const double drawnHeight = viewBox.at(3).toDouble() * picture.width() / viewBox.at(2).toDouble();
        QVERIFY2(qAbs(drawnHeight - picture.height()) < 0.5, qPrintable(QString::number(drawnHeight)));
    }

    void theProgramWritesWhatTheHostShows()
    {
        const QTemporaryDir temporary;
        const QString directory = temporary.filePath("to be made/samples");
        QSet<QString> paths;
        QSet<QByteArray> versions;
        QSet<bool> isPng;
        for (int run = 0; run < 2; ++run) { // the second run overwrites the files
            const Run result = makeSamples({directory});
            QCOMPARE(result.err, QByteArray());
            QCOMPARE(result.exitCode, 0);
            QCOMPARE(result.out.count('\n'), 12);
            for (const Sample &sample : sampleSet()) {
                const QString path = directory + QLatin1Char('/') + sample.fileName.toString();
                QVERIFY2(result.out.contains((path + ": ").toUtf8()), qPrintable(path));
                const QImage picture = paintPreview(sample);
                const QByteArray bytes = drawingFile(picture, sample.form);
                QFile file(path); // the bytes of its name are UTF-8 in any locale
                QVERIFY2(file.open(QIODevice::ReadOnly) && file.readAll() == bytes, qPrintable(path));
                const QImage stored = sample.form.picture == Picture::Bitmap8 ? indexed(picture) : picture;
                QCOMPARE(fxhost::readPreview(path).convertToFormat(QImage::Format_RGB32),
                         stored.convertToFormat(QImage::Format_RGB32));
                paths.insert(path);
                versions.insert(bytes.left(6));
                isPng.insert(bytes.contains("\x89PNG"));
            }
        }
        QCOMPARE(paths.size(), 12);
        QCOMPARE(versions.size(), 8);
        QCOMPARE(isPng.size(), 2);
    }

    void theProgramReportsWrongUseAndWriteErrors()
    {
        const QTemporaryDir temporary;
        for (const QStringList &arguments : {QStringList(), QStringList{temporary.path(), temporary.path()},
                                             QStringList{"--unknown", temporary.path()}}) {
            const Run result = makeSamples(arguments);
            QCOMPARE(result.exitCode, 1);
            QVERIFY(!result.err.isEmpty());
            QVERIFY(QDir(temporary.path()).isEmpty());
        }

        const QString blocker = temporary.filePath("file");
        QVERIFY(QFile(blocker).open(QIODevice::WriteOnly));
        const Run noDirectory = makeSamples({blocker + "/below"});
        QCOMPARE(noDirectory.exitCode, 1);
        QVERIFY2(noDirectory.err.contains(blocker.toUtf8()), noDirectory.err);

        const QString name = sampleSet().front().fileName.toString();
        QVERIFY(QDir(temporary.path()).mkdir(name));
        const Run noFile = makeSamples({temporary.path()});
        QCOMPARE(noFile.exitCode, 1);
        QVERIFY2(noFile.err.contains(name.toUtf8()), noFile.err);
        QCOMPARE(noFile.out, QByteArray());
    }
};

CORE_TEST_CLASS(tst_Samples);
#include "tst_samples.moc"

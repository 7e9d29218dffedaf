// SPDX-License-Identifier: MIT
#include "samples/SampleSet.h"

#include "host/runtime/preview/PreviewReader.h"
#include "samples/Lettering.h"
#include "samples/PreviewBitmap.h"
#include "tests/support/TestCase.h"

#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace fxsamples;

Q_DECLARE_METATYPE(fxsamples::Sample)

namespace {

QByteArray contents(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return QByteArray::fromStdString({std::istreambuf_iterator<char>(file), {}});
}

void addSampleRows()
{
    QTest::addColumn<Sample>("sample");
    for (const Sample &sample : sampleSet())
        QTest::newRow(qPrintable(sample.fileName)) << sample;
}

struct Run
{
    int exitCode;
    QByteArray out;
    QByteArray err;
};

//! Runs the program as a bare build machine would: no display, no platform named, no locale, no fonts.
Run makeSamples(const QStringList &arguments)
{
    QProcessEnvironment bare;
    bare.insert(QStringLiteral("LC_ALL"), QStringLiteral("C"));
    bare.insert(QStringLiteral("FONTCONFIG_FILE"), QStringLiteral("/dev/null"));
    QProcess process;
    process.setProcessEnvironment(bare);
    process.start(QStringLiteral(MAKE_SAMPLES_PROGRAM), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, process.errorString().toUtf8()};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

class tst_Samples : public TestCase
{
    Q_OBJECT

private slots:
    void theDozenHasEveryVersionAndBothKinds();
    void everyVersionMeansEachDrawingInEach();
    void everyLetterIsItself();
    void aSketchCoversItsAreaAndNothingElse_data();
    void aSketchCoversItsAreaAndNothingElse();
    void theHostSeesEachDrawing_data();
    void theHostSeesEachDrawing();
    void theProgramWritesTheSet_data();
    void theProgramWritesTheSet();
    void theProgramSaysWhyItCannotWrite();
    void theProgramWantsOneDirectory();
};

void tst_Samples::theDozenHasEveryVersionAndBothKinds()
{
    QSet<QString> names;
    QSet<QByteArray> versions;
    QSet<bool> isPng;
    for (const SampleFile &file : sampleFiles(false)) {
        const QByteArray bytes = drawingFile(paintPreview(file.sample), file.sample.form);
        names.insert(file.path);
        versions.insert(bytes.left(6));
        isPng.insert(bytes.contains("\x89PNG"));
    }
    QCOMPARE(names.size(), 12);
    QCOMPARE(versions.size(), 8);
    QCOMPARE(isPng.size(), 2);
}

void tst_Samples::everyVersionMeansEachDrawingInEach()
{
    QSet<QString> paths;
    for (const SampleFile &file : sampleFiles(true)) {
        const DrawingForm &form = file.sample.form;
        const QString directory = QString::fromLatin1(versionTag(form.version)) +
                                  QLatin1String(form.picture == Picture::Png ? " PNG/" : "/");
        QCOMPARE(file.path, directory + file.sample.fileName);
        paths.insert(file.path);
    }
    QCOMPARE(paths.size(), 12 * (8 + 2));
}

void tst_Samples::everyLetterIsItself()
{
    const QPainterPath unknown = lettering(QStringLiteral("\u00C4"));
    QVERIFY(!unknown.isEmpty());
    // Without the zero, which lettering by hand does not tell from the letter either.
    const QString alphabet = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ123456789.,:-+/=\u00D8\u00B0\u00D7");
    QVector<QPainterPath> seen{unknown};
    for (const QChar letter : alphabet) {
        const QPainterPath path = lettering(letter);
        const QRectF box = path.boundingRect();
        QVERIFY2(box.left() >= 0 && box.right() <= letteringWidth(letter), qPrintable(QString(letter)));
        QVERIFY2(box.top() >= -1 && box.bottom() <= 0, qPrintable(QString(letter)));
        QVERIFY2(!path.isEmpty() && !seen.contains(path), qPrintable(QString(letter)));
        seen.append(path);
    }
}

void tst_Samples::aSketchCoversItsAreaAndNothingElse_data()
{
    addSampleRows();
}

void tst_Samples::aSketchCoversItsAreaAndNothingElse()
{
    QFETCH(Sample, sample);
    constexpr QRgb untouched = qRgba(0, 0, 0, 0);
    const QRect area(7, 5, 139, 80);
    QImage picture(160, 90, QImage::Format_ARGB32_Premultiplied);
    picture.fill(untouched);
    QPainter painter(&picture);
    const QPen pen = painter.pen();
    sample.sketch(painter, QRectF(area));
    QCOMPARE(painter.pen(), pen);
    QVERIFY(painter.transform().isIdentity());
    QVERIFY(!painter.hasClipping());
    painter.end();

    QSet<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            QCOMPARE(qAlpha(picture.pixel(x, y)), area.contains(x, y) ? 255 : 0);
            colours.insert(picture.pixel(x, y));
        }
    }
    QVERIFY(colours.size() > 20); // lines of several colours with soft edges, not a filled rectangle
}

void tst_Samples::theHostSeesEachDrawing_data()
{
    QTest::addColumn<Sample>("sample");
    for (const bool everyVersion : {false, true}) {
        for (const SampleFile &file : sampleFiles(everyVersion))
            QTest::newRow(qPrintable(file.path)) << file.sample;
    }
}

void tst_Samples::theHostSeesEachDrawing()
{
    QFETCH(Sample, sample);
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("drawing.dwg"));
    const QImage picture = paintPreview(sample);
    const QByteArray bytes = drawingFile(picture, sample.form);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
    file.close();

    const QImage expected = sample.form.picture == Picture::Bitmap8 ? indexed(picture) : picture;
    QCOMPARE(fxhost::readPreview(path).convertToFormat(QImage::Format_RGB32),
             expected.convertToFormat(QImage::Format_RGB32));
}

void tst_Samples::theProgramWritesTheSet_data()
{
    QTest::addColumn<bool>("everyVersion");
    QTest::newRow("the dozen") << false;
    QTest::newRow("each in every version") << true;
}

void tst_Samples::theProgramWritesTheSet()
{
    QFETCH(bool, everyVersion);
    const QTemporaryDir temporary;
    const QString directory = temporary.filePath(QStringLiteral("to be made/samples"));
    QStringList arguments{directory};
    if (everyVersion)
        arguments.prepend(QStringLiteral("--every-version"));
    for (int run = 0; run < 2; ++run) { // the second time over the files of the first
        const Run result = makeSamples(arguments);
        QCOMPARE(result.err, QByteArray());
        QCOMPARE(result.exitCode, 0);
        const std::vector<SampleFile> files = sampleFiles(everyVersion);
        QCOMPARE(result.out.count('\n'), static_cast<int>(files.size()));
        for (const SampleFile &file : files) {
            const QString path = directory + QLatin1Char('/') + file.path;
            QVERIFY2(result.out.contains((path + QLatin1String(": ")).toUtf8()), qPrintable(path));
            // By its UTF-8 bytes, whatever locale this test runs in.
            QVERIFY2(contents(path.toStdString()) == drawingFile(paintPreview(file.sample), file.sample.form),
                     qPrintable(path));
        }
    }
}

void tst_Samples::theProgramSaysWhyItCannotWrite()
{
    const QTemporaryDir temporary;
    const QString inTheWay = temporary.filePath(QStringLiteral("file"));
    QVERIFY(QFile(inTheWay).open(QIODevice::WriteOnly));
    const Run noDirectory = makeSamples({inTheWay + QLatin1String("/below")});
    QCOMPARE(noDirectory.exitCode, 1);
    QVERIFY2(noDirectory.err.contains(inTheWay.toUtf8()), noDirectory.err);

    const QString name = sampleSet().front().fileName;
    QVERIFY(QDir(temporary.path()).mkdir(name));
    const Run noFile = makeSamples({temporary.path()});
    QCOMPARE(noFile.exitCode, 1);
    QVERIFY2(noFile.err.contains(name.toUtf8()), noFile.err);
    QCOMPARE(noFile.out, QByteArray());
}

void tst_Samples::theProgramWantsOneDirectory()
{
    const QTemporaryDir temporary;
    for (const QStringList &arguments : {QStringList(), QStringList{temporary.path(), temporary.path()},
                                         QStringList{QStringLiteral("--unknown"), temporary.path()}}) {
        const Run result = makeSamples(arguments);
        QCOMPARE(result.exitCode, 1);
        QVERIFY(!result.err.isEmpty());
        QVERIFY(QDir(temporary.path()).isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_Samples)
#include "tst_samples.moc"

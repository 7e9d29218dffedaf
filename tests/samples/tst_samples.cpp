// SPDX-License-Identifier: MIT
#include "samples/SampleSet.h"

#include "host/runtime/preview/PreviewReader.h"
#include "samples/PreviewBitmap.h"
#include "tests/support/TestCase.h"

#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <QtTest>

#include <filesystem>
#include <fstream>
#include <iterator>

using namespace fxsamples;

namespace {

QByteArray contents(const std::filesystem::path &path)
{
    std::ifstream file(path, std::ios::binary);
    return QByteArray::fromStdString({std::istreambuf_iterator<char>(file), {}});
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

        QFile file(QStringLiteral(":/samples/%1.svg").arg(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&file);
        QVERIFY(xml.readNextStartElement());
        const QXmlStreamAttributes svg = xml.attributes();
        QCOMPARE(picture.width(), svg.value(QStringLiteral("width")).toInt());
        QCOMPARE(picture.height(), svg.value(QStringLiteral("height")).toInt());
        QVERIFY(picture.width() >= 180); // the smallest that drawing programs store
        // Qt stretches the drawing to this size.
        const QVector<QStringRef> viewBox = svg.value(QStringLiteral("viewBox")).split(QLatin1Char(' '));
        const double drawnHeight = viewBox.at(3).toDouble() * picture.width() / viewBox.at(2).toDouble();
        QVERIFY2(qAbs(drawnHeight - picture.height()) < 0.5, qPrintable(QString::number(drawnHeight)));
    }

    void theProgramWritesWhatTheHostShows()
    {
        const QTemporaryDir temporary;
        const QString directory = temporary.filePath(QStringLiteral("to be made/samples"));
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
                QVERIFY2(result.out.contains((path + QLatin1String(": ")).toUtf8()), qPrintable(path));
                const QImage picture = paintPreview(sample);
                const QByteArray bytes = drawingFile(picture, sample.form);
                // By its UTF-8 bytes in any locale.
                QVERIFY2(contents(path.toStdString()) == bytes, qPrintable(path));
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

    void theProgramReportsWriteErrors()
    {
        const QTemporaryDir temporary;
        const QString blocker = temporary.filePath(QStringLiteral("file"));
        QVERIFY(QFile(blocker).open(QIODevice::WriteOnly));
        const Run noDirectory = makeSamples({blocker + QLatin1String("/below")});
        QCOMPARE(noDirectory.exitCode, 1);
        QVERIFY2(noDirectory.err.contains(blocker.toUtf8()), noDirectory.err);

        const QString name = sampleSet().front().fileName.toString();
        QVERIFY(QDir(temporary.path()).mkdir(name));
        const Run noFile = makeSamples({temporary.path()});
        QCOMPARE(noFile.exitCode, 1);
        QVERIFY2(noFile.err.contains(name.toUtf8()), noFile.err);
        QCOMPARE(noFile.out, QByteArray());
    }

    void theProgramTakesOneDirectory()
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
};

CORE_TEST_CLASS(tst_Samples);
#include "tst_samples.moc"

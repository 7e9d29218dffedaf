// SPDX-License-Identifier: MIT
#include "host/runtime/preview/DrawingFile.h"
#include "host/runtime/preview/PreviewReader.h"

#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>

namespace {

QString drawingsDir()
{
    const QString named = qEnvironmentVariable("DRAWINGS_DIR");
#ifdef SHARED_DRAWINGS_DIR
    if (named.isEmpty())
        return QStringLiteral(SHARED_DRAWINGS_DIR);
#endif
    return named;
}

//! The size of "256x149"; an invalid one of "-".
QSize sizeNamed(const QString &pixels)
{
    const QStringList sides = pixels.split('x');
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
}

} // namespace

//! Drawings of real programs, if there is a collection of them: a directory with a manifest.tsv, named by the
//! environment variable DRAWINGS_DIR or when the tests are built.
class tst_RealPreviews : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (drawingsDir().isEmpty() || !m_drawings.exists("manifest.tsv"))
            QSKIP("no collection of real drawings");
    }

    void fileMatchesTheManifest_data()
    {
        QFile manifest(m_drawings.filePath("manifest.tsv"));
        QVERIFY(manifest.open(QIODevice::ReadOnly | QIODevice::Text));
        QStringList lines = QString::fromUtf8(manifest.readAll()).split('\n', Qt::SkipEmptyParts);
        const QStringList titles = lines.takeFirst().split('\t');

        QTest::addColumn<QString>("file");
        QTest::addColumn<QByteArray>("version");
        QTest::addColumn<QString>("preview");
        QTest::addColumn<QSize>("size");
        for (const QString &line : qAsConst(lines)) {
            const QStringList fields = line.split('\t');
            const auto field = [&](const char *title) { return fields.value(titles.indexOf(title)); };
            QTest::newRow(qPrintable(field("file"))) << field("file") << field("version").toLatin1()
                                                     << field("preview") << sizeNamed(field("pixels"));
        }
    }

    void fileMatchesTheManifest()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, version);
        QFETCH(QString, preview);
        QFETCH(QSize, size);
        const QString path = m_drawings.filePath(file);

        const fxhost::DrawingFile drawing = fxhost::readDrawing(path);
        // If the file is not a drawing, the manifest has its first letters instead of a version.
        const bool isDrawing = version.startsWith("AC");
        QCOMPARE(drawing.version, isDrawing ? version : QByteArray());
        QCOMPARE(drawing.outcome.reason(), isDrawing ? QString() : QString("The file is not a drawing."));
        QVERIFY(!drawing.isPreviewAlone);

        const QImage picture = fxhost::readPreview(path);
        QCOMPARE(drawing.preview, picture);
        QCOMPARE(picture.size(), preview == "none" ? QSize(0, 0) : size);
        if (preview == "none")
            return;
        QCOMPARE(picture.format(), QImage::Format_RGB32);

        // A picture that is decoded wrongly has one colour or is noise.
        QSet<QRgb> colors;
        int alikeNeighbours = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                colors.insert(picture.pixel(x, y));
                alikeNeighbours += x > 0 && picture.pixel(x, y) == picture.pixel(x - 1, y) ? 1 : 0;
            }
        }
        QVERIFY(colors.size() > 1);
        QVERIFY(alikeNeighbours > picture.width() * picture.height() / 2);
    }

private:
    const QDir m_drawings{drawingsDir()};
};

CORE_TEST_CLASS(tst_RealPreviews);
#include "tst_realpreviews.moc"

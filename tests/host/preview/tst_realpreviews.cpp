// SPDX-License-Identifier: MIT
#include "host/runtime/preview/DrawingHeader.h"
#include "host/runtime/preview/PreviewReader.h"

#include "tests/support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QtTest>

//! Drawings made by real programs, where a collection of them is at hand: a directory with a manifest.tsv,
//! named by the environment variable DRAWINGS_DIR or when the tests are built.
class tst_RealPreviews : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void thePictureIsWhatTheManifestSays_data();
    void thePictureIsWhatTheManifestSays();
    void theVersionIsWhatTheManifestSays_data();
    void theVersionIsWhatTheManifestSays();

private:
    void addManifestRows();

    QDir m_drawings;
};

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

//! The size that the manifest means by "256x149"; an invalid one by "-".
QSize sizeNamed(const QString &pixels)
{
    const QStringList sides = pixels.split(QLatin1Char('x'));
    return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
}

} // namespace

void tst_RealPreviews::initTestCase()
{
    const QString path = drawingsDir();
    m_drawings = QDir(path);
    if (path.isEmpty() || !m_drawings.exists(QStringLiteral("manifest.tsv")))
        QSKIP("no collection of real drawings at hand");
}

void tst_RealPreviews::addManifestRows()
{
    QFile manifest(m_drawings.filePath(QStringLiteral("manifest.tsv")));
    QVERIFY(manifest.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList lines =
        QString::fromUtf8(manifest.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    const QStringList titles = lines.first().split(QLatin1Char('\t'));

    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("version");
    QTest::addColumn<QString>("preview");
    QTest::addColumn<QSize>("size");
    const QStringList drawings = lines.mid(1);
    for (const QString &line : drawings) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        const auto field = [&](const char *title) {
            return fields.value(titles.indexOf(QLatin1String(title)));
        };
        QTest::newRow(qPrintable(field("file")))
            << field("file") << field("version").toLatin1() << field("preview") << sizeNamed(field("pixels"));
    }
}

void tst_RealPreviews::thePictureIsWhatTheManifestSays_data()
{
    addManifestRows();
}

void tst_RealPreviews::thePictureIsWhatTheManifestSays()
{
    QFETCH(QString, file);
    QFETCH(QString, preview);
    QFETCH(QSize, size);
    const QImage picture = fxhost::readPreview(m_drawings.filePath(file));
    if (preview == QLatin1String("none")) {
        QVERIFY(picture.isNull());
        return;
    }
    QCOMPARE(picture.size(), size);
    if (preview == QLatin1String("DIB8") || preview == QLatin1String("PNG(ct3)"))
        QCOMPARE(picture.format(), QImage::Format_Indexed8);
    else if (preview == QLatin1String("PNG(ct2)"))
        QCOMPARE(picture.format(), QImage::Format_RGB32);
    else
        QFAIL("a kind of preview that this test does not know");

    // A picture that was found but not understood would be of one colour, or of noise.
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

void tst_RealPreviews::theVersionIsWhatTheManifestSays_data()
{
    addManifestRows();
}

void tst_RealPreviews::theVersionIsWhatTheManifestSays()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, version);
    const fxhost::DrawingHeader header = fxhost::readDrawingHeader(m_drawings.filePath(file));
    // The manifest has a file's first letters where they are no version.
    QCOMPARE(header.version, version.startsWith("AC") ? version : QByteArray());
    QCOMPARE(header.error,
             version.startsWith("AC") ? fxhost::DrawingError::None : fxhost::DrawingError::NotADrawing);
}

QTEST_GUILESS_MAIN(tst_RealPreviews)
#include "tst_realpreviews.moc"

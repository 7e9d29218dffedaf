// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include "tests/support/Memory.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPng.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>

using namespace testbytes;

namespace {

constexpr double mebibyte = 1024 * 1024; // bytes

//! The most memory that this process has held so far, in KiB.
int peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray text = status.readAll(); // not by lines: the file has no size to read ahead by
    const QByteArray title = "VmHWM:";
    const int at = text.indexOf(title);
    return at < 0 ? -1 : text.mid(at + title.size()).trimmed().split(' ').first().toInt();
}

//! What this program does as a child process: reads a sound drawing first, so that what decoding allocates
//! once is allocated, and then another one. Prints the picture's width and height, its size in bytes, and by
//! how many KiB the peak has risen.
int measure(const QStringList &drawings)
{
    fxhost::readPreview(drawings.at(0));
    const int before = peakMemory();
    const QImage picture = fxhost::readPreview(drawings.at(1));
    std::printf("%d %d %lld %d\n", picture.width(), picture.height(), picture.sizeInBytes(),
                peakMemory() - before);
    return 0;
}

//! Writes a drawing, after its entries zeros that take no room on disk, and then end. \param more bytes, end
//! included
void writeSparse(const QString &path, DrawingBytes drawing, qint64 more, const QByteArray &end)
{
    drawing.endSentinel = QByteArray();
    drawing.bytesAfter = 0;
    QFile file(writeFile(path, drawing.bytes()));
    if (!file.resize(file.size() + more - end.size()) || !file.open(QIODevice::Append) ||
        file.write(end) != end.size())
        qFatal("cannot enlarge %s", qPrintable(path));
}

BitmapBytes blankBitmap(int bits, int width, int height)
{
    BitmapBytes bitmap;
    bitmap.bits = static_cast<quint32>(bits);
    bitmap.width = width;
    bitmap.height = height;
    bitmap.palette = QByteArray(bits <= 8 ? 4 << bits : 0, '\0');
    return bitmap;
}

//! Texts of a few kilobytes each that decompress to seven megabytes.
QByteArray swellingTexts()
{
    constexpr int qtsOwnPrefix = 4; // bytes before the zlib stream
    const QByteArray swelling = qCompress(QByteArray(7 * 1024 * 1024, ' ')).mid(qtsOwnPrefix);
    QByteArray chunks;
    for (int i = 0; i < 40; ++i)
        chunks += pngChunk("zTXt", "Title" + QByteArray::number(i) + QByteArray(2, '\0') + swelling);
    return chunks;
}

//! A PNG with two gigabytes more than its picture needs, in a chunk that a decoder reads for its checksum.
struct EndlessPng
{
    static constexpr quint32 chunkSize = 0x7F000000; // bytes
    const QByteArray start = blankPng({64, 64}).chopped(12) + QByteArray("\x7F\0\0\0IDAT", 8);
    const QByteArray end = QByteArray(4, '\0') + pngChunk("IEND", {});

    quint32 size() const { return static_cast<quint32>(start.size() + end.size()) + chunkSize; }
};

//! A drawing with as many entries as possible, all with the same data.
DrawingBytes drawingOfMany(const StoredEntry &entry)
{
    constexpr int most = 255;
    StoredEntry again = {entry.code, {}};
    again.size = entry.size.value_or(static_cast<quint32>(entry.data.size()));
    DrawingBytes drawing;
    drawing.entries = QVector<StoredEntry>(most, again);
    again.address = static_cast<quint32>(drawing.dataAt());
    drawing.entries = QVector<StoredEntry>(1, entry) + QVector<StoredEntry>(most - 1, again);
    return drawing;
}

} // namespace

//! The memory and time that reading a drawing takes.
class tst_PreviewLimits : public TestCase
{
    Q_OBJECT

private slots:
    void memoryIsBounded_data()
    {
        if (!memory::isMeasurable)
            QSKIP("a sanitizer's own memory is too large to measure this");
        QTest::addColumn<QString>("drawing");
        QTest::addColumn<QSize>("picture");
        const QSize none(0, 0);
        const QSize small(64, 64);
        const QSize largest(2560, 2560);

        const auto addBitmap = [this](const char *name, const BitmapBytes &bitmap, const QSize &picture,
                                      quint32 size) {
            addDrawing(name, bitmapEntry(bitmap.bytes()), picture, size);
        };
        addBitmap("the largest bitmap of 32 bits", blankBitmap(32, 2560, 2560), largest, 26214440);
        addBitmap("the largest bitmap of 24 bits, top row first", blankBitmap(24, 2560, -2560), largest,
                  19660840);
        addBitmap("the largest bitmap in runs, with a gigabyte of them",
                  with(blankBitmap(8, 2560, 2560), &BitmapBytes::compression, 1U), largest, 1 << 30);
        addBitmap("a bitmap of 32000 by 32000", blankBitmap(1, 32000, 32000), none, 0x7FFF0000);
        addBitmap("a small bitmap of two gigabytes", blankBitmap(8, 64, 64), small, 0x7FFF0000);

        const auto addPng = [this](const char *name, const QByteArray &png, const QSize &picture) {
            addDrawing(name, pngEntry(png), picture, 0);
        };
        addPng("the largest PNG", blankPng({2560, 2560}), largest);
        QByteArray padded = blankPng({2560, 2560, 8, 0});
        padded.insert(padded.size() - 12, pngChunk("IDAT", QByteArray(7 * 1024 * 1024, '\0')));
        addPng("the largest grey PNG, with megabytes after its data", padded, largest);
        addPng("the largest PNG, interlaced", blankPng({2560, 2560, 8, 6, true}), largest);
        addPng("the longest PNG, interlaced", blankPng({200, 32767, 8, 6, true}), QSize(200, 32767));
        addPng("the largest deep PNG", blankPng({2560, 1280, 16, 6}), QSize(2560, 1280));
        addPng("a larger deep PNG", blankPng({2560, 1281, 16, 6}), none);
        addPng("a PNG of 16000 by 16000", blankPng({16000, 16000, 8, 0}), none);
        addPng("a PNG of one column", blankPng({1, 1000000, 8, 0, true}), none);
        addPng("a PNG with compressed texts", blankPng({64, 64}, swellingTexts()), small);
        const EndlessPng endless;
        addDrawing("a PNG with an endless chunk", pngEntry(endless.start), none, endless.size(), endless.end);
    }

    void memoryIsBounded()
    {
        QFETCH(QString, drawing);
        QFETCH(QSize, picture);
        const QString sound =
            writeFile(m_dir.filePath("sound.dwg"), drawingWith(pngEntry(blankPng({64, 64}))).bytes());
        QProcess child;
        child.start(QCoreApplication::applicationFilePath(),
                    {"tst_previewlimits", "-measure", sound, drawing});
        QVERIFY(child.waitForFinished());
        QCOMPARE(child.exitCode(), 0);
        const QList<QByteArray> numbers = child.readAllStandardOutput().simplified().split(' ');
        QCOMPARE(numbers.size(), 4);

        QCOMPARE(QSize(numbers[0].toInt(), numbers[1].toInt()), picture);
        const double held = numbers[2].toInt() / mebibyte;
        const double taken = numbers[3].toInt() * 1024 / mebibyte;
        qInfo("%.1f MiB", taken);
        QVERIFY2(taken > held - 1, "less than the picture itself: the measurement does not work");
        const double most =
            held > 1 ? 32 : 8; // MiB; the largest picture takes 25, a small one almost nothing
        QVERIFY2(taken < most, qPrintable(QString("%1 MiB").arg(taken)));
    }

    void effortIsBounded_data()
    {
        // Each entry is refused only at its very end. A reader that reads all of them to that point takes
        // several times as long as allowed.
        QTest::addColumn<DrawingBytes>("drawing");
        QTest::addColumn<qint64>("more"); // bytes: zeros and then end
        QTest::addColumn<QByteArray>("end");
        const auto add = [](const char *name, const StoredEntry &entry) {
            QTest::newRow(name) << drawingOfMany(entry) << qint64(0) << QByteArray();
        };
        const auto brokenAtTheEnd = [](const PngHeader &header) {
            QByteArray png = blankPng(header);
            const int checksumAt = png.indexOf("IEND") - 5;
            png[checksumAt] = static_cast<char>(~png.at(checksumAt));
            return pngEntry(png);
        };
        add("large PNGs", brokenAtTheEnd({2560, 2560}));
        add("long PNGs, interlaced", brokenAtTheEnd({200, 32767, 8, 6, true}));
        add("PNGs of two columns, interlaced", brokenAtTheEnd({2, 32767, 8, 6, true}));
        add("PNGs of one column", brokenAtTheEnd({1, 32767, 8, 6}));

        QByteArray splinters;
        for (int i = 0; i < 200000; ++i)
            splinters += QByteArray("\0\0\0\0tEXt\0\0\0\0", 12);
        add("PNGs in splinters", pngEntry(blankPng({64, 64}).chopped(12) + splinters));

        const EndlessPng endless;
        StoredEntry endlessEntry = pngEntry(endless.start);
        endlessEntry.size = endless.size();
        QTest::newRow("PNGs with an endless chunk")
            << drawingOfMany(endlessEntry) << qint64(endless.size()) - endless.start.size() << endless.end;

        BitmapBytes runs = with(blankBitmap(8, 2560, 2560), &BitmapBytes::compression, 1U);
        for (int jump = 0; jump < 500000; ++jump)
            runs.pixels += QByteArray("\0\2\0\0", 4);
        add("bitmaps in runs without progress", bitmapEntry(runs.bytes()));
        runs.width = 1;
        runs.height = 32767;
        add("bitmaps of one column in runs without progress", bitmapEntry(runs.bytes()));
    }

    void effortIsBounded()
    {
        QFETCH(DrawingBytes, drawing);
        QFETCH(qint64, more);
        QFETCH(QByteArray, end);
        const QString path = m_dir.filePath("many.dwg");
        writeSparse(path, drawing, more, end);
        // Processor time, which a busy machine does not change.
        const std::clock_t start = std::clock();
        QVERIFY(fxhost::readPreview(path).isNull());
        const double seconds = double(std::clock() - start) / CLOCKS_PER_SEC;
        qInfo("%.3f s", seconds);
        const double most = memory::isMeasurable ? 0.8 : 5; // ten times what it takes
        QVERIFY2(seconds < most, qPrintable(QString("%1 s").arg(seconds)));
    }

private:
    //! \param picture its size \param dataSize of the entry, in bytes; its data are filled up with zeros and
    //! end
    void addDrawing(const char *name, const StoredEntry &entry, const QSize &picture, quint32 dataSize,
                    const QByteArray &end = {})
    {
        const QString path = m_dir.filePath(QString(name) + ".dwg");
        DrawingBytes drawing = drawingWith(entry);
        const auto heldSize = static_cast<quint32>(entry.data.size());
        drawing.entries.last().size = qMax(dataSize, heldSize);
        writeSparse(path, drawing, qMax(dataSize, heldSize) - heldSize, end);
        QTest::newRow(name) << path << picture;
    }

    QTemporaryDir m_dir;
};

static int measureOrTest(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments.at(1) == QLatin1String("-measure"))
        return measure(arguments.mid(2));
    tst_PreviewLimits tests;
    return QTest::qExec(&tests, argc, argv);
}
static const bool tst_PreviewLimitsIsAdded = addTests("tst_PreviewLimits", measureOrTest);

#include "tst_previewlimits.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include "tests/support/PngBytes.h"
#include "tests/support/PreviewBytes.h"
#include "tests/support/SpecialFiles.h"
#include "tests/support/TestCase.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <functional>
#include <limits>
#include <utility>

#include <sys/syscall.h>
#include <unistd.h>

using namespace testbytes;

namespace {

//! What the reader's reads of a file go through, see pread() below.
struct ChangingFile
{
    int readsBefore = std::numeric_limits<int>::max(); //!< that still find the file as it was
    std::function<void()> change;                      //!< comes then
    int reads = 0;
};

ChangingFile changing;

} // namespace

//! Stands before the C library's for the whole program, libfxhost included: the one way to have a file change
//! between two given reads, each time.
extern "C" __attribute__((visibility("default"))) ssize_t pread(int fd, void *buf, size_t nbytes,
                                                                off_t offset)
{
    if (changing.reads++ == changing.readsBefore)
        changing.change();
    return static_cast<ssize_t>(::syscall(SYS_pread64, fd, buf, nbytes, offset));
}

//! What a path can lead to other than a file that keeps still.
class tst_PreviewFiles : public TestCase
{
    Q_OBJECT

private slots:
    void noSpecialFileIsWaitedFor_data();
    void noSpecialFileIsWaitedFor();
    void aFileThatShrinksWhileItIsReadGivesThePictureOrNone_data();
    void aFileThatShrinksWhileItIsReadGivesThePictureOrNone();
    void aFileThatIsReplacedWhileItIsReadGivesTheFormerPicture();
    void aFileThatIsWrittenOverWhileItIsReadGivesSomePictureOrNone();
};

void tst_PreviewFiles::noSpecialFileIsWaitedFor_data()
{
    addSpecialFileRows();
}

void tst_PreviewFiles::noSpecialFileIsWaitedFor()
{
    QFETCH(SpecialFile, kind);
    const SpecialFiles files;
    const Alarm alarm;
    QVERIFY(fxhost::readPreview(files.path(kind)).isNull());
}

void tst_PreviewFiles::aFileThatShrinksWhileItIsReadGivesThePictureOrNone_data()
{
    // Larger than the 16 KiB that Qt reads ahead, so that decoding takes more than one read.
    constexpr int width = 120;
    constexpr int height = 90;
    QTest::addColumn<StoredEntry>("entry");
    QTest::newRow("8 bit") << bitmapEntry(patternBitmap(8, width, height).bytes());
    QTest::newRow("32 bit") << bitmapEntry(patternBitmap(32, width, height).bytes());
    QTest::newRow("in runs") << bitmapEntry(inRuns(patternBitmap(8, width, height)).bytes());
    QTest::newRow("PNG") << pngEntry(pngOf(patternPicture(32, width, height)));
}

void tst_PreviewFiles::aFileThatShrinksWhileItIsReadGivesThePictureOrNone()
{
    allowWarning(QStringLiteral("libpng warning"));
    QFETCH(StoredEntry, entry);
    const DrawingBytes drawing = drawingWith(entry);
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("drawing.dwg"));
    changing = {};
    const QImage picture = fxhost::readPreview(writeFile(path, drawing.bytes()));
    const int readsInAll = changing.reads;
    QVERIFY(!picture.isNull());
    QVERIFY2(readsInAll > 4, "the reader does not read through pread()");

    const int dataAt = drawing.dataAt() + 80;
    const int dataEnd = dataAt + entry.data.size();
    for (const int size : {0, 16, drawing.sectionAt + 20, drawing.tableAt() + 1, dataAt + 20, dataAt + 60,
                           dataAt + entry.data.size() / 2, dataEnd - 1}) {
        for (int reads = 0; reads < readsInAll; ++reads) {
            writeFile(path, drawing.bytes());
            changing = {reads, [&] {
                            if (!QFile::resize(path, size))
                                qFatal("cannot shrink the file");
                        }};
            const QImage read = fxhost::readPreview(path);
            QVERIFY(read.isNull() || read == picture);
            if (reads == 0 && size < dataEnd - 1) // the last byte of all may be one that no pixel needs
                QVERIFY(read.isNull());
        }
    }
    changing = {};
}

void tst_PreviewFiles::aFileThatIsReplacedWhileItIsReadGivesTheFormerPicture()
{
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("drawing.dwg"));
    const QString newer = dir.filePath(QStringLiteral("newer.dwg"));
    const QByteArray former = drawingWith(bitmapEntry(patternBitmap(8, 120, 90).bytes())).bytes();
    const QByteArray other = drawingWith(pngEntry(pngOf(patternPicture(32, 50, 70)))).bytes();
    changing = {};
    const QImage picture = fxhost::readPreview(writeFile(path, former));
    const int readsInAll = changing.reads;
    QVERIFY(!picture.isNull());
    for (int reads = 0; reads < readsInAll; ++reads) {
        writeFile(path, former);
        writeFile(newer, other);
        changing = {reads, [&] {
                        if (::rename(newer.toLocal8Bit().constData(), path.toLocal8Bit().constData()) != 0)
                            qFatal("cannot replace the file");
                    }};
        QCOMPARE(fxhost::readPreview(path), picture);
        changing = {};
        QCOMPARE(fxhost::readPreview(path).size(), QSize(50, 70));
    }
}

void tst_PreviewFiles::aFileThatIsWrittenOverWhileItIsReadGivesSomePictureOrNone()
{
    allowWarning(QStringLiteral("libpng"));
    const QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("drawing.dwg"));
    const QByteArray bitmap = drawingWith(bitmapEntry(patternBitmap(8, 120, 90).bytes())).bytes();
    const QByteArray png = drawingWith(pngEntry(pngOf(patternPicture(32, 120, 90)))).bytes();
    for (const auto &[former, other] : {std::pair(bitmap, png), std::pair(png, bitmap)}) {
        changing = {};
        fxhost::readPreview(writeFile(path, former));
        const int readsInAll = changing.reads;
        for (int reads = 0; reads < readsInAll; ++reads) {
            writeFile(path, former);
            changing = {reads, [path = path, bytes = other] { writeFile(path, bytes); }};
            const QImage read = fxhost::readPreview(path);
            QVERIFY(read.isNull() || read.size() == QSize(120, 90));
        }
    }
    changing = {};
}

QTEST_GUILESS_MAIN(tst_PreviewFiles)
#include "tst_previewfiles.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewReader.h"

#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPng.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QTemporaryDir>

#include <cstdio>
#include <functional>
#include <limits>

#include <sys/syscall.h>
#include <unistd.h>

using namespace testbytes;

namespace {

//! A change of the file between two reads, see pread() below.
struct ChangingFile
{
    int readsBefore = std::numeric_limits<int>::max(); //!< reads of the unchanged file
    std::function<void()> change;                      //!< is called then
    int reads = 0;
};

ChangingFile changing;

} // namespace

//! Replaces the C library's function in the whole program, libfxhost included: only so a file can be changed
//! reliably between two given reads.
extern "C" __attribute__((visibility("default"))) ssize_t pread(int fd, void *buf, size_t nbytes,
                                                                off_t offset)
{
    if (changing.reads++ == changing.readsBefore)
        changing.change();
    return static_cast<ssize_t>(::syscall(SYS_pread64, fd, buf, nbytes, offset));
}

//! Files that change while they are read.
class tst_PreviewFiles : public TestCase
{
    Q_OBJECT

private slots:
    void aFileThatShrinksGivesThePictureOrNone_data()
    {
        // Larger than what is read at once, so that decoding takes more than one read.
        constexpr int width = 300;
        constexpr int height = 250;
        QTest::addColumn<StoredEntry>("entry");
        QTest::newRow("8 bit") << bitmapEntry(patternBitmap(8, width, height).bytes());
        QTest::newRow("32 bit") << bitmapEntry(patternBitmap(32, width, height).bytes());
        QTest::newRow("in runs") << bitmapEntry(inRuns(patternBitmap(8, width, height)).bytes());
        QTest::newRow("PNG") << pngEntry(pngOf(patternPicture(32, width, height)));
    }

    void aFileThatShrinksGivesThePictureOrNone()
    {
        QFETCH(StoredEntry, entry);
        const DrawingBytes drawing = with(drawingWith(entry), &DrawingBytes::sectionAt, 1000);
        const int dataAt = drawing.dataAt() + 80;
        const int dataEnd = dataAt + entry.data.size();
        for (const int size : {0, 16, drawing.sectionAt + 20, drawing.tableAt() + 1, dataAt + 20, dataAt + 60,
                               dataAt + entry.data.size() / 2, dataEnd - 1}) {
            const auto shrink = [&] {
                if (!QFile::resize(m_path, size))
                    qFatal("cannot shrink the file");
            };
            readWithChanges(drawing.bytes(), shrink,
                            [&](int reads, const QImage &picture, const QImage &read) {
                                QVERIFY(read.isNull() || read == picture);
                                if (reads == 0 && size < dataEnd - 1) // no pixel may need the last byte
                                    QVERIFY(read.isNull());
                            });
        }
    }

    void aFileThatIsReplacedGivesTheFormerPicture()
    {
        const auto replace = [&] {
            const QString newer = writeFile(m_folder.filePath("newer.dwg"), m_png);
            if (::rename(QFile::encodeName(newer).constData(), QFile::encodeName(m_path).constData()) != 0)
                qFatal("cannot replace the file");
        };
        readWithChanges(m_bitmap, replace, [&](int, const QImage &picture, const QImage &read) {
            QCOMPARE(read, picture);
            QCOMPARE(fxhost::readPreview(m_path).size(), QSize(50, 70));
        });
    }

    void aFileThatIsWrittenOverGivesSomePictureOrNone()
    {
        const auto check = [](int, const QImage & /*picture*/, const QImage &read) {
            QVERIFY(read.isNull() || read.size() == QSize(120, 90) || read.size() == QSize(50, 70));
        };
        readWithChanges(
            m_bitmap, [&] { overwrite(m_png); }, check);
        readWithChanges(
            m_png, [&] { overwrite(m_bitmap); }, check);
    }

private:
    //! Reads a file once as it is, and then with a change before each of its reads.
    template<class Check>
    void readWithChanges(const QByteArray &file, const std::function<void()> &change, const Check &check)
    {
        allowWarning("libpng"); // the decoder reports errors
        changing = {};
        const QImage picture = fxhost::readPreview(writeFile(m_path, file));
        const int readsInAll = changing.reads;
        QVERIFY(!picture.isNull());
        QVERIFY2(readsInAll > 2, "the reader does not read through pread()");
        for (int reads = 0; reads < readsInAll; ++reads) {
            writeFile(m_path, file);
            changing = {reads, change};
            const QImage read = fxhost::readPreview(m_path);
            changing = {};
            check(reads, picture, read);
        }
    }

    //! A drawing whose preview section is not in the first read.
    static QByteArray sectionApart(const StoredEntry &entry)
    {
        return with(drawingWith(entry), &DrawingBytes::sectionAt, 1000).bytes();
    }

    void overwrite(const QByteArray &bytes) const
    {
        QFile file(m_path); // the same one, unlike writeFile()
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write over the file");
    }

    const QByteArray m_bitmap = sectionApart(bitmapEntry(patternBitmap(8, 120, 90).bytes()));
    const QByteArray m_png = sectionApart(pngEntry(pngOf(patternPicture(32, 50, 70))));
    const QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath("drawing.dwg");
};

CORE_TEST_CLASS(tst_PreviewFiles);
#include "tst_previewfiles.moc"

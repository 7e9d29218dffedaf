// SPDX-License-Identifier: MIT
#include "host/runtime/preview/PreviewCache.h"

#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QTemporaryDir>

#include <fcntl.h>
#include <sys/stat.h>

using namespace testbytes;

namespace {

//! Drawings of equal size with different pictures.
QByteArray numbered(int number, int side = 20)
{
    BitmapBytes bitmap = patternBitmap(24, 1, 1);
    bitmap.width = bitmap.height = side;
    bitmap.pixels = QByteArray((3 * side + 3) / 4 * 4 * side, static_cast<char>(number));
    return drawingWith(bitmapEntry(bitmap.bytes())).bytes();
}

int numberIn(const QImage &picture)
{
    return qRed(picture.pixel(0, 0));
}

} // namespace

//! Pictures that the host keeps as long as their files do not change.
class tst_PreviewCache : public TestCase
{
    Q_OBJECT

private slots:
    void unchangedFileGivesTheSameImage()
    {
        writeFile(m_path, numbered(1));
        QTRY_VERIFY(isKept(m_path)); // when the file is old enough
        writeFile(m_path, numbered(2));
        QCOMPARE(numberIn(m_cache.read(m_path)), 2);
        QVERIFY(m_cache.read(m_folder.filePath("none.dwg")).isNull());
        QFile::remove(m_path);
        QVERIFY(m_cache.read(m_path).isNull());
    }

    void fileOfTheSameSizeAndTimeIsAnother()
    {
        const QString other = m_folder.filePath("other.dwg");
        writeFile(m_path, numbered(1));
        writeFile(other, numbered(2));
        struct stat status = {};
        QCOMPARE(::stat(QFile::encodeName(m_path).constData(), &status), 0);
        const auto setTime = [&](const QString &path) {
            const timespec times[] = {status.st_mtim, status.st_mtim};
            QCOMPARE(::utimensat(AT_FDCWD, QFile::encodeName(path).constData(), times, 0), 0);
        };
        setTime(m_path);
        QTRY_VERIFY(isKept(m_path));
        setTime(other);
        QCOMPARE(numberIn(m_cache.read(other)), 2);
        QFile file(m_path);
        QVERIFY(file.open(QIODevice::ReadWrite) && file.write(numbered(3)) > 0);
        file.close();
        setTime(m_path);
        QCOMPARE(numberIn(m_cache.read(m_path)), 3);
    }

    //! It could change once more between two steps of the clock that a file's times are taken from.
    void fileThatHasJustChangedIsReadAgain()
    {
        const auto isReadAgain = [&] {
            writeFile(m_path, numbered(1));
            return m_cache.read(m_path).cacheKey() != m_cache.read(m_path).cacheKey();
        };
        QTRY_VERIFY(isReadAgain()); // once this takes less than such a step
    }

    void noMoreIsKeptThanStated()
    {
        constexpr int side = 1000;
        constexpr int fit = fxhost::PreviewCache::mostBytes / (4 * side * side);
        QStringList paths;
        for (int i = 0; i < fit + 1; ++i)
            paths.append(writeFile(m_folder.filePath(QString("%1.dwg").arg(i)), numbered(i, side)));
        QVector<qint64> keys;
        for (const QString &path : qAsConst(paths)) {
            QTRY_VERIFY(isKept(path));
            keys.append(m_cache.read(path).cacheKey());
        }
        for (int i = fit; i > 0; --i)
            QCOMPARE(m_cache.read(paths.at(i)).cacheKey(), keys.at(i));
        QVERIFY(m_cache.read(paths.at(0)).cacheKey() != keys.at(0));
    }

private:
    bool isKept(const QString &path)
    {
        const qint64 key = m_cache.read(path).cacheKey();
        return key == m_cache.read(path).cacheKey();
    }

    const QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath("drawing.dwg");
    fxhost::PreviewCache m_cache;
};

CORE_TEST_CLASS(tst_PreviewCache);
#include "tst_previewcache.moc"

// SPDX-License-Identifier: MIT
#include "host/runtime/FxHost.h"
#include "host/runtime/preview/PreviewCache.h"
#include "host/runtime/recent/RecentFiles.h"
#include "module/RecentDocumentBrowser.h"
#include "tests/support/PoolOf.h"
#include "tests/support/TestCase.h"
#include "tests/support/bytes/BytesOfPng.h"
#include "tests/support/bytes/BytesOfPreview.h"

#include <QSemaphore>
#include <QTemporaryDir>

#include <atomic>
#include <optional>

using namespace testbytes;

namespace {

//! As many as a host's list may hold.
constexpr int count = fxhost::RecentFiles::largestMaximum;

//! No two documents have a picture of one size. In pixels.
QSize sizeOf(int document)
{
    return {1 + document % 40, 1 + document / 40};
}

//! The kinds of picture take turns.
bool isPng(int document)
{
    return document % 3 == 0;
}

QImage pictureOf(int document)
{
    const QSize size = sizeOf(document);
    return patternPicture(isPng(document) ? 32 : 24, size.width(), size.height());
}

QByteArray drawingOf(int document)
{
    const QSize size = sizeOf(document);
    return drawingWith(isPng(document) ? pngEntry(pngOf(pictureOf(document)))
                                       : bitmapEntry(patternBitmap(24, size.width(), size.height()).bytes()))
        .bytes();
}

QThreadPool &pool()
{
    return *QThreadPool::globalInstance();
}

} // namespace

//! The pictures of a thousand documents, read by the real host while the shared threads are busy.
class tst_CrowdedPool : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        for (int i = 0; i < count; ++i)
            m_paths.append(writeFile(m_folder.filePath(QStringLiteral("%1.dwg").arg(i)), drawingOf(i)));
        fxhost::PreviewCache cache;
        const QString &latest = m_paths.last();
        QTRY_COMPARE(cache.read(latest).cacheKey(), cache.read(latest).cacheKey()); // until old enough
    }

    void init()
    {
        m_host.emplace(m_folder.filePath(QStringLiteral("profile")), QString()); // has read nothing yet
        QVERIFY(m_host->recentFiles().setMaximum(count));
        m_host->recentFiles().setPaths(m_paths);
        QCOMPARE(m_host->recentFiles().paths(), m_paths);
    }

    void cleanup()
    {
        RecentDocumentBrowser::recentFileImageMap.clear();
        m_host.reset();
        TestCase::cleanup();
    }

    void picturesAreReadWhateverThePoolDoes_data()
    {
        QTest::addColumn<int>("threads");
        QTest::addColumn<int>("reserved");
        QTest::addColumn<int>("waiting"); // tasks that wait until the caller has returned
        QTest::newRow("many threads") << 16 << 0 << 0;
        QTest::newRow("a few") << 4 << 0 << 0;
        QTest::newRow("one") << 1 << 0 << 0;
        QTest::newRow("none") << 0 << 0 << 0;
        QTest::newRow("less than none") << -1 << 0 << 0;
        QTest::newRow("much less than none") << -1000 << 0 << 0;
        QTest::newRow("all are reserved") << 4 << 4 << 0;
        QTest::newRow("more are reserved than there are") << 4 << 9 << 0;
        QTest::newRow("its only thread waits") << 1 << 0 << 1;
        QTest::newRow("all threads wait") << 4 << 0 << 4;
        QTest::newRow("all threads wait, and tasks for them") << 4 << 0 << 12;
        QTest::newRow("all but one thread wait") << 4 << 0 << 3;
    }

    void picturesAreReadWhateverThePoolDoes()
    {
        QFETCH(int, threads);
        QFETCH(int, reserved);
        QFETCH(int, waiting);
        const PoolOf size(threads);
        for (int i = 0; i < reserved; ++i)
            pool().reserveThread();
        QSemaphore started;
        QSemaphore callerHasReturned;
        std::atomic<int> ended{0};
        for (int i = 0; i < waiting; ++i) {
            pool().start([&] {
                started.release();
                callerHasReturned.acquire();
                ++ended;
            });
        }
        started.acquire(qBound(0, threads, waiting));
        QMetaObject::invokeMethod(
            this, [&] { callerHasReturned.release(waiting); }, Qt::QueuedConnection);
        RecentDocumentBrowser::CreateRecentFileImageMap();
        QCOMPARE(wrongDocuments(), QList<int>());
        const QMap<QString, QImage> decoded = RecentDocumentBrowser::recentFileImageMap;
        RecentDocumentBrowser::CreateRecentFileImageMap(); // finds the threads waiting, and the pictures kept
        QCOMPARE(wrongDocuments(), QList<int>());
        for (const QString &path : qAsConst(m_paths)) {
            const QImage kept = RecentDocumentBrowser::recentFileImageMap.value(path);
            QCOMPARE(kept.cacheKey(), decoded.value(path).cacheKey());
        }
        QCOMPARE(ended.load(), 0); // they still wait
        drainEvents();
        pool().waitForDone();
        QCOMPARE(ended.load(), waiting);
        for (int i = 0; i < reserved; ++i)
            pool().releaseThread();
    }

    void picturesAreReadWhileThePoolReadsTheSameFiles()
    {
        constexpr int threads = 3;
        constexpr int tasks = 2 * threads; // as many again wait in the pool's queue
        const PoolOf size(threads);
        QSemaphore started;
        std::atomic<int> pictures{0};
        for (int i = 0; i < tasks; ++i) {
            pool().start([&] {
                started.release();
                for (const QString &path : qAsConst(m_paths)) {
                    if (!RecentDocumentBrowser::GetQImage(path).isNull())
                        ++pictures;
                }
            });
        }
        started.acquire(threads);
        RecentDocumentBrowser::CreateRecentFileImageMap();
        QCOMPARE(wrongDocuments(), QList<int>());
        pool().waitForDone();
        QCOMPARE(pictures.load(), tasks * count);
    }

private:
    //! The documents that do not have their picture in the cache; -1 for others that it holds.
    QList<int> wrongDocuments() const
    {
        QList<int> wrong;
        for (int i = 0; i < count; ++i) {
            const QImage read = RecentDocumentBrowser::recentFileImageMap.value(m_paths.at(i));
            if (read.convertToFormat(QImage::Format_RGB32) != pictureOf(i))
                wrong.append(i);
        }
        if (RecentDocumentBrowser::recentFileImageMap.size() != count)
            wrong.append(-1);
        return wrong;
    }

    QTemporaryDir m_folder;
    std::optional<fxhost::FxHost> m_host;
    QStringList m_paths;
};

TEST_CLASS(tst_CrowdedPool);
#include "tst_crowdedpool.moc"

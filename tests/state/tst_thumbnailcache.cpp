// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "tests/support/PoolOf.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "ui/RecentDocMainWindow.h"

#include <QDir>

#include <atomic>
#include <set>
#include <stdexcept>
#include <thread>
#include <utility>

using WhatTheHostHas = bool FakeHost::*;
Q_DECLARE_METATYPE(WhatTheHostHas)

namespace {

void throwSomething(const QString &what)
{
    struct Unrelated
    {
    };
    if (what == QLatin1String("runtime_error"))
        throw std::runtime_error("the reader gives up");
    if (what == QLatin1String("bad_alloc"))
        throw std::bad_alloc();
    if (what == QLatin1String("int"))
        throw 7;
    throw Unrelated();
}

//! The cache, after it was read again.
const QMap<QString, QImage> &cacheReadAgain()
{
    RecentDocumentBrowser::CreateRecentFileImageMap();
    return RecentDocumentBrowser::recentFileImageMap;
}

} // namespace

//! How pictures are read, one and many, and when the cache contains them. tst_crowdedpool tests more threads,
//! and more documents.
class tst_ThumbnailCache : public TestCase
{
    Q_OBJECT

private slots:
    void filesAloneAreRead_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isRead");
        QTest::newRow("a file") << "/drawing 1.dwg" << true;
        QTest::newRow("a link to it") << "/link.dwg" << true; // under the name that was given
        QTest::newRow("a missing file") << "/missing.dwg" << false;
        QTest::newRow("a file below a file") << "/drawing 1.dwg/a.dwg" << false;
        QTest::newRow("a folder") << "/folder.dwg" << false;
        QTest::newRow("a link to nothing") << "/dangling.dwg" << false;
        QTest::newRow("no path") << QString() << false;
    }

    void filesAloneAreRead()
    {
        QFETCH(QString, name);
        QFETCH(bool, isRead);
        const FakeBrowser browser(1);
        QVERIFY(QDir(browser.folder()).mkdir(QStringLiteral("folder.dwg")));
        QVERIFY(QFile::link(browser.path(0), browser.folder() + QStringLiteral("/link.dwg")));
        QVERIFY(QFile::link(browser.folder() + QStringLiteral("/missing.dwg"),
                            browser.folder() + QStringLiteral("/dangling.dwg")));
        const QString path = name.isEmpty() ? QString() : browser.folder() + name;
        QCOMPARE(RecentDocumentBrowser::GetQImage(path), isRead ? pictureOf(path) : QImage());
        QCOMPARE(browser.host.previewsCreated(), isRead ? 1 : 0);
    }

    void thePictureStaysAsTheHostFillsIt()
    {
        for (QImage picture :
             {QImage(1, 1, QImage::Format_RGB32), QImage(33, 7, QImage::Format_Mono),
              QImage(256, 128, QImage::Format_Indexed8), QImage(180, 90, QImage::Format_ARGB32),
              QImage(1200, 900, QImage::Format_RGB888), QImage()}) {
            if (!picture.isNull())
                picture.fill(1);
            FakeBrowser browser(1);
            browser.host.onLoadPreview = [&](const QString & /*path*/, QImage &image) {
                image = picture;
                return true;
            };
            const QImage read = RecentDocumentBrowser::GetQImage(browser.path(0));
            QCOMPARE(read.format(), picture.format());
            QCOMPARE(read, picture);
        }
    }

    void stepsFollowEachOther_data()
    {
        QTest::addColumn<bool>("loads");
        QTest::addColumn<bool>("isValid");
        QTest::addColumn<QString>("steps");
        QTest::newRow("a good picture") << true << true << "create load validate convert converted";
        QTest::newRow("nothing to load") << false << true << "create load";
        QTest::newRow("an invalid picture") << true << false << "create load validate";
    }

    void stepsFollowEachOther()
    {
        QFETCH(bool, loads);
        QFETCH(bool, isValid);
        QFETCH(QString, steps);
        FakeBrowser browser(1);
        QStringList loaded;
        browser.host.onLoadPreview = [&](const QString &path, QImage &image) {
            loaded.append(path);
            image = pictureOf(path);
            return loads;
        };
        browser.host.previewsAreValid = isValid;
        QStringList taken;
        browser.host.onPreviewStep = [&](const QString &step) { taken.append(step); };
        const QImage read = RecentDocumentBrowser::GetQImage(browser.path(0));
        QCOMPARE(taken.join(QLatin1Char(' ')), steps);
        QCOMPARE(loaded, browser.paths());
        QCOMPARE(read, loads && isValid ? pictureOf(browser.path(0)) : QImage());
        QCOMPARE(browser.host.previewsAlive(), 0);
    }

    void anyExceptionOfTheHostIsIgnored()
    {
        for (const char *step : {"create", "load", "validate", "convert", "converted"}) {
            for (const char *what : {"runtime_error", "bad_alloc", "int", "unrelated class"}) {
                FakeBrowser browser(1);
                browser.host.onPreviewStep = [&](const QString &reached) {
                    if (reached == QLatin1String(step))
                        throwSomething(QLatin1String(what));
                };
                const QImage read = RecentDocumentBrowser::GetQImage(browser.path(0));
                // A picture that was filled before the host threw is still one.
                const bool isFilled = qstrcmp(step, "converted") == 0;
                QCOMPARE(read, isFilled ? pictureOf(browser.path(0)) : QImage());
                QCOMPARE(browser.host.previewsAlive(), 0);
            }
        }
    }

    void readingTouchesNoState()
    {
        const FakeBrowser browser(1);
        QImage read;
        std::thread reader([&] { read = RecentDocumentBrowser::GetQImage(browser.path(0)); });
        reader.join();
        QCOMPARE(read, pictureOf(browser.path(0)));
        QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());
        QCOMPARE(browser.host.calls, QStringList());
    }

    void threadsJoinWhenTheyBecomeIdle()
    {
        FullPool pool; // at first only the caller reads
        FakeBrowser browser(6);
        const std::thread::id caller = std::this_thread::get_id();
        bool isFirst = true;
        bool hasCompany = false;
        QSemaphore company;
        browser.host.onLoadPreview = [&](const QString & /*path*/, QImage & /*image*/) {
            if (std::this_thread::get_id() != caller) {
                company.release(6);
            } else if (std::exchange(isFirst, false)) {
                pool.release();
            } else {
                hasCompany = company.tryAcquire(1, patience);
            }
            return false;
        };
        RecentDocumentBrowser::CreateRecentFileImageMap();
        QVERIFY(hasCompany);
    }

    void noMoreAreReadAtOnceThanThePoolHasThreads()
    {
        for (const int threads : {1, 2, 3}) {
            const PoolOf pool(threads);
            FakeBrowser browser(40);
            std::atomic<int> reading{0};
            std::atomic<int> most{0};
            browser.host.onLoadPreview = [&](const QString & /*path*/, QImage & /*image*/) {
                const int now = ++reading;
                for (int before = most; now > before && !most.compare_exchange_weak(before, now);) {}
                std::this_thread::yield();
                --reading;
                return false;
            };
            RecentDocumentBrowser::CreateRecentFileImageMap();
            QVERIFY2(most.load() >= 1 && most.load() <= threads, qPrintable(QString::number(most.load())));
            QCOMPARE(QThreadPool::globalInstance()->maxThreadCount(), threads); // as the host set it
        }
    }

    void picturesBelongToTheirPathsWhateverTheOrder()
    {
        const PoolOf pool(2);
        constexpr int count = 60; // more documents than threads
        FakeBrowser browser(count);
        QSemaphore othersDone;
        std::atomic<bool> firstWasLast{false};
        browser.host.onLoadPreview = [&](const QString &path, QImage &image) {
            if (path == browser.path(0)) // ends when another thread has read all the others
                firstWasLast = othersDone.tryAcquire(count - 1, patience);
            else
                othersDone.release();
            image = pictureOf(path);
            return true;
        };
        const QMap<QString, QImage> &map = cacheReadAgain();
        QVERIFY(firstWasLast);
        QCOMPARE(map.size(), count);
        for (auto entry = map.begin(); entry != map.end(); ++entry)
            QCOMPARE(entry.value(), pictureOf(entry.key()));
    }

    void ofEqualPathsTheLaterPictureStays()
    {
        const PoolOf pool(1); // one reader keeps to the list's order
        FakeBrowser browser(2);
        browser.host.setRecent({browser.path(0), browser.path(1), browser.path(0)});
        int reads = 0;
        std::set<std::thread::id> readers;
        browser.host.onLoadPreview = [&](const QString & /*path*/, QImage &image) {
            readers.insert(std::this_thread::get_id());
            image = QImage(++reads, 1, QImage::Format_RGB32); // as wide as its place in the list
            image.fill(Qt::red);
            return true;
        };
        const QMap<QString, QImage> &map = cacheReadAgain();
        QCOMPARE(reads, 3);
        QCOMPARE(readers, std::set<std::thread::id>{std::this_thread::get_id()});
        QCOMPARE(map.size(), 2);
        QCOMPARE(map.value(browser.path(0)).width(), 3);
        QCOMPARE(map.value(browser.path(1)).width(), 2);
    }

    void keysAreThePathsExactlyAsListed()
    {
        FakeBrowser browser;
        QStringList paths;
        for (const char *name :
             {"/a.dwg", "/A.dwg", "//a.dwg", "/./a.dwg", "\\a.dwg", "/a.dwg ", "/\u00e9.dwg", // composed,
              "/e\u0301.dwg",                                                                 // and not
              "/\U0001D538.dwg"})
            paths.append(browser.folder() + QString::fromUtf8(name));
        browser.host.setRecent(paths);
        paths.sort(); // by operator<, as the map's keys are
        QCOMPARE(cacheReadAgain().keys(), paths);
    }

    void aDocumentWithoutPictureKeepsItsKey()
    {
        FakeBrowser browser(5);
        QVERIFY(QFile::remove(browser.path(1)));
        browser.host.onLoadPreview = [&](const QString &path, QImage &image) {
            if (path == browser.path(2))
                throw 5; // any exception
            image = pictureOf(path);
            return path != browser.path(3);
        };
        const QMap<QString, QImage> &map = cacheReadAgain();
        QCOMPARE(map.keys(), browser.paths());
        for (int i = 0; i < 5; ++i)
            QCOMPARE(map.value(browser.path(i)), i == 0 || i == 4 ? pictureOf(browser.path(i)) : QImage());
        QCOMPARE(browser.host.previewsCreated(), 4);
        QCOMPARE(browser.host.previewsAlive(), 0);
    }

    void theCacheIsReplacedAsAWhole_data()
    {
        QTest::addColumn<WhatTheHostHas>("lacking");
        QTest::addColumn<int>("documents");
        QTest::newRow("one document") << WhatTheHostHas() << 1;
        QTest::newRow("none") << WhatTheHostHas() << 0;
        QTest::newRow("no services") << &FakeHost::hasServices << 1;
        QTest::newRow("no application") << &FakeHost::hasApplication << 1;
        QTest::newRow("no profile") << &FakeHost::hasUserProfile << 1;
        QTest::newRow("no list") << &FakeHost::hasRecentFileList << 1;
    }

    void theCacheIsReplacedAsAWhole()
    {
        QFETCH(WhatTheHostHas, lacking);
        QFETCH(int, documents);
        FakeBrowser browser(documents);
        if (lacking)
            browser.host.*lacking = false;
        const QString stale = QStringLiteral("/no such/stale.dwg");
        const QImage image(1, 1, QImage::Format_RGB32);
        RecentDocumentBrowser::recentFileImageMap = {{stale, image}, {browser.paths().value(0), image}};
        const bool isRead = documents > 0 && !lacking;
        QCOMPARE(cacheReadAgain().keys(), isRead ? browser.paths() : QStringList());
        QCOMPARE(RecentDocumentBrowser::recentFileImageMap.value(browser.paths().value(0)),
                 isRead ? pictureOf(browser.path(0)) : QImage());
        QCOMPARE(browser.host.previewsCreated(), isRead ? 1 : 0);
    }

    void aPopupBuildsTheCacheOnlyWhenItIsEmpty()
    {
        FakeBrowser browser(3);
        const QMap<QString, QImage> &map = RecentDocumentBrowser::recentFileImageMap;
        browser.host.setRecent({});
        browser.openPopup();
        QVERIFY(map.isEmpty()); // so the next one tries again
        browser.host.setRecent(browser.paths());
        browser.createDocument();
        browser.openPopup();
        QCOMPARE(map.keys(), browser.paths());
        QCOMPARE(browser.host.previewsCreated(), 3);

        browser.host.onLoadPreview = nullptr; // as if the files had changed
        browser.openPopup();
        QCOMPARE(browser.host.previewsCreated(), 3);
        QCOMPARE(map.value(browser.path(0)), pictureOf(browser.path(0)));

        browser.createDocument(); // after which they are read again
        QVERIFY(map.isEmpty());
        browser.openPopup();
        QCOMPARE(browser.host.previewsCreated(), 6);
        QCOMPARE(map.keys(), browser.paths());
    }
};

TEST_CLASS(tst_ThumbnailCache);
#include "tst_thumbnailcache.moc"

// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "tests/support/Browser.h"
#include "tests/support/PoolOf.h"
#include "tests/support/TestCase.h"

#include <QDir>
#include <QSemaphore>
#include <QThreadPool>

#include <atomic>
#include <set>
#include <stdexcept>
#include <thread>
#include <utility>

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

} // namespace

//! How pictures are read: one, and many on several threads.
class tst_PreviewReading : public TestCase
{
    Q_OBJECT

private slots:
    void onlyFilesAreRead_data();
    void onlyFilesAreRead();
    void aLinkToAFileIsAFile();
    void thePictureStaysAsTheHostFillsIt_data();
    void thePictureStaysAsTheHostFillsIt();
    void stepsFollowEachOther_data();
    void stepsFollowEachOther();
    void whateverTheHostThrowsIsDropped_data();
    void whateverTheHostThrowsIsDropped();
    void readingTouchesNoState();
    void severalAreReadAtOnce_data();
    void severalAreReadAtOnce();
    void threadsJoinAsTheyGetFree();
    void noMoreAreReadAtOnceThanThePoolHasThreads_data();
    void noMoreAreReadAtOnceThanThePoolHasThreads();
    void picturesBelongToTheirPathsWhateverTheOrder();
    void theCallerWaitsForAllOfThem();
    void aFullPoolIsNotWaitedFor();
    void ofEqualPathsTheLaterPictureStays();
    void exceptionsOfOneThreadLeaveTheOthersAlone();
};

void tst_PreviewReading::onlyFilesAreRead_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("a missing file") << QStringLiteral("/missing.dwg");
    QTest::newRow("a file below a file") << QStringLiteral("/drawing 1.dwg/a.dwg");
    QTest::newRow("a folder") << QStringLiteral("/folder.dwg");
    QTest::newRow("a link to nothing") << QStringLiteral("/dangling.dwg");
    QTest::newRow("no path") << QString();
}

void tst_PreviewReading::onlyFilesAreRead()
{
    QFETCH(QString, name);
    const Browser browser(1);
    QVERIFY(QDir(browser.folder()).mkdir(QStringLiteral("folder.dwg")));
    QVERIFY(QFile::link(browser.folder() + QStringLiteral("/gone.dwg"),
                        browser.folder() + QStringLiteral("/dangling.dwg")));
    const QString path = name.isEmpty() ? QString() : browser.folder() + name;
    QVERIFY(RecentDocumentBrowser::GetQImage(path).isNull());
    QCOMPARE(browser.host.previewsCreated(), 0);
}

void tst_PreviewReading::aLinkToAFileIsAFile()
{
    const Browser browser(1);
    const QString link = browser.folder() + QStringLiteral("/link.dwg");
    QVERIFY(QFile::link(browser.path(0), link));
    QCOMPARE(RecentDocumentBrowser::GetQImage(link), pictureOf(link)); // under the name that was given
}

void tst_PreviewReading::thePictureStaysAsTheHostFillsIt_data()
{
    QTest::addColumn<QImage>("picture");
    QTest::newRow("one pixel") << QImage(1, 1, QImage::Format_RGB32);
    QTest::newRow("two colours") << QImage(33, 7, QImage::Format_Mono);
    QTest::newRow("a palette") << QImage(256, 128, QImage::Format_Indexed8);
    QTest::newRow("translucent") << QImage(180, 90, QImage::Format_ARGB32);
    QTest::newRow("large") << QImage(1200, 900, QImage::Format_RGB888);
    QTest::newRow("none") << QImage();
}

void tst_PreviewReading::thePictureStaysAsTheHostFillsIt()
{
    QFETCH(QImage, picture);
    if (!picture.isNull())
        picture.fill(1);
    Browser browser(1);
    browser.host.onLoadPreview = [&](const QString & /*path*/, QImage &image) {
        image = picture;
        return true;
    };
    const QImage read = RecentDocumentBrowser::GetQImage(browser.path(0));
    QCOMPARE(read.format(), picture.format());
    QCOMPARE(read.size(), picture.size());
    QCOMPARE(read, picture);
}

void tst_PreviewReading::stepsFollowEachOther_data()
{
    QTest::addColumn<bool>("loads");
    QTest::addColumn<bool>("isValid");
    QTest::addColumn<QStringList>("steps");
    const QString create = QStringLiteral("create");
    const QString load = QStringLiteral("load");
    const QString validate = QStringLiteral("validate");
    QTest::newRow("a good picture") << true << true
                                    << QStringList({create, load, validate, QStringLiteral("convert"),
                                                    QStringLiteral("converted")});
    QTest::newRow("nothing to load") << false << true << QStringList({create, load});
    QTest::newRow("an invalid picture") << true << false << QStringList({create, load, validate});
}

void tst_PreviewReading::stepsFollowEachOther()
{
    QFETCH(bool, loads);
    QFETCH(bool, isValid);
    QFETCH(QStringList, steps);
    Browser browser(1);
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
    QCOMPARE(taken, steps);
    QCOMPARE(loaded, browser.paths());
    QCOMPARE(read, loads && isValid ? pictureOf(browser.path(0)) : QImage());
    QCOMPARE(browser.host.previewsAlive(), 0);
}

void tst_PreviewReading::whateverTheHostThrowsIsDropped_data()
{
    QTest::addColumn<QString>("step");
    QTest::addColumn<QString>("what");
    for (const char *step : {"create", "load", "validate", "convert", "converted"}) {
        for (const char *what : {"runtime_error", "bad_alloc", "int", "unrelated class"})
            QTest::addRow("%s: %s", step, what) << QString::fromLatin1(step) << QString::fromLatin1(what);
    }
}

void tst_PreviewReading::whateverTheHostThrowsIsDropped()
{
    QFETCH(QString, step);
    QFETCH(QString, what);
    Browser browser(1);
    browser.host.onPreviewStep = [&](const QString &reached) {
        if (reached == step)
            throwSomething(what);
    };
    const QImage read = RecentDocumentBrowser::GetQImage(browser.path(0));
    // A picture that was filled before the host threw is still one.
    QCOMPARE(read, step == QLatin1String("converted") ? pictureOf(browser.path(0)) : QImage());
    QCOMPARE(browser.host.previewsAlive(), 0);
}

void tst_PreviewReading::readingTouchesNoState()
{
    const Browser browser(1);
    QVERIFY(!RecentDocumentBrowser::GetQImage(browser.path(0)).isNull());
    QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());
    QCOMPARE(browser.host.calls, QStringList());

    QImage fromAnotherThread;
    std::thread reader([&] { fromAnotherThread = RecentDocumentBrowser::GetQImage(browser.path(0)); });
    reader.join();
    QCOMPARE(fromAnotherThread, pictureOf(browser.path(0)));
}

void tst_PreviewReading::severalAreReadAtOnce_data()
{
    QTest::addColumn<int>("threads");
    QTest::newRow("two threads") << 2;
    QTest::newRow("four threads") << 4;
}

void tst_PreviewReading::severalAreReadAtOnce()
{
    QFETCH(int, threads);
    const PoolOf pool(threads);
    Browser browser(8);
    std::atomic<int> arrived{0};
    std::atomic<int> lonely{0};
    QSemaphore company; // no read goes on before a second one has begun
    browser.host.onLoadPreview = [&](const QString &path, QImage &image) {
        if (++arrived == 2)
            company.release(8);
        if (!company.tryAcquire(1, patience))
            ++lonely;
        image = pictureOf(path);
        return true;
    };
    RecentDocumentBrowser::CreateRecentFileImageMap();
    QCOMPARE(lonely.load(), 0);
    QCOMPARE(arrived.load(), 8);
}

void tst_PreviewReading::threadsJoinAsTheyGetFree()
{
    FullPool pool; // at first nobody but the caller reads
    Browser browser(6);
    const std::thread::id caller = std::this_thread::get_id();
    bool isFirst = true;
    bool hasCompany = false;
    QSemaphore company;
    browser.host.onLoadPreview = [&](const QString & /*path*/, QImage & /*image*/) {
        if (std::this_thread::get_id() != caller) {
            company.release(6);
        } else if (std::exchange(isFirst, false)) {
            pool.letGo();
        } else {
            hasCompany = company.tryAcquire(1, patience);
        }
        return false;
    };
    RecentDocumentBrowser::CreateRecentFileImageMap();
    QVERIFY(hasCompany);
}

void tst_PreviewReading::noMoreAreReadAtOnceThanThePoolHasThreads_data()
{
    QTest::addColumn<int>("threads");
    for (const int threads : {1, 2, 3})
        QTest::newRow(qPrintable(QString::number(threads))) << threads;
}

void tst_PreviewReading::noMoreAreReadAtOnceThanThePoolHasThreads()
{
    QFETCH(int, threads);
    QVERIFY(QThreadPool::globalInstance()->waitForDone()); // none is left over from before
    const PoolOf pool(threads);
    Browser browser(40);
    std::atomic<int> reading{0};
    std::atomic<int> most{0};
    browser.host.onLoadPreview = [&](const QString &path, QImage &image) {
        const int now = ++reading;
        for (int before = most; now > before && !most.compare_exchange_weak(before, now);) {}
        std::this_thread::yield();
        image = pictureOf(path);
        --reading;
        return true;
    };
    RecentDocumentBrowser::CreateRecentFileImageMap();
    QVERIFY2(most.load() >= 1 && most.load() <= threads, qPrintable(QString::number(most.load())));
    QCOMPARE(QThreadPool::globalInstance()->maxThreadCount(), threads); // and it is the host's again
}

void tst_PreviewReading::picturesBelongToTheirPathsWhateverTheOrder()
{
    const PoolOf pool(4);
    constexpr int count = 60; // more documents than threads
    Browser browser(count);
    QSemaphore othersDone;
    std::atomic<bool> firstWasLast{false};
    browser.host.onLoadPreview = [&](const QString &path, QImage &image) {
        if (path == browser.path(0))
            firstWasLast = othersDone.tryAcquire(count - 1, patience);
        else
            othersDone.release();
        image = pictureOf(path);
        return true;
    };
    RecentDocumentBrowser::CreateRecentFileImageMap();
    QVERIFY(firstWasLast);
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), count);
    const QStringList paths = browser.paths();
    for (const QString &path : paths)
        QCOMPARE(RecentDocumentBrowser::recentFileImageMap.value(path), pictureOf(path));
}

void tst_PreviewReading::theCallerWaitsForAllOfThem()
{
    const PoolOf pool(4);
    Browser browser(12);
    std::atomic<int> ended{0};
    browser.host.onPreviewStep = [&](const QString &step) {
        if (step == QLatin1String("converted"))
            ++ended;
    };
    bool eventDelivered = false;
    QMetaObject::invokeMethod(
        this, [&] { eventDelivered = true; }, Qt::QueuedConnection);
    RecentDocumentBrowser::CreateRecentFileImageMap();
    QVERIFY(!eventDelivered);
    QCOMPARE(ended.load(), 12);
    QCOMPARE(browser.host.previewsAlive(), 0);
    drainEvents();
    QVERIFY(eventDelivered);
}

void tst_PreviewReading::aFullPoolIsNotWaitedFor()
{
    FullPool pool;
    Browser browser(6);
    std::set<std::thread::id> readers;
    browser.host.onLoadPreview = [&](const QString &path, QImage &image) {
        readers.insert(std::this_thread::get_id());
        image = pictureOf(path);
        return true;
    };
    RecentDocumentBrowser::CreateRecentFileImageMap();
    pool.letGo(); // and not before
    QCOMPARE(readers, std::set<std::thread::id>{std::this_thread::get_id()});
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), 6);
    const QStringList paths = browser.paths();
    for (const QString &path : paths)
        QCOMPARE(RecentDocumentBrowser::recentFileImageMap.value(path), pictureOf(path));
}

void tst_PreviewReading::ofEqualPathsTheLaterPictureStays()
{
    const PoolOf pool(1); // one reader keeps to the list's order
    Browser browser(2);
    browser.host.setRecent({browser.path(0), browser.path(1), browser.path(0)});
    int reads = 0;
    std::set<std::thread::id> readers;
    browser.host.onLoadPreview = [&](const QString & /*path*/, QImage &image) {
        readers.insert(std::this_thread::get_id());
        image = QImage(++reads, 1, QImage::Format_RGB32); // as wide as its place in the list
        image.fill(Qt::red);
        return true;
    };
    RecentDocumentBrowser::CreateRecentFileImageMap();
    QCOMPARE(reads, 3);
    QCOMPARE(readers.size(), std::size_t(1));
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), 2);
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.value(browser.path(0)).width(), 3);
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.value(browser.path(1)).width(), 2);
}

void tst_PreviewReading::exceptionsOfOneThreadLeaveTheOthersAlone()
{
    const PoolOf pool(4);
    Browser browser(40);
    browser.host.onLoadPreview = [&](const QString &path, QImage &image) {
        if (browser.paths().indexOf(path) % 3 == 1)
            throwSomething(QStringLiteral("unrelated class"));
        image = pictureOf(path);
        return true;
    };
    RecentDocumentBrowser::CreateRecentFileImageMap();
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), 40);
    for (int i = 0; i < 40; ++i)
        QCOMPARE(RecentDocumentBrowser::recentFileImageMap.value(browser.path(i)),
                 i % 3 == 1 ? QImage() : pictureOf(browser.path(i)));
    QCOMPARE(browser.host.previewsAlive(), 0);
}

QTEST_MAIN(tst_PreviewReading)
#include "tst_previewreading.moc"

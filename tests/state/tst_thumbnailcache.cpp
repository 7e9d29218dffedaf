// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocMainWindow.h"

#include <QDir>

namespace {

const QString stalePath = QStringLiteral("/no such/stale.dwg");

QImage staleImage()
{
    return QImage(1, 1, QImage::Format_RGB32);
}

} // namespace

//! What the cache holds, and when it is built.
class tst_ThumbnailCache : public TestCase
{
    Q_OBJECT

private slots:
    void eachDocumentHasItsPicture();
    void keysAreThePathsExactlyAsListed_data();
    void keysAreThePathsExactlyAsListed();
    void aDocumentWithoutPictureKeepsItsKey();
    void aVanishedDocumentKeepsItsKey();
    void theCacheIsReplacedAsAWhole();
    void withoutDocumentsTheCacheIsEmptied_data();
    void withoutDocumentsTheCacheIsEmptied();
    void aPopupBuildsTheCacheOnlyWhenItIsEmpty();
    void aDocumentMakesTheNextPopupReadAgain();
    void aPopupWithoutDocumentsLeavesTheNextOneToTryAgain();
};

void tst_ThumbnailCache::eachDocumentHasItsPicture()
{
    const Browser browser(5);
    RecentDocumentBrowser::CreateRecentFileImageMap();
    const QMap<QString, QImage> &map = RecentDocumentBrowser::recentFileImageMap;
    QCOMPARE(map.size(), 5);
    const QStringList paths = browser.paths();
    for (const QString &path : paths)
        QCOMPARE(map.value(path), pictureOf(path));
    QCOMPARE(browser.host.previewsCreated(), 5);
    QCOMPARE(browser.host.previewsAlive(), 0);
}

void tst_ThumbnailCache::keysAreThePathsExactlyAsListed_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("different case") << QStringList({QStringLiteral("/a.dwg"), QStringLiteral("/A.dwg")});
    QTest::newRow("different separators")
        << QStringList({QStringLiteral("/a.dwg"), QStringLiteral("//a.dwg"), QStringLiteral("/./a.dwg"),
                        QStringLiteral("\\a.dwg")});
    QTest::newRow("blanks at the end") << QStringList({QStringLiteral("/a.dwg"), QStringLiteral("/a.dwg ")});
    QTest::newRow("composed and decomposed letters")
        << QStringList({QStringLiteral("/\u00e9.dwg"), QStringLiteral("/e\u0301.dwg")});
    QTest::newRow("letters outside of the basic plane") << QStringList(QStringLiteral("/\U0001D538.dwg"));
}

void tst_ThumbnailCache::keysAreThePathsExactlyAsListed()
{
    QFETCH(QStringList, names);
    Browser browser;
    QStringList paths;
    for (const QString &name : names)
        paths.append(browser.folder() + name);
    browser.host.setRecent(paths);
    RecentDocumentBrowser::CreateRecentFileImageMap();
    paths.sort(); // by operator<, as the map's keys are
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.keys(), paths);
}

void tst_ThumbnailCache::aDocumentWithoutPictureKeepsItsKey()
{
    Browser browser(4);
    const QString without = browser.path(1);
    const QString broken = browser.path(2);
    browser.host.onLoadPreview = [=](const QString &path, QImage &image) {
        if (path == broken)
            throw 5; // whatever it is, it is the host's
        image = pictureOf(path);
        return path != without;
    };
    RecentDocumentBrowser::CreateRecentFileImageMap();
    const QMap<QString, QImage> &map = RecentDocumentBrowser::recentFileImageMap;
    QCOMPARE(map.size(), 4);
    QCOMPARE(map.value(browser.path(0)), pictureOf(browser.path(0)));
    QVERIFY(map.contains(without) && map.value(without).isNull());
    QVERIFY(map.contains(broken) && map.value(broken).isNull());
    QCOMPARE(map.value(browser.path(3)), pictureOf(browser.path(3)));
    QCOMPARE(browser.host.previewsAlive(), 0);
}

void tst_ThumbnailCache::aVanishedDocumentKeepsItsKey()
{
    Browser browser(3);
    QVERIFY(QFile::remove(browser.path(1)));
    RecentDocumentBrowser::CreateRecentFileImageMap();
    const QMap<QString, QImage> &map = RecentDocumentBrowser::recentFileImageMap;
    QCOMPARE(map.size(), 3);
    QVERIFY(map.contains(browser.path(1)) && map.value(browser.path(1)).isNull());
    QCOMPARE(map.value(browser.path(2)), pictureOf(browser.path(2)));
    QCOMPARE(browser.host.previewsCreated(), 2);
}

void tst_ThumbnailCache::theCacheIsReplacedAsAWhole()
{
    Browser browser(2);
    RecentDocumentBrowser::recentFileImageMap.insert(stalePath, staleImage());
    RecentDocumentBrowser::recentFileImageMap.insert(browser.path(0), staleImage());
    browser.host.setRecent({browser.path(0)});
    RecentDocumentBrowser::CreateRecentFileImageMap();
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.keys(), QStringList(browser.path(0)));
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.first(), pictureOf(browser.path(0)));
}

void tst_ThumbnailCache::withoutDocumentsTheCacheIsEmptied_data()
{
    QTest::addColumn<bool>("services");
    QTest::addColumn<bool>("application");
    QTest::addColumn<bool>("profile");
    QTest::addColumn<bool>("list");
    QTest::addColumn<bool>("documents");
    QTest::newRow("no services") << false << true << true << true << true;
    QTest::newRow("no application") << true << false << true << true << true;
    QTest::newRow("no profile") << true << true << false << true << true;
    QTest::newRow("no list") << true << true << true << false << true;
    QTest::newRow("an empty list") << true << true << true << true << false;
}

void tst_ThumbnailCache::withoutDocumentsTheCacheIsEmptied()
{
    QFETCH(bool, services);
    QFETCH(bool, application);
    QFETCH(bool, profile);
    QFETCH(bool, list);
    QFETCH(bool, documents);
    Browser browser(2);
    browser.host.hasServices = services;
    browser.host.hasApplication = application;
    browser.host.hasUserProfile = profile;
    browser.host.hasRecentFileList = list;
    if (!documents)
        browser.host.setRecent({});
    RecentDocumentBrowser::recentFileImageMap.insert(stalePath, staleImage());
    RecentDocumentBrowser::CreateRecentFileImageMap();
    QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());
    QCOMPARE(browser.host.previewsCreated(), 0);
}

void tst_ThumbnailCache::aPopupBuildsTheCacheOnlyWhenItIsEmpty()
{
    Browser browser(3);
    browser.createDocument();
    browser.openPopup();
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), 3);
    QCOMPARE(browser.host.previewsCreated(), 3);

    browser.host.onLoadPreview = nullptr; // as if the files had changed
    browser.openPopup();
    QCOMPARE(browser.host.previewsCreated(), 3);
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.value(browser.path(0)), pictureOf(browser.path(0)));
}

void tst_ThumbnailCache::aDocumentMakesTheNextPopupReadAgain()
{
    Browser browser(3);
    browser.createDocument();
    browser.openPopup();
    browser.createDocument();
    QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());
    browser.openPopup();
    QCOMPARE(browser.host.previewsCreated(), 6);
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), 3);
}

void tst_ThumbnailCache::aPopupWithoutDocumentsLeavesTheNextOneToTryAgain()
{
    Browser browser(2);
    browser.host.setRecent({});
    browser.openPopup();
    QVERIFY(RecentDocumentBrowser::recentFileImageMap.isEmpty());
    browser.host.setRecent(browser.paths());
    browser.openPopup();
    QCOMPARE(RecentDocumentBrowser::recentFileImageMap.size(), 2);
}

QTEST_MAIN(tst_ThumbnailCache)
#include "tst_thumbnailcache.moc"

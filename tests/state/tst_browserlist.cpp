// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/HighlightEffect.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QPointer>

#include <functional>

namespace {

QStringList pathsOf(const QList<RecentDocDialog *> &tiles)
{
    QStringList paths;
    for (const RecentDocDialog *tile : tiles)
        paths.append(tile->path());
    return paths;
}

QStringList shownPaths()
{
    return pathsOf(RecentDocumentBrowser::recentDocDialogList);
}

//! Puts a picture of each path into the cache, in place of what it held.
void cache(const QStringList &paths)
{
    RecentDocumentBrowser::recentFileImageMap.clear();
    for (const QString &path : paths)
        RecentDocumentBrowser::recentFileImageMap.insert(path, pictureOf(path));
}

void highlight(int tile, const QColor &color = QColor(0, 0, 150, 100))
{
    auto *effect = new HighlightEffect(2.5);
    effect->color = color;
    RecentDocumentBrowser::recentDocDialogList.at(tile)->setHighlightEffect(effect);
}

//! A window that calls a function for each child that it gets.
class WatchfulParent : public QWidget
{
public:
    std::function<void()> onChild;

protected:
    void childEvent(QChildEvent *event) override
    {
        if (event->added() && onChild)
            onChild();
    }
};

} // namespace

//! How the tiles are made from the menu's pins and the cache, and which of them are highlighted.
class tst_BrowserList : public TestCase
{
    Q_OBJECT

private slots:
    void tilesStandInTheMenusOrder();
    void withoutMenuEntriesThereAreNoTiles();
    void anEntryThatIsNotCachedGetsNoTile();
    void aCachedPathWithoutAnEntryGetsNoTile();
    void pathsThatDifferInCaseAreDifferent();
    void anEntryListedTwiceGetsTwoTiles();
    void aTileTakesOverPathPictureAndPin();
    void tilesPinsAreListedAsTheTilesAreMade();
    void eachPopupListsItsOwnTilesAndPins();
    void theFormerTilesLeaveTheListAlive();
    void whatATileChangesWhileItIsMadeDoesNotDisturbTheOthers();
    void whatIsAddedIsAppendedUnseen();
    void noFolderButtonIsEverListed();
    void withoutAHighlightTheQueriesAreEmpty();
    void onlyTheHighlightsExactColourCounts_data();
    void onlyTheHighlightsExactColourCounts();
    void theFirstHighlightedTileIsFirstInDisplayOrder();
    void highlightedTilesComeInDisplayOrder();
    void afterThePopupTheQueriesAreEmpty();
};

void tst_BrowserList::tilesStandInTheMenusOrder()
{
    Browser browser(QStringList({QStringLiteral("c.dwg"), QStringLiteral("a.dwg"), QStringLiteral("B.dwg")}));
    browser.createDocument();
    cache(browser.paths());
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    QCOMPARE(shownPaths(), browser.paths());
}

void tst_BrowserList::withoutMenuEntriesThereAreNoTiles()
{
    const Browser browser(3);
    cache(browser.paths());
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    QVERIFY(RecentDocumentBrowser::recentDocDialogList.isEmpty());
    QVERIFY(parent.children().isEmpty());
}

void tst_BrowserList::anEntryThatIsNotCachedGetsNoTile()
{
    Browser browser(4);
    browser.createDocument();
    cache({browser.path(0), browser.path(3), browser.path(2)});
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    QCOMPARE(shownPaths(), QStringList({browser.path(0), browser.path(2), browser.path(3)}));
}

void tst_BrowserList::aCachedPathWithoutAnEntryGetsNoTile()
{
    Browser browser(2);
    browser.createDocument();
    cache(browser.paths() + QStringList(QStringLiteral("/drawings/stranger.dwg")));
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    QCOMPARE(shownPaths(), browser.paths());
}

void tst_BrowserList::pathsThatDifferInCaseAreDifferent()
{
    Browser browser(QStringList({QStringLiteral("a.dwg"), QStringLiteral("A.dwg")}));
    browser.createDocument();
    cache({browser.path(1)});
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    QCOMPARE(shownPaths(), QStringList(browser.path(1)));
}

void tst_BrowserList::anEntryListedTwiceGetsTwoTiles()
{
    Browser browser(2);
    browser.createDocument();
    cache(browser.paths());
    RecentDocumentBrowser::AddInToMenuPinButtonList(RecentDocumentBrowser::menuPinButtonList.first());
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    QCOMPARE(shownPaths(), QStringList({browser.path(0), browser.path(1), browser.path(0)}));
}

void tst_BrowserList::aTileTakesOverPathPictureAndPin()
{
    Browser browser(3);
    browser.createDocument();
    cache(browser.paths());
    RecentDocumentBrowser::menuPinButtonList.at(1)->setChecked(true);
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    for (int i = 0; i < 3; ++i) {
        const RecentDocDialog *tile = browser.tiles().at(i);
        QCOMPARE(tile->parent(), &parent);
        QCOMPARE(tile->path(), browser.path(i));
        QCOMPARE(tile->image_label->pixmap(Qt::ReturnByValue).toImage().pixel(0, 0),
                 pictureOf(browser.path(i)).pixel(0, 0));
        QCOMPARE(Browser::button(tile, "pinButton")->isChecked(), i == 1);
    }
}

void tst_BrowserList::tilesPinsAreListedAsTheTilesAreMade()
{
    Browser browser(3);
    browser.createDocument();
    cache(browser.paths());
    FolderPinButton *listedBefore = RecentDocumentBrowser::menuPinButtonList.first();
    RecentDocumentBrowser::AddInToDocPinButtonList(listedBefore);
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    QList<FolderPinButton *> expected{listedBefore};
    for (const RecentDocDialog *tile : qAsConst(RecentDocumentBrowser::recentDocDialogList))
        expected.append(Browser::button(tile, "pinButton"));
    QCOMPARE(RecentDocumentBrowser::docPinButtonList, expected);
}

void tst_BrowserList::eachPopupListsItsOwnTilesAndPins()
{
    Browser browser(3);
    browser.createDocument();
    browser.openPopup();
    const RecentDocMainWindow *popup = browser.openPopup();
    QCOMPARE(shownPaths(), browser.paths());
    QCOMPARE(RecentDocumentBrowser::docPinButtonList.size(), 3);
    for (const RecentDocDialog *tile : qAsConst(RecentDocumentBrowser::recentDocDialogList))
        QCOMPARE(tile->parent(), popup);
    for (const FolderPinButton *pin : qAsConst(RecentDocumentBrowser::docPinButtonList))
        QVERIFY(popup->isAncestorOf(pin));
}

void tst_BrowserList::theFormerTilesLeaveTheListAlive()
{
    Browser browser(1);
    browser.createDocument();
    cache(browser.paths());
    QWidget first;
    RecentDocumentBrowser::CreateRecentDocList(&first);
    const QPointer<RecentDocDialog> former = browser.tiles().constFirst();
    QWidget second;
    RecentDocumentBrowser::CreateRecentDocList(&second);
    drainEvents();
    QVERIFY(former);
    QCOMPARE(browser.tiles().size(), 1);
    QVERIFY(browser.tiles().constFirst() != former);
}

void tst_BrowserList::whatATileChangesWhileItIsMadeDoesNotDisturbTheOthers()
{
    Browser browser(3);
    browser.createDocument();
    cache(browser.paths());
    WatchfulParent parent;
    parent.onChild = [] {
        RecentDocumentBrowser::recentFileImageMap.clear();
        RecentDocumentBrowser::menuPinButtonList.clear();
    };
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    QCOMPARE(shownPaths(), browser.paths());
}

void tst_BrowserList::whatIsAddedIsAppendedUnseen()
{
    Browser browser(0); // clears the lists in the end
    QString path = QStringLiteral("/drawings/a.dwg");
    FolderPinButton first(nullptr, path);
    FolderPinButton second(nullptr, path);
    const QList<FolderPinButton *> added = {&second, &first, nullptr, &second, nullptr};
    for (FolderPinButton *button : added) {
        RecentDocumentBrowser::AddInToMenuPinButtonList(button);
        QVERIFY(RecentDocumentBrowser::docPinButtonList.isEmpty());
    }
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList, added);
    RecentDocumentBrowser::menuPinButtonList.clear();
    for (FolderPinButton *button : added)
        RecentDocumentBrowser::AddInToDocPinButtonList(button);
    QCOMPARE(RecentDocumentBrowser::docPinButtonList, added);
    QVERIFY(RecentDocumentBrowser::menuPinButtonList.isEmpty());
}

void tst_BrowserList::noFolderButtonIsEverListed()
{
    Browser browser(3);
    browser.createDocument();
    browser.openPopup();
    QVERIFY(folderButtonList.isEmpty());
}

void tst_BrowserList::withoutAHighlightTheQueriesAreEmpty()
{
    Browser browser(3);
    browser.createDocument();
    cache(browser.paths());
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    QVERIFY(!RecentDocumentBrowser::getHighlightedRecentDoc());
    QVERIFY(RecentDocumentBrowser::getHighlightedRecentDocList().isEmpty());
    QVERIFY(RecentDocumentBrowser::getHighlightedRecentDocPathList().isEmpty());
}

void tst_BrowserList::onlyTheHighlightsExactColourCounts_data()
{
    QTest::addColumn<QColor>("color");
    QTest::addColumn<bool>("counts");
    QTest::newRow("the highlight's") << QColor(0, 0, 150, 100) << true;
    QTest::newRow("the resting colour") << QColor(248, 248, 248, 255) << false;
    QTest::newRow("another alpha") << QColor(0, 0, 150, 101) << false;
    QTest::newRow("opaque") << QColor(0, 0, 150) << false;
    QTest::newRow("another red") << QColor(1, 0, 150, 100) << false;
    QTest::newRow("another green") << QColor(0, 1, 150, 100) << false;
    QTest::newRow("another blue") << QColor(0, 0, 151, 100) << false;
    QTest::newRow("no colour") << QColor() << false;
}

void tst_BrowserList::onlyTheHighlightsExactColourCounts()
{
    QFETCH(QColor, color);
    QFETCH(bool, counts);
    Browser browser(2);
    browser.createDocument();
    cache(browser.paths());
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    highlight(1, color);
    QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDoc(), counts ? browser.tiles().at(1) : nullptr);
    QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDocList(), browser.tiles().mid(1, counts ? 1 : 0));
    QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDocPathList(),
             browser.paths().mid(1, counts ? 1 : 0));
}

void tst_BrowserList::theFirstHighlightedTileIsFirstInDisplayOrder()
{
    Browser browser(4);
    browser.createDocument();
    cache(browser.paths());
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    for (const int tile : {3, 1, 2}) {
        highlight(tile);
        QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDoc(), browser.tiles().at(tile == 2 ? 1 : tile));
    }
}

void tst_BrowserList::highlightedTilesComeInDisplayOrder()
{
    Browser browser(QStringList({QStringLiteral("d.dwg"), QStringLiteral("c.dwg"), QStringLiteral("b.dwg"),
                                 QStringLiteral("a.dwg")}));
    browser.createDocument();
    cache(browser.paths());
    QWidget parent;
    RecentDocumentBrowser::CreateRecentDocList(&parent);
    highlight(3);
    highlight(0);
    highlight(2);
    const QList<RecentDocDialog *> tiles = browser.tiles();
    QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDocList(),
             QList<RecentDocDialog *>({tiles.at(0), tiles.at(2), tiles.at(3)}));
    QCOMPARE(RecentDocumentBrowser::getHighlightedRecentDocPathList(),
             QStringList({browser.path(0), browser.path(2), browser.path(3)}));
}

void tst_BrowserList::afterThePopupTheQueriesAreEmpty()
{
    Browser browser(2);
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    QVERIFY(RecentDocumentBrowser::getHighlightedRecentDoc());
    delete popup;
    QVERIFY(!RecentDocumentBrowser::getHighlightedRecentDoc());
    QVERIFY(RecentDocumentBrowser::getHighlightedRecentDocList().isEmpty());
    QVERIFY(RecentDocumentBrowser::getHighlightedRecentDocPathList().isEmpty());
}

QTEST_MAIN(tst_BrowserList)
#include "tst_browserlist.moc"

// SPDX-License-Identifier: MIT
#include "module/RecentDocumentBrowser.h"
#include "state/FolderPinButton.h"
#include "tests/support/TestCase.h"
#include "tests/support/fake/FakeBrowser.h"
#include "ui/HighlightEffect.h"
#include "ui/RecentDocDialog.h"

#include <functional>

namespace {

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

//! Tiles in a window that is not a popup: tests the list without what a popup does to it.
struct ListedTiles
{
    explicit ListedTiles(const QStringList &paths)
    {
        browser.host.setRecent(paths);
        browser.createDocument();
        cache(paths);
    }
    //! Puts a picture of each path into the cache, in place of what it held.
    static void cache(const QStringList &paths)
    {
        RecentDocumentBrowser::recentFileImageMap.clear();
        for (const QString &path : paths)
            RecentDocumentBrowser::recentFileImageMap.insert(path, pictureOf(path));
    }
    void make() { RecentDocumentBrowser::CreateRecentDocList(&parent); }

    QString paths() const
    {
        QStringList paths;
        const QList<RecentDocDialog *> tiles = browser.tiles();
        for (const RecentDocDialog *tile : tiles)
            paths.append(tile->path());
        return paths.join(QLatin1Char(' '));
    }
    //! What the three queries return, which must agree: the paths of highlighted tiles.
    static QString highlighted()
    {
        const QList<RecentDocDialog *> tiles = RecentDocumentBrowser::getHighlightedRecentDocList();
        QStringList paths;
        for (const RecentDocDialog *tile : tiles)
            paths.append(tile->path());
        if (paths != RecentDocumentBrowser::getHighlightedRecentDocPathList() ||
            RecentDocumentBrowser::getHighlightedRecentDoc() != tiles.value(0))
            paths.append(QStringLiteral("the queries differ"));
        return paths.join(QLatin1Char(' '));
    }

    FakeBrowser browser;
    WatchfulParent parent;
};

} // namespace

//! How the tiles are made from the menu's pins and the cache, and which of them are highlighted.
class tst_BrowserList : public TestCase
{
    Q_OBJECT

private slots:
    void cachedEntriesHaveTiles_data()
    {
        QTest::addColumn<QString>("entries");
        QTest::addColumn<QString>("cached");
        QTest::addColumn<QString>("tiles");
        const auto row = [](const char *name, const char *entries, const char *cached, const char *tiles) {
            QTest::newRow(name) << QString(entries) << QString(cached) << QString(tiles);
        };
        row("in the menu's order", "c a B", "a B c", "c a B");
        row("no menu yet", "", "a b", "");
        row("an entry is not cached", "a b c d", "a d c", "a c d");
        row("a cached path has no entry", "a b", "a b stranger", "a b");
        row("paths differ in case", "a A", "A", "A");
        row("an entry is listed twice", "a b a", "a b", "a b a");
    }

    void cachedEntriesHaveTiles()
    {
        QFETCH(QString, entries);
        QFETCH(QString, cached);
        QFETCH(QString, tiles);
        ListedTiles listed(entries.split(QLatin1Char(' '), Qt::SkipEmptyParts));
        ListedTiles::cache(cached.split(QLatin1Char(' ')));
        RecentDocumentBrowser::menuPinButtonList.prepend(nullptr); // which is skipped
        listed.make();
        QCOMPARE(listed.paths(), tiles);
    }

    void aTileHasThePathPictureAndPinOfItsEntry()
    {
        ListedTiles listed(QStringList({"c", "b", "a"}));
        RecentDocumentBrowser::menuPinButtonList.at(1)->setChecked(true);
        QList<FolderPinButton *> pins = {RecentDocumentBrowser::menuPinButtonList.first()};
        RecentDocumentBrowser::AddInToDocPinButtonList(pins.first()); // former entries of the list are kept
        listed.make();
        QCOMPARE(listed.paths(), QStringLiteral("c b a"));
        const QList<RecentDocDialog *> tiles = listed.browser.tiles();
        for (const RecentDocDialog *tile : tiles) {
            QCOMPARE(tile->parent(), &listed.parent);
            QCOMPARE(tile->image_label->pixmap(Qt::ReturnByValue).toImage().pixel(0, 0),
                     pictureOf(tile->path()).pixel(0, 0));
            pins.append(FakeBrowser::button(tile, "pinButton"));
            QCOMPARE(pins.constLast()->isChecked(), tile->path() == QLatin1String("b"));
        }
        QCOMPARE(RecentDocumentBrowser::docPinButtonList, pins);
        QVERIFY(folderButtonList.isEmpty());
    }

    void listsMayChangeWhileTilesAreCreated()
    {
        ListedTiles listed(QStringList({"c", "b", "a"}));
        listed.parent.onChild = [] {
            RecentDocumentBrowser::recentFileImageMap.clear();
            RecentDocumentBrowser::menuPinButtonList.clear();
        };
        listed.make();
        QCOMPARE(listed.paths(), QStringLiteral("c b a"));
    }

    void anyButtonIsAppended()
    {
        const FakeBrowser browser; // clears the lists
        QString path = QStringLiteral("/drawings/a.dwg");
        FolderPinButton first(nullptr, path);
        FolderPinButton second(nullptr, path);
        const QList<FolderPinButton *> added = {&second, &first, nullptr, &second, nullptr};
        for (FolderPinButton *button : added)
            RecentDocumentBrowser::AddInToMenuPinButtonList(button);
        QCOMPARE(RecentDocumentBrowser::menuPinButtonList, added);
        QVERIFY(RecentDocumentBrowser::docPinButtonList.isEmpty());
        RecentDocumentBrowser::menuPinButtonList.clear();
        for (FolderPinButton *button : added)
            RecentDocumentBrowser::AddInToDocPinButtonList(button);
        QCOMPARE(RecentDocumentBrowser::docPinButtonList, added);
        QVERIFY(RecentDocumentBrowser::menuPinButtonList.isEmpty());
    }

    void onlyTheHighlightsExactColourCounts_data()
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

    void onlyTheHighlightsExactColourCounts()
    {
        QFETCH(QColor, color);
        QFETCH(bool, counts);
        ListedTiles listed(QStringList({"b", "a"}));
        listed.make();
        auto *effect = new HighlightEffect(2.5);
        effect->color = color;
        listed.browser.tiles().at(1)->setHighlightEffect(effect);
        QCOMPARE(ListedTiles::highlighted(), QLatin1String(counts ? "a" : ""));
    }
};

TEST_CLASS(tst_BrowserList);
#include "tst_browserlist.moc"

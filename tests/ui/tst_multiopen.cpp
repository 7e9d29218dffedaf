// SPDX-License-Identifier: MIT
#include "state/FolderPinButton.h"
#include "tests/support/OpenGrid.h"

#include <QEventLoop>
#include <QSignalSpy>
#include <QTimer>

namespace {

QStringList openCalls(const FakeHost &host)
{
    return host.calls.filter(QStringLiteral("open "));
}

} // namespace

//! Opening every highlighted document at once.
class tst_MultiOpen : public TestCase
{
    Q_OBJECT

private slots:
    void highlightedDocumentsOpenInDisplayOrder_data();
    void highlightedDocumentsOpenInDisplayOrder();
    void displayOrderIsPinnedFirst();
    void popupClosesBeforeTheFirstOpensAndLivesUntilTheLastHas();
    void askingTheHostIsPlain();
    void oneDocumentListedTwiceIsOpenedTwice();
    void nothingHighlightedLeavesThePopupOpen();
    void emptyPathsAreSkipped();
    void anEmptyPathAloneClosesThePopup();
    void everyPathIsTriedThoughThePopupIsDeleted_data();
    void everyPathIsTriedThoughThePopupIsDeleted();
    void everyPathIsTriedWhileTheHostRunsEvents();
    void everyPathIsTriedThoughAPopupIsOpenedAnew_data();
    void everyPathIsTriedThoughAPopupIsOpenedAnew();
    void withoutADocumentServiceThePopupClosesAllTheSame_data();
    void withoutADocumentServiceThePopupClosesAllTheSame();
};

void tst_MultiOpen::highlightedDocumentsOpenInDisplayOrder_data()
{
    QTest::addColumn<Indices>("highlighted");
    QTest::newRow("one") << Indices({4});
    QTest::newRow("three in a run") << Indices({1, 2, 3});
    QTest::newRow("three apart") << Indices({0, 4, 9});
    QTest::newRow("highlighted from the last to the first") << Indices({9, 6, 5, 0});
    QTest::newRow("all") << Indices({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
}

void tst_MultiOpen::highlightedDocumentsOpenInDisplayOrder()
{
    QFETCH(Indices, highlighted);
    OpenGrid grid(10);
    grid.highlight(highlighted);
    std::sort(highlighted.begin(), highlighted.end());
    QStringList expected;
    for (const int index : qAsConst(highlighted))
        expected.append(QStringLiteral("open ") + grid.browser.path(index));
    grid.press(Qt::Key_Return);
    QCOMPARE(openCalls(grid.browser.host), expected);
    drainEvents();
    QVERIFY(!grid.popup);
    QCOMPARE(openCalls(grid.browser.host), expected);
}

void tst_MultiOpen::displayOrderIsPinnedFirst()
{
    Browser browser(4);
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    QTest::mouseClick(Browser::button(browser.tiles().at(2), "pinButton"), Qt::LeftButton);
    popup->done(0);
    drainEvents();
    popup = browser.openPopup();
    const QList<RecentDocDialog *> tiles = browser.tiles();
    QCOMPARE(tiles.at(0)->path(), browser.path(2));
    for (RecentDocDialog *tile : tiles)
        tile->highlight();
    pressKey(popup, Qt::Key_Return);
    QCOMPARE(browser.host.openedPaths(),
             QStringList({browser.path(2), browser.path(0), browser.path(1), browser.path(3)}));
}

void tst_MultiOpen::popupClosesBeforeTheFirstOpensAndLivesUntilTheLastHas()
{
    OpenGrid grid(5);
    grid.highlight({1, 2, 4});
    const QSignalSpy finished(grid.popup, &QDialog::finished);
    QStringList during;
    grid.browser.host.onOpen = [&](const QString & /*path*/) {
        during.append(QStringLiteral("%1, finished %2")
                          .arg(!grid.popup               ? QStringLiteral("gone")
                               : grid.popup->isVisible() ? QStringLiteral("visible")
                                                         : QStringLiteral("hidden"))
                          .arg(finished.count()));
    };
    grid.press(Qt::Key_Return);
    const QString closed = QStringLiteral("hidden, finished 1");
    QCOMPARE(during, QStringList({closed, closed, closed}));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(finished.first().first().toInt(), 0);
    QVERIFY(grid.popup); // deleted later
    drainEvents();
    QVERIFY(!grid.popup);
}

void tst_MultiOpen::askingTheHostIsPlain()
{
    OpenGrid grid(5);
    grid.highlight({0, 3});
    grid.popup->multiDocumentOpen();
    QCOMPARE(grid.browser.host.opened.size(), std::size_t(2));
    for (const FakeHost::OpenCall &call : grid.browser.host.opened) {
        QCOMPARE(call.mode, 0);
        QCOMPARE(call.flags, 0);
        QVERIFY(call.resultWasEmpty);
    }
}

void tst_MultiOpen::oneDocumentListedTwiceIsOpenedTwice()
{
    OpenGrid grid(3, {0, 1, 2, 0});
    QCOMPARE(grid.tiles.size(), 4);
    grid.highlight({0, 1, 3});
    grid.popup->multiDocumentOpen();
    QCOMPARE(grid.browser.host.openedPaths(),
             QStringList({grid.browser.path(0), grid.browser.path(1), grid.browser.path(0)}));
}

void tst_MultiOpen::nothingHighlightedLeavesThePopupOpen()
{
    OpenGrid grid(5);
    grid.highlight({});
    const QSignalSpy finished(grid.popup, &QDialog::finished);
    grid.popup->multiDocumentOpen();
    drainEvents();
    QVERIFY(grid.popup && grid.popup->isVisible());
    QCOMPARE(finished.count(), 0);
    QCOMPARE(openCalls(grid.browser.host), QStringList());
    grid.popup->gotoNextDialog(); // and it still does what it did
    grid.highlight({2});
    grid.popup->multiDocumentOpen();
    QCOMPARE(grid.browser.host.openedPaths(), QStringList(grid.browser.path(2)));
}

void tst_MultiOpen::emptyPathsAreSkipped()
{
    Browser browser(3);
    browser.host.setRecent({browser.path(0), QString(), browser.path(1), QString(), browser.path(2)});
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    const QList<RecentDocDialog *> tiles = browser.tiles();
    QCOMPARE(tiles.size(), 5);
    QCOMPARE(tiles.at(1)->path(), QString());
    for (RecentDocDialog *tile : tiles)
        tile->highlight();
    popup->multiDocumentOpen();
    QCOMPARE(browser.host.openedPaths(), browser.paths());
}

void tst_MultiOpen::anEmptyPathAloneClosesThePopup()
{
    Browser browser;
    browser.host.setRecent({QString()});
    browser.createDocument();
    const QPointer<RecentDocMainWindow> popup = browser.openPopup();
    QCOMPARE(browser.tiles().size(), 1);
    popup->multiDocumentOpen();
    drainEvents();
    QVERIFY(!popup);
    QCOMPARE(openCalls(browser.host), QStringList());
}

void tst_MultiOpen::everyPathIsTriedThoughThePopupIsDeleted_data()
{
    QTest::addColumn<bool>("tileIsHeld");
    QTest::newRow("no tile held") << false;
    QTest::newRow("a tile held") << true;
}

void tst_MultiOpen::everyPathIsTriedThoughThePopupIsDeleted()
{
    QFETCH(bool, tileIsHeld);
    OpenGrid grid(5);
    grid.highlight({0, 1, 4});
    grid.popup->dragDialog = tileIsHeld ? grid.tiles.at(1) : nullptr;
    grid.browser.host.onOpen = [&](const QString & /*path*/) { delete grid.popup; };
    grid.press(Qt::Key_Return);
    QVERIFY(!grid.popup);
    QCOMPARE(grid.browser.host.openedPaths(),
             QStringList({grid.browser.path(0), grid.browser.path(1), grid.browser.path(4)}));
}

void tst_MultiOpen::everyPathIsTriedWhileTheHostRunsEvents()
{
    OpenGrid grid(5);
    grid.highlight({0, 1, 4});
    QList<bool> gone;
    grid.browser.host.onOpen = [&](const QString & /*path*/) {
        QEventLoop loop; // a progress dialog, say
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
        drainEvents();
        gone.append(!grid.popup);
    };
    grid.press(Qt::Key_Return);
    QCOMPARE(gone, QList<bool>({true, true, true})); // while it was still at work
    QCOMPARE(grid.browser.host.openedPaths(),
             QStringList({grid.browser.path(0), grid.browser.path(1), grid.browser.path(4)}));
}

void tst_MultiOpen::everyPathIsTriedThoughAPopupIsOpenedAnew_data()
{
    QTest::addColumn<bool>("menuIsRebuilt");
    QTest::addColumn<bool>("eventsRun");
    QTest::newRow("at once") << false << false;
    QTest::newRow("over a rebuilt menu") << true << false;
    QTest::newRow("with events") << false << true;
    QTest::newRow("over a rebuilt menu, with events") << true << true;
}

void tst_MultiOpen::everyPathIsTriedThoughAPopupIsOpenedAnew()
{
    QFETCH(bool, menuIsRebuilt);
    QFETCH(bool, eventsRun);
    OpenGrid grid(5);
    grid.highlight({1, 2, 4});
    const QStringList expected = {grid.browser.path(1), grid.browser.path(2), grid.browser.path(4)};
    QCursor::setPos(grid.popup->geometry().center()); // else losing the focus would close the new one
    QPointer<RecentDocMainWindow> anew;
    grid.browser.host.onOpen = [&](const QString &path) {
        if (path != expected.first())
            return;
        if (menuIsRebuilt) { // as the host's word of a created drawing makes it
            grid.browser.host.setRecent({path, grid.browser.path(0)});
            grid.browser.createDocument();
        }
        anew = grid.browser.openPopup();
        if (eventsRun)
            drainEvents();
    };
    grid.press(Qt::Key_Return);
    QCOMPARE(grid.browser.host.openedPaths(), expected);
    drainEvents();
    QVERIFY(!grid.popup);
    QVERIFY(anew && anew->isVisible());
    QCOMPARE(highlightedIn(grid.browser.tiles()), Indices({0}));
    pressKey(anew, Qt::Key_Right);
    QCOMPARE(highlightedIn(grid.browser.tiles()), Indices({1}));
}

void tst_MultiOpen::withoutADocumentServiceThePopupClosesAllTheSame_data()
{
    QTest::addColumn<bool>("hasServices");
    QTest::newRow("no services") << false;
    QTest::newRow("no document service") << true;
}

void tst_MultiOpen::withoutADocumentServiceThePopupClosesAllTheSame()
{
    QFETCH(bool, hasServices);
    OpenGrid grid(3);
    grid.highlight({0, 1});
    grid.browser.host.hasServices = hasServices;
    grid.browser.host.hasDocumentManager = false;
    grid.press(Qt::Key_Return);
    drainEvents();
    QVERIFY(!grid.popup);
    QCOMPARE(openCalls(grid.browser.host), QStringList());
}

QTEST_MAIN(tst_MultiOpen)
#include "tst_multiopen.moc"

// SPDX-License-Identifier: MIT
#include "tests/ui/OpenGrid.h"

#include <QMouseEvent>

#include <functional>

//! How drawings are opened; the popup may be deleted by it.
using WayToOpen = std::function<void(OpenGrid &)>;
Q_DECLARE_METATYPE(WayToOpen)

namespace {

//! The second press of a double-click, alone: what it calls may delete the tile.
void sendDoubleClick(RecentDocDialog *tile)
{
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(80, 60), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(tile, &event);
}

} // namespace

//! Opening every highlighted document at once, and one by a double-click. tst_highlightproperties tests which
//! are opened, and in which order.
class tst_MultiOpen : public TestCase
{
    Q_OBJECT

private slots:
    void thePopupClosesFirst_data()
    {
        QTest::addColumn<WayToOpen>("open");
        QTest::addColumn<Indices>("opened");
        QTest::newRow("Enter") << WayToOpen([](OpenGrid &grid) {
            grid.highlight({4, 2, 1});
            grid.press(Qt::Key_Return);
        }) << Indices{1, 2, 4};
        QTest::newRow("double-click")
            << WayToOpen([](OpenGrid &grid) { sendDoubleClick(grid.tiles.at(4)); }) << Indices{4};
    }

    void thePopupClosesFirst()
    {
        QFETCH(WayToOpen, open);
        QFETCH(Indices, opened);
        OpenGrid grid(5);
        const QSignalSpy finished(grid.popup, &QDialog::finished);
        grid.browser.host.onOpen = [&](const QString & /*path*/) {
            QVERIFY(grid.popup && !grid.popup->isVisible());
            QCOMPARE(finished.count(), 1);
        };
        open(grid);
        QCOMPARE(grid.browser.host.openedPaths(), grid.pathsAt(opened));
        for (const FakeHost::OpenCall &call : grid.browser.host.opened)
            QVERIFY(call.mode == 0 && call.flags == 0 && call.resultWasEmpty);
        QCOMPARE(finished, QList<QVariantList>{{0}});
        QVERIFY(grid.popup); // deleted later
        drainEvents();
        QVERIFY(!grid.popup);
        QCOMPARE(grid.browser.host.openedPaths(), grid.pathsAt(opened));
    }

    void everyPathIsTriedWhenAnotherPopupIsOpened()
    {
        for (const auto &[menuIsRebuilt, eventsRun] : {std::pair(false, false), std::pair(true, false),
                                                       std::pair(false, true), std::pair(true, true)}) {
            OpenGrid grid(5);
            grid.highlight({1, 2, 4});
            const QStringList expected = grid.pathsAt({1, 2, 4});
            QCursor::setPos(grid.popup->geometry().center()); // else losing the focus would close the new one
            QPointer<RecentDocMainWindow> another;
            grid.browser.host.onOpen = [&, rebuilds = menuIsRebuilt, runs = eventsRun](const QString &path) {
                if (path != expected.first())
                    return;
                if (rebuilds) { // as after a drawing has been created
                    grid.browser.host.setRecent({path, grid.browser.path(0)});
                    grid.browser.createDocument();
                }
                another = grid.browser.openPopup();
                if (runs)
                    drainEvents();
            };
            grid.press(Qt::Key_Return);
            QCOMPARE(grid.browser.host.openedPaths(), expected);
            drainEvents();
            QVERIFY(!grid.popup);
            QVERIFY(another && another->isVisible());
            QCOMPARE(highlightedIn(grid.browser.tiles()), Indices({0}));
            pressKey(another, Qt::Key_Right);
            QCOMPARE(highlightedIn(grid.browser.tiles()), Indices({1}));
        }
    }

    void oneDocumentListedTwiceIsOpenedTwice()
    {
        OpenGrid grid(3, {0, 1, 2, 0});
        grid.highlight({0, 1, 3});
        grid.popup->multiDocumentOpen();
        QCOMPARE(grid.browser.host.openedPaths(), grid.pathsAt({0, 1, 0}));
    }

    void emptyPathsAreSkipped()
    {
        FakeBrowser browser(2);
        for (const QStringList &listed :
             {QStringList{browser.path(0), QString(), browser.path(1)}, {QString()}}) {
            browser.host.opened.clear();
            browser.host.setRecent(listed);
            browser.createDocument();
            const QPointer<RecentDocMainWindow> popup = browser.openPopup();
            const QList<RecentDocDialog *> tiles = browser.tiles();
            QCOMPARE(tiles.size(), listed.size());
            for (RecentDocDialog *tile : tiles)
                tile->highlight();
            popup->multiDocumentOpen();
            drainEvents();
            QVERIFY(!popup); // closes for an empty path alone too
            QCOMPARE(browser.host.openedPaths(), listed.size() > 1 ? browser.paths() : QStringList());
        }
    }

    void aRealDoubleClickOpensOnce()
    {
        // The name reaches the host unchanged, although the tile cuts it.
        const QString name =
            QStringLiteral("\u00d6lpumpe \U0001F4D0, a \"b\" & 'c' with quite a long name.dwg");
        FakeBrowser browser(QStringList({QStringLiteral("a.dwg"), name}));
        browser.createDocument();
        const QPointer<RecentDocMainWindow> popup = browser.openPopup();
        QTest::mouseDClick(browser.tiles().at(1), Qt::LeftButton); // press, release, press, double-click
        QCOMPARE(browser.host.openedPaths(), QStringList(browser.folder() + QLatin1Char('/') + name));
        drainEvents();
        QVERIFY(!popup);
    }

    void openingATileByItselfKeepsThePopup()
    {
        const OpenGrid grid(3);
        grid.tiles.at(1)->OpenDocument();
        QCOMPARE(grid.browser.host.openedPaths(), grid.pathsAt({1}));
        drainEvents();
        QVERIFY(grid.popup && grid.popup->isVisible());
    }
};

TEST_CLASS(tst_MultiOpen);
#include "tst_multiopen.moc"

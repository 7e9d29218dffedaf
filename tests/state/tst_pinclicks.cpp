// SPDX-License-Identifier: MIT
#include "tests/support/Browser.h"
#include "tests/support/PinMenu.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QMutex>

#include <memory>

namespace {

const QStringList fourPaths = {QStringLiteral("W"), QStringLiteral("X"), QStringLiteral("Y"),
                               QStringLiteral("Z")};

int separators(const QMenu &menu)
{
    return displayed(menu).count(QStringLiteral("---"));
}

//! The paths of the browser's tiles, as numbers of the documents made for it: "2 1 3".
QString tileOrder(const Browser &browser)
{
    QStringList order;
    const QList<RecentDocDialog *> tiles = browser.tiles();
    for (const RecentDocDialog *tile : tiles)
        order.append(
            QString::number(browser.paths().indexOf(Browser::button(tile, "pinButton")->path()) + 1));
    return order.join(QLatin1Char(' '));
}

//! The same of the menu's pin buttons.
QString pinOrder(const Browser &browser)
{
    QStringList order;
    const QStringList paths = pathsOf(RecentDocumentBrowser::menuPinButtonList);
    for (const QString &path : paths)
        order.append(QString::number(browser.paths().indexOf(path) + 1));
    return order.join(QLatin1Char(' '));
}

FolderPinButton *menuPin(const Browser &browser, int number)
{
    for (FolderPinButton *button : qAsConst(RecentDocumentBrowser::menuPinButtonList)) {
        if (button->path() == browser.path(number - 1))
            return button;
    }
    return nullptr;
}

} // namespace

//! When documents are put in order: with a click on a menu's pin, and when the browser opens.
class tst_PinClicks : public TestCase
{
    Q_OBJECT

private slots:
    void aMenusPinReordersAtOnce();
    void otherClicksReorderNothing();
    void aClickInAnOpenMenuReordersIt();
    void manyClicksInAnOpenMenuKeepItWhole();
    void aMenuDeletedByItsOwnerMayStillBePinned();
    void openingTheBrowserReorders();
    void theBrowserReordersBetweenPicturesAndTiles();
    void aBrowserWithoutAListReordersAllTheSame();
    void aTilesPinWaitsForTheNextOrdering();
    void anUnpinnedDocumentKeepsItsTileInFront();
    void aNewDrawingLosesEveryPin();
};

void tst_PinClicks::aMenusPinReordersAtOnce()
{
    PinMenu pins(fourPaths);
    pins.buttons.at(2)->click();
    QCOMPARE(displayed(pins.menu),
             QStringList({"New", "---", "&1 Y", "---", "---", "&2 W", "&3 X", "&4 Z", "Quit"}));
    pins.buttons.at(0)->click();
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 Y", "&2 W", "&3 X", "&4 Z", "Quit"}));
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"Y", "W", "X", "Z"}));
    QCOMPARE(separators(pins.menu), 4); // once a click
    pins.buttons.at(2)->click();
    pins.buttons.at(0)->click();
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 W", "&2 X", "&3 Y", "&4 Z", "Quit"}));
    QCOMPARE(separators(pins.menu), 5); // the last one had nothing to separate
}

void tst_PinClicks::otherClicksReorderNothing()
{
    PinMenu pins(fourPaths);
    pins.setPinned(2); // what the next ordering would show
    const QStringList before = displayed(pins.menu);
    pins.entry(0).textButton->click();
    QCOMPARE(pins.host.openedPaths(), QStringList(QStringLiteral("W")));
    QCOMPARE(displayed(pins.menu), before);
    QString path = QStringLiteral("W");
    FolderPinButton unnamed(nullptr, path);
    unnamed.click();
    QCOMPARE(displayed(pins.menu), before);
    QCOMPARE(RecentDocumentBrowser::menuPinButtonList, pins.buttons);
}

void tst_PinClicks::aClickInAnOpenMenuReordersIt()
{
    PinMenu pins(fourPaths);
    pins.menu.popup(QPoint(20, 20));
    QVERIFY(waitForExposed(&pins.menu));
    FolderPinButton *pin = pins.buttons.at(2);
    QVERIFY(pin->isVisible());
    const int above = pins.entry(0).defaultWidget()->mapTo(&pins.menu, QPoint()).y();
    QVERIFY(pin->mapTo(&pins.menu, QPoint()).y() > above);
    QTest::mouseClick(pin, Qt::LeftButton);
    QVERIFY(pin->isChecked());
    QCOMPARE(pins.displayedEntries(), QStringList({"New", "&1 Y", "&2 W", "&3 X", "&4 Z", "Quit"}));
    QVERIFY(pins.menu.isVisible());
    // On screen too the entry now stands above the others.
    QTRY_VERIFY(pins.entry(2).defaultWidget()->mapTo(&pins.menu, QPoint()).y() <
                pins.entry(0).defaultWidget()->mapTo(&pins.menu, QPoint()).y());
    for (int i = 0; i < 4; ++i)
        QVERIFY(pins.entry(i).defaultWidget()->isVisible());
    pins.menu.close();
    drainEvents();
}

void tst_PinClicks::manyClicksInAnOpenMenuKeepItWhole()
{
    PinMenu pins(fourPaths);
    pins.menu.popup(QPoint(20, 20));
    QVERIFY(waitForExposed(&pins.menu));
    for (int click = 0; click < 60; ++click) {
        FolderPinButton *pin = pins.buttons.at((click * 7 + click / 3) % 4);
        const bool wasChecked = pin->isChecked();
        QTest::mouseClick(pin, Qt::LeftButton);
        QCOMPARE(pin->isChecked(), !wasChecked);
        if (click % 5 == 0)
            drainEvents(); // at other times the menu has not even been laid out again
        QCOMPARE(pins.displayedEntries().size(), 6);
    }
    const QStringList lines = pins.displayedEntries();
    for (int number = 1; number <= 4; ++number)
        QVERIFY2(lines.at(number).startsWith(QStringLiteral("&%1 ").arg(number)),
                 qPrintable(lines.at(number)));
    pins.menu.close();
    drainEvents();
}

void tst_PinClicks::aMenuDeletedByItsOwnerMayStillBePinned()
{
    ModuleInHost inHost;
    inHost.host.setRecent(fourPaths);
    auto menu = std::make_unique<QMenu>();
    RecentDocumentBrowser::AddRecentFiles(menu.get(), nullptr);
    FolderPinButton *pin = RecentDocumentBrowser::menuPinButtonList.at(3);
    menu.reset();
    pin->click(); // a button outlives its menu
    QCOMPARE(pathsOf(RecentDocumentBrowser::menuPinButtonList), QStringList({"Z", "W", "X", "Y"}));
}

void tst_PinClicks::openingTheBrowserReorders()
{
    Browser browser(4);
    browser.createDocument();
    menuPin(browser, 3)->setChecked(true);
    QCOMPARE(pinOrder(browser), QStringLiteral("1 2 3 4")); // nothing but a click or the browser reorders
    browser.openPopup();
    QCOMPARE(pinOrder(browser), QStringLiteral("3 1 2 4"));
    QCOMPARE(tileOrder(browser), QStringLiteral("3 1 2 4"));
    QVERIFY(Browser::button(browser.tiles().constFirst(), "pinButton")->isChecked());
    QStringList texts = displayed(*RecentDocumentBrowser::recentDocMenu);
    texts.removeAll(QStringLiteral("---"));
    QCOMPARE(texts, QStringList({"&1 " + browser.path(2), "&2 " + browser.path(0), "&3 " + browser.path(1),
                                 "&4 " + browser.path(3)}));
}

void tst_PinClicks::theBrowserReordersBetweenPicturesAndTiles()
{
    Browser browser(4);
    browser.createDocument();
    menuPin(browser, 3)->setChecked(true);
    QString orderAtReading;
    QMutex mutex; // worker threads read, while the GUI thread waits for them
    browser.host.onPreviewStep = [&](const QString & /*step*/) {
        const QMutexLocker lock(&mutex);
        if (orderAtReading.isEmpty())
            orderAtReading = pinOrder(browser);
    };
    browser.openPopup();
    QCOMPARE(orderAtReading, QStringLiteral("1 2 3 4"));
    QCOMPARE(tileOrder(browser), QStringLiteral("3 1 2 4"));
    // The second time the cache stands, and what has been pinned meanwhile shows all the same.
    menuPin(browser, 4)->setChecked(true);
    browser.openPopup();
    QCOMPARE(tileOrder(browser), QStringLiteral("3 4 1 2"));
}

void tst_PinClicks::aBrowserWithoutAListReordersAllTheSame()
{
    Browser browser(3);
    browser.createDocument();
    menuPin(browser, 3)->setChecked(true);
    browser.host.hasRecentFileList = false;
    browser.openPopup();
    QCOMPARE(pinOrder(browser), QStringLiteral("3 1 2"));
}

void tst_PinClicks::aTilesPinWaitsForTheNextOrdering()
{
    Browser browser(4);
    browser.createDocument();
    RecentDocMainWindow *popup = browser.openPopup();
    const QStringList before = displayed(*RecentDocumentBrowser::recentDocMenu);
    Browser::button(browser.tiles().at(2), "pinButton")->click();
    QVERIFY(menuPin(browser, 3)->isChecked());
    QCOMPARE(pinOrder(browser), QStringLiteral("1 2 3 4"));
    QCOMPARE(tileOrder(browser), QStringLiteral("1 2 3 4"));
    QCOMPARE(displayed(*RecentDocumentBrowser::recentDocMenu), before);
    popup->close();
    drainEvents();
    QCOMPARE(pinOrder(browser), QStringLiteral("1 2 3 4"));

    menuPin(browser, 4)->click(); // the next click on a menu's pin brings both forward
    QCOMPARE(pinOrder(browser), QStringLiteral("3 4 1 2"));
    browser.openPopup();
    QCOMPARE(tileOrder(browser), QStringLiteral("3 4 1 2"));
}

void tst_PinClicks::anUnpinnedDocumentKeepsItsTileInFront()
{
    Browser browser(4);
    browser.createDocument();
    menuPin(browser, 3)->click();
    menuPin(browser, 3)->click();
    browser.openPopup();
    QCOMPARE(tileOrder(browser), QStringLiteral("3 1 2 4"));
    QVERIFY(!Browser::button(browser.tiles().constFirst(), "pinButton")->isChecked());
    QStringList texts = displayed(*RecentDocumentBrowser::recentDocMenu);
    QCOMPARE(texts.removeAll(QStringLiteral("---")), 3); // around the entries, and the one left over
    QCOMPARE(texts, QStringList({"&1 " + browser.path(0), "&2 " + browser.path(1), "&3 " + browser.path(2),
                                 "&4 " + browser.path(3)}));
}

void tst_PinClicks::aNewDrawingLosesEveryPin()
{
    Browser browser(4);
    browser.createDocument();
    menuPin(browser, 3)->click();
    menuPin(browser, 4)->click();
    browser.createDocument();
    for (const FolderPinButton *button : qAsConst(RecentDocumentBrowser::menuPinButtonList))
        QVERIFY(!button->isChecked());
    browser.openPopup();
    QCOMPARE(tileOrder(browser), QStringLiteral("1 2 3 4"));
    const QList<RecentDocDialog *> tiles = browser.tiles();
    for (const RecentDocDialog *tile : tiles)
        QVERIFY(!Browser::button(tile, "pinButton")->isChecked());
    QCOMPARE(separators(*RecentDocumentBrowser::recentDocMenu), 2);
}

QTEST_MAIN(tst_PinClicks)
#include "tst_pinclicks.moc"

// SPDX-License-Identifier: MIT
#include "tests/support/Hand.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QDialog>
#include <QLabel>
#include <QPointer>

using Indices = QList<int>;

namespace {

//! A popup of ten tiles in rows of 4, 4 and 2, and a hand that clicks in it.
struct Clicking
{
    Clicking() : browser(10, QRect(60, 60, 1300, 900))
    {
        Hand::moveTo(QPoint(1900, 1190)); // beside every window
        popup = browser.openPopup();
        if (!popup)
            qFatal("the popup does not become active");
        tiles = RealBrowser::tiles(popup);
    }

    //! Goes to a tile, to a place where it did not click before: there a second click would be the second
    //! half of a double-click.
    void goTo(int tile)
    {
        const QPoint place(20 + 30 * (m_places % 4), 40 + 20 * (m_places / 4 % 4));
        ++m_places;
        Hand::moveTo(tiles.at(tile), place);
    }
    //! \param held modifiers as X names them: "ctrl", "shift", both or none
    void click(int tile, const QStringList &held = {}, int button = 1)
    {
        for (const QString &key : held)
            Hand::holdKey(key);
        goTo(tile);
        Hand::click(button);
        for (const QString &key : held)
            Hand::releaseKey(key);
    }
    Indices highlighted() const { return RealBrowser::highlighted(tiles); }
    QStringList opened() const { return browser.log().filter(QStringLiteral("open ")); }
    //! Waits until what the hand has done so far has arrived: the pointer's next place, and that of the path.
    bool allHasArrived()
    {
        for (const int tile : {8, 9}) {
            goTo(tile);
            const QString path = browser.paths().at(tile);
            if (!waitUntil([&] { return !popup || RealBrowser::pathLine(popup) == path; }))
                return false;
        }
        return true;
    }

    RealBrowser browser;
    QPointer<QDialog> popup;
    QList<QDialog *> tiles;

private:
    int m_places = 0;
};

const QStringList none;
const QStringList control = {QStringLiteral("ctrl")};
const QStringList shift = {QStringLiteral("shift")};
const QStringList both = {QStringLiteral("ctrl"), QStringLiteral("shift")};

//! One click, and what is highlighted then.
struct Click
{
    QStringList held;
    int tile;
    Indices after;
};

} // namespace

Q_DECLARE_METATYPE(QList<Click>)

//! The tiles under a window manager, clicked by hand.
class tst_MouseOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void clickByClick_data();
    void clickByClick();
    void clicksOnWhatATileShowsCount_data();
    void clicksOnWhatATileShowsCount();
    void pressOnOneOfSeveralKeepsThemUntilTheRelease();
    void releaseWithAModifierKeepsThem_data();
    void releaseWithAModifierKeepsThem();
    void doubleClickOpensThatTileAlone_data();
    void doubleClickOpensThatTileAlone();
    void twoSlowClicksOpenNothing();
    void rightPressChangesNothing_data();
    void rightPressChangesNothing();
    void middleButtonClicksLikeTheLeft();
    void clickedTilesOpenInDisplayOrder();
};

void tst_MouseOnDesktop::clickByClick_data()
{
    QTest::addColumn<QList<Click>>("clicks");
    const auto row = [](const char *name, const QList<Click> &clicks) { QTest::newRow(name) << clicks; };
    row("plain clicks highlight one", {{none, 3, {3}}, {none, 9, {9}}, {none, 0, {0}}, {none, 5, {5}}});
    row("Control adds, and never takes away", {{none, 4, {4}},
                                               {control, 7, {4, 7}},
                                               {control, 1, {1, 4, 7}},
                                               {control, 7, {1, 4, 7}},
                                               {control, 0, {0, 1, 4, 7}}});
    row("a plain click drops what Control added",
        {{control, 4, {0, 4}}, {control, 8, {0, 4, 8}}, {none, 6, {6}}});
    row("a plain click on one of several leaves that one", {{control, 4, {0, 4}}, {none, 4, {4}}});
    row("Shift forward, over the ends of rows", {{none, 2, {2}}, {shift, 8, {2, 3, 4, 5, 6, 7, 8}}});
    row("Shift back, over the ends of rows", {{none, 8, {8}}, {shift, 2, {2, 3, 4, 5, 6, 7, 8}}});
    row("Shift to the first and the last", {{none, 9, {9}}, {shift, 0, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}}});
    row("Shift on the neighbours", {{none, 5, {5}}, {shift, 6, {5, 6}}, {shift, 4, {4, 5, 6}}});
    row("Shift on the only highlighted runs to the end", {{none, 6, {6}}, {shift, 6, {6, 7, 8, 9}}});
    row("Shift behind a run fills no gap but the first",
        {{none, 1, {1}}, {shift, 3, {1, 2, 3}}, {shift, 6, {1, 2, 3, 6}}});
    row("Shift before a run fills up to it",
        {{none, 5, {5}}, {shift, 6, {5, 6}}, {shift, 2, {2, 3, 4, 5, 6}}});
    row("Shift after Control fills the first gap",
        {{none, 1, {1}}, {control, 4, {1, 4}}, {shift, 8, {1, 2, 3, 4, 8}}});
    row("Control after Shift", {{none, 1, {1}}, {shift, 3, {1, 2, 3}}, {control, 7, {1, 2, 3, 7}}});
    row("Control and Shift click like none", {{none, 1, {1}}, {control, 3, {1, 3}}, {both, 6, {6}}});
    row("Control and Shift on one of several leave that one",
        {{none, 1, {1}}, {control, 3, {1, 3}}, {both, 3, {3}}});
}

void tst_MouseOnDesktop::clickByClick()
{
    QFETCH(QList<Click>, clicks);
    Clicking clicking;
    for (const Click &click : qAsConst(clicks)) {
        clicking.click(click.tile, click.held);
        QTRY_COMPARE(clicking.highlighted(), click.after);
        QVERIFY(clicking.allHasArrived()); // the release, too
        QCOMPARE(clicking.highlighted(), click.after);
    }
    QVERIFY(clicking.popup && clicking.popup->isVisible());
    QTRY_COMPARE(QApplication::focusWidget(), clicking.popup.data());
    QCOMPARE(clicking.opened(), QStringList());
    Hand::keepScreenshot(QStringLiteral("clicks ") + QLatin1String(QTest::currentDataTag()));
}

void tst_MouseOnDesktop::clicksOnWhatATileShowsCount_data()
{
    QTest::addColumn<QString>("label");
    QTest::newRow("the name") << QStringLiteral("title_label");
    QTest::newRow("the picture") << QStringLiteral("image_label");
    QTest::newRow("the type icon") << QStringLiteral("Iconlabel");
}

void tst_MouseOnDesktop::clicksOnWhatATileShowsCount()
{
    QFETCH(QString, label);
    Clicking clicking;
    Hand::moveTo(clicking.tiles.at(6)->findChild<QLabel *>(label));
    Hand::click();
    QTRY_COMPARE(clicking.highlighted(), Indices({6}));
    QCOMPARE(RealBrowser::pathLine(clicking.popup), clicking.browser.paths().at(6));
    QVERIFY(clicking.popup->isVisible());
}

void tst_MouseOnDesktop::pressOnOneOfSeveralKeepsThemUntilTheRelease()
{
    Clicking clicking;
    clicking.click(3, shift);
    QTRY_COMPARE(clicking.highlighted(), Indices({0, 1, 2, 3}));
    QVERIFY(clicking.allHasArrived());
    clicking.goTo(2);
    Hand::press();
    QTRY_VERIFY(QGuiApplication::mouseButtons() == Qt::LeftButton);
    drainEvents();
    QCOMPARE(clicking.highlighted(), Indices({0, 1, 2, 3}));
    Hand::keepScreenshot(QStringLiteral("pressed-on-one-of-four"));
    Hand::release();
    QTRY_COMPARE(clicking.highlighted(), Indices({2}));
    Hand::keepScreenshot(QStringLiteral("released-on-one-of-four"));
    QVERIFY(clicking.allHasArrived());
    QCOMPARE(clicking.highlighted(), Indices({2}));
    QVERIFY(clicking.popup->isVisible());
}

void tst_MouseOnDesktop::releaseWithAModifierKeepsThem_data()
{
    QTest::addColumn<QStringList>("held");
    QTest::addColumn<Indices>("after");
    QTest::newRow("Control") << control << Indices({0, 1, 2, 3});
    QTest::newRow("Shift") << shift << Indices({0, 1, 2, 3});
    QTest::newRow("Control and Shift release like none") << both << Indices({2});
}

void tst_MouseOnDesktop::releaseWithAModifierKeepsThem()
{
    QFETCH(QStringList, held);
    QFETCH(Indices, after);
    Clicking clicking;
    clicking.click(3, shift);
    QTRY_COMPARE(clicking.highlighted(), Indices({0, 1, 2, 3}));
    QVERIFY(clicking.allHasArrived());
    clicking.goTo(2);
    Hand::press(); // plain; what counts is what is held at the release
    for (const QString &key : qAsConst(held))
        Hand::holdKey(key);
    Hand::release();
    for (const QString &key : qAsConst(held))
        Hand::releaseKey(key);
    QVERIFY(clicking.allHasArrived());
    QCOMPARE(clicking.highlighted(), after);
}

void tst_MouseOnDesktop::doubleClickOpensThatTileAlone_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("amongSeveral");
    QTest::newRow("left button") << 1 << false;
    QTest::newRow("left button, on one of several") << 1 << true;
    QTest::newRow("right button, on one of several") << 3 << true;
    QTest::newRow("middle button") << 2 << false;
}

void tst_MouseOnDesktop::doubleClickOpensThatTileAlone()
{
    QFETCH(int, button);
    QFETCH(bool, amongSeveral);
    Clicking clicking;
    if (amongSeveral) {
        clicking.click(7, shift);
        QTRY_COMPARE(clicking.highlighted().size(), 8);
        QVERIFY(clicking.allHasArrived());
    }
    const QString path = clicking.browser.paths().at(5);
    clicking.goTo(5);
    QTRY_COMPARE(RealBrowser::pathLine(clicking.popup), path);
    Hand::doubleClick(button);
    QTRY_VERIFY(!clicking.popup);
    QCOMPARE(clicking.opened(), QStringList(QStringLiteral("open %1 ok").arg(path)));
}

void tst_MouseOnDesktop::twoSlowClicksOpenNothing()
{
    Clicking clicking;
    Hand::moveTo(clicking.tiles.at(5));
    Hand::click();
    QTRY_COMPARE(clicking.highlighted(), Indices({5}));
    // Clicks elsewhere in between make the second one at that place a click of its own.
    clicking.click(6);
    QTRY_COMPARE(clicking.highlighted(), Indices({6}));
    Hand::moveTo(clicking.tiles.at(5));
    Hand::click();
    QTRY_COMPARE(clicking.highlighted(), Indices({5}));
    QVERIFY(clicking.allHasArrived());
    QVERIFY(clicking.popup && clicking.popup->isVisible());
    QCOMPARE(clicking.opened(), QStringList());
}

void tst_MouseOnDesktop::rightPressChangesNothing_data()
{
    QTest::addColumn<QStringList>("held");
    QTest::addColumn<int>("tile");
    QTest::addColumn<Indices>("released");
    const Indices four{0, 1, 2, 3};
    QTest::newRow("on a tile") << none << 6 << four;
    QTest::newRow("on one of several, which the release leaves alone") << none << 2 << Indices{2};
    QTest::newRow("with Control") << control << 6 << four;
    QTest::newRow("with Shift") << shift << 6 << four;
}

void tst_MouseOnDesktop::rightPressChangesNothing()
{
    QFETCH(QStringList, held);
    QFETCH(int, tile);
    QFETCH(Indices, released);
    Clicking clicking;
    clicking.click(3, shift);
    QTRY_COMPARE(clicking.highlighted(), Indices({0, 1, 2, 3}));
    QVERIFY(clicking.allHasArrived());
    for (const QString &key : qAsConst(held))
        Hand::holdKey(key);
    clicking.goTo(tile);
    Hand::press(3);
    QTRY_VERIFY(QGuiApplication::mouseButtons() == Qt::RightButton);
    drainEvents();
    QCOMPARE(clicking.highlighted(), Indices({0, 1, 2, 3}));
    QCOMPARE(QApplication::focusWidget(), clicking.popup.data());
    Hand::keepScreenshot(QStringLiteral("right button ") + QLatin1String(QTest::currentDataTag()));
    Hand::release(3);
    for (const QString &key : qAsConst(held))
        Hand::releaseKey(key);
    QVERIFY(clicking.allHasArrived());
    QCOMPARE(clicking.highlighted(), released);
    QVERIFY(clicking.popup && clicking.popup->isVisible());
    QCOMPARE(clicking.opened(), QStringList());
}

void tst_MouseOnDesktop::middleButtonClicksLikeTheLeft()
{
    Clicking clicking;
    clicking.click(4, none, 2);
    QTRY_COMPARE(clicking.highlighted(), Indices({4}));
    clicking.click(7, control, 2);
    QTRY_COMPARE(clicking.highlighted(), Indices({4, 7}));
    QVERIFY(clicking.popup->isVisible());
}

void tst_MouseOnDesktop::clickedTilesOpenInDisplayOrder()
{
    Clicking clicking;
    clicking.click(7);
    QTRY_COMPARE(clicking.highlighted(), Indices({7}));
    clicking.click(2, control);
    QTRY_COMPARE(clicking.highlighted(), Indices({2, 7}));
    clicking.click(9, control);
    QTRY_COMPARE(clicking.highlighted(), Indices({2, 7, 9}));
    Hand::keepScreenshot(QStringLiteral("three-tiles-apart"));
    Hand::key(QStringLiteral("Return"));
    QTRY_VERIFY(!clicking.popup);
    QStringList expected;
    for (const int index : {2, 7, 9})
        expected.append(QStringLiteral("open %1 ok").arg(clicking.browser.paths().at(index)));
    QCOMPARE(clicking.opened(), expected);
}

QTEST_MAIN(tst_MouseOnDesktop)
#include "tst_mouseondesktop.moc"

// SPDX-License-Identifier: MIT
#include "tests/support/Hand.h"
#include "tests/support/RealBrowser.h"
#include "tests/support/TestCase.h"

#include <QDialog>
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>

#include <algorithm>

//! Two screens, 1600 x 1200 and 1280 x 1024 pixels to its right, and main windows that do not keep to one.
//! The popup is placed from the main window's size as if that stood at the first screen's corner, wherever it
//! is; only where there is no room for that does the main window's place count.
class tst_ScreensOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void popupStandsWhereTheRuleSays_data();
    void popupStandsWhereTheRuleSays();
    void windowManagerKeepsThePopupOnAScreen_data();
    void windowManagerKeepsThePopupOnAScreen();
};

namespace {

const QPoint aside(2870, 1190); // below the second screen, where no window reaches

//! The popup is as good here as anywhere else: keys, hovering and clicks arrive where they should.
//! \return what went wrong
QString useByHand(const RealBrowser &browser, const QPointer<QDialog> &popup)
{
    const QList<QDialog *> tiles = RealBrowser::tiles(popup);
    Hand::key(QStringLiteral("Right"));
    if (!waitUntil([&] { return RealBrowser::isHighlighted(tiles.at(1)); }))
        return QStringLiteral("the key moves no highlight");
    Hand::moveTo(tiles.at(0));
    if (!waitUntil([&] { return RealBrowser::pathLine(popup) == browser.paths().at(0); }))
        return QStringLiteral("the pointer shows no path");
    Hand::moveTo(tiles.at(2));
    Hand::doubleClick();
    const QString line = QStringLiteral("open %1 ok").arg(browser.paths().at(2));
    if (!waitUntil([&] { return browser.log().contains(line); }))
        return QStringLiteral("the double-click opens nothing");
    return waitUntil([&] { return popup.isNull(); }) ? QString() : QStringLiteral("the popup stays");
}

QString screenshotName()
{
    return QLatin1String("screens ") + QLatin1String(QTest::currentDataTag());
}

} // namespace

void tst_ScreensOnDesktop::initTestCase()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    QCOMPARE(screens.size(), 2);
    QCOMPARE(screens.at(0)->geometry(), QRect(0, 0, 1600, 1200));
    QCOMPARE(screens.at(1)->geometry(), QRect(1600, 0, 1280, 1024));
}

void tst_ScreensOnDesktop::popupStandsWhereTheRuleSays_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<int>("documents");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("main window on the second screen")
        << QRect(1640, 60, 1200, 900) << 4 << QRect(328, 275, 543, 350);
    QTest::newRow("small main window on the second screen, larger popup")
        << QRect(1800, 300, 500, 400) << 9 << QRect(1800, 300, 724, 525);
    QTest::newRow("small main window on the second screen, wider popup")
        << QRect(1800, 300, 500, 400) << 4 << QRect(300, 99, 724, 201);
    QTest::newRow("main window over both screens")
        << QRect(1000, 100, 1300, 900) << 4 << QRect(288, 349, 724, 201);
    QTest::newRow("main window over the right edge")
        << QRect(2300, 100, 1300, 900) << 4 << QRect(288, 349, 724, 201);
    QTest::newRow("main window over the lower edge")
        << QRect(100, 700, 1300, 900) << 4 << QRect(288, 349, 724, 201);
    QTest::newRow("main window over the left edge")
        << QRect(-500, 100, 1300, 900) << 4 << QRect(288, 349, 724, 201);
}

void tst_ScreensOnDesktop::popupStandsWhereTheRuleSays()
{
    QFETCH(QRect, frame);
    QFETCH(int, documents);
    QFETCH(QRect, expected);

    Hand::moveTo(aside);
    RealBrowser browser(documents, frame);
    const QRect real = browser.window().geometry();
    QCOMPARE(real.size(), frame.size());
    // Where the main window's place counts, it is the one that the window manager has given it.
    if (expected.topLeft() == frame.topLeft())
        expected.moveTopLeft(real.topLeft());
    else if (expected.x() == frame.top())
        expected.moveLeft(real.top());
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    QTRY_COMPARE(Hand::realGeometry(popup->winId()), expected);
    QCOMPARE(popup->geometry(), expected);
    Hand::keepScreenshot(screenshotName());
    const QString opened = useByHand(browser, popup);
    QVERIFY2(opened.isEmpty(), qPrintable(opened));
}

void tst_ScreensOnDesktop::windowManagerKeepsThePopupOnAScreen_data()
{
    QTest::addColumn<QRect>("frame");
    QTest::addColumn<int>("documents");
    QTest::addColumn<QSize>("size");
    QTest::newRow("wide main window, popup over both screens")
        << QRect(10, 40, 2890, 900) << 13 << QSize(1448, 350);
    QTest::newRow("high main window, popup over the lower edge")
        << QRect(10, 40, 800, 1500) << 18 << QSize(543, 1050);
    QTest::newRow("popup wider than a screen") << QRect(10, 40, 4000, 900) << 13 << QSize(2172, 350);
    QTest::newRow("popup higher than a screen") << QRect(10, 40, 800, 1500) << 21 << QSize(543, 1225);
}

//! Where a popup would not be on one screen, the window manager moves it, and has the last word. The size
//! stays, and the popup knows where it is: its rim and its focus are judged by that.
void tst_ScreensOnDesktop::windowManagerKeepsThePopupOnAScreen()
{
    QFETCH(QRect, frame);
    QFETCH(int, documents);
    QFETCH(QSize, size);

    Hand::moveTo(aside);
    RealBrowser browser(documents, frame);
    QCOMPARE(browser.window().geometry().size(), frame.size());
    const QPointer<QDialog> popup = browser.openPopup();
    QVERIFY(popup);
    const auto realPlace = [&] { return Hand::realGeometry(popup->winId()); };
    QTRY_COMPARE(realPlace().size(), size);
    QTRY_COMPARE(popup->geometry(), realPlace());
    const QList<QScreen *> screens = QGuiApplication::screens();
    QVERIFY(std::any_of(screens.begin(), screens.end(), [&](const QScreen *screen) {
        return screen->geometry().contains(realPlace().topLeft());
    }));
    Hand::keepScreenshot(screenshotName());
    const QString opened = useByHand(browser, popup);
    QVERIFY2(opened.isEmpty(), qPrintable(opened));
}

QTEST_MAIN(tst_ScreensOnDesktop)
#include "tst_screensondesktop.moc"

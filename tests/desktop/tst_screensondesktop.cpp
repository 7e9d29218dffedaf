// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/TestCase.h"
#include "tests/support/real/RealBrowser.h"

#include <QDialog>
#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

//! Two screens, 1600 x 1200 and 1280 x 1024 pixels to its right, and main windows on both of them. The popup
//! is placed from the main window's size as if that were at the first screen's corner; the main window's
//! position only counts where there is no room for that.
class tst_ScreensOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const QList<QScreen *> screens = QGuiApplication::screens();
        QCOMPARE(screens.size(), 2);
        QCOMPARE(screens.at(0)->geometry(), QRect(0, 0, 1600, 1200));
        QCOMPARE(screens.at(1)->geometry(), QRect(1600, 0, 1280, 1024));
    }

    void popupKeepsToTheScreensAndCanBeUsed_data()
    {
        QTest::addColumn<QRect>("frame");
        QTest::addColumn<int>("documents");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QPoint>("place"); // null where it would not be on one screen
        const auto row = [](const char *name, const QRect &frame, int documents, const QSize &size,
                            const QPoint &place = {}) {
            QTest::newRow(name) << frame << documents << size << place;
        };
        row("on the second screen", {1640, 60, 1200, 900}, 4, {543, 350}, {328, 275});
        row("small on the second screen, larger popup", {1800, 300, 500, 400}, 9, {724, 525}, {1800, 300});
        row("small on the second screen, wider popup", {1800, 300, 500, 400}, 4, {724, 201}, {300, 99});
        row("over both screens", {1000, 100, 1300, 900}, 4, {724, 201}, {288, 349});
        row("over the lower edge", {100, 700, 1300, 900}, 4, {724, 201}, {288, 349});
        row("over the left edge", {-500, 100, 1300, 900}, 4, {724, 201}, {288, 349});
        row("wide, popup over both screens", {10, 40, 2890, 900}, 13, {1448, 350});
        row("high, popup higher than a screen", {10, 40, 800, 1500}, 21, {543, 1225});
    }

    void popupKeepsToTheScreensAndCanBeUsed()
    {
        QFETCH(QRect, frame);
        QFETCH(int, documents);
        QFETCH(QSize, size);
        QFETCH(QPoint, place);
        Hand::moveTo(QPoint(2870, 1190)); // below the second screen, beside every window
        RealBrowser browser(documents, frame);
        const QRect real = browser.window().geometry();
        QCOMPARE(real.size(), frame.size());
        const QPointer<QDialog> popup = browser.openPopup();
        QVERIFY(popup);
        const auto realPlace = [&] { return Hand::realGeometry(popup->winId()); };
        QTRY_COMPARE(realPlace().size(), size);
        if (place.isNull()) {
            // The window manager moves it. The popup must know its position, on which its rim and focus
            // depend.
            const QList<QScreen *> screens = QGuiApplication::screens();
            QVERIFY(std::any_of(screens.begin(), screens.end(), [&](const QScreen *screen) {
                return screen->geometry().contains(realPlace().topLeft());
            }));
        } else {
            // The main window's position is the one that the window manager has given it.
            if (place == frame.topLeft())
                place = real.topLeft();
            else if (place.x() == frame.top())
                place.setX(real.top());
            QTRY_COMPARE(realPlace().topLeft(), place);
        }
        QTRY_COMPARE(popup->geometry(), realPlace());
        Hand::keepScreenshot(QString("screens ") + QLatin1String(QTest::currentDataTag()));

        // Keys, hovering and clicks work here too.
        const QList<QDialog *> tiles = RealBrowser::tiles(popup);
        Hand::key("Right");
        QTRY_VERIFY(RealBrowser::isHighlighted(tiles.at(1)));
        Hand::moveTo(tiles.at(0));
        QTRY_COMPARE(RealBrowser::pathLine(popup), browser.paths().at(0));
        Hand::moveTo(tiles.at(2));
        Hand::doubleClick();
        QTRY_COMPARE(browser.opened(), browser.opening({2}));
        QTRY_VERIFY(!popup);
    }
};

TEST_CLASS(tst_ScreensOnDesktop);
#include "tst_screensondesktop.moc"

// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/TestCase.h"
#include "tests/support/process/ProgramOnScreen.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include <utility>

namespace {

//! The program's main window with its frame, the popup over it, and in the popup the middle of a tile and its
//! pin; in global pixels.
const QRect mainWindow(59, 40, 1002, 662);
const QRect popupPlace(228, 145, 543, 350);
const QPoint firstTile = popupPlace.topLeft() + QPoint(91, 120);
const QPoint pinOfFifthTile = popupPlace.topLeft() + QPoint(330, 231);

QImage picture()
{
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, mainWindow.x(), mainWindow.y(), mainWindow.width(), mainWindow.height())
        .toImage();
}

//! Keeps a picture as soon as two in a row are the same: the program paints in its own time.
void keepPicture(const char *name)
{
    QImage last;
    QVERIFY(waitUntil([&last] {
        const QImage before = std::exchange(last, picture());
        return before == last;
    }));
    Hand::keepScreenshot(QLatin1String(name), mainWindow);
}

} // namespace

//! A person's few minutes with the browser, over the sample drawings: opening it, choosing three drawings
//! with the keyboard, dragging them out, and keeping one in front. The pictures are those of the README.
class tst_TourOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void fromF4ToAPinnedDrawing()
    {
        ProgramOnScreen program(6);
        program.geometry = QStringLiteral("1000x640+60+60");
        QVERIFY(program.start({QStringLiteral("_NEW")}));

        Hand::key(QStringLiteral("F4"));
        QVERIFY(ProgramOnScreen::popupComes());
        const WId popup = ProgramOnScreen::popup();
        QTRY_COMPARE(Hand::realGeometry(popup), popupPlace);
        keepPicture("tour-1-popup");

        Hand::key(QStringLiteral("shift+Right"));
        Hand::key(QStringLiteral("shift+Right"));
        keepPicture("tour-2-three-highlighted");

        Hand::moveTo(firstTile);
        Hand::press();
        QPoint position = firstTile;
        for (; position.y() < popupPlace.bottom(); position.ry() += 4)
            Hand::moveTo(position);
        QTRY_COMPARE(Hand::realGeometry(popup), QRect(popupPlace.topLeft(), QSize(popupPlace.width(), 32)));
        for (; position.x() < popupPlace.right(); position += QPoint(8, -3))
            Hand::moveTo(position);
        keepPicture("tour-3-dragged-out");

        Hand::release();
        QTRY_COMPARE(program.opened(), program.paths().mid(0, 3));
        QVERIFY(ProgramOnScreen::popupGoes());
        keepPicture("tour-4-opened");

        Hand::key(QStringLiteral("F4"));
        QVERIFY(ProgramOnScreen::popupComes());
        Hand::moveTo(pinOfFifthTile);
        Hand::click();
        Hand::key(QStringLiteral("Escape"));
        QVERIFY(ProgramOnScreen::popupGoes());
        Hand::moveTo(QPoint(0, 0));
        Hand::key(QStringLiteral("F4"));
        QVERIFY(ProgramOnScreen::popupComes());
        keepPicture("tour-5-pinned-first");
        // The fifth of what was recent then: the three opened ones, the last of them first, and the rest.
        Hand::key(QStringLiteral("Return"));
        QTRY_COMPARE(program.opened().size(), 4);
        QVERIFY(program.quit()); // what came in late has been dealt with by then
        QCOMPARE(program.opened(), program.paths().mid(0, 3) + program.paths().mid(4, 1));
    }
};

TEST_CLASS(tst_TourOnDesktop);
#include "tst_tourondesktop.moc"

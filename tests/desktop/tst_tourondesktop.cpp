// SPDX-License-Identifier: MIT
#include "tests/desktop/Hand.h"
#include "tests/support/TestCase.h"
#include "tests/support/process/ProgramOnScreen.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include <utility>

namespace {

//! The program's main window with its frame, the popup over it, and in the popup the centre of a tile and the
//! pin of another one; in global pixels.
const QRect mainWindow(59, 40, 1002, 662);
const QRect popupPlace(228, 145, 543, 350);
const QPoint firstTile = popupPlace.topLeft() + QPoint(91, 120);
const QPoint pinOfFifthTile = popupPlace.topLeft() + QPoint(330, 231);

//! Where the strip and a tile below it are after the drag.
const QRect dragPlace(popupPlace.topLeft(), QSize(popupPlace.width(), 250));

QImage picture(const QRect &area)
{
    return QGuiApplication::primaryScreen()
        ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
        .toImage();
}

//! Saves a picture as soon as two in a row are equal, since the program paints asynchronously.
void keepPicture(const char *name, const QRect &area)
{
    QImage last;
    QVERIFY(waitUntil([&] {
        const QImage before = std::exchange(last, picture(area));
        return before == last;
    }));
    Hand::keepScreenshot(QLatin1String(name), area);
}

} // namespace

//! A tour of the browser over the sample drawings: opening it, highlighting three drawings with the keyboard,
//! dragging them out, and pinning one. The README and the help show the pictures, reduced to 255 colours so
//! that they are small: convert -dither None -colors 255 FILE PNG8:docs/images/FILE
class tst_TourOnDesktop : public TestCase
{
    Q_OBJECT

private slots:
    void fromF4ToAPinnedDrawing()
    {
        ProgramOnScreen program(6);
        program.geometry = "1000x640+60+60";
        QVERIFY(program.start({"_NEW"}));

        Hand::key("F4");
        QVERIFY(ProgramOnScreen::popupOpens());
        const WId popup = ProgramOnScreen::popup();
        QTRY_COMPARE(Hand::realGeometry(popup), popupPlace);
        keepPicture("tour-1-popup", mainWindow);

        Hand::key("shift+Right");
        Hand::key("shift+Right");
        keepPicture("tour-2-three-highlighted", popupPlace);

        Hand::moveTo(firstTile);
        Hand::press();
        QPoint position = firstTile;
        for (; position.y() < popupPlace.bottom(); position.ry() += 4)
            Hand::moveTo(position);
        QTRY_COMPARE(Hand::realGeometry(popup), QRect(popupPlace.topLeft(), QSize(popupPlace.width(), 32)));
        for (; position.x() < popupPlace.right() - 90; position += QPoint(8, -4))
            Hand::moveTo(position);
        keepPicture("tour-3-dragged-out", dragPlace);

        Hand::release();
        QTRY_COMPARE(program.opened(), program.paths().mid(0, 3));
        QVERIFY(ProgramOnScreen::popupCloses());
        keepPicture("tour-4-opened", mainWindow);

        Hand::key("F4");
        QVERIFY(ProgramOnScreen::popupOpens());
        Hand::click(pinOfFifthTile);
        Hand::key("Escape");
        QVERIFY(ProgramOnScreen::popupCloses());
        Hand::moveTo(QPoint(0, 0));
        Hand::key("F4");
        QVERIFY(ProgramOnScreen::popupOpens());
        keepPicture("tour-5-pinned-first", popupPlace);
        // The three opened ones are the most recent now, so the fifth recent drawing is still the fifth.
        Hand::key("Return");
        QTRY_COMPARE(program.opened().size(), 4);
        QVERIFY(program.quit()); // then nothing is pending
        QCOMPARE(program.opened(), program.paths().mid(0, 3) + program.paths().mid(4, 1));
    }
};

TEST_CLASS(tst_TourOnDesktop);
#include "tst_tourondesktop.moc"

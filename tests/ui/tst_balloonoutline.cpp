// SPDX-License-Identifier: MIT
#include "ui/QBalloonTip.h"

#include "tests/support/TestCase.h"

#include <QApplication>
#include <QLayout>
#include <QScreen>

namespace {

const QColor ground(248, 248, 248);
const QColor border(155, 155, 155); // the ground, darker by 1.6

QImage picture()
{
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    return image;
}

//! Shows a balloon and returns it.
QBalloonTip *showAt(const QPoint &position, bool showArrow = true, const QImage &icon = picture())
{
    QBalloonTip::hideBalloon();
    drainEvents();
    QBalloonTip::showBalloon(icon, QStringLiteral("Gear"), QStringLiteral("Show in Folder"), position, 1000,
                             showArrow);
    drainEvents();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (auto *balloon = qobject_cast<QBalloonTip *>(window))
            return balloon;
    }
    return nullptr;
}

QRect screenArea()
{
    return QGuiApplication::primaryScreen()->geometry();
}

//! The lowest tip at which the balloon's content still stands low: it and 18 pixels end on the screen. Before
//! its margins are set the balloon is 24 pixels less high.
int lowestUnflipped(const QWidget *balloon)
{
    constexpr int margins = 21 + 3;
    return screenArea().height() - 1 - 18 - (balloon->sizeHint().height() - margins);
}

} // namespace

class TestBalloonOutline : public TestCase
{
    Q_OBJECT

private slots:
    void cleanupTestCase();
    void tipStandsAtThePosition_data();
    void tipStandsAtThePosition();
    void leftOfTheScreenItIsMovedIn_data();
    void leftOfTheScreenItIsMovedIn();
    void marginsFlipNearTheBottom_data();
    void marginsFlipNearTheBottom();
    void contentMovesUpNearTheBottomButNotTheOutline();
    void maskIsTheBodyAndThePointer_data();
    void maskIsTheBodyAndThePointer();
    void cornersAreRounded();
    void pointerIsDrawnWithoutAnArrowToo();
    void bodyIsPaleWithADarkerBorder();
    void pointerHasABorderAndTheBodyNoneBehindIt();
    void pictureIsPaintedOverTheWholeBalloon();
};

void TestBalloonOutline::cleanupTestCase()
{
    QBalloonTip::hideBalloon();
    drainEvents();
}

void TestBalloonOutline::tipStandsAtThePosition_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::newRow("amid the screen") << QPoint(300, 200);
    QTest::newRow("at the left of the screen") << QPoint(0, 200);
    QTest::newRow("at the top of the screen") << QPoint(300, 30);
    QTest::newRow("at the right of the screen: it reaches out") << QPoint(790, 200);
    QTest::newRow("at the bottom of the screen: it reaches out") << QPoint(300, 790);
}

void TestBalloonOutline::tipStandsAtThePosition()
{
    QFETCH(QPoint, position);
    const QBalloonTip *balloon = showAt(position);
    QVERIFY(balloon);
    constexpr QPoint tip(0, 25);
    QCOMPARE(balloon->pos() + tip, position);
}

void TestBalloonOutline::leftOfTheScreenItIsMovedIn_data()
{
    QTest::addColumn<int>("x");
    QTest::newRow("by one pixel") << -1;
    QTest::newRow("far") << -500;
}

void TestBalloonOutline::leftOfTheScreenItIsMovedIn()
{
    QFETCH(int, x);
    const QBalloonTip *balloon = showAt(QPoint(x, 200));
    QCOMPARE(balloon->pos(), QPoint(screenArea().left(), 175));
}

void TestBalloonOutline::marginsFlipNearTheBottom_data()
{
    QTest::addColumn<bool>("withPicture");
    QTest::newRow("with a picture") << true;
    QTest::newRow("without") << false;
}

void TestBalloonOutline::marginsFlipNearTheBottom()
{
    QFETCH(bool, withPicture);
    const QImage icon = withPicture ? picture() : QImage();
    const int lowest = lowestUnflipped(showAt(QPoint(300, 100), true, icon));
    QCOMPARE(showAt(QPoint(300, 100), true, icon)->contentsMargins(), QMargins(4, 21, 4, 3));
    QCOMPARE(showAt(QPoint(300, lowest), true, icon)->contentsMargins(), QMargins(4, 21, 4, 3));
    QCOMPARE(showAt(QPoint(300, lowest + 1), true, icon)->contentsMargins(), QMargins(4, 3, 4, 21));
    QCOMPARE(showAt(QPoint(300, lowest + 50), true, icon)->contentsMargins(), QMargins(4, 3, 4, 21));
}

void TestBalloonOutline::contentMovesUpNearTheBottomButNotTheOutline()
{
    const QBalloonTip *high = showAt(QPoint(300, 100));
    const int lowest = lowestUnflipped(high);
    const QRegion outline = high->mask();
    const QSize size = high->size();
    const QRect content = high->layout()->geometry();

    const QBalloonTip *low = showAt(QPoint(300, lowest + 1));
    QCOMPARE(low->pos(), QPoint(300, lowest + 1 - 25));
    QCOMPARE(low->size(), size);
    QCOMPARE(low->mask(), outline);
    QCOMPARE(low->layout()->geometry(), content.translated(0, -18));
}

void TestBalloonOutline::maskIsTheBodyAndThePointer_data()
{
    QTest::addColumn<QPoint>("fromLeftTop"); // counted from the balloon's left top when both are 0 or more
    QTest::addColumn<QPoint>("fromRightBottom"); // else from its last pixel
    QTest::addColumn<bool>("inside");
    const QPoint none(-1, -1);
    QTest::newRow("the tip") << QPoint(0, 25) << none << true;
    QTest::newRow("above the tip") << QPoint(0, 23) << none << false;
    QTest::newRow("below the tip") << QPoint(0, 27) << none << false;
    QTest::newRow("in the pointer") << QPoint(20, 30) << none << true;
    QTest::newRow("above the pointer") << QPoint(20, 23) << none << false;
    QTest::newRow("below the pointer") << QPoint(20, 38) << none << false;
    QTest::newRow("the pointer's root") << QPoint(37, 40) << none << true;
    QTest::newRow("below the pointer's root") << QPoint(36, 47) << none << false;
    QTest::newRow("the body's left edge") << QPoint(38, 60) << none << true;
    QTest::newRow("left of the body") << QPoint(36, 60) << none << false;
    QTest::newRow("the body's top edge") << QPoint(100, 18) << none << true;
    QTest::newRow("above the body") << QPoint(100, 16) << none << false;
    QTest::newRow("the balloon's left top") << QPoint(0, 0) << none << false;
    QTest::newRow("amid the body") << QPoint(100, 60) << none << true;
    QTest::newRow("the body's right edge") << none << QPoint(0, 50) << true;
    QTest::newRow("the body's bottom edge") << none << QPoint(50, 0) << true;
    QTest::newRow("the right bottom corner") << none << QPoint(0, 0) << false;
}

void TestBalloonOutline::maskIsTheBodyAndThePointer()
{
    QFETCH(QPoint, fromLeftTop);
    QFETCH(QPoint, fromRightBottom);
    QFETCH(bool, inside);
    const QBalloonTip *balloon = showAt(QPoint(300, 100));
    const QPoint point = fromLeftTop.x() >= 0 ? fromLeftTop : balloon->rect().bottomRight() - fromRightBottom;
    QCOMPARE(balloon->mask().contains(point), inside);
}

void TestBalloonOutline::cornersAreRounded()
{
    const QBalloonTip *balloon = showAt(QPoint(300, 100));
    const QRegion mask = balloon->mask();
    const QRect body(QPoint(38, 18), balloon->rect().bottomRight());
    const QList<QPair<QPoint, QPoint>> corners = {{body.topLeft(), {1, 1}},
                                                  {body.topRight(), {-1, 1}},
                                                  {body.bottomLeft(), {1, -1}},
                                                  {body.bottomRight(), {-1, -1}}};
    for (const auto &corner : corners) {
        // On the diagonal an arc of radius 7 leaves the first two pixels free.
        QVERIFY(!mask.contains(corner.first));
        QVERIFY(!mask.contains(corner.first + corner.second));
        QVERIFY(mask.contains(corner.first + 3 * corner.second));
        // Where the arcs end the edges begin.
        QVERIFY(mask.contains(corner.first + QPoint(8 * corner.second.x(), 0)));
        QVERIFY(mask.contains(corner.first + QPoint(0, 8 * corner.second.y())));
    }
}

void TestBalloonOutline::pointerIsDrawnWithoutAnArrowToo()
{
    const QRegion with = showAt(QPoint(300, 100), true)->mask();
    const QRegion without = showAt(QPoint(300, 100), false)->mask();
    QCOMPARE(without, with);
    QVERIFY(without.contains(QPoint(0, 25)));
}

void TestBalloonOutline::bodyIsPaleWithADarkerBorder()
{
    QBalloonTip *balloon = showAt(QPoint(300, 100));
    const QImage image = balloon->grab().toImage();
    const int right = balloon->width() - 1;
    const int bottom = balloon->height() - 1;

    QCOMPARE(image.pixelColor(100, 18), border);
    QCOMPARE(image.pixelColor(100, 19), ground);
    QCOMPARE(image.pixelColor(right, 60), border);
    QCOMPARE(image.pixelColor(right - 1, 60), ground);
    QCOMPARE(image.pixelColor(100, bottom), border);
    QCOMPARE(image.pixelColor(100, bottom - 1), ground);
    QCOMPARE(image.pixelColor(38, 60), border);
    QCOMPARE(image.pixelColor(39, 60), ground);
}

void TestBalloonOutline::pointerHasABorderAndTheBodyNoneBehindIt()
{
    QBalloonTip *balloon = showAt(QPoint(300, 100));
    const QImage image = balloon->grab().toImage();
    QCOMPARE(image.pixelColor(20, 25), border); // its upper edge is level
    QCOMPARE(image.pixelColor(20, 30), ground);
    for (int y = 26; y <= 43; ++y) // from the pointer into the body
        QCOMPARE(image.pixelColor(38, y), ground);
}

void TestBalloonOutline::pictureIsPaintedOverTheWholeBalloon()
{
    QBalloonTip *balloon = showAt(QPoint(300, 100));
    // The outline was drawn for this size; in another one it is stretched.
    balloon->layout()->setSizeConstraint(QLayout::SetNoConstraint);
    balloon->setMinimumSize(0, 0);
    balloon->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    balloon->resize(balloon->width() * 2, balloon->height());
    const QImage image = balloon->grab().toImage();
    QCOMPARE(image.pixelColor(2 * 38, 80), border);
    QCOMPARE(image.pixelColor(2 * 38 + 1, 80), border);
    QCOMPARE(image.pixelColor(2 * 39 + 2, 80), ground);
}

QTEST_MAIN(TestBalloonOutline)
#include "tst_balloonoutline.moc"

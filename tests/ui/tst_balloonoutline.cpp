// SPDX-License-Identifier: MIT
#include "ui/QBalloonTip.h"

#include "tests/support/TestCase.h"

#include <QApplication>
#include <QBitmap>
#include <QLayout>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include <qpa/qplatformscreen.h>
#include <qpa/qwindowsysteminterface.h>

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

//! A primary screen that does not begin at the corner.
class ScreenElsewhere : public QPlatformScreen
{
public:
    QRect geometry() const override { return {1000, 500, 800, 800}; }
    int depth() const override { return 32; }
    QImage::Format format() const override { return QImage::Format_RGB32; }
};

//! The body, with round corners, and the pointer at its left.
QPainterPath outlineOf(const QSize &size)
{
    const int width = size.width();
    const int height = size.height();
    QPainterPath path(QPointF(45, 18));
    path.lineTo(width - 8, 18);
    path.arcTo(width - 15, 18, 14, 14, 90, -90);
    path.lineTo(width - 1, height - 8);
    path.arcTo(width - 15, height - 15, 14, 14, 0, -90);
    path.lineTo(45, height - 1);
    path.arcTo(38, height - 15, 14, 14, -90, -90);
    path.lineTo(38, 45);
    path.lineTo(0, 25);
    path.lineTo(38, 25);
    path.arcTo(38, 18, 14, 14, 180, -90);
    return path;
}

void drawOutline(QPainter &painter, const QColor &line, const QColor &fill)
{
    painter.setPen(QPen(line, 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    painter.setBrush(fill);
    painter.drawPath(outlineOf({painter.device()->width(), painter.device()->height()}));
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
    void screenMayBeginElsewhere();
    void bodyIsPaleAndHasAPointer();
    void pointerIsDrawnWithoutAnArrowToo();
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

void TestBalloonOutline::screenMayBeginElsewhere()
{
    auto *screen = new ScreenElsewhere;
    QWindowSystemInterface::handleScreenAdded(screen, true);
    const int lowest = lowestUnflipped(showAt(QPoint(1100, 600)));
    const QMargins margins = showAt(QPoint(1100, lowest))->contentsMargins();
    const QMargins flipped = showAt(QPoint(1100, lowest + 1))->contentsMargins();
    const QPoint movedIn = showAt(QPoint(-1, 200))->pos(); // on no screen
    QBalloonTip::hideBalloon();
    drainEvents();
    QWindowSystemInterface::handleScreenRemoved(screen);
    QCOMPARE(margins, QMargins(4, 21, 4, 3));
    QCOMPARE(flipped, QMargins(4, 3, 4, 21)); // the height counts, and not where the screen ends
    QCOMPARE(movedIn, QPoint(1000, 175));
}

void TestBalloonOutline::bodyIsPaleAndHasAPointer()
{
    QBalloonTip *balloon = showAt(QPoint(300, 100));
    QBitmap mask(balloon->size());
    mask.fill(Qt::color0);
    QPainter stencil(&mask);
    drawOutline(stencil, Qt::color1, Qt::color1);
    stencil.end();
    QCOMPARE(balloon->mask(), QRegion(mask));

    QImage image(balloon->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QImage expected = image;
    balloon->render(&image, balloon->mask().boundingRect().topLeft(), balloon->mask(),
                    {}); // without what stands in it
    QPainter painter(&expected);
    painter.setClipRegion(balloon->mask());
    drawOutline(painter, border, ground);
    QCOMPARE(image, expected);
}

void TestBalloonOutline::pointerIsDrawnWithoutAnArrowToo()
{
    const QRegion with = showAt(QPoint(300, 100), true)->mask();
    const QRegion without = showAt(QPoint(300, 100), false)->mask();
    QCOMPARE(without, with);
    QVERIFY(without.contains(QPoint(0, 25)));
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

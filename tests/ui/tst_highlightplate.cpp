// SPDX-License-Identifier: MIT
#include "ui/HighlightEffect.h"

#include "tests/support/Browser.h"
#include "tests/support/TestCase.h"
#include "ui/RecentDocDialog.h"
#include "ui/RecentDocMainWindow.h"

#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <cstdlib>
#include <functional>

//! A way to a picture of a popup, of one pixel or more for each pixel of the popup.
using Camera = std::function<QImage(QWidget *)>;
Q_DECLARE_METATYPE(Camera)

namespace {

const QColor highlightColor(0, 0, 150, 100);
const QColor restingColor(248, 248, 248, 255);

QImage rendered(QWidget *widget, int ratio)
{
    QImage image(widget->size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    widget->render(&image);
    return image;
}

//! What the window system has got from the window.
QImage seenOnScreen(QWidget *widget)
{
    drainEvents();
    const QWindow *window = widget->windowHandle();
    const QPixmap grabbed =
        window->screen()->grabWindow(window->winId(), 0, 0, widget->width(), widget->height());
    return grabbed.toImage().convertToFormat(QImage::Format_RGB32);
}

//! What a colour over another looks like.
QColor over(const QColor &ground, const QColor &color)
{
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.fill(ground);
    QPainter painter(&pixel);
    painter.fillRect(pixel.rect(), color);
    return pixel.pixelColor(0, 0);
}

bool isNearly(const QColor &a, const QColor &b)
{
    constexpr int rounding = 2; // of 255
    return std::abs(a.red() - b.red()) <= rounding && std::abs(a.green() - b.green()) <= rounding &&
           std::abs(a.blue() - b.blue()) <= rounding;
}

//! The area in the popup's units as pixels of a picture of it.
QRect inPixels(const QRect &area, int ratio)
{
    return {area.topLeft() * ratio, area.size() * ratio};
}

//! Where a tile's plate shows outside of the tile, in the popup's units: at so many pixels' distance on each
//! of the four sides. The corners, which are rounded, are left out.
QList<QRect> sidesOf(const QRect &tile, int distance)
{
    return {
        {tile.left(), tile.top() - distance, tile.width(), 1},
        {tile.left(), tile.bottom() + distance, tile.width(), 1},
        {tile.left() - distance, tile.top(), 1, tile.height()},
        {tile.right() + distance, tile.top(), 1, tile.height()},
    };
}

//! The first pixel of an area that differs from what it should be, in words; empty when there is none.
QString firstStrangePixel(const QImage &picture, const QRect &area,
                          const std::function<QColor(const QPoint &)> &wanted)
{
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor color = picture.pixelColor(x, y);
            if (!isNearly(color, wanted({x, y}))) {
                return QStringLiteral("pixel %1, %2 is %3 and not %4")
                    .arg(x)
                    .arg(y)
                    .arg(color.name(), wanted({x, y}).name());
            }
        }
    }
    return {};
}

//! Whether a tile stands in the picture as in a picture without its effect, with the plate of a colour around
//! it, and nothing else has changed. Says what is wrong; empty when nothing is.
QString plateFault(const QImage &picture, const QImage &plain, const QRect &tile, const QColor &color)
{
    const int ratio = qRound(picture.devicePixelRatio());
    const auto asPlain = [&plain](const QPoint &pixel) { return plain.pixelColor(pixel); };
    const auto plate = [&](const QPoint &pixel) { return over(plain.pixelColor(pixel), color); };

    const QString inTile = firstStrangePixel(picture, inPixels(tile, ratio), asPlain);
    if (!inTile.isEmpty())
        return QStringLiteral("tile: ") + inTile;
    for (const int distance : {1, 2}) {
        const QList<QRect> sides = sidesOf(tile, distance);
        for (const QRect &side : sides) {
            const QString inPlate = firstStrangePixel(picture, inPixels(side, ratio), plate);
            if (!inPlate.isEmpty())
                return QStringLiteral("plate: ") + inPlate;
        }
    }
    constexpr int reach = 4; // the plate's two and a half and their neighbour
    const QRect around = inPixels(tile.adjusted(-reach, -reach, reach, reach), ratio);
    const QString outside = firstStrangePixel(picture, picture.rect(), [&](const QPoint &pixel) {
        return around.contains(pixel) ? picture.pixelColor(pixel) : plain.pixelColor(pixel);
    });
    return outside.isEmpty() ? QString() : QStringLiteral("outside: ") + outside;
}

//! An open popup of two rows of tiles, one of which is highlighted.
struct OpenPopup
{
    explicit OpenPopup(int highlighted) : browser(8)
    {
        browser.createDocument();
        popup = browser.openPopup();
        tile = browser.tiles().at(highlighted);
        browser.tiles().at(0)->setHighlightEffect(nullptr);
        tile->highlight();
        isExposed = waitForExposed(popup);
    }
    QImage withoutEffect(const Camera &camera) const
    {
        tile->graphicsEffect()->setEnabled(false);
        const QImage picture = camera(popup);
        tile->graphicsEffect()->setEnabled(true);
        return picture;
    }

    Browser browser;
    RecentDocMainWindow *popup;
    RecentDocDialog *tile;
    bool isExposed;
};

} // namespace

class TestHighlightPlate : public TestCase
{
    Q_OBJECT

private slots:
    void writingAPropertyAsksForNoRepaint_data();
    void writingAPropertyAsksForNoRepaint();
    void boundsOfATile();
    void plateSurroundsTheTile_data();
    void plateSurroundsTheTile();
    void recolouredPlateSurroundsTheTile();
    void severalPlatesStandBesideEachOther();
    void plateGrowsAtTheNextRepaint();
    void smallOffsetsMakeTheTileVanish_data();
    void smallOffsetsMakeTheTileVanish();
};

void TestHighlightPlate::writingAPropertyAsksForNoRepaint_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QVariant>("value");
    QTest::newRow("colour") << QByteArray("color") << QVariant(restingColor);
    QTest::newRow("offset") << QByteArray("offset") << QVariant(QPointF(10, 10));
}

void TestHighlightPlate::writingAPropertyAsksForNoRepaint()
{
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);
    const OpenPopup open(1);
    QVERIFY(open.isExposed);
    const QImage before = seenOnScreen(open.popup);
    QVERIFY(open.tile->graphicsEffect()->setProperty(name, value));
    QCOMPARE(seenOnScreen(open.popup), before);
    open.popup->update();
    QVERIFY(seenOnScreen(open.popup) != before);
}

void TestHighlightPlate::boundsOfATile()
{
    const OpenPopup open(0);
    QCOMPARE(open.tile->graphicsEffect()->boundingRect(), QRectF(-2.5, -2.5, 161 + 5, 131 + 5));
}

void TestHighlightPlate::plateSurroundsTheTile_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<Camera>("camera");
    const QList<QPair<const char *, Camera>> cameras = {
        {"at ratio 1", [](QWidget *widget) { return rendered(widget, 1); }},
        {"at ratio 2", [](QWidget *widget) { return rendered(widget, 2); }},
        {"on screen", seenOnScreen},
    };
    const QList<QPair<const char *, int>> tiles = {
        {"first", 0}, {"first row's last", 3}, {"second row's first", 4}, {"second row's third", 6}};
    for (const auto &camera : cameras) {
        for (const auto &tile : tiles)
            QTest::addRow("the %s tile, %s", tile.first, camera.first) << tile.second << camera.second;
    }
}

void TestHighlightPlate::plateSurroundsTheTile()
{
    QFETCH(int, index);
    QFETCH(Camera, camera);
    const OpenPopup open(index);
    QVERIFY(open.isExposed);
    const QImage plain = open.withoutEffect(camera);
    const QString fault = plateFault(camera(open.popup), plain, open.tile->geometry(), highlightColor);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void TestHighlightPlate::recolouredPlateSurroundsTheTile()
{
    const OpenPopup open(1);
    open.tile->clearHighlight();
    const Camera camera = [](QWidget *widget) { return rendered(widget, 1); };
    const QImage plain = open.withoutEffect(camera);
    const QString fault = plateFault(camera(open.popup), plain, open.tile->geometry(), restingColor);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void TestHighlightPlate::severalPlatesStandBesideEachOther()
{
    const OpenPopup open(1);
    const Camera camera = [](QWidget *widget) { return rendered(widget, 1); };
    open.browser.tiles().at(0)->highlight();
    open.browser.tiles().at(5)->highlight();
    const QImage plain = open.withoutEffect(camera); // with the two others' plates
    const QString fault = plateFault(camera(open.popup), plain, open.tile->geometry(), highlightColor);
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void TestHighlightPlate::plateGrowsAtTheNextRepaint()
{
    const OpenPopup open(1);
    const QImage before = rendered(open.popup, 1);
    QVERIFY(open.tile->graphicsEffect()->setProperty("offset", QPointF(9, 9)));
    const QImage after = rendered(open.popup, 1);
    const QList<QRect> sides = sidesOf(open.tile->geometry(), 8);
    for (const QRect &side : sides) {
        const QString fault = firstStrangePixel(after, side, [&before](const QPoint &pixel) {
            return over(before.pixelColor(pixel), highlightColor);
        });
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
}

void TestHighlightPlate::smallOffsetsMakeTheTileVanish_data()
{
    QTest::addColumn<QPointF>("offset");
    QTest::addColumn<bool>("vanishes");
    QTest::newRow("none") << QPointF(0, 0) << true;
    QTest::newRow("negative") << QPointF(-3, -3) << true;
    QTest::newRow("two") << QPointF(2, 2) << true;
    QTest::newRow("two across") << QPointF(2, 5) << true;
    QTest::newRow("two along") << QPointF(5, 2) << true;
    QTest::newRow("a little more than two") << QPointF(2.01, 2.01) << false;
}

void TestHighlightPlate::smallOffsetsMakeTheTileVanish()
{
    QFETCH(QPointF, offset);
    QFETCH(bool, vanishes);
    const OpenPopup open(1);
    const QImage plain = open.withoutEffect([](QWidget *widget) { return rendered(widget, 1); });
    auto *effect = new HighlightEffect(offset.x());
    effect->setProperty("offset", offset);
    open.tile->setHighlightEffect(effect);
    const QImage picture = rendered(open.popup, 1);
    const QRect tile = open.tile->geometry();
    const QColor ground = plain.pixelColor(tile.topLeft() - QPoint(10, 0)); // between two tiles
    const QString trace =
        firstStrangePixel(picture, tile, [&ground](const QPoint & /*pixel*/) { return ground; });
    QCOMPARE(trace.isEmpty(), vanishes);
    if (!vanishes) {
        const QString fault = firstStrangePixel(
            picture, tile, [&plain](const QPoint &pixel) { return plain.pixelColor(pixel); });
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
}

QTEST_MAIN(TestHighlightPlate)
#include "tst_highlightplate.moc"

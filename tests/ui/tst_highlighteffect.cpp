// SPDX-License-Identifier: MIT
#include "ui/HighlightEffect.h"

#include "tests/ui/OpenGrid.h"

#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QPainter>
#include <QScreen>
#include <QWindow>

#include <cstdlib>
#include <functional>

namespace {

const QColor colorOfPlate(0, 0, 150, 100);
const QColor colorAtRest(248, 248, 248, 255);

//! Can be drawn directly.
class DirectEffect : public HighlightEffect
{
public:
    using HighlightEffect::draw;
    using HighlightEffect::HighlightEffect;
};

//! A picture of a widget. \param ratio device pixels for a pixel; 0: what the window system shows
QImage photo(QWidget *widget, int ratio)
{
    drainEvents();
    if (ratio == 0) {
        const QWindow *window = widget->windowHandle();
        const QPixmap grabbed =
            window->screen()->grabWindow(window->winId(), 0, 0, widget->width(), widget->height());
        return grabbed.toImage().convertToFormat(QImage::Format_RGB32);
    }
    QImage image(widget->size() * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    widget->render(&image);
    return image;
}

//! A colour that is painted over another.
QColor over(const QColor &background, const QColor &color)
{
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.fill(background);
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

//! The first wrong pixel of an area, described; empty when there is none.
//! \param area in the popup's units
QString firstWrongPixel(const QImage &picture, const QRect &area,
                        const std::function<QColor(const QPoint &)> &wanted)
{
    const int ratio = qRound(picture.devicePixelRatio());
    for (int y = area.top() * ratio; y < (area.bottom() + 1) * ratio; ++y) {
        for (int x = area.left() * ratio; x < (area.right() + 1) * ratio; ++x) {
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

//! The wrong pixels of a tile's plate at a distance from the tile, in pixels. \param plain without the plate
//! The corners, which are rounded, are left out.
QString faultOfSides(const QImage &picture, const QImage &plain, const QRect &tile, int distance,
                     const QColor &color)
{
    const QRect sides[] = {
        {tile.left(), tile.top() - distance, tile.width(), 1},
        {tile.left(), tile.bottom() + distance, tile.width(), 1},
        {tile.left() - distance, tile.top(), 1, tile.height()},
        {tile.right() + distance, tile.top(), 1, tile.height()},
    };
    QString fault;
    for (const QRect &side : sides) {
        fault += firstWrongPixel(picture, side,
                                 [&](const QPoint &pixel) { return over(plain.pixelColor(pixel), color); });
    }
    return fault;
}

QImage photoWithoutEffect(const OpenGrid &grid, int index, int ratio)
{
    QGraphicsEffect *effect = grid.tiles.at(index)->graphicsEffect();
    effect->setEnabled(false);
    const QImage picture = photo(grid.popup, ratio);
    effect->setEnabled(true);
    return picture;
}

} // namespace

class tst_HighlightEffect : public TestCase
{
    Q_OBJECT

private slots:
    void offersTwoPlainPropertiesAndNothingElse()
    {
        HighlightEffect effect(3.25);
        QVERIFY(!effect.parent());
        const QMetaObject &meta = HighlightEffect::staticMetaObject;
        QCOMPARE(meta.className(), "HighlightEffect");
        QCOMPARE(meta.superClass(), &QGraphicsEffect::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);
        const QMetaProperty color = meta.property(meta.propertyOffset());
        const QMetaProperty offset = meta.property(meta.propertyOffset() + 1);
        QCOMPARE(color.name(), "color");
        QCOMPARE(offset.name(), "offset");
        QVERIFY(!color.hasNotifySignal() && !offset.hasNotifySignal());
        QCOMPARE(color.read(&effect), QVariant(colorOfPlate));
        QCOMPARE(offset.read(&effect), QVariant(QPointF(3.25, 3.25)));
        QVERIFY(color.write(&effect, QColor(1, 2, 3, 4)));
        QVERIFY(offset.write(&effect, QPointF(-1, 70.5)));
        QCOMPARE(color.read(&effect), QVariant(QColor(1, 2, 3, 4)));
        QCOMPARE(offset.read(&effect), QVariant(QPointF(-1, 70.5)));
    }

    void boundsGrowByTheOffsetOnEachSide()
    {
        HighlightEffect effect(2.5);
        QCOMPARE(effect.boundingRectFor(QRectF(40, 50, 10, 20)), QRectF(37.5, 47.5, 15, 25));
        effect.setProperty("offset", QPointF(3, 7));
        QCOMPARE(effect.boundingRectFor(QRectF(1, 2, 3, 4)), QRectF(-2, -5, 9, 18));
    }

    void plateIsRoundedInProportion_data()
    {
        QTest::addColumn<int>("ratio");
        for (const int ratio : {1, 2, 3})
            QTest::addRow("ratio %d", ratio) << ratio;
    }

    void plateIsRoundedInProportion()
    {
        QFETCH(int, ratio);
        QGraphicsScene scene(0, 0, 700, 500);
        QGraphicsRectItem *item = scene.addRect(50, 50, 600, 400, Qt::NoPen, Qt::green);
        item->setGraphicsEffect(new HighlightEffect(3));
        QImage image(QSize(700, 500) * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        QImage expected = image;
        QPainter painter(&image);
        scene.render(&painter, scene.sceneRect());

        // In a scene the plate is not clipped: it extends beyond the effect's bounds, by the offset again.
        QPainter drawing(&expected);
        drawing.setPen(Qt::NoPen);
        drawing.setBrush(colorOfPlate);
        drawing.drawRoundedRect(QRectF(44, 44, 612, 412), 5, 5, Qt::RelativeSize);
        drawing.fillRect(50, 50, 600, 400, Qt::green);
        QCOMPARE(image, expected);
    }

    void painterKeepsItsState()
    {
        QImage image(10, 10, QImage::Format_RGB32);
        QPainter painter(&image);
        painter.translate(3, 4);
        painter.setPen(Qt::red);
        DirectEffect(2.5).draw(&painter);
        QCOMPARE(painter.transform(), QTransform::fromTranslate(3, 4));
        QCOMPARE(painter.pen(), QPen(Qt::red));
        QCOMPARE(painter.brush(), QBrush());
    }

    void plateSurroundsTheTile_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("ratio");
        QTest::addColumn<Indices>("others");
        for (const int index : {0, 3, 4, 6}) { // the ends of the first row, and two of the second
            QTest::addRow("tile %d, at ratio 1", index) << index << 1 << Indices();
            QTest::addRow("tile %d, at ratio 2", index) << index << 2 << Indices();
            QTest::addRow("tile %d, on screen", index) << index << 0 << Indices();
        }
        QTest::addRow("beside other plates") << 1 << 1 << Indices({0, 5});
    }

    void plateSurroundsTheTile()
    {
        QFETCH(int, index);
        QFETCH(int, ratio);
        QFETCH(Indices, others);
        OpenGrid grid(8); // two rows
        QVERIFY(waitForExposed(grid.popup));
        grid.highlight(Indices({index}) + others);
        const QRect tile = grid.tiles.at(index)->geometry();
        QCOMPARE(grid.tiles.at(index)->graphicsEffect()->boundingRect(),
                 QRectF(-2.5, -2.5, 161 + 5, 131 + 5));
        const QImage plain = photoWithoutEffect(grid, index, ratio);
        const QImage picture = photo(grid.popup, ratio);
        const auto asPlain = [&plain](const QPoint &pixel) { return plain.pixelColor(pixel); };
        QCOMPARE(firstWrongPixel(picture, tile, asPlain), QString());
        QCOMPARE(faultOfSides(picture, plain, tile, 1, colorOfPlate), QString());
        QCOMPARE(faultOfSides(picture, plain, tile, 2, colorOfPlate), QString());

        constexpr int reach = 4; // the plate's two and a half and their neighbour
        const QRect around = tile.adjusted(-reach, -reach, reach, reach);
        const QString outside = firstWrongPixel(picture, grid.popup->rect(), [&](const QPoint &pixel) {
            return (around.contains(pixel / picture.devicePixelRatio()) ? picture : plain).pixelColor(pixel);
        });
        QCOMPARE(outside, QString());
    }

    void propertiesTakeEffectAtTheNextRepaint_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("distance");
        QTest::addColumn<QColor>("color");
        QTest::newRow("colour") << QByteArray("color") << QVariant(colorAtRest) << 2 << colorAtRest;
        QTest::newRow("offset") << QByteArray("offset") << QVariant(QPointF(9, 9)) << 8 << colorOfPlate;
    }

    void propertiesTakeEffectAtTheNextRepaint()
    {
        QFETCH(QByteArray, name);
        QFETCH(QVariant, value);
        QFETCH(int, distance);
        QFETCH(QColor, color);
        OpenGrid grid(8);
        QVERIFY(waitForExposed(grid.popup));
        grid.highlight({1});
        const QImage plain = photoWithoutEffect(grid, 1, 0);
        const QImage before = photo(grid.popup, 0);
        QVERIFY(grid.tiles.at(1)->graphicsEffect()->setProperty(name, value));
        QCOMPARE(photo(grid.popup, 0), before);
        grid.popup->update();
        QCOMPARE(faultOfSides(photo(grid.popup, 0), plain, grid.tiles.at(1)->geometry(), distance, color),
                 QString());
    }

    void smallOffsetsMakeTheTileVanish_data()
    {
        QTest::addColumn<QPointF>("offset");
        QTest::addColumn<bool>("vanishes");
        QTest::newRow("none") << QPointF(0, 0) << true;
        QTest::newRow("negative") << QPointF(-3, -3) << true;
        QTest::newRow("two across") << QPointF(2, 5) << true;
        QTest::newRow("two along") << QPointF(5, 2) << true;
        QTest::newRow("a little more than two") << QPointF(2.01, 2.01) << false;
    }

    void smallOffsetsMakeTheTileVanish()
    {
        QFETCH(QPointF, offset);
        QFETCH(bool, vanishes);
        OpenGrid grid(8);
        grid.highlight({1});
        const QImage plain = photoWithoutEffect(grid, 1, 1);
        grid.tiles.at(1)->graphicsEffect()->setProperty("offset", offset);
        const QRect tile = grid.tiles.at(1)->geometry();
        const QColor background = plain.pixelColor(tile.topLeft() - QPoint(10, 0)); // between two tiles
        QCOMPARE(firstWrongPixel(
                     photo(grid.popup, 1), tile,
                     [&](const QPoint &pixel) { return vanishes ? background : plain.pixelColor(pixel); }),
                 QString());
    }
};

TEST_CLASS(tst_HighlightEffect);
#include "tst_highlighteffect.moc"

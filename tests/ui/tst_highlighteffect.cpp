// SPDX-License-Identifier: MIT
#include "ui/HighlightEffect.h"

#include "tests/support/TestCase.h"

#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QPainter>
#include <QPointer>

#include <memory>

namespace {

const QColor highlightColor(0, 0, 150, 100);

//! What a colour over another looks like.
QColor over(const QColor &ground, const QColor &color)
{
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.fill(ground);
    QPainter painter(&pixel);
    painter.fillRect(pixel.rect(), color);
    return pixel.pixelColor(0, 0);
}

} // namespace

class TestHighlightEffect : public TestCase
{
    Q_OBJECT

private slots:
    void startsAsAHighlightOfItsOffset();
    void offersTwoPropertiesAndNothingElse();
    void propertiesAreReadAndWrittenPlainly();
    void boundsGrowByTheOffsetOnEachSide_data();
    void boundsGrowByTheOffsetOnEachSide();
    void belongsToTheWidgetUntilTheNextOne();
    void plateIsRoundedInProportion_data();
    void plateIsRoundedInProportion();
};

void TestHighlightEffect::startsAsAHighlightOfItsOffset()
{
    const HighlightEffect effect(3.25);
    QVERIFY(!effect.parent());
    QCOMPARE(effect.property("color").value<QColor>(), highlightColor);
    QCOMPARE(effect.property("offset").toPointF(), QPointF(3.25, 3.25));
}

void TestHighlightEffect::offersTwoPropertiesAndNothingElse()
{
    const QMetaObject &meta = HighlightEffect::staticMetaObject;
    QCOMPARE(meta.className(), "HighlightEffect");
    QCOMPARE(meta.superClass(), &QGraphicsEffect::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);
    const QMetaProperty color = meta.property(meta.propertyOffset());
    const QMetaProperty offset = meta.property(meta.propertyOffset() + 1);
    QCOMPARE(color.name(), "color");
    QCOMPARE(color.userType(), int(QMetaType::QColor));
    QCOMPARE(offset.name(), "offset");
    QCOMPARE(offset.userType(), int(QMetaType::QPointF));
    for (const QMetaProperty &property : {color, offset}) {
        QVERIFY(property.isReadable());
        QVERIFY(property.isWritable());
        QVERIFY(!property.hasNotifySignal());
    }
}

void TestHighlightEffect::propertiesAreReadAndWrittenPlainly()
{
    HighlightEffect effect(2.5);
    const QMetaObject &meta = HighlightEffect::staticMetaObject;
    QVERIFY(meta.property(meta.propertyOffset()).write(&effect, QColor(1, 2, 3, 4)));
    QVERIFY(meta.property(meta.propertyOffset() + 1).write(&effect, QPointF(-1, 70.5)));
    QCOMPARE(meta.property(meta.propertyOffset()).read(&effect).value<QColor>(), QColor(1, 2, 3, 4));
    QCOMPARE(meta.property(meta.propertyOffset() + 1).read(&effect).toPointF(), QPointF(-1, 70.5));
}

void TestHighlightEffect::boundsGrowByTheOffsetOnEachSide_data()
{
    QTest::addColumn<QPointF>("offset");
    QTest::addColumn<QRectF>("rect");
    QTest::addColumn<QRectF>("bounds");
    QTest::newRow("a tile's") << QPointF(2.5, 2.5) << QRectF(0, 0, 161, 131) << QRectF(-2.5, -2.5, 166, 136);
    QTest::newRow("elsewhere") << QPointF(2.5, 2.5) << QRectF(40, 50, 10, 20) << QRectF(37.5, 47.5, 15, 25);
    QTest::newRow("nothing") << QPointF(0, 0) << QRectF(1, 2, 3, 4) << QRectF(1, 2, 3, 4);
    QTest::newRow("across only") << QPointF(3, 0) << QRectF(1, 2, 3, 4) << QRectF(-2, 2, 9, 4);
    QTest::newRow("along only") << QPointF(0, 7) << QRectF(1, 2, 3, 4) << QRectF(1, -5, 3, 18);
}

void TestHighlightEffect::boundsGrowByTheOffsetOnEachSide()
{
    QFETCH(QPointF, offset);
    QFETCH(QRectF, rect);
    QFETCH(QRectF, bounds);
    HighlightEffect effect(99);
    effect.setProperty("offset", offset);
    QCOMPARE(effect.boundingRectFor(rect), bounds);
}

void TestHighlightEffect::belongsToTheWidgetUntilTheNextOne()
{
    auto widget = std::make_unique<QWidget>();
    const QPointer<HighlightEffect> first = new HighlightEffect(2.5);
    widget->setGraphicsEffect(first);
    const QPointer<HighlightEffect> second = new HighlightEffect(2.5);
    widget->setGraphicsEffect(second);
    QVERIFY(!first);
    widget.reset();
    QVERIFY(!second);
}

void TestHighlightEffect::plateIsRoundedInProportion_data()
{
    QTest::addColumn<QPoint>("pixel");
    QTest::addColumn<bool>("tinted");
    // In a scene nothing cuts the plate off: around 600 x 400 at 50, 50 it goes from 44.5 to 655.5 and from
    // 44.5 to 455.5, and its corners take 15 pixels across and 10 along.
    QTest::newRow("the left edge") << QPoint(45, 250) << true;
    QTest::newRow("left of it") << QPoint(43, 250) << false;
    QTest::newRow("the right edge") << QPoint(654, 250) << true;
    QTest::newRow("right of it") << QPoint(656, 250) << false;
    QTest::newRow("the upper edge") << QPoint(300, 45) << true;
    QTest::newRow("above it") << QPoint(300, 43) << false;
    QTest::newRow("the lower edge") << QPoint(300, 454) << true;
    QTest::newRow("below it") << QPoint(300, 456) << false;
    QTest::newRow("in the corner") << QPoint(45, 45) << false;
    QTest::newRow("beside the corner, still cut") << QPoint(51, 45) << false;
    QTest::newRow("beside the corner, no longer cut") << QPoint(54, 45) << true;
    QTest::newRow("below the corner") << QPoint(45, 56) << true;
    QTest::newRow("in the last corner") << QPoint(654, 454) << false;
}

void TestHighlightEffect::plateIsRoundedInProportion()
{
    QFETCH(QPoint, pixel);
    QFETCH(bool, tinted);
    QGraphicsScene scene(0, 0, 700, 500);
    QGraphicsRectItem *item = scene.addRect(50, 50, 600, 400, Qt::NoPen, Qt::green);
    item->setGraphicsEffect(new HighlightEffect(2.5));
    QImage image(700, 500, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene.render(&painter);
    QCOMPARE(image.pixelColor(100, 100), QColor(Qt::green));
    QCOMPARE(image.pixelColor(pixel), tinted ? over(Qt::white, highlightColor) : QColor(Qt::white));
}

QTEST_MAIN(TestHighlightEffect)
#include "tst_highlighteffect.moc"

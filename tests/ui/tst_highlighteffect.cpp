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

//! Draws when it is told to.
class DirectEffect : public HighlightEffect
{
public:
    using HighlightEffect::draw;
    using HighlightEffect::HighlightEffect;
};

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
    void painterStaysAsItWas();
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
    QTest::addColumn<int>("ratio");
    QTest::newRow("one pixel") << 1;
    QTest::newRow("two pixels") << 2;
    QTest::newRow("three pixels") << 3;
}

void TestHighlightEffect::plateIsRoundedInProportion()
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

    // In a scene nothing cuts the plate off: it reaches out from the effect's bounds, once more.
    QPainter drawing(&expected);
    drawing.setPen(Qt::NoPen);
    drawing.setBrush(highlightColor);
    drawing.drawRoundedRect(QRectF(44, 44, 612, 412), 5, 5, Qt::RelativeSize);
    drawing.fillRect(50, 50, 600, 400, Qt::green);
    QCOMPARE(image, expected);
}

void TestHighlightEffect::painterStaysAsItWas()
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

QTEST_MAIN(TestHighlightEffect)
#include "tst_highlighteffect.moc"

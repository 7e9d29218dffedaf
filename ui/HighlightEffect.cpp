// SPDX-License-Identifier: MIT
#include "ui/HighlightEffect.h"

#include <QPainter>
#include <QPixmap>

namespace {

//! Nothing is drawn if the plate extends no further than this, in pixels.
constexpr double leastOffset = 2.0;
//! The plate's corners, in percent of half its width and height.
constexpr double relativeCornerRadius = 5.0;

} // namespace

HighlightEffect::HighlightEffect(double reach) : offset(reach, reach) {}

HighlightEffect::~HighlightEffect() = default;

QRectF HighlightEffect::boundingRectFor(const QRectF &rect) const
{
    return rect.adjusted(-offset.x(), -offset.y(), offset.x(), offset.y());
}

void HighlightEffect::draw(QPainter *painter)
{
    if (!(offset.x() > leastOffset) || !(offset.y() > leastOffset))
        return;

    QPoint position;
    const QPixmap source = sourcePixmap(Qt::DeviceCoordinates, &position, PadToEffectiveBoundingRect);
    // The position is in device-independent pixels, while the pixmap's size is in device pixels.
    QRectF plate = boundingRectFor(QRectF(QPointF(), QSizeF(source.size()) / source.devicePixelRatio()));
    plate.moveTopLeft(position - offset);

    painter->save();
    // The position is in device coordinates, but the painter still has the widget's translation.
    painter->setWorldTransform(QTransform());
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawRoundedRect(plate, relativeCornerRadius, relativeCornerRadius, Qt::RelativeSize);
    painter->drawPixmap(QPointF(position), source);
    painter->restore();
}

// SPDX-License-Identifier: MIT
#include "ui/HighlightEffect.h"

#include <QPainter>
#include <QPixmap>

namespace {

//! A plate that reaches out no further than this, in pixels, is not worth drawing.
constexpr double leastOffset = 2.0;
//! The plate's corners, in percent of half its width and height.
constexpr double cornerRadius = 5.0;

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
    // The position counts in the units of the widget, of which a pixel of a fine screen is a part.
    QRectF plate = boundingRectFor(QRectF(QPointF(), QSizeF(source.size()) / source.devicePixelRatio()));
    plate.moveTopLeft(position - offset);

    painter->save();
    // The position is the device's, but the painter still carries the widget's own translation.
    painter->setWorldTransform(QTransform());
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawRoundedRect(plate, cornerRadius, cornerRadius, Qt::RelativeSize);
    painter->drawPixmap(QPointF(position), source);
    painter->restore();
}

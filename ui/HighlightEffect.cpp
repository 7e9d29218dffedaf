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

HighlightEffect::HighlightEffect(double offset) : m_offset(offset, offset) {}

HighlightEffect::~HighlightEffect() = default;

QRectF HighlightEffect::boundingRectFor(const QRectF &rect) const
{
    return rect.adjusted(-m_offset.x(), -m_offset.y(), m_offset.x(), m_offset.y());
}

void HighlightEffect::draw(QPainter *painter)
{
    if (!(m_offset.x() > leastOffset) || !(m_offset.y() > leastOffset))
        return;

    QPoint position;
    const QPixmap source = sourcePixmap(Qt::DeviceCoordinates, &position, PadToEffectiveBoundingRect);
    // The position counts in the units of the widget, of which a pixel of a fine screen is a part.
    QRectF plate = boundingRectFor(QRectF(QPointF(), QSizeF(source.size()) / source.devicePixelRatio()));
    plate.moveTopLeft(position - m_offset);

    painter->save();
    // The position is the device's, but the painter still carries the widget's own translation.
    painter->setWorldTransform(QTransform());
    painter->setPen(Qt::NoPen);
    painter->setBrush(m_color);
    painter->drawRoundedRect(plate, cornerRadius, cornerRadius, Qt::RelativeSize);
    painter->drawPixmap(QPointF(position), source);
    painter->restore();
}

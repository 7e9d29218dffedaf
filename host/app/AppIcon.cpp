// SPDX-License-Identifier: MIT
#include "host/app/AppIcon.h"

#include "host/app/Look.h"

#include <QPainter>
#include <QPixmap>

namespace fxhost {

namespace {

// Side of the icon in logical coordinates, which are scaled to each size.
constexpr int side = 32;
constexpr qreal lineWidth = 2.5;
constexpr qreal cornerRadius = 5;

QPixmap drawIcon(int pixels)
{
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(qreal(pixels) / side, qreal(pixels) / side);

    painter.setPen(Qt::NoPen);
    painter.setBrush(look::sheet);
    painter.drawRoundedRect(QRectF(1, 1, side - 2, side - 2), cornerRadius, cornerRadius);

    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(look::ink, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF(QVector<QPointF>{{8, 6}, {8, 24}, {26, 24}}));
    painter.setPen(QPen(look::accent, lineWidth, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(-7, 9, 30, 30), 0, 90 * 16); // a quarter of a circle, in sixteenths of a degree
    return pixmap;
}

} // namespace

QIcon appIcon()
{
    QIcon icon;
    for (const int pixels : {16, 24, 32, 48, 64, 128})
        icon.addPixmap(drawIcon(pixels));
    return icon;
}

} // namespace fxhost

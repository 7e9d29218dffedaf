// SPDX-License-Identifier: MIT
#include "host/app/PictureCanvas.h"

#include "host/app/Look.h"

#include <QPainter>

namespace fxhost {

namespace {

// Margin around the picture in pixels, so that its edge is visible on any background.
constexpr int margin = 12;
constexpr QSize smallestCanvas(120, 60);
// Length of an axis of the coordinate symbol, and its distance from the corner, in pixels.
constexpr int axisLength = 36;
constexpr int axisInset = 18;

//! Draws the coordinate symbol that drawing programs show in the lower left corner of an empty sheet.
void drawAxes(QPainter &painter, const QRect &sheet)
{
    const QPoint origin(sheet.left() + axisInset, sheet.bottom() - axisInset);
    const QPoint x = origin + QPoint(axisLength, 0);
    const QPoint y = origin - QPoint(0, axisLength);
    painter.drawLine(origin, x);
    painter.drawLine(origin, y);
    painter.drawRect(QRect(origin - QPoint(3, 3), QSize(6, 6)));
    painter.drawText(x + QPoint(4, 4), QStringLiteral("X"));
    painter.drawText(y + QPoint(-4, -5), QStringLiteral("Y"));
}

} // namespace

PictureCanvas::PictureCanvas(const QImage &picture, const QString &text, QWidget *parent)
    : QWidget(parent), m_picture(picture), m_text(text)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

QRect PictureCanvas::pictureRect() const
{
    if (m_picture.isNull())
        return {};
    const QRect room = rect().adjusted(margin, margin, -margin, -margin);
    QRect place(QPoint(), m_picture.size().scaled(room.size(), Qt::KeepAspectRatio));
    place.moveCenter(room.center());
    return place;
}

QSize PictureCanvas::minimumSizeHint() const
{
    return smallestCanvas;
}

void PictureCanvas::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), look::sheet);
    const QRect place = pictureRect();
    if (place.isEmpty()) {
        painter.setPen(look::faintInk);
        drawAxes(painter, rect());
        painter.drawText(rect().adjusted(margin, margin, -margin, -margin),
                         Qt::AlignCenter | Qt::TextWordWrap, m_text);
        return;
    }
    // Scaled by QImage, which averages the source pixels; QPainter would drop thin lines.
    painter.drawImage(place, m_picture.scaled(place.size() * devicePixelRatioF(), Qt::IgnoreAspectRatio,
                                              Qt::SmoothTransformation));
    painter.setPen(look::outline);
    painter.drawRect(place.adjusted(-1, -1, 0, 0));
}

} // namespace fxhost

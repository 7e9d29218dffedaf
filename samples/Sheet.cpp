// SPDX-License-Identifier: MIT
#include "samples/Sheet.h"

#include "samples/Lettering.h"

#include <QLineF>
#include <QPen>
#include <QTransform>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace fxsamples {

namespace {

constexpr double tileWidth = 139; // pixels: what a tile of the browser gives to the picture

struct LineType
{
    double weight;           // tile pixels
    QVector<double> pattern; // tile pixels, drawn and left out in turn; empty = continuous
};

LineType lineType(Line line)
{
    switch (line) {
    case Line::Heavy:
        return {1.7, {}};
    case Line::Outline:
        return {1.15, {}};
    case Line::Thin:
        return {0.7, {}};
    case Line::Hidden:
        return {0.8, {3, 1.8}};
    case Line::Centre:
        return {0.8, {7, 1.6, 1.2, 1.6}};
    case Line::Border:
        return {1.1, {8, 1.8, 1.4, 1.8, 1.4, 1.8}};
    }
    Q_UNREACHABLE();
}

} // namespace

Sheet::Sheet(QPainter &painter, const QRectF &area, const QSizeF &units, QRgb ground, QRgb notes)
    : m_painter(painter), m_notes(QColor::fromRgb(notes))
{
    const double scale = std::min(area.width() / units.width(), area.height() / units.height());
    m_tilePixel = area.width() / tileWidth / scale;
    m_painter.save();
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setClipRect(area, Qt::IntersectClip);
    m_painter.fillRect(area, QColor::fromRgb(ground));
    m_painter.translate(area.center());
    m_painter.scale(scale, scale);
    m_painter.translate(-units.width() / 2, -units.height() / 2);
}

Sheet::~Sheet()
{
    m_painter.restore();
}

void Sheet::use(Line line, QRgb colour, const QBrush &filling)
{
    const LineType type = lineType(line);
    QPen pen(QColor::fromRgb(colour), px(type.weight), Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    if (!type.pattern.isEmpty()) {
        QVector<double> inWidths;
        for (const double length : type.pattern)
            inWidths.append(length / type.weight); // as a pen wants it
        pen.setDashPattern(inWidths);
    }
    m_painter.setPen(pen);
    m_painter.setBrush(filling);
}

void Sheet::arc(const QPointF &centre, double radius, double from, double span)
{
    const QRectF box(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    QPainterPath path;
    path.arcMoveTo(box, from);
    path.arcTo(box, from, span);
    m_painter.strokePath(path, m_painter.pen());
}

void Sheet::axes(const QPointF &centre, double reach, QRgb colour)
{
    use(Line::Centre, colour);
    // Out from the centre on all sides: the dashes cross there, as they do on a careful drawing.
    for (const QPointF &arm : {QPointF(reach, 0), QPointF(-reach, 0), QPointF(0, reach), QPointF(0, -reach)})
        line(centre, centre + arm);
}

void Sheet::hatch(const QPainterPath &area, QRgb colour, double angle, double spacing)
{
    m_painter.save();
    m_painter.setClipPath(area, Qt::IntersectClip);
    use(Line::Thin, colour);
    const QPointF centre = area.boundingRect().center();
    const double reach = std::hypot(area.boundingRect().width(), area.boundingRect().height()) / 2;
    m_painter.translate(centre);
    m_painter.rotate(-angle);
    const double step = px(spacing);
    const int count = static_cast<int>(reach / step);
    for (int i = -count; i <= count; ++i)
        line({-reach, i * step}, {reach, i * step});
    m_painter.restore();
}

void Sheet::end(const QPointF &tip, const QPointF &direction, Ends ends)
{
    const QPointF across(direction.y(), -direction.x());
    if (ends == Ends::Ticks) {
        const QPointF slant = (direction + across) * px(1.9);
        use(Line::Outline, m_notes.rgb());
        line(tip - slant, tip + slant);
        return;
    }
    constexpr double length = 4.2; // tile pixels
    constexpr double halfWidth = 1.15;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(m_notes);
    const QPointF base = tip + direction * px(length);
    polygon(Points({tip, base + across * px(halfWidth), base - across * px(halfWidth)}));
}

void Sheet::dimension(const QPointF &from, const QPointF &to, double offset, const QString &text, Ends ends)
{
    const QLineF measured(from, to);
    const QPointF along = (to - from) / measured.length();
    const QPointF left(along.y(), -along.x());
    const QPointF aside = left * offset;
    const QPointF outward = offset < 0 ? -left : left;

    use(Line::Thin, m_notes.rgb());
    line(from + outward * px(1.2), from + aside + outward * px(1.5));
    line(to + outward * px(1.2), to + aside + outward * px(1.5));
    line(from + aside, to + aside);
    end(from + aside, along, ends);
    end(to + aside, -along, ends);

    // Read from below or from the right, never upside down, and always above its line.
    double angle = measured.angle();
    if (angle > 90.5 && angle < 270)
        angle -= 180;
    const double radians = angle * M_PI / 180;
    const QPointF above(-std::sin(radians), -std::cos(radians));
    this->text((from + to) / 2 + aside + above * px(textHeight / 2 + 1.6), text, textHeight, angle);
}

void Sheet::level(const QPointF &tip, const QString &text)
{
    const double size = px(3);
    use(Line::Thin, m_notes.rgb(), m_notes);
    polygon(Points({tip, tip + QPointF(-size, -size), tip + QPointF(size, -size)}));
    line(tip - QPointF(1.5 * size, 0), tip + QPointF(1.5 * size, 0));
    this->text(tip - QPointF(0, size + px(textHeight / 2 + 2)), text);
}

void Sheet::text(const QPointF &at, const QString &text, double height, double angle)
{
    const double units = px(height);
    QTransform placing;
    placing.translate(at.x(), at.y());
    placing.rotate(-angle);
    placing.scale(units, units);
    placing.translate(-letteringWidth(text) / 2, 0.5);
    const QPen pen(m_notes, units * 0.15, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    m_painter.strokePath(placing.map(lettering(text)), pen);
}

QPainterPath boxPath(const QRectF &rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

QPainterPath diskPath(const QPointF &centre, double radius)
{
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

} // namespace fxsamples

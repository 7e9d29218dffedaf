// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QGraphicsEffect>
#include <QPointF>

//! Draws a translucent rounded rectangle, the plate, behind a tile. It is slightly larger than the tile, and
//! its colour determines whether the tile is highlighted. GUI thread.
class HighlightEffect : public QGraphicsEffect
{
    Q_OBJECT
    Q_PROPERTY(QColor color MEMBER color)
    Q_PROPERTY(QPointF offset MEMBER offset)
public:
    //! The colours of the plate of a highlighted tile, and of a tile that is no longer highlighted, which is
    //! the tile's background colour.
    static QColor highlightColor() { return QColor(0, 0, 150, 100); }
    static QColor restingColor() { return QColor(248, 248, 248, 255); }
    //! How far a tile's plate extends beyond the tile, in pixels.
    static constexpr double tileOffset = 2.5;

    //! Creates an effect without a parent; the widget that it is installed on takes ownership.
    //! \param reach how far the plate extends beyond the widget on each side, in pixels; if 2 or less,
    //! nothing is painted, not even the widget
    explicit HighlightEffect(double reach);
    ~HighlightEffect() override;

    QRectF boundingRectFor(const QRectF &rect) const override;

    // Changes take effect at the next repaint, and do not request one.
    QColor color = highlightColor();
    QPointF offset; //!< in pixels

protected:
    void draw(QPainter *painter) override;
};

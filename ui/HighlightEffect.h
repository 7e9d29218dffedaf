// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QGraphicsEffect>
#include <QPointF>

//! Draws a translucent rounded plate behind a tile, a little larger than the tile. The plate's colour says
//! whether the tile is highlighted. GUI thread.
class HighlightEffect : public QGraphicsEffect
{
    Q_OBJECT
    Q_PROPERTY(QColor color MEMBER color)
    Q_PROPERTY(QPointF offset MEMBER offset)
public:
    //! The plate of a highlighted tile, and that of a tile that no longer is: a tile's own ground.
    static QColor highlightColor() { return QColor(0, 0, 150, 100); }
    static QColor restingColor() { return QColor(248, 248, 248, 255); }
    //! How far a tile's plate reaches beyond the tile, in pixels.
    static constexpr double tileOffset = 2.5;

    //! Has no parent: the widget that it is installed on owns it.
    //! \param reach how far the plate reaches beyond the widget on each side, in pixels; with 2 or less
    //! nothing is painted, the widget included
    explicit HighlightEffect(double reach);
    ~HighlightEffect() override;

    QRectF boundingRectFor(const QRectF &rect) const override;

    // Both take effect at the next repaint, which writing them does not ask for.
    QColor color = highlightColor();
    QPointF offset; //!< in pixels

protected:
    void draw(QPainter *painter) override;
};

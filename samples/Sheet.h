// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPainter>
#include <QPainterPath>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QVector>

namespace fxsamples {

//! Corners in turn. (A polygon cannot be written in braces, a vector can, and becomes one by itself.)
using Points = QVector<QPointF>;

//! The colours of a drawing: those that drawing programs have numbered for decades, and what they lie on.
namespace ink {
constexpr QRgb modelSpace = qRgb(33, 40, 48);
constexpr QRgb blackSpace = qRgb(0, 0, 0);
constexpr QRgb paper = qRgb(255, 255, 255);
constexpr QRgb layout = qRgb(254, 252, 240);

constexpr QRgb red = qRgb(255, 60, 60);
constexpr QRgb yellow = qRgb(255, 230, 0);
constexpr QRgb green = qRgb(60, 230, 60);
constexpr QRgb cyan = qRgb(0, 230, 255);
constexpr QRgb magenta = qRgb(255, 70, 255);
constexpr QRgb white = qRgb(255, 255, 255);
constexpr QRgb silver = qRgb(170, 178, 188);

constexpr QRgb black = qRgb(20, 20, 24);
constexpr QRgb graphite = qRgb(96, 100, 108);
constexpr QRgb deepRed = qRgb(200, 30, 30);
constexpr QRgb deepBlue = qRgb(20, 60, 170);
constexpr QRgb deepGreen = qRgb(20, 120, 50);
constexpr QRgb brown = qRgb(168, 108, 48);
} // namespace ink

//! A type of line; each has its weight.
enum class Line {
    Heavy,   //!< what is cut, and what must be seen first
    Outline, //!< visible edges
    Thin,    //!< hatching, furniture, leaders
    Hidden,  //!< dashed: edges behind something
    Centre,  //!< long dash, dot: axes and pitch circles
    Border,  //!< long dash, two dots: boundaries of land
};

//! What a dimension line ends in: arrows on machine drawings, ticks on building drawings.
enum class Ends { Arrows, Ticks };

//! A sheet to draw on in the units of the thing drawn (metres, millimetres), y downwards. Line weights, text
//! heights and arrows stay the same whatever the units: they are told in tile pixels, pixels of the picture
//! once it is shrunk to a browser's tile, because that is where it must be clear.
//!
//! The painter is put back into its former state when the sheet ends. Not thread-safe, as the painter.
class Sheet
{
public:
    //! Covers \p area with \p ground and centres a sheet of \p units in it, as large as it fits.
    //! \param notes the colour of dimensions and texts
    Sheet(QPainter &painter, const QRectF &area, const QSizeF &units, QRgb ground, QRgb notes);
    ~Sheet();
    Q_DISABLE_COPY(Sheet)

    //! The length of \p tilePixels in units.
    double px(double tilePixels) const { return tilePixels * m_tilePixel; }

    //! The line, colour and filling of all that follows.
    void use(Line line, QRgb colour, const QBrush &filling = Qt::NoBrush);

    void line(const QPointF &from, const QPointF &to) { m_painter.drawLine(from, to); }
    void polyline(const Points &points) { m_painter.drawPolyline(points); }
    void polygon(const Points &points) { m_painter.drawPolygon(points); }
    void rect(const QRectF &rect) { m_painter.drawRect(rect); }
    void path(const QPainterPath &path) { m_painter.drawPath(path); }
    void circle(const QPointF &centre, double radius) { m_painter.drawEllipse(centre, radius, radius); }
    //! Degrees, anticlockwise from three o'clock.
    void arc(const QPointF &centre, double radius, double from, double span);

    //! Two crossing axes that reach \p reach beyond the centre on each side.
    void axes(const QPointF &centre, double reach, QRgb colour);
    //! Fills \p area with thin lines.
    //! \param angle degrees, anticlockwise from horizontal
    //! \param spacing tile pixels from line to line
    void hatch(const QPainterPath &area, QRgb colour, double angle = 45, double spacing = 3.2);
    //! A dimension from one point to another. Its line lies \p offset units to the left of that direction as
    //! seen on the sheet (from left to right: above), negative to the right.
    void dimension(const QPointF &from, const QPointF &to, double offset, const QString &text,
                   Ends ends = Ends::Arrows);
    //! The mark of a level on sections and elevations: a triangle standing on \p tip, the height above it.
    void level(const QPointF &tip, const QString &text);
    //! A text in the middle of \p at.
    //! \param height of a capital in tile pixels
    //! \param angle degrees, anticlockwise
    void text(const QPointF &at, const QString &text, double height = textHeight, double angle = 0);

    //! Tile pixels. Less than this is not read on a tile.
    static constexpr double textHeight = 5.5;

private:
    void end(const QPointF &tip, const QPointF &direction, Ends ends);

    QPainter &m_painter;
    QColor m_notes;
    double m_tilePixel; //!< in units
};

//! The outline of a rectangle, or of a circle, to hatch or to cut from another.
QPainterPath boxPath(const QRectF &rect);
QPainterPath diskPath(const QPointF &centre, double radius);

} // namespace fxsamples

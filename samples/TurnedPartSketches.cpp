// SPDX-License-Identifier: MIT
#include "samples/Sheet.h"
#include "samples/Sketches.h"

#include <cmath>

namespace fxsamples {

namespace {

QPointF around(const QPointF &centre, double radius, double radians)
{
    return centre + QPointF(radius * std::cos(radians), -radius * std::sin(radians));
}

// Weld-neck flange DN 80 PN 16, in millimetres.
constexpr double flangeRadius = 100;
constexpr double boltCircle = 80;
constexpr double boltHole = 9;
constexpr int bolts = 8;
constexpr double raisedFace = 69;
constexpr double pipeOutside = 44.5;
constexpr double pipeInside = 38;
constexpr double neck = 54;

void flangeFace(Sheet &sheet, const QPointF &centre)
{
    sheet.use(Line::Heavy, ink::cyan);
    sheet.circle(centre, flangeRadius);
    sheet.use(Line::Outline, ink::cyan);
    sheet.circle(centre, raisedFace);
    sheet.use(Line::Heavy, ink::cyan);
    sheet.circle(centre, pipeInside);
    sheet.use(Line::Centre, ink::red);
    sheet.circle(centre, boltCircle);
    for (int i = 0; i < bolts; ++i) {
        const double angle = (i + 0.5) * 2 * M_PI / bolts; // never on the axes, by rule
        sheet.use(Line::Outline, ink::yellow);
        sheet.circle(around(centre, boltCircle, angle), boltHole);
        sheet.use(Line::Centre, ink::red);
        sheet.line(around(centre, boltCircle - 14, angle), around(centre, boltCircle + 14, angle));
    }
    sheet.axes(centre, flangeRadius + 10, ink::red);
}

// One half of the section above (up = -1) or below the axis; the raised face is on the left.
void flangeSection(Sheet &sheet, double left, double axis, double up)
{
    const auto at = [=](double x, double radius) { return QPointF(left + x, axis + up * radius); };
    QPainterPath body;
    body.addPolygon(Points({at(0, pipeInside), at(0, raisedFace), at(3, raisedFace), at(3, flangeRadius),
                            at(23, flangeRadius), at(23, neck), at(46, pipeOutside), at(58, pipeOutside),
                            at(58, pipeInside)}));
    body.closeSubpath();
    QPainterPath hole;
    hole.addPolygon(Points({at(3, boltCircle - boltHole), at(23, boltCircle - boltHole),
                            at(23, boltCircle + boltHole), at(3, boltCircle + boltHole)}));
    hole.closeSubpath();
    sheet.hatch(body - hole, ink::white, 45, 2.8);
    sheet.use(Line::Heavy, ink::cyan);
    sheet.path(body);
    sheet.use(Line::Outline, ink::yellow);
    sheet.path(hole);
    sheet.use(Line::Centre, ink::red);
    sheet.line(at(-9, boltCircle), at(35, boltCircle));
    sheet.use(Line::Outline, ink::cyan); // the bore's edges seen behind the cut
    sheet.line(at(0, pipeInside), at(0, 0));
    sheet.line(at(58, pipeInside), at(58, 0));
}

// Deep groove ball bearing 6204, in millimetres.
constexpr double outside = 23.5;
constexpr double outerRace = 19.3;
constexpr double innerRace = 14.2;
constexpr double shaft = 10;
constexpr double bearingWidth = 14;
constexpr double ball = 3.97;
constexpr int balls = 8;
constexpr double ballCircle = (outerRace + innerRace) / 2;

void bearingFace(Sheet &sheet, const QPointF &centre)
{
    const QColor steel(214, 224, 236);
    sheet.use(Line::Heavy, ink::black, steel);
    sheet.path(diskPath(centre, outside) - diskPath(centre, outerRace));
    sheet.path(diskPath(centre, innerRace) - diskPath(centre, shaft));
    sheet.use(Line::Outline, ink::brown); // the cage
    sheet.circle(centre, ballCircle);
    for (int i = 0; i < balls; ++i) {
        const QPointF middle = around(centre, ballCircle, (i + 0.5) * 2 * M_PI / balls);
        sheet.use(Line::Outline, ink::black, QColor(250, 224, 150));
        sheet.circle(middle, ball * 0.86);
    }
    sheet.axes(centre, outside + 2.6, ink::deepRed);
}

void bearingSection(Sheet &sheet, double left, double axis, double up)
{
    const auto ring = [=](double inner, double outer) {
        QPainterPath path;
        path.addRoundedRect(
            QRectF(QPointF(left, axis + up * outer), QPointF(left + bearingWidth, axis + up * inner))
                .normalized(),
            0.9, 0.9);
        return path;
    };
    const QPointF middle(left + bearingWidth / 2, axis + up * ballCircle);
    const QPainterPath groove = diskPath(middle, ball);
    const QPainterPath outer = ring(outerRace, outside) - groove;
    const QPainterPath inner = ring(shaft, innerRace) - groove;
    sheet.hatch(outer, ink::deepBlue, 45, 2.4);
    sheet.hatch(inner, ink::deepBlue, 135, 2.4);
    sheet.use(Line::Heavy, ink::black);
    sheet.path(outer);
    sheet.path(inner);
    sheet.use(Line::Heavy, ink::black, QColor(250, 224, 150));
    sheet.circle(middle, ball);
    sheet.axes(middle, ball + 1.2, ink::deepRed);
    sheet.use(Line::Outline, ink::black);
    sheet.line({left + 0.5, axis}, {left + 0.5, axis + up * shaft});
    sheet.line({left + bearingWidth - 0.5, axis}, {left + bearingWidth - 0.5, axis + up * shaft});
}

} // namespace

void flange(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {392, 226}, ink::modelSpace, ink::green);
    constexpr double axis = 113;
    constexpr double left = 256;
    flangeFace(sheet, {118, axis});
    flangeSection(sheet, left, axis, -1);
    flangeSection(sheet, left, axis, 1);
    sheet.use(Line::Centre, ink::red);
    sheet.line({left - 14, axis}, {left + 72, axis});
    sheet.dimension({left + 23, axis + flangeRadius}, {left + 23, axis - flangeRadius}, -84,
                    QStringLiteral("\u00D8200"));
}

void ballBearing(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {91, 55}, ink::paper, ink::deepGreen);
    constexpr double axis = 27.5;
    constexpr double left = 60;
    bearingFace(sheet, {28, axis});
    bearingSection(sheet, left, axis, -1);
    bearingSection(sheet, left, axis, 1);
    sheet.use(Line::Centre, ink::deepRed);
    sheet.line({left - 3, axis}, {left + bearingWidth + 3, axis});
    sheet.dimension({left + bearingWidth, axis + outside}, {left + bearingWidth, axis - outside}, -11,
                    QStringLiteral("\u00D847"));
}

} // namespace fxsamples

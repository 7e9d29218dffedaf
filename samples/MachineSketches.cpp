// SPDX-License-Identifier: MIT
#include "samples/Sheet.h"
#include "samples/Sketches.h"

#include <cmath>

namespace fxsamples {

namespace {

// Spur gear, in millimetres, pressure angle 20 degrees.
constexpr double module = 3;
constexpr int teeth = 24;
constexpr double pitchRadius = module * teeth / 2;
constexpr double tipRadius = pitchRadius + module;
constexpr double rootRadius = pitchRadius - 1.25 * module;
constexpr double bore = 10;
constexpr double hubRadius = 17;
constexpr double rimRadius = 26;
constexpr double keyWidth = 6;
constexpr double keyDepth = 2.8;
constexpr double radian = M_PI / 180;

QPointF polar(const QPointF &centre, double radius, double radians)
{
    return centre + QPointF(radius * std::cos(radians), radius * std::sin(radians));
}

double involute(double angle)
{
    return std::tan(angle) - angle;
}

// Half the angle that a tooth takes up at \p radius.
double toothHalfAngle(double radius)
{
    constexpr double pressure = 20 * radian;
    const double baseRadius = pitchRadius * std::cos(pressure);
    const double angle = radius > baseRadius ? std::acos(baseRadius / radius) : 0;
    return M_PI / (2 * teeth) + involute(pressure) - involute(angle);
}

QPainterPath gearOutline(const QPointF &centre)
{
    constexpr int flankSteps = 5;
    Points outline;
    for (int tooth = 0; tooth < teeth; ++tooth) {
        const double middle = (tooth + 0.5) * 2 * M_PI / teeth;
        for (const double side : {-1.0, 1.0}) {
            for (int i = 0; i <= flankSteps; ++i) {
                const double share = double(side < 0 ? i : flankSteps - i) / flankSteps;
                const double radius = rootRadius + (tipRadius - rootRadius) * share;
                outline << polar(centre, radius, middle + side * toothHalfAngle(radius));
            }
        }
    }
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

void gearFace(Sheet &sheet, const QPointF &centre)
{
    QPainterPath wheel = gearOutline(centre);
    QPainterPath hole = diskPath(centre, bore);
    hole = hole.united(boxPath({centre.x() - keyWidth / 2, centre.y() - bore - keyDepth, keyWidth, bore}));
    sheet.use(Line::Outline, ink::yellow, QColor(58, 56, 30));
    sheet.path(wheel - hole);
    sheet.use(Line::Outline, ink::yellow);
    sheet.circle(centre, rimRadius);
    sheet.circle(centre, hubRadius);
    constexpr int lighteningHoles = 6;
    for (int i = 0; i < lighteningHoles; ++i) {
        sheet.use(Line::Outline, ink::yellow, QColor::fromRgb(ink::blackSpace));
        sheet.circle(polar(centre, (rimRadius + hubRadius) / 2, i * 2 * M_PI / lighteningHoles), 3.2);
    }
    sheet.use(Line::Centre, ink::red);
    sheet.circle(centre, pitchRadius);
    sheet.axes(centre, tipRadius + 3.5, ink::red);
}

// One half of the section above (up = -1) or below the axis.
void gearSection(Sheet &sheet, double left, double axis, double up)
{
    constexpr double width = 24;
    constexpr double web = 8;
    const auto ring = [=](double inner, double outer, double breadth) {
        const double from = axis + up * inner;
        const double to = axis + up * outer;
        return QRectF(QPointF(left + (width - breadth) / 2, std::min(from, to)),
                      QPointF(left + (width + breadth) / 2, std::max(from, to)));
    };
    const double inside = up < 0 ? bore + keyDepth : bore;
    QPainterPath cut = boxPath(ring(rimRadius, rootRadius, width));
    cut = cut.united(boxPath(ring(hubRadius, rimRadius, web)));
    cut = cut.united(boxPath(ring(inside, hubRadius, width)));
    sheet.hatch(cut, ink::cyan);
    sheet.use(Line::Outline, ink::yellow);
    sheet.path(cut);
    sheet.rect(ring(rootRadius, tipRadius, width)); // a tooth is never hatched
    sheet.rect(ring(0, inside, width));
    sheet.use(Line::Centre, ink::red);
    sheet.line({left - 4, axis + up * pitchRadius}, {left + width + 4, axis + up * pitchRadius});
}

// Bracket, in millimetres: an angle with a rib, a rounded back with one hole, two holes in its foot.
constexpr double length = 80;
constexpr double height = 60;
constexpr double depth = 50;
constexpr double thick = 10;
constexpr double holeHeight = height - depth / 2; // of the axis over the foot
constexpr double holeRadius = 9;
constexpr double ribHeight = 24;
constexpr double ribFoot = 45; // where the rib runs out, from the back
constexpr double ribFrom = 21; // across
constexpr double ribTo = 29;

void bracketFront(Sheet &sheet, const QPointF &corner) // lower left
{
    const auto at = [&corner](double x, double z) { return corner + QPointF(x, -z); };
    sheet.use(Line::Heavy, ink::black);
    sheet.polygon(
        {at(0, 0), at(length, 0), at(length, thick), at(thick, thick), at(thick, height), at(0, height)});
    sheet.use(Line::Outline, ink::black);
    sheet.line(at(thick, ribHeight), at(ribFoot, thick));
    sheet.use(Line::Hidden, ink::deepBlue);
    for (const double z : {holeHeight - holeRadius, holeHeight + holeRadius})
        sheet.line(at(0, z), at(thick, z));
    for (const double x : {59.0, 71.0})
        sheet.line(at(x, 0), at(x, thick));
    sheet.use(Line::Centre, ink::deepRed);
    sheet.line(at(-5, holeHeight), at(thick + 5, holeHeight));
    sheet.line(at(65, -4), at(65, thick + 4));
}

void bracketSide(Sheet &sheet, const QPointF &corner)
{
    const auto at = [&corner](double y, double z) { return corner + QPointF(y, -z); };
    QPainterPath back(at(0, 0));
    back.lineTo(at(0, height - depth / 2));
    back.arcTo(QRectF(at(0, height), QSizeF(depth, depth)), 180, -180);
    back.lineTo(at(depth, 0));
    back.closeSubpath();
    sheet.use(Line::Heavy, ink::black);
    sheet.path(back);
    sheet.circle(at(depth / 2, holeHeight), holeRadius);
    sheet.use(Line::Hidden, ink::deepBlue); // behind the back: the foot and the rib
    sheet.line(at(0, thick), at(depth, thick));
    sheet.polyline({at(ribFrom, thick), at(ribFrom, ribHeight), at(ribTo, ribHeight), at(ribTo, thick)});
    sheet.axes(at(depth / 2, holeHeight), 15, ink::deepRed);
}

void bracketTop(Sheet &sheet, const QPointF &corner) // upper left
{
    const auto at = [&corner](double x, double y) { return corner + QPointF(x, y); };
    sheet.use(Line::Heavy, ink::black);
    sheet.rect({at(0, 0), QSizeF(length, depth)});
    sheet.line(at(thick, 0), at(thick, depth));
    sheet.use(Line::Outline, ink::black);
    sheet.polyline({at(thick, ribFrom), at(ribFoot, ribFrom), at(ribFoot, ribTo), at(thick, ribTo)});
    sheet.use(Line::Hidden, ink::deepBlue);
    for (const double y : {depth / 2 - holeRadius, depth / 2 + holeRadius})
        sheet.line(at(0, y), at(thick, y));
    for (const double y : {12.0, 38.0}) {
        sheet.use(Line::Outline, ink::black);
        sheet.circle(at(65, y), 6);
        sheet.axes(at(65, y), 9, ink::deepRed);
    }
}

void bracketPicture(Sheet &sheet, const QPointF &origin)
{
    constexpr double scale = 0.56;
    const auto at = [&origin](double x, double y, double z) {
        return origin + QPointF((x - y) * std::cos(30 * radian), (x + y) * std::sin(30 * radian) - z) * scale;
    };
    const auto back = [&at](double x) { // the outline of the rounded back, from its right foot
        Points outline({at(x, depth, thick)});
        for (int degrees = 0; degrees <= 180; degrees += 10)
            outline << at(x, depth / 2 + depth / 2 * std::cos(degrees * radian),
                          height - depth / 2 + depth / 2 * std::sin(degrees * radian));
        return outline << at(x, 0, thick);
    };
    const auto hole = [&at](double x, double y, double z, double radius, bool inFoot) {
        Points outline;
        for (int degrees = 0; degrees < 360; degrees += 10) {
            const double along = radius * std::cos(degrees * radian);
            const double across = radius * std::sin(degrees * radian);
            outline << (inFoot ? at(x + along, y + across, z) : at(x, y + along, z + across));
        }
        return outline;
    };
    const QColor top(214, 226, 242);
    const QColor left(150, 174, 208);
    const QColor right(184, 202, 228);
    sheet.use(Line::Outline, ink::black, left);
    sheet.polygon(back(0));
    sheet.polygon(back(thick));
    sheet.use(Line::Outline, ink::black, right);
    sheet.polygon({at(0, depth, thick), at(thick, depth, thick), at(thick, depth, holeHeight),
                   at(0, depth, holeHeight)});
    sheet.use(Line::Outline, ink::black, QColor(120, 142, 176));
    sheet.polygon(hole(thick, depth / 2, holeHeight, holeRadius, false));
    sheet.use(Line::Outline, ink::black, top);
    sheet.polygon(
        {at(thick, 0, thick), at(length, 0, thick), at(length, depth, thick), at(thick, depth, thick)});
    sheet.use(Line::Outline, ink::black, right);
    sheet.polygon({at(0, depth, 0), at(length, depth, 0), at(length, depth, thick), at(0, depth, thick)});
    sheet.use(Line::Outline, ink::black, left);
    sheet.polygon({at(length, 0, 0), at(length, depth, 0), at(length, depth, thick), at(length, 0, thick)});
    sheet.use(Line::Outline, ink::black, QColor(120, 142, 176));
    for (const double y : {12.0, 38.0})
        sheet.polygon(hole(65, y, thick, 6, true));
    sheet.use(Line::Outline, ink::black, right);
    sheet.polygon({at(thick, ribTo, thick), at(ribFoot, ribTo, thick), at(thick, ribTo, ribHeight)});
    sheet.use(Line::Outline, ink::black, top);
    sheet.polygon({at(ribFoot, ribFrom, thick), at(ribFoot, ribTo, thick), at(thick, ribTo, ribHeight),
                   at(thick, ribFrom, ribHeight)});
}

} // namespace

void spurGear(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {156, 90}, ink::blackSpace, ink::green);
    constexpr double axis = 45;
    constexpr double left = 104;
    gearFace(sheet, {46, axis});
    gearSection(sheet, left, axis, -1);
    gearSection(sheet, left, axis, 1);
    sheet.use(Line::Centre, ink::red);
    sheet.line({left - 5, axis}, {left + 29, axis});
    sheet.dimension({left + 24, axis + tipRadius}, {left + 24, axis - tipRadius}, -19,
                    QStringLiteral("\u00D878"));
}

void bracket(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {262, 163}, ink::paper, ink::deepGreen);
    sheet.use(Line::Heavy, ink::black);
    sheet.rect({5, 5, 252, 153});
    bracketFront(sheet, {34, 88});
    bracketSide(sheet, {129, 88});
    bracketTop(sheet, {34, 99});
    bracketPicture(sheet, {211, 50});
    sheet.dimension({34, 28}, {114, 28}, 6, QStringLiteral("80"));
    sheet.dimension({129, 28}, {179, 28}, 6, QStringLiteral("50"));
    sheet.dimension({34, 88}, {34, 28}, 11, QStringLiteral("60"));

    // The title block.
    sheet.use(Line::Heavy, ink::black);
    sheet.rect({150, 114, 107, 44});
    sheet.use(Line::Outline, ink::black);
    sheet.line({150, 138}, {257, 138});
    sheet.line({203, 138}, {203, 158});
    sheet.text({203.5, 126}, QStringLiteral("BRACKET"), 7);
    sheet.text({176.5, 148}, QStringLiteral("1:1"));
    sheet.text({230, 148}, QStringLiteral("S235"));
}

} // namespace fxsamples

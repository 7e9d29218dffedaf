// SPDX-License-Identifier: MIT
#include "samples/Sheet.h"
#include "samples/Sketches.h"

#include <QLineF>

#include <cmath>
#include <utility>

namespace fxsamples {

namespace {

// Staircase, in metres: 16 risers of 17.5 cm and 15 treads of 28 cm climb one storey of 2.80 m.
constexpr int risers = 16;
constexpr double riser = 0.175;
constexpr double going = 0.28;
constexpr QPointF firstRiser(1.3, 3.98);

QPointF nosing(int step)
{
    return firstRiser + QPointF((step - 1) * going, -step * riser);
}

QPainterPath stairConcrete()
{
    constexpr double slab = 0.2;
    constexpr double waist = 0.2; // of the flight, straight down
    const QPointF top = nosing(risers);
    const double floor = firstRiser.y();
    // The soffit is as steep as the stairs, so it meets both floors the same way beyond the steps' corners.
    const double beyond = waist * going / riser;
    Points outline({{0.2, floor}, firstRiser});
    for (int step = 1; step <= risers; ++step)
        outline << nosing(step) << nosing(step) + QPointF(step < risers ? going : 0, 0);
    outline << QPointF(6.95, top.y()) << QPointF(6.95, top.y() + slab)
            << QPointF(top.x() - going + beyond + slab * going / riser, top.y() + slab)
            << QPointF(firstRiser.x() + beyond, floor) << QPointF(6.95, floor) << QPointF(6.95, floor + slab)
            << QPointF(0.2, floor + slab);
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

void handrail(Sheet &sheet)
{
    const QPointF up(0, -0.9);
    sheet.use(Line::Thin, ink::deepBlue);
    for (int step = 1; step <= risers; step += 2) {
        const QPointF foot = nosing(step) + QPointF(going / 2, 0);
        sheet.line(foot, foot + up);
    }
    sheet.use(Line::Heavy, ink::deepBlue);
    const QPointF half(going / 2, 0);
    const QPointF last = nosing(risers) + half + up;
    sheet.polyline({nosing(1) + half, nosing(1) + half + up, last, last + QPointF(1.2, 0)});
    sheet.use(Line::Thin, ink::deepBlue);
    sheet.line(last + QPointF(1.0, 0), last + QPointF(1.0, 0.9));
    sheet.line(last + QPointF(0.5, 0), last + QPointF(0.5, 0.9));
}

// Roof truss, in metres.
constexpr QPointF leftHeel(2.0, 5.1);
constexpr QPointF rightHeel(12.0, 5.1);
constexpr QPointF apex(7.0, 1.7);

QPointF between(const QPointF &from, const QPointF &to, double share)
{
    return from + (to - from) * share;
}

// A timber of this width around its axis, drawn longer by the overhang at its start.
void timber(Sheet &sheet, const QPointF &from, const QPointF &to, double width, double overhang = 0)
{
    const QPointF along = (to - from) / QLineF(from, to).length();
    const QPointF half = QPointF(along.y(), -along.x()) * (width / 2);
    const QPointF start = from - along * overhang;
    sheet.use(Line::Outline, ink::yellow, QColor(96, 74, 34));
    sheet.polygon({start + half, to + half, to - half, start - half});
}

void nailPlate(Sheet &sheet, const QPointF &node)
{
    sheet.use(Line::Thin, ink::cyan, QColor(0, 96, 112));
    sheet.rect({node.x() - 0.3, node.y() - 0.2, 0.6, 0.4});
}

void purlin(Sheet &sheet, const QPointF &foot, const QPointF &along)
{
    constexpr double width = 0.26;
    constexpr double height = 0.38;
    const QPointF side = along * width / 2;
    const QPointF up = QPointF(along.y(), -along.x()) * height;
    const Points section({foot - side, foot + side, foot + side + up, foot - side + up});
    sheet.use(Line::Outline, ink::magenta);
    sheet.polygon(section); // end grain: the cross of a cut timber
    sheet.use(Line::Thin, ink::magenta);
    sheet.line(section.at(0), section.at(2));
    sheet.line(section.at(1), section.at(3));
}

// Arch bridge, in metres.
constexpr double deckTop = 6.2;
constexpr double deckDepth = 1.1;
constexpr QPointF springing(9, 15.4);
constexpr double span = 26;
constexpr double rise = 7.1;

// A parabola, as arches under an even load are. \p lift moves it outwards.
QPointF arch(double share, double lift)
{
    const double fromCrown = 2 * share - 1;
    const QPointF point(springing.x() + span * share, springing.y() - rise * (1 - fromCrown * fromCrown));
    const QPointF slope(span, 4 * rise * fromCrown);
    const QPointF outward = QPointF(slope.y(), -slope.x()) / std::hypot(slope.x(), slope.y());
    return point + outward * lift;
}

QPainterPath archRing(double thickness)
{
    constexpr int steps = 48;
    Points ring;
    for (int i = 0; i <= steps; ++i)
        ring << arch(double(i) / steps, 0);
    for (int i = steps; i >= 0; --i)
        ring << arch(double(i) / steps, thickness);
    QPainterPath path;
    path.addPolygon(ring);
    path.closeSubpath();
    return path;
}

void bridgeGround(Sheet &sheet)
{
    for (const bool mirrored : {false, true}) {
        Points bank;
        for (const QPointF &point :
             {QPointF(-4, 7.3), QPointF(3.4, 7.3), QPointF(5.4, 9.6), QPointF(7.2, 12.6), QPointF(9.6, 16.2),
              QPointF(13.0, 18.2), QPointF(13.0, 24), QPointF(-4, 24)})
            bank << (mirrored ? QPointF(2 * springing.x() + span - point.x(), point.y()) : point);
        QPainterPath soil;
        soil.addPolygon(bank);
        soil.closeSubpath();
        sheet.use(Line::Thin, ink::brown, QColor(240, 226, 200));
        sheet.path(soil);
        sheet.hatch(soil, qRgb(204, 160, 104), mirrored ? 135 : 45, 4);
        sheet.use(Line::Outline, ink::brown);
        sheet.polyline(bank.mid(0, 6));
    }
}

} // namespace

void staircaseSection(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {7.2, 4.48}, ink::layout, ink::deepRed);
    const QPainterPath concrete = stairConcrete();
    sheet.use(Line::Thin, ink::graphite, QColor(226, 228, 232));
    sheet.path(concrete);
    sheet.hatch(concrete, ink::graphite, 45, 2.6);
    sheet.use(Line::Heavy, ink::black);
    sheet.path(concrete);
    handrail(sheet);
    sheet.dimension({5.5, firstRiser.y()}, nosing(risers) + QPointF(0, 0.2), -1.1, QStringLiteral("2.80"),
                    Ends::Ticks);
    sheet.level({0.75, firstRiser.y()}, QStringLiteral("0.00"));
    sheet.text({2.3, 0.6}, QStringLiteral("16 \u00D7 17.5 / 28"));
}

void roofTruss(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {14.2, 7.4}, ink::blackSpace, ink::green);
    // Walls below the heels, cut.
    for (const double middle : {leftHeel.x() + 0.15, rightHeel.x() - 0.15}) {
        const QRectF wall(middle - 0.3, leftHeel.y() + 0.14, 0.6, 1.0);
        sheet.hatch(boxPath(wall), ink::silver, 45, 2.6);
        sheet.use(Line::Outline, ink::white);
        sheet.rect(wall);
    }
    const QPointF leftThird = between(leftHeel, rightHeel, 1.0 / 3);
    const QPointF rightThird = between(leftHeel, rightHeel, 2.0 / 3);
    const QPointF leftMiddle = between(leftHeel, apex, 0.5);
    const QPointF rightMiddle = between(rightHeel, apex, 0.5);
    for (const auto &[from, to] : {std::pair(leftThird, leftMiddle), std::pair(leftThird, apex),
                                   std::pair(rightThird, apex), std::pair(rightThird, rightMiddle)})
        timber(sheet, from, to, 0.18);
    timber(sheet, leftHeel, rightHeel, 0.26);
    timber(sheet, leftHeel, apex, 0.28, 0.9);
    timber(sheet, rightHeel, apex, 0.28, 0.9);
    for (const QPointF &node : {leftThird, rightThird, leftMiddle, rightMiddle, apex + QPointF(0, 0.16)})
        nailPlate(sheet, node);
    for (const QPointF &heel : {leftHeel, rightHeel}) {
        const QPointF along = (apex - heel) / QLineF(heel, apex).length();
        const bool fromLeft = heel.x() < apex.x();
        const QPointF outward = (fromLeft ? QPointF(along.y(), -along.x()) : QPointF(-along.y(), along.x()));
        for (const double share : {-0.08, 0.21, 0.5, 0.79})
            purlin(sheet, between(heel, apex, share) + outward * 0.14, fromLeft ? along : -along);
    }
    sheet.use(Line::Centre, ink::red);
    sheet.line({apex.x(), 0.7}, {apex.x(), 5.9});
    sheet.dimension(leftHeel + QPointF(0, 1.2), rightHeel + QPointF(0, 1.2), -0.55, QStringLiteral("10.00"),
                    Ends::Ticks);
    sheet.dimension({12.9, rightHeel.y()}, {12.9, apex.y()}, -0.7, QStringLiteral("3.40"), Ends::Ticks);
}

void archBridge(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {44, 21.7}, ink::layout, ink::deepRed);
    const QPainterPath water = boxPath({11, 17.2, 22, 8});
    sheet.use(Line::Outline, ink::deepBlue, QColor(206, 228, 246));
    sheet.path(water);
    sheet.use(Line::Thin, ink::deepBlue);
    sheet.line({15, 18.4}, {20.5, 18.4});
    sheet.line({23, 18.4}, {28, 18.4});
    sheet.line({18, 19.6}, {25.5, 19.6});
    bridgeGround(sheet);

    const QColor stone(226, 222, 214);
    for (const double share : {0.1, 0.22, 0.34, 0.66, 0.78, 0.9}) {
        const QPointF foot = arch(share, 0.6);
        sheet.use(Line::Outline, ink::black, stone);
        sheet.rect(QRectF(QPointF(foot.x() - 0.4, deckTop + deckDepth), QPointF(foot.x() + 0.4, foot.y())));
    }
    for (const QRectF &abutment :
         {QRectF(5.0, deckTop + 0.6, 1.7, 8.0), QRectF(37.3, deckTop + 0.6, 1.7, 8.0)}) {
        sheet.use(Line::Outline, ink::black, stone);
        sheet.rect(abutment);
    }
    for (const double foot : {springing.x() - 0.6, springing.x() + span + 0.6}) {
        sheet.use(Line::Outline, ink::black, stone);
        sheet.rect({foot - 1.4, springing.y() - 0.9, 2.8, 2.4});
    }
    sheet.use(Line::Heavy, ink::black, stone);
    sheet.path(archRing(1.0));
    sheet.use(Line::Heavy, ink::black, stone);
    sheet.rect({1.5, deckTop, 41, deckDepth});
    sheet.use(Line::Thin, ink::graphite);
    constexpr int posts = 31;
    for (int i = 0; i < posts; ++i) {
        const double post = 2.2 + i * 1.32;
        sheet.line({post, deckTop}, {post, deckTop - 1.1});
    }
    sheet.use(Line::Outline, ink::graphite);
    sheet.line({1.5, deckTop - 1.1}, {42.5, deckTop - 1.1});

    const QPointF right = springing + QPointF(span, 0);
    sheet.dimension({springing.x(), deckTop - 1.4}, {right.x(), deckTop - 1.4}, 0.9, QStringLiteral("26.00"));
    sheet.use(Line::Centre, ink::deepRed);
    sheet.line({22, 5.5}, {22, 16});
}

} // namespace fxsamples

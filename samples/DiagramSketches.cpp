// SPDX-License-Identifier: MIT
#include "samples/Sheet.h"
#include "samples/Sketches.h"

#include <QLineF>

#include <cmath>

namespace fxsamples {

namespace {

// Isometric pipe run, in tile pixels; east goes down to the right, north up to the right.
struct Isometric
{
    QPointF origin;
    QPointF at(double east, double north, double up) const
    {
        const double cosine = std::cos(M_PI / 6);
        return origin + QPointF((east + north) * cosine, (east - north) * 0.5 - up);
    }
};

// A joint of two flanges, seen as a stroke across the pipe.
void flangeJoint(Sheet &sheet, const QPointF &at, const QPointF &across)
{
    sheet.use(Line::Heavy, ink::white);
    sheet.line(at - across * 4.2, at + across * 4.2);
}

// A valve: two triangles tip to tip between its flanges, a handwheel above.
void valve(Sheet &sheet, const QPointF &at, const QPointF &along)
{
    const QPointF half = along * 6;
    const QPointF wide(0, 4);
    const QPointF wheel = at - QPointF(0, 8);
    sheet.use(Line::Outline, ink::yellow, QColor::fromRgb(ink::yellow));
    sheet.polygon({at - half - wide, at - half + wide, at + half - wide, at + half + wide});
    sheet.line(at, wheel);
    sheet.line(wheel - along * 4, wheel + along * 4);
    flangeJoint(sheet, at - half - along, QPointF(0, 1));
    flangeJoint(sheet, at + half + along, QPointF(0, 1));
}

// A length along the pipe, told below it.
void pipeLength(Sheet &sheet, const QPointF &from, const QPointF &to, double below, const QString &text)
{
    const QPointF drop(0, below);
    sheet.use(Line::Thin, ink::green);
    for (const QPointF &end : {from, to}) {
        sheet.line(end + QPointF(0, 3), end + drop + QPointF(0, 2));
        sheet.use(Line::Outline, ink::green);
        sheet.line(end + drop - QPointF(1.4, -1.4), end + drop + QPointF(1.4, -1.4));
        sheet.use(Line::Thin, ink::green);
    }
    sheet.line(from + drop, to + drop);
    const QLineF line(from, to);
    const double angle = line.angle() > 180 ? line.angle() - 360 : line.angle();
    sheet.text(line.center() + drop + QPointF(0, 6), text, Sheet::textHeight, angle);
}

// Circuit, in tile pixels.
void wire(Sheet &sheet, const Points &points)
{
    sheet.use(Line::Outline, ink::green);
    sheet.polyline(points);
}

void junction(Sheet &sheet, const QPointF &at)
{
    sheet.use(Line::Thin, ink::green, QColor::fromRgb(ink::green));
    sheet.circle(at, 1.3);
}

void transformer(Sheet &sheet, double x, double top, double bottom)
{
    constexpr int turns = 4;
    const double radius = (bottom - top) / turns / 2;
    sheet.use(Line::Outline, ink::cyan);
    for (int i = 0; i < turns; ++i) {
        const double y = top + radius * (2 * i + 1);
        sheet.arc({x - 4, y}, radius, 90, -180);
        sheet.arc({x + 4 + 2 * radius, y}, radius, 90, 180);
    }
    sheet.use(Line::Outline, ink::white); // the core
    sheet.line({x + radius - 1.1, top}, {x + radius - 1.1, bottom});
    sheet.line({x + radius + 1.1, top}, {x + radius + 1.1, bottom});
}

// A diode in the middle of the wire from \p anode to \p cathode.
void diode(Sheet &sheet, const QPointF &anode, const QPointF &cathode)
{
    wire(sheet, {anode, cathode});
    const QPointF along = (cathode - anode) / std::hypot(cathode.x() - anode.x(), cathode.y() - anode.y());
    const QPointF across(along.y(), -along.x());
    const QPointF middle = (anode + cathode) / 2;
    const QPointF tip = middle + along * 2.6;
    sheet.use(Line::Thin, ink::yellow, QColor::fromRgb(ink::yellow));
    sheet.polygon({tip, middle - along * 2.6 + across * 3.2, middle - along * 2.6 - across * 3.2});
    sheet.use(Line::Outline, ink::yellow);
    sheet.line(tip + across * 3.2, tip - across * 3.2);
}

void capacitor(Sheet &sheet, double x, double top, double bottom)
{
    const double middle = (top + bottom) / 2;
    wire(sheet, {{x, top}, {x, middle - 1.7}});
    wire(sheet, {{x, middle + 1.7}, {x, bottom}});
    sheet.use(Line::Outline, ink::yellow);
    sheet.rect({x - 5, middle - 2.6, 10, 1.6});
    sheet.use(Line::Heavy, ink::yellow);
    sheet.line({x - 5, middle + 2}, {x + 5, middle + 2});
    junction(sheet, {x, top});
    junction(sheet, {x, bottom});
}

void earth(Sheet &sheet, const QPointF &at)
{
    wire(sheet, {at, at + QPointF(0, 4)});
    sheet.use(Line::Outline, ink::white);
    for (int bar = 0; bar < 3; ++bar)
        sheet.line(at + QPointF(-4.5 + bar * 1.6, 4 + bar * 2.2),
                   at + QPointF(4.5 - bar * 1.6, 4 + bar * 2.2));
}

} // namespace

void pipeRun(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {139, 80}, ink::modelSpace, ink::green);
    const Isometric iso{{9, 48}};
    const QPointF east = iso.at(1, 0, 0) - iso.origin;
    const QPointF north = iso.at(0, 1, 0) - iso.origin;

    const QPointF start = iso.at(0, 0, 0);
    const QPointF elbow = iso.at(0, 46, 0);
    const QPointF tee = iso.at(28, 46, 0);
    const QPointF foot = iso.at(70, 46, 0);
    const QPointF head = iso.at(70, 46, 34);
    const QPointF finish = iso.at(70, 70, 34);
    const QPointF branch = iso.at(28, 46, 19);

    sheet.use(Line::Heavy, ink::cyan);
    sheet.polyline({start, elbow, foot, head, finish});
    sheet.line(tee, branch);
    sheet.use(Line::Thin, ink::cyan, QColor::fromRgb(ink::cyan)); // welds
    for (const QPointF &weld : {elbow, tee, foot, head})
        sheet.circle(weld, 1.8);

    flangeJoint(sheet, start, QPointF(0, 1));
    flangeJoint(sheet, finish, QPointF(0, 1));
    valve(sheet, iso.at(0, 23, 0), north);
    valve(sheet, iso.at(49, 46, 0), east);
    flangeJoint(sheet, branch, east);
    sheet.use(Line::Outline, ink::magenta,
              QColor::fromRgb(ink::modelSpace)); // a pressure gauge on the branch
    sheet.circle(branch - QPointF(0, 7.5), 6.5);
    sheet.text(branch - QPointF(0, 7.5), QStringLiteral("PI"), 5);

    pipeLength(sheet, elbow, foot, 14, QStringLiteral("2400"));
    sheet.text({24, 11}, QStringLiteral("P-104"), 6.5);
}

void powerSupply(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {139, 86}, ink::blackSpace, ink::white);
    constexpr double live = 20;
    constexpr double ground = 66;

    // Mains, fuse, transformer.
    wire(sheet, {{8, live}, {30, live}, {30, 33}, {27, 33}});
    wire(sheet, {{8, ground}, {30, ground}, {30, 53}, {27, 53}});
    sheet.use(Line::Outline, ink::yellow, QColor::fromRgb(ink::blackSpace));
    sheet.rect({14, live - 2.5, 11, 5});
    sheet.use(Line::Outline, ink::white, QColor::fromRgb(ink::blackSpace));
    sheet.circle({7, live}, 2);
    sheet.circle({7, ground}, 2);
    transformer(sheet, 30, 33, 53);

    // The bridge rectifier.
    const QPointF left(48, 43);
    const QPointF top(61, 30);
    const QPointF right(74, 43);
    const QPointF bottom(61, 56);
    wire(sheet, {{39, 33}, {42, 33}, {42, 22}, {61, 22}, top});
    wire(sheet, {{39, 53}, {42, 53}, {42, 64}, {61, 64}, bottom});
    diode(sheet, left, top);
    diode(sheet, left, bottom);
    diode(sheet, top, right);
    diode(sheet, bottom, right);

    // Smoothing, regulator, output.
    wire(sheet, {right, {77, 43}, {77, live - 6}, {98, live - 6}});
    wire(sheet, {left, {45, 43}, {45, 74}, {134, 74}});
    capacitor(sheet, 87, live - 6, 74);
    sheet.use(Line::Heavy, ink::cyan, QColor(0, 44, 52));
    sheet.rect({98, 7, 22, 16});
    sheet.text({109, 15}, QStringLiteral("7812"), 5);
    wire(sheet, {{109, 23}, {109, 74}});
    junction(sheet, {109, 74});
    wire(sheet, {{120, live - 6}, {134, live - 6}});
    capacitor(sheet, 126, live - 6, 74);
    sheet.use(Line::Outline, ink::white, QColor::fromRgb(ink::blackSpace));
    sheet.circle({135, live - 6}, 2);
    sheet.circle({135, 74}, 2);
    earth(sheet, {98, 74});
    sheet.text({11.5, 43}, QStringLiteral("230V"), 4.8);
    sheet.text({48, 11}, QStringLiteral("DC 12 V"));
}

} // namespace fxsamples

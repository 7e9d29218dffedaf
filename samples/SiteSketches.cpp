// SPDX-License-Identifier: MIT
#include "samples/Sheet.h"
#include "samples/Sketches.h"

#include <cmath>

namespace fxsamples {

namespace {

// In metres, north up.
const Points &parcel()
{
    static const Points corners({{9, 6}, {58, 3.5}, {66, 38}, {7, 38}});
    return corners;
}

void contours(Sheet &sheet)
{
    sheet.use(Line::Thin, ink::brown);
    for (int i = 0; i < 5; ++i) {
        const double y = 4 + i * 7.5;
        QPainterPath line(QPointF(-4, y + 6));
        line.cubicTo({14, y + 9}, {20, y - 6}, {38, y - 1});
        line.cubicTo({52, y + 3}, {60, y - 9}, {90, y - 7});
        sheet.path(line);
    }
}

void road(Sheet &sheet)
{
    sheet.use(Line::Outline, ink::black, QColor(214, 214, 218));
    sheet.rect({-6, 41, 100, 7});
    sheet.use(Line::Hidden, ink::graphite);
    sheet.line({37, 44.5}, {94, 44.5});
    sheet.text({20, 44.5}, QStringLiteral("MILL LANE"));
}

void tree(Sheet &sheet, const QPointF &trunk, double radius)
{
    sheet.use(Line::Thin, ink::deepGreen, QColor(190, 224, 170));
    sheet.circle(trunk, radius);
    constexpr int branches = 8;
    for (int i = 0; i < branches; ++i) {
        const double angle = i * 2 * M_PI / branches;
        sheet.line(trunk, trunk + QPointF(std::cos(angle), std::sin(angle)) * radius * 0.7);
    }
}

void buildings(Sheet &sheet)
{
    // The drive, then the garage and the house on it.
    sheet.use(Line::Thin, ink::graphite, QColor(236, 234, 228));
    sheet.polygon({{46, 41}, {46, 27}, {55, 27}, {55, 41}});
    sheet.use(Line::Heavy, ink::black, QColor(250, 226, 214));
    sheet.rect({46, 17, 9, 10});
    const Points walls({{19, 13}, {46, 13}, {46, 25}, {31, 25}, {31, 31}, {19, 31}});
    QPainterPath house;
    house.addPolygon(walls);
    house.closeSubpath();
    sheet.use(Line::Heavy, ink::black, QColor(250, 214, 200));
    sheet.path(house);
    sheet.hatch(house, ink::deepRed);
    sheet.use(Line::Heavy, ink::black);
    sheet.path(house);
    sheet.use(Line::Outline, ink::black); // ridge, hips and valley
    sheet.polyline({{46, 13}, {40, 19}, {25, 19}, {25, 25}, {31, 31}});
    sheet.line({40, 19}, {46, 25});
    sheet.line({19, 13}, {25, 19});
    sheet.line({31, 25}, {25, 19});
    sheet.line({25, 25}, {19, 31});
}

void northArrow(Sheet &sheet, const QPointF &centre)
{
    sheet.use(Line::Outline, ink::black, QColor::fromRgb(ink::paper));
    sheet.circle(centre, 4.4);
    sheet.use(Line::Thin, ink::black, QColor::fromRgb(ink::black));
    sheet.polygon({centre + QPointF(0, -6.4), centre + QPointF(2.2, 3), centre + QPointF(0, 1.4)});
    sheet.use(Line::Thin, ink::black, QColor::fromRgb(ink::paper));
    sheet.polygon({centre + QPointF(0, -6.4), centre + QPointF(-2.2, 3), centre + QPointF(0, 1.4)});
    sheet.text(centre + QPointF(0, -9.4), QStringLiteral("N"), 6.5);
}

// Ten metres, from \p left on.
void scaleBar(Sheet &sheet, const QPointF &left)
{
    constexpr double field = 2.5;
    for (int i = 0; i < 4; ++i) {
        sheet.use(Line::Thin, ink::black, QColor::fromRgb(i % 2 == 0 ? ink::black : ink::paper));
        sheet.rect({left + QPointF(i * field, 0), QSizeF(field, 1.3)});
    }
    sheet.text(left + QPointF(2 * field, -3), QStringLiteral("10 M"), 5);
}

} // namespace

void sitePlan(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {80, 50}, ink::paper, ink::black);
    contours(sheet);
    road(sheet);
    sheet.use(Line::Hidden, ink::deepBlue); // no building beyond this line
    sheet.polygon({{13.5, 9.5}, {55, 7.4}, {61, 35}, {12, 35}});
    buildings(sheet);
    for (const QPointF &trunk : {QPointF(13, 12), QPointF(13.4, 21), QPointF(59.5, 31)})
        tree(sheet, trunk, 3.2);
    for (const QPointF &trunk : {QPointF(52, 9.6), QPointF(38, 31.5)})
        tree(sheet, trunk, 2.5);
    sheet.use(Line::Border, qRgb(200, 0, 160));
    sheet.polygon(parcel());
    sheet.use(Line::Thin, qRgb(200, 0, 160), QColor::fromRgb(ink::paper));
    for (const QPointF &stone : parcel())
        sheet.circle(stone, 0.9);
    northArrow(sheet, {72, 15});
    scaleBar(sheet, {67.9, 35.2});
}

} // namespace fxsamples

// SPDX-License-Identifier: MIT
#include "samples/Sheet.h"
#include "samples/Sketches.h"

namespace fxsamples {

namespace {

// Floor plan, in metres.
constexpr QRectF house(1.7, 1.35, 11.2, 6.3);

QPainterPath cutWalls()
{
    QPainterPath walls = boxPath(house);
    for (const QRectF &room : {
             QRectF(2.06, 1.71, 4.54, 5.58), // living room
             QRectF(6.80, 1.71, 2.40, 2.39), // kitchen
             QRectF(9.40, 1.71, 3.14, 2.39), // bath
             QRectF(6.80, 4.30, 2.90, 2.99), // hall
             QRectF(9.90, 4.30, 2.64, 2.99), // bedroom
             QRectF(6.50, 4.55, 0.40, 0.90), // doors ...
             QRectF(7.10, 4.00, 0.85, 0.40),
             QRectF(9.60, 6.05, 0.40, 0.90),
             QRectF(10.1, 4.00, 0.85, 0.40),
             QRectF(7.05, 7.20, 1.00, 0.60),
             QRectF(1.60, 2.70, 0.60, 2.60), // ... and windows
             QRectF(3.00, 7.20, 2.60, 0.60),
             QRectF(7.15, 1.20, 1.70, 0.60),
             QRectF(10.7, 1.20, 1.20, 0.60),
             QRectF(12.4, 5.00, 0.60, 1.60),
         })
        walls -= boxPath(room);
    return walls;
}

void doors(Sheet &sheet)
{
    struct Door
    {
        QPointF hinge;
        QPointF leaf; // from the hinge to the edge of the open leaf
        double width = 0;
        double from = 0; // of the swing, degrees
        double span = 0;
    };
    for (const Door &door : {
             Door{{6.6, 5.45}, {-0.9, 0}, 0.9, 90, 90},
             Door{{7.1, 4.1}, {0, -0.85}, 0.85, 0, 90},
             Door{{9.9, 6.95}, {0.9, 0}, 0.9, 0, 90},
             Door{{10.95, 4.1}, {0, -0.85}, 0.85, 90, 90},
             Door{{7.05, 7.29}, {0, -1.0}, 1.0, 0, 90},
         }) {
        sheet.use(Line::Outline, ink::yellow);
        sheet.line(door.hinge, door.hinge + door.leaf);
        sheet.use(Line::Thin, ink::yellow);
        sheet.arc(door.hinge, door.width, door.from, door.span);
    }
}

void windows(Sheet &sheet)
{
    sheet.use(Line::Thin, ink::cyan);
    for (const QRectF &window : {
             QRectF(1.7, 2.7, 0.36, 2.6),
             QRectF(3.0, 7.29, 2.6, 0.36),
             QRectF(7.15, 1.35, 1.7, 0.36),
             QRectF(10.7, 1.35, 1.2, 0.36),
             QRectF(12.54, 5.0, 0.36, 1.6),
         }) {
        sheet.rect(window);
        if (window.width() > window.height())
            sheet.line({window.left(), window.center().y()}, {window.right(), window.center().y()});
        else
            sheet.line({window.center().x(), window.top()}, {window.center().x(), window.bottom()});
    }
}

void stairs(Sheet &sheet)
{
    sheet.use(Line::Thin, ink::white);
    for (int step = 0; step <= 6; ++step)
        sheet.line({8.75, 4.6 + step * 0.32}, {9.7, 4.6 + step * 0.32});
    sheet.line({8.75, 4.3}, {8.75, 6.52});
    sheet.use(Line::Thin, ink::magenta); // the walking line, up to its arrow
    sheet.polyline({{9.22, 6.75}, {9.22, 4.6}});
    sheet.polyline({{9.0, 4.95}, {9.22, 4.55}, {9.44, 4.95}});
}

void furniture(Sheet &sheet)
{
    sheet.use(Line::Thin, ink::silver);
    // Living room: a corner sofa, and a table for four.
    sheet.polygon({{4.0, 1.85}, {6.45, 1.85}, {6.45, 4.0}, {5.75, 4.0}, {5.75, 2.55}, {4.0, 2.55}});
    sheet.rect({4.35, 3.0, 0.9, 0.7});
    sheet.rect({3.0, 5.2, 1.0, 1.5});
    for (const QPointF &chair : {QPointF(2.7, 5.6), QPointF(2.7, 6.3), QPointF(4.3, 5.6), QPointF(4.3, 6.3)})
        sheet.circle(chair, 0.24);
    // Kitchen: worktop, hob, sink.
    sheet.polyline({{6.8, 2.35}, {8.6, 2.35}, {8.6, 4.1}});
    sheet.circle({7.15, 2.03}, 0.18);
    sheet.circle({7.6, 2.03}, 0.18);
    sheet.rect({8.7, 2.6, 0.4, 0.7});
    // Bath: tub, basin, bowl.
    QPainterPath tub;
    tub.addRoundedRect(QRectF(11.75, 1.85, 0.68, 1.7), 0.3, 0.3);
    sheet.path(tub);
    sheet.rect({11.65, 1.75, 0.85, 1.95});
    sheet.circle({10.2, 2.02}, 0.26);
    QPainterPath bowl;
    bowl.addEllipse(QPointF(9.75, 3.1), 0.3, 0.22);
    sheet.path(bowl);
    // Bedroom: the bed with its pillow, and a wardrobe.
    sheet.rect({10.9, 5.0, 1.55, 1.5});
    sheet.line({12.0, 5.0}, {12.0, 6.5});
    sheet.rect({11.2, 4.35, 1.3, 0.45});
}

// Elevation, in metres; the ground lies at y = groundLevel.
constexpr double groundLevel = 8.3;

void roof(Sheet &sheet)
{
    constexpr QRgb tile = qRgb(176, 84, 58);
    const Points slope({{3.1, 2.5}, {11.5, 2.5}, {12.2, 5.1}, {2.4, 5.1}});
    QPainterPath tiles;
    tiles.addPolygon(slope);
    tiles.closeSubpath();
    sheet.use(Line::Outline, ink::black, QColor(244, 214, 200));
    sheet.path(tiles);
    sheet.hatch(tiles, tile, 0, 2.6);
    sheet.use(Line::Outline, ink::black);
    sheet.polygon(slope);
    sheet.use(Line::Heavy, ink::black);
    sheet.line({3.0, 2.5}, {11.6, 2.5});
    sheet.rect({2.3, 5.1, 10.0, 0.2}); // the gutter

    sheet.use(Line::Outline, ink::black, QColor(226, 176, 156));
    sheet.rect({9.4, 1.3, 0.8, 1.7});
    sheet.rect({9.25, 1.2, 1.1, 0.3});

    // A dormer in the middle.
    sheet.use(Line::Outline, ink::black, QColor(255, 250, 236));
    sheet.polygon({{6.3, 4.9}, {6.3, 3.6}, {7.3, 2.75}, {8.3, 3.6}, {8.3, 4.9}});
    sheet.use(Line::Heavy, ink::black);
    sheet.polyline({{6.05, 3.8}, {7.3, 2.72}, {8.55, 3.8}});
}

void casement(Sheet &sheet, const QRectF &opening, bool shutters)
{
    if (shutters) {
        const double leaf = opening.width() * 0.42;
        sheet.use(Line::Thin, ink::deepGreen, QColor(150, 196, 150));
        sheet.rect({opening.left() - leaf, opening.top(), leaf, opening.height()});
        sheet.rect({opening.right(), opening.top(), leaf, opening.height()});
    }
    sheet.use(Line::Outline, ink::black, QColor(196, 222, 244));
    sheet.rect(opening);
    sheet.use(Line::Thin, ink::black);
    sheet.line({opening.center().x(), opening.top()}, {opening.center().x(), opening.bottom()});
    const double transom = opening.top() + opening.height() / 3;
    sheet.line({opening.left(), transom}, {opening.right(), transom});
}

void trees(Sheet &sheet)
{
    const QColor leaves(186, 220, 168);
    sheet.use(Line::Outline, ink::brown);
    sheet.line({14.1, groundLevel}, {14.1, 5.6});
    sheet.use(Line::Thin, ink::deepGreen, leaves);
    QPainterPath crown = diskPath({14.1, 4.5}, 1.25);
    for (const QPointF &bough : {QPointF(13.3, 5.3), QPointF(14.9, 5.2), QPointF(14.1, 5.7)})
        crown = crown.united(diskPath(bough, 0.85));
    sheet.path(crown);
    sheet.use(Line::Outline, ink::brown);
    sheet.line({1.1, groundLevel}, {1.1, 7.7});
    sheet.use(Line::Thin, ink::deepGreen, leaves);
    for (int tier = 0; tier < 3; ++tier) {
        const double top = 6.0 - tier * 0.95;
        sheet.polygon({{1.1, top - 0.6}, {1.95 - tier * 0.18, top + 1.7}, {0.25 + tier * 0.18, top + 1.7}});
    }
}

} // namespace

void floorPlan(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {13.9, 8.0}, ink::modelSpace, ink::green);
    furniture(sheet);
    stairs(sheet);
    sheet.use(Line::Outline, ink::white, QColor(112, 120, 132));
    sheet.path(cutWalls());
    windows(sheet);
    doors(sheet);
    sheet.text({3.95, 4.45}, QStringLiteral("LIVING"));
    sheet.dimension(house.topLeft(), house.topRight(), 0.4, QStringLiteral("11.20"), Ends::Ticks);
    sheet.dimension(house.bottomLeft(), house.topLeft(), 0.5, QStringLiteral("6.30"), Ends::Ticks);
}

void streetElevation(QPainter &painter, const QRectF &area)
{
    Sheet sheet(painter, area, {16.2, 9.6}, ink::paper, ink::deepRed);
    trees(sheet);
    sheet.use(Line::Outline, ink::black, QColor(255, 250, 236));
    sheet.rect({2.9, 5.2, 8.8, groundLevel - 5.2});
    sheet.use(Line::Thin, ink::graphite, QColor(222, 218, 208)); // the plinth
    sheet.rect({2.9, 7.8, 8.8, 0.5});
    roof(sheet);
    casement(sheet, {6.8, 3.75, 1.0, 1.1}, false);
    for (const double left : {3.75, 9.85})
        casement(sheet, {left, 5.75, 1.0, 1.5}, true);
    casement(sheet, {5.6, 5.75, 0.55, 1.5}, false);
    casement(sheet, {8.45, 5.75, 0.55, 1.5}, false);
    sheet.use(Line::Outline, ink::black, QColor(180, 120, 70)); // the front door and its steps
    sheet.rect({6.75, 5.85, 1.1, 2.15});
    sheet.use(Line::Thin, ink::black, QColor(206, 206, 206));
    sheet.rect({6.5, 7.98, 1.6, 0.16});
    sheet.rect({6.3, 8.14, 2.0, 0.16});

    QPainterPath soil = boxPath({0.3, groundLevel, 15.6, 0.55});
    sheet.hatch(soil, ink::brown);
    sheet.use(Line::Heavy, ink::black);
    sheet.line({0.2, groundLevel}, {16.0, groundLevel});
    sheet.level({12.9, 2.5}, QStringLiteral("+5.80"));
}

} // namespace fxsamples

// SPDX-License-Identifier: MIT
// Draws the PNG images and writes them to a directory: draw_images DIRECTORY
// A test checks that the committed files are identical to the output. The SVG images are edited manually.
#include <QColor>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cstdio>
#include <initializer_list>

namespace {

//! Samples along each side of a pixel. The pictures are painted enlarged by this factor, in opaque plain
//! colours and without antialiasing, and then averaged. Qt's antialiasing is not used, because its blending
//! code depends on the processor, and the files must be identical on all processors.
constexpr int samples = 16;

QPainterPath polygon(std::initializer_list<QPointF> corners)
{
    QPainterPath path;
    path.addPolygon(QPolygonF(QVector<QPointF>(corners)));
    path.closeSubpath();
    return path;
}

//! Sets single pixels, for details that are too small for curves.
//! \param rows one string per row, '#' for pixels to set
void drawBitmap(QPainter &painter, int left, int top, std::initializer_list<const char *> rows, QRgb ink)
{
    int y = top;
    for (const char *row : rows) {
        for (int column = 0; row[column] != '\0'; ++column) {
            if (row[column] == '#')
                painter.fillRect(left + column, y, 1, 1, QColor(ink));
        }
        ++y;
    }
}

//! The type icon of a tile: a sheet with a folded corner, a set square and letters.
void drawDrawingFile(QPainter &painter)
{
    constexpr QRgb outline = 0xFF869CB1; // light enough for the G to stand out where it touches
    constexpr QRgb paper = 0xFFFBFCFD;
    constexpr QRgb fold = 0xFFC9D6E2;
    constexpr QRgb sketch = 0xFF3B7DBF;
    constexpr QRgb letters = 0xFF1D2021;

    painter.fillPath(polygon({{0, 0}, {11, 0}, {16, 5}, {16, 16}, {0, 16}}), QColor(outline));
    painter.fillPath(polygon({{1, 1}, {11, 1}, {15, 5}, {15, 15}, {1, 15}}), QColor(paper));
    painter.fillPath(polygon({{10, 0}, {11, 0}, {16, 5}, {16, 6}, {10, 6}}), QColor(outline));
    painter.fillPath(polygon({{11, 1}, {15, 5}, {11, 5}}), QColor(fold));
    drawBitmap(painter, 2, 2,
               {
                   "#.....",
                   "##....",
                   "#.#...",
                   "#..#..",
                   "#...#.",
                   "######",
               },
               sketch);
    drawBitmap(painter, 2, 9,
               {
                   "##..#...#..##",
                   "#.#.#...#.#..",
                   "#.#.#...#.#.#",
                   "#.#.#.#.#.#.#",
                   "##...#.#...##",
               },
               letters);
}

// The two states of the pin button. The buttons scale them down to 16 x 16, so the shapes are bold and
// distinguished by tone, not by fine lines.
constexpr QRgb pinOutline = 0xFF454545;
constexpr QRgb pinShade = 0xFF7C7C7C;
constexpr QRgb pinBody = 0xFF9A9A9A;
constexpr QRgb pinLight = 0xFFB4B4B4;

void drawPinGround(QPainter &painter, QRgb ground)
{
    constexpr QRgb edge = 0xFFC6C6C6;
    QPainterPath plate;
    plate.addRoundedRect(QRectF(0, 0, 23, 23), 3, 3);
    painter.fillPath(plate, QColor(edge));
    QPainterPath face;
    face.addRoundedRect(QRectF(1, 1, 21, 21), 2, 2);
    painter.fillPath(face, QColor(ground));
}

//! Not pinned: the pin is on its side, and its needle points left.
void drawPinUp(QPainter &painter)
{
    drawPinGround(painter, 0xFFE2E2E2);
    painter.fillPath(polygon({{2, 11}, {8, 10}, {8, 13}, {2, 12}}), QColor(pinOutline)); // needle
    painter.fillRect(QRectF(8, 5, 3, 13), QColor(pinOutline));                           // collar
    painter.fillRect(QRectF(9, 6, 1, 11), QColor(pinShade));
    painter.fillRect(QRectF(11, 7, 6, 9), QColor(pinOutline)); // barrel, lit from above
    painter.fillRect(QRectF(11, 8, 6, 3), QColor(pinLight));
    painter.fillRect(QRectF(11, 11, 6, 4), QColor(pinShade));
    painter.fillRect(QRectF(17, 6, 3, 11), QColor(pinOutline)); // cap
}

//! Pinned: the same pin seen from above, tilted, with its needle in a ground that looks pressed.
void drawPinDown(QPainter &painter)
{
    drawPinGround(painter, 0xFFD6D6D6);
    // Drawn upright around the origin, and rotated: the cap is at the upper right.
    painter.translate(11.5, 11.5);
    painter.rotate(45);
    const auto disc = [&painter](qreal y, qreal radiusX, qreal radiusY, QRgb colour) {
        QPainterPath path;
        path.addEllipse(QPointF(0, y), radiusX, radiusY);
        painter.fillPath(path, QColor(colour));
    };
    disc(5, 7, 4, pinOutline); // collar
    disc(4.6, 6, 3, pinBody);
    painter.fillRect(QRectF(-3.8, -4, 7.6, 8), QColor(pinOutline)); // barrel and its foot
    disc(4, 3.8, 1.8, pinOutline);
    painter.fillRect(QRectF(-2.8, -4, 5.6, 8), QColor(pinShade));
    disc(4, 2.8, 1, pinShade);
    painter.fillRect(QRectF(-2.8, -4, 1.9, 8), QColor(pinBody));
    disc(-4.4, 6.5, 4.4, pinOutline); // cap, lit from above
    disc(-4.4, 5.5, 3.4, pinShade);
    disc(-4.8, 4.8, 2.6, pinBody);
    disc(-5.3, 3.6, 1.5, pinLight);
}

//! The question mark of help_32x.svg.
void drawQuestionMark(QPainter &painter, QRgb colour)
{
    QPainterPath hook(QPointF(5, 5));
    hook.arcTo(QRectF(5, 2, 6, 6), 180,
               -233.13); // to (9.8, 7.4): 3-4-5, so that the curve continues smoothly
    hook.cubicTo(8.6, 8.3, 8, 8.7, 8, 10);
    painter.strokePath(hook, QPen(QColor(colour), 2, Qt::SolidLine, Qt::FlatCap));
    painter.fillRect(QRectF(7, 12, 2, 2), QColor(colour));
}

//! A light question mark with its shadow to the lower right, for dark title bars.
void drawHelp(QPainter &painter)
{
    painter.translate(1, 1);
    drawQuestionMark(painter, 0xFF404040);
    painter.translate(-1, -1);
    drawQuestionMark(painter, 0xFFF4F4F4);
}

//! An open folder with the arrow of a drop-down button.
void drawOpen(QPainter &painter)
{
    constexpr QRgb outline = 0xFF8A6D2F;
    constexpr QRgb back = 0xFFE3C478;
    constexpr QRgb flap = 0xFFF7E3A6;
    constexpr QRgb arrow = 0xFF303030;

    painter.fillPath(polygon({{1, 3}, {8, 3}, {10, 5}, {18, 5}, {18, 18}, {1, 18}}), QColor(outline));
    painter.fillPath(polygon({{2, 4}, {7.5, 4}, {9.5, 6}, {17, 6}, {17, 17}, {2, 17}}), QColor(back));
    painter.fillPath(polygon({{5, 9}, {22, 9}, {18, 18}, {1, 18}}), QColor(outline));
    painter.fillPath(polygon({{5.7, 10}, {20.4, 10}, {17.3, 17}, {2.5, 17}}), QColor(flap));
    drawBitmap(painter, 16, 19,
               {
                   "#######",
                   ".#####.",
                   "..###..",
                   "...#...",
               },
               arrow);
}

//! The average of a pixel's samples, which are opaque or transparent: the mean colour of the opaque ones, and
//! their proportion as alpha.
QRgb average(const QImage &large, int left, int top)
{
    int red = 0, green = 0, blue = 0, opaque = 0;
    for (int y = top; y < top + samples; ++y) {
        for (int x = left; x < left + samples; ++x) {
            const QRgb sample = large.pixel(x, y);
            if (qAlpha(sample) == 0)
                continue;
            red += qRed(sample);
            green += qGreen(sample);
            blue += qBlue(sample);
            ++opaque;
        }
    }
    if (opaque == 0)
        return qRgba(0, 0, 0, 0);
    return qRgba(red / opaque, green / opaque, blue / opaque, 255 * opaque / (samples * samples));
}

//! \param side of the finished picture, in pixels
QImage picture(int side, void (*draw)(QPainter &))
{
    QImage large(side * samples, side * samples, QImage::Format_ARGB32_Premultiplied);
    large.fill(Qt::transparent);
    QPainter painter(&large);
    painter.scale(samples, samples);
    draw(painter);
    painter.end();

    QImage result(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            result.setPixel(x, y, average(large, x * samples, y * samples));
    }
    return result;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fputs("usage: draw_images DIRECTORY\n", stderr);
        return 2;
    }
    constexpr struct
    {
        const char *fileName;
        int side;
        void (*draw)(QPainter &);
    } images[] = {
        {"VELA_DWG.png", 16, drawDrawingFile},
        {"pin_up_hover.png", 23, drawPinUp},
        {"pin_down_hover.png", 23, drawPinDown},
        {"help_up.png", 16, drawHelp},
        {"open.png", 24, drawOpen},
    };
    const QDir directory(QString::fromLocal8Bit(argv[1]));
    for (const auto &image : images) {
        const QString path = directory.filePath(QLatin1String(image.fileName));
        if (!picture(image.side, image.draw).save(path, "PNG")) {
            std::fprintf(stderr, "draw_images: cannot write %s\n", qPrintable(path));
            return 1;
        }
    }
    return 0;
}

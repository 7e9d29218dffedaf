// SPDX-License-Identifier: MIT
#include "ui/StyledGrounds.h"

#include <QApplication>
#include <QHash>
#include <QPainter>
#include <QPair>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>
#include <QVector>
#include <QWidget>

#include <cmath>
#include <utility>

namespace {

//! The style sheets of a widget and of those around it in its window; its state, its size in device pixels.
using GroundKey = QPair<QList<QString>, QVector<int>>;

// A plain pointer, because a static host, and with it the tiles, outlives the library's static objects.
QHash<GroundKey, QPixmap> *grounds = nullptr;

//! \return false if other style sheets may apply, which can select widgets by anything
bool listStyleSheets(const QWidget *widget, QList<QString> &sheets)
{
    for (; !widget->isWindow(); widget = widget->parentWidget())
        sheets.append(widget->styleSheet());
    for (; widget; widget = widget->parentWidget()) {
        if (!widget->styleSheet().isEmpty())
            return false;
    }
    return qApp->styleSheet().isEmpty();
}

} // namespace

void StyledGrounds::paint(QWidget *widget)
{
    QPainter painter(widget);
    QStyleOption option;
    option.initFrom(widget);
    QList<QString> sheets;
    const qreal ratio = widget->devicePixelRatioF();
    const bool isWhole = ratio == std::floor(ratio); // otherwise borders depend on where the widget is
    if (!isWhole || !listStyleSheets(widget, sheets)) {
        widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, widget);
        return;
    }
    if (!grounds)
        grounds = new QHash<GroundKey, QPixmap>;
    const QSize size = widget->size() * ratio;
    QPixmap &ground = (*grounds)[{sheets, {static_cast<int>(option.state), size.width(), size.height()}}];
    if (ground.isNull()) {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        QPainter imagePainter(&image);
        widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &imagePainter, widget);
        imagePainter.end();
        ground = QPixmap::fromImage(image); // without transparency, if there is none
    }
    painter.drawPixmap(0, 0, ground);
}

void StyledGrounds::clear()
{
    delete std::exchange(grounds, nullptr);
}

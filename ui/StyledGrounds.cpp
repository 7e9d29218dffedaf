// SPDX-License-Identifier: MIT
#include "ui/StyledGrounds.h"

#include <QHash>
#include <QPainter>
#include <QPair>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>
#include <QWidget>

#include <utility>

namespace {

//! A widget's own style sheet, and its size in device pixels.
using Key = QPair<QString, QPair<int, int>>;

// A plain pointer, because a static host, and with it the tiles, outlives the library's static objects.
QHash<Key, QPixmap> *grounds = nullptr;

QPixmap draw(const QWidget *widget, const QSize &size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(widget->devicePixelRatioF());
    image.fill(Qt::transparent);
    QStyleOption option;
    option.initFrom(widget);
    QPainter painter(&image);
    widget->style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, widget);
    painter.end();
    return QPixmap::fromImage(image); // without transparency, if there is none
}

} // namespace

void StyledGrounds::paint(QPainter *painter, const QWidget *widget)
{
    if (!grounds)
        grounds = new QHash<Key, QPixmap>;
    const QSize size = widget->size() * widget->devicePixelRatioF();
    QPixmap &ground = (*grounds)[{widget->styleSheet(), {size.width(), size.height()}}];
    if (ground.isNull())
        ground = draw(widget, size);
    painter->drawPixmap(0, 0, ground);
}

void StyledGrounds::clear()
{
    delete std::exchange(grounds, nullptr);
}

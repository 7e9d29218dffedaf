// SPDX-License-Identifier: MIT
#include "ui/PictureLabel.h"

#include "ui/StyledGrounds.h"
#include "ui/TilePictures.h"

#include <QPainter>
#include <QStyle>

PictureLabel::PictureLabel(QWidget *parent) : QLabel(parent)
{
    setAttribute(Qt::WA_NoSystemBackground); // the ground is painted below
}

void PictureLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    StyledGrounds::paint(&painter, this);
    drawFrame(&painter);
    const QPixmap whole = pixmap(Qt::ReturnByValue);
    if (whole.isNull())
        return;
    const QRect place = contentsRect();
    const qreal ratio = devicePixelRatioF();
    QPixmap picture = TilePictures::scaled(whole, place.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    style()->drawItemPixmap(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, picture);
}

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

void PictureLabel::paintEvent(QPaintEvent *event)
{
    StyledGrounds::paint(this);
    const QPixmap whole = pixmap(Qt::ReturnByValue);
    if (whole.isNull() || !hasScaledContents() || !isEnabled()) {
        QLabel::paintEvent(event); // a disabled label's picture is greyed
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    const QRect place = contentsRect();
    const qreal ratio = devicePixelRatioF();
    QPixmap picture = TilePictures::scaled(whole, place.size() * ratio);
    picture.setDevicePixelRatio(ratio);
    style()->drawItemPixmap(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, picture);
}

// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

//! A label that shows its pixmap scaled to its size, as QLabel does, but takes what it paints from what is
//! kept (see TilePictures, StyledGrounds). GUI thread.
class PictureLabel : public QLabel // without Q_OBJECT: to style sheets it is a QLabel, as ".QLabel" selects
{
public:
    explicit PictureLabel(QWidget *parent);

protected:
    void paintEvent(QPaintEvent *event) override;
};

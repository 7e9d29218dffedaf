// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>

namespace fxhost {

//! A dark sheet with a picture in its middle, scaled to fit, or with a text instead. GUI thread.
class PictureCanvas : public QWidget
{
    Q_OBJECT
public:
    //! \param picture may be null
    //! \param text what is said when there is no picture
    PictureCanvas(const QImage &picture, const QString &text, QWidget *parent = nullptr);

    //! Where the picture stands, in the widget's pixels; empty when there is none.
    QRect pictureRect() const;

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_picture;
    QString m_text;
};

} // namespace fxhost

// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QWidget>

namespace fxhost {

//! A dark sheet with a centred picture, scaled to fit, or with a text. GUI thread.
class PictureCanvas : public QWidget
{
    Q_OBJECT
public:
    //! \param picture may be null
    //! \param text shown if picture is null
    PictureCanvas(const QImage &picture, const QString &text, QWidget *parent = nullptr);

    //! The picture's rectangle in widget coordinates; empty without a picture.
    QRect pictureRect() const;

    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QImage m_picture;
    QString m_text;
};

} // namespace fxhost

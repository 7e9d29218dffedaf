// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>

//! A speech balloon with title, picture and message, and a pointer on its left side. At most one balloon is
//! visible in the process, and it remains until it is hidden. GUI thread.
class QBalloonTip : public QWidget
{
    Q_OBJECT
public:
    //! Hides the current balloon and shows a new one. If title and message are empty, no balloon is shown.
    //! \param icon the picture; may be null
    //! \param position of the pointer's tip, in global pixels
    //! \param timeout in milliseconds; ignored: a balloon does not hide automatically
    //! \param showArrow ignored: the pointer is always drawn
    static void showBalloon(const QImage &icon, const QString &title, const QString &message,
                            const QPoint &position, int timeout, bool showArrow);
    static void hideBalloon();
    static bool isBalloonVisible();

    ~QBalloonTip() override;

protected:
    void timerEvent(QTimerEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QBalloonTip(const QImage &icon, const QString &title, const QString &message);
    void balloon(const QPoint &position, int timeout, bool showArrow);

    QPixmap m_pixmap;
    int m_timerId = -1;
};
